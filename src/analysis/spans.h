// Comments and literals: a machine of four states, kept in G from line to line. c_comment, cpp_comment, string_flag, char_flag;
// with none of them set the line is in code. Each state has a walker that leaps to the character that can end it.
#pragma once

#include "analysis/scan.h"

struct Globals;

// A "/" in code is in hand. True if a comment opens there.
bool OpenComment(Scan &scan, Globals *G);
// A quote in code is in hand: a string opens there, unless it is escaped. True if one opens.
bool OpenString(Scan &scan, Globals *G);
// An apostrophe in code is in hand. True if a character literal opens there.
bool OpenCharLiteral(const Scan &scan, Globals *G);
// These move index to the character that ends the state, or to the line's end when it goes on.
void ScanBlockComment(Scan &scan, Globals *G);
void ScanString(Scan &scan, Globals *G);
void ScanCharLiteral(Scan &scan, Globals *G);
// A literal was walked from begin to index: any printable character of it but "/" makes the line code, as it does outside.
void CountLiteral(Scan &scan, int begin);

// True if the line ends in a backslash, blanks behind it aside: it keeps a // comment and an open string alive.
bool GoesOnBehindBlanks(const char *line, int length, const Globals *G);
inline bool GoesOn(const char *line, int length, const Globals *G) {
    const char last = line[length - 1];
    return (last <= ' ' || last == '\\') && GoesOnBehindBlanks(line, length, G);
}
// What ends with a line that doesn't go on.
void EndSpans(Globals *G);
