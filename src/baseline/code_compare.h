// Two versions of a file compared by their line records alone. Both methods fill G->line_counts.
#pragma once

#include "baseline/line_records.h"

struct DiffLine;
struct DiffListing;
struct Globals;

// By the longest common sequence; long files in segments of max_lcs_file_lines from their ends. file_name is for the -ws listing.
// Returns 1, or 0 with a message when memory is out: the counters hold what has been counted so far.
int CompareCodeLCS(const char *file_name, const DiffDataList &hist, const DiffDataList &pres, Globals *G);
// By linear lookahead: one pass, may miss matches. Returns as CompareCodeLCS; it needs little memory.
int CompareCodeLinearLookahead(const char *file_name, const DiffDataList &hist, const DiffDataList &pres, Globals *G);

// Counts a line of a type under '+', '=' or '-'. A type that is none counts nowhere.
void diffMetric(char operation, char type, Globals *G);
// Counts a line, and adds it to listing if that is open.
void TakeDiffLine(DiffListing *listing, const DiffLine &line, Globals *G);
// Tells that a comparison is given up: bytes were asked for and aren't there.
void ComparisonMemoryError(const char *file_name, double bytes, Globals *G);
