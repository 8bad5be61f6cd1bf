// The lists of what the source holds, each with its index by name. They last for the whole run.
#pragma once

#include "run/llist.h"
#include "run/name_index.h"

struct Globals;
struct NodeData;

struct EntityLists {
    Llist function_list;  // NodeData, in order of closing until a report sorts it
    Llist class_list;     // NodeData: classes and structs
    Llist interface_list; // NodeData: interfaces
    Llist namespace_list; // NodeData: namespaces and packages
    NameIndex class_index_by_name, interface_index_by_name, namespace_index_by_name, macro_index_by_name;
};

// The record of a name, or null.
NodeData *FindClass(const char *name, const Globals *G);
NodeData *FindInterface(const char *name, const Globals *G);
NodeData *FindNamespace(const char *name, const Globals *G);
// Adds a record with all figures 0, entered in the index; null, after a message, when memory is out.
NodeData *AddClassRecord(const char *name, const char *inherit, const char *template_text, int line, int nesting, int parents,
                         int is_struct, Globals *G);
NodeData *AddInterfaceRecord(const char *name, int line, int nesting, Globals *G);
NodeData *AddNamespaceRecord(const char *name, int line, Globals *G);
// Gives a class record another name.
void RenameClass(NodeData *record, const char *name, Globals *G);
// 1 if word is in macro_list: a word of the macro file or a #define seen so far. A word whose first byte, read as signed, is 32 or
// less is none.
int is_macro(const char *word, const Globals *G);
// Enters a #define of the current file.
void AddMacro(const char *name, int line, Globals *G);
// Enters the words that macro_list holds: called once, when the macro file has been read.
void IndexMacros(Globals *G);
