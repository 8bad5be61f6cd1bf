// The settings file tly.cfg: reading, writing, showing.
#pragma once

#include <cstdio>

struct Globals;

// Gives every setting its built-in default.
void DefaultSettings(Globals *G);
// Reads cfg_file over the values in G. A missing file is generated from those values first; a file of another version is rewritten
// with the values just read. Returns 0 when the file could be neither read nor created: the values stay as they were.
int LoadCfg(Globals *G);
// Writes the settings file with the current values and all its comments; in HTML mode as a page.
void ShowCfg(FILE *stream, Globals *G);
