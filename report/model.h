// The figures of one project as plain records: the first file to read.
//
//   tly's XML, or our JSON ──ReadProject──▶ Model ──▶ a writer: JSON, SARIF, a page ...
//
// read_project.h tells how a command comes to its Model: however many inputs there were, it gets one, joined, in the order told
// below, with every notice's function and fingerprint found. A writer takes a const Model & and never reads a source or an XML.
//
// All texts are valid UTF-8 without NUL, in m.texts; a field of type TextId names one: m.texts[file.path]. Records name each other
// by index. Numbers are counts unless their comment says otherwise.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "texts.h"

inline constexpr uint32_t kNone = UINT32_MAX; // an index that names nothing
inline constexpr int64_t kUntold = INT64_MIN; // a figure that the input doesn't tell

// The language of a file, told from its extension by the rules that tly has unless its settings say otherwise.
enum class Language : uint8_t { kOther, kC, kCHeader, kCpp, kCppHeader, kJava, kCSharp };
inline constexpr const char *kLanguageNames[] = {"Other", "C", "C Header", "C++", "C++ Header", "Java", "C#"};

// Lines by kind. A line may count in more than one: comment lines are those that hold comment text, also beside code.
struct Lines {
    int64_t loc = 0;          // lines of code
    int64_t eloc = 0;         // of these, more than a brace or a parenthesis
    int64_t lloc = 0;         // statements; below 0 where a for without ";" ends none: for (a : b)
    int64_t comments = 0;     // lines with comment text
    int64_t blanks = kUntold; // told for languages and totals only: tly's XML has no blank lines of a file or function
    int64_t lines = 0;        // physical lines
};

struct Complexity {
    int64_t parameters = 0;
    int64_t returns = 0;   // return points
    int64_t interface = 0; // parameters and return points
    int64_t cyclomatic = 0;
    int64_t total = 0; // interface and cyclomatic
};

struct FileRow {
    TextId path = 0;   // "/" between parts, relative to the root where the file lies below it; sorted by this, byte by byte
    TextId opened = 0; // the path as tly was given it; what to open. 0 if the model comes from a JSON
    TextId date = 0;   // last change, as in "Sun Sep  9 01:46:40 2001"
    Language language = Language::kOther;
    bool by_line = false; // the fingerprints of its notices rest on line numbers: see fingerprint.h
    int64_t bytes = 0;
    Lines lines;
    uint32_t first_notice = 0; // its notices are m.notices[first_notice] and the notice_count - 1 behind it
    uint32_t notice_count = 0;
};

struct FunctionRow {
    uint32_t file = 0;      // index of m.files
    TextId name = 0;        // qualified: "N::A::f", "p.q.C.m"
    TextId scope = 0;       // of which the class or namespace: "N::A"; 0 if there is none
    TextId signature = 0;   // "(int a, int b)"
    TextId pattern = 0;     // "template <class T>", mostly 0
    int64_t first_line = 1; // the line of its "{"; the head may begin above
    int64_t end_line = 1;   // the line of its "}"
    Lines lines;
    Complexity complexity;
};

struct Members {
    int64_t publics = 0;
    int64_t protecteds = 0;
    int64_t privates = 0;
};

enum class ClassKind : uint8_t { kClass, kStruct, kInterface, kNamespace };
inline constexpr const char *kClassKindNames[] = {"class", "struct", "interface", "namespace"};

// A class, struct, interface, or (in m.namespaces) a namespace or package. tly's XML doesn't tell where it stands.
struct ClassRow {
    TextId name = 0;    // qualified
    TextId bases = 0;   // "A,Z"; 0 if there are none
    TextId pattern = 0; // "template <class T>", mostly 0
    ClassKind kind = ClassKind::kClass;
    bool nested = false; // inside another class
    Members attributes;
    Members methods;
    int64_t classes = 0;   // of a namespace
    int64_t functions = 0; // of a namespace
    Complexity complexity;
    Lines lines;
};

// A line of the inheritance tree: a class stands once below each of its bases, right behind the base or a sibling.
struct TreeRow {
    TextId name = 0;
    int64_t depth = 0;    // 0 for a class without bases
    int64_t children = 0; // direct ones
    int64_t parents = 0;  // direct ones
};

struct LanguageRow {
    TextId name = 0; // as tly puts it: "C++ Files *.cp*"
    Lines lines;
};

// A kind of notice that was raised.
struct NoticeKind {
    int number = 0;  // 1 to 58 are tly's own, from 100 the user's
    TextId text = 0; // one line, with the limit in force: "Cyclomatic complexity > 10"
    int64_t count = 0;
};

struct Notice {
    uint32_t file = 0;    // index of m.files
    uint32_t line = 1;    // from 1
    bool has_line = true; // false where tly tells no line, and 1 stands in; of no use any more once there are fingerprints
    int32_t number = 0;
    TextId text = 0;           // of its kind
    uint32_t function = kNone; // the function that holds the line, index of m.functions
    uint64_t fingerprint = 0;  // see fingerprint.h
};

// Sums over rows. Averages are sum / count; 0 rows have no maximum.
struct Sums {
    int64_t count = 0;
    Lines lines; // blanks stay kUntold here, see Model::total
    Complexity sum;
    Complexity max;
    Lines max_lines;
};

struct Model {
    Texts texts;

    TextId version = 0;        // of tly: "7.75"
    TextId date = 0;           // of the run, the first if there were several: "Mon Nov 23 09:30:07 2026"
    TextId command = 0;        // arguments of the run, the first if there were several
    TextId title = 0;          // of the report, mostly 0
    bool modern = false;       // read by the rules of -xMODERN
    bool lists_notices = true; // false, which a reader is told: the input has the kinds only, by tly -Tp

    std::vector<FileRow> files;         // by path
    std::vector<FunctionRow> functions; // by file, end line, name
    std::vector<ClassRow> classes;      // by name
    std::vector<ClassRow> namespaces;   // by name
    std::vector<TreeRow> tree;          // as tly prints it
    std::vector<LanguageRow> languages; // by name
    std::vector<NoticeKind> kinds;      // by number
    std::vector<Notice> notices;        // by file, line, number
    std::vector<std::string> remarks;   // what tly said besides figures, and isn't an error

    // Found by FinishModel (join.h).
    Lines total; // of all files; blanks are those of the languages
    Sums function_sums;
    Sums class_sums; // without namespaces
};

// The language of the file with this name.
Language LanguageOf(std::string_view path);
