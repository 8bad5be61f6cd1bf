// The tables of the report on two baselines: file table, profile by state, totals, glossary. Columns are chosen by report_cfg.
#pragma once

#include <cstdint>

#include "run/baseline_state.h"

struct Globals;
struct WorkData;

enum class DiffTable { kFiles, kProfile, kProductivity };

// The column heads of a table; below them, in text and HTML, their rule. Nothing in XML.
void DiffDataHeader(Globals *G, DiffTable kind);
// The rule of the last DiffDataHeader, with its line end; ahead of any the usual one. Nothing in CSV and XML.
void DiffDataRule(Globals *G);
// Shows one result record unless it is hidden, and adds it to the profile.
void DiffDataShow(WorkData *record, Globals *G);
// The profile of all records shown so far.
void ShowDiffProfile(Globals *G);
// One line of productivity: the totals of the differences per unit of work, 0 for a unit that isn't above 0. The caller prints
// label and end.
void DiffProfileLine(Globals *G, double unit);
// The four blocks of project totals.
void ShowDiffTotals(Globals *G);
// The glossary of -wg.
void DiffReportGlossary(Globals *G);
