// The estimation report: sums over all functions, and what a unit of each basis costs in LOC, eLOC and lLOC.
//
// It has two forms, HTML and plain. The plain one holds no character that XML knows, so it may stand in any document.
#include "report/project/estimation.h"

#include <cstdint>

#include "report/forms.h"
#include "report/frame.h"
#include "run/globals.h"

namespace {

struct Sums {
    int64_t functions;
    int64_t lines[3]; // LOC, eLOC, lLOC
    int64_t comments, params, returns, cyclo, interface, complexity;
};

// Bold in HTML, and what stands between it and the figure.
struct Label {
    const char *bold, *rest;
};

struct Factor {
    int64_t Sums::*divisor;
    Label labels[3]; // in the order of Sums::lines
};

// clang-format off
constexpr Factor kFactors[] = {
    {&Sums::functions,  {{"Lines of Code, LOC, per Function",                              " ...........................: "},
                         {"Effective Lines of Code, eLOC, per Function",                   " ................: "},
                         {"Logical Lines of Code, lLOC, per Function",                     " ..................: "}}},
    {&Sums::params,     {{"Lines of Code, LOC, per Function Input Parameter",              " ...........: "},
                         {"Effective Lines of Code, eLOC, per Function Input Parameter",   " : "},
                         {"Logical Lines of Code, lLOC, per Function Input Parameter",     " ..: "}}},
    {&Sums::returns,    {{"Lines of Code, LOC, per Function Return State",                 " ..............: "},
                         {"Effective Lines of Code, eLOC, per Function Return State",      " ...: "},
                         {"Logical Lines of Code, lLOC, per Function Return State",        " .....: "}}},
    {&Sums::interface,  {{"LOC per Function Interface Complexity (Parameters + Return)",   " : "},
                         {"eLOC per Function Interface Complexity (Parameters + Return)",  ": "},
                         {"lLOC per Function Interface Complexity (Parameters + Return)",  ": "}}},
    {&Sums::cyclo,      {{"LOC per Function Cyclomatic Complexity",                        " .....................: "},
                         {"eLOC per Function Cyclomatic Complexity",                       " ....................: "},
                         {"lLOC per Function Cyclomatic Complexity",                       " ....................: "}}},
    {&Sums::complexity, {{"LOC per Function Complexity (Cyclomatic+Interface Complex.)",   " : "},
                         {"eLOC per Function Complexity (Cyclomatic+Interface Complex.)",  ": "},
                         {"lLOC per Function Complexity (Cyclomatic+Interface Complex.)",  ": "}}},
};
// clang-format on

Sums Gather(const Globals *G) {
    Sums s{};
    for (const FunctionData *function : Records<FunctionData>(G->function_list)) {
        ++s.functions;
        s.lines[0] += function->loc;
        s.lines[1] += function->eloc;
        s.lines[2] += function->lloc;
        s.comments += function->comments;
        s.params += function->params;
        s.returns += function->returns;
        s.cyclo += function->cyclo;
    }
    s.interface = s.params + s.returns;
    s.complexity = s.cyclo + s.interface;
    return s;
}

void ShowTitle(const char *title, const Globals *G) {
    if (OutputMode(G) == Mode::kHtml) {
        CenteredTitle(title, G);
    } else {
        Center(title);
    }
}

void ShowLabel(const Label &label, const Globals *G) {
    Put(OutputMode(G) == Mode::kHtml ? "  <b>%s</b>%s" : "  %s%s", label.bold, label.rest);
}

// One to a line, or two.
void ShowTotal(const Label &label, int64_t sum, const char *behind, const Globals *G) {
    ShowLabel(label, G);
    Put("%10ld%s", long{sum}, behind);
}

void ShowBasis(const Sums &s, const Globals *G) {
    ShowTitle("Functional Basis", G);
    Put("\n");
    ShowTotal({"Total Function Count", " ..: "}, s.functions, "\n", G);
    ShowTotal({"Total Function LOC", " ....: "}, s.lines[0], "", G);
    ShowTotal({"Total Function eLOC", " ...: "}, s.lines[1], "\n", G);
    ShowTotal({"Total Function lLOC", " ...: "}, s.lines[2], "", G);
    ShowTotal({"Total Function Comments", ": "}, s.comments, "\n", G);
    ShowTotal({"Total Func. Parameters", " : "}, s.params, "", G);
    ShowTotal({"Total Function Returns", " : "}, s.returns, "\n", G);
    ShowTotal({"Total Cylco. Complexity", ": "}, s.cyclo, "", G);
    ShowTotal({"Total Function Complex.", ": "}, s.complexity, "\n", G);
}

void ShowFactors(const char *title, int kind, const Sums &s, const Globals *G) {
    Put("\n");
    ShowTitle(title, G);
    Put("\n");
    for (const Factor &factor : kFactors) {
        const int64_t divisor = s.*factor.divisor;
        const float ratio = divisor < 1 ? 0.0F : static_cast<float>(s.lines[kind]) / static_cast<float>(divisor);
        ShowLabel(factor.labels[kind], G);
        Put("%10.2f\n", static_cast<double>(ratio));
    }
}

} // namespace

void ShowEstimation(Globals *G) {
    if (G->function_list.count < 1) {
        return;
    }
    const Sums sums = Gather(G);
    DashRule();
    ShowTitle("~~ Estimation Analysis ~~", G);
    ShowBasis(sums, G);
    ShowFactors("LOC Estimation Factors", 0, sums, G);
    ShowFactors("eLOC Estimation Factors", 1, sums, G);
    ShowFactors("lLOC Estimation Factors", 2, sums, G);
}
