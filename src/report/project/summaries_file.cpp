// The summary of the functions of the file that just ended, from the sums that their closing braces left.
#include "report/project/summaries.h"

#include <array>

#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/project/columns.h"
#include "run/globals.h"

namespace {

// One figure of the file's functions: its sum and its maximum, and what it is called.
struct FileFigure {
    const char *element, *column;          // in XML, in CSV
    const char *max_label, *average_label; // on a page
    int sum, maximum;
};

enum FileRow { kRowLoc, kRowEloc, kRowLloc, kRowComments, kRowParams, kRowReturns, kRowCyclo, kRowInterface, kRowTotal, kRows };
using FileFigures = std::array<FileFigure, kRows>;

// The largest interface complexity of one function isn't kept: its bound is the sum of the two maxima.
FileFigures FiguresOfFile(const Globals *G) {
    const int interface_sum = G->params_total + G->returns_total;
    const int interface_max = G->params_max + G->returns_max;
    // clang-format off
    return {{
        {"LOC",                   "LOC",           "Max Function LOC ......:", "Average Function LOC ..:", G->func_loc_sum,     G->func_loc_max},
        {"eLOC",                  "eLOC",          "Max Function eLOC .....:", "Average Function eLOC .:", G->func_eloc_sum,    G->func_eloc_max},
        {"lLOC",                  "lLOC",          "Max Function lLOC .....:", "Average Function lLOC .:", G->func_lloc_sum,    G->func_lloc_max},
        {"comments",              "Comments",      nullptr,                    nullptr,                    G->func_comment_sum, 0},
        {"parameters",            "Parameters",    "Max Function Parameters:", "Avg Function Parameters:", G->params_total,     G->params_max},
        {"returns",               "Returns",       "Max Function Returns ..:", "Avg Function Returns ..:", G->returns_total,    G->returns_max},
        {"cyclomatic_complexity", "Cyclo Complex", "Max Cyclomatic Complex.:", "Avg Cyclomatic Complex.:", G->cyclo_total,      G->cyclo_max},
        {"interface_complexity",  "Inter Complex", "Max Interface Complex. :", "Avg Interface Complex. :", interface_sum,       interface_max},
        {"total_complexity",      "Total Complex", "Max Total Complexity ..:", "Avg Total Complexity ..:", G->cyclo_total + interface_sum, G->intercmp_max},
    }};
    // clang-format on
}

double AverageOf(const FileFigure &figure, const Globals *G) {
    return static_cast<float>(figure.sum) / static_cast<float>(G->file_functions);
}

void ShowMaximum(const FileFigure &figure, const Globals *G) {
    LeftColumn("", figure.max_label, figure.maximum, 0, G);
    RightColumn("", figure.average_label, AverageOf(figure, G), 2, G);
}

void ShowPage(const FileFigures &figures, const FunctionPointValues &points, const Globals *G) {
    const auto total = [&](const char *label, FileRow row) { LeftColumn("", label, figures[row].sum, 0, G); };
    Put("  %s%s\n\n", kDashes, kDashes);
    CenteredTitle("~~ File Functional Summary ~~", G);
    LeftColumn("", "File Function Count....:", G->file_functions, 0, G);
    Put("\n");
    total("Total Function LOC.....:", kRowLoc);
    RightColumn("", "Total Function Pts LOC :", points.fp_loc, 1, G);
    total("Total Function eLOC....:", kRowEloc);
    RightColumn("", "Total Function Pts eLOC:", points.fp_eloc, 1, G);
    total("Total Function lLOC....:", kRowLloc);
    RightColumn("", "Total Function Pts lLOC:", points.fp_lloc, 1, G);
    total("Total Function Params .:", kRowParams);
    RightColumn("", "Total Function Return .:", figures[kRowReturns].sum, 0, G);
    total("Total Cyclo Complexity :", kRowCyclo);
    RightColumn("", "Total Function Complex.:", figures[kRowTotal].sum, 0, G);
    ShowSeparator();
    for (const FileRow row : {kRowLoc, kRowEloc, kRowLloc}) {
        ShowMaximum(figures[row], G);
    }
    ShowSeparator();
    for (const FileRow row : {kRowParams, kRowReturns, kRowInterface, kRowCyclo, kRowTotal}) {
        ShowMaximum(figures[row], G);
    }
}

void ShowXml(const FileFigures &figures, const FunctionPointValues &points, const Globals *G) {
    Put("<file_function_summary>\n<file_function_totals>\n<functions>%d</functions>\n", G->file_functions);
    for (const FileFigure &figure : figures) {
        Put("<%s>%d</%s>\n", figure.element, figure.sum, figure.element);
    }
    Put("<function_points_loc>%10.1f</function_points_loc>\n"
        "<function_points_eloc>%10.1f</function_points_eloc>\n"
        "<function_points_lloc>%10.1f</function_points_lloc>\n"
        "</file_function_totals>\n<file_function_maximums>\n",
        points.fp_loc, points.fp_eloc, points.fp_lloc);
    for (const FileFigure &figure : figures) {
        if (figure.max_label) {
            Put("<%s>%d</%s>\n", figure.element, figure.maximum, figure.element);
        }
    }
    Put("</file_function_maximums>\n<file_function_average>\n");
    for (const FileFigure &figure : figures) {
        Put("<%s>%10.2f</%s>\n", figure.element, AverageOf(figure, G), figure.element);
    }
    Put("</file_function_average>\n</file_function_summary>\n");
}

void ShowCsv(const FileFigures &figures, const FunctionPointValues &points, const Globals *G) {
    const FileFigure &last = figures.back();
    Put("File Functional Summary\nFunctions,%d\n", G->file_functions);
    for (const FileFigure &figure : figures) {
        Put("%s,%d,", figure.column, figure.sum);
    }
    Put("Func Pts(LOC),%10.1f,Func Pts(eLOC),%10.1f,Func Pts(lLOC),%10.1f\n", points.fp_loc, points.fp_eloc, points.fp_lloc);
    Put("File Functional Maximum Summary\n");
    for (const FileFigure &figure : figures) {
        if (figure.max_label) {
            Put("%s,%d%s", figure.column, figure.maximum, &figure == &last ? "\n" : ",");
        } else {
            Put(",,"); // keeps the columns below those of the sums
        }
    }
    Put("File Functional Average Summary\n");
    for (const FileFigure &figure : figures) {
        Put("%s,%10.2f%s", figure.column, AverageOf(figure, G), &figure == &last ? "\n" : ",");
    }
}

} // namespace

void ShowFileFunctionSummary(Globals *G) {
    if (G->file_functions < 1 || G->list_functions) {
        return;
    }
    const FileFigures figures = FiguresOfFile(G);
    const FunctionPointValues points{GetFP(G->func_loc_sum, 0, G), GetFP(G->func_eloc_sum, 1, G), GetFP(G->func_lloc_sum, 2, G)};
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml: ShowPage(figures, points, G); break;
    case Mode::kCsv: ShowCsv(figures, points, G); break;
    case Mode::kXml: ShowXml(figures, points, G); break;
    }
}
