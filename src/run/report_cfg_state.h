// Report elements, and the tables that choose among them. They last for the whole run.
#pragma once

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

struct ReportCfgTables {
    ElementChoice report_cfg[kReportElements];     // of the report on two baselines
    ElementChoice csv_report_cfg[kReportElements]; // of the configurable CSV report
};
