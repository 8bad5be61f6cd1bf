// The sections about the code itself: how its figures spread, and where the largest are.
#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "notice_help.h"
#include "page_html.h"
#include "page_sections.h"
#include "svg_charts.h"

namespace {

constexpr size_t kWorst = 10;     // functions and files in a table
constexpr size_t kTilesWide = 60; // files in a treemap
constexpr size_t kTilesNarrow = 18;
constexpr size_t kDepths = 10; // the last one is open

// The row of rows, which are sorted by a member, where that has this key; null if there is none.
template <class Row, class Key> const Row *Find(const std::vector<Row> &rows, const Key &key, Key Row::*member) {
    const auto at = std::ranges::lower_bound(rows, key, {}, member);
    return at != rows.end() && (*at).*member == key ? &*at : nullptr;
}

} // namespace

void WriteLanguages(std::string &out, const PageInput &in) {
    if (in.now.languages.empty()) {
        AppendNothing(out, "The input has no languages.");
        return;
    }
    std::vector<LanguageLines> languages = in.now.languages;
    const std::vector<LanguageLines> none;
    const std::vector<LanguageLines> &earlier = in.before ? in.before->languages : none;
    for (const LanguageLines &language : earlier) {
        if (!Find(in.now.languages, language.name, &LanguageLines::name)) {
            languages.push_back({language.name, Lines{.blanks = 0}});
        }
    }
    std::ranges::stable_sort(languages, std::greater(), [](const LanguageLines &l) { return l.lines.loc; });
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
            const LanguageLines *was = Find(earlier, language.name, &LanguageLines::name);
            rows.back().push_back(Change(loc, was ? static_cast<double>(was->lines.loc) : 0, 0));
        }
        rows.back().insert(rows.back().end(),
                           {Count(lines.comments), Value(static_cast<double>(lines.blanks), 0), Count(lines.lines)});
    }
    AppendTable(out, "Lines by language; share is of the lines of code", columns, rows);
}

namespace {

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

} // namespace

void WriteComplexity(std::string &out, const PageInput &in) {
    if (in.m.functions.empty()) {
        AppendNothing(out, "The input has no functions.");
        return;
    }
    std::vector<int64_t> sorted;
    sorted.reserve(in.m.functions.size());
    for (const FunctionRow &function : in.m.functions) {
        sorted.push_back(function.complexity.cyclomatic);
    }
    std::ranges::sort(sorted);
    AppendParagraph(out, "Half of the functions have a cyclomatic complexity of at most " + Count(Quantile(sorted, 0.5)) +
                             ", nine of ten of at most " + Count(Quantile(sorted, 0.9)) + "; the highest is " +
                             Count(sorted.back()) + ". It counts the ways through a function, and so the tests that it takes.");
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
        AppendNothing(out, "The input has no functions.");
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

namespace {

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

} // namespace

void WriteFiles(std::string &out, const PageInput &in) {
    std::vector<const FileRow *> files;
    for (const FileRow &file : in.m.files) {
        if (file.lines.loc > 0) {
            files.push_back(&file);
        }
    }
    if (files.empty()) {
        AppendNothing(out, "The input has no files with code.");
        return;
    }
    std::ranges::stable_sort(files, std::greater(), [](const FileRow *f) { return f->lines.loc; });
    files.resize(std::min(files.size(), kTilesWide));
    int64_t loc = 0;
    for (const FileRow *file : files) {
        loc += file->lines.loc;
    }
    AppendParagraph(out, "The " + Count(static_cast<int64_t>(files.size())) + " largest of " + Count(in.now.files) +
                             " files hold " + Share(static_cast<double>(loc), static_cast<double>(in.now.lines.loc)) +
                             " of the lines of code.");
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

namespace {

// The kinds of now and before, the most frequent first.
std::vector<KindCount> AllKinds(const PageInput &in) {
    std::vector<KindCount> kinds = in.now.kinds;
    if (in.before) {
        for (const KindCount &kind : in.before->kinds) {
            if (!Find(in.now.kinds, kind.number, &KindCount::number)) {
                kinds.push_back({kind.number, kind.text, 0});
            }
        }
    }
    std::ranges::stable_sort(kinds, std::greater(), &KindCount::count);
    return kinds;
}

} // namespace

void WriteKinds(std::string &out, const PageInput &in) {
    const std::vector<KindCount> kinds = AllKinds(in);
    if (kinds.empty()) {
        AppendNothing(out, "No notice was raised.");
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
        const std::string shown = Isolated(kind.text);
        const std::string text =
            help ? "<details><summary>" + shown + "</summary><p>" + Shown(help->help) + "</p></details>" : shown;
        rows.push_back({text, std::to_string(kind.number), Bar(count / most), Share(count, static_cast<double>(in.now.notices)),
                        Count(kind.count)});
        if (in.before) {
            const KindCount *was = Find(in.before->kinds, kind.number, &KindCount::number);
            if (was && was->text != kind.text) {
                rows.back()[0] += "<span class=\"place\">before: " + Isolated(was->text) + "</span>";
            }
            rows.back().push_back(Judged(count, was ? static_cast<double>(was->count) : 0, 0, true));
        }
    }
    AppendTable(out,
                in.before ? "Quality notices by kind; each opens to what it means; ▲ is worse, ▼ is better"
                          : "Quality notices by kind; each opens to what it means",
                columns, rows);
}

void WriteInheritance(std::string &out, const PageInput &in) {
    const std::vector<int64_t> &depths = in.now.depths;
    if (depths.empty()) {
        AppendNothing(out, "The input has no inheritance tree.");
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
    AppendParagraph(out, text);
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
