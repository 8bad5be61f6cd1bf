// Progress on stderr, while files are processed.
#pragma once

struct Globals;

// How many files will be processed, where progress is shown.
void BeginProgress(int files, const Globals *G);
// One more of so many files is about to be processed: a dot now and then, and a percentage. Only where progress is shown by dots.
void CountProgress(int files, Globals *G);
