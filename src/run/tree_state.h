// The class tree of the project: its nodes, the classes that found no place, and what the report counts.
#pragma once

#include "run/llist.h"
#include "run/name_index.h"
#include "run/records.h"

// One class under one of its parents. A class with two parents has two nodes; a node is known by its name and its parent's.
struct TreeData : Named {
    char *parent;     // the name it hangs under; null for a root
    const char *file; // of the class, or of the first child of a class that no file holds; shared with FileData
    int depth;        // 0 for a root; set once the tree is complete
    int line;         // of the class; 0 for a class that no file holds
    int parents;      // direct parents that the class declares
    Llist children;   // TreeData, owned; sorted once the tree is complete

    TreeData *above;   // the node it hangs under, null at the top
    TreeData *same[2]; // nodes of the same name, ahead and behind
    TreeData *jump;    // while the tree grows: a node far above; while roots are removed: the root
    int level;         // while the tree grows: nodes above
    int order;         // of creation: the later one of two siblings of one name stands first
};

struct TreeState {
    Llist tree_list;       // TreeData: the roots
    Llist lost_child_list; // TreeData: classes whose parent isn't in the tree
    NameIndex tree_names;  // for a name its first node of the tree in report order, the others behind it
    NameIndex lost_names;  // for a name a node among the lost ones or below them, the others behind it
    int tree_order;        // nodes created so far
    int tree_effort;       // what copies of lost classes have cost so far
    int tree_classes, tree_base_classes, tree_derived_classes; // distinct names; nodes while the report walks
    int tree_max_depth, tree_depth_sum, tree_max_children, tree_children_sum;
};
