// The spine of the program: a source line by line, each walked once.
//
// The walk goes from state to state: code is walked by ScanCode in dispatch.cpp, comments and literals by spans.cpp.
#include "analysis/parse_line.h"

#include <algorithm>
#include <bit>
#include <climits>

#include "analysis/code_text.h"
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

void WalkSpan(Scan &scan, Globals *G) {
    const int begin = scan.index;
    const int in_string = G->string_flag && !G->c_comment && !G->cpp_comment;
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

void WalkLine(Scan &scan, Globals *G) {
    while (scan.index < scan.length) {
        if (IsInCode(*G)) {
            ScanCode(scan, G);
        } else {
            WalkSpan(scan, G);
        }
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

void CountBlank(Globals *G) {
    ++G->file_blank;
    G->comment_pending = 0;
}

void CountComment(const char *line, int length, Globals *G) {
    if (G->function_metrics | G->list_functions) { // only functions ask
        G->fall_through += SpeaksOfFallingThrough(line, length);
    }
    ++G->comment_pending;
    ++G->file_comments;
}

void CountLine(const Scan &scan, int has_comment, Globals *G) {
    if (scan.blank) {
        CountBlank(G);
    }
    G->file_loc += scan.is_loc;
    if (has_comment) {
        CountComment(scan.line, scan.length, G);
    }
}

void LookForKey(const char *line, Globals *G) {
    G->key_string_found = strstr(line, G->key_string) != nullptr;
    G->line_wants &= G->key_string_found ? ~kWantsKey : ~0U;
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

namespace {

// Counts the notices for tabs up to a line, if they don't print. Ahead of one where a region without notices may begin or end.
void SettleTabs(const char *text, Globals *G) {
    if (!(G->line_wants & kWantsNotices)) {
        const int64_t tabs = WhiteUpTo(G->source, text).tabs - G->quiet_tabs;
        CountTabNotices(static_cast<int>(std::clamp<int64_t>(tabs, 0, INT_MAX)), G);
        G->quiet_tabs += tabs;
    }
}

// Settles what is wanted of every line. The settings don't change on the way.
void BeginSource(SourceReader *reader, Scan *scan, Globals *G) {
    G->source = reader;
    G->scan = scan;
    G->quiet_tabs = 0;
    const bool split = G->debug | G->extract_strings | G->extract_comments || udqn_needs_split(G);
    const bool after = G->determine_source | G->work_deterministic | (G->record_line != nullptr) | (G->udqn_list.count > 0);
    const bool tabs = TabNoticesArePrinted(G);
    const bool key = G->key_string_set && !G->key_string_found;
    G->line_wants = split * kWantsSplit + after * kWantsLook + tabs * kWantsNotices + key * kWantsKey;
    scan->masks = reader->masks;
    scan->handlers = HandlersFor(G);
    scan->kinds = split ? G->line_kinds : nullptr;
    scan->notices_print = tabs;
    reader->tabs_are_tokens = tabs;
}

// Settles the file's white space and its tabs. text is what stands behind the last line.
void EndSource(const char *text, Globals *G) {
    const char *end = G->source->Block() + G->source->begin;
    G->file_white = WhiteSpace(end, G);
    SettleTabs(end, G);
    G->line_text = text;
    G->source = nullptr;
    G->scan = nullptr;
    TellLostMacros(G);
}

// Index of the first byte above 32, or the length of the line.
int FirstVisible(const SourceLine &line) {
    const size_t origin = static_cast<size_t>(line.origin);
    if (const uint64_t bits = line.masks[origin / kMaskBytes].visible >> origin % kMaskBytes) {
        return std::min(std::countr_zero(bits), line.length);
    }
    return NextByte(line.masks, &ByteMasks::visible, line.origin, line.origin + line.length) - line.origin;
}

// Field by field: most of them are set anyway. What stands ahead of the first byte above 32 has no meaning in any state, but
// belongs to its texts.
void BeginScan(Scan &scan, const SourceLine &line, int first_visible, const Globals *G) {
    scan.line = line.text;
    scan.origin = line.origin;
    scan.number = G->file_line_no;
    scan.length = line.length;
    scan.first_nonblank = first_visible;
    scan.index = first_visible;
    scan.blank = first_visible == line.length;
    scan.c_comment_line = G->c_comment;
    scan.head_mark = 0;
    scan.is_loc = IsInCode(*G) && MakesCode(line.text[first_visible]);
    scan.non_effective = 0;
    scan.is_logical = 0;
    scan.aborted = 0;
    scan.moved = 0;
}

// What is to be done at the head of a line, ahead of its characters.
[[gnu::noinline]] void BeginWantedLine(Scan &scan, Globals *G) {
    if (G->function_scope < 0) {
        G->function_scope = 0;
    }
    if (G->line_wants & kWantsKey) {
        LookForKey(scan.line, G);
    }
    if (G->line_wants & kWantsHead) {
        CaptureTexts(scan, G);
    }
    if (G->line_wants & kWantsSplit) {
        memset(G->line_kinds, kCodeSpan, sizeof G->line_kinds);
        if (!G->continuation) {
            ForgetExtracted(G);
        }
    }
    if (G->line_wants & (kWantsSplit | kWantsNotices)) {
        scan.index = 0;
    }
}

// Whoever wants to look at the line once it is scanned.
[[gnu::cold]] void LookAtLine(const Scan &scan, int line_has_c_comment, Globals *G) {
    const int has_comment = line_has_c_comment | G->cpp_comment;
    if (G->determine_source || G->work_deterministic) {
        ReportLine(scan, line_has_c_comment, G);
    }
    if (scan.kinds) {
        SplitLine(scan, G);
    }
    if (G->line_wants & kWantsLook) {
        G->line_text = scan.line;
        udqn_process(scan.line, 0, G);
    }
    if (scan.kinds && G->extract_comments && has_comment) {
        ShowExtractedComment(scan.number, G);
    }
    if (const char letter = G->record_line ? LineLetter(scan, has_comment, G) : '\0') {
        G->record_line(letter, scan.line, G);
    }
}

// At the end of a file the rules see no line.
[[gnu::cold]] void EndSplit(const Scan &scan, Globals *G) {
    if (G->debug) {
        ShowSplitLine(scan, G);
    }
    ClearText(G->line_code);
    ClearText(G->line_string);
    ClearText(G->line_comment);
}

// What ends with a line that doesn't go on behind a backslash.
void EndStatesOfLine(Globals *G) {
    if (G->macro_flag) {
        EndMacroRegion(G);
    }
    static_cast<DirectiveState &>(*G) = DirectiveState{};
    EndSpans(G);
}

// A record couldn't be made: the line counts for nothing more.
[[gnu::cold]] void GiveUpLine(const SourceLine &line, Globals *G) {
    G->line_wants &= ~kGivenUp;
    LeaveOutWhite(G->source, line.text, line.bytes);
    G->quote_count = G->continuation ? G->quote_count : 0;
}

void EndLine(const Scan &scan, const SourceLine &line, Globals *G) {
    if (scan.is_loc) {
        KeepLine(G->source, line);
    }
    if (GoesOn(scan.line, scan.length, G)) {
        ++G->continuation_count;
        G->continuation = 1;
    } else {
        EndStatesOfLine(G);
    }
    G->at_flag = 0;
}

[[gnu::noinline]] void EndWantedLine(const Scan &scan, const SourceLine &line, int line_has_c_comment, Globals *G) {
    if (scan.aborted) {
        GiveUpLine(line, G);
        return;
    }
    CountLine(scan, line_has_c_comment | G->cpp_comment, G);
    LookAtLine(scan, line_has_c_comment, G);
    EndLine(scan, line, G);
    if (scan.kinds) {
        EndSplit(scan, G);
    }
}

// The line closes no block comment: no "/" in it stands behind a "*".
bool ClosesNoComment(const SourceLine &line) {
    const char *end = line.text + line.length;
    const char *p = line.text;
    while ((p = static_cast<const char *>(memchr(p, '/', end - p)))) {
        if (p[-1] == '*') {
            return false;
        }
        ++p;
    }
    return true;
}

// The line is blank, or comment from end to end.
bool IsWithoutCode(const SourceLine &line, int first_visible, const Globals *G) {
    if (!IsInCode(*G)) {
        return IsJustBlockComment(*G) && ClosesNoComment(line);
    }
    const char *begin = line.text + first_visible;
    return first_visible == line.length || (begin[0] == '/' && begin[1] == '/' && !(G->reading & kBraces));
}

// Counts a line without code, unless someone wants more of it or it goes on. False if it is to be scanned.
bool CountWithoutCode(const SourceLine &line, int first_visible, Globals *G) {
    if (G->line_wants || line.length > G->max_line_length) {
        return false;
    }
    if (first_visible == line.length) {
        CountBlank(G);
    } else if (GoesOn(line.text, line.length, G)) {
        return false;
    } else {
        CountComment(line.text, line.length, G);
    }
    AddClamped(G->file_chars, line.length);
    EndStatesOfLine(G);
    return true;
}

void ParseLine(Scan &scan, const SourceLine &line, Globals *G) {
    const int first_visible = FirstVisible(line);
    if (IsWithoutCode(line, first_visible, G) && CountWithoutCode(line, first_visible, G)) {
        return;
    }
    BeginScan(scan, line, first_visible, G);
    AddClamped(G->file_chars, scan.length);
    if (scan.length > G->max_line_length) {
        EmitLineLengthNotice(scan.length, G);
    }
    if (G->line_wants) {
        BeginWantedLine(scan, G);
    }
    if (G->string_flag) {
        G->quiet_tabs += CountWhite(scan.line, scan.index).tabs; // the indent of a string's next line
    }
    WalkLine(scan, G);
    const int line_has_c_comment = scan.c_comment_line && !scan.blank;
    if (G->line_wants) {
        EndWantedLine(scan, line, line_has_c_comment, G);
    } else {
        CountLine(scan, line_has_c_comment | G->cpp_comment, G);
        EndLine(scan, line, G);
    }
}

bool Holds(const char *line, const char *token) {
    return *token && strstr(line, token);
}

// Follows the skip tokens, which are searched in the raw line, in comments and strings too; only the first that matches counts.
// True if the line is to be skipped: the line of the end token still is.
bool FollowSkipTokens(const char *line, Globals *G) {
    if (Holds(line, G->skip_start_token)) {
        G->skip_lines_active = 1;
        NoticeAtLine(kNoticeSkipLines, G);
    } else if (Holds(line, G->skip_end_token)) {
        G->skip_lines_active = 0;
        return true;
    } else if (Holds(line, G->quality_skip_start_token)) {
        G->skip_quality_active = 0; // this notice isn't held back by a region that is open already
        NoticeAtLine(kNoticeSkipNotices, G);
        G->skip_quality_active = 1;
    } else if (Holds(line, G->quality_skip_end_token)) {
        G->skip_quality_active = 0;
    }
    return G->skip_lines_active;
}

// Whether a line is skipped: then its white space isn't counted either.
[[gnu::cold]] bool IsSkipped(const SourceLine &line, Globals *G) {
    SettleTabs(line.text, G);
    if (!FollowSkipTokens(line.text, G)) {
        return false;
    }
    LeaveOutWhite(G->source, line.text, line.bytes);
    ++G->skipped_lines;
    return true;
}

} // namespace

void ScanSource(SourceReader *reader, Globals *G) {
    Scan scan{};
    BeginSource(reader, &scan, G);
    for (;;) {
        SourceLine line;
        const Piece piece = NextPiece(reader, &line);
        if (piece == Piece::kLine) {
            ++G->file_line_no;
            if (!(G->skip_tokens_active && IsSkipped(line, G))) {
                ParseLine(scan, line, G);
            }
        } else if (piece == Piece::kEnd) {
            EndSource(line.text, G);
            return;
        } else {
            Message(G,
                    "\n  Error: Text line %d length greater than %d characters\n"
                    "         Examine file for proper text file formatting.\n",
                    G->file_line_no, kMaxPiece + 1);
        }
    }
}
