// The records that travel in lists: FileData (a source file), NodeData and what is built on it (a function, a class or namespace, a
// directory, a file of a baseline) and NameData (a name with two numbers), with their constructors.
//
// A record is one piece of memory, links and texts with it: the texts are copies that stand behind it and go with it, so that
// nothing but the record is ever freed. Whoever wants another text in a record makes a new one in its place (LlistReplace). Only
// NodeData.file points elsewhere, at the FileData's name, and so lives as long as file_list. A constructor returns 1, or 0 without
// a record when memory is out.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>

#include "run/llist.h"

// The lines of a file, a language, a function, a class or a namespace.
struct LineCounts {
    int loc, eloc, lloc, comments, blanks, lines;
};
void Add(LineCounts &sum, const LineCounts &more);

struct Metrics : LineCounts {
    int functions, params, returns, cyclo;
};

struct FunctionPointValues {
    double fp_loc, fp_eloc, fp_lloc;
};

// What languages are summed up by. A header is in a group of its own, whatever language it is read as.
enum LanguageGroup : int8_t {
    kNoLanguage = -1,
    kHeaderGroup,
    kCGroup,
    kCppGroup,
    kJavaGroup,
    kCsGroup,
    kOtherGroup,
    kLanguageGroups
};

// The first part of a record that a NameIndex finds.
struct Named {
    char *name; // as a file will be opened
};

struct FileData : Named, Metrics, FunctionPointValues {
    int language; // index in ulpi; -1 for an extension of no language
    int notices;  // quality notices in the file
    int skipped;  // lines skipped by tokens
    int64_t date; // modification time, seconds
    int64_t size; // bytes
};

// What all entities have; a directory of a -F list has no more.
struct NodeData : Named, LineCounts {
    const char *file; // the FileData's name; shared, may be null
    int64_t params;   // parameters; in a directory: number of files; in a file of a baseline: its size
    int cyclo;
    int returns;            // return points; in a file of a baseline: the state of its comparison
    int line;               // of the declaration
    LanguageGroup language; // of its file
};

struct FunctionData : NodeData {
    char *parameters;
    char *template_line; // may be null
};

// A class, struct, interface, namespace or package.
struct ClassData : NodeData {
    bool is_struct;
    uint16_t parents;    // base classes, as many as a line of text holds at most
    char *inherit_line;  // base class text; may be null
    char *template_line; // may be null
    int functions;
    int public_methods, protected_methods, private_methods;
    int public_data, protected_data, private_data;
    int nesting; // class nesting depth, 0 at the top; in a namespace: number of its classes
};

// A source file of a baseline, or its difference to another.
struct WorkData : NodeData {
    bool hidden;   // by a filter
    float percent; // change of eLOC
    int functions, notices, interface, complexity;
    int64_t date;
    char *diff_file; // the name of its line records; may be null
};

struct NameData : Named {
    int line;   // of a notice or a #define; 0 for an entry of the macro file or a directory
    int number; // of a notice; 1 for a macro of the macro file, 0 for a #define
};

// A copy of like that is in no list yet, with copies of its texts behind it, null ones as null; null when memory is out.
template <class T, size_t kTexts> T *CopyRecord(const T &like, char *T::*const (&texts)[kTexts]) {
    size_t sizes[kTexts];
    size_t bytes = sizeof(T);
    for (size_t i = 0; i < kTexts; ++i) {
        const char *const text = like.*texts[i];
        sizes[i] = text ? strlen(text) + 1 : 0;
        bytes += sizes[i];
    }
    void *const memory = AllocateRecord(bytes);
    if (!memory) {
        return nullptr;
    }
    T *const record = new (memory) T(like);
    char *behind = reinterpret_cast<char *>(record + 1);
    for (size_t i = 0; i < kTexts; ++i) {
        if (sizes[i] > 0) {
            record->*texts[i] = static_cast<char *>(memcpy(behind, like.*texts[i], sizes[i]));
            behind += sizes[i];
        }
    }
    return record;
}
// Of a class, with its own texts.
ClassData *CopyClass(const ClassData &like);

// Create a record in list, sorted by sort_key: the figures of like, and copies of its texts. Without a name or a list it is
// refused.
int AddListNode(int sort_key, const NodeData &like, Llist *list, Globals *G);
int AddListNode(int sort_key, const FunctionData &like, Llist *list, Globals *G);
int AddListNode(int sort_key, const ClassData &like, Llist *list, Globals *G);
int AddListNode(int sort_key, const WorkData &like, Llist *list, Globals *G);
// Creates a FileData in list, sorted by sort_key. A null name or list is refused.
int AddFileNode(const char *name, int64_t date, int64_t size, int language, const FunctionPointValues &points,
                const Metrics &metrics, Llist *list, int sort_key, Globals *G);
// Appends a NameData to list.
int AddNameNode(const char *name, int line, int number, Llist *list, Globals *G);
// Adds a directory to dir_metrics_list, sorted by name.
int AddDirMetricsNode(const char *directory, Globals *G);
