// An index beside a list: the first record of a name without a walk.
//
// It takes records whose first field is their name (NodeData, NameData). The list owns the records; the index only points at them.
// A record whose name changes is taken out under the old name and put in under the new one.
#pragma once

#include <cstddef>
#include <cstdint>

struct NameIndex {
    void **slots;     // open addressing
    uint32_t *hashes; // of the slots' names; 0 is free
    size_t capacity;
    size_t count;
};

// Enters a record unless its name is there already: the first one stays the answer. Returns 0 when memory is out: look-ups of this
// name then fail as if it weren't in the list.
int IndexName(NameIndex *index, void *record);
// The record of a name, or null. A null name is in no index.
void *FindIndexed(const NameIndex *index, const char *name);
// Takes the record out, if it is the one that answers for its present name.
void UnindexName(NameIndex *index, const void *record);
// Frees the index; the records stay.
void FreeIndex(NameIndex *index);
