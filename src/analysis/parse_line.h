// The line scanner: what one physical source line is, and what it counts.
#pragma once

struct Globals;

// Scans the line_bytes of a line, with its line end, as line line_number of the current file. The bytes ahead of it and behind it
// are NUL.
void ParseLine(const char *line, int line_bytes, int line_number, Globals *G);
// True if ch is the only significant character of the line, blanks, ";" and comments behind it aside.
bool SingleChar(const char *line, char ch);
// White space of the file up to the character in hand. file_white itself takes in a line at its end.
int WhiteSoFar(const Globals *G);
