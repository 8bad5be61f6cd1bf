// The CSV table of functions: a line per function, and behind the last one of a file the totals, averages, maxima and minima of all
// columns. With function points a column of lines holds both values: "12/0.1".
#include "report/file_reports.h"

#include <cmath>

#include "report/figures.h"
#include "report/lines.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

static Summary statistics;

// Only in a run that has file lines too.
static void CSV_LineHeader(FILE *stream, const Globals *G) {
    if (!G->csv_file_lines) {
        return;
    }
    fputs(G->function_points ? "Type, Name, Parameters, , , LOC/FP, eLOC/FP, lLOC/FP, Comments, Blanks, Lines, Comment/eLOC, "
                               "Classes, Functions, Parameters, Returns, InterComp, CycloComp, Total Complexity, Notices\n"
                             : "Type, Name, Parameters, , , LOC, eLOC, lLOC, Comments, Blanks, Lines, Comment/eLOC, "
                               "Classes, Functions, Parameters, Returns, InterComp, CycloComp, Total Complexity, Notices\n",
          stream);
}

// The columns behind the texts: ", 10, 8, 5, 1, 0, 12, 0.12, , 1, 2, 1, 3, 1, 4, \n".
static void WriteColumns(FILE *stream, const Figures &figures, int decimals, const Globals *G) {
    static constexpr Figure kLinesPart[] = {kLoc, kEloc, kLloc, kComments, kBlanks, kLines, kCommentRate};
    static constexpr Figure kFunctionPart[] = {kFunctions, kParams, kReturns, kInterface, kCyclo, kComplexity};
    for (const Figure figure : kLinesPart) {
        const double value = figures.value[figure];
        fprintf(stream, ", %.*f", figure == kCommentRate ? 2 : decimals, value);
        if (G->function_points && figure <= kLloc) {
            // an average has the points of whole lines
            fprintf(stream, "/%-10.1f", GetFP(WholeNumber(std::ceil(value)), figure, G));
        }
    }
    fputs(", ", stream);
    for (const Figure figure : kFunctionPart) {
        fprintf(stream, ", %.*f", decimals, figures.value[figure]);
    }
    fputs(", \n", stream);
}

static void WriteStatistics(FILE *stream, const Globals *G) {
    const struct {
        const char *type, *word;
        Figures figures;
        int decimals;
    } rows[] = {{"Function", "Total", statistics.sum, 0},
                {"", "Average", AverageOf(statistics), 2},
                {"", "Maximum", statistics.maximum, 0},
                {"", "Minimum", statistics.minimum, 0}};
    if (!G->function_points) {
        fputc('\n', stream);
    }
    for (const auto &row : rows) {
        fprintf(stream, G->function_points ? "%s, %s, , ," : "%s, %s,, , ", row.type, row.word);
        WriteColumns(stream, row.figures, row.decimals, G);
    }
    statistics = {};
}

void CSV_Function_Line(FILE *stream, const char *name, char *parameters, int64_t, int loc, int eloc, int lloc, int comments,
                       int blanks, int lines, int, int functions, int params, int returns, int cyclo, int, int total, Globals *G) {
    static bool header_written;
    if (!G->csv_function_lines) {
        return;
    }
    if (!header_written) {
        CSV_LineHeader(stream, G);
        header_written = true;
    }
    if (total) {
        if (statistics.sum.value[kEntities] > 0) {
            WriteStatistics(stream, G);
        }
        return;
    }
    NodeData record{};
    record.loc = loc;
    record.eloc = eloc;
    record.lloc = lloc;
    record.comments = comments;
    record.blanks = blanks;
    record.lines = lines;
    record.params = params;
    record.returns = returns;
    record.cyclo = cyclo;
    const Figures figures = FiguresOf(record, functions);
    AddFigures(statistics, figures, false);
    for (char *p = parameters; p && *p; ++p) {
        if (*p == ',') {
            *p = ';';
        }
    }
    std::string field;
    csv_field(name, field);
    fprintf(stream, "Function, %s, %s, ,", field.c_str(), parameters ? parameters : "");
    WriteColumns(stream, figures, 0, G);
}
