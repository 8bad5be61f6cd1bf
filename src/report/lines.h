// The lines that files, directories, languages and the project have in common, and the sums of a file or the project.
#pragma once

struct Globals;

void LOCLine(int loc, int eloc, int lloc, int comments, int lines, const Globals *G);
// Averages over files, cut to whole numbers; nothing for fewer than 1 file.
void LOCFileAvg(int loc, int eloc, int lloc, int comments, int lines, int files, const Globals *G);
// Function points of three line counts, only with function_points. A file name first selects the language.
void FPLOCLine(const char *file, int loc, int eloc, int lloc, Globals *G);
void FPLine(const Globals *G, double fp_loc, double fp_eloc, double fp_lloc);
// Parameters, returns and complexities, only with complexity_metrics.
void ComplexLine(int params, int returns, int cyclo, const Globals *G);
void FileMethodNotices(int functions, int notices, int eloc, const Globals *G);
// The sums of the counters in G: a file's, or the project's once SetTotal ran.
void ShowTotalSummary(Globals *G, int project, int averages);
// Function points of a line count of the current file's language; kind 0 LOC, 1 eLOC, 2 lLOC. 0 for a language without a factor.
double GetFP(int lines, int kind, const Globals *G);
// Function points of a line count, with factor lines to a function point; 0 for a factor below 1.
double PointsOf(int lines, int factor);
