// Comparators, the tables from a sort key to its comparator, and re-sorting.
//
// A comparator takes a record, a list node and the direction. The numeric ones answer -1 for equal values in either direction, so
// that among equals the record added last stands first; they answer -1 on a null record or node too.
#pragma once

#include "run/llist.h"
#include "run/records.h"

int CompLoc_NodeData(const void *record, const LlistNode *node, int descending);
int CompEloc_NodeData(const void *record, const LlistNode *node, int descending);
int CompLloc_NodeData(const void *record, const LlistNode *node, int descending);
int CompCyclo_NodeData(const void *record, const LlistNode *node, int descending);
int CompState_NodeData(const void *record, const LlistNode *node, int descending);
int CompLoc_FileData(const void *record, const LlistNode *node, int descending);
int CompEloc_FileData(const void *record, const LlistNode *node, int descending);
int CompLloc_FileData(const void *record, const LlistNode *node, int descending);
int CompCyclo_FileData(const void *record, const LlistNode *node, int descending);
int CompFunc_FileData(const void *record, const LlistNode *node, int descending);
int CompNotice_FileData(const void *record, const LlistNode *node, int descending);
int CompDate_FileData(const void *record, const LlistNode *node, int descending);
int CompSize_FileData(const void *record, const LlistNode *node, int descending);

// Names in the locale's collating order. Only the file name honours descending: entity names always sort upward.
int CompName_FileData(const void *record, const LlistNode *node, int descending);
int CompName_NodeData(const void *record, const LlistNode *node, int descending);
int CompName_NameData(const void *record, const LlistNode *node, int descending);

// A search; the key is a text, 0 is a match: the entry is the key or a directory above it.
int IsInName_NodeType(const void *key, const LlistNode *node, int descending);

// The comparator of a sort key (-k); null for a key that keeps the order of arrival.
LlistCompare NodeDataComparator(int sort_key);
LlistCompare FileDataComparator(int sort_key);

// Rebuild a list in the order of a key, as if every record were inserted anew from the head: equal records come out in reversed
// relative order. A key without a comparator keeps the order. When memory is out: a message, and the list stays as it was.
void LlistResort_NodeData(Llist *list, int sort_key, Globals *G);
void LlistResort_FileData(Llist *list, int sort_key, Globals *G);
void LlistResort_NameData(Llist *list, int sort_key, Globals *G);
