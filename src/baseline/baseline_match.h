// Which file of a newer baseline is the one that an older baseline knew.
#pragma once

struct Globals;
struct Llist;
struct WorkData;

// Matches WorkData of two lists by name: first all that bear exactly one name, any number of older files the same newer one; then,
// unless names are case sensitive, each older file that is left with the first newer one that is left and differs in case alone.
// newer_of takes the match of each older file, by its place in the list, null for a removed one; matched newer files are marked as
// processed. Returns 0 when memory is out.
int MatchFiles(const Llist &older, const Llist &newer, WorkData **newer_of, const Globals *G);
