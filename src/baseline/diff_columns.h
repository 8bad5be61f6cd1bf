// The columns of the report on two baselines: one row each, for every table. To add one: a metric in baseline_state.h and a row
// here.
#pragma once

#include "config/report_cfg.h"
#include "report/forms.h"
#include "run/baseline_state.h"

struct Globals;

struct DiffColumn {
    ReportElement key;
    WorkMetric metric;
    const char *head;                                       // in the head of a table
    const char *label;                                      // in totals and the glossary
    const char *tag, *profile_tag, *rate_tag, *percent_tag; // in XML
    const char *meaning;
};

// clang-format off
// In the order of the report. The change in percent of eLOC, which stands behind them, has no total: diff_tables.cpp alone shows it.
inline constexpr DiffColumn kDiffColumns[kWorkColumns] = {
    // key                metric                head       label       tag                      profile_tag              rate_tag                 percent_tag
    {kElementLoc,        kWorkLoc,             "LOC",     "LOC",      "loc",                   "loc",                   "loc",                   "loc_percent",                   "Line of Source Code"},
    {kElementEloc,       kWorkEloc,            "eLOC",    "eLOC",     "eloc",                  "eloc",                  "eloc",                  "eloc_percent",                  "Effective Lines of Source Code (LOC - NonEffective LOC)"},
    {kElementLloc,       kWorkLloc,            "lLOC",    "lLOC",     "lloc",                  "lloc",                  "lloc",                  "lloc_percent",                  "Logical Lines of Source Code (Lines ending in ;)"},
    {kElementComments,   kWorkComments,        "Comment", "Comments", "comments",              "comments",              "comments",              "comment_percent",               "Lines that have comments"},
    {kElementBlanks,     kWorkBlanks,          "Blanks",  "Blanks",   "blanks",                "blanks",                "blanklines",            "blank_percent",                 "Lines that are blank or white space"},
    {kElementLines,      kWorkLines,           "Lines",   "Lines",    "lines",                 "lines",                 "lines",                 "line_percent",                  "Total Physical Lines"},
    {kElementFunctions,  kWorkFunctions,       "Fcount",  "Fcount",   "function_count",        "function_count",        "function_count",        "function_percent",              "Function Count"},
    {kElementCyclo,      kWorkCyclo,           "Cyclo",   "Cyclo",    "cyclomatic_complexity", "cyclomatic_complexity", "cyclomatic_complexity", "cyclomatic_complexity_percent", "Cyclomatic Complexity (Logical Branches)"},
    {kElementInterface,  kWorkInterface,       "Inter",   "Inter",    "interface_complexity",  "interface_complexity",  "interface_complexity",  "interface_complexity_percent",  "Interface Complexity (Parameters + Returns)"},
    {kElementComplexity, kWorkTotalComplexity, "Complex", "Complex",  "total_complexity",      "total_complexity",      "total_complexity",      "total_complexity_percent",      "Total Complexity (Cyclo + Inter)"},
    {kElementNotices,    kWorkNotices,         "Quality", "Quality",  "quality_notices",       "notices",               "quality_notices",       "quality_notice_percent",        "Number of Quanity Notices"},
};
// clang-format on

bool ColumnShown(ReportElement key, const Globals *G);
// A title ahead of a table, with its line end: in CSV without its two blanks, in HTML coloured; nothing in XML.
void DiffTitle(const char *title, const Globals *G);

// One figure of a line; in XML an element of its own, of which the form is the content.
template <class T> void DiffCell(const Forms<T> &forms, const char *tag, std::type_identity_t<T> value, const Globals *G) {
    const bool xml = OutputMode(G) == Mode::kXml;
    if (xml) {
        PrintOnly(Mode::kXml, "<%s>", tag);
    }
    Print(G, forms, value);
    if (xml) {
        PrintOnly(Mode::kXml, "</%s>\n", tag);
    }
}
