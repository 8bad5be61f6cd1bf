// The lines that files, directories, languages and the project have in common, and the sums of a file or the project.
#pragma once

#include "run/records.h"

struct Globals;

void LOCLine(int loc, int eloc, int lloc, int comments, int lines, const Globals *G);
// Averages over files, cut to whole numbers; nothing for fewer than 1 file.
void LOCFileAvg(int loc, int eloc, int lloc, int comments, int lines, int files, const Globals *G);
// Function points of three line counts of a language, only with function_points.
void FPLOCLine(LanguageGroup language, int loc, int eloc, int lloc, const Globals *G);
void FPLine(const Globals *G, double fp_loc, double fp_eloc, double fp_lloc);
// Parameters, returns and complexities, only with complexity_metrics.
void ComplexLine(int params, int returns, int cyclo, const Globals *G);
void FileMethodNotices(int functions, int notices, int eloc, const Globals *G);
// The sums of the counters in G: a file's, or the project's once SetTotal ran.
void ShowTotalSummary(Globals *G, int project, int averages);
// Function points of a line count of the current file's language; kind 0 LOC, 1 eLOC, 2 lLOC. 0 for a language without a factor.
double GetFP(int lines, int kind, const Globals *G);
// Function points of lines of a language; 0 for a factor below 1, and for no language.
FunctionPointValues PointsOf(const LineCounts &lines, LanguageGroup language, const Globals *G);
