// Comparators, key tables and re-sorting. A numeric comparator is one template over the field it reads.
#include "run/compare.h"

#include <span>

#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"

namespace {

template <class T> const T *DataOf(const LlistNode *node) {
    return node ? Record<const T>(node) : nullptr;
}

// -1 for equal values in either direction: the record added last stands first among its equals.
template <class T, auto kField> int CompareField(const void *record, const LlistNode *node, int descending) {
    const T *a = static_cast<const T *>(record);
    const T *b = DataOf<T>(node);
    if (!a || !b) {
        return -1;
    }
    const bool in_front = descending ? a->*kField >= b->*kField : a->*kField <= b->*kField;
    return in_front ? -1 : 1;
}

template <class T> int CompareName(const void *record, const LlistNode *node, int descending) {
    const T *a = static_cast<const T *>(record);
    const T *b = DataOf<T>(node);
    if (!a || !b || !a->name || !b->name) {
        return -1;
    }
    return descending ? strcoll(b->name, a->name) : strcoll(a->name, b->name);
}

const char *EntityName(const LlistNode *node) {
    const NodeData *entity = DataOf<NodeData>(node);
    return entity ? entity->name : nullptr;
}

LlistCompare At(std::span<const LlistCompare> table, int sort_key) {
    return sort_key >= 0 && static_cast<size_t>(sort_key) < table.size() ? table[sort_key] : nullptr;
}

void Resort(Llist *list, LlistCompare compare, Globals *G) {
    if (compare && !LlistSort(list, compare, G->sort_descending)) {
        MemoryError(G);
    }
}

} // namespace

int CompLoc_NodeData(const void *record, const LlistNode *node, int descending) {
    return CompareField<NodeData, &NodeData::loc>(record, node, descending);
}
int CompEloc_NodeData(const void *record, const LlistNode *node, int descending) {
    return CompareField<NodeData, &NodeData::eloc>(record, node, descending);
}
int CompLloc_NodeData(const void *record, const LlistNode *node, int descending) {
    return CompareField<NodeData, &NodeData::lloc>(record, node, descending);
}
int CompCyclo_NodeData(const void *record, const LlistNode *node, int descending) {
    return CompareField<NodeData, &NodeData::cyclo>(record, node, descending);
}
int CompState_NodeData(const void *record, const LlistNode *node, int descending) {
    return CompareField<NodeData, &NodeData::returns>(record, node, descending);
}
int CompLoc_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::loc>(record, node, descending);
}
int CompEloc_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::eloc>(record, node, descending);
}
int CompLloc_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::lloc>(record, node, descending);
}
int CompCyclo_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::cyclo>(record, node, descending);
}
int CompFunc_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::functions>(record, node, descending);
}
int CompNotice_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::notices>(record, node, descending);
}
int CompDate_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::date>(record, node, descending);
}
int CompSize_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareField<FileData, &FileData::size>(record, node, descending);
}

int CompName_FileData(const void *record, const LlistNode *node, int descending) {
    return CompareName<FileData>(record, node, descending);
}
int CompName_NodeData(const void *record, const LlistNode *node, int) {
    return CompareName<NodeData>(record, node, 0);
}
int CompName_NameData(const void *record, const LlistNode *node, int) {
    return CompareName<NameData>(record, node, 0);
}

int IsInName_NodeType(const void *key, const LlistNode *node, int) {
    const char *text = static_cast<const char *>(key);
    const char *name = EntityName(node);
    if (!text || !name) {
        return -1;
    }
    const size_t length = strlen(name);
    const int order = strncmp(text, name, length);
    return order || text[length] == '\0' || text[length] == '/' ? order : 1;
}

LlistCompare NodeDataComparator(int sort_key) {
    static constexpr LlistCompare kTable[] = {
        nullptr,            // 0
        CompName_NodeData,  // 1
        CompLoc_NodeData,   // 2
        CompEloc_NodeData,  // 3
        CompLloc_NodeData,  // 4
        CompCyclo_NodeData, // 5
        CompState_NodeData, // 6
    };
    return At(kTable, sort_key);
}

LlistCompare FileDataComparator(int sort_key) {
    static constexpr LlistCompare kTable[] = {
        nullptr,             // 0
        CompName_FileData,   // 1
        CompLoc_FileData,    // 2
        CompEloc_FileData,   // 3
        CompLloc_FileData,   // 4
        CompCyclo_FileData,  // 5
        nullptr,             // 6
        CompFunc_FileData,   // 7
        CompNotice_FileData, // 8
        CompDate_FileData,   // 9
        CompSize_FileData,   // 10
    };
    return At(kTable, sort_key);
}

void LlistResort_NodeData(Llist *list, int sort_key, Globals *G) {
    Resort(list, NodeDataComparator(sort_key), G);
}

void LlistResort_FileData(Llist *list, int sort_key, Globals *G) {
    Resort(list, FileDataComparator(sort_key), G);
}

void LlistResort_NameData(Llist *list, int sort_key, Globals *G) {
    Resort(list, sort_key == 1 ? CompName_NameData : nullptr, G);
}
