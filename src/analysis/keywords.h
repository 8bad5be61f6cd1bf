// Keyword matching; the table of keywords is in keywords.cpp, what the acting words do in keyword_actions.cpp.
#pragma once

struct Globals;
struct Scan;

// Tests the word that begins at scan.index against the keywords; counts, sets flags and calls recognisers.
void OnWord(Scan &scan, Globals *G);
// Counts the word that begins at index of the line if it is a keyword that counts as a loop with a head: for, foreach.
void CountLoop(const char *line, int index, Globals *G);
