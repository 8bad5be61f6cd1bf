// The figures of an entity, and the sums, maxima and minima over a list of entities: shared by the blocks of single records and by
// the summaries.
#pragma once

#include <span>

#include "run/report_state.h"

struct FileData;
struct Globals;
struct ClassData;
struct FunctionData;
struct NodeData;

// The places in a Figures. LOC, eLOC and lLOC come first: they are the kinds of GetFP too.
enum Figure {
    kLoc,
    kEloc,
    kLloc,
    kComments,
    kBlanks,
    kLines,
    kCommentRate, // comments per eLOC
    kParams,
    kReturns,
    kInterface, // parameters and returns
    kCyclo,
    kComplexity, // interface and cyclomatic
    kFpLoc,      // function points, from here to kFpLloc
    kFpEloc,
    kFpLloc,
    kFunctions, // of a function 1; of a class or namespace its methods
    kPublicMethods,
    kProtectedMethods,
    kPrivateMethods,
    kAttributes,
    kPublicData,
    kProtectedData,
    kPrivateData,
    kClasses,     // of a namespace or a file
    kBytes,       // of a file
    kFileNotices, // of a file
    kEntities,    // records of the list
    kNested,      // nested ones among them
    kFigures
};
static_assert(kFigures == kFigureRoom);

// The columns of a CSV row, behind the word and the name.
struct CsvColumns {
    const char *word;
    bool has_parameters; // a second text behind the name
    std::span<const Figure> columns;
};
extern const CsvColumns kFunctionColumns, kClassColumns, kNamespaceColumns;

// The sum of the three method counts; the same or the count of functions, if that is higher; and what a namespace shows of the two.
int MethodSum(const ClassData &record);
int MethodsOrFunctions(const ClassData &record);
int NamespaceFunctions(const ClassData &record, const Globals *G);
// The figures of a record; function points stay 0. functions is the kFunctions of a class; a function's is 1.
Figures FiguresOf(const FunctionData &record);
Figures FiguresOf(const ClassData &record, int functions);
// Adds the function points of the record's lines, by the language of its file.
void AddPoints(Figures &figures, const NodeData &record, const Globals *G);
// The figures of a file that has just been read: its classes and its notices are those of the counters in G.
Figures FiguresOf(const FileData &file, const Globals *G);
// Takes a record into the summary: a nested one into everything but the sums, since its parent's figures hold it already.
void AddFigures(Summary &summary, const Figures &figures, bool nested);
// The sums shared out over all records; 0 for an empty list.
Figures AverageOf(const Summary &summary);
// A figure for the line writers, cut to the range of an int.
int WholeNumber(double value);

// The function points of LOC, eLOC or lLOC.
constexpr Figure PointsFigure(Figure lines) {
    return static_cast<Figure>(kFpLoc + (lines - kLoc));
}

// "Class,name,10,8,...": whole numbers except for the rate, or every column with two decimals.
void ShowCsvRow(const CsvColumns &row, const char *name, const char *parameters, const Figures &figures, int decimals);
// The rows of the sums, averages, maxima and minima.
void ShowCsvSummary(const CsvColumns &row, const Summary &summary);
