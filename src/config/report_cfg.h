// Report elements: a vocabulary of file metrics by key, and the tables that choose among them. The report on two baselines and the
// configurable CSV report each have a table of their own; both read it from files of one form.
#pragma once

#include <cstdio>

struct Globals;

// Numbers of the elements that the program itself asks for, in the order of RepCfgStr.
enum ReportElement {
    kElementUnknown = 0,
    kElementFileName = 1,
    kElementLoc = 2,
    kElementEloc = 3,
    kElementLloc = 4,
    kElementBlanks = 5,
    kElementComments = 6,
    kElementLines = 8,
    kElementFunctions = 40,
    kElementSemicolons = 47,
    kElementNotices = 56,
    kElementCyclo = 76,
    kElementInterface = 77,
    kElementComplexity = 78,
    kElementElocPercent = 79,
    kReportElements = 80
};

struct ElementChoice {
    int on;   // the element is shown
    int plus; // a removed file adds to the total when 1, subtracts when 0
};

// Keys by number; RepElemStr holds the column labels. Number 0 is no element.
extern const char *const RepCfgStr[kReportElements];
extern const char *const RepElemStr[kReportElements];

struct ReportCfgTables {
    ElementChoice report_cfg[kReportElements];     // of the report on two baselines
    ElementChoice csv_report_cfg[kReportElements]; // of the configurable CSV report
};

// Reads a table from an open file; elements that it doesn't mention are off. order holds kReportElements numbers and gets those of
// the elements that it does mention, on or off, in the order of their first lines. Returns how many there are.
int ReadReportCfg(FILE *file, ElementChoice *table, int *order);
// Reads a table from the file at path, as ReadReportCfg does. Returns 1. Without a file that can be read everything is on
// and 0 is returned; one that isn't there is made by MakeDiffCfgFile.
int LoadReportCfg(const char *path, ElementChoice *table, Globals *G);
// Writes the file that a user edits, in place of what stands there; does nothing when it can't.
void MakeDiffCfgFile(const char *path, Globals *G);
