// The list. Link and Unlink are the only two places that change the chain; everything else is built on them.
#include "run/llist.h"

#include <algorithm>

#include "run/globals.h"
#include "run/mode.h"

namespace {

// Null, with a message, when memory is out or there is no record.
LlistNode *NewNode(void *record, Globals *G) {
    if (!record) {
        return nullptr;
    }
    LlistNode *node = static_cast<LlistNode *>(malloc(sizeof *node)); // for lists of notices a good deal quicker than calloc
    if (!node) {
        G->baseline_failed = 1;
        Message(G, "\n  Error: memory allocation failure\n");
        return nullptr;
    }
    *node = {};
    node->data = record;
    return node;
}

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

// The first node that record may not stand behind: sorted insertion goes in front of it. Null for the end of the list.
LlistNode *FirstNotAhead(const Llist *list, const void *record, LlistCompare compare, int descending) {
    LlistNode *node = list->head;
    while (node && compare(record, node, descending) >= 1) {
        node = node->next;
    }
    return node;
}

} // namespace

LlistNode *LlistAdd(Llist *list, void *record, LlistCompare compare, Globals *G) {
    LlistNode *node = list ? NewNode(record, G) : nullptr;
    if (node) {
        Link(list, node, compare ? FirstNotAhead(list, record, compare, G->sort_descending) : nullptr);
    }
    return node;
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
        show(node->data, G);
    }
}

void LlistDetachNode(Llist *list, LlistNode *node) {
    Unlink(list, node);
    free(node);
}

void LlistRemoveNodeInList(Llist *list, LlistNode *node, LlistFree free_record) {
    Unlink(list, node);
    LlistFreeNode(node, free_record);
}

void LlistFreeNode(LlistNode *node, LlistFree free_record) {
    if (free_record) {
        free_record(node->data);
        free(node->data);
    }
    free(node);
}

void LlistDestroy(Llist *list, LlistFree free_record) {
    LlistNode *node = list->tail;
    *list = Llist{};
    while (node) {
        LlistNode *const ahead = node->prev;
        LlistFreeNode(node, free_record);
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
    std::stable_sort(
        nodes, end, [compare, descending](const LlistNode *a, const LlistNode *b) { return compare(b->data, a, descending) >= 1; });
    *list = Llist{};
    for (LlistNode **next = nodes; next != end; ++next) {
        Link(list, *next, nullptr);
    }
    free(nodes);
    return 1;
}
