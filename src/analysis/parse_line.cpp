// The spine of the program: one physical line, walked once.
//
// It goes from state to state: code is walked by ScanCode in dispatch.cpp, comments and literals by spans.cpp.
#include "analysis/parse_line.h"

#include <climits>

#include "analysis/extraction.h"
#include "analysis/keyword_actions.h"
#include "analysis/line_code.h"
#include "analysis/scan.h"
#include "analysis/spans.h"
#include "analysis/white_space.h"
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

bool IsJust(const Scan &scan, char ch) {
    return scan.line[scan.first_nonblank] == ch && SingleChar(scan.line, ch);
}

namespace {

// Blanks and tabs that count, up to a character; what a "#" passed over stands ahead of it.
[[gnu::always_inline]] inline White CountWhiteOf(const Scan &scan, int end) {
    White white = CountWhite(scan.line, end);
    white.blanks -= scan.passed_blanks;
    white.tabs -= scan.passed_tabs;
    return white;
}

// Tabs raise a notice in every state but strings; inside a comment or a character literal behind its end.
void RaiseTabs(const Scan &scan, int begin, Globals *G) {
    for (int i = begin; i < scan.index; ++i) {
        if (scan.line[i] == '\t') {
            NoticeAtLine(kNoticeTab, G);
        }
    }
}

int CountTabs(const char *text, int length) {
    int tabs = 0;
    for (int i = 0; i < length; ++i) {
        tabs += text[i] == '\t';
    }
    return tabs;
}

void WalkLiteral(Scan &scan, int begin, Globals *G) {
    if (G->string_flag) {
        ScanString(scan, G);
        if (scan.kinds) {
            NoteString(scan, begin, G);
        }
        scan.string_tabs += CountTabs(scan.line + begin, scan.index - begin);
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

void CountLine(const Scan &scan, int line_has_c_comment, Globals *G) {
    if (scan.blank) {
        ++G->file_blank;
        G->comment_pending = 0;
    }
    G->file_loc += scan.is_loc;
    if (line_has_c_comment || G->cpp_comment) {
        if (G->function_metrics | G->list_functions) { // only functions ask
            G->fall_through += SpeaksOfFallingThrough(scan.line);
        }
        ++G->comment_pending;
        ++G->file_comments;
    }
}

void CountWhiteSpace(const Scan &scan, Globals *G) {
    const White white = CountWhiteOf(scan, scan.white_end);
    AddClamped(G->file_white, white.blanks + G->tab_width * white.tabs);
    if (white.tabs > scan.string_tabs && !scan.notices_print) {
        CountTabNotices(white.tabs - scan.string_tabs, G);
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

int WhiteSoFar(const Globals *G) {
    const White white = G->scan ? CountWhiteOf(*G->scan, G->scan->index) : White{};
    return G->file_white + white.blanks + G->tab_width * white.tabs;
}

void BeginSource(Globals *G) {
    const bool split = G->debug | G->extract_strings | G->extract_comments || udqn_needs_split(G);
    const bool after = G->determine_source | G->work_deterministic | G->recording_lines | (G->udqn_list.count > 0);
    G->line_wants = split * kWantsSplit + after * kWantsLook + TabNoticesArePrinted(G) * kWantsNotices;
}

namespace {

// Field by field: most of them are set anyway.
void BeginScan(Scan &scan, const SourceLine &line, int number, const Globals *G) {
    scan.masks = line.masks;
    scan.origin = line.origin;
    scan.line = line.text;
    scan.number = number;
    scan.length = LengthWithoutLineEnd(line.text, line.length);
    // what stands ahead of the first byte above 32 has no meaning in any state, but belongs to its texts
    scan.first_nonblank = NextByte(line.masks, &ByteMasks::visible, line.origin, line.origin + scan.length) - line.origin;
    scan.index = scan.first_nonblank;
    scan.head_mark = 0;
    scan.blank = scan.first_nonblank == scan.length;
    scan.is_loc = 0;
    scan.non_effective = 0;
    scan.is_logical = 0;
    scan.c_comment_line = G->c_comment;
    scan.white_end = scan.length;
    scan.string_tabs = 0;
    scan.passed_blanks = 0;
    scan.passed_tabs = 0;
    scan.notices_print = G->line_wants & kWantsNotices;
    scan.aborted = 0;
    scan.moved = 0;
    scan.stop = -1;
    scan.kinds = nullptr;
}

// Whoever wants to look at the line once it is scanned.
void LookAtLine(const Scan &scan, int line_has_c_comment, Globals *G) {
    if (G->determine_source || G->work_deterministic) {
        ReportLine(scan, line_has_c_comment, G);
    }
    if (G->recording_lines) {
        G->line_letter = LineLetter(scan, line_has_c_comment || G->cpp_comment, G);
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
        memset(kinds, kCodeSpan, sizeof kinds);
        scan.kinds = kinds;
        if (!G->continuation) {
            ForgetExtracted(G);
        }
    }
    G->scan = &scan;
    BeginLine(scan, G);
    if (G->line_wants & (kWantsSplit | kWantsNotices)) {
        scan.index = 0;
    }
    if (G->string_flag) {
        scan.string_tabs = CountTabs(scan.line, scan.index); // the indent of a string's next line
    }
    WalkLine(scan, G);
    G->scan = nullptr;
    G->line_letter = '\0';
    if (scan.aborted) {
        return;
    }

    CountWhiteSpace(scan, G);
    const int line_has_c_comment = scan.c_comment_line && !scan.blank;
    if (G->line_wants & kWantsLook) {
        LookAtLine(scan, line_has_c_comment, G);
    }
    CountLine(scan, line_has_c_comment, G);
    if (scan.kinds) {
        SplitLine(scan, G);
    }
    if (G->line_wants & kWantsLook) {
        udqn_process(scan.line, 0, G);
    }
    if (scan.kinds && G->extract_comments && (line_has_c_comment || G->cpp_comment)) {
        ShowExtractedComment(scan.number, G);
    }
    if (scan.is_loc) {
        memcpy(G->prev_code_line, scan.line, line.length + 1);
    }
    EndLine(scan, G);
    if (scan.kinds) { // at the end of a file the rules see no line
        if (G->debug) {
            ShowSplitLine(scan, G);
        }
        ClearText(G->line_code);
        ClearText(G->line_string);
        ClearText(G->line_comment);
    }
    G->at_flag = 0;
}
