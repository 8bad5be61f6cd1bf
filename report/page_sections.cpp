// The page from top to bottom: each section is a row of kSections.
#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <unordered_map>

#include "notice_help.h"
#include "page.h"
#include "page_html.h"
#include "page_style.h"
#include "svg_charts.h"

namespace {

constexpr size_t kWorst = 10;     // functions and files in a table
constexpr size_t kTilesWide = 60; // files in a treemap
constexpr size_t kTilesNarrow = 18;
constexpr size_t kDepths = 10;    // the last one is open
constexpr size_t kRunsShown = 20; // more runs than these are a closed table
constexpr const char *kUntoldText = "not in the input";

bool IsTold(double value) {
    return value != static_cast<double>(kUntold);
}

std::string Value(double value, int decimals) {
    return IsTold(value) ? Fixed(value, decimals) : std::string("<span class=\"soft\">") + kUntoldText + "</span>";
}

// A change with a colour and, for whom colours are the same, an arrow and a word.
std::string Judged(double now, double before, int decimals, bool less_is_better) {
    if (!IsTold(now) || !IsTold(before)) {
        return "–";
    }
    const std::string change = Change(now, before, decimals);
    if (!less_is_better || change == "0") {
        return change;
    }
    return now > before ? "<span class=\"worse\">▲ " + change + "</span>" : "<span class=\"better\">▼ " + change + "</span>";
}

void Paragraph(std::string &out, const std::string &html) {
    out += "<p>" + html + "</p>\n";
}

// The name of a figure with its unit.
std::string NameOf(const FigureRow &row) {
    return row.name + (*row.unit ? std::string(" <span class=\"unit\">") + row.unit + "</span>" : "");
}

// What stands in a section of which the input has nothing.
void Nothing(std::string &out, const char *text) {
    out += std::string("<p class=\"soft\">") + text + "</p>\n";
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
        Nothing(out, "Only one of the two runs reads today’s constructs (-xMODERN): a part of the change comes from that.");
    }
}

std::string Told(const std::optional<int64_t> &value) {
    return value ? Count(*value) : std::string("<span class=\"soft\">") + kUntoldText + "</span>";
}

void WriteComparison(std::string &out, const PageInput &in) {
    const Comparison &c = *in.comparison;
    Paragraph(out, "Older: " + Isolated(c.older.name) + ", " + Shown(c.older.date) + ". Newer: " + Isolated(c.newer.name) + ", " +
                       Shown(c.newer.date) + ".");
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
        Nothing(out, "The comparison has no profile of new, changed, removed and equal files.");
    }
    AppendTable(out, "All files of the two baselines",
                {{"Figure", kText}, {"Newer", kNumber}, {"Older", kNumber}, {"Change", kNumber}}, totals);
}

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
        Nothing(out, kUntoldText);
    } else {
        AppendLine(out, {300, 130, "trend-panel"},
                   name + " over " + Count(static_cast<int64_t>(points.size())) + " runs: from " + points.front().shown + " to " +
                       points.back().shown,
                   points);
    }
    out += "</figure>\n";
}

void WriteTrend(std::string &out, const PageInput &in) {
    Paragraph(out, "One step per run, the oldest at the left: " + Isolated(in.trend.front().name) + " to " +
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

void WriteLanguages(std::string &out, const PageInput &in) {
    if (in.now.languages.empty()) {
        Nothing(out, "The input has no languages.");
        return;
    }
    std::vector<LanguageLines> languages = in.now.languages;
    std::ranges::stable_sort(languages, std::greater(), [](const LanguageLines &l) { return l.lines.loc; });
    std::map<std::string, int64_t> before;
    if (in.before) {
        for (const LanguageLines &language : in.before->languages) {
            before[language.name] = language.lines.loc;
            if (std::ranges::find(languages, language.name, &LanguageLines::name) == languages.end()) {
                languages.push_back({language.name, Lines{.blanks = 0}});
            }
        }
    }
    std::vector<Column> columns = {{"Language", kText}, {"", kWideOnly}, {"Share", kNumber}, {"Lines of code", kNumber}};
    if (in.before) {
        columns.push_back({"Change", kNumber});
    }
    columns.insert(
        columns.end(),
        {{"Comment lines", kNumber | kWideOnly}, {"Blank lines", kNumber | kWideOnly}, {"Physical lines", kNumber | kWideOnly}});
    const auto total = static_cast<double>(in.now.lines.loc);
    std::vector<std::vector<std::string>> rows;
    for (const LanguageLines &language : languages) {
        const Lines &lines = language.lines;
        const auto loc = static_cast<double>(lines.loc);
        rows.push_back({Isolated(language.name), Bar(total > 0 ? loc / total : 0), Share(loc, total), Count(lines.loc)});
        if (in.before) {
            rows.back().push_back(Change(loc, static_cast<double>(before[language.name]), 0));
        }
        rows.back().insert(rows.back().end(),
                           {Count(lines.comments), Value(static_cast<double>(lines.blanks), 0), Count(lines.lines)});
    }
    AppendTable(out, "Lines by language; share is of the lines of code", columns, rows);
}

// A wide and a narrow drawing of the same columns.
void WriteColumns(std::string &out, const std::string &caption, const std::string &label, const std::vector<ChartColumn> &columns) {
    out += "<figure><figcaption>" + caption + "</figcaption>\n";
    AppendColumns(out, {620, 300, "wide"}, label, columns);
    std::vector<ChartColumn> narrow = columns;
    for (ChartColumn &column : narrow) {
        column.label = column.brief;
    }
    AppendColumns(out, {348, 220, "narrow"}, label, narrow);
    out += "</figure>\n";
}

// The complexity that this part of the functions, 0 to 1, doesn't exceed.
int64_t Quantile(std::vector<int64_t> &sorted, double part) {
    return sorted[static_cast<size_t>(std::max(std::ceil(part * static_cast<double>(sorted.size())) - 1, 0.0))];
}

void WriteComplexity(std::string &out, const PageInput &in) {
    if (in.m.functions.empty()) {
        Nothing(out, "The input has no functions.");
        return;
    }
    std::vector<int64_t> sorted;
    sorted.reserve(in.m.functions.size());
    for (const FunctionRow &function : in.m.functions) {
        sorted.push_back(function.complexity.cyclomatic);
    }
    std::ranges::sort(sorted);
    Paragraph(out, "Half of the functions have a cyclomatic complexity of at most " + Count(Quantile(sorted, 0.5)) +
                       ", nine of ten of at most " + Count(Quantile(sorted, 0.9)) + "; the highest is " + Count(sorted.back()) +
                       ". It counts the ways through a function, and so the tests that it takes.");
    const RunFigures *before = in.before && in.before->functions > 0 ? &*in.before : nullptr;
    const auto functions = static_cast<double>(in.now.functions);
    std::vector<ChartColumn> chart;
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < std::size(kComplexityBins); ++i) {
        const std::string label = kComplexityBins[i].label;
        const int64_t count = in.now.spread[i];
        const int64_t earlier = before ? before->spread[i] : kUntold;
        chart.push_back(
            {label, kComplexityBins[i].brief, static_cast<double>(count), static_cast<double>(earlier), Count(count),
             "Complexity " + label + ": " + Count(count) + " functions" + (before ? ", before " + Count(earlier) : "")});
        rows.push_back({label, Count(count), Share(static_cast<double>(count), functions)});
        if (before) {
            rows.back().push_back(Count(earlier));
        }
    }
    out += "<div class=\"two\">\n";
    WriteColumns(
        out,
        before ? "Functions by cyclomatic complexity; the line across a column is before" : "Functions by cyclomatic complexity",
        "Histogram of " + Count(in.now.functions) + " functions by cyclomatic complexity; the table beside it has the figures",
        chart);
    std::vector<Column> columns = {{"Complexity", kText}, {"Functions", kNumber}, {"Share", kNumber}};
    if (before) {
        columns.push_back({"Before", kNumber});
    }
    AppendTable(out, "The spread in figures", columns, rows);
    out += "</div>\n";
}

void WriteWorst(std::string &out, const PageInput &in) {
    if (in.m.functions.empty()) {
        Nothing(out, "The input has no functions.");
        return;
    }
    const Model &m = in.m;
    std::vector<uint32_t> order(m.functions.size());
    std::iota(order.begin(), order.end(), 0U);
    const size_t count = std::min(kWorst, order.size());
    std::ranges::partial_sort(order, order.begin() + static_cast<ptrdiff_t>(count), {}, [&m](uint32_t f) {
        const FunctionRow &function = m.functions[f];
        return std::tuple(-function.complexity.cyclomatic, -function.lines.loc, f);
    });
    std::unordered_map<uint32_t, int64_t> notices;
    for (size_t i = 0; i < count; ++i) {
        notices[order[i]] = 0;
    }
    for (const Notice &notice : m.notices) {
        const auto at = notices.find(notice.function);
        if (at != notices.end()) {
            ++at->second;
        }
    }
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < count; ++i) {
        const FunctionRow &function = m.functions[order[i]];
        rows.push_back({Isolated(m.texts[function.name]) + "<span class=\"place\">" +
                            Isolated(m.texts[m.files[function.file].path]) + ":<span class=\"nobr\">" +
                            std::to_string(function.first_line) + "–" + std::to_string(function.end_line) + "</span></span>",
                        Count(function.complexity.cyclomatic), Count(function.lines.loc), Count(function.complexity.parameters),
                        Count(function.complexity.returns), Count(notices[order[i]])});
    }
    AppendTable(out, "Functions of the highest cyclomatic complexity, with the lines of their bodies",
                {{"Function", kText},
                 {"Complexity", kNumber},
                 {"Lines of code", kNumber},
                 {"Parameters", kNumber | kWideOnly},
                 {"Return points", kNumber | kWideOnly},
                 {"Notices within", kNumber}},
                rows);
}

double Density(const FileRow &file) {
    return file.lines.loc > 0 ? 1000.0 * file.notice_count / static_cast<double>(file.lines.loc) : 0;
}

std::string BaseName(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
}

std::vector<ChartTile> Tiles(const PageInput &in, const std::vector<const FileRow *> &files, double average) {
    std::vector<ChartTile> tiles;
    for (const FileRow *file : files) {
        const double density = Density(*file);
        const int tint = average <= 0 || density <= average / 2 ? 1 : density <= average ? 2 : density <= 2 * average ? 3 : 4;
        tiles.push_back({static_cast<double>(file->lines.loc), tint, BaseName(in.m.texts[file->path]), Count(file->lines.loc),
                         std::string(in.m.texts[file->path]) + ", " + kLanguageNames[static_cast<int>(file->language)] + ": " +
                             Count(file->lines.loc) + " lines of code, " + Count(file->notice_count) + " notices, " +
                             Fixed(density, 1) + " per 1,000 lines"});
    }
    return tiles;
}

void WriteTileLegend(std::string &out, double average) {
    const std::string texts[] = {"up to " + Fixed(average / 2, 1), "up to " + Fixed(average, 1) + ", the average of the project",
                                 "up to " + Fixed(2 * average, 1), "more"};
    out += "<ul class=\"legend\">\n<li>Notices per 1,000 lines:</li>\n";
    for (size_t i = 0; i < std::size(texts); ++i) {
        out += "<li><svg viewBox=\"0 0 10 10\" aria-hidden=\"true\"><rect width=\"10\" height=\"10\" class=\"t" +
               std::to_string(i + 1) + "\"/></svg>" + texts[i] + "</li>\n";
    }
    out += "</ul>\n";
}

void WriteTreemap(std::string &out, const PageInput &in, const std::vector<const FileRow *> &files) {
    const double average =
        in.now.lines.loc > 0 ? 1000.0 * static_cast<double>(in.now.notices) / static_cast<double>(in.now.lines.loc) : 0;
    int64_t shown = 0;
    for (const FileRow *file : files) {
        shown += file->lines.loc;
    }
    const std::vector<ChartTile> tiles = Tiles(in, files, average);
    const std::string count = Count(static_cast<int64_t>(tiles.size()));
    out += "<figure><figcaption>The area of a file is its lines of code";
    out += average > 0 ? "; the stronger its colour, the more notices per 1,000 of them</figcaption>\n" : "</figcaption>\n";
    AppendTiles(out, {1040, 460, "wide"},
                "Treemap of the " + count + " largest files by lines of code, " +
                    Share(static_cast<double>(shown), static_cast<double>(in.now.lines.loc)) + " of all; the table has the largest",
                tiles);
    const std::vector<ChartTile> fewer(tiles.begin(), tiles.begin() + static_cast<ptrdiff_t>(std::min(kTilesNarrow, tiles.size())));
    AppendTiles(out, {348, 420, "narrow"},
                "Treemap of the " + Count(static_cast<int64_t>(fewer.size())) + " largest files by lines of code", fewer);
    out += "</figure>\n";
    if (average > 0) {
        WriteTileLegend(out, average);
    }
}

void WriteFiles(std::string &out, const PageInput &in) {
    std::vector<const FileRow *> files;
    for (const FileRow &file : in.m.files) {
        if (file.lines.loc > 0) {
            files.push_back(&file);
        }
    }
    if (files.empty()) {
        Nothing(out, "The input has no files with code.");
        return;
    }
    std::ranges::stable_sort(files, std::greater(), [](const FileRow *f) { return f->lines.loc; });
    files.resize(std::min(files.size(), kTilesWide));
    int64_t loc = 0;
    for (const FileRow *file : files) {
        loc += file->lines.loc;
    }
    Paragraph(out, "The " + Count(static_cast<int64_t>(files.size())) + " largest of " + Count(in.now.files) + " files hold " +
                       Share(static_cast<double>(loc), static_cast<double>(in.now.lines.loc)) + " of the lines of code.");
    WriteTreemap(out, in, files);
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < std::min(files.size(), kWorst); ++i) {
        const FileRow &file = *files[i];
        rows.push_back({Isolated(in.m.texts[file.path]), kLanguageNames[static_cast<int>(file.language)], Count(file.lines.loc),
                        Count(file.lines.comments), Count(file.lines.lines), Count(file.notice_count), Fixed(Density(file), 1)});
    }
    AppendTable(out, "Files with the most lines of code",
                {{"File", kText},
                 {"Language", kWideOnly},
                 {"Lines of code", kNumber},
                 {"Comment lines", kNumber | kWideOnly},
                 {"Physical lines", kNumber | kWideOnly},
                 {"Notices", kNumber},
                 {"per 1,000 lines", kNumber}},
                rows);
}

// The kinds of now and before, the most frequent first.
std::vector<KindCount> AllKinds(const PageInput &in) {
    std::vector<KindCount> kinds = in.now.kinds;
    if (in.before) {
        for (const KindCount &kind : in.before->kinds) {
            if (std::ranges::find(in.now.kinds, kind.number, &KindCount::number) == in.now.kinds.end()) {
                kinds.push_back({kind.number, kind.text, 0});
            }
        }
    }
    std::ranges::stable_sort(kinds, std::greater(), &KindCount::count);
    return kinds;
}

void WriteKinds(std::string &out, const PageInput &in) {
    const std::vector<KindCount> kinds = AllKinds(in);
    if (kinds.empty()) {
        Nothing(out, "No notice was raised.");
        return;
    }
    std::vector<Column> columns = {
        {"Notice", kText}, {"No.", kNumber | kWideOnly}, {"", kWideOnly}, {"Share", kNumber}, {"Count", kNumber}};
    if (in.before) {
        columns.push_back({"Change", kNumber});
    }
    std::vector<std::vector<std::string>> rows;
    const auto most = static_cast<double>(std::max<int64_t>(kinds.front().count, 1));
    for (const KindCount &kind : kinds) {
        const auto count = static_cast<double>(kind.count);
        const NoticeHelp *help = FindNoticeHelp(kind.number);
        std::string text = Isolated(kind.text);
        if (help) {
            text = "<details><summary>" + text + "</summary><p>" + Shown(help->help) + "</p></details>";
        }
        rows.push_back({text, std::to_string(kind.number), Bar(count / most), Share(count, static_cast<double>(in.now.notices)),
                        Count(kind.count)});
        if (in.before) {
            const auto earlier = std::ranges::find(in.before->kinds, kind.number, &KindCount::number);
            const bool was = earlier != in.before->kinds.end();
            if (was && earlier->text != kind.text) {
                rows.back()[0] += "<span class=\"place\">before: " + Isolated(earlier->text) + "</span>";
            }
            rows.back().push_back(Judged(count, was ? static_cast<double>(earlier->count) : 0, 0, true));
        }
    }
    AppendTable(out, "Quality notices by kind; each opens to what it means", columns, rows);
}

void WriteInheritance(std::string &out, const PageInput &in) {
    const std::vector<int64_t> &depths = in.now.depths;
    if (depths.empty()) {
        Nothing(out, "The input has no inheritance tree.");
        return;
    }
    const TreeRow &deepest = *std::ranges::max_element(in.m.tree, {}, &TreeRow::depth);
    const TreeRow &widest = *std::ranges::max_element(in.m.tree, {}, &TreeRow::children);
    std::string text = "A class without a base has depth 0. ";
    if (deepest.depth > 0) {
        text += "The deepest is " + Isolated(in.m.texts[deepest.name]) + " at " + Count(deepest.depth) +
                ". Most classes derive directly from " + Isolated(in.m.texts[widest.name]) + ": " + Count(widest.children) + ".";
    } else {
        text += "No class here has a base that is among the files.";
    }
    Paragraph(out, text);
    const std::vector<int64_t> none;
    const std::vector<int64_t> &before = in.before ? in.before->depths : none;
    const size_t count = std::min(std::max(depths.size(), before.size()), kDepths);
    const auto at = [count](const std::vector<int64_t> &all, size_t depth) {
        int64_t sum = 0;
        for (size_t i = depth; i < (depth + 1 == count ? all.size() : std::min(depth + 1, all.size())); ++i) {
            sum += all[i];
        }
        return sum;
    };
    const int64_t classes = std::accumulate(depths.begin(), depths.end(), int64_t{0});
    std::vector<ChartColumn> chart;
    std::vector<std::vector<std::string>> rows;
    for (size_t depth = 0; depth < count; ++depth) {
        const bool open = depth + 1 == count && std::max(depths.size(), before.size()) > count;
        const std::string label = std::to_string(depth) + (open ? "+" : "");
        const int64_t now = at(depths, depth);
        const int64_t earlier = before.empty() ? kUntold : at(before, depth);
        chart.push_back({label, label, static_cast<double>(now), static_cast<double>(earlier), Count(now),
                         "Depth " + label + ": " + Count(now) + " classes" + (before.empty() ? "" : ", before " + Count(earlier))});
        rows.push_back({label, Count(now), Share(static_cast<double>(now), static_cast<double>(classes))});
        if (!before.empty()) {
            rows.back().push_back(Count(earlier));
        }
    }
    out += "<div class=\"two\">\n";
    WriteColumns(
        out, before.empty() ? "Classes by inheritance depth" : "Classes by inheritance depth; the line across a column is before",
        "Histogram of " + Count(classes) + " classes by inheritance depth; the table beside it has the figures", chart);
    std::vector<Column> columns = {{"Depth", kText}, {"Classes", kNumber}, {"Share", kNumber}};
    if (!before.empty()) {
        columns.push_back({"Before", kNumber});
    }
    AppendTable(out, "Depth in figures; a class that has several bases counts where it stands deepest", columns, rows);
    out += "</div>\n";
}

struct Section {
    const char *id;
    const char *title;
    bool (*is_wanted)(const PageInput &in);
    void (*write)(std::string &out, const PageInput &in);
};

bool Always(const PageInput &) {
    return true;
}

constexpr Section kSections[] = {
    {"summary", "Summary", Always, WriteSummary},
    {"baselines", "Comparison of two baselines", [](const PageInput &in) { return in.comparison.has_value(); }, WriteComparison},
    {"trend", "Trend", [](const PageInput &in) { return !in.trend.empty(); }, WriteTrend},
    {"languages", "Languages", Always, WriteLanguages},
    {"complexity", "Spread of complexity", Always, WriteComplexity},
    {"functions", "Most complex functions", Always, WriteWorst},
    {"files", "Largest files", Always, WriteFiles},
    {"notices", "Notices", Always, WriteKinds},
    {"inheritance", "Inheritance", Always, WriteInheritance},
};

void WriteHead(std::string &out, const PageInput &in) {
    const std::string title = in.m.title ? Shown(in.m.texts[in.m.title]) : "Code metrics";
    out += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src &apos;none&apos;; style-src "
           "&apos;unsafe-inline&apos;\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
           "<meta name=\"color-scheme\" content=\"light dark\"/>\n<title>" +
           title + "</title>\n<style>" + kPageStyle + "</style>\n</head>\n<body>\n<header>\n<h1>" + title + "</h1>\n";
    out += "<p class=\"soft\">";
    out += in.now.date.empty() ? "Measured" : "Measured " + Shown(in.now.date);
    out += in.m.version ? " by tly " + Shown(in.m.texts[in.m.version]) : " by tly";
    out += in.now.modern ? ", with today’s constructs <span class=\"nobr\">(-xMODERN)</span>." : ".";
    if (in.before) {
        out +=
            " Compared with " + Isolated(in.before->name) + (in.before->date.empty() ? "" : " of " + Shown(in.before->date)) + ".";
    }
    out += "</p>\n<nav aria-label=\"Sections\"><ul>\n";
    for (const Section &section : kSections) {
        if (section.is_wanted(in)) {
            out += std::string("<li><a href=\"#") + section.id + "\">" + section.title + "</a></li>\n";
        }
    }
    out += "</ul></nav>\n</header>\n<main>\n";
}

void WriteFoot(std::string &out, const PageInput &in) {
    out += "</main>\n<footer>\n<section id=\"terms\" aria-labelledby=\"terms-title\">\n<h2 id=\"terms-title\">What the figures "
           "mean</h2>\n<dl>\n"
           "<dt>Lines of code</dt><dd>lines with more on them than white space and comments</dd>\n"
           "<dt>Effective lines of code</dt><dd>of these, lines with more than a brace or a parenthesis</dd>\n"
           "<dt>Logical lines of code</dt><dd>statements</dd>\n"
           "<dt>Comment lines</dt><dd>lines with comment text, also beside code</dd>\n"
           "<dt>Cyclomatic complexity</dt><dd>ways through a function: one, and one more for each decision</dd>\n"
           "<dt>Notice</dt><dd>a place where the code departs from a rule of good practice</dd>\n"
           "</dl>\n";
    if (in.m.command) {
        Paragraph(out, "Command of the run: " + Isolated(in.m.texts[in.m.command]));
    }
    out += "</section>\n</footer>\n</body>\n</html>\n";
}

} // namespace

bool WritePage(const PageInput &in, std::FILE *file) {
    std::string out;
    WriteHead(out, in);
    for (const Section &section : kSections) {
        if (section.is_wanted(in)) {
            const std::string id = section.id;
            out += "<section id=\"" + id + "\" aria-labelledby=\"" + id + "-title\">\n<h2 id=\"" + id + "-title\">" +
                   section.title + "</h2>\n";
            section.write(out, in);
            out += "</section>\n";
        }
    }
    WriteFoot(out, in);
    return fwrite(out.data(), 1, out.size(), file) == out.size() && fflush(file) == 0;
}
