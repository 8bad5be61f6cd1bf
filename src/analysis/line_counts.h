// The count of lines: a second, short way through a source, for a run whose report shows nothing else.
//
// It takes the scanner's own word for comments, literals, directives and lone braces (spans.h, directives.h, parse_line.h) and
// looks at no name and no parenthesis: from the masks of a block it goes straight to the bytes at which a count can change. Its
// figures are the scanner's, line for line.
#pragma once

struct Globals;
struct SourceReader;

// Counts the lines of an open source into G's counters of a file, and enters its macros. False, with the source at its first byte
// and G as it was, where the scanner has to look at the file: it holds a line that is too long, which is told, or one of just a
// parenthesis, which inside of an attribute's brackets or of a macro's arguments isn't counted.
bool CountLines(SourceReader *reader, Globals *G);
