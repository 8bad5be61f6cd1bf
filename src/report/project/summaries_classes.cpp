// The project summaries of classes and structs, of interfaces, and of namespaces and packages. They have the same lines but for a
// few. The passes over classes and interfaces also hand their figures to their namespaces, so that namespaces come last.
#include "report/project/summaries.h"

#include <array>

#include "analysis/namespaces.h"
#include "report/entity_lines.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/project/columns.h"
#include "report/project/summary_frame.h"
#include "run/encode.h"
#include "run/globals.h"

static constexpr const char *kClassHeader =
    "Type,Name,LOC,eLOC,lLOC,Comments,Comments/eLOC,Lines,Parameters,Returns,Interface Complexity,Cyclomatic Complexity,"
    "Functional Complexity,Methods,Public Methods,Protected Methods,Private Methods,Attributes,Public Attributes,"
    "Protected Attributes,Private Attributes";

static constexpr const char *kNamespaceHeader =
    "Type,Name,LOC,eLOC,lLOC,Comments,Comments/eLOC,Lines,Parameters,Returns,Interface Complexity,Cyclomatic Complexity,"
    "Functional Complexity,Classes,Functions,Public Methods,Protected Methods,Private Methods,Attributes,Public Attributes,"
    "Protected Attributes,Private Attributes";

// What a summary calls its entities.
struct Kind {
    const char *label;                      // in the total line
    const char *title;                      // of the analysis
    const char *analysis, *count;           // XML elements
    const char *total_label, *nested_label; // of the first rows
};

static constexpr Kind kClassKind{"Classes/Structs",
                                 "~~ Project Class/Struct Analysis ~~",
                                 "total_all_class_struct_analysis",
                                 "class_struct_count",
                                 "Total Classes/Structs .:",
                                 "Total Nested Classes ..:"};

static constexpr Kind kInterfaceKind{"Interfaces",      "~~ Project Interface Analysis ~~", "total_all_interface_analysis",
                                     "interface_count", "Total Interfaces ......:",         "Total Nested Interfaces:"};

static constexpr const char *kMethods = "Total Methods .........:";

static constexpr ColumnRow kTotals[] = {
    {"Total Public Methods ..:", kPublicMethods, "Total Public Attributes:", kPublicData},
    {"Total Protected Methods:", kProtectedMethods, "Total Protected Attrib.:", kProtectedData},
    {"Total Private Methods .:", kPrivateMethods, "Total Private Attrib. .:", kPrivateData},
    {"Total Physical Lines ..:", kLines, "Total LOC .............:", kLoc},
    {"Total eLOC ............:", kEloc, "Total lLOC ............:", kLloc},
    {"Total Cyclomatic Comp. :", kCyclo, "Total Interface Comp. .:", kInterface},
    {"Total Parameters ......:", kParams, "Total Return Points ...:", kReturns},
    {"Total Comment Lines ...:", kComments, "Total Blank Lines .....:", kBlanks},
};

// Averages, maxima and minima.
using Shares = std::array<ColumnRow, 8>;
static constexpr Shares kClassShares{{
    {"Physical Lines ....:", kLines, "Methods ...........:", kFunctions},
    {"Public Methods ....:", kPublicMethods, "Public Attributes .:", kPublicData},
    {"Protected Methods .:", kProtectedMethods, "Protected Attrib. .:", kProtectedData},
    {"Private Methods ...:", kPrivateMethods, "Private Attributes :", kPrivateData},
    {"LOC ...............:", kLoc, "eLOC ..............:", kEloc},
    {"lLOC ..............:", kLloc, "Cyclomatic Comp. ..:", kCyclo},
    {"Interface Comp. ...:", kInterface, "Parameters ........:", kParams},
    {"Return Points .....:", kReturns, "Comment Lines .....:", kComments},
}};

static void ShowTotalLines(const Summary &summary, const Globals *G) {
    const auto sum = [&](Figure figure) { return WholeNumber(summary.sum.value[figure]); };
    DataLine(sum(kPublicData), sum(kProtectedData), sum(kPrivateData), G);
    MethodLine(sum(kPublicMethods), sum(kProtectedMethods), sum(kPrivateMethods), G);
    ComplexLine(sum(kParams), sum(kReturns), sum(kCyclo), G);
    LOCLine(sum(kLoc), sum(kEloc), sum(kLloc), sum(kComments), sum(kLines), G);
    FPLine(G, summary.sum.value[kFpLoc], summary.sum.value[kFpEloc], summary.sum.value[kFpLloc]);
}

static void ShowShares(const Shares &rows, const Shares &minima, const Summary &summary, const Globals *G) {
    ShowSeparator();
    ShowColumns(rows, "Avg ", AverageOf(summary), 2, G);
    ShowSeparator();
    ShowColumns(rows, "Max ", summary.maximum, 0, G);
    ShowSeparator();
    ShowColumns(minima, "Min ", summary.minimum, 0, G);
}

static void ShowClassPage(const Kind &kind, const Summary &summary, const Globals *G) {
    const bool nested = summary.sum.value[kNested] > 0;
    const char *const parent = nested ? "Parent " : "";
    if (OutputMode(G) == Mode::kHtml) {
        Put("  <b>Total</b>: <b>All %s%s</b>\n", parent, kind.label);
    } else {
        Put("  Total: All %s%s\n", parent, kind.label);
    }
    ShowTotalLines(summary, G);
    DashRule();
    CenteredTitle(kind.title, G);
    LeftColumn("", kind.total_label, summary.sum.value[kEntities], 0, G);
    if (nested) { // takes the place of the methods, which then stand on a line of their own
        RightColumn("", kind.nested_label, summary.sum.value[kNested], 0, G);
    }
    RightColumn("", kMethods, summary.sum.value[kFunctions], 0, G);
    ShowColumns(kTotals, "", summary.sum, 0, G);
    ShowShares(kClassShares, kClassShares, summary, G);
}

static void ShowClassXml(const Kind &kind, const Summary &summary, const Globals *G) {
    const int nested = WholeNumber(summary.sum.value[kNested]);
    const char *const parent = nested > 0 ? "parent_" : "";
    std::string tag;
    xml_tag_encode(kind.label, tag);
    Put("<total_all_%s%s>\n", parent, tag.c_str());
    ShowTotalLines(summary, G);
    Put("</total_all_%s%s>\n", parent, tag.c_str());
    Put("<%s>\n<%s>%d</%s>\n", kind.analysis, kind.count, WholeNumber(summary.sum.value[kEntities]), kind.count);
    Put("<nested_count>%d</nested_count>\n", nested);
    ShowElements(summary, kClassElements);
    Put("</%s>\n", kind.analysis);
}

static void TShowClassInterSummary(const Llist &list, const Kind &kind, Globals *G) {
    Summary summary{};
    for (const ClassData *record : Records<ClassData>(list)) {
        const bool nested = record->nesting != 0;
        Figures figures = FiguresOf(*record, MethodsOrFunctions(*record));
        AddPoints(figures, *record, G);
        AddFigures(summary, figures, nested);
        Add_Class2namespace(record, nested, G);
    }
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml: ShowClassPage(kind, summary, G); break;
    case Mode::kCsv: ShowCsvSummary(kClassColumns, summary); break;
    case Mode::kXml: ShowClassXml(kind, summary, G); break;
    }
}

static void ShowNamespacePage(const Summary &summary, const Globals *G) {
    static constexpr ColumnRow kFirstTotals[] = {
        {"Total Namespace/Package:", kEntities, nullptr, kEntities},
        {"Total Classes/Structs .:", kClasses, kMethods, kFunctions},
    };
    Shares rows = kClassShares;
    rows[0].left = "Classes/Structs ...:";
    rows[0].left_figure = kClasses;
    Shares minima = rows;
    minima[2].right = "Protected Atrib. ..:"; // with one t, in the minima only
    if (OutputMode(G) == Mode::kHtml) {
        Put("  <b>Total</b>: <b>All Namespaces/Packages</b>\n");
    } else {
        Put("  Total: All Namespaces/Packages\n");
    }
    ShowTotalLines(summary, G);
    DashRule();
    CenteredTitle("~~ Project Namespace/Package Analysis ~~", G);
    ShowColumns(kFirstTotals, "", summary.sum, 0, G);
    ShowColumns(kTotals, "", summary.sum, 0, G);
    ShowShares(rows, minima, summary, G);
}

static void ShowNamespaceXml(const Summary &summary, const Globals *G) {
    Put("<total_all_namespace_package>\n");
    ShowTotalLines(summary, G);
    Put("</total_all_namespace_package>\n"
        "<total_all_namespace_package_analysis>\n"
        "<namespace_package_count>%d</namespace_package_count>\n",
        WholeNumber(summary.sum.value[kEntities]));
    ShowElements(summary, kNamespaceElements);
    Put("</total_all_namespace_package_analysis>\n");
}

static void TShowNamespaceSummary(Globals *G) {
    Summary summary{};
    for (const ClassData *record : Records<ClassData>(G->namespace_list)) {
        Figures figures = FiguresOf(*record, NamespaceFunctions(*record, G));
        AddPoints(figures, *record, G);
        AddFigures(summary, figures, false);
    }
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml: ShowNamespacePage(summary, G); break;
    case Mode::kCsv: ShowCsvSummary(kNamespaceColumns, summary); break;
    case Mode::kXml: ShowNamespaceXml(summary, G); break;
    }
}

void ShowProjectClassSummary(Globals *G) {
    if (G->class_list.count < 1) {
        return;
    }
    SummaryFrame frame{.title = "~~ Project Class/Struct Metrics ~~",
                       .xml_name = "Project Class or Struct Metrics",
                       .csv_name = "Project Class Metrics",
                       .csv_count = "Classes",
                       .csv_columns = kClassHeader,
                       .note = {},
                       .show = ClassDataShow};
    if (G->class_nested_flag) {
        frame.note[0] = "Parent LOC Metrics Include Nested LOC Metrics";
        frame.note[1] = "Class/Struct Metrics Include Nested Class/Struct Metrics\n";
        frame.note[2] = "<note>Parent LOC Metrics Include Nested LOC Metrics</note>\n";
    }
    OpenSummary(frame, &G->class_list, G);
    TShowClassInterSummary(G->class_list, kClassKind, G);
    CloseSummary(G);
}

void ShowProjectInterSummary(Globals *G) {
    static constexpr SummaryFrame kFrame{.title = "~~ Project Interface Metrics ~~",
                                         .xml_name = "Project Interface Metrics",
                                         .csv_name = "Project Interface Metrics",
                                         .csv_count = "Count",
                                         .csv_columns = kClassHeader,
                                         .note = {},
                                         .show = InterDataShow};
    if (G->interface_list.count < 1) {
        return;
    }
    OpenSummary(kFrame, &G->interface_list, G);
    TShowClassInterSummary(G->interface_list, kInterfaceKind, G);
    CloseSummary(G);
}

void ShowProjectNamespaceSummary(Globals *G) {
    static constexpr SummaryFrame kFrame{.title = "~~ Project Namespace/Package Metrics ~~",
                                         .xml_name = "Project Namespace-Package Metrics",
                                         .csv_name = "Project Namespace/Package Metrics",
                                         .csv_count = "Count",
                                         .csv_columns = kNamespaceHeader,
                                         .note = {},
                                         .show = NamespaceDataShow};
    if (G->namespace_list.count < 1) {
        return;
    }
    OpenSummary(kFrame, &G->namespace_list, G);
    TShowNamespaceSummary(G);
    CloseSummary(G);
}
