// The line records of a baseline: per source file one binary file of 13 bytes a line (line number, type letter, line code), so that
// two baselines can be compared line by line without their sources.
#pragma once

#include <cstdint>
#include <cstdio>

struct Globals;
struct WorkMetrics;

struct DiffData {
    double code;  // as LineCode tells
    int32_t line; // from 1
    char type;    // as LineLetter tells
};

// The lines of one file, in line order: one block that grows. A zeroed one is empty; FreeDiffData frees it and empties it.
struct DiffDataList {
    DiffData *lines;
    int count, capacity;
};
void FreeDiffData(DiffDataList *list);
// Appends a line. Returns 0 with nothing added when memory is out.
int AddDiffDataNode(int32_t line, char type, double code, DiffDataList *list);

// Opens the line records of the current source file into diff_data_file; the first call of a run makes their directory, and ends
// the process when that fails. A file that can't be created gives a message, and the run goes on.
void WorkDiffDataFileOpen(Globals *G);
// Closes them, and tells of a write that failed.
void WorkDiffDataFileClose(Globals *G);
// Appends the record of a raw line to the open file. Without an open file it tells so.
void WorkDiffDataLineWrite(FILE *stream, char type, const char *line_text, Globals *G);

// Loads the line records of a source file. name is as the work file holds it, work_file the work file's path: the records are
// searched for beside it, then below the working directory. file holds what the work file counts of the source. Returns 1, also for
// a file without a line; 0 with a message for one that isn't there or doesn't hold the lines that the work file counts.
int LoadDiffDataFile(const char *name, const char *work_file, const WorkMetrics &file, DiffDataList *list, Globals *G);
