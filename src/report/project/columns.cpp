// One walk for the two-column blocks and one for the XML elements. Which rows there are is told by the summaries.
#include "report/project/columns.h"

#include <algorithm>

#include "report/forms.h"

static bool IsPoints(Figure figure) {
    return figure >= kFpLoc && figure <= kFpLloc;
}

static int Decimals(Figure figure, int decimals) {
    return IsPoints(figure) ? std::max(decimals, 1) : decimals;
}

using ColumnForms = Forms<const char *, const char *, double>;

// By the number of decimals.
static constexpr ColumnForms kLeftColumn[] = {{.text = "  %s%s  %9.0f", .html = "  <b>%s%s</b>  %9.0f"},
                                              {.text = "  %s%s  %9.1f", .html = "  <b>%s%s</b>  %9.1f"},
                                              {.text = "  %s%s  %9.2f", .html = "  <b>%s%s</b>  %9.2f"}};
static constexpr ColumnForms kRightColumn[] = {{.text = "  %s%s %10.0f\n", .html = "  <b>%s%s</b> %10.0f\n"},
                                               {.text = "  %s%s %10.1f\n", .html = "  <b>%s%s</b> %10.1f\n"},
                                               {.text = "  %s%s %10.2f\n", .html = "  <b>%s%s</b> %10.2f\n"}};

void LeftColumn(const char *prefix, const char *label, double value, int decimals, const Globals *G) {
    Print(G, kLeftColumn[decimals], prefix, label, value);
}

void RightColumn(const char *prefix, const char *label, double value, int decimals, const Globals *G) {
    Print(G, kRightColumn[decimals], prefix, label, value);
}

void ShowColumns(std::span<const ColumnRow> rows, const char *prefix, const Figures &figures, int decimals, const Globals *G) {
    for (const ColumnRow &row : rows) {
        LeftColumn(prefix, row.left, figures.value[row.left_figure], Decimals(row.left_figure, decimals), G);
        if (row.right) {
            RightColumn(prefix, row.right, figures.value[row.right_figure], Decimals(row.right_figure, decimals), G);
        } else {
            Put("\n");
        }
    }
}

void ShowSeparator() {
    Put("         ------     -----     -----     ------     ------     -----       \n");
}

struct Element {
    Figure figure;
    const char *name;
};

static constexpr Element kMembers[] = {{kFunctions, "methods"},
                                       {kPublicMethods, "public_methods"},
                                       {kProtectedMethods, "protected_methods"},
                                       {kPrivateMethods, "private_methods"},
                                       {kPublicData, "public_attributes"},
                                       {kProtectedData, "protected_attributes"},
                                       {kPrivateData, "private_attributes"}};

static constexpr Element kOfFunctions[] = {{kLoc, "loc"},
                                           {kEloc, "eloc"},
                                           {kLloc, "lloc"},
                                           {kComments, "comments"},
                                           {kBlanks, "blanks"},
                                           {kParams, "params"},
                                           {kReturns, "returns"},
                                           {kInterface, "interface_complexity"},
                                           {kCyclo, "cyclomatic_complexity"},
                                           {kComplexity, "total_complexity"},
                                           {kLines, "lines"},
                                           {kFpLoc, "function_points_loc"},
                                           {kFpEloc, "function_points_eloc"},
                                           {kFpLloc, "function_points_lloc"}};

static void ShowElement(const Element &element, const char *prefix, const Figures &figures, int decimals) {
    Put("<%s%s>%.*f</%s%s>\n", prefix, element.name, Decimals(element.figure, decimals), figures.value[element.figure], prefix,
        element.name);
}

void ShowElements(const Summary &summary, ElementSet set) {
    const struct {
        const char *prefix;
        Figures figures;
        int decimals;
        bool extreme; // of single records: no function points, no total complexity
    } blocks[] = {{"", summary.sum, 0, false},
                  {"average_", AverageOf(summary), 2, false},
                  {"max_", summary.maximum, 0, true},
                  {"min_", summary.minimum, 0, true}};
    for (const auto &block : blocks) {
        if (set >= kNamespaceElements) {
            ShowElement({kClasses, "classes"}, block.prefix, block.figures, block.decimals);
        }
        for (const Element &element : std::span(kMembers, set >= kClassElements ? std::size(kMembers) : 0)) {
            ShowElement(element, block.prefix, block.figures, block.decimals);
        }
        for (const Element &element : kOfFunctions) {
            if (!block.extreme || (!IsPoints(element.figure) && element.figure != kComplexity)) {
                ShowElement(element, block.prefix, block.figures, block.decimals);
            }
        }
    }
}
