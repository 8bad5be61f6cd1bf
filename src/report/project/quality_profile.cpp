// The quality profile and the notice summary. They run behind SetTotal: the file counters hold the whole project.
#include "report/project/quality_profile.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>

#include "notices/catalogue.h"
#include "notices/raise.h"
#include "notices/udqn.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/compare.h"
#include "run/globals.h"

namespace {

int TotalNotices(const Globals *G) {
    int64_t total = udqn_notice_total_count(G);
    for (int n = 1; n <= kNotices; ++n) {
        total += G->notice_cnt[n];
    }
    return static_cast<int>(std::min<int64_t>(total, INT_MAX));
}

// Both titles stand at the same column, not in the middle of the page.
constexpr Forms<const char *> kProfileTitle{.text = "                        %s\n\n",
                                            .html = "<b><font color=\"%{header}\">                        %s\n</font></b>\n"};
constexpr Forms<> kProfileColumns{.text = "  Type  Count Percent  Quality Notice\n",
                                  .html = "  <b>Type  Count Percent  Quality Notice</b>\n"};

constexpr Forms<int, int, double, Shown> kRow{
    .text = "  %-4d %6d  %6.2f  %s\n",
    .html = "  <b><font color=\"%{notice}\">%-4d</font></b> <b><font color=\"%{function}\">%6d</font></b>  "
            "<b><font color=\"%{class}\">%6.2f</font></b>  <b>%s</b>\n",
    .xml = "<notice>\n<type>%d</type>\n<count>%d</count>\n<percent>%.2f</percent>\n<description>%s</description>\n</notice>\n",
};
// The text is the last field: its commas may stay.
constexpr Forms<int, int, double, const char *> kCsvRow{.csv = "%-2d,%7d,%6.2f,%s\n"};

constexpr Forms<int, double, const char *> kTotal{
    .text = "      %7d  %6.2f  %s\n\n",
    .html = "      <b><font color=\"%{function}\">%7d</font></b>  <b><font color=\"%{class}\">%6.2f</font></b>  <b>%s</b>\n\n",
    .csv = ",%7d,%6.2f,%s\n\n",
    .xml = "<notice>\n<type>All</type>\n<count>%d</count>\n<percent>%.2f</percent>\n<description>%s</description>\n</notice>\n",
};

constexpr Forms<double, double> kPerLoc{
    .text = "  Quality Notices/K LOC   = %10.1f (%6.2f%%)\n",
    .html = "  <b>Quality Notices/K LOC   =</b> %10.1f (%6.2f%%)\n",
    .csv = "QN/K LOC,%.1f,%.2f\n",
    .xml = "<quality_notice_count_per_k_loc>%.1f</quality_notice_count_per_k_loc>\n"
           "<quality_notice_percent_loc>%.2f</quality_notice_percent_loc>\n",
};
constexpr Forms<double, double> kPerEloc{
    .text = "  Quality Notices/K eLOC  = %10.1f (%6.2f%%)\n",
    .html = "  <b>Quality Notices/K eLOC  =</b> %10.1f (%6.2f%%)\n",
    .csv = "QN/K eLOC,%.1f,%.2f\n",
    .xml = "<quality_notice_count_per_k_eloc>%.1f</quality_notice_count_per_k_eloc>\n"
           "<quality_notice_percent_eloc>%.2f</quality_notice_percent_eloc>\n",
};
constexpr Forms<double, double> kPerLloc{
    .text = "  Quality Notices/K lLOC  = %10.1f (%6.2f%%)\n",
    .html = "  <b>Quality Notices/K lLOC  =</b> %10.1f (%6.2f%%)\n",
    .csv = "QN/K lLOC,%.1f,%.2f\n",
    .xml = "<quality_notice_count_per_k_lloc>%.1f</quality_notice_count_per_k_lloc>\n"
           "<quality_notice_percent_lloc>%.2f</quality_notice_percent_lloc>\n",
};

void ProfileHead(int total, Globals *G) {
    const Mode mode = OutputMode(G);
    switch (mode) {
    case Mode::kCsv:
        BeginBlock(G);
        Put("Project Quality Profile\n\nType,Count,Percent,Quality Notice\n");
        return;
    case Mode::kXml: Put("<report>\n<name>Project Quality Profile</name>\n<total_notices>%d</total_notices>\n", total); return;
    case Mode::kHtml:
    case Mode::kText: break;
    }
    DashRule();
    Print(G, kProfileTitle, "~~ Project Quality Profile ~~");
    Print(G, kProfileColumns);
    UnderscoreRule();
}

void ProfileRow(int number, int count, double percent, const char *text, const Globals *G) {
    Print(G, kRow, number, count, percent, Shown{text});
    Print(G, kCsvRow, number, count, percent, text);
}

void ProfileRows(int total, Globals *G) {
    for (int n = 1; n <= kNotices; ++n) {
        if (G->notice_cnt[n] > 0) {
            ProfileRow(n, G->notice_cnt[n], static_cast<double>(G->notice_cnt[n]) / total * 100, GetNoticeStr(n, G), G);
        }
    }
}

void ProfileTotal(int total, const Globals *G) {
    static constexpr const char *kLabel = "Total Quality Notices";
    const Mode mode = OutputMode(G);
    if (IsPage(mode)) {
        UnderscoreRule();
    } else if (mode == Mode::kCsv) {
        Put("\n");
    }
    Print(G, kTotal, total, 100.0, kLabel);
}

// Nothing for a project without such lines.
void DensityLine(const Forms<double, double> &forms, int total, int lines, const Globals *G) {
    if (lines > 0) {
        const double ratio = static_cast<double>(total) / lines;
        Print(G, forms, ratio * 1000, ratio * 100);
    }
}

void Density(int total, const Globals *G) {
    const Mode mode = OutputMode(G);
    switch (mode) {
    case Mode::kCsv: Put("Quality Notice (QN) Density\nBasis,1000,(K)\n,,  %%\n"); break;
    case Mode::kXml: Put("<notice_density>\n"); break;
    case Mode::kHtml:
    case Mode::kText:
        Print(G, kProfileTitle, "~~ Quality Notice Density ~~");
        Put("  Basis: 1000 (K)\n\n");
        break;
    }
    DensityLine(kPerLoc, total, G->file_loc, G);
    DensityLine(kPerEloc, total, EffectiveLines(*G), G);
    DensityLine(kPerLloc, total, LogicalLines(*G), G);
    if (mode == Mode::kXml) {
        Put("</notice_density>\n</report>\n");
    }
}

constexpr Forms<LinkTo, Shown, int, int, Shown> kNotice{
    .text = "  %s - Notice #%2d: Line %d, %s\n",
    .html = "  <a href=\"%{href}\" target=\"_blank\">%s</a> - <font color=%{notice}><b>Notice</b></font> "
            "<b>#%2d</b>: Line <b>%d</b>, %s\n",
    .xml = "<notice>\n<file>%s</file>\n<type>%d</type>\n<line>%d</line>\n<description>%s</description>\n</notice>\n"};

// One remembered notice. CSV takes a built-in text as it stands, as the last field may hold commas.
void NoticeDataShow(const NameData *notice, Globals *G) {
    const Mode mode = OutputMode(G);
    const Shown file{notice->name};
    const char *text = GetNoticeStr(notice->number, G);
    if (G->notice_vs_format) {
        PrintOnly<Shown, int, int, Shown>(mode, "%s(%d) : Notice #%2d - %s\n", file, notice->line, notice->number, Shown{text});
        return;
    }
    if (mode == Mode::kCsv) {
        PrintOnly<Shown, int, int, const char *>(mode, "%s, %2d, %d, %s\n", file, notice->number, notice->line, text);
        return;
    }
    const char *slash = mode == Mode::kHtml ? strrchr(notice->name, '/') : nullptr; // the link tells the directory
    Print(G, kNotice, LinkTo{notice->name}, Shown{slash ? slash + 1 : notice->name}, notice->number, notice->line, Shown{text});
}

void SummaryHead(int notices, const Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kCsv: Put("Total Quality Notices. %d\n\nFilename, Notice, Line, Description\n", notices); return;
    case Mode::kXml: Put("<report>\n<name>Total Quality Notices</name>\n<notice_count>%d</notice_count>\n", notices); return;
    case Mode::kHtml:
    case Mode::kText: break;
    }
    DashRule();
    CenteredTitle("~~ Quality Notice Summary ~~", G);
    Put("\n  Total Quality Notices: %d\n", notices);
}

} // namespace

void ShowQualityProfile(Globals *G) {
    const int total = TotalNotices(G);
    ProfileHead(total, G);
    ProfileRows(total, G);
    udqn_profile(total, G);
    ProfileTotal(total, G);
    Density(total, G);
}

void ShowNoticeSummary(Globals *G) {
    if (!G->notice_list.head) {
        return;
    }
    EndHeading(G);
    SummaryHead(G->notice_list.count, G);
    if (G->sort_active) {
        LlistResort_NameData(&G->notice_list, 1, G);
    }
    for (const NameData *notice : Records<NameData>(G->notice_list)) {
        NoticeDataShow(notice, G);
    }
    if (OutputMode(G) == Mode::kXml) {
        Put("</report>\n");
    }
}
