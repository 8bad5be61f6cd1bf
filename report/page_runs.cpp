// The sections that set runs side by side: now and before, two baselines, many runs.
#include <algorithm>

#include "page_html.h"
#include "page_sections.h"
#include "svg_charts.h"

namespace {

constexpr size_t kRunsShown = 20; // more runs than these are a closed table

// The name of a figure with its unit.
std::string NameOf(const FigureRow &row) {
    return row.name + (*row.unit ? std::string(" <span class=\"unit\">") + row.unit + "</span>" : "");
}

void WriteKeyFigures(std::string &out, const PageInput &in) {
    out += "<ul class=\"key\">\n";
    for (size_t i = 0; i < kFigureCount; ++i) {
        const FigureRow &row = kFigures[i];
        const double now = row.value(in.now);
        if (!row.leads || !IsTold(now)) {
            continue;
        }
        out += "<li><strong>" + Fixed(now, row.decimals) + "</strong><span class=\"soft\">" + NameOf(row) + "</span>";
        if (in.before) {
            out += "<span>" + Judged(now, row.value(*in.before), row.decimals, row.less_is_better) + "</span>";
        }
        out += "</li>\n";
    }
    out += "</ul>\n";
}

} // namespace

void WriteSummary(std::string &out, const PageInput &in) {
    WriteKeyFigures(out, in);
    std::vector<Column> columns = {{"Figure", kText}, {"Now", kNumber}};
    if (in.before) {
        columns.push_back({"Before", kNumber});
        columns.push_back({"Change", kNumber});
    }
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < kFigureCount; ++i) {
        const FigureRow &row = kFigures[i];
        const double now = row.value(in.now);
        rows.push_back({NameOf(row), Value(now, row.decimals)});
        if (in.before) {
            const double before = row.value(*in.before);
            rows.back().push_back(Value(before, row.decimals));
            rows.back().push_back(Judged(now, before, row.decimals, row.less_is_better));
        }
    }
    AppendTable(out, in.before ? "All figures, and what they were before; ▲ is worse, ▼ is better" : "All figures", columns, rows);
    if (in.before && in.before->modern != in.now.modern) {
        AppendNothing(out, "Only one of the two runs reads today’s constructs (-xMODERN): a part of the change comes from that.");
    }
}

namespace {

std::string Told(const std::optional<int64_t> &value) {
    return value ? Count(*value) : std::string("<span class=\"soft\">") + kUntoldText + "</span>";
}

} // namespace

void WriteComparison(std::string &out, const PageInput &in) {
    const Comparison &c = *in.comparison;
    AppendParagraph(out, "Older: " + Isolated(c.older.name) + ", " + Shown(c.older.date) + ". Newer: " + Isolated(c.newer.name) +
                             ", " + Shown(c.newer.date) + ".");
    const auto any = [](const CompareFigures &figures) {
        return std::ranges::any_of(figures, [](auto f) { return f.has_value(); });
    };
    std::vector<std::vector<std::string>> states;
    std::vector<std::vector<std::string>> totals;
    for (size_t i = 0; i < std::size(kCompareMetrics); ++i) {
        const std::optional<int64_t> parts[] = {c.added[i], c.changed[i], c.removed[i], c.equal[i]};
        const std::string name = kCompareMetrics[i].name;
        if (std::ranges::any_of(parts, [](auto f) { return f.has_value(); })) {
            states.push_back({name, Told(parts[0]), Told(parts[1]), Told(parts[2]), Told(parts[3])});
        }
        const std::optional<int64_t> older = c.older.totals[i];
        const std::optional<int64_t> newer = c.newer.totals[i];
        if (older && newer) {
            totals.push_back(
                {name, Count(*newer), Count(*older), Change(static_cast<double>(*newer), static_cast<double>(*older), 0)});
        }
    }
    const std::vector<Column> columns = {
        {"Files that are", kText}, {"New", kNumber}, {c.by_lines ? "Dif" : "Mod", kNumber}, {"Rem", kNumber}, {"Equ", kNumber}};
    if (any(c.added) || any(c.changed) || any(c.removed) || any(c.equal)) {
        AppendTable(
            out,
            c.by_lines
                ? "New and removed files in full; Dif: lines of changed files that differ; Equ: lines that don’t, of changed files "
                  "too"
                : "New and removed files in full; Mod: how much more or less changed files have; Equ: files without a change",
            columns, states);
    } else {
        AppendNothing(out, "The comparison has no profile of new, changed, removed and equal files.");
    }
    AppendTable(out, "All files of the two baselines",
                {{"Figure", kText}, {"Newer", kNumber}, {"Older", kNumber}, {"Change", kNumber}}, totals);
}

namespace {

void WriteTrendPanel(std::string &out, const std::vector<RunFigures> &runs, const FigureRow &row) {
    const std::string name = std::string(row.name) + (*row.unit ? std::string(" ") + row.unit : "");
    std::vector<ChartPoint> points;
    for (const RunFigures &run : runs) {
        const double value = row.value(run);
        if (IsTold(value)) {
            const std::string shown = Fixed(value, row.decimals);
            points.push_back({value, shown, run.name + (run.date.empty() ? "" : ", " + run.date) + ": " + shown});
        }
    }
    out += "<figure><figcaption>" + name + "</figcaption>\n";
    if (points.empty()) {
        AppendNothing(out, kUntoldText);
    } else {
        AppendLine(out, {300, 130, "trend-panel"},
                   name + " over " + Count(static_cast<int64_t>(points.size())) + " runs: from " + points.front().shown + " to " +
                       points.back().shown,
                   points);
    }
    out += "</figure>\n";
}

} // namespace

void WriteTrend(std::string &out, const PageInput &in) {
    AppendParagraph(out, "One step per run, the oldest at the left: " + Isolated(in.trend.front().name) + " to " +
                             Isolated(in.trend.back().name) +
                             ". Each line has a scale of its own, from its lowest to its highest value.");
    out += "<div class=\"panels\">\n";
    std::vector<Column> columns = {{"Run", kText}};
    std::vector<std::vector<std::string>> rows;
    for (const RunFigures &run : in.trend) {
        rows.push_back({Isolated(run.name) + "<span class=\"place\">" + Shown(run.date) + "</span>"});
    }
    for (size_t i = 0; i < kFigureCount; ++i) {
        const FigureRow &row = kFigures[i];
        if (!row.in_trend) {
            continue;
        }
        WriteTrendPanel(out, in.trend, row);
        columns.push_back({NameOf(row), kNumber | (row.leads ? 0U : kWideOnly)});
        for (size_t run = 0; run < in.trend.size(); ++run) {
            rows[run].push_back(Value(row.value(in.trend[run]), row.decimals));
        }
    }
    out += in.trend.size() > kRunsShown ? "</div>\n<details><summary>All runs</summary>\n"
                                        : "</div>\n<details open=\"open\"><summary>All runs</summary>\n";
    AppendTable(out, "Figures of each run, the oldest first", columns, rows);
    out += "</details>\n";
}
