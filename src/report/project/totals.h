// Project reports of sums: what -T selects, directories, languages, memory.
#pragma once

struct Globals;

// The project reports of totals mode, selected by the -T switches.
void ShowTotalReport(Globals *G);
// One block per directory of a -F list.
void ShowTotalDirSummary(Globals *G);
void ShowLanguageProfile(Globals *G);
void ShowLanguageSummary(Globals *G);
// Allocation counts; nothing when all are zero.
void ShowMemorySummary(Globals *G);
