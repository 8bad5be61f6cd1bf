// The spine of the program: one physical line, walked once.
//
// Comments and literals are one small machine with four states, kept in G from line to line: c_comment, cpp_comment, string_flag
// and char_flag; with none of them set the line is in code. Each state has a walker that leaps to the character that can end it, so
// most of a comment or a literal is never looked at byte by byte; code is walked by ScanCode in dispatch.cpp.
#include "analysis/parse_line.h"

#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "analysis/extraction.h"
#include "analysis/keyword_actions.h"
#include "analysis/line_code.h"
#include "analysis/literals.h"
#include "analysis/scan.h"
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
    if (p >= end) {
        return false;
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

using Bytes = unsigned char __attribute__((vector_size(16)));

int SumOfBytes(Bytes bytes) {
#ifdef __SSE2__ // one instruction for all 16
    const auto sums = std::bit_cast<std::array<uint64_t, 2>>(_mm_sad_epu8(std::bit_cast<__m128i>(bytes), _mm_setzero_si128()));
    return static_cast<int>(sums[0] + sums[1]);
#else
    const auto halves = std::bit_cast<std::array<uint64_t, 2>>(bytes);
    constexpr uint64_t kEven = 0x00ff00ff00ff00ffu;
    const uint64_t pairs = (halves[0] & kEven) + ((halves[0] >> 8) & kEven) + (halves[1] & kEven) + ((halves[1] >> 8) & kEven);
    return static_cast<int>((pairs * 0x0001000100010001u) >> 48);
#endif
}

struct White {
    int blanks, tabs;
};

// Blanks and tabs of a line, 16 bytes at a time: the bytes behind the line's end are zero up to the next 16.
White CountWhite(const char *line, int length) {
    Bytes blanks{};
    Bytes tabs{};
    for (int i = 0; i < length; i += 16) {
        Bytes chunk;
        memcpy(&chunk, line + i, sizeof chunk);
        blanks -= (Bytes)(chunk == ' ');
        tabs -= (Bytes)(chunk == '\t');
    }
    return {SumOfBytes(blanks), SumOfBytes(tabs)};
}

// Blanks and tabs ahead of a character.
White CountWhiteAhead(const char *line, int end) {
    White white{};
    for (int i = 0; i < end; ++i) {
        white.blanks += line[i] == ' ';
        white.tabs += line[i] == '\t';
    }
    return white;
}

// Blanks and tabs that count, up to a character; what a "#" passed over stands ahead of it.
White CountWhiteOf(const Scan &scan, int end) {
    White white = end == scan.length ? CountWhite(scan.line, end) : CountWhiteAhead(scan.line, end);
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

// Moves index to the next ch, or to the end of the line when there is none. True if there is one.
bool LeapTo(Scan &scan, char ch) {
    const void *found = memchr(scan.line + scan.index, ch, scan.length - scan.index);
    scan.index = found ? static_cast<int>(static_cast<const char *>(found) - scan.line) : scan.length;
    return found != nullptr;
}

void ScanBlockComment(Scan &scan, Globals *G) {
    while (LeapTo(scan, '*')) {
        // in "/*/" the star that opened the comment doesn't close it
        const int opener = scan.number == G->comment_start_line && scan.index <= G->comment_star_index;
        if (scan.line[scan.index + 1] == '/' && !opener) {
            G->c_comment = 0;
            G->comment_star_index = -1;
            scan.c_comment_line = 1;
            return;
        }
        ++scan.index;
    }
}

void ScanString(Scan &scan, Globals *G) {
    if (G->literal_kind) {
        const int ends = ScanOwnLiteral(scan, G);
        G->string_count += ends;
        G->string_flag = !ends;
        return;
    }
    while (LeapTo(scan, '"')) {
        if (!IsEscaped(scan)) {
            ++G->quote_count;
        } else if (!EndsBackslashLiteral(scan)) {
            ++scan.index;
            continue;
        }
        ++G->string_count;
        G->string_flag = 0;
        return;
    }
}

void ScanCharLiteral(Scan &scan, Globals *G) {
    while (LeapTo(scan, '\'')) {
        if (!IsEscaped(scan)) {
            G->char_flag = 0;
            return;
        }
        ++scan.index;
    }
}

// In a literal any printable character but "/" makes the line code, as it does outside.
void CountLiteral(Scan &scan, int begin) {
    for (int i = begin; !scan.is_loc && i <= scan.index && i < scan.length; ++i) {
        scan.is_loc = scan.line[i] > 32 && scan.line[i] != '/';
    }
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

// A backslash behind which only blanks follow continues the line. It keeps a // comment and an open string alive.
void EndContinuation(const Scan &scan, Globals *G) {
    int last = scan.length - 1;
    while (last >= 0 && (IsBlankOrTab(scan.line[last]) || scan.line[last] == '\r')) {
        --last;
    }
    const bool joins = !(G->reading & kLiterals) || !(G->is_java || G->is_cs); // a backslash of theirs ends no line
    if (last >= 0 && scan.line[last] == '\\' && joins) {
        ++G->continuation_count;
        G->continuation = 1;
        return;
    }
    if (G->macro_flag) {
        EndMacroRegion(G);
    }
    static_cast<DirectiveState &>(*G) = DirectiveState{};
    G->cpp_comment = 0;
    G->continuation = 0;
    if (G->reading & kLiterals) {
        EndLineOfLiteral(G);
    } else if (G->quote_count % 2 == 0) {
        G->string_flag = 0;
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

int LengthWithoutLineEnd(const char *line, int bytes) {
    int length = bytes;
    length -= length > 0 && line[length - 1] == '\n';
    length -= length > 0 && line[length - 1] == '\r';
    return length;
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

bool IsEscaped(const Scan &scan) {
    int run = 0;
    while (scan.line[scan.index - 1 - run] == '\\') {
        ++run;
    }
    return run % 2;
}

bool EndsBackslashLiteral(const Scan &scan) {
    return scan.index >= 3 && memcmp(scan.line + scan.index - 3, "@\"\\", 3) == 0;
}

void NoteSpan(const Scan &scan, int begin, int end, SpanKind kind) {
    if (scan.kinds && begin < end) {
        memset(scan.kinds + begin, kind, end - begin);
    }
}

int WhiteSoFar(const Globals *G) {
    const White white = G->scan ? CountWhiteOf(*G->scan, G->scan->index) : White{};
    return G->file_white + white.blanks + G->tab_width * white.tabs;
}

void ParseLine(int line_bytes, int line_number, Globals *G) {
    char kinds[sizeof(LineText)];
    Scan scan{};
    scan.line = G->line_buffer;
    scan.number = line_number;
    scan.length = LengthWithoutLineEnd(scan.line, line_bytes);
    scan.c_comment_line = G->c_comment;
    scan.white_end = scan.length;
    if (G->debug | G->extract_strings | G->extract_comments || udqn_needs_split(G)) {
        memset(kinds, kCodeSpan, sizeof kinds);
        scan.kinds = kinds;
        if (!G->continuation) {
            ForgetExtracted(G);
        }
    }
    G->scan = &scan;
    BeginLine(scan, G);

    // what stands ahead of the first byte above 32 has no meaning in any state, but belongs to its texts
    while (scan.first_nonblank < scan.length && scan.line[scan.first_nonblank] < 33) {
        ++scan.first_nonblank;
    }
    scan.blank = scan.first_nonblank == scan.length;
    scan.notices_print = NoticesArePrinted(G);
    scan.index = scan.kinds || scan.notices_print ? 0 : scan.first_nonblank;
    scan.string_tabs = G->string_flag ? CountTabs(scan.line, scan.index) : 0; // the indent of a string's next line
    WalkLine(scan, G);
    G->scan = nullptr;
    G->line_letter = '\0';
    if (scan.aborted) {
        return;
    }

    CountWhiteSpace(scan, G);
    const int line_has_c_comment = scan.c_comment_line && !scan.blank;
    if (G->determine_source || G->work_deterministic) {
        ReportLine(scan, line_has_c_comment, G);
    }
    if (G->recording_lines) {
        G->line_letter = LineLetter(scan, line_has_c_comment || G->cpp_comment, G);
    }
    CountLine(scan, line_has_c_comment, G);
    if (scan.kinds) {
        SplitLine(scan, G);
    }
    udqn_process(scan.line, 0, G);
    if (scan.kinds && G->extract_comments && (line_has_c_comment || G->cpp_comment)) {
        ShowExtractedComment(scan.number, G);
    }
    if (scan.is_loc) {
        memcpy(G->prev_code_line, scan.line, line_bytes + 1);
    }
    EndContinuation(scan, G);
    if (G->debug) {
        ShowSplitLine(scan, G);
    }
    if (scan.kinds) { // at the end of a file the rules see no line
        ClearText(G->line_code);
        ClearText(G->line_string);
        ClearText(G->line_comment);
    }
    G->at_flag = 0;
}
