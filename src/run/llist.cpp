// The list. Link and Unlink are the only two places that change the chain; everything else is built on them.
#include "run/llist.h"

#include <algorithm>

#include "run/globals.h"

namespace {

// Puts node in front of successor; a null successor puts it behind the tail.
void Link(Llist *list, LlistNode *node, LlistNode *successor) {
    node->next = successor;
    node->prev = successor ? successor->prev : list->tail;
    (node->prev ? node->prev->next : list->head) = node;
    (successor ? successor->prev : list->tail) = node;
    ++list->count;
}

void Unlink(Llist *list, LlistNode *node) {
    (node->prev ? node->prev->next : list->head) = node->next;
    (node->next ? node->next->prev : list->tail) = node->prev;
    node->prev = node->next = nullptr;
    --list->count;
}

void FreeNode(LlistNode *node, LlistFree free_owned) {
    if (free_owned) {
        free_owned(Record<void>(node));
    }
    free(node);
}

// The first node that record may not stand behind: sorted insertion goes in front of it. Null for the end of the list.
LlistNode *FirstNotAhead(const Llist *list, const void *record, LlistCompare compare, int descending) {
    LlistNode *node = list->head;
    while (node && compare(record, node, descending) >= 1) {
        node = node->next;
    }
    return node;
}

} // namespace

void *AllocateRecord(size_t bytes) {
    LlistNode *node = static_cast<LlistNode *>(malloc(sizeof *node + bytes)); // unfilled: a good deal quicker than calloc
    return node ? node + 1 : nullptr;
}

void FreeRecord(void *record) {
    if (record) {
        free(NodeOf(record));
    }
}

LlistNode *LlistAdd(Llist *list, void *record, LlistCompare compare, const Globals *G) {
    if (!list || !record) {
        return nullptr;
    }
    LlistNode *node = NodeOf(record);
    Link(list, node, compare ? FirstNotAhead(list, record, compare, G->sort_descending) : nullptr);
    return node;
}

void LlistReplace(Llist *list, void *record, void *by) {
    LlistNode *node = NodeOf(record);
    LlistNode *successor = node->next;
    Unlink(list, node);
    Link(list, NodeOf(by), successor);
}

void LlistConcatenate(Llist *a, Llist *b) {
    if (!b->head) {
        return;
    }
    (a->tail ? a->tail->next : a->head) = b->head;
    b->head->prev = a->tail;
    a->tail = b->tail;
    a->count += b->count;
    *b = Llist{};
}

LlistNode *LlistSearch(const Llist *list, const void *key, LlistCompare compare) {
    LlistNode *node = list->head;
    while (node && compare(key, node, 0) != 0) {
        node = node->next;
    }
    return node;
}

void LlistShow(const Llist *list, void (*show)(void *record, Globals *G), Globals *G) {
    for (LlistNode *node = list->head; node; node = node->next) {
        show(Record<void>(node), G);
    }
}

void LlistDetachNode(Llist *list, LlistNode *node) {
    Unlink(list, node);
}

void LlistRemoveNodeInList(Llist *list, LlistNode *node, LlistFree free_owned) {
    Unlink(list, node);
    FreeNode(node, free_owned);
}

void LlistDestroy(Llist *list, LlistFree free_owned) {
    LlistNode *node = list->tail;
    *list = Llist{};
    while (node) {
        LlistNode *const ahead = node->prev;
        FreeNode(node, free_owned);
        node = ahead;
    }
}

// Sorted insertion puts a record in front of its equals, so that equals end up in reversed order: a stable sort of the list taken
// backwards gives the same.
int LlistSort(Llist *list, LlistCompare compare, int descending) {
    if (list->count < 2) {
        return 1;
    }
    LlistNode **nodes = static_cast<LlistNode **>(malloc(static_cast<size_t>(list->count) * sizeof *nodes));
    if (!nodes) {
        return 0;
    }
    LlistNode **end = nodes;
    for (LlistNode *node = list->tail; node; node = node->prev) {
        *end++ = node;
    }
    std::stable_sort(nodes, end, [compare, descending](const LlistNode *a, const LlistNode *b) {
        return compare(Record<void>(b), a, descending) >= 1;
    });
    *list = Llist{};
    for (LlistNode **next = nodes; next != end; ++next) {
        Link(list, *next, nullptr);
    }
    free(nodes);
    return 1;
}
