// What the program says about itself: the short syntax and the list of all switches. Fixed texts, one row per line.
#include "tools/help.h"

#include <cstring>
#include <unistd.h>

#include "report/forms.h"
#include "report/frame.h"
#include "report/project/report_head.h"
#include "run/globals.h"

namespace {

// clang-format off
constexpr const char *kSyntaxLines[] = {
    "          or -switch[\"compound option\"] filenames or wild cards",
    "          TLY is a command line program, [ ] characters are not entered",
    "          Example: /usr/bin/tly/tly.lnx -c -fa -r\"h,cpp,java /proj\"",
    "          -hs Help syntax for operation",
    "          -hf Help manual full text",
};

// A switch stands behind ten blanks, its sub-switches behind thirteen.
constexpr const char *kSwitchLines[] = {
    "          -switch[\"compound option\"] filenames or wild cards",
    "          [ ] characters are not entered",
    "          -a Allocation/de-allocation memory function counts",
    "          -A Comma separated output, older name of -C",
    "          -b Benchmark processing time",
    "          -c Complexity metrics of functions",
    "          -C Comma separated variable output (CSV)",
    "          -d Determine how each source line is counted",
    "          -D De-character source files in place",
    "             -Dt  Tabs to blanks",
    "             -Du  UNIX line ends, carriage returns removed",
    "             -Dd  DOS line ends, carriage returns added",
    "          -e Estimation based on LOC and complexity",
    "          -E Extract text from source files",
    "             -Es  Strings",
    "             -Ec  Comments",
    "             -EC  Comments together with function names",
    "          -f Function and file metrics",
    "             -fa  Functional Identification Analysis",
    "             -fd  Function File Details",
    "             -fm  Function and Attribute Detail for Classes",
    "             -fp  Function Points Derived from LOC Metrics",
    "          -F[file] List file of source files and directories",
    "          -h Help",
    "             -hs  Help syntax for operation",
    "             -hf  Help manual full text",
    "             -hc  Display configuration parameters",
    "             -hn  Quality notice types",
    "             -hp  Short syntax with a pause",
    "          -H HTML output",
    "          -i Inheritance tree",
    "          -k[number] Key for report sorting",
    "             -k0  No Sort",
    "             -k1  Name",
    "             -k2  LOC",
    "             -k3  eLOC",
    "             -k4  lLOC",
    "             -k5  Cyclomatic Complexity",
    "             -k6  Work State of a Baseline Differential",
    "             -k7  Function Count of Files",
    "             -k8  Quality Notice Count of Files",
    "             -k9  File Date",
    "             -k10 File Size",
    "             -kd  Descending Order",
    "          -l List function names",
    "          -m Macro metrics",
    "          -n Quality notices",
    "          -N Quality notice format, notices of each file",
    "             -Ns  Short Single Line Format",
    "             -Nv  Visual Studio Format",
    "          -o Object class/struct metrics",
    "          -O[file] Output report to a file",
    "          -p Print format, code listing",
    "             -B1  Begin Top Margin (defaults shown)",
    "             -M5  Left Margin",
    "             -P55 Page Length",
    "             -L80 Line Length",
    "          -q No longer supported, see the configuration file",
    "          -r[\"ext,ext directory\"] Recursive descent",
    "             -r\"h,cpp,java /proj\"  All files with these extensions",
    "             -r\"h,c .\"  From the current directory",
    "          -R Read file processing options",
    "             -Rd  Do not descend into directories",
    "             -Rl  List the files only",
    "             -Rn  Sort the files by name",
    "          -s Summary of each file, with -C ahead one CSV line per file",
    "          -S[\"title\"] String title of the report",
    "          -T Totals only",
    "             -Ta  All Totals",
    "             -Td  Detail Line for Each File",
    "             -Tf  Function Totals",
    "             -Ti  Inheritance Tree",
    "             -Tl  Summaries Only",
    "             -TL  Language Totals",
    "             -Tn  Quality Notices by File",
    "             -TN  No File Names",
    "             -To  Class, Interface and Namespace Totals",
    "             -Tp  Quality Profile",
    "             -Tq  Quality Notice Summary",
    "             -Ts  Project Summary",
    "             -Tv  Verbose Totals",
    "             -Tw  Work File Differential Totals",
    "          -u User files",
    "             -u\"File CFG name\"  Configuration file",
    "             -u\"File XSL name\"  Style sheet of an XML report",
    "          -v Verbose metrics, counts of all keywords and constructs",
    "          -w Work files, baseline metric differentials",
    "             -w\"Create dir\"      Create a baseline of a directory",
    "             -w\"File dat name\"   Name of the work file",
    "             -w\"File cfg name\"   Configuration of the differential report",
    "             -w\"x old, new\"      Compare two work files",
    "             -wD  Deterministic Codes of Lines, no Work File",
    "             -wd  Differentials Based on Code Lines",
    "             -we  Skip Equal Files",
    "             -wr  Skip Removed Files",
    "             -wm  Skip Modified Files",
    "             -wn  Skip New Files",
    "             -wg  Glossary of the Report",
    "             -wb  Work Time Basis",
    "             -wp  Productivity",
    "             -ws  Show Details Line by Line",
    "             -wv  Verbose Work File Messages",
    "             -wW  No longer supported, see -wx",
    "          -W No longer supported, see -wx",
    "          -x Extended options",
    "             -xNOCONFIG   No configuration file in the report header",
    "             -xNOCOMMAND  No command line in the report header",
    "             -xNOHEADER   No report header",
    "             -xNOWRAP     Long names are not wrapped",
    "             -xUDQNSHOW   Show user defined quality notices",
    "             -xDEBUG      Debug output",
    "             -xDIFFDEBUG  Debug output of differentials",
    "             -xc          Template of a configurable CSV report",
    "             -x\"File csv name\"  Configuration of a CSV report",
    "          -X XML output, totals only",
};
// clang-format on

template <size_t N> void PrintLines(Mode mode, const char *const (&lines)[N]) {
    for (const char *line : lines) {
        PrintOnly(mode, "%s\n", Shown{line});
    }
}

void WaitForKey() {
    if (gTLYOUT != stdout) {
        usleep(500000);
        return;
    }
    Put("\n  Press Enter Key To Continue ...\n");
    fflush(gTLYOUT);
    for (int c; (c = getc(gTLYIN)) != EOF && c != '\n';) {
    }
}

} // namespace

void ShowSyntax(Globals *G) {
    const char *backslash = strrchr(G->prog_name, '\\');
    ShowHeader(G);
    ShowFMCHeader(G);
    const Mode mode = ProseMode(G);
    PrintOnly(mode, "  Syntax: %s -option or -switch[option]\n", Shown{backslash ? backslash + 1 : G->prog_name});
    PrintLines(mode, kSyntaxLines);
    if (G->syntax_pause) {
        WaitForKey();
    }
}

void ShowSwitchList(Globals *G) {
    ShowHeader(G);
    ShowFMCHeader(G);
    Center("TLY Help Syntax");
    Put("\n");
    const Mode mode = ProseMode(G);
    PrintOnly(mode, "  Syntax: %s -switch or -switch[option] or \n", Shown{G->prog_name});
    PrintLines(mode, kSwitchLines);
    Put("          -y Display configuration parameters, export %s\n", "tly.cfg");
}
