// Where the program's own files are, and how they are written.
#pragma once

#include <cstdio>
#include <span>

struct Globals;

// Reads the environment into G.
void LoadEnv(Globals *G);
// Behind LoadEnv, in a program that isn't a directory's own but a machine's: where the environment gave no home, TLYHOME becomes
// the user's "$XDG_CONFIG_HOME/tly" (else "$HOME/.config/tly"), which is made. Where there is no such place, or nothing can be
// written there, stderr is told, and the run goes on without.
void UseConfigHome(Globals *G);
// Works out PROGPATH from argv[0], and TLYHOME where the environment gave none.
void SetProgramPath(Globals *G);
// The path of one of the program's files. A name that holds a "/" leaves dest as it is.
void GetProgFile(std::span<char> dest, const char *name, Globals *G);
// Writes a file of the program's beside its place and renames it, so that a failure leaves the old one whole. Returns 1 when the
// new file is in place.
int WriteProgramFile(const char *path, void (*write)(FILE *stream, Globals *G), Globals *G);
// Copies the regular file source to dest, which is replaced whole or stays as it was. Returns the number of bytes copied, or -1
// with a message.
long FileCopy(const char *dest, const char *source, Globals *G);
