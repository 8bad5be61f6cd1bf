// The lists of what the source holds, and the macro words, each with its index by name.
//
// Records are only ever appended: a list keeps the order of first appearance, and the index answers what the first match of a walk
// would.
#include "analysis/entities.h"

#include "config/languages.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"

namespace {

// The record in the list's last node enters the index; null, after a message, when the record wasn't added or doesn't fit in.
ClassData *EnterLast(int added, Llist *list, NameIndex *index, Globals *G) {
    if (!added || !IndexName(index, Record<void>(list->tail))) {
        MemoryError(G);
        return nullptr;
    }
    return Record<ClassData>(list->tail);
}

ClassData *AddRecord(const char *name, const char *inherit, const char *template_text, int line, int nesting, int parents,
                     int is_struct, Llist *list, NameIndex *index, Globals *G) {
    ClassData record{};
    record.name = const_cast<char *>(name); // texts are copied
    record.inherit_line = const_cast<char *>(inherit);
    record.template_line = const_cast<char *>(template_text);
    record.file = G->file_name;
    record.line = line;
    record.nesting = nesting;
    record.parents = static_cast<uint16_t>(parents);
    record.is_struct = is_struct != 0;
    record.language = LanguageInHand(G);
    const int added = AddListNode(0, record, list, G);
    return EnterLast(added, list, index, G);
}

} // namespace

ClassData *FindClass(const char *name, const Globals *G) {
    return static_cast<ClassData *>(FindIndexed(&G->class_index_by_name, name));
}

ClassData *FindInterface(const char *name, const Globals *G) {
    return static_cast<ClassData *>(FindIndexed(&G->interface_index_by_name, name));
}

ClassData *FindNamespace(const char *name, const Globals *G) {
    return static_cast<ClassData *>(FindIndexed(&G->namespace_index_by_name, name));
}

ClassData *AddClassRecord(const char *name, const char *inherit, const char *template_text, int line, int nesting, int parents,
                          int is_struct, Globals *G) {
    return AddRecord(name, inherit, template_text, line, nesting, parents, is_struct, &G->class_list, &G->class_index_by_name, G);
}

ClassData *AddInterfaceRecord(const char *name, int line, int nesting, Globals *G) {
    return AddRecord(name, nullptr, nullptr, line, nesting, 0, 0, &G->interface_list, &G->interface_index_by_name, G);
}

ClassData *AddNamespaceRecord(const char *name, int line, Globals *G) {
    return AddRecord(name, nullptr, nullptr, line, 0, 0, 0, &G->namespace_list, &G->namespace_index_by_name, G);
}

ClassData *ReplaceClass(ClassData *record, const ClassData &by, Globals *G) {
    ClassData *copy = CopyClass(by);
    if (!copy) {
        MemoryError(G);
        return nullptr;
    }
    UnindexName(&G->class_index_by_name, record);
    LlistReplace(&G->class_list, record, copy);
    FreeRecord(record);
    IndexName(&G->class_index_by_name, copy);
    return copy;
}

void RenameClass(ClassData *record, const char *name, Globals *G) {
    ClassData renamed = *record;
    renamed.name = const_cast<char *>(name); // copied
    ReplaceClass(record, renamed, G);
}

namespace {

// The place of a name's first two bytes in macro_starts. Most words that are asked for begin as no macro does.
int StartBit(const char *name) {
    return ((name[0] & 0x3f) << 6) | (name[1] & 0x3f);
}

// Many headers define thousands of names before anyone looks for one: together they are entered in half the time.
void IndexMacros(const Globals *G) {
    const LlistNode *node = G->macro_indexed ? G->macro_indexed->next : G->macro_list.head;
    G->macro_indexed = G->macro_list.tail;
    for (; node; node = node->next) {
        G->macros_lost |= !IndexName(&G->macro_index_by_name, Record<void>(node));
        const int bit = StartBit(Record<NameData>(node)->name);
        G->macro_starts[bit / 64] |= uint64_t{1} << bit % 64;
    }
}

} // namespace

bool is_macro(const char *word, const Globals *G) {
    if (*word <= ' ') {
        return false;
    }
    if (G->macro_indexed != G->macro_list.tail) {
        IndexMacros(G);
    }
    const int bit = StartBit(word);
    return (G->macro_starts[bit / 64] >> bit % 64 & 1) && FindIndexed(&G->macro_index_by_name, word);
}

void AddMacro(const char *name, int line, Globals *G) {
    if (!AddNameNode(name, line, 0, &G->macro_list, G)) {
        MemoryError(G);
    }
}

void TellLostMacros(Globals *G) {
    if (G->macros_lost) {
        G->macros_lost = 0;
        MemoryError(G);
    }
}

void ForgetMacros(int keep, Globals *G) {
    while (G->macro_list.count > keep) {
        LlistNode *last = G->macro_list.tail;
        if (last == G->macro_indexed) {
            UnindexName(&G->macro_index_by_name, Record<void>(last));
            G->macro_indexed = last->prev;
        }
        LlistRemoveNodeInList(&G->macro_list, last, nullptr);
    }
}
