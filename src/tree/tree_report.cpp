// The inheritance report: every class with its depth, its children and its parents, the sums, and the classes that stayed lost.
#include <algorithm>
#include <span>

#include "notices/raise.h"
#include "report/forms.h"
#include "report/frame.h"
#include "run/globals.h"
#include "tree/class_tree.h"
#include "tree/tree_nodes.h"

namespace {

constexpr Forms<> kLegend{.text = "\n  D - Depth where base class depth = 0\n  C - Number of direct child classes\n"
                                  "  P - Number of direct parents, Multiple Inheritance > 1\n",
                          .html = "\n  D - Depth where base class depth = 0\n  C - Number of direct child classes\n"
                                  "  P - Number of direct parents, Multiple Inheritance > 1\n",
                          .csv = "\nD - Depth where base class depth = 0\nC - Number of direct child classes\n"
                                 "P - Number of direct parents, Multiple Inheritance > 1\n",
                          .xml = "<legend>\n<depth>Depth where base class = 0</depth>\n"
                                 "<children>Number of direct child classes</children>\n"
                                 "<parents>Number of direct parents, Multiple inheritance &gt; 1</parents>\n</legend>\n"};

// A base class, and a derived class behind its indentation.
constexpr Forms<Shown, int, int> kBase{.text = "\n  + %s [D%d.C%d]\n",
                                       .html = "\n  <b>+ <font color=\"%{inheritance}\">%s</font></b> "
                                               "[<span><font color=\"%{inheritance_depth}\">D%d</font></span>."
                                               "<span><font color=\"%{inheritance_child}\">C%d</font></span>]<br />",
                                       .csv = "\n'+ %s,[D%d.C%d]\n",
                                       .xml = "<class>\n<name>%s</name>\n<depth>%d</depth>\n<children>%d</children>\n</class>\n"};
constexpr Forms<Shown, int, int, int> kDerived{.text = "- %s [D%d.C%d.P%d]\n",
                                               .html = "<b>-</b> %s [<font color=\"%{inheritance_depth}\">D%d</font>."
                                                       "<font color=\"%{inheritance_child}\">C%d</font>.P%d]<br />",
                                               .csv = "- %s,[D%d.C%d.P%d]\n",
                                               .xml = "<class>\n<name>%s</name>\n<depth>%d</depth>\n<children>%d</children>\n"
                                                      "<parent>%d</parent>\n</class>\n"};

struct CountLine {
    Forms<int> forms;
    int TreeState::*count;
};
struct RatioLine {
    Forms<double> forms;
    int TreeState::*sum;
    int TreeState::*by;
};

// clang-format off
constexpr CountLine kCounts[] = {
    {{.text = "  Total Classes        : %d\n",
      .html = "  <b>Total Classes        :</b> %d\n",
      .csv = "Total Classes,%d\n",
      .xml = "<classes>%d</classes>\n"}, &TreeState::tree_classes},
    {{.text = "  Total Base Classes   : %d\n",
      .html = "  <b>Total Base Classes   :</b> %d\n",
      .csv = "Total Base Classes,%d\n",
      .xml = "<base_classes>%d</base_classes>\n"}, &TreeState::tree_base_classes},
    {{.text = "  Total Derived Classes: %d\n",
      .html = "  <b>Total Derived Classes:</b> %d\n",
      .csv = "Total Derived Classes,%d\n",
      .xml = "<derived_classes>%d</derived_classes>\n"}, &TreeState::tree_derived_classes},
};
constexpr RatioLine kRatio{
     {.text = "  Derived/Based Ratio  : %-6.2f\n\n",
      .html = "  <b>Derived/Based Ratio  :</b> %-6.2f\n\n",
      .csv = "Derived/Based Ratio,%-6.2f\n",
      .xml = "<derived_to_base_ratio>%.2f</derived_to_base_ratio>\n"}, &TreeState::tree_derived_classes, &TreeState::tree_base_classes};
constexpr CountLine kDepth{
     {.text = "  Maximum Depth of Inheritance: %d\n",
      .html = "  <b>Maximum Depth of Inheritance:</b> %d\n",
      .csv = "Maximum Depth of Inheritance,%d\n",
      .xml = "<max_depth_inheritance_tree>%d</max_depth_inheritance_tree>\n"}, &TreeState::tree_max_depth};
constexpr RatioLine kAverageDepth{
     {.text = "  Average Depth of Inheritance: %-6.2f\n\n",
      .html = "  <b>Average Depth of Inheritance:</b> %-6.2f\n\n",
      .csv = "Average Depth of Inheritance,%-6.2f\n",
      .xml = "<avg_depth_inheritance_tree>%.2f</avg_depth_inheritance_tree>\n"}, &TreeState::tree_depth_sum, &TreeState::tree_classes};
constexpr CountLine kChildren{
     {.text = "  Maximum Number of Direct Child Classes: %d\n",
      .html = "  <b>Maximum Number of Direct Child Classes:</b> %d\n",
      .csv = "Maximum Number of Direct Child Classes,%d\n",
      .xml = "<max_number_direct_children>%d</max_number_direct_children>\n"}, &TreeState::tree_max_children};
constexpr RatioLine kAverageChildren{
     {.text = "  Average Number of Direct Child Classes: %-6.2f\n",
      .html = "  <b>Average Number of Direct Child Classes:</b> %-6.2f\n",
      .csv = "Average Number of Direct Child Classes,%-6.2f\n",
      .xml = "<avg_number_direct_children>%.2f</avg_number_direct_children>\n"}, &TreeState::tree_children_sum, &TreeState::tree_classes};
constexpr Forms<Shown, Shown> kLost{
    .text = "  Lost Child Node: %s  Parent: %s\n",
    .html = "  <b>Lost Child Node</b>: %s  Parent: %s\n",
    .csv = "Lost Child Node,%s,parent,%s\n",
    .xml = "<lost_child_node>\n<name>%s</name>\n<parent>%s</parent>\n</lost_child_node>\n"};
// clang-format on

void Show(const CountLine &line, const Globals *G) {
    Print(G, line.forms, G->*line.count);
}

void Show(const RatioLine &line, const Globals *G) {
    const int by = G->*line.by;
    Print(G, line.forms, by > 0 ? static_cast<double>(G->*line.sum) / by : 0.0);
}

// Two blanks and two for every level, or a comma for every level; as many as a line's text holds.
void Indent(const TreeData *node, const Globals *G) {
    const bool csv = OutputMode(G) == Mode::kCsv;
    LineText blanks;
    const int room = static_cast<int>(sizeof blanks) - 2;
    const int wanted = csv ? node->depth : std::min(node->depth, room) * 2 + 2;
    const auto length = static_cast<size_t>(std::min(wanted, room));
    std::fill_n(blanks, length, csv ? ',' : ' ');
    blanks[length] = '\0';
    Put("%s", blanks);
}

void ShowNode(const TreeData *node, const Globals *G) {
    if (!node->depth) {
        Print(G, kBase, Shown{node->name}, node->depth, node->children.count);
        return;
    }
    if (OutputMode(G) != Mode::kXml) {
        Indent(node, G);
    }
    Print(G, kDerived, Shown{node->name}, node->depth, node->children.count, node->parents);
}

void CountNode(const TreeData *node, Globals *G) {
    G->tree_max_depth = std::max(G->tree_max_depth, node->depth);
    G->tree_depth_sum += node->depth;
    G->tree_max_children = std::max(G->tree_max_children, node->children.count);
    G->tree_children_sum += node->children.count;
    ++G->tree_classes;
    ++(node->depth ? G->tree_derived_classes : G->tree_base_classes);
}

void RaiseNodeNotices(const TreeData *node, Globals *G) {
    if (node->depth > G->max_inheritance_depth) {
        EmitInheritanceDepthNotice(node->file, node->line, G);
    }
    if (node->children.count > G->max_derived_children) {
        EmitNumberOfChildrenNotice(node->file, node->line, G);
    }
}

// Every node ahead of its children. A class without a proper name takes all below it along.
void TreeNodeShow(int silent, Globals *G) {
    TreeData *node = G->tree_list.head ? Record<TreeData>(G->tree_list.head) : nullptr;
    while (node) {
        if (!*node->name || *node->name == ' ') {
            node = NextBeside(node, nullptr);
            continue;
        }
        CountNode(node, G);
        if (!silent) {
            ShowNode(node, G);
        }
        RaiseNodeNotices(node, G);
        node = NextNode(node, nullptr);
    }
    UniqueClassesInTree(&G->tree_base_classes, &G->tree_derived_classes, &G->tree_classes, G);
}

void ShowTitle(Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml:
        DashRule();
        CenteredTitle("~~ Class Inheritance Tree ~~", G);
        break;
    case Mode::kCsv:
        BeginBlock(G);
        Put("Class Inheritance Tree\n");
        break;
    case Mode::kXml: Put("<report>\n<name>Class Inheritance Tree</name>\n"); break;
    }
    Print(G, kLegend);
}

void ShowTotals(const Globals *G) {
    const bool xml = OutputMode(G) == Mode::kXml;
    Put(xml ? "<totals>\n" : "\n");
    for (const CountLine &line : kCounts) {
        Show(line, G);
    }
    Show(kRatio, G);
    Show(kDepth, G);
    Show(kAverageDepth, G);
    Show(kChildren, G);
    Show(kAverageChildren, G);
    Put(xml ? "</totals>\n" : "");
}

void ShowLostChildren(const Globals *G) {
    if (!G->lost_child_list.head) {
        return;
    }
    static constexpr const char *kTitle = "Parents Not Found - Inheritance Tree";
    DashRule();
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml:
        CenteredTitle("~~ Parents Not Found - Inheritance Tree ~~", G);
        Put("\n");
        break;
    case Mode::kCsv: Put("%s\n", kTitle); break;
    case Mode::kXml: Put("<parents_not_found_tree>\n"); break;
    }
    for (const TreeData *node : Records<TreeData>(G->lost_child_list)) {
        Print(G, kLost, Shown{node->name}, Shown{node->parent});
    }
    if (OutputMode(G) == Mode::kXml) {
        Put("</parents_not_found_tree>\n");
    }
}

} // namespace

void UniqueClassesInTree(int *base, int *derived, int *total, const Globals *G) {
    NameIndex names{};
    bool complete = true;
    TreeData *first = G->tree_list.head ? Record<TreeData>(G->tree_list.head) : nullptr;
    for (TreeData *node = first; node; node = NextNode(node, nullptr)) {
        complete = (!node->above || IndexName(&names, node)) && complete;
    }
    *derived = static_cast<int>(names.count);
    for (TreeData *root : Records<TreeData>(G->tree_list)) {
        complete = IndexName(&names, root) && complete;
    }
    *total = static_cast<int>(names.count);
    *base = *total - *derived;
    FreeIndex(&names);
    if (!complete) {
        Put("\n  Error: memory allocation failure\n");
    }
}

void RaiseTreeNotices(Globals *G) {
    if (G->class_list.head && G->tree_list.head) {
        TreeNodeShow(1, G);
    }
}

void ReportInheritanceTree(Globals *G) {
    if (G->totals_quality_profile) {
        RaiseTreeNotices(G);
        return;
    }
    if (!G->class_list.head || !G->tree_list.head) {
        return;
    }
    const bool xml = OutputMode(G) == Mode::kXml;
    ShowTitle(G);
    Put(xml ? "<inheritance_tree>\n" : "");
    TreeNodeShow(0, G);
    Put(xml ? "</inheritance_tree>\n" : "");
    ShowTotals(G);
    ShowLostChildren(G);
    Put(xml ? "</report>\n" : "");
}
