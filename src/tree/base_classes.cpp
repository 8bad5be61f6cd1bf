// The last stage of the tree: base classes that turned out to be derived, sorted lists, depths.
#include <vector>

#include "run/globals.h"
#include "tree/class_tree.h"
#include "tree/tree_nodes.h"

namespace {

// Comparing places in a tree whose parts move climbs from both; after this many steps a namesake is taken as it comes.
constexpr int kMaxClimb = 100'000'000;

// The root above a node. A removed root points to the one that took over its children.
TreeData *RootOf(const TreeData *node) {
    TreeData *root = node->jump;
    while (root->jump != root) {
        root->jump = root->jump->jump;
        root = root->jump;
    }
    return root;
}

void EnterRoots(const Globals *G) {
    for (TreeData *root : Records<TreeData>(G->tree_list)) {
        TreeData *node = root;
        do {
            node->jump = root;
            node = NextNode(node, root);
        } while (node);
    }
}

bool IsAhead(const TreeData *a, const TreeData *b, Globals *G) {
    const TreeData *root = RootOf(a), *other = RootOf(b);
    if (root != other) {
        return FirstByClimbing(root, other, G);
    }
    return G->tree_effort < kMaxClimb ? FirstByClimbing(a, b, G) : a->order < b->order;
}

// The first node of the root's name that doesn't hang below the root itself, or null.
TreeData *NamesakeOf(const TreeData *root, Globals *G) {
    TreeData *first = nullptr;
    for (TreeData *node = NodeOfName(&G->tree_names, root->name); node; node = node->same[1]) {
        if (RootOf(node) != root && (!first || IsAhead(node, first, G))) {
            first = node;
        }
    }
    return first;
}

TreeData *ChildOfName(const TreeData *parent, const char *name, const Globals *G) {
    TreeData *node = NodeOfName(&G->tree_names, name);
    while (node && node->above != parent) {
        node = node->same[1];
    }
    return node;
}

struct Merge {
    TreeData *from, *to;
};

// What the other node lacks moves to it, whole; what it has is merged in the same way.
void MergeChildren(const Merge &merge, std::vector<Merge> &open, Globals *G) {
    if (!merge.to->children.head) {
        HandOverChildren(merge.from, merge.to);
        return;
    }
    while (merge.from->children.head) {
        TreeData *child = Record<TreeData>(merge.from->children.head);
        UnhangNode(child, nullptr);
        TreeData *known = ChildOfName(merge.to, child->name, G);
        if (known) {
            open.push_back({child, known});
        } else {
            HangNode(child, merge.to, nullptr, G);
        }
    }
}

void MergeInto(TreeData *root, TreeData *namesake, Globals *G) {
    std::vector<Merge> open{{root, namesake}};
    while (!open.empty()) {
        const Merge merge = open.back();
        open.pop_back();
        MergeChildren(merge, open, G);
        if (merge.from != root) {
            DropNode(&G->tree_names, merge.from);
        }
    }
}

void SortAndMeasure(Globals *G) {
    TreeData *node = G->tree_list.head ? Record<TreeData>(G->tree_list.head) : nullptr;
    for (; node; node = NextNode(node, nullptr)) {
        node->depth = node->above ? node->above->depth + 1 : 0;
        LlistSort(&node->children, TreeCompNameParent, 0);
    }
}

} // namespace

void ReAlignBaseClasses(Globals *G) {
    std::vector<TreeData *> removed; // freed behind the walk: nodes know their root by them
    LlistSort(&G->tree_list, TreeCompNameParent, 0);
    EnterRoots(G);
    G->tree_effort = 0;
    for (LlistNode *place = G->tree_list.head; place;) {
        TreeData *root = Record<TreeData>(place);
        place = place->next;
        if (TreeData *namesake = NamesakeOf(root, G)) {
            RemoveName(&G->tree_names, root);
            UnhangNode(root, &G->tree_list);
            MergeInto(root, namesake, G);
            root->jump = RootOf(namesake);
            removed.push_back(root);
        }
    }
    for (TreeData *root : removed) {
        FreeTreeNode(root);
    }
    SortAndMeasure(G);
}
