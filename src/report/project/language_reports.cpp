// The sums of the project by language: percentages and counts.
#include "report/project/totals.h"

#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "run/globals.h"

struct LanguageRow {
    LanguageGroup group;
    int Languages::*files;      // the files of the group ...
    int Languages::*more_files; // ... and those of a second kind; null for none
    const char *extension;      // in the profile
    const char *text, *html, *csv, *csv_points, *xml;
};

// clang-format off
// In the order of the summary, which is the order of LanguageGroup.
constexpr LanguageRow kLanguageRows[kLanguageGroups] = {
    {kHeaderGroup, &Languages::c_header_files, nullptr, "*.h*",   "Header Include Files *.h*", "Header Include Files <i>*.h*</i>", "Header Include Files *.h*", "Header Include Files *.h*", "Header Files *.h*"},
    {kCGroup,      &Languages::c_files,        nullptr, "*.c",    "C Source Files *.c",        "C Source Files <i>*.c</i>",        "C Source Files *.c",        "C Source Files *.c*",       "C Files *.c"},
    {kCppGroup,    &Languages::cpp_files,      &Languages::cpp_header_files, "*.c*",   "C++ Source Files *.c*",     "C++ Source Files <i>*.c*</i>",     "C++ Source Files *.c*",     "C++ Source Files *.c*",     "C++ Files *.cp*"},
    {kJavaGroup,   &Languages::java_files,     nullptr, "*.java", "Java Source File *.jav*",   "Java Source File <i>*.jav*</i>",   "Java Source File *.java",   "Java Source File *.java",   "Java Files *.jav*"},
    {kCsGroup,     &Languages::cs_files,       nullptr, "*.cs",   "C# Source File *.cs",       "C# Source File <i>*.cs</i>",       "C# Source File *.cs",       "C# Source File *.cs",       "C Sharp Files *.cs"},
    {kOtherGroup,  &Languages::other_files,    nullptr, "Other",  "Other Source Files",        "Other Source Files",               "Other Source Files",        "Other Source Files",        "Other Files"},
};
// clang-format on

// In tables C# stands in front of Java.
constexpr LanguageGroup kTableOrder[] = {kHeaderGroup, kCGroup, kCppGroup, kCsGroup, kJavaGroup, kOtherGroup};

static int FilesOf(const LanguageRow &row, const Globals *G) {
    return G->*row.files + (row.more_files ? G->*row.more_files : 0);
}

constexpr Forms<> kProfileColumns{.text = "\n  Language   LOC %%    eLOC %%    lLOC %%    Comments %%   Blanks %%    Lines %%\n",
                                  .html =
                                      "  <b>Language   LOC %%    eLOC %%    lLOC %%    Comments %%   Blanks %%    Lines %%</b>\n",
                                  .csv = "Total Language Profile (%%)\n"
                                         ",Language,,,LOC,eLOC,lLOC,Comments,Blanks,Lines\n",
                                  .xml = "<report>\n"
                                         "<name>Total Language Profile</name>\n"};

static void LangProfileHeader(Globals *G) {
    const Mode mode = OutputMode(G);
    EndHeading(G);
    if (mode == Mode::kText || mode == Mode::kHtml) {
        DashRule();
        CenteredTitle("~~ Total Language Profile ~~", G);
    }
    Print(G, kProfileColumns);
}

constexpr Forms<const char *, double, double, double, double, double, double> kProfileLine{
    .text = "  %-6s     %5.1f     %5.1f     %5.1f         %5.1f      %5.1f      %5.1f\n",
    .html = "  <b>%-6s</b>     %5.1f     %5.1f     %5.1f         %5.1f      %5.1f      %5.1f\n",
    .csv = ",%6s,,,%5.1f,%5.1f,%5.1f,%5.1f,%5.1f,%5.1f\n",
    .xml = "<language>\n"
           "<extension>%s</extension>\n"
           "<loc_percent>%.1f</loc_percent>\n"
           "<eloc_percent>%.1f</eloc_percent>\n"
           "<lloc_percent>%.1f</lloc_percent>\n"
           "<comment_percent>%.1f</comment_percent>\n"
           "<blank_line_percent>%.1f</blank_line_percent>\n"
           "<lines_percent>%.1f</lines_percent>\n"
           "</language>\n"};

static double PercentOf(int value, int total) {
    return total < 1 ? 0.0 : 100.0 * value / total;
}

static void LangProfileLine(const char *label, const LineCounts &part, const LineCounts &all, const Globals *G) {
    Print(G, kProfileLine, label, PercentOf(part.loc, all.loc), PercentOf(part.eloc, all.eloc), PercentOf(part.lloc, all.lloc),
          PercentOf(part.comments, all.comments), PercentOf(part.blanks, all.blanks), PercentOf(part.lines, all.lines));
}

void ShowLanguageProfile(Globals *G) {
    const LineCounts all = LinesOf(*G);
    LangProfileHeader(G);
    for (const LanguageGroup group : kTableOrder) {
        const LineCounts &part = G->language_sums[group];
        if (part.loc || part.eloc || part.lloc || part.comments || part.blanks || part.lines) {
            LangProfileLine(kLanguageRows[group].extension, part, all, G);
        }
    }
    const Mode mode = OutputMode(G);
    if (mode == Mode::kXml) {
        Put("</report>\n");
    } else if (mode != Mode::kCsv && G->report_switch_given && !G->file_summary) {
        Put("\n");
    }
}

static bool HasLines(const LineCounts &sums) {
    return sums.loc > 0 || sums.eloc > 0 || sums.lloc > 0 || sums.comments > 0 || sums.lines > 0;
}

static FunctionPointValues GroupPoints(LanguageGroup group, const Globals *G) {
    return PointsOf(G->language_sums[group], group, G);
}

constexpr Forms<const char *> kLanguageLabel{.text = "\n  %s\n", .html = "\n  <b>%s</b>\n"};

static void ShowLanguagePage(const Globals *G) {
    const bool html = OutputMode(G) == Mode::kHtml;
    DashRule();
    CenteredTitle("~~ Language Summary ~~", G);
    for (const LanguageRow &row : kLanguageRows) {
        const LineCounts &sums = G->language_sums[row.group];
        if (!HasLines(sums)) {
            continue;
        }
        Print(G, kLanguageLabel, html ? row.html : row.text);
        LOCLine(sums.loc, sums.eloc, sums.lloc, sums.comments, sums.lines, G);
        LOCFileAvg(sums.loc, sums.eloc, sums.lloc, sums.comments, sums.lines, FilesOf(row, G), G);
        if (G->function_points) {
            const FunctionPointValues points = GroupPoints(row.group, G);
            FPLine(G, points.fp_loc, points.fp_eloc, points.fp_lloc);
        }
    }
}

static void ShowLanguageTable(const Globals *G) {
    Put("\nLanguages\n");
    Put(G->function_points ? ", , , , LOC/FP,eLOC/FP,lLOC/FP,Comments,Blanks,Lines\n"
                           : ", , , , LOC,eLOC,lLOC,Comments,Blanks,Lines\n");
    for (const LanguageGroup group : kTableOrder) {
        const LineCounts &sums = G->language_sums[group];
        if (!HasLines(sums)) {
            continue;
        }
        if (G->function_points) {
            const FunctionPointValues points = GroupPoints(group, G);
            Put(" ,%s, , , %d/%-10.1f,%d/%-10.1f,%d/%-10.1f,%d,%d,%d\n", kLanguageRows[group].csv_points, sums.loc, points.fp_loc,
                sums.eloc, points.fp_eloc, sums.lloc, points.fp_lloc, sums.comments, sums.blanks, sums.lines);
        } else {
            Put(" ,%s, , , %d,%d,%d,%d,%d,%d\n", kLanguageRows[group].csv, sums.loc, sums.eloc, sums.lloc, sums.comments,
                sums.blanks, sums.lines);
        }
    }
    const LineCounts all = LinesOf(*G);
    if (G->function_points) {
        Put(" ,Total All Languages, , ,%d/%-10.1f,%d/%-10.1f,%d/%-10.1f,%d,%d,%d\n", all.loc, G->fp_loc, all.eloc, G->fp_eloc,
            all.lloc, G->fp_lloc, all.comments, all.blanks, all.lines);
    } else {
        Put(" ,Total All Languages, , ,%d,%d,%d,%d,%d,%d\n", all.loc, all.eloc, all.lloc, all.comments, all.blanks, all.lines);
    }
}

static void EmitXMLLanguageMetrics(const char *label, const LineCounts &sums, const FunctionPointValues &points) {
    Put("<language>\n"
        "<extension>%s</extension>\n"
        "<loc>%d</loc>\n"
        "<eloc>%d</eloc>\n"
        "<lloc>%d</lloc>\n"
        "<comments>%d</comments>\n"
        "<blanks>%d</blanks>\n"
        "<lines>%d</lines>\n"
        "<function_points_loc>%.1f</function_points_loc>\n"
        "<function_points_eloc>%.1f</function_points_eloc>\n"
        "<function_points_lloc>%.1f</function_points_lloc>\n"
        "</language>\n",
        label, sums.loc, sums.eloc, sums.lloc, sums.comments, sums.blanks, sums.lines, points.fp_loc, points.fp_eloc,
        points.fp_lloc);
}

static void ShowLanguageXml(const Globals *G) {
    FunctionPointValues all{};
    Put("<report>\n"
        "<name>Language Metrics</name>\n");
    for (const LanguageGroup group : kTableOrder) {
        const LineCounts &sums = G->language_sums[group];
        if (!HasLines(sums)) {
            continue;
        }
        const FunctionPointValues points = GroupPoints(group, G);
        EmitXMLLanguageMetrics(kLanguageRows[group].xml, sums, points);
        all.fp_loc += points.fp_loc;
        all.fp_eloc += points.fp_eloc;
        all.fp_lloc += points.fp_lloc;
    }
    EmitXMLLanguageMetrics("Total All Languages", LinesOf(*G), all);
    Put("</report>\n");
}

void ShowLanguageSummary(Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml: ShowLanguagePage(G); break;
    case Mode::kCsv: ShowLanguageTable(G); break;
    case Mode::kXml: ShowLanguageXml(G); break;
    }
}
