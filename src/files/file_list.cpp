// The list of files of a run, from one of three sources: plain arguments, the directory of -r, or the list file of -F. Each source
// fills a list of headers and a list of other sources; at the end they are joined. The walk itself is in directory_walk.cpp.
#include "files/file_list.h"

#include <cerrno>
#include <string>
#include <sys/stat.h>

#include "config/languages.h"
#include "report/benchmark.h"
#include "report/file_reports.h"
#include "report/frame.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/read_lines.h"
#include "run/same_file.h"

namespace {

constexpr int kMaxExpansions = 100; // of one line: a variable may hold its own name

void WrongTypeError(const char *name, Globals *G) {
    Message(G, "\n  Error: %s - Not a valid file type for TLY\n         Valid types: %s\n", name, G->extension_list);
}

void ListArguments(int first_argument, Globals *G) {
    for (int i = first_argument; i < G->argc; ++i) {
        const char *name = G->argv[i];
        const char *extension = getExtension(name, G);
        if (!extension || FilenamePatternMatch(name, G)) {
            continue;
        }
        if (valid_ext(extension, G->extension_list, G->names_case_sensitive, G)) {
            AddSourceFile(name, extension, G);
        } else if (strcmp(name, G->output_file_name) != 0) { // "-O report.txt" leaves its file name among the arguments
            WrongTypeError(name, G);
        }
    }
}

void ListTopDirectory(Globals *G) {
    CopyText(G->file_list_name, G->top_dir);
    const bool all = strcmp(G->top_dir, "*") == 0 || strcmp(G->top_dir, "*.*") == 0;
    ReadDir(all ? "." : G->top_dir, G->extension_list, G);
}

// Takes a word off the front of *rest and ends it; *rest is then at the next one. Empty when there are no more.
char *TakeWord(char **rest) {
    char *word = *rest;
    char *end = word + strcspn(word, " \t");
    *rest = end + strspn(end, " \t");
    *end = '\0';
    return word;
}

// "-r c,h /my project": a switch, extensions, and a directory that may hold blanks.
void ListDirectoryLine(const char *line, Globals *G) {
    LineText text;
    CopyText(text, line);
    char *rest = text;
    const char *flag = TakeWord(&rest);
    const char *extensions = TakeWord(&rest);
    char *directory = rest + strspn(rest, "\""); // -r c,h "/my project"
    size_t length = strcspn(directory, "\"\t\r\n");
    if (length == 0) {
        Message(G,
                "\n  Error: Malformed directory entry line in file.\n         Format: -r\"c,h,cpp d:\\proj\\src\"\n"
                "         Read  : %s\n\n",
                line);
        return;
    }
    while (length > 0 && directory[length - 1] == '/') {
        --length;
    }
    directory[length] = '\0';
    G->no_recursion = strcmp(flag, "-r") != 0 && strcmp(flag, "-R") != 0;
    if (!AddDirMetricsNode(directory, G)) {
        MemoryError(G);
    }
    ReadDir(directory, extensions, G);
}

void ListFileLine(const char *name, Globals *G) {
    if (FilenamePatternMatch(name, G)) {
        return;
    }
    const char *extension = getExtension(name, G);
    if (!extension) {
        return;
    }
    if (valid_ext(extension, G->extension_list, G->names_case_sensitive, G)) {
        AddSourceFile(name, extension, G);
    } else {
        WrongTypeError(name, G);
    }
}

void ListFileOfNames(Globals *G) {
    LineReader reader{G->file_list_stream};
    LineText line;
    LineText expanded;
    while (NextLine(&reader, line)) {
        LineText text;
        CopyText(text, Ltrim(ExpandEnvarString(line, expanded, G)));
        if (*text == '#' || IsLineEnd(*text) || *text == '\0') {
            continue;
        }
        Rtrim(text);
        if (*text == '-') {
            ListDirectoryLine(text, G);
        } else {
            ListFileLine(text, G);
        }
    }
    if (ferror(G->file_list_stream)) {
        Message(G, "\n  Error: Cannot read the specified file to its end: %s\n         %s\n\n", G->file_list_name, strerror(errno));
    }
}

// -Rl outside XML: the names are the whole report, and it closes the document itself.
[[noreturn]] void ShowListAndEnd(ProcessTimer *timer, Globals *G) {
    LlistShow(&G->file_list, FileShow, G);
    Put("\n");
    Benchmark(timer, G);
    if (OutputMode(G) != Mode::kCsv) {
        UnderscoreRule();
    }
    CloseDocument(G);
    EndProcess(G, 0);
}

// A "%NAME%" of a line: the first pair of "%" signs. rest is the text behind it.
struct Variable {
    std::string name;
    const char *percent;
    const char *rest;
};

// False when text holds no pair, or an empty one.
bool FindVariable(const char *text, Variable *found) {
    const char *first = strchr(text, '%');
    const char *second = first ? strchr(first + 1, '%') : nullptr;
    if (!second || second == first + 1) {
        return false;
    }
    *found = {std::string(first + 1, second), first, second + 1};
    return true;
}

const char *RefuseExpansion(const char *line, const char *reason, Globals *G) {
    Message(G, "  Error: Expanding environment variable from -F file.\n         %s: %.*s\n\n", reason,
            static_cast<int>(strcspn(line, "\r\n")), line);
    return line;
}

} // namespace

int BuildFileList(int first_argument, Globals *G) {
    if (!G->names_case_sensitive) {
        ChangeCase(G->pattern_filter, 0);
    }
    StatReport(&G->report, G);
    ProcessTimer timer{};
    if (G->benchmark_mode) {
        Timer(&timer, kTimerStart, G);
    }
    if (G->recursive_mode) {
        ListTopDirectory(G);
    } else if (G->file_list_mode) {
        ListFileOfNames(G);
    } else {
        ListArguments(first_argument, G);
    }
    if (G->sort_input_by_name) {
        LlistResort_FileData(&G->header_file_list, 1, G);
        LlistResort_FileData(&G->source_file_list, 1, G);
    }
    LlistConcatenate(&G->file_list, &G->header_file_list);
    LlistConcatenate(&G->file_list, &G->source_file_list);
    if (G->list_files_only && OutputMode(G) != Mode::kXml) {
        ShowListAndEnd(&timer, G);
    }
    if (G->show_progress && !G->file_list_mode) {
        fprintf(stderr, "(%6d)\n", G->file_list.count);
    }
    return G->file_list.count;
}

int AddSourceFile(const char *name, const char *extension, Globals *G) {
    struct stat status;
    const bool there = stat(name, &status) == 0;
    // A report that is scanned while it is written grows without end: "tly -xDEBUG -r"h ." > lines.h".
    if (there && IsSameFile(status, G->report)) {
        return 1;
    }
    SetFileDateSize(there ? &status : nullptr, G);
    const bool is_header = *extension == 'h' || *extension == 'H';
    Llist *list = is_header ? &G->header_file_list : &G->source_file_list;
    if (!AddFileNode(name, G->file_date, G->file_size, -1, {}, {}, list, 0, G)) {
        MemoryError(G);
        return 0;
    }
    return 1;
}

void SetFileDateSize(const struct stat *status, Globals *G) {
    G->file_date = status ? status->st_mtime : 0;
    G->file_size = status ? status->st_size : 0;
}

// The expansion goes on while the text behind the variable just replaced holds another pair of "%", and each time starts from the
// front: "%A%/%B%" with A = "%C%" replaces A, C and B.
const char *ExpandEnvarString(const char *line, std::span<char> out, Globals *G) {
    std::string text;
    const char *current = line;
    Variable variable;
    for (int expansions = 0; FindVariable(current, &variable); ++expansions) {
        const char *value = getenv(variable.name.c_str());
        if (!value) {
            Message(G,
                    "  Error: Expanding environment variable from -F file.\n"
                    "         Environment Variable: %s does not exist\n\n",
                    variable.name.c_str());
            break;
        }
        if (expansions == kMaxExpansions) {
            return RefuseExpansion(line, "No end of variables in the line", G);
        }
        const char *single = strchr(variable.rest, '%');
        const bool has_pair = single && strchr(single + 1, '%');
        text = std::string(current, variable.percent) + value + variable.rest;
        if (text.size() >= out.size()) {
            return RefuseExpansion(line, "The expanded line is too long", G);
        }
        CopyText(out, text.c_str());
        current = out.data();
        if (!has_pair) {
            if (G->list_files_only) {
                Message(G, single ? "  -F Expanded Line: %s\n\n" : "  -F Expanded File Line: %s\n\n", out.data());
            }
            break;
        }
    }
    return current;
}
