// The whole run.
#pragma once

struct Globals;

// Runs the program on its arguments. Returns the exit status. config_home: see UseConfigHome.
int tly(int argc, char **argv, bool config_home = false);
// Sets every default on a zeroed record: what the settings file holds, and the rest.
void InitGlobals(Globals *G);
