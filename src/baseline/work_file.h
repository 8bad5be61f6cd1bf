// The work file: a baseline as text, one line per source file.
//
// A record's thirteenth field names the file's line records (baseline/line_records.h). In memory a source file's record is a
// WorkData.
#pragma once

#include <cstdint>
#include <cstdio>

#include "run/baseline_state.h"
#include "run/records.h"

struct Globals;

// States of a record, as WorkData.returns holds them.
enum WorkState { kStateUnprocessed, kStateEqual, kStateModified, kStateDifferent, kStateRemoved, kStateNew, kStateProcessed };

// A number cut to what a record holds.
int ClampToInt(int64_t number);
// The metrics of a work list's record.
WorkMetrics MetricsOf(const WorkData *file);
// Adds a record of a source file behind the list's tail; LlistSort by name puts the list in order once it is whole. diff_file may
// be null. Returns 0 when memory is out.
int AddWorkNode(const char *name, int64_t date, const WorkMetrics &metrics, int state, float diff_pct, bool hidden,
                const char *diff_file, Llist *list, Globals *G);

// Opens the baseline's work file beside its place and writes its head; tells of it in the report. Null, with a message, on failure.
FILE *CreateWorkFile(Globals *G);
// Writes the record of one source file. A null diff_name is written as an empty one.
void WorkLine(FILE *stream, const char *name, long date, const WorkMetrics &metrics, const char *diff_name);
// Writes the record of the current source file, whose metrics are stored, under its name relative to top_dir where the settings say
// so.
void WriteWorkRecord(const FileData *file, Globals *G);
// Ends the baseline: puts the work file and its line records in place and copies the work file to "workfile.dat". What can't be
// written whole is told, and the baseline that stood there before stays.
void CloseWorkFile(Globals *G);

// Reads a whole work file into list, sorted by name. Returns 1, or 0 with a message.
int LoadWorkFile(const char *path, int64_t *time_out, Llist *list, int *ignore_blank_out, int *ignore_white_out, Globals *G);

struct WorkRecord {
    LineText name, diff_name;
    int64_t date;
    WorkMetrics metrics;
};
// Splits a record's line. Returns 1, or 0 for a line that isn't a whole record: it gives what can be read of it, at worst an empty
// name and zeros.
int ParseWorkLine(const char *line, WorkRecord *out);
