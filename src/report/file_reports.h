// Reports on one file, and the table of all files.
#pragma once

#include <cstdint>

struct FileData;
struct Globals;
struct FunctionData;

// The name line of a file. compact is the short form of totals reports; detail leaves out the rule behind it. Nothing for a null
// name.
void ShowFileLine(const char *name, int64_t date, int64_t size, int compact, int detail, Globals *G);
// "End of File" lines behind a file's reports.
void ShowFileEnd(const char *name, Globals *G);
// The name alone, for -Rl and debug.
void FileShow(void *file, Globals *G);
// The block of one file; null closes the table with totals and averages.
void FileDetailShow(const FileData *file, Globals *G);
// The closing report of a run: file blocks with -Td, and the file counts.
void ShowFileSummary(Globals *G);
// The CSV line of a file that has just been read, added to the statistics, and behind the last one those statistics.
void CSV_File_Line(const FileData &file, Globals *G);
void CSV_File_Total(Globals *G);
// The CSV line of a function, added to the statistics. Behind the last one of a file those statistics: nothing unless function
// lines are wanted.
void CSV_Function_Line(const FunctionData &function, Globals *G);
void CSV_Function_Total(Globals *G);
