// The lines with figures that a function, a file, a directory, a language and the project have in common, and the sums of a file or
// the project. A line is a table of its four forms; what stands around it is the business of its report.
#include "report/lines.h"

#include <algorithm>

#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/globals.h"

static constexpr Forms<int, int, int, int, int> kLocLine{
    .text = "  LOC %-7d  eLOC %-7d  lLOC %-7d  Comment %-7d  Lines %8d\n",
    .html = "  <b>LOC</b> %-7d  <b>eLOC</b> %-7d  <b>lLOC</b> %-7d  <b>Comment</b> %-7d  <b>Lines</b> %8d\n",
    .csv = "LOC,%d,eLOC,%d,lLOC,%d,Comment,%d,Lines,%d\n",
    .xml = "<loc>%d</loc>\n<eloc>%d</eloc>\n<lloc>%d</lloc>\n<comments>%d</comments>\n<lines>%d</lines>\n"};

// Has no form of its own for XML, where it is shown as text.
static constexpr Forms<int> kAverageHeading{
    .text = "  Average per File, metric/%-d files\n", .html = "  <b>Average per File</b>, metric/%-d files\n", .csv = "Avg "};

static constexpr Forms<double, double, double> kFunctionPointsOfLines{
    .text = "  Function Points         FP(LOC) %-7.1f FP(eLOC) %-7.1fFP(lLOC) %7.1f\n",
    .html = "  <b>Function Points</b>         <b>FP(LOC)</b> %-7.1f <b>FP(eLOC)</b> %-7.1f<b>FP(lLOC)</b> %7.1f\n",
    .csv = "FP(LOC),%-7.1f,FP(eLOC),%-7.1f,FP(lLOC),%7.1f\n",
    .xml = "<function_points_loc>%.1f</function_points_loc>\n<function_points_eloc>%.1f</function_points_eloc>\n"
           "<function_points_lloc>%.1f</function_points_lloc>\n"};

// The same line from sums, with other element names.
static constexpr Forms<double, double, double> kFunctionPoints{
    .text = kFunctionPointsOfLines.text,
    .html = kFunctionPointsOfLines.html,
    .csv = kFunctionPointsOfLines.csv,
    .xml = "<function_point_loc>%.1f</function_point_loc>\n<function_point_eloc>%.1f</function_point_eloc>\n"
           "<function_point_lloc>%.1f</function_point_lloc>\n"};

// Parameters, returns, cyclomatic complexity, total. XML shows one value more.
static constexpr Forms<int, int, int, int> kComplexity{
    .text = "  Complexity   Param %-7d Return %-6d Cyclo Vg %-7d Total %8d\n",
    .html = "  <b>Complexity</b>   <b>Param</b> %-7d <b>Return</b> %-6d <b>Cyclo Vg</b> %-7d <b>Total</b> %8d\n",
    .csv = "Param,%d,Return,%d,Cyclo Vg,%d,Total,%d\n"};

static constexpr Forms<int, int, double, double> kFileMethodNotices{
    .text = "  Quality      Funcs %-7d Notice %-7dQN/Func  %-7.1fQN/KeLOC %6.0f\n",
    .html = "  <b>Quality      Funcs</b> %-7d <b>Notice</b> %-7d<b>QN/Func</b>  %-7.1f<b>QN/KeLOC</b> %6.0f\n",
    .csv = "Funcs ,%-7d,Notice,%-7d,QN/Func,%-7.1f,QN/KeLOC,%-7.0f\n",
    .xml = "<function_count>%d</function_count>\n<quality_notices>%d</quality_notices>\n"
           "<notices_per_function>%.1f</notices_per_function>\n<notices_per_KeLOC>%.0f</notices_per_KeLOC>\n"};

static constexpr Forms<int> kSkippedLines{.text = "  Total physical lines skipped from skip token match: %d\n\n",
                                          .html = "  <B>Total physical lines skipped from skip token match:</B> %d\n\n",
                                          .csv = "  Total physical lines skipped from skip token match: %d\n\n"};

void LOCLine(int loc, int eloc, int lloc, int comments, int lines, const Globals *G) {
    Print(G, kLocLine, loc, eloc, lloc, comments, lines);
}

void LOCFileAvg(int loc, int eloc, int lloc, int comments, int lines, int files, const Globals *G) {
    if (files < 1) {
        return;
    }
    const Mode mode = OutputMode(G) == Mode::kXml ? Mode::kText : OutputMode(G);
    const auto average = [files](int sum) { return std::max(sum, 0) / files; };
    PrintAs(mode, G, kAverageHeading, files);
    PrintAs(mode, G, kLocLine, average(loc), average(eloc), average(lloc), average(comments), lines / files);
}

void FPLOCLine(LanguageGroup language, int loc, int eloc, int lloc, const Globals *G) {
    if (G->function_points) {
        const FunctionPointValues points = PointsOf({loc, eloc, lloc, 0, 0, 0}, language, G);
        Print(G, kFunctionPointsOfLines, points.fp_loc, points.fp_eloc, points.fp_lloc);
    }
}

void FPLine(const Globals *G, double fp_loc, double fp_eloc, double fp_lloc) {
    Print(G, kFunctionPoints, fp_loc, fp_eloc, fp_lloc);
}

void ComplexLine(int params, int returns, int cyclo, const Globals *G) {
    if (!G->complexity_metrics) {
        return;
    }
    const int total = params + returns + cyclo;
    if (OutputMode(G) != Mode::kXml) {
        Print(G, kComplexity, params, returns, cyclo, total);
        return;
    }
    Put("<parameters>%d</parameters>\n<returns>%d</returns>\n<interface_complexity>%d</interface_complexity>\n"
        "<cyclomatic_complexity>%d</cyclomatic_complexity>\n<total_complexity>%d</total_complexity>\n",
        params, returns, params + returns, cyclo, total);
}

void FileMethodNotices(int functions, int notices, int eloc, const Globals *G) {
    const double per_function = functions < 1 ? 0.0 : static_cast<double>(notices) / functions;
    const double per_keloc = eloc < 1 ? 0.0 : static_cast<double>(notices) / eloc * 1000;
    Print(G, kFileMethodNotices, functions, notices, per_function, per_keloc);
}

// The project's sums where files have no block of their own: in XML, and behind a function listing.
static void ShowProjectSums(int eloc, int lloc, const Globals *G) {
    const double per_eloc = eloc > 0 ? static_cast<double>(G->file_comments) / eloc : 0.0;
    switch (OutputMode(G)) {
    case Mode::kCsv:
        Put("\n");
        if (G->skipped_lines > 0) {
            Put("Total,Skipped,Lines,%d\n", G->skipped_lines);
        }
        if (G->function_points) {
            Put("Function,Point,Totals\n");
            Put("FP LOC,%10.1f,FP eLOC,%10.1f,FP lLOC,%10.1f,\n\n", G->fp_loc, G->fp_eloc, G->fp_lloc);
        }
        Put("Project,Totals\n");
        Put("LOC,%d,eLOC,%d,lLOC,%d,Comment,%d,Lines,%d,Comment/eLOC,%.2f\n\n", G->file_loc, eloc, lloc, G->file_comments,
            G->file_line_no, per_eloc);
        break;
    case Mode::kXml:
        Put("<totals>\n");
        LOCLine(G->file_loc, eloc, lloc, G->file_comments, G->file_line_no, G);
        Put("<comment_per_eloc>%.2f</comment_per_eloc>\n", per_eloc);
        FPLine(G, G->fp_loc, G->fp_eloc, G->fp_lloc);
        Put("<lines_skipped>%d</lines_skipped>\n</totals>\n", G->skipped_lines);
        break;
    case Mode::kText:
    case Mode::kHtml: break;
    }
}

// The rule and the title above the sums. A run for functions that found none, and no notice, has no rule.
static void ShowSumsHead(int project, const Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kCsv) {
        return;
    }
    if (!G->function_metrics || G->file_functions != 0 || G->notice_count != 0) {
        Put("  %s%s\n\n", kDashes, kDashes);
    }
    CenteredTitle(project ? "~~ Total Project Summary ~~" : "~~ Total File Summary ~~", G);
    Put("\n");
}

void ShowTotalSummary(Globals *G, int project, int averages) {
    const int eloc = EffectiveLines(*G);
    const int lloc = LogicalLines(*G);
    if (OutputMode(G) == Mode::kXml || G->list_functions) {
        if (project) {
            ShowProjectSums(eloc, lloc, G);
        }
        return;
    }
    if (G->report_switch_given) {
        ShowSumsHead(project, G);
    }
    LOCLine(G->file_loc, eloc, lloc, G->file_comments, G->file_line_no, G);
    if (averages) {
        LOCFileAvg(G->file_loc, eloc, lloc, G->file_comments, G->file_line_no, G->files_processed, G);
    }
    if (G->function_points) {
        FPLine(G, G->fp_loc, G->fp_eloc, G->fp_lloc);
    }
    if (G->skipped_lines > 0) {
        Print(G, kSkippedLines, G->skipped_lines);
    }
    if (G->report_switch_given && !G->file_summary) {
        Put("\n");
    }
}
