// The end of the state record.
#pragma once

struct Globals;

// Frees everything in G, and G itself.
void FreeGlobals(Globals *G);
