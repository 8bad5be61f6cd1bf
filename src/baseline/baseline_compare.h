// Every file of two baselines classified as new, removed, equal or changed.
#pragma once

#include "run/llist.h"

struct Globals;

// Compares two work lists, sorted by name, into result (sorted by name) and the totals of G. The inputs change only in the state of
// the newer records that were matched.
void DiffWorkLists(Llist *older, Llist *newer, Llist *result, Globals *G);
