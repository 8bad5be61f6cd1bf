// Gathers the figures of entities and writes them as CSV rows. What they look like in the other modes is not here: see
// entity_lines.h and columns.h.
#include "report/figures.h"

#include <algorithm>
#include <climits>

#include "report/forms.h"
#include "report/lines.h"
#include "run/globals.h"

static constexpr Figure kOfFunctions[] = {kLoc,    kEloc,    kLloc,      kComments, kCommentRate, kLines,
                                          kParams, kReturns, kInterface, kCyclo,    kComplexity};

static constexpr Figure kOfClasses[] = {kLoc,        kEloc,       kLloc,          kComments,         kCommentRate,
                                        kLines,      kParams,     kReturns,       kInterface,        kCyclo,
                                        kComplexity, kFunctions,  kPublicMethods, kProtectedMethods, kPrivateMethods,
                                        kAttributes, kPublicData, kProtectedData, kPrivateData};

static constexpr Figure kOfNamespaces[] = {
    kLoc,        kEloc,       kLloc,          kComments,   kCommentRate, kLines,         kParams,           kReturns,
    kInterface,  kCyclo,      kComplexity,    kClasses,    kFunctions,   kPublicMethods, kProtectedMethods, kPrivateMethods,
    kAttributes, kPublicData, kProtectedData, kPrivateData};

const CsvColumns kFunctionColumns{"Function", true, kOfFunctions};
const CsvColumns kClassColumns{"Class", false, kOfClasses};
const CsvColumns kNamespaceColumns{"Namespace/Package", false, kOfNamespaces};

int MethodSum(const ClassData &record) {
    return record.public_methods + record.protected_methods + record.private_methods;
}

int MethodsOrFunctions(const ClassData &record) {
    return std::max(MethodSum(record), record.functions);
}

int NamespaceFunctions(const ClassData &record, const Globals *G) {
    return G->class_lang_seen ? MethodsOrFunctions(record) : MethodSum(record);
}

static Figures FiguresOf(const LineCounts &lines, double params, int returns, int cyclo) {
    Figures figures{};
    double *const value = figures.value;
    value[kLoc] = lines.loc;
    value[kEloc] = lines.eloc;
    value[kLloc] = lines.lloc;
    value[kComments] = lines.comments;
    value[kBlanks] = lines.blanks;
    value[kLines] = lines.lines;
    value[kCommentRate] = lines.eloc > 0 ? static_cast<double>(lines.comments) / lines.eloc : 0.0;
    value[kParams] = params;
    value[kReturns] = returns;
    value[kInterface] = params + returns;
    value[kCyclo] = cyclo;
    value[kComplexity] = value[kInterface] + cyclo;
    return figures;
}

Figures FiguresOf(const FunctionData &record) {
    Figures figures = FiguresOf(record, static_cast<double>(record.params), record.returns, record.cyclo);
    figures.value[kFunctions] = 1;
    return figures;
}

Figures FiguresOf(const ClassData &record, int functions) {
    Figures figures = FiguresOf(record, static_cast<double>(record.params), record.returns, record.cyclo);
    double *const value = figures.value;
    value[kFunctions] = functions;
    value[kPublicMethods] = record.public_methods;
    value[kProtectedMethods] = record.protected_methods;
    value[kPrivateMethods] = record.private_methods;
    value[kPublicData] = record.public_data;
    value[kProtectedData] = record.protected_data;
    value[kPrivateData] = record.private_data;
    value[kAttributes] = value[kPublicData] + value[kProtectedData] + value[kPrivateData];
    value[kClasses] = record.nesting;
    return figures;
}

void AddPoints(Figures &figures, const NodeData &record, const Globals *G) {
    const FunctionPointValues points = PointsOf(record, record.language, G);
    figures.value[kFpLoc] = points.fp_loc;
    figures.value[kFpEloc] = points.fp_eloc;
    figures.value[kFpLloc] = points.fp_lloc;
}

Figures FiguresOf(const FileData &file, const Globals *G) {
    Figures figures = FiguresOf(file, file.params, file.returns, file.cyclo);
    double *const value = figures.value;
    value[kFunctions] = file.functions;
    value[kFpLoc] = file.fp_loc;
    value[kFpEloc] = file.fp_eloc;
    value[kFpLloc] = file.fp_lloc;
    value[kClasses] = G->class_count;
    value[kBytes] = static_cast<double>(file.size);
    value[kFileNotices] = G->notice_count;
    return figures;
}

void AddFigures(Summary &summary, const Figures &figures, bool nested) {
    const bool first = summary.sum.value[kEntities] == 0.0;
    for (int i = 0; i < kEntities; ++i) {
        const double value = figures.value[i];
        const double low = std::max(value, 0.0);
        if (!nested) {
            summary.sum.value[i] += value;
        }
        summary.maximum.value[i] = std::max(summary.maximum.value[i], value);
        summary.minimum.value[i] = first ? low : std::min(summary.minimum.value[i], low);
    }
    summary.sum.value[kEntities] += 1;
    summary.sum.value[kNested] += nested;
}

Figures AverageOf(const Summary &summary) {
    Figures average{};
    const double count = summary.sum.value[kEntities];
    for (int i = 0; i < kEntities && count > 0; ++i) {
        average.value[i] = summary.sum.value[i] / count;
    }
    return average;
}

int WholeNumber(double value) {
    return static_cast<int>(std::clamp<double>(value, INT_MIN, INT_MAX));
}

void ShowCsvRow(const CsvColumns &row, const char *name, const char *parameters, const Figures &figures, int decimals) {
    PrintOnly(Mode::kCsv, "%s,%s", row.word, Shown{name});
    if (row.has_parameters) {
        PrintOnly(Mode::kCsv, ",%s", Shown{parameters});
    }
    for (const Figure figure : row.columns) {
        Put(",%.*f", figure == kCommentRate ? 2 : decimals, figures.value[figure]);
    }
    Put("\n");
}

void ShowCsvSummary(const CsvColumns &row, const Summary &summary) {
    ShowCsvRow(row, "Total", "", summary.sum, 0);
    ShowCsvRow(row, "Average", "", AverageOf(summary), 2);
    ShowCsvRow(row, "Maximum", "", summary.maximum, 0);
    ShowCsvRow(row, "Minimum", "", summary.minimum, 0);
}
