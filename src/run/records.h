// The records that travel in lists: FileData (a source file), NodeData (a function, class, namespace, directory or work file entry)
// and NameData (a name with two numbers), with their constructors and free functions.
//
// Every text in a record is a private copy, apart from NodeData.file, which points at the FileData's name and so lives as long as
// file_list. A constructor returns 1, or 0 after freeing whatever it had allocated.
#pragma once

#include <cstdint>

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

struct FileData : Metrics, FunctionPointValues {
    char *name;   // as it will be opened; owned
    int64_t date; // modification time, seconds
    int64_t size; // bytes
    int language; // index in ulpi; -1 for an extension of no language
    int notices;  // quality notices in the file
    int skipped;  // lines skipped by tokens
};

// The first part of a record that a NameIndex finds.
struct Named {
    char *name; // owned
};

struct NodeData : Named, LineCounts {
    char *parameters;    // parameter text of a function; owned, may be null
    char *inherit_line;  // base class text; owned, may be null
    char *template_line; // template text; owned, may be null
    const char *file;    // the FileData's name; shared, may be null
    int64_t date;
    int64_t params; // parameters; in a directory entry: number of files
    int cyclo;
    int returns;   // return points; in a work file comparison: the state
    float percent; // in a work file comparison: change of eLOC
    int functions; // of a class or namespace
    int public_methods, protected_methods, private_methods;
    int public_data, protected_data, private_data;
    int nesting; // class nesting depth, 0 at the top; in a namespace: number of its classes
    int line;    // of the declaration
    int parents; // base classes
    bool is_struct;
    LanguageGroup language; // of its file
    char *diff_file;        // owned, may be null
};

struct NameData {
    char *name; // the memory behind the record
    int line;   // of a notice or a #define; 0 for an entry of the macro file or a directory
    int number; // of a notice; 1 for a macro of the macro file, 0 for a #define
};

// Creates a NodeData in list, sorted by sort_key: the figures of like, and copies of its texts, null ones as null. Without a name
// or a list it is refused.
int AddListNode(int sort_key, const NodeData &like, Llist *list, Globals *G);
// Creates a FileData in list, sorted by sort_key. A null name or list is refused.
int AddFileNode(const char *name, int64_t date, int64_t size, int language, const FunctionPointValues &points,
                const Metrics &metrics, Llist *list, int sort_key, Globals *G);
// Appends a NameData to list. Record and name are one piece of memory.
int AddNameNode(const char *name, int line, int number, Llist *list, Globals *G);
// Adds a directory to dir_metrics_list, sorted by name.
int AddDirMetricsNode(const char *directory, Globals *G);

// Free the record's own texts and null the fields. NameDataFree frees a NameData, FileDataFree a FileData.
void NodeDataFree(void *record);
void NameDataFree(void *record);
void FileDataFree(void *record);
