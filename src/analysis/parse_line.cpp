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

#include "analysis/scan.h"
#include "report/mode.h"
#include "run/globals.h"

int SingleChar(const char *line, char ch) {
    const char *p = Ltrim(line);
    if (*p != ch) {
        return 0;
    }
    const char *end = strstr(line, "//");
    if (!end) {
        end = line + strlen(line);
    }
    if (p >= end) {
        return 0;
    }
    for (++p; p < end && !IsLineEnd(*p); ++p) {
        if (*p == '/' && p + 1 < end && p[1] == '*') {
            const char *close = strstr(p + 2, "*/");
            if (!close || close + 2 > end) {
                return 1;
            }
            p = close + 1;
        } else if (*p != ' ' && *p != '\t' && *p != ';' && *p != '/') {
            return 0;
        }
    }
    return 1;
}

namespace {

using Bytes = unsigned char __attribute__((vector_size(16)));

int SumOfBytes(Bytes bytes) {
    int sum = 0;
    for (const uint64_t half : std::bit_cast<std::array<uint64_t, 2>>(bytes)) {
        const uint64_t pairs = (half & 0x00ff00ff00ff00ffu) + ((half >> 8) & 0x00ff00ff00ff00ffu);
        sum += static_cast<int>((pairs * 0x0001000100010001u) >> 48);
    }
    return sum;
}

// Blanks and tabs of a line, 16 bytes at a time: the bytes behind the line's end are zero up to the next 16.
int CountWhite(const char *line, int length, int tab_width) {
    Bytes blanks{};
    Bytes tabs{};
    for (int i = 0; i < length; i += 16) {
        Bytes chunk;
        memcpy(&chunk, line + i, sizeof chunk);
        blanks -= (Bytes)(chunk == ' ');
        tabs -= (Bytes)(chunk == '\t');
    }
    return SumOfBytes(blanks) + tab_width * SumOfBytes(tabs);
}

// Blanks and tabs ahead of a "#region": the rest of its line doesn't count.
int CountWhiteAhead(const char *line, int end, int tab_width) {
    int white = 0;
    for (int i = 0; i < end; ++i) {
        white += line[i] == ' ' ? 1 : line[i] == '\t' ? tab_width : 0;
    }
    return white;
}

// Moves index to the next ch, or to the end of the line when there is none. 1 if there is one.
int LeapTo(Scan &scan, char ch) {
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

void WalkLine(Scan &scan, Globals *G) {
    while (scan.index < scan.length) {
        const int begin = scan.index;
        if (G->c_comment) {
            ScanBlockComment(scan, G);
            NoteSpan(scan, begin, scan.index, kCommentSpan);
            scan.index += scan.index < scan.length; // the "*"; its "/" is looked at as code
        } else if (G->cpp_comment) {
            scan.index = scan.length;
            NoteSpan(scan, begin, scan.index, kCommentSpan);
        } else if (G->string_flag) {
            ScanString(scan, G);
            CountLiteral(scan, begin);
            NoteSpan(scan, begin, scan.index, kStringSpan);
            scan.index += scan.index < scan.length; // the closing quote
        } else if (G->char_flag) {
            ScanCharLiteral(scan, G);
            CountLiteral(scan, begin);
            scan.index += scan.index < scan.length;
        } else {
            ScanCode(scan, G);
        }
    }
}

// A backslash behind which only blanks follow continues the line. It keeps a // comment and an open string alive.
void EndContinuation(const Scan &scan, Globals *G) {
    int last = scan.length - 1;
    while (last >= 0 && IsBlankOrTab(scan.line[last])) {
        --last;
    }
    if (last >= 0 && scan.line[last] == '\\') {
        ++G->continuation_count;
        G->continuation = 1;
        return;
    }
    G->cpp_comment = 0;
    G->continuation = 0;
    if (G->quote_count % 2 == 0) {
        G->string_flag = 0;
    }
}

void ShowSplitLine(const Scan &scan, Globals *G) {
    SplitLine(scan, G);
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

} // namespace

int IsEscaped(const Scan &scan) {
    int run = 0;
    while (scan.line[scan.index - 1 - run] == '\\') {
        ++run;
    }
    return run % 2;
}

int EndsBackslashLiteral(const Scan &scan) {
    return scan.index >= 3 && memcmp(scan.line + scan.index - 3, "@\"\\", 3) == 0;
}

void NoteSpan(const Scan &scan, int begin, int end, SpanKind kind) {
    if (scan.kinds && begin < end) {
        memset(scan.kinds + begin, kind, end - begin);
    }
}

void ParseLine(int line_bytes, int line_number, Globals *G) {
    char kinds[sizeof(LineText)];
    Scan scan{};
    scan.line = G->line_buffer;
    scan.number = line_number;
    scan.length = LengthWithoutLineEnd(scan.line, line_bytes);
    scan.c_comment_line = G->c_comment;
    scan.white_end = scan.length;
    if (G->debug) {
        memset(kinds, kCodeSpan, sizeof kinds);
        scan.kinds = kinds;
    }

    if (!G->continuation) {
        G->quote_count = 0;
    }
    AddClamped(G->file_chars, scan.length);

    // what stands ahead of the first byte above 32 has no meaning in any state, but belongs to the line's split
    int first = 0;
    while (first < scan.length && scan.line[first] < 33) {
        ++first;
    }
    scan.blank = first == scan.length;
    scan.index = scan.kinds ? 0 : first;
    WalkLine(scan, G);

    if (scan.white_end == scan.length) {
        AddClamped(G->file_white, CountWhite(scan.line, scan.length, G->tab_width));
    } else {
        AddClamped(G->file_white, CountWhiteAhead(scan.line, scan.white_end, G->tab_width));
    }

    const int line_has_c_comment = scan.c_comment_line && !scan.blank;
    if (G->determine_source || G->work_deterministic) {
        ReportLine(scan, line_has_c_comment, G);
    }
    G->file_blank += scan.blank;
    G->file_loc += scan.is_loc;
    G->file_comments += line_has_c_comment || G->cpp_comment;
    EndContinuation(scan, G);
    if (G->debug) {
        ShowSplitLine(scan, G);
    }
}
