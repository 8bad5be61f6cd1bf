// The CSV table of files: a line per file during the run, and behind the last file the totals, averages, maxima and minima of all
// columns.
#include "report/file_reports.h"

#include <algorithm>

#include "report/lines.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

// The numeric columns, in their order in a line. A column of function points has no place of its own: it stands behind a "/" in the
// column it was made from.
enum Column {
    kSize,
    kLoc,
    kEloc,
    kLloc,
    kComments,
    kBlanks,
    kLines,
    kCommentRate,
    kClasses,
    kFunctions,
    kParams,
    kReturns,
    kInterface,
    kCyclo,
    kComplexity,
    kNotices,
    kPrintedColumns,
    kFpLoc = kPrintedColumns,
    kFpEloc,
    kFpLloc,
    kColumns
};

// Doubles hold every sum of 32-bit counts exactly.
struct Row {
    double value[kColumns];
};

static struct {
    int files;
    Row sum, maximum, minimum;
} statistics;

static void AddRow(const Row &row) {
    for (int i = 0; i < kColumns; ++i) {
        const double value = row.value[i];
        const double low = std::max(value, 0.0);
        statistics.sum.value[i] += value;
        statistics.maximum.value[i] = std::max(statistics.maximum.value[i], value);
        statistics.minimum.value[i] = statistics.files == 0 ? low : std::min(statistics.minimum.value[i], low);
    }
    ++statistics.files;
}

static void CSV_LineHeader(FILE *stream, const Globals *G) {
    if (!G->csv_file_lines) {
        return;
    }
    fputs(G->function_points ? "Type, Name, , Date, Size, LOC/FP, eLOC/FP, lLOC/FP, Comments, Blanks, Lines, Comment/eLOC, "
                               "Classes, Functions, Parameters, Returns, InterComp, CycloComp, Total Complexity, Notices\n"
                             : "Type, Name, , Date, Size, LOC, eLOC, lLOC, Comments, Blanks, Lines, Comment/eLOC, "
                               "Classes, Functions, Parameters, Returns, InterComp, CycloComp, Total Complexity, Notices\n",
          stream);
}

// "File, a.c,, <date>, 120, 10, 8, ...": whole numbers except for the rate, or every column with two decimals.
static void WriteRow(FILE *stream, const char *word, const char *date, const Row &row, int decimals, const Globals *G) {
    fprintf(stream, "File, %s,, %s", word, date);
    for (int i = 0; i < kPrintedColumns; ++i) {
        fprintf(stream, ", %.*f", i == kCommentRate ? 2 : decimals, row.value[i]);
        if (G->function_points && i >= kLoc && i <= kLloc) {
            fprintf(stream, "/%-10.1f", row.value[kFpLoc + (i - kLoc)]);
        }
    }
    fputc('\n', stream);
}

static void WriteStatistics(FILE *stream, const Globals *G) {
    if (statistics.files == 0) {
        return;
    }
    Row average;
    for (int i = 0; i < kColumns; ++i) {
        average.value[i] = statistics.sum.value[i] / statistics.files;
    }
    fprintf(stream, "Files, %d\n", statistics.files);
    WriteRow(stream, "Total", "", statistics.sum, 0, G);
    WriteRow(stream, "Average", "", average, 2, G);
    WriteRow(stream, "Maximum", "", statistics.maximum, 0, G);
    WriteRow(stream, "Minimum", "", statistics.minimum, 0, G);
    statistics = {};
}

// The date in the form of the locale, as a CSV field.
static std::string DateField(int64_t date) {
    const time_t when = date;
    struct tm local;
    char text[128] = "";
    if (localtime_r(&when, &local)) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-y2k" // the locale's own choice
        strftime(text, sizeof text, "%c", &local);
#pragma GCC diagnostic pop
    }
    std::string field;
    csv_field(text, field);
    return field;
}

void CSV_File_Line(FILE *stream, const char *name, int64_t date, int64_t size, int loc, int eloc, int lloc, int comments,
                   int blanks, int lines, int classes, int functions, int params, int returns, int cyclo, int notices, int total,
                   Globals *G) {
    CSV_LineHeader(stream, G);
    if (total) {
        WriteStatistics(stream, G);
        return;
    }
    Row row{};
    row.value[kSize] = static_cast<double>(size);
    row.value[kLoc] = loc;
    row.value[kEloc] = eloc;
    row.value[kLloc] = lloc;
    row.value[kComments] = comments;
    row.value[kBlanks] = blanks;
    row.value[kLines] = lines;
    row.value[kCommentRate] = eloc < 1 ? 0.0 : static_cast<double>(comments) / eloc;
    row.value[kClasses] = classes;
    row.value[kFunctions] = functions;
    row.value[kParams] = params;
    row.value[kReturns] = returns;
    row.value[kInterface] = row.value[kParams] + row.value[kReturns];
    row.value[kCyclo] = cyclo;
    row.value[kComplexity] = row.value[kInterface] + row.value[kCyclo];
    row.value[kNotices] = notices;
    row.value[kFpLoc] = GetFP(loc, 0, G);
    row.value[kFpEloc] = GetFP(eloc, 1, G);
    row.value[kFpLloc] = GetFP(lloc, 2, G);
    AddRow(row);
    std::string field;
    csv_field(name, field);
    WriteRow(stream, field.c_str(), DateField(date).c_str(), row, 0, G);
    if (G->csv_function_lines) {
        fputc('\n', stream);
    }
}
