// The extraction of -E: the string literals of a source file, or its comments, each behind its line number.
//
// The scanner hands over what it walked through. Literals and comments have a text each, so that -Es and -Ec may be on at once.
#pragma once

struct Globals;

// At the head of a line that doesn't follow a continuation.
void ForgetExtracted(Globals *G);
// Characters of a string literal; with its closing quote the literal is shown. What doesn't fit is left away.
void ExtractStringSpan(const char *text, int count, int closed, int line_number, Globals *G);
// Characters of a comment, markers included.
void ExtractCommentSpan(const char *text, int count, Globals *G);
// Shows the comments of a line at its end; with -EC as they are written, else without their markers.
void ShowExtractedComment(int line_number, const Globals *G);

// The text from its first letter or digit to its last one, and without escaped line feeds around it; a "%" in front of it stays.
// Cut in place; the answer points into the text.
const char *ExtractString(char *text);
// The text without white space behind it, cut in place.
const char *ExtractComment(char *text);
