// The settings file tly.cfg: reading, writing, showing.
#pragma once

#include <cstdio>

struct Globals;

// Gives every setting its built-in default.
void DefaultSettings(Globals *G);
// Reads cfg_file over the values in G. A missing file is generated from those values first; a file of another version is rewritten
// with the values just read. Returns 0 when the file could be neither read nor created: the values stay as they were.
int LoadCfg(Globals *G);
// Writes the settings with the current values and all their comments: to gTLYOUT as a display, in HTML mode a page, to any other
// stream as a settings file.
void ShowCfg(FILE *stream, Globals *G);
