// The heads of a report, and the titles of its analyses.
#pragma once

struct Globals;

// Heads of text and HTML, CSV, and XML reports.
void ShowHeader(Globals *G);
void CSV_Header(Globals *G);
void XML_Header(Globals *G);
// Prints the stored command line in the form of the mode.
void ShowCmdLine(const Globals *G);
// One centred title for every analysis that is on.
void ShowFMCHeader(Globals *G);
