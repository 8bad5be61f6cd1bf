#include "between.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

#include "known.h"
#include "page_html.h"
#include "run_figures.h"
#include "severity.h"
#include "text_lines.h"

namespace {

constexpr const char *kStateNames[] = {"new", "changed", "removed"}; // by FileState

using Rows = std::vector<std::vector<std::string>>;

void Line(LineWriter &w, const std::string &text) {
    w.text += text;
    EndLine(w);
}

std::string Number(size_t count) {
    return Count(static_cast<int64_t>(count));
}

// rows are those of the all that are listed.
void WriteSection(LineWriter &w, const std::string &heading, Rows rows, const std::vector<std::string> &head,
                  std::string_view alignment, size_t all) {
    Line(w, "");
    Line(w, heading);
    const size_t listed = rows.size();
    if (listed > 0 && !head.empty()) {
        rows.insert(rows.begin(), head);
    }
    AppendColumns(w, rows, alignment, "  ");
    if (all > listed) {
        Line(w, "  and " + Number(all - listed) + " more (-n lists more)");
    }
}

void WriteTotals(LineWriter &w, const Between &b) {
    const RunFigures before = FiguresOf(b.older.m, "");
    const RunFigures now = FiguresOf(b.newer.m, "");
    Rows rows = {{"", Plain(b.older.commit.name), Plain(b.newer.commit.name), "Change"},
                 {"", b.older.commit.iso.substr(0, 10), b.newer.commit.iso.substr(0, 10), ""}};
    for (size_t i = 0; i < kFigureCount; ++i) {
        const FigureRow &row = kFigures[i];
        const double older = row.value(before);
        const double newer = row.value(now);
        const std::string unit = *row.unit ? std::string(" (") + row.unit + ")" : "";
        rows.push_back({row.name + unit, PlainValue(older, row.decimals), PlainValue(newer, row.decimals),
                        PlainChange(newer, older, row.decimals)});
    }
    AppendColumns(w, rows, "lrrr");
}

void WriteFiles(LineWriter &w, const Between &b, size_t most) {
    constexpr size_t kFiles = 0; // places of kCompareMetrics
    constexpr size_t kLoc = 1;
    const auto size_of = [](const ComparedFile &file) { return std::abs(file.figures[kLoc].value_or(0)); };
    std::vector<ComparedFile> files = b.comparison.files;
    std::ranges::stable_sort(files, [&](const ComparedFile &a, const ComparedFile &c) {
        return size_of(a) != size_of(c) ? size_of(a) > size_of(c) : a.path < c.path;
    });
    size_t states[std::size(kStateNames)] = {};
    Rows rows;
    for (const ComparedFile &file : files) {
        ++states[static_cast<size_t>(file.state)];
        if (rows.size() < most) {
            rows.push_back({kStateNames[static_cast<size_t>(file.state)], Count(size_of(file)), Plain(file.path)});
        }
    }
    const auto newer = static_cast<size_t>(b.comparison.newer.totals[kFiles].value_or(0));
    WriteSection(w,
                 "Files: " + Number(states[0]) + " new, " + Number(states[1]) + " changed, " + Number(states[2]) + " removed, " +
                     Number(newer - std::min(newer, states[0] + states[1])) + " equal",
                 rows, {"", "LOC", "file"}, "lrl", files.size());
}

struct Changed {
    FileState state;
    uint32_t older; // index of its functions; kNone
    uint32_t newer;
};

std::string KeyOf(const Model &m, const FunctionRow &f) {
    std::string key(m.texts[m.files[f.file].path]);
    for (const TextId part : {f.name, f.signature, f.pattern}) {
        key.append(1, '\0').append(m.texts[part]);
    }
    return key;
}

bool IsEqual(const Between &b, uint32_t older, uint32_t newer) {
    const FunctionRow &a = b.older.m.functions[older];
    const FunctionRow &c = b.newer.m.functions[newer];
    return b.older.bodies[older] == b.newer.bodies[newer] && a.complexity.cyclomatic == c.complexity.cyclomatic;
}

// Functions of one key are taken in their order: the first of them is the first.
std::vector<Changed> FindChanged(const Between &b) {
    std::unordered_map<std::string, std::vector<uint32_t>> before;
    const auto &olds = b.older.m.functions;
    const auto &news = b.newer.m.functions;
    for (auto f = static_cast<uint32_t>(olds.size()); f-- > 0;) {
        before[KeyOf(b.older.m, olds[f])].push_back(f);
    }
    std::vector<Changed> found;
    for (uint32_t f = 0; f < news.size(); ++f) {
        const auto same = before.find(KeyOf(b.newer.m, news[f]));
        if (same == before.end() || same->second.empty()) {
            found.push_back({FileState::kAdded, kNone, f});
            continue;
        }
        const uint32_t older = same->second.back();
        same->second.pop_back();
        if (!IsEqual(b, older, f)) {
            found.push_back({FileState::kChanged, older, f});
        }
    }
    std::vector<uint32_t> removed;
    for (const auto &[key, left] : before) {
        removed.insert(removed.end(), left.begin(), left.end());
    }
    std::ranges::sort(removed);
    for (const uint32_t f : removed) {
        found.push_back({FileState::kRemoved, f, kNone});
    }
    return found;
}

// "3" or "3 -> 7".
std::string FromTo(int64_t before, int64_t now) {
    return before == now ? Count(now) : Count(before) + " -> " + Count(now);
}

std::vector<std::string> RowOf(const Between &b, const Changed &change) {
    const bool gone = change.newer == kNone;
    const Model &m = gone ? b.older.m : b.newer.m;
    const FunctionRow &now = m.functions[gone ? change.older : change.newer];
    const FunctionRow &before = change.state == FileState::kChanged ? b.older.m.functions[change.older] : now;
    return {kStateNames[static_cast<size_t>(change.state)], FromTo(before.complexity.cyclomatic, now.complexity.cyclomatic),
            FromTo(before.lines.lines, now.lines.lines), Place(m, now.file, now.first_line), Plain(m.texts[now.name])};
}

// What changes complexity most comes first.
int64_t WeightOf(const Between &b, const Changed &change) {
    const int64_t before = change.older == kNone ? 0 : b.older.m.functions[change.older].complexity.cyclomatic;
    const int64_t now = change.newer == kNone ? 0 : b.newer.m.functions[change.newer].complexity.cyclomatic;
    return std::abs(now - before);
}

void WriteFunctions(LineWriter &w, const Between &b, size_t most) {
    std::vector<Changed> changes = FindChanged(b);
    std::ranges::stable_sort(changes, std::ranges::greater(), [&b](const Changed &c) { return WeightOf(b, c); });
    size_t states[std::size(kStateNames)] = {};
    Rows rows;
    for (const Changed &change : changes) {
        ++states[static_cast<size_t>(change.state)];
        if (rows.size() < most) {
            rows.push_back(RowOf(b, change));
        }
    }
    WriteSection(w,
                 "Functions: " + Number(states[0]) + " new, " + Number(states[1]) + " changed, " + Number(states[2]) + " removed",
                 rows, {"", "complexity", "lines", "place", "function"}, "lrrll", changes.size());
}

void WriteNotices(LineWriter &w, const Between &b, size_t most) {
    const Model &m = b.newer.m;
    Fresh fresh = FindFresh(m, KnownOf(b.older.m));
    std::ranges::stable_sort(fresh.notices, {}, [&m](uint32_t n) { return SeverityOf(m.notices[n].number); });
    Rows rows;
    for (const uint32_t n : fresh.notices) {
        if (rows.size() < most) {
            AppendNotice(rows.emplace_back().emplace_back(), m, m.notices[n]);
        }
    }
    WriteSection(w, "Notices: " + Number(fresh.notices.size()) + " new, " + Number(fresh.gone) + " gone", rows, {}, "l",
                 fresh.notices.size());
}

} // namespace

bool WriteBetween(const Between &b, size_t most, std::FILE *out) {
    LineWriter w{out};
    WriteTotals(w, b);
    WriteFiles(w, b, most);
    WriteFunctions(w, b, most);
    WriteNotices(w, b, most);
    return Finish(w);
}
