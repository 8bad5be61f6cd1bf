// A source line reduced to a type letter and a double. Two lines are equal when both are equal.
#pragma once

struct Globals;
struct Scan;

// The line's type letter by what is on it (code, comment, effective, logical); 0 for a line without one.
char LineLetter(const Scan &scan, int has_comment, const Globals *G);
// The differential code of a raw line: a weighted sum of its bytes.
double LineCode(const char *line, const Globals *G);
