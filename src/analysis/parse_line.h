// The line scanner: what one physical source line is, and what it counts.
#pragma once

struct Globals;
struct SourceReader;

// Scans the source up to its end, line by line. The settings don't change on the way.
void ScanSource(SourceReader *reader, Globals *G);
// White space of the file up to the character in hand; behind the last line that of the whole file.
int WhiteSoFar(const Globals *G);
