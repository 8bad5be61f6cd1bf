// The per-file loop: from a name in the file list to its counters, its reports and the project's sums.
#pragma once

struct FileData;
struct Globals;

// Processes every file of file_list in order.
void ProcessFiles(Globals *G);
