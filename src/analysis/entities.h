// The records of what the source holds: found, added, renamed.
#pragma once

struct Globals;
struct ClassData;

// The record of a name, or null.
ClassData *FindClass(const char *name, const Globals *G);
ClassData *FindInterface(const char *name, const Globals *G);
ClassData *FindNamespace(const char *name, const Globals *G);
// Adds a record with all figures 0, entered in the index; null, after a message, when memory is out.
ClassData *AddClassRecord(const char *name, const char *inherit, const char *template_text, int line, int nesting, int parents,
                          int is_struct, Globals *G);
ClassData *AddInterfaceRecord(const char *name, int line, int nesting, Globals *G);
ClassData *AddNamespaceRecord(const char *name, int line, Globals *G);
// Puts a copy of another into the place of a class record, which is freed. Null, after a message, when memory is out: the record
// stays then.
ClassData *ReplaceClass(ClassData *record, const ClassData &by, Globals *G);
// Gives a class another name: its record is another one then.
void RenameClass(ClassData *record, const char *name, Globals *G);
// True if word is in macro_list: a word of the macro file or a #define seen so far. A word whose first byte, read as signed, is 32
// or less is none.
bool is_macro(const char *word, const Globals *G);
// Enters a #define of the current file.
void AddMacro(const char *name, int line, Globals *G);
// Tells of a macro that is_macro won't find, as memory was out.
void TellLostMacros(Globals *G);
// Takes the macros back that were entered last, down to a number of them.
void ForgetMacros(int keep, Globals *G);
