// The lines that only functions, classes and namespaces have. Those that files have too are in lines.cpp.
#include "report/entity_lines.h"

#include "report/forms.h"
#include "run/branches.h"
#include "run/globals.h"

constexpr Forms<int, int, int, int> kDataLine{
    .text = "  Attributes   Publ %-7d  Prot %-7d  Private %-7d  Total %8d\n",
    .html = "  <b>Attributes</b>   <b>Publ</b> %-7d  <b>Prot</b> %-7d  <b>Private</b> %-7d  <b>Total</b> %8d\n",
    .csv = "Attributes,Publ,%7d,Prot,%7d,Private,%7d,Total,%8d\n",
    .xml = "<attributes>\n<public>%d</public>\n<protected>%d</protected>\n<private>%d</private>\n<total>%d</total>\n"
           "</attributes>\n"};

constexpr Forms<int, int, int, int> kMethodLine{
    .text = "  Methods      Publ %-7d  Prot %-7d  Private %-7d  Total %8d\n",
    .html = "  <b>Methods</b>      <b>Publ</b> %-7d  <b>Prot</b> %-7d  <b>Private</b> %-7d  <b>Total</b> %8d\n",
    .csv = "Methods,Publ,%d,Prot,%d,Private,%d,Total,%d\n",
    .xml = "<methods>\n<public>%d</public>\n<protected>%d</protected>\n<private>%d</private>\n<totals>%d</totals>\n"
           "</methods>\n"};

constexpr Forms<int, int, double> kClassFuncLine{
    .text = "  Total Classses %-10d  Total Functions %-6d  Avg Func/Class %6.2f\n",
    .html = "  <b>Total Classses</b> %-10d  <b>Total Functions</b> %-6d  <b>Avg Func/Class</b> %6.2f\n",
    .csv = "Total Classses,%d,Total Functions,%d,Avg Func/Class,%6.2f\n",
    .xml = "<total_classes>%d</total_classes>\n<total_functions>%d</total_functions>\n"
           "<average_methods_per_class>%.2f</average_methods_per_class>\n"};

void ComplexDetails(int cyclo, const Globals *G) {
    const Mode mode = OutputMode(G);
    if (!G->complexity_metrics || !G->complexity_detail || cyclo < 2 || mode == Mode::kCsv) {
        return;
    }
    if (mode == Mode::kXml) {
        Put(" ");
        return;
    }
    Put(mode == Mode::kHtml ? "    <B>Cyclomatic Complexity Vg Detail</B>\n" : "    Cyclomatic Complexity Vg Detail\n");
    Put("      Function Base           : 1\n");
    for (const Branch &branch : kBranches) {
        if (G->*branch.included && G->*branch.counter > 0) {
            PrintOnly(mode, "%s%-6d\n", Shown{branch.label}, G->*branch.counter);
        }
    }
}

void DataLine(int public_data, int protected_data, int private_data, const Globals *G) {
    Print(G, kDataLine, public_data, protected_data, private_data, public_data + protected_data + private_data);
}

void MethodLine(int public_methods, int protected_methods, int private_methods, const Globals *G) {
    Print(G, kMethodLine, public_methods, protected_methods, private_methods, public_methods + protected_methods + private_methods);
}

void ClassFuncLine(int classes, int functions, const Globals *G) {
    Print(G, kClassFuncLine, classes, functions, classes < 1 ? 0.0 : static_cast<double>(functions) / classes);
}
