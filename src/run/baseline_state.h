// What a baseline run holds: the files that it writes, and the comparison of two baselines. All of it lasts for the run.
#pragma once

#include <cstdint>
#include <cstdio>

#include "run/directory_replacement.h"
#include "run/llist.h"
#include "run/name_index.h"
#include "run/replacement.h"
#include "run/text.h"

struct Globals;

// The metrics that a baseline keeps of a source file, in the order of the report's columns; the size in bytes has no column.
enum WorkMetric {
    kWorkLoc,
    kWorkEloc,
    kWorkLloc,
    kWorkComments,
    kWorkBlanks,
    kWorkLines,
    kWorkFunctions,
    kWorkCyclo,
    kWorkInterface,       // parameters and return points
    kWorkTotalComplexity, // cyclo and interface; not stored
    kWorkNotices,
    kWorkColumns,
    kWorkSize = kWorkColumns, // bytes
    kWorkMetrics
};

struct WorkMetrics {
    int64_t of[kWorkMetrics];
};

// A project's sums over one baseline, or over the differences.
struct WorkTotals : WorkMetrics {
    int files;
};

// Counters of a line comparison, one row per operation. A line of code with a comment counts in its code column and in kLineC.
enum LineOperation { kLineMod, kLineEq, kLineRm, kLineOperations }; // added in the newer file, in both, removed from the older one
enum LineKind { kLineL, kLineN, kLineG, kLineC, kLineB, kLineKinds };

// Takes a line of source and the letter of its type.
using RecordLine = void(char letter, const char *text, Globals *G);

// The files of a baseline that is being made.
struct BaselineFiles {
    FILE *work_file;                  // null unless this run makes a baseline
    FILE *diff_data_file;             // line records of the current source file; null unless -wd
    LineText diff_data_path;          // directory of the line records
    LineText diff_data_rel_path;      // the same as the work file's records name it: without the work file's own directory
    LineText diff_file_old;           // line records of the current source file
    LineText diff_file_rel;           // the same below diff_data_rel_path
    RecordLine *record_line;          // takes the lines of the current source file; null where they aren't recorded
    int diff_file_error;              // why its line records can't be written: an errno, 0 while all is well
    int diff_head_shown;              // the heading of -wv
    int baseline_failed;              // not all of the baseline could be written, or memory was out: the earlier one stays
    int baseline_lacking;             // there is no baseline, or a part of it is missing: the run ends with status 1
    Llist diff_names;                 // NameData: names of line records, each with the last number that was put behind it
    NameIndex diff_names_taken;       // of diff_names
    Replacement work_beside;          // the work file, until the run is over
    DirectoryReplacement diff_beside; // the directory of the line records, until the run is over
};

// Sums over the result records of one state.
struct DiffProfile {
    int files;
    float diff_pct;
    int64_t of[kWorkColumns];
};

inline constexpr int kDiffStates = 8; // labels of states; the states themselves: baseline/work_file.h

// Two baselines, and what came out of comparing them.
struct BaselineRun {
    Llist old_work_list, new_work_list;           // WorkData per source file, by name
    Llist work_result_list;                       // WorkData per difference
    int blanks_recorded;                          // both hold the records of blank lines
    int line_counts[kLineOperations][kLineKinds]; // of the last line comparison
    WorkTotals newer_totals, older_totals, diff_totals;
    DiffProfile diff_profile[kDiffStates]; // by state: all records that were shown or passed over
    int diff_cfg_shown;                    // the head names the report's configuration
    int diff_header;                       // width of the rule under the last table's head; 0 before the first
};
