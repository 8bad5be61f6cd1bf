// The spine of the program: one physical line, walked once.
//
// It goes from state to state: code is walked by ScanCode in dispatch.cpp, comments and literals by spans.cpp.
#include "analysis/parse_line.h"

#include <algorithm>
#include <climits>

#include "analysis/entities.h"
#include "analysis/extraction.h"
#include "analysis/keyword_actions.h"
#include "analysis/line_code.h"
#include "analysis/scan.h"
#include "analysis/spans.h"
#include "files/source_reader.h"
#include "notices/raise.h"
#include "notices/udqn.h"
#include "run/globals.h"
#include "run/mode.h"

bool SingleChar(const char *line, char ch) {
    const char *p = Ltrim(line);
    if (*p != ch) {
        return false;
    }
    if (p[1] == '\n') { // most of them
        return true;
    }
    const char *end = strstr(line, "//");
    if (!end) {
        end = line + strlen(line);
    }
    for (++p; p < end && !IsLineEnd(*p); ++p) {
        if (*p == '/' && p + 1 < end && p[1] == '*') {
            const char *close = strstr(p + 2, "*/");
            if (!close || close + 2 > end) {
                return true;
            }
            p = close + 1;
        } else if (*p != ' ' && *p != '\t' && *p != ';' && *p != '/') {
            return false;
        }
    }
    return true;
}

namespace {

// Tabs raise a notice in every state but strings; inside a comment or a character literal behind its end.
void RaiseTabs(const Scan &scan, int begin, Globals *G) {
    for (int i = begin; i < scan.index; ++i) {
        if (scan.line[i] == '\t') {
            NoticeAtLine(kNoticeTab, G);
        }
    }
}

void WalkLiteral(Scan &scan, int begin, Globals *G) {
    if (G->string_flag) {
        ScanString(scan, G);
        if (scan.kinds) {
            NoteString(scan, begin, G);
        }
        G->quiet_tabs += CountWhite(scan.line + begin, scan.index - begin).tabs;
    } else {
        ScanCharLiteral(scan, G);
    }
    CountLiteral(scan, begin);
    if (!scan.c_comment_line && memchr(scan.line + begin, '*', scan.index - begin)) {
        G->star_flag = 1;
    }
}

void WalkLine(Scan &scan, Globals *G) {
    while (scan.index < scan.length && !scan.aborted) {
        const int begin = scan.index;
        const int in_string = G->string_flag && !G->c_comment && !G->cpp_comment;
        if (!(G->c_comment | G->cpp_comment | G->string_flag | G->char_flag)) {
            ScanCode(scan, G);
            continue;
        }
        if (G->c_comment) {
            ScanBlockComment(scan, G);
            if (scan.kinds) {
                NoteComment(scan, begin, G);
            }
        } else if (G->cpp_comment) {
            scan.index = scan.length;
            if (scan.kinds) {
                NoteComment(scan, begin, G);
            }
        } else {
            WalkLiteral(scan, begin, G);
        }
        if (scan.notices_print && !in_string) {
            RaiseTabs(scan, begin, G);
        }
        scan.index += scan.index < scan.length; // the closing character; the "/" of a "*/" is looked at as code
    }
}

void ShowSplitLine(const Scan &scan, Globals *G) {
    Message(G, "*** Debug:\n*** Line   : %s*** Code   : %s\n*** String : %s\n*** Comment: %s\n", scan.line, G->line_code,
            G->line_string, G->line_comment);
}

// A file may hold more characters than an int counts.
void AddClamped(int &sum, int more) {
    if (__builtin_add_overflow(sum, more, &sum)) {
        sum = INT_MAX;
    }
}

// A comment that says that a case falls through on purpose: "fall through", "drop thru", ...
bool SpeaksOfFallingThrough(const char *line) {
    for (const char *p = line; (p = strstr(p, " thr")) != nullptr; p += 4) {
        const int verb = p - line >= 4 && (strncmp(p - 4, "fall", 4) == 0 || strncmp(p - 4, "drop", 4) == 0);
        if (verb && (p[4] == 'u' || strncmp(p + 4, "ough", 4) == 0)) {
            return true;
        }
    }
    return false;
}

void CountLine(const Scan &scan, int has_comment, Globals *G) {
    if (scan.blank) {
        ++G->file_blank;
        G->comment_pending = 0;
    }
    G->file_loc += scan.is_loc;
    if (has_comment) {
        if (G->function_metrics | G->list_functions) { // only functions ask
            G->fall_through += SpeaksOfFallingThrough(scan.line);
        }
        ++G->comment_pending;
        ++G->file_comments;
    }
}

// What the head of a line looks at, ahead of its characters.
void BeginLine(const Scan &scan, Globals *G) {
    if (!G->continuation) {
        G->quote_count = 0;
    }
    if (G->key_string_set && !G->key_string_found) {
        G->key_string_found = strstr(scan.line, G->key_string) != nullptr;
    }
    if (G->function_scope < 0) {
        G->function_scope = 0;
    }
    AddClamped(G->file_chars, scan.length);
    if (scan.length > G->max_line_length) {
        EmitLineLengthNotice(scan.length, G);
    }
    if (G->classname_pending | G->param_capture | G->template_beg_flag | G->inherit_more | G->static_pending |
        G->local_heading.line) {
        CaptureTexts(scan, G);
    }
}

} // namespace

void NoteSpan(const Scan &scan, int begin, int end, SpanKind kind) {
    if (scan.kinds && begin < end) {
        memset(scan.kinds + begin, kind, end - begin);
    }
}

namespace {

int WhiteSpace(const char *end, const Globals *G) {
    const White white = WhiteUpTo(G->source, end);
    return static_cast<int>(std::min<int64_t>(white.blanks + G->tab_width * white.tabs, INT_MAX));
}

} // namespace

int WhiteSoFar(const Globals *G) {
    return G->scan ? WhiteSpace(G->scan->line + G->scan->index, G) : G->file_white;
}

void SettleTabs(const char *text, Globals *G) {
    if (!(G->line_wants & kWantsNotices)) {
        const int64_t tabs = WhiteUpTo(G->source, text).tabs - G->quiet_tabs;
        CountTabNotices(static_cast<int>(std::clamp<int64_t>(tabs, 0, INT_MAX)), G);
        G->quiet_tabs += tabs;
    }
}

void EndSource(Globals *G) {
    const char *end = G->source->Block() + G->source->begin;
    G->file_white = WhiteSpace(end, G);
    SettleTabs(end, G);
    G->source = nullptr;
    TellLostMacros(G);
}

void BeginSource(SourceReader *reader, Globals *G) {
    G->source = reader;
    G->quiet_tabs = 0;
    const bool split = G->debug | G->extract_strings | G->extract_comments || udqn_needs_split(G);
    const bool after = G->determine_source | G->work_deterministic | G->recording_lines | (G->udqn_list.count > 0);
    G->line_wants = split * kWantsSplit + after * kWantsLook + TabNoticesArePrinted(G) * kWantsNotices;
}

namespace {

// Index of the first byte above 32, or the length of the line.
int FirstVisible(const SourceLine &line, int length) {
    const size_t origin = static_cast<size_t>(line.origin);
    if (const uint64_t bits = line.masks[origin / kMaskBytes].visible >> origin % kMaskBytes) {
        return std::min(std::countr_zero(bits), length);
    }
    return NextByte(line.masks, &ByteMasks::visible, line.origin, line.origin + length) - line.origin;
}

// Field by field: most of them are set anyway.
void BeginScan(Scan &scan, const SourceLine &line, int number, const Globals *G) {
    scan.masks = line.masks;
    scan.line = line.text;
    scan.kinds = nullptr;
    scan.origin = line.origin;
    scan.number = number;
    scan.length = LengthWithoutLineEnd(line.text, line.length);
    // what stands ahead of the first byte above 32 has no meaning in any state, but belongs to its texts
    scan.first_nonblank = FirstVisible(line, scan.length);
    scan.index = scan.first_nonblank;
    scan.blank = scan.first_nonblank == scan.length;
    scan.c_comment_line = G->c_comment;
    scan.notices_print = G->line_wants & kWantsNotices;
    scan.head_mark = 0;
    scan.is_loc = 0;
    scan.non_effective = 0;
    scan.is_logical = 0;
    scan.aborted = 0;
    scan.moved = 0;
}

[[gnu::cold]] void BeginSplit(std::span<char> kinds, Globals *G) {
    memset(kinds.data(), kCodeSpan, kinds.size());
    if (!G->continuation) {
        ForgetExtracted(G);
    }
}

[[gnu::cold]] void EndSplit(const Scan &scan, Globals *G) {
    if (G->debug) {
        ShowSplitLine(scan, G);
    }
    ClearText(G->line_code);
    ClearText(G->line_string);
    ClearText(G->line_comment);
}

// Whoever wants to look at the line once it is scanned.
void LookAtLine(const Scan &scan, int line_has_c_comment, Globals *G) {
    const int has_comment = line_has_c_comment | G->cpp_comment;
    if (G->determine_source || G->work_deterministic) {
        ReportLine(scan, line_has_c_comment, G);
    }
    G->line_letter = G->recording_lines ? LineLetter(scan, has_comment, G) : '\0';
    if (scan.kinds) {
        SplitLine(scan, G);
    }
    if (G->line_wants & kWantsLook) {
        udqn_process(scan.line, 0, G);
    }
    if (scan.kinds && G->extract_comments && has_comment) {
        ShowExtractedComment(scan.number, G);
    }
}

// What goes on from line to line behind a backslash, and what ends here.
void EndLine(const Scan &scan, Globals *G) {
    if (GoesOn(scan, G)) {
        ++G->continuation_count;
        G->continuation = 1;
        return;
    }
    if (G->macro_flag) {
        EndMacroRegion(G);
    }
    static_cast<DirectiveState &>(*G) = DirectiveState{};
    EndSpans(G);
}

} // namespace

void ParseLine(const SourceLine &line, int line_number, Globals *G) {
    char kinds[sizeof(LineText)];
    Scan scan;
    BeginScan(scan, line, line_number, G);
    if (G->line_wants & kWantsSplit) {
        scan.kinds = kinds;
        BeginSplit(kinds, G);
    }
    G->scan = &scan;
    BeginLine(scan, G);
    if (G->line_wants & (kWantsSplit | kWantsNotices)) {
        scan.index = 0;
    }
    if (G->string_flag) {
        G->quiet_tabs += CountWhite(scan.line, scan.index).tabs; // the indent of a string's next line
    }
    WalkLine(scan, G);
    G->scan = nullptr;
    if (scan.aborted) {
        LeaveOutWhite(G->source, line.text, line.length);
        G->line_letter = '\0';
        return;
    }

    const int line_has_c_comment = scan.c_comment_line && !scan.blank;
    const int has_comment = line_has_c_comment | G->cpp_comment;
    CountLine(scan, has_comment, G);
    if (G->line_wants) {
        LookAtLine(scan, line_has_c_comment, G);
    }
    if (scan.is_loc) {
        KeepLine(G->source, line);
    }
    EndLine(scan, G);
    if (scan.kinds) { // at the end of a file the rules see no line
        EndSplit(scan, G);
    }
    G->at_flag = 0;
}
