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

void BeginRecord(const char *, UdqnRun *ctx, Globals *G) {
    DropUdqn(ctx);
    ctx->qnp = NewRecord<Udqn>();
    if (!ctx->qnp) {
        TellOfLostRule(G);
    }
}

void EndRecord(const char *, UdqnRun *ctx, Globals *G) {
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

void TakePattern(const char *value, UdqnRun *ctx, Globals *) {
    Udqn *record = ctx->qnp;
    char result[1024];
    pcre_free(record->regex);
    record->regex = pcre_compile(value, ctx->udqn_compile_flags, result);
    record->needs = NeedsOf(value, ctx->udqn_compile_flags & kIgnoreCase);
    ctx->compile_status |= record->regex != nullptr;
    Replace(record->pattern, value);
    Replace(record->compile_result, result);
}

template <char *Udqn::*text> void TakeText(const char *value, UdqnRun *ctx, Globals *) {
    Replace(ctx->qnp->*text, value);
}

template <int Udqn::*on> void TakeSwitch(const char *value, UdqnRun *ctx, Globals *) {
    ctx->qnp->*on = IsOn(value);
}

template <int Udqn::*count, int (Udqn::*flags)[kUdqnFlagNumbers]> void TakeFlags(const char *value, UdqnRun *ctx, Globals *) {
    ctx->qnp->*count = parse_flags(value, ctx->qnp->*flags);
}

template <int UdqnRun::*options, int bit> void TakeOption(const char *value, UdqnRun *ctx, Globals *) {
    ctx->*options |= IsOn(value) ? bit : 0;
}

void TakeInclude(const char *value, UdqnRun *, Globals *G) {
    load_udqn_file(value, G);
}

void TakeSources(const char *value, UdqnRun *ctx, Globals *) {
    parse_sources(value, ctx->qnp->sources);
}

void TakeContext(const char *value, UdqnRun *ctx, Globals *) {
    for (int i = kUdqnLine; i < kUdqnContexts; ++i) {
        ctx->qnp->context = strcasecmp(value, UdqnContextStr[i]) == 0 ? i : ctx->qnp->context;
    }
}

// clang-format off
constexpr RuleKey kKeys[] = {
    {"UDQN Begin", "", BeginRecord, false,
     "Begins a rule.  The colon behind the key is needed."},
    {"UDQN Identifier", "NUMBER", TakeIdentifier, true,
     "The number of the rule's notices, from 100 on; no two rules may have the\n"
     "same."},
    {"UDQN Id", "NUMBER", TakeIdentifier, true,
     "The same as UDQN Identifier."},
    {"Active", "Yes | No", TakeSwitch<&Udqn::active>, true,
     "Whether the rule is at work.  Yes and On turn it on, any other value or\n"
     "no such line off."},
    {"Sources", "EXT, EXT ...", TakeSources, true,
     "Extensions of the files that the rule is for, up to 64, parted by commas\n"
     "or blanks.  A rule without sources is for no file."},
    {"Context", "Line | Code | Comment | String", TakeContext, true,
     "Where the pattern is searched: in the whole line, or in its code, its\n"
     "comments or its strings alone.  A rule without a context finds nothing."},
    {"Pattern", "REGEX", TakePattern, true,
     "What is searched, a regular expression of Perl's kind.  It is compiled\n"
     "here, with the options REG_... that stand above it."},
    {"String", "TEXT", TakeText<&Udqn::test_string>, true,
     "A sample that the pattern should find; -xUDQNSHOW tells whether it does."},
    {"Summary", "TEXT", TakeText<&Udqn::summary>, true,
     "What the short forms of the notice say, and the quality profile."},
    {"Message", "TEXT", TakeText<&Udqn::message>, true,
     "What the long form says.  \\n begins a line, and these words stand for what\n"
     "is at the place of the notice:"},
    {"Check flags", "NUMBER, ...", TakeFlags<&Udqn::check_count, &Udqn::check_flags>, true,
     "The rule runs only where all these flags are set.  Flags have numbers from\n"
     "1 to 1999, up to 32 in a list.  At the begin of a file all are clear."},
    {"!Check flags", "NUMBER, ...", TakeFlags<&Udqn::not_check_count, &Udqn::not_check_flags>, true,
     "The rule runs only where all these flags are clear."},
    {"Set flags", "NUMBER, ...", TakeFlags<&Udqn::set_count, &Udqn::set_flags>, true,
     "Flags that are set when the pattern is found; the rules below see it on\n"
     "the same line."},
    {"Clear flags", "NUMBER, ...", TakeFlags<&Udqn::clear_count, &Udqn::clear_flags>, true,
     "Flags that are cleared when the pattern is found, after those of Set flags\n"
     "were set."},
    {"Emit EOF flag", "Yes | No", TakeSwitch<&Udqn::emit_eof>, true,
     "With Yes the rule runs once at the end of each file and not on its lines.\n"
     "In the context Line its pattern has to find the text \"UDQN eof\"."},
    {"Silent flag", "Yes | No", TakeSwitch<&Udqn::silent>, true,
     "With Yes the rule only moves flags: it raises no notice."},
    {"UDQN End", "", EndRecord, true,
     "Ends the rule.  A rule without it is dropped."},
    {"Include", "FILE", TakeInclude, false,
     "Reads the rules of another file, then goes on here.  A name without a \"/\"\n"
     "lies beside the main file."},
    {"REG_ICASE", "Yes", TakeOption<&UdqnRun::udqn_compile_flags, kIgnoreCase>, false,
     "In the patterns below, to the end of the file or to an Include, capitals\n"
     "are equal to small letters."},
    {"REG_NEWLINE", "Yes", TakeOption<&UdqnRun::udqn_compile_flags, 2>, false,
     "In the patterns below, ^ and $ match at every line end of a text."},
    {"REG_NOSUB", "Yes", TakeOption<&UdqnRun::udqn_compile_flags, 32>, false,
     "Of the patterns below the place isn't kept: -xUDQNSHOW doesn't show it."},
    {"REG_EXTENDED", "Yes", TakeOption<&UdqnRun::udqn_compile_flags, 0>, false,
     "Changes nothing: patterns are extended ones."},
    {"REG_NOTBOL", "Yes", TakeOption<&UdqnRun::udqn_exec_flags, 4>, false,
     "For all rules, when it stands behind the last Include: ^ doesn't match at\n"
     "the begin of a text."},
    {"REG_NOTEOL", "Yes", TakeOption<&UdqnRun::udqn_exec_flags, 8>, false,
     "The same for $ at the end of a text."},
};
// clang-format on

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
    for (const RuleKey &row : kKeys) {
        if (strcasecmp(name, row.key) == 0) {
            if (ctx->qnp || !row.of_a_rule) {
                row.take(lval, ctx, G);
            }
            return;
        }
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

std::span<const RuleKey> RuleKeys() {
    return kKeys;
}

void LoadUserRules(Globals *G) {
    if (G->quality_notices && *G->udqn_file) {
        GetProgFile(G->udqn_file, G->udqn_file, G);
        load_udqn_file(nullptr, G);
    }
}
