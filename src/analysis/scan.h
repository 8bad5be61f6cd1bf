// The line in hand: what the scanner's handlers are given beside G.
#pragma once

#include "analysis/code_text.h"
#include "files/byte_masks.h"
#include "run/globals.h"

struct Scan;

// Does what a character means in code; scan.index stands on it.
using Handler = void(Scan &scan, Globals *G);

struct Scan {
    // the same for every line of a source
    const ByteMasks *masks;   // what its bytes are
    Handler *const *handlers; // by ASCII character
    char *kinds;              // one SpanKind per character for those who ask for the line's split or its texts; null otherwise
    int notices_print;        // a tab's notice prints in its place; otherwise it only counts
    // of the line
    int origin;         // of its first byte in the masks
    const char *line;   // NUL terminated, with its line end; line[-1] is NUL or a line feed, so nothing is special at index 0
    int number;         // line number in the file
    int length;         // characters without the line end
    int first_nonblank; // index of the first byte above 32; the length when there is none
    int index;          // the character in hand; a handler may move it forward
    int blank;          // no byte above 32 in the line
    int c_comment_line; // a /* */ comment covers part of the line
    int head_mark;      // from here on the code isn't in the text of the statement yet
    int is_loc;         // a line of code
    int non_effective;  // just a brace or just a parenthesis
    int is_logical;     // a ";" in code
    int aborted;        // a record couldn't be made: the line isn't scanned to its end
    int moved;          // the walk through code doesn't go on behind the character that it called a handler for
    int stop;           // where it ends, with moved; -1 where it goes on behind index
};

// A character of code makes its line a line of code.
inline bool MakesCode(char c) {
    return c > ' ' && c != '/';
}

// What the scanner took a character for. The characters that close a comment or a string count as code here: SplitLine files them.
enum SpanKind : char { kCodeSpan, kStringSpan, kCommentSpan, kPassedOver };

// The walk through code goes on behind index, which a handler has moved forward.
inline void GoOnBehind(Scan &scan, int index) {
    scan.index = index;
    scan.moved = 1;
    scan.stop = -1;
}
// The walk through code ends; what stands from stop on is no code.
inline void EndWalk(Scan &scan, int stop) {
    scan.moved = 1;
    scan.stop = stop;
}
inline void Abort(Scan &scan, Globals *G) {
    scan.aborted = 1;
    G->line_wants |= kGivenUp;
    EndWalk(scan, scan.length);
}

// The handlers of the characters that mean something in code, each called with scan.index on its character.
void OnHash(Scan &scan, Globals *G);
void OnOpenParen(Scan &scan, Globals *G);
void OnCloseParen(Scan &scan, Globals *G);
void OnOpenBrace(Scan &scan, Globals *G);
void OnCloseBrace(Scan &scan, Globals *G);
// A "}" in the body of a function. Depths below 0, which last to the end of the line, tell how many ended there.
inline void LeaveBlock(Globals *G) {
    if (--G->function_scope < 0) {
        G->line_wants |= kWantsHead;
    }
}
// The innermost switch has ended.
void EndSwitch(Globals *G);
void OnOpenBracket(Scan &scan, Globals *G);
void OnCloseBracket(Scan &scan, Globals *G);
void OnSemicolon(Scan &scan, Globals *G);
void OnComma(Scan &scan, Globals *G);
void OnColon(Scan &scan, Globals *G);
void OnAssign(Scan &scan, Globals *G);
void OnLess(Scan &scan, Globals *G);
void OnGreater(Scan &scan, Globals *G);
void OnQuestion(Scan &scan, Globals *G);
void OnDot(Scan &scan, Globals *G);

// The texts that go on from line to line, taken up at the head of a line: class names, parameters, template heads, bases.
void CaptureTexts(const Scan &scan, Globals *G);
// The inheritance text of the pending class begins here: it ends at a "{", or goes on with the next lines.
void BeginBases(const char *text, Globals *G);
// Appends the line in hand to the parameter text of the candidate, if both fit.
[[gnu::noinline]] void CaptureParams(const Scan &scan, Globals *G); // it is a step of few commas and parentheses

// The handlers of the file's language.
Handler *const *HandlersFor(const Globals *G);
// Walks the line in code from scan.index until a comment or literal opens or the line ends.
void ScanCode(Scan &scan, Globals *G);

// True if ch is the only significant character of the line in hand; refused at a glance where it can be.
inline bool IsJust(const Scan &scan, char ch) {
    return scan.line[scan.first_nonblank] == ch && SingleChar(scan.line, ch);
}
// Notes for the line's split what the characters from begin up to end are.
void NoteSpan(const Scan &scan, int begin, int end, SpanKind kind);

// The same for a comment or a string that was walked through from begin to index; -E takes up its text. Only with kinds.
[[gnu::cold]] void NoteComment(const Scan &scan, int begin, Globals *G);
[[gnu::cold]] void NoteString(const Scan &scan, int begin, Globals *G);

// The reports of -d and -wD on the line just scanned.
void ReportLine(const Scan &scan, int line_has_c_comment, Globals *G);
// Splits the line just scanned into G's line_code, line_string and line_comment.
void SplitLine(const Scan &scan, Globals *G);
