// The list: a doubly linked list of untyped records with an optional sorted insertion, the only container of records.
//
// A record and its links are one piece of memory, the links ahead: NewRecord makes both, FreeRecord frees both. A list owns the
// records in it; what a record owns beside itself is released by a free function that the caller passes in, null for records that
// own nothing. Only llist.cpp touches prev and next; a report walks a list with Records<T>().
#pragma once

#include <cstddef>
#include <new>

struct Globals;

struct alignas(std::max_align_t) LlistNode {
    LlistNode *prev; // toward the head; null at the head
    LlistNode *next; // toward the tail; null at the tail
};

struct Llist {
    LlistNode *head; // null when empty
    LlistNode *tail; // null when empty
    int count;       // nodes; 0 exactly when head and tail are null
};

// compare(record or key, node, descending): below 1 puts the record in front of the node, 0 is a match for searches.
using LlistCompare = int (*)(const void *record, const LlistNode *node, int descending);
// Releases what a record owns, not the record.
using LlistFree = void (*)(void *record);

// Memory for a record that is in no list yet, not filled; null when memory is out.
void *AllocateRecord(size_t bytes);
// A record of zeros that is in no list yet; null when memory is out.
template <class T> T *NewRecord() {
    void *const record = AllocateRecord(sizeof(T));
    return record ? new (record) T{} : nullptr;
}
// Frees a record that is in no list; null is none.
void FreeRecord(void *record);
// The links of a record.
inline LlistNode *NodeOf(void *record) {
    return static_cast<LlistNode *>(record) - 1;
}

// Adds record behind the tail, or, with a comparator, in front of the first node for which the comparator is below 1: among equals
// the record added last stands first. The direction is G's sort_descending. Returns its node; null when there is no record or list.
LlistNode *LlistAdd(Llist *list, void *record, LlistCompare compare, const Globals *G);
// Puts a record of no list into the place of another, which then is in no list.
void LlistReplace(Llist *list, void *record, void *by);
// Moves all nodes of b behind a; b ends up empty.
void LlistConcatenate(Llist *a, Llist *b);
// The first node for which compare(key, node, 0) is 0, else null.
LlistNode *LlistSearch(const Llist *list, const void *key, LlistCompare compare);
// Calls show(record, G) for every record from the head.
void LlistShow(const Llist *list, void (*show)(void *record, Globals *G), Globals *G);
// Unlinks a node; the record stays alive and is the caller's.
void LlistDetachNode(Llist *list, LlistNode *node);
// Unlinks a node of the list and frees its record.
void LlistRemoveNodeInList(Llist *list, LlistNode *node, LlistFree free_owned);
// Empties the list from tail to head and frees its records.
void LlistDestroy(Llist *list, LlistFree free_owned);
// Puts the list into the order that sorted insertion of its records, one after the other from the head, would give, in n log n.
// Records keep their addresses. Returns 0, with the list as it was, when memory is out.
int LlistSort(Llist *list, LlistCompare compare, int descending);

template <class T> T *Record(const LlistNode *node) {
    return static_cast<T *>(static_cast<void *>(const_cast<LlistNode *>(node) + 1));
}

// for (FileData *file : Records<FileData>(G->file_list)): the records from head to tail. The body must not add or remove.
template <class T> struct Records {
    struct Iterator {
        const LlistNode *node;
        T *operator*() const { return Record<T>(node); }
        void operator++() { node = node->next; }
        bool operator!=(const Iterator &other) const { return node != other.node; }
    };
    const Llist &list;
    explicit Records(const Llist &l)
        : list(l) {}
    Iterator begin() const { return {list.head}; }
    Iterator end() const { return {nullptr}; }
};
