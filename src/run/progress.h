// Progress on stderr, while files are processed.
#pragma once

struct Globals;

// One more file is about to be processed: its name, or a dot and now and then a percentage.
void ShowFileProgress(const char *name, Globals *G);
