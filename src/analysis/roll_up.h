// From one file's counters to the project's sums and back.
#pragma once

struct Globals;

// Clears everything that belongs to the current file.
void ResetState(Globals *G);
// Adds the current file to the project.
void AddTotal(Globals *G);
// Copies the project's sums over the file's counters, so that one set of reports serves a file and the project.
void SetTotal(Globals *G);
