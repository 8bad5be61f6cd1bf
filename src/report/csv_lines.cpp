// The CSV tables of files and of functions: a line for each during the run, and behind the last one the totals, averages, maxima
// and minima of all columns. With function points a column of lines holds both values: "12/0.1".
//
// The function lines of a file stand ahead of its own line, and have totals of their own there.
#include <algorithm>
#include <cmath>

#include "report/figures.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/lines.h"
#include "run/globals.h"

// The columns that both tables have, and those of one of them.
static constexpr Figure kLineColumns[] = {kLoc, kEloc, kLloc, kComments, kBlanks, kLines, kCommentRate};
static constexpr Figure kFunctionColumnsOfFile[] = {kFunctions, kParams, kReturns, kInterface, kCyclo, kComplexity};

static void Titles(const char *first, const Globals *G) {
    if (G->csv_file_lines) {
        Put("Type, Name, %s, %s, Comments, Blanks, Lines, Comment/eLOC, "
            "Classes, Functions, Parameters, Returns, InterComp, CycloComp, Total Complexity, Notices\n",
            first, G->function_points ? "LOC/FP, eLOC/FP, lLOC/FP" : "LOC, eLOC, lLOC");
    }
}

static void Column(Figure figure, const Figures &figures, int decimals) {
    if (figure == kCommentRate || decimals == 2) {
        PrintOnly(Mode::kCsv, ", %.2f", figures.value[figure]);
    } else {
        PrintOnly(Mode::kCsv, ", %.0f", figures.value[figure]);
    }
}

static void LineColumns(const Figures &figures, int decimals, const Globals *G) {
    for (const Figure figure : kLineColumns) {
        Column(figure, figures, decimals);
        if (G->function_points && figure <= kLloc) {
            Put("/%-10.1f", figures.value[PointsFigure(figure)]);
        }
    }
}

static void FunctionColumns(const Figures &figures, int decimals) {
    for (const Figure figure : kFunctionColumnsOfFile) {
        Column(figure, figures, decimals);
    }
}

// The rows that close a table, in their order.
struct ClosingRow {
    const char *word;
    Figures figures;
    int decimals;
};
using ClosingRows = ClosingRow[4];

static void FillClosingRows(ClosingRows &rows, const Summary &summary) {
    rows[0] = {"Total", summary.sum, 0};
    rows[1] = {"Average", AverageOf(summary), 2};
    rows[2] = {"Maximum", summary.maximum, 0};
    rows[3] = {"Minimum", summary.minimum, 0};
}

// ", 120, 10, 8, ...": what stands behind the date.
static void FileColumns(const Figures &figures, int decimals, const Globals *G) {
    Column(kBytes, figures, decimals);
    LineColumns(figures, decimals, G);
    Column(kClasses, figures, decimals);
    FunctionColumns(figures, decimals);
    Column(kFileNotices, figures, decimals);
    Put("\n");
}

// The date in the form of the locale.
static void DateText(int64_t date, std::span<char> text) {
    const time_t when = date;
    struct tm local;
    ClearText(text);
    if (localtime_r(&when, &local)) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-y2k" // the locale's own choice
        strftime(text.data(), text.size(), "%c", &local);
#pragma GCC diagnostic pop
    }
}

void CSV_File_Line(const FileData &file, Globals *G) {
    const Figures figures = FiguresOf(file, G);
    char date[128];
    DateText(file.date, date);
    AddFigures(G->csv_files, figures, false);
    Titles(", Date, Size", G);
    PrintOnly(Mode::kCsv, "File, %s,, %s", Shown{file.name}, Shown{date});
    FileColumns(figures, 0, G);
    if (G->csv_function_lines) {
        Put("\n");
    }
}

void CSV_File_Total(Globals *G) {
    Titles(", Date, Size", G);
    if (G->csv_files.sum.value[kEntities] > 0) {
        ClosingRows rows;
        FillClosingRows(rows, G->csv_files);
        Put("Files, %.0f\n", G->csv_files.sum.value[kEntities]);
        for (const ClosingRow &row : rows) {
            Put("File, %s,, ", row.word);
            FileColumns(row.figures, row.decimals, G);
        }
    }
    G->csv_files = {};
}

// ", 10, 8, 5, 1, 0, 12, 0.12, , 1, 2, 1, 3, 1, 4, \n": what stands behind the texts. The function points are those of whole lines,
// of the language in hand.
static void ColumnsOfFunction(Figures figures, int decimals, const Globals *G) {
    for (const Figure figure : {kLoc, kEloc, kLloc}) {
        figures.value[PointsFigure(figure)] = GetFP(WholeNumber(std::ceil(figures.value[figure])), figure, G);
    }
    LineColumns(figures, decimals, G);
    Put(", ");
    FunctionColumns(figures, decimals);
    Put(", \n");
}

// Once in a run, ahead of the first file's lines, even if that has no functions.
static void TitleFunctions(Globals *G) {
    if (!G->csv_functions_titled) {
        Titles("Parameters, , ", G);
        G->csv_functions_titled = 1;
    }
}

void CSV_Function_Line(const FunctionData &function, Globals *G) {
    TitleFunctions(G);
    const Figures figures = FiguresOf(function);
    AddFigures(G->csv_functions, figures, false);
    PrintOnly(Mode::kCsv, "Function, %s, %s, ,", Shown{function.name}, ShownList{function.parameters});
    ColumnsOfFunction(figures, 0, G);
}

void CSV_Function_Total(Globals *G) {
    if (!G->csv_function_lines) {
        return;
    }
    TitleFunctions(G);
    if (G->csv_functions.sum.value[kEntities] > 0) {
        ClosingRows rows;
        FillClosingRows(rows, G->csv_functions);
        const char *type = "Function";
        if (!G->function_points) {
            Put("\n");
        }
        for (const ClosingRow &row : rows) {
            Put(G->function_points ? "%s, %s, , ," : "%s, %s,, , ", type, row.word);
            ColumnsOfFunction(row.figures, row.decimals, G);
            type = "";
        }
    }
    G->csv_functions = {};
}
