// The project summary of all functions: their blocks, sums, averages, maxima and minima. Its pass also hands the figures of
// qualified functions to their namespaces.
#include "report/project/summaries.h"

#include "analysis/function.h"
#include "report/entity_lines.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/project/columns.h"
#include "report/project/summary_frame.h"
#include "run/globals.h"

static constexpr SummaryFrame kFrame{
    .title = "~~ Project Functional Metrics ~~",
    .xml_name = "Project Functional Metrics",
    .csv_name = "Project Functional Metrics",
    .csv_count = "Count",
    .csv_columns = "Type,Name,Params,LOC,eLOC,lLOC,Comments,Comments/eLOC,Lines,Parameters,Returns,Interface Complexity,"
                   "Cyclomatic Complexity,Functional Complexity",
    .note = {},
    .show = FunctionDataShow};

static constexpr ColumnRow kTotals[] = {
    {"Total Functions .......:", kEntities, "Total Physical Lines ..:", kLines},
    {"Total LOC .............:", kLoc, "Total Function Pts LOC :", kFpLoc},
    {"Total eLOC ............:", kEloc, "Total Function Pts eLOC:", kFpEloc},
    {"Total lLOC.............:", kLloc, "Total Function Pts lLOC:", kFpLloc},
    {"Total Cyclomatic Comp. :", kCyclo, "Total Interface Comp. .:", kInterface},
    {"Total Parameters ......:", kParams, "Total Return Points ...:", kReturns},
    {"Total Comment Lines ...:", kComments, "Total Blank Lines .....:", kBlanks},
};

static constexpr ColumnRow kAverages[] = {
    {"Physical Lines ....:", kLines, nullptr, kLines},
    {"LOC ...............:", kLoc, "eLOC ..............:", kEloc},
    {"lLOC ..............:", kLloc, "Cyclomatic Comp. ..:", kCyclo},
    {"Interface Comp. ...:", kInterface, "Parameters ........:", kParams},
    {"Return Points .....:", kReturns, "Comment Lines .....:", kComments},
};

static constexpr ColumnRow kExtremes[] = {
    {"LOC ...............:", kLoc, nullptr, kLoc},
    {"eLOC ..............:", kEloc, "lLOC ..............:", kLloc},
    {"Cyclomatic Comp. ..:", kCyclo, "Interface Comp. ...:", kInterface},
    {"Parameters ........:", kParams, "Return Points .....:", kReturns},
    {"Comment Lines .....:", kComments, "Total Lines .......:", kLines},
};

static constexpr Forms<int, int, int, int, int> kTotalLine{
    .text = "  Total: Functions  \n  LOC %-7d  eLOC %-7d  lLOC %-7d  InCmp %-7d  CycloCmp %7d\n",
    .html = "  <b>Total</b>: <b>Functions  </b>\n"
            "  <b>LOC</b> %-7d  <b>eLOC</b> %-7d  <b>lLOC</b> %-7d  <b>InCmp</b> %-7d  <b>CycloCmp</b> %7d\n\n"};

static Summary GatherFunctions(Globals *G) {
    Summary summary{};
    for (const FunctionData *record : Records<FunctionData>(G->function_list)) {
        Figures figures = FiguresOf(*record);
        AddPoints(figures, *record, G);
        AddFigures(summary, figures, false);
        Add_Func2namespace(*record, G);
    }
    return summary;
}

static void ShowPage(const Summary &summary, const Globals *G) {
    const double *const sum = summary.sum.value;
    Print(G, kTotalLine, WholeNumber(sum[kLoc]), WholeNumber(sum[kEloc]), WholeNumber(sum[kLloc]), WholeNumber(sum[kInterface]),
          WholeNumber(sum[kCyclo]));
    DashRule();
    CenteredTitle("~~ Project Functional Analysis ~~", G);
    ShowColumns(kTotals, "", summary.sum, 0, G);
    ShowSeparator();
    ShowColumns(kAverages, "Avg ", AverageOf(summary), 2, G);
    ShowSeparator();
    ShowColumns(kExtremes, "Max ", summary.maximum, 0, G);
    ShowSeparator();
    ShowColumns(kExtremes, "Min ", summary.minimum, 0, G);
}

static void TShowFunctionSummary(Globals *G) {
    const Summary summary = GatherFunctions(G);
    const double *const sum = summary.sum.value;
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml: ShowPage(summary, G); break;
    case Mode::kCsv:
        ShowCsvSummary(kFunctionColumns, summary);
        Put(",Function Pts.,%10.1f,%10.1f,%10.1f,\n", sum[kFpLoc], sum[kFpEloc], sum[kFpLloc]);
        break;
    case Mode::kXml:
        Put("<total_all_function_analysis>\n<function_count>%d</function_count>\n", G->function_list.count);
        ShowElements(summary, kFunctionElements);
        Put("</total_all_function_analysis>\n");
        break;
    }
}

bool WantsFunctionSummary(const Globals *G) {
    const int asked = G->totals_only ? G->totals_all | G->totals_functions : G->function_metrics;
    return asked && !G->function_metrics_implied;
}

void ShowProjectFunctionSummary(Globals *G) {
    if (G->function_list.count < 1 || !WantsFunctionSummary(G)) {
        return;
    }
    SettleFunctionList(G);
    OpenSummary(kFrame, &G->function_list, G);
    TShowFunctionSummary(G);
    CloseSummary(G);
}
