// The inheritance tree over all classes of the project, built once, when the last file is done.
//
// Files come in any order, so it takes three stages: all classes once, then those whose parent wasn't there yet, then the removal
// of base classes that turned out to be derived. Then lists are sorted and depths are set.
#pragma once

struct Globals;
struct TreeData;

// The whole tree out of class_list.
void BuildClassTree(Globals *G);

// The stages. AddClasses2Tree: every class of class_list under each of its parents, or among the lost ones.
void AddClasses2Tree(Globals *G);
// The lost classes find their parents, which may have been lost themselves; a parent that no file holds becomes a root. Returns the
// number of nodes that stay lost.
int LoadTree(Globals *G);
// Roots that are somebody's children as well leave their children to that node.
void ReAlignBaseClasses(Globals *G);

// Adds one node to the tree, or to the lost ones if its parent isn't there. An empty or null parent makes a root. Returns 0 when
// there is such a root or lost node already, or the name of a root ends in its scope ("ns::").
int AddTreeNodeByName(const char *name, const char *parent, const char *file, int line, int parents, Globals *G);
// Distinct names: below the roots, of both, and the difference.
void UniqueClassesInTree(int *base, int *derived, int *total, const Globals *G);
// Frees a node's texts and everything below it, not the node.
void TreeDataFree(void *node);
// The tree, the sums, the lost classes. Raises notices 40 and 41; with totals_quality_profile nothing else. Nothing without
// classes.
void ReportInheritanceTree(Globals *G);
// Only the notices and the sums of the report.
void RaiseTreeNotices(Globals *G);
