// Nodes of the tree. A class chain may be as long as the project has classes: nothing here recurses.
#include "tree/tree_nodes.h"

#include <cstring>

#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/text.h"
#include "tree/class_tree.h"

TreeData *NewTreeNode(const char *name, const char *parent, const char *file, int line, int parents, Globals *G) {
    TreeData *node = static_cast<TreeData *>(calloc(1, sizeof(TreeData)));
    if (node) {
        const bool has_parent = parent && *parent;
        node->name = CopyOnHeap(name);
        node->parent = has_parent ? CopyOnHeap(parent) : nullptr;
        node->file = file;
        node->line = line;
        node->parents = parents;
        node->order = ++G->tree_order;
        if (node->name && (node->parent || !has_parent)) {
            return node;
        }
        FreeTreeNode(node);
    }
    MemoryError(G);
    return nullptr;
}

static void FreeTexts(TreeData *node) {
    free(node->name);
    free(node->parent);
    node->name = node->parent = nullptr;
}

void TreeDataFree(void *record) {
    TreeData *node = static_cast<TreeData *>(record);
    Llist pending{};
    LlistConcatenate(&pending, &node->children);
    while (pending.head) {
        TreeData *child = Record<TreeData>(pending.head);
        LlistConcatenate(&pending, &child->children);
        LlistDetachNode(&pending, pending.head);
        FreeTexts(child);
        free(child);
    }
    FreeTexts(node);
}

void FreeTreeNode(TreeData *node) {
    if (node) {
        TreeDataFree(node);
        free(node);
    }
}

int HangNode(TreeData *node, TreeData *above, Llist *top, Globals *G) {
    node->above = above;
    node->link = LlistAdd(above ? &above->children : top, node, nullptr, G);
    return node->link != nullptr;
}

void UnhangNode(TreeData *node, Llist *top) {
    LlistDetachNode(node->above ? &node->above->children : top, node->link);
    node->above = nullptr;
    node->link = nullptr;
}

void HandOverChildren(TreeData *from, TreeData *to) {
    LlistConcatenate(&to->children, &from->children);
    for (TreeData *child : Records<TreeData>(to->children)) {
        child->above = to;
    }
}

TreeData *NodeOfName(const NameIndex *names, const char *name) {
    return static_cast<TreeData *>(FindIndexed(names, name));
}

void EnterName(NameIndex *names, TreeData *node, int as_first) {
    TreeData *first = NodeOfName(names, node->name);
    TreeData *ahead = as_first ? nullptr : first;
    TreeData *behind = as_first || !first ? first : first->same[1];
    node->same[0] = ahead;
    node->same[1] = behind;
    if (behind) {
        behind->same[0] = node;
    }
    if (ahead) {
        ahead->same[1] = node;
        return;
    }
    if (behind) {
        UnindexName(names, behind);
    }
    IndexName(names, node);
}

void RemoveName(NameIndex *names, TreeData *node) {
    TreeData *ahead = node->same[0], *behind = node->same[1];
    if (behind) {
        behind->same[0] = ahead;
    }
    if (ahead) {
        ahead->same[1] = behind;
    } else {
        UnindexName(names, node);
        if (behind) {
            IndexName(names, behind);
        }
    }
    node->same[0] = node->same[1] = nullptr;
}

void DropNode(NameIndex *names, TreeData *node) {
    for (TreeData *below = node; below; below = NextNode(below, node)) {
        RemoveName(names, below);
    }
    FreeTreeNode(node);
}

// A node jumps as far as its parent's jump does twice, or to its parent: any ancestor is then a few jumps away.
void EnterTree(TreeData *node, Globals *G) {
    TreeData *above = node->above;
    if (!above) {
        node->level = 0;
        node->jump = node;
    } else {
        TreeData *far = above->jump;
        node->level = above->level + 1;
        node->jump = above->level - far->level == far->level - far->jump->level ? far->jump : above;
    }
    const TreeData *first = NodeOfName(&G->tree_names, node->name);
    EnterName(&G->tree_names, node, !first || FirstInReport(node, first));
}

TreeData *NextNode(TreeData *node, const TreeData *top) {
    return node->children.head ? Record<TreeData>(node->children.head) : NextBeside(node, top);
}

TreeData *NextBeside(TreeData *node, const TreeData *top) {
    for (; node && node != top; node = node->above) {
        if (node->link->next) {
            return Record<TreeData>(node->link->next);
        }
    }
    return nullptr;
}

static int CompareNames(const TreeData *a, const TreeData *b) {
    const int names = strcoll(a->name, b->name);
    return names == 0 && a->parent && b->parent ? strcoll(a->parent, b->parent) : names;
}

static int SiblingFirst(const TreeData *a, const TreeData *b) {
    const int names = CompareNames(a, b);
    return names < 0 || (names == 0 && a->order > b->order);
}

int FirstInReport(const TreeData *a, const TreeData *b) {
    const int a_is_higher = a->level <= b->level;
    const TreeData *high = a_is_higher ? a : b;
    const TreeData *low = a_is_higher ? b : a;
    while (low->level > high->level) {
        low = low->jump->level >= high->level ? low->jump : low->above;
    }
    if (low == high) {
        return a_is_higher;
    }
    while (low->above && high->above && low->above != high->above) { // on one level the roots are reached together
        const int far = low->jump != high->jump;
        low = far ? low->jump : low->above;
        high = far ? high->jump : high->above;
    }
    return a_is_higher ? SiblingFirst(high, low) : SiblingFirst(low, high);
}

static int NodesAbove(const TreeData *node, Globals *G) {
    int above = 0;
    while ((node = node->above)) {
        ++above;
    }
    G->tree_effort += above;
    return above;
}

int FirstByClimbing(const TreeData *a, const TreeData *b, Globals *G) {
    int a_level = NodesAbove(a, G), b_level = NodesAbove(b, G);
    const int a_is_higher = a_level <= b_level;
    for (; a_level > b_level; --a_level) {
        a = a->above;
    }
    for (; b_level > a_level; --b_level) {
        b = b->above;
    }
    if (a == b) {
        return a_is_higher;
    }
    while (a->above != b->above) {
        a = a->above;
        b = b->above;
    }
    return SiblingFirst(a, b);
}

int TreeCompNameParent(const void *record, const LlistNode *node, int) {
    return CompareNames(static_cast<const TreeData *>(record), Record<TreeData>(node));
}
