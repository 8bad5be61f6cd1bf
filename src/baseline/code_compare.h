// Two versions of a file compared by their line records alone. It fills G->line_counts.
#pragma once

#include "baseline/line_records.h"

struct DiffLine;
struct DiffListing;
struct Globals;

// By the longest common sequence; long files in segments of max_lcs_file_lines from their ends. file_name is for the -ws listing.
// Returns 1, or 0 with a message when memory is out: the counters hold what has been counted so far.
int CompareCodeLCS(const char *file_name, const DiffDataList &hist, const DiffDataList &pres, Globals *G);
// Counts a line, and adds it to listing if that is open.
void TakeDiffLine(DiffListing *listing, const DiffLine &line, Globals *G);
