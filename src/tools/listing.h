// The listing of -p: a source file on numbered lines, in pages with a head and a rule. Nothing in it is measured.
#pragma once

struct Globals;
struct SourceReader;

// Margin, rules and title of the pages, once in a run. A title longer than a line ends the process.
void SetBars(Globals *G);
// Prints one file, which stays open. Returns the number of its lines; reader->failed tells if it wasn't read to its end.
int PrintCode(SourceReader *reader, const char *name, Globals *G);
// Prints one source line, folded to the line length. A line without a line feed is given one. Returns the printed lines it took.
int PutLine(const char *line, int number, const Globals *G);
// The top margin and the head of a page.
void PutTopMargin(const Globals *G);
void SetHeaderLine(const char *name, int page, const Globals *G);
