// Reports on one file, and the table of all files.
#pragma once

#include <cstdint>
#include <cstdio>

struct FileData;
struct Globals;

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
// One CSV line of a file, added to the statistics; with total the closing statistics instead.
void CSV_File_Line(FILE *stream, const char *name, int64_t date, int64_t size, int loc, int eloc, int lloc, int comments,
                   int blanks, int lines, int classes, int functions, int params, int returns, int cyclo, int notices, int total,
                   Globals *G);
// One CSV line of a function, added to the statistics; with total the closing statistics instead. Nothing unless function lines are
// wanted. The commas of parameters become ";" in place.
void CSV_Function_Line(FILE *stream, const char *name, char *parameters, int64_t size, int loc, int eloc, int lloc, int comments,
                       int blanks, int lines, int classes, int functions, int params, int returns, int cyclo, int notices,
                       int total, Globals *G);
