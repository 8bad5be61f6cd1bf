// The line scanner: what one physical source line is, and what it counts.
#pragma once

struct Globals;
struct SourceLine;
struct SourceReader;

// Ahead of the first line of a source: settles what is wanted of every line. The settings don't change on the way.
void BeginSource(SourceReader *reader, Globals *G);
// Behind its last line: settles the file's white space and its tabs.
void EndSource(Globals *G);
// Scans a line as line line_number of the current file.
void ParseLine(const SourceLine &line, int line_number, Globals *G);
// White space of the file up to the character in hand.
int WhiteSoFar(const Globals *G);
// Counts the notices for tabs up to a line, if they don't print. Ahead of one where a region without notices may begin or end.
void SettleTabs(const char *text, Globals *G);
