// Classes whose parent isn't in the tree yet.
#pragma once

struct Globals;
struct TreeData;

// Does a lost class wait under this parent already?
bool IsLost(const char *name, const char *parent, const Globals *G);
// A class that has just got its place below one node of its parent gets a copy below each lost node of the parent's name, too; the
// first of these takes over its children.
void AddNodeToAllParents(TreeData *node, Globals *G);
