// The listing of -ws. Its order is that of one list into which every line is inserted as it is found: removed lines look for their
// place by the older numbers, the others by the newer ones, so that the place of a line depends on all lines before it:
//
//   older  newer
//   a      a         found:  = 1 1,  - 2 2,  + 3 2,  = 3 3
//   b      B         listed: = 1 1,  + 3 2,  - 2 2,  = 3 3
//   c      c         "+ 3 2" goes in front of "- 2 2", the first line with a newer number of 2 or more
//
// No sort gives this order. A balanced tree (AVL) of the lines in list order does: each subtree knows its greatest older and its
// greatest newer number, so the first line that is great enough is found on the way down.
#include "baseline/compare_listing.h"

#include <algorithm>

#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

enum LineKey { kHistKey, kPresKey, kLineKeys };

// Descending listings keep the complement of each number: the order turns round, and no number overflows.
struct DiffListing::Node {
    int32_t key[kLineKeys];
    int32_t greatest[kLineKeys]; // of the subtree
    int32_t child[2];            // what stands ahead, what stands behind; 0 is none
    char operation, type;
    int8_t height;
};

bool OpenDiffListing(DiffListing *listing, size_t lines, int descending, double *bytes) {
    listing->nodes = ArrayOf<DiffListing::Node>(lines + 1, bytes);
    if (listing->nodes) {
        listing->nodes[0] = {};
    }
    listing->count = listing->root = 0;
    listing->descending = descending;
    return listing->nodes != nullptr;
}

namespace {

using Node = DiffListing::Node;

void Update(Node *nodes, int32_t at) {
    Node &node = nodes[at];
    std::copy(node.key, node.key + kLineKeys, node.greatest);
    node.height = 0;
    for (const int32_t child : node.child) {
        node.height = std::max(node.height, nodes[child].height);
        for (int key = 0; child && key < kLineKeys; ++key) {
            node.greatest[key] = std::max(node.greatest[key], nodes[child].greatest[key]);
        }
    }
    ++node.height;
}

// Brings the child of a side up into its parent's place, and returns it.
int32_t Rotate(Node *nodes, int32_t at, int side) {
    const int32_t up = nodes[at].child[side];
    nodes[at].child[side] = nodes[up].child[!side];
    nodes[up].child[!side] = at;
    Update(nodes, at);
    Update(nodes, up);
    return up;
}

int32_t Balanced(Node *nodes, int32_t at) {
    Update(nodes, at);
    const auto height = [&](int32_t of, int side) { return nodes[nodes[of].child[side]].height; };
    for (const int side : {0, 1}) {
        if (height(at, side) > height(at, !side) + 1) {
            int32_t &heavy = nodes[at].child[side];
            if (height(heavy, !side) > height(heavy, side)) {
                heavy = Rotate(nodes, heavy, !side);
            }
            return Rotate(nodes, at, side);
        }
    }
    return at;
}

// Returns the root of the subtree with the fresh node in it. As deep as the tree is high.
int32_t Insert(Node *nodes, int32_t at, int32_t fresh, LineKey by) {
    if (!at) {
        return fresh;
    }
    const int32_t key = nodes[fresh].key[by];
    const int32_t ahead = nodes[at].child[0];
    const bool goes_ahead = nodes[at].key[by] >= key || (ahead && nodes[ahead].greatest[by] >= key);
    int32_t &child = nodes[at].child[!goes_ahead];
    child = Insert(nodes, child, fresh, by);
    return Balanced(nodes, at);
}

constexpr Forms<Shown> kHeadFile{.text = "  File: %s\n",
                                 .html = "  <b>File:<font color=\"%{file_name}\"> %s</font></b>\n"
                                         "  <b><font color=\"%{old_file_diff}\">Older     </font>                  "
                                         "<font color=\"%{new_file_diff}\">Newer  </font></b>\n",
                                 .csv = "File: %s\n",
                                 .xml = "  File: %s\n"};

constexpr Forms<> kHeadColumns{.text = "  Older                       Newer\n  ----------------------------------------\n  Line "
                                       "Number    Diff  Type   Line Number\n",
                               .html =
                                   "  ----------------------------------------\n  <b>Line Number    Diff  Type   Line Number</b>\n",
                               .csv = "Older, , ,Newer\nLine Number,Diff,Type,Line Number\n",
                               .xml = "  Older                       Newer\n  ----------------------------------------\n  Line "
                                      "Number    Diff  Type   Line Number\n"};

constexpr Forms<Color> kOpenColor{.html = "<b><font color=\"%{color}\">"};
constexpr Forms<> kCloseColor{.html = "</font></b>"};

constexpr Forms<int, char, Shown, const char *> kRemoved{.text = "  %11d     %c     %s     %-11s\n",
                                                         .html = "  %11d     %c     %s     %-11s\n",
                                                         .csv = "%11d,%c,%s,%-11s\n",
                                                         .xml = "  %11d     %c     %s     %-11s\n"};
constexpr Forms<const char *, char, Shown, int> kAdded{.text = "  %11s     %c     %s     %-11d\n",
                                                       .html = "  %11s     %c     %s     %-11d\n",
                                                       .csv = "%11s,%c,%s,%-11d\n",
                                                       .xml = "  %11s     %c     %s     %-11d\n"};
constexpr Forms<int, char, Shown, int> kKept{.text = "  %11d     %c     %s     %-11d\n",
                                             .html = "  %11d     %c     %s     %-11d\n",
                                             .csv = "%11d,%c,%s,%-11d\n",
                                             .xml = "  %11d     %c     %s     %-11d\n"};

constexpr Forms<> kEquivalent{.text = "       *** File is Equivalent ***\n",
                              .html = "       <b>*** <font color=\"%{equal_code_diff}\">File is Equivalent</font> ***</b>\n",
                              .csv = "       *** File is Equivalent ***\n",
                              .xml = "       *** File is Equivalent ***\n"};

// Shows one line with -ws if lines of this operation are wanted. Only the numbers that the operation has are shown.
void ShowDiffLine(const DiffLine &line, Globals *G) {
    const char operation = line.operation;
    const int shown = operation == '-' ? G->show_removed_lines : operation == '+' ? G->show_added_lines : G->show_equal_lines;
    if (!G->diff_show_details || !shown) {
        return;
    }
    const char type_text[] = {line.type, '\0'}; // it comes from a file and may be any byte
    switch (operation) {
    case '-':
        Print(G, kOpenColor, Color{&HtmlSettings::html_removed_code_diff_color});
        Print(G, kRemoved, line.hist_line, operation, Shown{type_text}, "");
        break;
    case '+':
        Print(G, kOpenColor, Color{&HtmlSettings::html_modified_code_diff_color});
        Print(G, kAdded, "", operation, Shown{type_text}, line.pres_line);
        break;
    default:
        Print(G, kOpenColor, Color{&HtmlSettings::html_equal_code_diff_color});
        Print(G, kKept, line.hist_line, operation, Shown{type_text}, line.pres_line);
        break;
    }
    Print(G, kCloseColor);
}

void ShowSubtree(const DiffListing &listing, int32_t at, Globals *G) {
    if (!at) {
        return;
    }
    const Node &node = listing.nodes[at];
    const int32_t turn = listing.descending ? -1 : 0;
    ShowSubtree(listing, node.child[0], G);
    ShowDiffLine({node.key[kHistKey] ^ turn, node.key[kPresKey] ^ turn, node.operation, node.type}, G);
    ShowSubtree(listing, node.child[1], G);
}

} // namespace

void AddDiffLine(DiffListing *listing, const DiffLine &line) {
    const int32_t turn = listing->descending ? -1 : 0;
    const int32_t fresh = ++listing->count;
    listing->nodes[fresh] = {{line.hist_line ^ turn, line.pres_line ^ turn}, {}, {}, line.operation, line.type, 0};
    Update(listing->nodes.get(), fresh);
    listing->root = Insert(listing->nodes.get(), listing->root, fresh, line.operation == '-' ? kHistKey : kPresKey);
}

void ShowDiffListing(const DiffListing *listing, Globals *G) {
    ShowSubtree(*listing, listing->root, G);
}

void SetDiffHeader(const char *file_name, Globals *G) {
    Print(G, kHeadFile, Shown{file_name});
    Print(G, kHeadColumns);
}

void CloseDiffListing(Globals *G) {
    bool equivalent = !G->show_equal_lines;
    for (const int operation : {kLineMod, kLineRm}) {
        for (const int count : G->line_counts[operation]) {
            equivalent = equivalent && !count;
        }
    }
    if (equivalent) {
        Print(G, kEquivalent);
    }
    Put("  %s\n", kDashes);
}
