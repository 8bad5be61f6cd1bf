// The command line: switches to flags.
#pragma once

struct Globals;

// Parses all switches. Returns the index in argv of the first file argument. Help, display and error switches end the process.
int SetUpParams(int argc, char **argv, Globals *G);
// Whether a switch stands on the command line, alone or in a cluster ("-bX"), before anything of it has been parsed.
bool IsSwitchGiven(int argc, char *const *argv, char letter);
// -O: makes the file the report stream. A failure ends the process.
void set_output_file(const char *path, Globals *G);
