// The heads of a report, and the titles of its analyses.
#pragma once

#include <cstdio>

struct Globals;

// Heads of text and HTML, CSV, and XML reports.
void ShowHeader(FILE *stream, Globals *G);
void CSV_Header(FILE *stream, Globals *G);
void XML_Header(FILE *stream, Globals *G);
// Prints the stored command line in the form of the mode.
void ShowCmdLine(FILE *stream, const Globals *G);
// One centred title for every analysis that is on.
void ShowFMCHeader(Globals *G);
