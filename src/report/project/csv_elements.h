// The configurable CSV report: one line of labels, one line per source file, a column for every element that its user turned on.
//
// A run that makes it prints nothing else on the report stream, so that a spreadsheet reads it as it is. A name's commas and line
// ends become blanks, as in every CSV report; a name with a quotation mark is quoted. Messages go to stderr, below the name of the
// file that they came up in.
#pragma once

#include <cstdio>

struct ElementChoice;
struct Globals;

inline constexpr int kCsvElementsReport = 2; // report_file_type of a run that makes this report

// Loads csv_report_file into the table and prints a template for such a file. Returns what LoadReportCfg returned: 0, with all
// elements on, when there is no such file.
int CreateCSVCfg(ElementChoice *table, Globals *G);
// Writes an element of the file that was just read, and a comma. With header set it writes the element's label, without a comma.
// A number that is no element writes "Invalid Report Selection" and itself. Returns 0.
int insert_csv_data(FILE *stream, int element, int header, Globals *G);

// Makes this run one that only writes this report: loads the user's choice, settles the switches, writes the labels. From here to
// EndCsvElements gTLYOUT is stderr, and takes messages only. A choice that can't be read, or is empty, ends the process.
void BeginCsvElements(Globals *G);
// The line of the file that was just read.
void ShowCsvElements(Globals *G);
// Makes the report stream gTLYOUT again.
void EndCsvElements(Globals *G);
