// The line scanner: what one physical source line is, and what it counts.
#pragma once

struct Globals;
struct SourceLine;

// Settles what is wanted of every line of a source, ahead of its first one: the settings don't change on the way.
void BeginSource(Globals *G);
// Scans a line as line line_number of the current file.
void ParseLine(const SourceLine &line, int line_number, Globals *G);
// True if ch is the only significant character of the line, blanks, ";" and comments behind it aside.
bool SingleChar(const char *line, char ch);
// White space of the file up to the character in hand. file_white itself takes in a line at its end.
int WhiteSoFar(const Globals *G);
