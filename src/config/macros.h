// The macro file: words in front of declarations that the recognisers treat as noise.
#pragma once

struct Globals;

// Reads macro_file into macro_list. Returns the number of names; 0 when the file had to be generated or can't be read.
int LoadMacros(Globals *G);
