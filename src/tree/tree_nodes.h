// Nodes of the tree: creation, places, names, order. What a place means is class_tree's.
//
// While the tree grows its lists keep the order of arrival; who stands first is told by FirstInReport, which knows the names. So
// that a node costs no walk, the lists are sorted once, at the end.
#pragma once

struct Globals;
struct LlistNode;
struct NameIndex;
struct TreeData;

// A node without a place; null, after a message, when memory is out. A null or empty parent is none.
TreeData *NewTreeNode(const char *name, const char *parent, const char *file, int line, int parents, Globals *G);
// Frees a node without a place and everything below it.
void FreeTreeNode(TreeData *node);
// Puts a node below another of the same forest, or with a null one into the top list.
void HangNode(TreeData *node, TreeData *above, struct Llist *top, const Globals *G);
// Takes a node out of its list. It keeps its children.
void UnhangNode(TreeData *node, Llist *top);
// All children of one node become those of another, which has none.
void HandOverChildren(TreeData *from, TreeData *to);

// The first node of a name, or null; the others follow over same[1]. Null for no name.
TreeData *NodeOfName(const NameIndex *names, const char *name);
// Enters a node, as the first of its name or behind the first one; takes it out.
void EnterName(NameIndex *names, TreeData *node, int as_first);
void RemoveName(NameIndex *names, TreeData *node);
// Takes a node without a place and all below it out of the names, and frees them.
void DropNode(NameIndex *names, TreeData *node);
// Enters a node of the growing tree: level, jump and name.
void EnterTree(TreeData *node, Globals *G);

// The next node of the report, children before siblings; NextBeside passes over the children. Below top only; null at the end.
TreeData *NextNode(TreeData *node, const TreeData *top);
TreeData *NextBeside(TreeData *node, const TreeData *top);
// Is a printed before b? ByClimbing works while subtrees move, and adds its steps to tree_effort.
int FirstInReport(const TreeData *a, const TreeData *b);
int FirstByClimbing(const TreeData *a, const TreeData *b, Globals *G);
// The order of siblings: names, then parents.
int TreeCompNameParent(const void *record, const LlistNode *node, int descending);
