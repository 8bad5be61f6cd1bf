// The list: a doubly linked list of untyped records with an optional sorted insertion, the only container of records.
//
// A list owns its nodes and the records in them; a record's own texts are released by a free function that the caller passes in,
// after which the list frees the record itself. Only llist.cpp touches prev and next; a report walks a list with Records<T>().
#pragma once

#include <cstdlib>

struct Globals;

struct LlistNode {
    LlistNode *prev; // toward the head; null at the head
    void *data;      // the record, never null
    LlistNode *next; // toward the tail; null at the tail
};

struct Llist {
    LlistNode *head; // null when empty
    LlistNode *tail; // null when empty
    int count;       // nodes; 0 exactly when head and tail are null
};

// compare(record or key, node, descending): below 1 puts the record in front of the node, 0 is a match for searches.
using LlistCompare = int (*)(const void *record, const LlistNode *node, int descending);
// Releases a record's own texts, not the record.
using LlistFree = void (*)(void *record);

// Adds record behind the tail, or, with a comparator, in front of the first node for which the comparator is below 1: among equals
// the record added last stands first. The direction is G's sort_descending. Returns the new node; null, with a message where memory
// is out, when the record is null or couldn't be added: the caller then still owns the record.
LlistNode *LlistAdd(Llist *list, void *record, LlistCompare compare, Globals *G);
// Moves all nodes of b behind a; b ends up empty.
void LlistConcatenate(Llist *a, Llist *b);
// The first node for which compare(key, node, 0) is 0, else null.
LlistNode *LlistSearch(const Llist *list, const void *key, LlistCompare compare);
// Calls show(record, G) for every record from the head.
void LlistShow(const Llist *list, void (*show)(void *record, Globals *G), Globals *G);
// Unlinks and frees the node; the record stays alive and is the caller's.
void LlistDetachNode(Llist *list, LlistNode *node);
// Unlinks and frees a node of the list; its record is freed only when a free function is given.
void LlistRemoveNodeInList(Llist *list, LlistNode *node, LlistFree free_record);
// Frees an unlinked node; its record is freed only when a free function is given.
void LlistFreeNode(LlistNode *node, LlistFree free_record);
// Empties the list from tail to head; records are freed only when a free function is given.
void LlistDestroy(Llist *list, LlistFree free_record);
// Puts the list into the order that sorted insertion of its records, one after the other from the head, would give, in n log n.
// Nodes and records stay alive and keep their addresses. Returns 0, with the list as it was, when memory is out.
int LlistSort(Llist *list, LlistCompare compare, int descending);

template <class T> T *Record(const LlistNode *node) {
    return static_cast<T *>(node->data);
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
