// Each commit is measured whole, by a tly that counts notices and lists none: what a file tells depends on the words that other
// files define, so that its figures can't be kept from one commit to the next. Between commits only what differs is written.
#include "trend.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "measure_tree.h"
#include "output.h"
#include "page.h"
#include "scratch.h"
#include "tell.h"
#include "text_lines.h"

namespace {

struct Trend {
    const Options &options;
    Repository repository{};
    Tree tree;
    std::vector<TrendRow> rows{};
    Model last{}; // of the last commit, with its notices, if there is to be a page
};

bool FindRows(Trend &t) {
    std::string error;
    std::vector<Commit> commits;
    const auto count = static_cast<size_t>(t.options.count);
    const bool found = OpenRepository(t.options.paths, t.repository, error) &&
                       (t.options.tags ? LastTags(t.repository, count, commits, error)
                                       : LastCommits(t.repository, count, static_cast<size_t>(t.options.every), commits, error));
    if (!found) {
        return Tell(error);
    }
    if (commits.size() < count) {
        Tell("only " + Counted(commits.size(), t.options.tags ? "tag" : "commit") +
             (IsShallow(t.repository) ? ": the repository is shallow, git fetch --unshallow brings the rest." : " there."));
    }
    for (Commit &commit : commits) {
        t.rows.push_back({std::move(commit), {}});
    }
    return true;
}

bool MeasureRow(Trend &t, TrendRow &row, bool listed, Model &m) {
    std::string error;
    if (!MeasureTree(t.options, t.tree, listed, m, error)) {
        return !error.empty() && Tell(row.commit.name + ": " + error);
    }
    m.date = m.texts.Intern(row.commit.date);
    row.figures = FiguresOf(m, row.commit.name);
    return true;
}

// A commit that changes no source has the figures of the one before.
bool MeasureRows(Trend &t) {
    bool any = false;
    size_t submodules = 0;
    for (size_t i = 0; i < t.rows.size(); ++i) {
        TrendRow &row = t.rows[i];
        const Tree before = t.tree;
        std::string error;
        if (!CheckOut(t.repository, row.commit, t.tree, error)) {
            return Tell(error);
        }
        submodules = std::max(submodules, t.tree.submodules.size());
        const bool same = i > 0 && before.files == t.tree.files && before.rules == t.tree.rules;
        const bool is_page = i + 1 == t.rows.size() && !t.options.page.empty();
        Model m;
        if (same && !is_page) {
            row.figures = t.rows[i - 1].figures;
            row.figures.name = row.commit.name;
            row.figures.date = row.commit.date;
        } else if (!MeasureRow(t, row, is_page, is_page ? t.last : m)) {
            return false;
        }
        any = any || !t.tree.files.empty();
    }
    if (submodules > 0) {
        Tell(Counted(submodules, "submodule") + " left out.");
    }
    return any || Tell("there are no sources of C, C++, C# or Java in these commits.");
}

int WritePageOf(Trend &t) {
    t.last.command = t.last.texts.Intern("tly-report trend " + std::to_string(t.rows.size()));
    PageInput in{t.last, t.rows.back().figures, {}, {}, {}};
    for (const TrendRow &row : t.rows) {
        in.trend.push_back(row.figures);
    }
    return WriteOutput(t.options.page, [&in](std::FILE *out) { return WritePage(in, out); });
}

} // namespace

int RunTrend(const Options &options) {
    const auto *const form = std::ranges::find(kTrendForms, options.form);
    if (form == std::end(kTrendForms) || options.count < 1 || options.every < 1) {
        Tell(form == std::end(kTrendForms)
                 ? "--form " + options.form + ": it takes text, csv or json."
                 : "N and K of --every K are at least 1: tly-report trend 20, tly-report trend 20 --every 5.");
        return kBad;
    }
    return InScratch([&](const std::string &place) {
        Trend t{.options = options, .tree = {place}};
        if (!FindRows(t) || !MeasureRows(t)) {
            return kBad;
        }
        const int page = options.page.empty() ? kFine : WritePageOf(t);
        return std::max(page, WriteOutput(options.output, [&](std::FILE *out) {
                            return WriteTrendAs(static_cast<TrendForm>(form - kTrendForms), t.rows, out);
                        }));
    });
}
