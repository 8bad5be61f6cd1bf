// Nodes of the tree. A class chain may be as long as the project has classes: nothing here recurses.
#include "tree/tree_nodes.h"

#include <cstring>

#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "tree/class_tree.h"

TreeData *NewTreeNode(const char *name, const char *parent, const char *file, int line, int parents, Globals *G) {
    TreeData like{};
    like.name = const_cast<char *>(name); // texts are copied
    like.parent = parent && *parent ? const_cast<char *>(parent) : nullptr;
    like.file = file;
    like.line = line;
    like.parents = parents;
    like.order = ++G->tree_order;
    static constexpr char *TreeData::*kTexts[] = {&TreeData::name, &TreeData::parent};
    TreeData *node = CopyRecord(like, kTexts);
    if (!node) {
        MemoryError(G);
    }
    return node;
}

void TreeDataFree(void *record) {
    Llist pending{};
    LlistConcatenate(&pending, &static_cast<TreeData *>(record)->children);
    while (pending.head) {
        LlistConcatenate(&pending, &Record<TreeData>(pending.head)->children);
        LlistRemoveNodeInList(&pending, pending.head, nullptr);
    }
}

void FreeTreeNode(TreeData *node) {
    TreeDataFree(node);
    FreeRecord(node);
}

void HangNode(TreeData *node, TreeData *above, Llist *top, const Globals *G) {
    node->above = above;
    LlistAdd(above ? &above->children : top, node, nullptr, G);
}

void UnhangNode(TreeData *node, Llist *top) {
    LlistDetachNode(node->above ? &node->above->children : top, NodeOf(node));
    node->above = nullptr;
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
        if (const LlistNode *next = NodeOf(node)->next) {
            return Record<TreeData>(next);
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
