// The rule file: lines "key : value", read into records of udqn_list.
//
// A file may include others. The options REG_... are no part of a rule: they hold for the patterns behind them, and every file
// starts without any, so that behind an "include" line they are what the included file left.
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <string>
#include <strings.h>
#include <sys/stat.h>

#include "notices/udqn.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"
#include "run/program_files.h"
#include "run/read_lines.h"

struct UdqnOpenFile {
    LineReader reader;
    dev_t device;
    ino_t inode;
    UdqnOpenFile *outer; // the file that includes this one; null for the main file
};

namespace {

constexpr int kMaxDepth = 32;   // files open at once
constexpr int kMaxFiles = 1000; // files of a run, those that are missing too

constexpr int kIgnoreCase = 1; // of the options

constexpr const char *kListSeparators = " ,\t";

// clang-format off
struct TextKey   { const char *key; char *Udqn::*text; };
struct SwitchKey { const char *key; int Udqn::*on; };
struct FlagsKey  { const char *key; int Udqn::*count; int (Udqn::*flags)[kUdqnFlagNumbers]; };
struct OptionKey { const char *key; int UdqnRun::*options; int bit; };

constexpr TextKey kTexts[] = {
    {"string",  &Udqn::test_string},
    {"message", &Udqn::message},
    {"summary", &Udqn::summary},
};
constexpr SwitchKey kSwitches[] = {
    {"active",        &Udqn::active},
    {"emit eof flag", &Udqn::emit_eof},
    {"silent flag",   &Udqn::silent},
};
constexpr FlagsKey kFlagLists[] = {
    {"set flags",    &Udqn::set_count,       &Udqn::set_flags},
    {"check flags",  &Udqn::check_count,     &Udqn::check_flags},
    {"!check flags", &Udqn::not_check_count, &Udqn::not_check_flags},
    {"clear flags",  &Udqn::clear_count,     &Udqn::clear_flags},
};
constexpr OptionKey kOptions[] = {
    {"REG_ICASE",    &UdqnRun::udqn_compile_flags, kIgnoreCase},
    {"REG_NEWLINE",  &UdqnRun::udqn_compile_flags, 2},
    {"REG_NOSUB",    &UdqnRun::udqn_compile_flags, 32},
    {"REG_EXTENDED", &UdqnRun::udqn_compile_flags, 0}, // always on
    {"REG_NOTBOL",   &UdqnRun::udqn_exec_flags,    4},
    {"REG_NOTEOL",   &UdqnRun::udqn_exec_flags,    8},
};
// clang-format on

template <class Row, size_t n> const Row *FindKey(const Row (&rows)[n], const char *key) {
    const Row *row = std::find_if(rows, rows + n, [key](const Row &each) { return strcasecmp(key, each.key) == 0; });
    return row == rows + n ? nullptr : row;
}

bool IsOn(const char *value) {
    return strcasecmp(value, "yes") == 0 || strcasecmp(value, "on") == 0;
}

void Replace(char *&text, const char *by) {
    free(text);
    text = CopyOnHeap(by);
}

void TellOfLostRule(Globals *G) {
    Message(G, "  Memory Error: %s\n", "UDQN record");
}

void BeginRecord(UdqnRun *ctx, Globals *G) {
    DropUdqn(ctx);
    ctx->qnp = static_cast<Udqn *>(calloc(1, sizeof(Udqn)));
    if (!ctx->qnp) {
        TellOfLostRule(G);
    }
}

void EndRecord(UdqnRun *ctx, Globals *G) {
    if (ctx->compile_status) {
        char text[1024];
        pcre_match_test(ctx->qnp->test_string, ctx->qnp, G, text);
        Replace(ctx->qnp->test_result, text);
    }
    if (AddUdqn(ctx->qnp, &ctx->udqn_list, G)) {
        ctx->qnp = nullptr; // the list's now
    } else {
        TellOfLostRule(G);
        DropUdqn(ctx);
    }
}

void TakeIdentifier(const char *value, UdqnRun *ctx, Globals *G) {
    const int id = static_cast<int>(std::clamp<long>(strtol(value, nullptr, 10), INT_MIN, INT_MAX));
    if (id < 100) {
        Message(G,
                "  Error: UDQN Identifiers %d cannot be less than 100.\n         Please correct UDQN file %s\n"
                "         to create unique UDQN Ids.\n\n",
                id, G->udqn_file);
    }
    if (search_udqn_id(id, &ctx->udqn_list)) {
        Message(G,
                "  Error: Duplicate UDQN Identifier %d\n         Please correct UDQN file %s\n"
                "         to create unique UDQN Ids.\n\n",
                id, G->udqn_file);
        return;
    }
    ctx->qnp->id = id;
    ctx->qnp->count = 0;
}

void TakePattern(const char *value, UdqnRun *ctx) {
    Udqn *record = ctx->qnp;
    char result[1024];
    pcre_free(record->regex);
    record->regex = pcre_compile(value, ctx->udqn_compile_flags, result);
    record->needs = NeedsOf(value, ctx->udqn_compile_flags & kIgnoreCase);
    ctx->compile_status |= record->regex != nullptr;
    Replace(record->pattern, value);
    Replace(record->compile_result, result);
}

// Keys that belong to the record under construction.
void TakeRecordKey(const char *key, const char *value, UdqnRun *ctx, Globals *G) {
    Udqn *record = ctx->qnp;
    if (const TextKey *text = FindKey(kTexts, key)) {
        Replace(record->*text->text, value);
    } else if (const SwitchKey *on = FindKey(kSwitches, key)) {
        record->*on->on = IsOn(value);
    } else if (const FlagsKey *list = FindKey(kFlagLists, key)) {
        record->*list->count = parse_flags(value, record->*list->flags);
    } else if (strcasecmp(key, "UDQN Identifier") == 0 || strcasecmp(key, "udqn id") == 0) {
        TakeIdentifier(value, ctx, G);
    } else if (strcasecmp(key, "sources") == 0) {
        parse_sources(value, record->sources);
    } else if (strcasecmp(key, "pattern") == 0) {
        TakePattern(value, ctx);
    } else if (strcasecmp(key, "context") == 0) {
        for (int i = kUdqnLine; i < kUdqnContexts; ++i) {
            record->context = strcasecmp(value, UdqnContextStr[i]) == 0 ? i : record->context;
        }
    } else if (strcasecmp(key, "UDQN End") == 0) {
        EndRecord(ctx, G);
    }
}

std::string PathOf(const char *name, const Globals *G) {
    const char *slash = strrchr(G->udqn_file, '/');
    if (!name) {
        return G->udqn_file;
    }
    return strchr(name, '/') || !slash ? name : std::string(G->udqn_file, slash + 1) + name;
}

// Is the file being read already, however it is named, or too deep inside others?
bool IsCircle(UdqnOpenFile *file) {
    struct stat about = {};
    fstat(fileno(file->reader.file), &about);
    file->device = about.st_dev;
    file->inode = about.st_ino;
    int depth = 1;
    for (const UdqnOpenFile *outer = file->outer; outer; outer = outer->outer) {
        if (++depth > kMaxDepth || (outer->device == file->device && outer->inode == file->inode)) {
            return true;
        }
    }
    return false;
}

void Refuse(const char *path, Globals *G) {
    if (!G->udqn_include_refused) {
        G->udqn_include_refused = 1;
        Message(G,
                "\n  Error: User Defined Quality Notice file is passed over:\n         %s\n"
                "         Files include each other in a circle, or there are too many\n\n",
                path);
    }
}

void Announce(const char *path, bool included, const Globals *G) {
    static constexpr Forms<Shown> kMain{.text = "  UDQN File   : %s\n",
                                        .html = "  <b><font color=\"%{header}\">UDQN File</font></b>   : %s\n",
                                        .csv = "UDQN File,%s\n",
                                        .xml = "<udqn_file>%s</udqn_file>\n"};
    static constexpr Forms<Shown> kInclude{.text = "  UDQN Inc. File: %s\n",
                                           .html = "  <b><font color=\"%{header}\">UDQN Inc. File</font></b>: %s\n",
                                           .csv = "UDQN Inc. File: %s\n",
                                           .xml = "<UDQN_include_file>%s</UDQN_include_file>"};
    if (G->no_config || !G->quality_notices) {
        return;
    }
    const Forms<Shown> &forms = included ? kInclude : kMain;
    LineText wrapped;
    switch (OutputMode(G)) {
    case Mode::kText:
        AdjNameLength(path, wrapped, 61, 13, G);
        Print(G, forms, Shown{wrapped});
        break;
    default: Print(G, forms, Shown{path}); break;
    }
}

// -xUDQNSHOW: the rules read so far, and the end of the run.
[[noreturn]] void ShowRulesAndEnd(Globals *G) {
    for (const Udqn *record : Records<Udqn>(G->udqn_list)) {
        UdqnShow(record, G);
    }
    for (UdqnOpenFile *file = G->udqn_open_files; file; file = file->outer) {
        CloseLines(&file->reader);
    }
    ClearUdqn(G);
    EndProcess(G, 1);
}

} // namespace

int parse_flags(const char *text, std::span<int, kUdqnFlagNumbers> flags) {
    std::fill(flags.begin(), flags.end(), 0);
    int count = 0;
    for (int place = 0; place < kUdqnFlagNumbers; ++place) {
        text += strspn(text, kListSeparators);
        if (!*text) {
            break;
        }
        const long number = strtol(text, nullptr, 10);
        if (number >= 1 && number < kUdqnFlagLimit) { // another leaves a hole
            flags[place] = static_cast<int>(number);
            ++count;
        }
        text += strcspn(text, kListSeparators);
    }
    return count;
}

int parse_sources(const char *text, std::span<char *, kUdqnSources> sources) {
    for (char *&source : sources) {
        free(source);
        source = nullptr;
    }
    int count = 0;
    for (; count < kUdqnSources && *(text += strspn(text, kListSeparators)); ++count) {
        const size_t length = strcspn(text, kListSeparators);
        sources[count] = strndup(text, length);
        text += length;
    }
    return count;
}

void parse_udqn_line(const char *line, UdqnRun *ctx, Globals *G) {
    const char *colon = strchr(line, ':');
    if (!colon) {
        return;
    }
    LineText name, lval;
    CopyPart(name, line, static_cast<size_t>(colon - line));
    Rtrim(name);
    CopyText(lval, Ltrim(colon + 1));
    Rtrim(lval);
    if (const OptionKey *option = FindKey(kOptions, name)) {
        ctx->*option->options |= IsOn(lval) ? option->bit : 0;
    } else if (strcasecmp(name, "include") == 0) {
        load_udqn_file(lval, G);
    } else if (strcasecmp(name, "UDQN Begin") == 0) {
        BeginRecord(ctx, G);
    } else if (ctx->qnp) {
        TakeRecordKey(name, lval, ctx, G);
    }
}

int load_udqn_file(const char *name, Globals *G) {
    const std::string path = PathOf(name, G);
    if (path.empty()) {
        return 0;
    }
    if (G->udqn_files_read >= kMaxFiles) {
        Refuse(path.c_str(), G);
        return 0;
    }
    ++G->udqn_files_read;
    UdqnOpenFile file{{nullptr}, 0, 0, G->udqn_open_files};
    if (!OpenLines(&file.reader, path.c_str())) {
        const int error = errno;
        Message(G, "\n  Error: Problem opening User Defined Quality Notice file:\n         %s\n         For modification, %s\n\n",
                path.c_str(), error == EINVAL ? "Not a regular file" : strerror(error));
        return error;
    }
    if (IsCircle(&file)) {
        Refuse(path.c_str(), G);
        CloseLines(&file.reader);
        return 0;
    }
    G->udqn_open_files = &file;
    Announce(path.c_str(), name != nullptr, G);
    G->udqn_compile_flags = 0;
    G->udqn_exec_flags = 0;
    LineText line;
    while (NextLine(&file.reader, line)) {
        if (*line != '#') {
            parse_udqn_line(line, G, G);
        }
    }
    if (G->udqn_show) {
        ShowRulesAndEnd(G);
    }
    CloseLines(&file.reader);
    G->udqn_open_files = file.outer;
    return 0;
}

void LoadUserRules(Globals *G) {
    if (G->quality_notices && *G->udqn_file) {
        GetProgFile(G->udqn_file, G->udqn_file, G);
        load_udqn_file(nullptr, G);
    }
}
