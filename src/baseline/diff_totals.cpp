// The project's totals in the report on two baselines: newer, older, their difference, and that in percent.
#include "baseline/diff_columns.h"
#include "baseline/diff_tables.h"
#include "report/forms.h"
#include "run/globals.h"

namespace {

constexpr int kLabelWidth = 9; // behind two blanks

struct TotalsBlock {
    const char *text, *csv; // titles
    const char *tag;
};

constexpr TotalsBlock kNewer{
    .text = "Total Metrics Newer Source Files", .csv = "Total Metrics Newer Source Files", .tag = "metrics_newer_work_files"};
constexpr TotalsBlock kOlder{
    .text = "Total Metrics Older Source Files", .csv = "Total Metrics Older Source Files", .tag = "metrics_older_work_files"};
constexpr TotalsBlock kDifference{.text = "Total Metrics Size Differential (new-old)",
                                  .csv = "Total Metrics Size Differential (new-old)",
                                  .tag = "total_metrics_size_differential"};
constexpr TotalsBlock kChange{.text = "Total Metrics Size Differential Percdent = [(new-old)/old * 100]",
                              .csv = "Total Metrics Size Differential Percent = [(new-old)/old * 100]",
                              .tag = "total_metrics_size_differential_percent"};

constexpr Forms<int> kFiles{
    .text = "  Files    %7d\n", .html = "  <b>Files</b>    %7d\n", .csv = "Files,%7d\n", .xml = "<file_count>%d</file_count>\n"};
constexpr Forms<int> kDifferenceFiles{.text = kFiles.text, .html = kFiles.html, .csv = kFiles.csv};
constexpr Forms<double> kChangeFiles{
    .text = "  Files    %7.2f %%\n", .html = "  <b>Files</b>    %7.2f %%\n", .csv = "Files,%7.2f %%\n"};

constexpr Forms<long> kSum{.text = "%7ld\n", .html = "%7ld\n", .csv = "%7ld\n", .xml = "%ld"};
constexpr Forms<double> kPercent{.text = "%7.2f %%\n", .html = "%7.2f %%\n", .csv = "%7.2f %%\n", .xml = "%.2f"};

void OpenBlock(const TotalsBlock &block, Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kXml) {
        Put("<%s>\n", block.tag);
    }
    DiffTitle(mode == Mode::kCsv ? block.csv : block.text, G);
    DiffDataRule(G);
}

void CloseBlock(const TotalsBlock &block, const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("</%s>\n", block.tag);
    }
}

void EmptyLine(const Globals *G) {
    if (OutputMode(G) != Mode::kXml) {
        Put("\n");
    }
}

void Label(const char *label, const Globals *G) {
    const int blanks = kLabelWidth - static_cast<int>(strlen(label));
    switch (OutputMode(G)) {
    case Mode::kHtml: Put("  <b>%s</b>%*s", label, blanks, ""); break;
    case Mode::kCsv: Put("%s,", label); break;
    case Mode::kXml: break;
    case Mode::kText: Put("  %s%*s", label, blanks, ""); break;
    }
}

void SumLine(const WorkMetrics &metrics, const Globals *G) {
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            Label(column.label, G);
            DiffCell(kSum, column.tag, metrics.of[column.metric], G);
        }
    }
    EmptyLine(G);
}

double ChangeOf(int64_t newer, int64_t older) {
    const auto old = static_cast<double>(older);
    return older > 0 ? (static_cast<double>(newer) - old) / old * 100 : 0.0;
}

void DiffLine(const WorkMetrics &newer, const WorkMetrics &older, const Globals *G) {
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            Label(column.label, G);
            DiffCell(kPercent, column.percent_tag, ChangeOf(newer.of[column.metric], older.of[column.metric]), G);
        }
    }
    if (ColumnShown(kElementNotices, G)) { // the end of the last line, not of the block
        EmptyLine(G);
    }
}

} // namespace

void ShowDiffTotals(Globals *G) {
    const WorkTotals &newer = G->newer_totals, &older = G->older_totals;
    WorkMetrics difference = {};
    for (int metric = 0; metric < kWorkColumns; ++metric) {
        difference.of[metric] = newer.of[metric] - older.of[metric];
    }

    EmptyLine(G);
    OpenBlock(kNewer, G);
    Print(G, kFiles, newer.files);
    SumLine(newer, G);
    CloseBlock(kNewer, G);

    OpenBlock(kOlder, G);
    Print(G, kFiles, older.files);
    SumLine(older, G);
    CloseBlock(kOlder, G);

    OpenBlock(kDifference, G);
    Print(G, kDifferenceFiles, newer.files);
    SumLine(difference, G);
    CloseBlock(kDifference, G);

    OpenBlock(kChange, G);
    Print(G, kChangeFiles, ChangeOf(newer.files, older.files));
    DiffLine(newer, older, G);
    CloseBlock(kChange, G);
}
