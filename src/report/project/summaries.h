// Summaries over the entities of a file and of the project.
#pragma once

struct Globals;

// The functions of the file that just ended.
void ShowFileFunctionSummary(Globals *G);
// The project. The function and class passes feed the namespace records, so namespaces come last.
void ShowProjectFunctionSummary(Globals *G);
// True where the switches ask for the summary of the project's functions; elsewhere it shows nothing.
bool WantsFunctionSummary(const Globals *G);
void ShowProjectClassSummary(Globals *G);
void ShowProjectInterSummary(Globals *G);
void ShowProjectNamespaceSummary(Globals *G);
// All keyword and construct counters of the file (project 0) or the project.
void ShowVerbose(Globals *G, int project);
