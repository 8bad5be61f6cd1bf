// The second stage of the tree: lost classes find their parents.
//
// They are taken in passes over the sorted list: who finds its parent leaves. A pass that walks all of them for one level of a long
// chain would never end, so everyone waits under the parent's name instead, and is called when such a node comes in: in this pass
// if the list holds it further on, else in the next.
#include "tree/lost_children.h"

#include <algorithm>
#include <cstring>
#include <queue>
#include <vector>

#include "run/globals.h"
#include "tree/class_tree.h"
#include "tree/tree_nodes.h"

namespace {

// A diamond of lost classes over a diamond doubles the copies level by level. They show nothing new: beyond this no more are made.
constexpr int kCopyEffort = 250;
constexpr int kMaxEffort = 50'000'000;

struct Waiting {
    char *parent; // the first field, for NameIndex
    TreeData *node;
    int next; // waits for the same parent; -1 for none
};

// Below its own name a parent is passed over, and so are the new node's own children, which still count as lost.
bool IsPassedOver(const TreeData *parent, const TreeData *node, Globals *G) {
    for (const TreeData *above = parent->above; above; above = above->above) {
        ++G->tree_effort;
        if (above == node || strcmp(above->name, parent->name) == 0) {
            return true;
        }
    }
    return false;
}

bool HasBelow(const TreeData *top, const char *name, Globals *G) {
    if (!top->children.head) {
        return false;
    }
    for (const TreeData *node = NodeOfName(&G->lost_names, name); node; node = node->same[1]) {
        for (const TreeData *above = node->above; above; above = above->above) {
            if (above == top || ++G->tree_effort >= kMaxEffort) {
                return true;
            }
        }
    }
    return false;
}

void CopyBelow(TreeData *parent, TreeData *node, Globals *G) {
    G->tree_effort += kCopyEffort;
    TreeData *copy = NewTreeNode(node->name, node->parent, node->file, node->line, node->parents, G);
    if (!copy) {
        return;
    }
    HangNode(copy, parent, nullptr, G);
    HandOverChildren(node, copy);
    EnterName(&G->lost_names, copy, 0);
}

void EnterChildren(TreeData *node, Globals *G) {
    for (TreeData *below = NextNode(node, node); below; below = NextNode(below, node)) {
        RemoveName(&G->lost_names, below);
        EnterTree(below, G);
    }
}

// A lost class goes below its parent, which is in the tree by now. Only where the parent was made for it do copies go to others.
int AddLostChildToTree(TreeData *node, int copies, Globals *G) {
    TreeData *above = NodeOfName(&G->tree_names, node->parent);
    if (!above) {
        return 0;
    }
    UnhangNode(node, &G->lost_child_list);
    HangNode(node, above, nullptr, G);
    RemoveName(&G->lost_names, node);
    EnterTree(node, G);
    if (copies) {
        AddNodeToAllParents(node, G);
    }
    EnterChildren(node, G);
    return 1;
}

using Positions = std::priority_queue<int, std::vector<int>, std::greater<int>>;

void CallWaiting(const char *name, std::vector<Waiting> &all, NameIndex *names, int position, Positions &pass, Positions &next) {
    Waiting *first = static_cast<Waiting *>(FindIndexed(names, name));
    if (!first) {
        return;
    }
    UnindexName(names, first);
    for (int i = static_cast<int>(first - all.data()); i >= 0; i = all[static_cast<size_t>(i)].next) {
        (i > position ? pass : next).push(i);
    }
}

// All passes until one finds nothing.
void PlaceLost(Globals *G) {
    std::vector<Waiting> all;
    for (TreeData *node : Records<TreeData>(G->lost_child_list)) {
        all.push_back({node->parent, node, -1});
    }
    NameIndex names{};
    Positions pass, next;
    for (size_t i = 0; i < all.size(); ++i) {
        Waiting *first = static_cast<Waiting *>(FindIndexed(&names, all[i].parent));
        if (NodeOfName(&G->tree_names, all[i].parent)) {
            pass.push(static_cast<int>(i));
        } else if (first) {
            all[i].next = first->next;
            first->next = static_cast<int>(i);
        } else {
            IndexName(&names, &all[i]);
        }
    }
    while (!pass.empty() || !next.empty()) {
        if (pass.empty()) {
            std::swap(pass, next);
        }
        const int position = pass.top();
        pass.pop();
        TreeData *node = all[static_cast<size_t>(position)].node;
        if (!AddLostChildToTree(node, 0, G)) {
            continue;
        }
        for (TreeData *come = node; come; come = NextNode(come, node)) {
            CallWaiting(come->name, all, &names, position, pass, next);
        }
    }
    FreeIndex(&names);
}

// A parent that no file holds, a class of a library perhaps, becomes a base class. Returns how many classes found their place.
int LoadLostChildParents(Globals *G) {
    int placed = 0;
    for (LlistNode *place = G->lost_child_list.head; place;) {
        TreeData *node = Record<TreeData>(place);
        place = place->next;
        AddTreeNodeByName(node->parent, nullptr, node->file, 0, 0, G);
        placed += AddLostChildToTree(node, 1, G);
    }
    return placed;
}

} // namespace

bool IsLost(const char *name, const char *parent, const Globals *G) {
    const TreeData *node = NodeOfName(&G->lost_names, name);
    while (node && (node->above || strcmp(node->parent, parent) != 0)) {
        node = node->same[1];
    }
    return node != nullptr;
}

void AddNodeToAllParents(TreeData *node, Globals *G) {
    std::vector<TreeData *> parents;
    for (TreeData *parent = NodeOfName(&G->lost_names, node->parent); parent; parent = parent->same[1]) {
        if (G->tree_effort < kMaxEffort && !IsPassedOver(parent, node, G) && !HasBelow(parent, node->name, G)) {
            parents.push_back(parent);
        }
    }
    if (node->children.head && parents.size() > 1) {
        std::iter_swap(parents.begin(), std::min_element(parents.begin(), parents.end(), [G](const TreeData *a, const TreeData *b) {
                           return G->tree_effort < kMaxEffort && FirstByClimbing(a, b, G) != 0;
                       }));
    }
    for (TreeData *parent : parents) {
        if (G->tree_effort < kMaxEffort) {
            CopyBelow(parent, node, G);
        }
    }
}

int LoadTree(Globals *G) {
    LlistSort(&G->lost_child_list, TreeCompNameParent, 0);
    while (G->lost_child_list.head) {
        PlaceLost(G);
        if (!LoadLostChildParents(G)) {
            break;
        }
    }
    return G->lost_child_list.count;
}
