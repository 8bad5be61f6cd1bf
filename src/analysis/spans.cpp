#include "analysis/spans.h"

#include <cstring>

#include "analysis/literals.h"
#include "analysis/scan.h"
#include "run/globals.h"

namespace {

// Moves index to the next ch, or to the end of the line when there is none. True if there is one.
bool LeapTo(Scan &scan, char ch) {
    const void *found = memchr(scan.line + scan.index, ch, scan.length - scan.index);
    scan.index = found ? static_cast<int>(static_cast<const char *>(found) - scan.line) : scan.length;
    return found != nullptr;
}

// True if the character at index stands behind an odd run of backslashes.
bool IsEscaped(const Scan &scan) {
    int run = 0;
    while (scan.line[scan.index - 1 - run] == '\\') {
        ++run;
    }
    return run % 2;
}

// True if the quote at index ends the C# literal @"\", whose backslash escapes nothing.
bool EndsBackslashLiteral(const Scan &scan) {
    return scan.index >= 3 && memcmp(scan.line + scan.index - 3, "@\"\\", 3) == 0;
}

} // namespace

bool OpenComment(Scan &scan, Globals *G) {
    const char next = scan.line[scan.index + 1];
    if (next == '*') {
        G->c_comment = 1;
        G->comment_star_index = scan.index + 1;
        G->comment_start_line = scan.number;
        scan.c_comment_line = 1;
        return true;
    }
    if (next == '/' && scan.line[scan.index - 1] != '*') { // the "/" that ends a comment opens none
        G->cpp_comment = 1;
        return true;
    }
    return false;
}

bool OpenString(Scan &scan, Globals *G) {
    if (!IsEscaped(scan)) {
        ++G->quote_count;
        G->string_flag = 1;
        return true;
    }
    G->string_count += EndsBackslashLiteral(scan);
    return false;
}

bool OpenCharLiteral(const Scan &scan, Globals *G) {
    G->char_flag = !IsEscaped(scan);
    return G->char_flag;
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

void CountLiteral(Scan &scan, int begin) {
    for (int i = begin; !scan.is_loc && i <= scan.index && i < scan.length; ++i) {
        scan.is_loc = scan.line[i] > 32 && scan.line[i] != '/';
    }
}

bool GoesOnBehindBlanks(const char *line, int length, const Globals *G) {
    int last = length - 1;
    while (last >= 0 && (IsBlankOrTab(line[last]) || line[last] == '\r')) {
        --last;
    }
    const bool joins = !(G->reading & kLiterals) || !(G->is_java || G->is_cs); // a backslash of theirs ends no line
    return last >= 0 && line[last] == '\\' && joins;
}

void EndSpans(Globals *G) {
    G->continuation = 0;
    if (!IsInCode(*G)) {
        G->cpp_comment = 0;
        if (G->reading & kLiterals) {
            EndLineOfLiteral(G);
        } else if (G->quote_count % 2 == 0) {
            G->string_flag = 0;
        }
    }
    G->quote_count = 0;
}
