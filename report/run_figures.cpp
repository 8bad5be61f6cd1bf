#include "run_figures.h"

#include <algorithm>
#include <cstdio>
#include <unordered_map>

namespace {

double Ratio(double part, int64_t whole) {
    return whole > 0 ? part / static_cast<double>(whole) : static_cast<double>(kUntold);
}

double Plain(int64_t value) {
    return static_cast<double>(value);
}

// 20261123093007 of "Mon Nov 23 09:30:07 2026".
int64_t OrderOf(const std::string &date) {
    constexpr const char *kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
    char month[4] = "";
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int year = 0;
    if (sscanf(date.c_str(), "%*3s %3s %2d %2d:%2d:%2d %4d", month, &day, &hour, &minute, &second, &year) != 6) {
        return 0;
    }
    const size_t at = std::string(kMonths).find(month);
    if (at == std::string::npos || at % 3 != 0) {
        return 0;
    }
    const auto number = static_cast<int64_t>(at / 3 + 1);
    return ((((year * 100LL + number) * 100 + day) * 100 + hour) * 100 + minute) * 100 + second;
}

size_t BinOf(int64_t complexity) {
    return static_cast<size_t>(std::ranges::lower_bound(kComplexityBins, complexity, {}, &ComplexityBin::last) - kComplexityBins);
}

std::vector<int64_t> DepthsOf(const Model &m) {
    std::unordered_map<TextId, int64_t> deepest;
    for (const TreeRow &row : m.tree) {
        int64_t &depth = deepest[row.name];
        depth = std::max(depth, row.depth);
    }
    std::vector<int64_t> depths;
    for (const auto &[name, depth] : deepest) {
        // A depth is a count of a file that may be anyone's: what is deeper than this stands with the last.
        const auto at = static_cast<size_t>(std::min<int64_t>(depth, 1000));
        depths.resize(std::max(depths.size(), at + 1));
        ++depths[at];
    }
    return depths;
}

} // namespace

RunFigures FiguresOf(const Model &m, const std::string &name) {
    RunFigures f;
    f.name = name;
    f.date = m.texts[m.date];
    f.order = OrderOf(f.date);
    f.modern = m.modern;
    f.files = static_cast<int64_t>(m.files.size());
    f.functions = m.function_sums.count;
    f.classes = m.class_sums.count;
    f.namespaces = static_cast<int64_t>(m.namespaces.size());
    f.lines = m.total;
    f.complexity = m.function_sums.sum;
    f.most_complex = m.function_sums.max.cyclomatic;
    f.longest = m.function_sums.max_lines.loc;
    for (const FunctionRow &function : m.functions) {
        ++f.spread[BinOf(function.complexity.cyclomatic)];
    }
    for (const LanguageRow &language : m.languages) {
        f.languages.push_back({std::string(m.texts[language.name]), language.lines});
    }
    for (const NoticeKind &kind : m.kinds) {
        f.kinds.push_back({kind.number, std::string(m.texts[kind.text]), kind.count});
        f.notices += kind.count;
    }
    f.depths = DepthsOf(m);
    return f;
}

// clang-format off
const FigureRow kFigures[] = {
    // name, unit, brief, decimals, less_is_better, leads, in_trend, value
    {"Files", "", "files", 0, false, true, false, [](const RunFigures &f) { return Plain(f.files); }},
    {"Lines of code", "", "LOC", 0, false, true, true, [](const RunFigures &f) { return Plain(f.lines.loc); }},
    {"Effective lines of code", "", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.lines.eloc); }},
    {"Logical lines of code", "", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.lines.lloc); }},
    {"Comment lines", "", "comments", 0, false, false, false, [](const RunFigures &f) { return Plain(f.lines.comments); }},
    {"Blank lines", "", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.lines.blanks); }},
    {"Physical lines", "", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.lines.lines); }},
    {"Functions", "", "functions", 0, false, true, false, [](const RunFigures &f) { return Plain(f.functions); }},
    {"Classes", "structs and interfaces too", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.classes); }},
    {"Namespaces", "packages too", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.namespaces); }},
    {"Cyclomatic complexity", "of all functions", "", 0, false, false, false, [](const RunFigures &f) { return Plain(f.complexity.cyclomatic); }},
    {"Average complexity", "of a function", "complexity", 2, true, true, true, [](const RunFigures &f) { return Ratio(Plain(f.complexity.cyclomatic), f.functions); }},
    {"Highest complexity", "of a function", "highest", 0, true, false, false, [](const RunFigures &f) { return f.functions ? Plain(f.most_complex) : kUntold; }},
    {"Longest function", "lines of code", "", 0, true, false, false, [](const RunFigures &f) { return f.functions ? Plain(f.longest) : kUntold; }},
    {"Notices", "", "notices", 0, true, false, true, [](const RunFigures &f) { return Plain(f.notices); }},
    {"Notices", "per 1,000 lines of code", "per 1,000", 1, true, true, true, [](const RunFigures &f) { return Ratio(1000.0 * Plain(f.notices), f.lines.loc); }},
};
// clang-format on

const size_t kFigureCount = std::size(kFigures);
