// Two baselines compared file by file. Which files are a pair is in baseline_match.h, how a pair's lines are compared in
// code_compare.h, how the outcome is shown in diff_tables.h.
//
// A pair's difference is the arithmetic one of its metrics; where lines are compared, the line metrics count touched lines instead.
// A changed file then gives two records, of its equal and of its changed part.
#include "baseline/baseline_compare.h"

#include <algorithm>

#include "baseline/baseline_match.h"
#include "baseline/code_compare.h"
#include "baseline/work_file.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/progress.h"

namespace {

void Add(const WorkMetrics &metrics, WorkMetrics *sum) {
    for (int m = 0; m < kWorkMetrics; ++m) {
        sum->of[m] += metrics.of[m];
    }
}

void AddFile(const WorkMetrics &metrics, WorkTotals *totals) {
    ++totals->files;
    Add(metrics, totals);
}

void AddLineCounts(const int (&counts)[kLineKinds], WorkMetrics *sum) {
    const int64_t effective = int64_t{counts[kLineL]} + counts[kLineG];
    const int64_t loc = effective + counts[kLineN];
    sum->of[kWorkLoc] += loc;
    sum->of[kWorkEloc] += effective;
    sum->of[kWorkLloc] += counts[kLineG];
    sum->of[kWorkComments] += counts[kLineC];
    sum->of[kWorkBlanks] += counts[kLineB];
    sum->of[kWorkLines] += loc + counts[kLineC] + counts[kLineB];
}

// How a pair is compared.
enum class Basis {
    kMetrics, // by metrics alone: no lines are asked for, or a baseline holds none
    kLines,   // by its lines: G->line_counts
    kDoubt    // by metrics, because its lines should be there and can't be had: never to be called equal
};

WorkMetrics Difference(const WorkMetrics &older, const WorkMetrics &newer, Basis basis, const Globals *G) {
    WorkMetrics difference;
    for (int m = 0; m < kWorkMetrics; ++m) {
        difference.of[m] = newer.of[m] - older.of[m];
    }
    if (basis == Basis::kLines) {
        std::fill(difference.of + kWorkLoc, difference.of + kWorkLines + 1, 0);
        AddLineCounts(G->line_counts[kLineMod], &difference);
        if (G->diff_removed_as_modified) {
            AddLineCounts(G->line_counts[kLineRm], &difference);
        }
    }
    return difference;
}

// A change of the size in bytes alone is none.
bool IsChange(const WorkMetrics &difference) {
    return std::any_of(difference.of, difference.of + kWorkColumns, [](int64_t value) { return value != 0; });
}

float ElocPercent(const WorkMetrics &older, const WorkMetrics &difference) {
    const auto eloc = static_cast<float>(older.of[kWorkEloc]);
    return eloc > 0 ? static_cast<float>(difference.of[kWorkEloc]) / eloc * 100.0f : 100.0f;
}

bool IsSkipped(int state, const Globals *G) {
    switch (state) {
    case kStateEqual: return G->skip_equal;
    case kStateModified: return G->skip_modified;
    case kStateRemoved: return G->skip_removed;
    default: return G->skip_new;
    }
}

int AddResult(const char *name, int64_t date, const WorkMetrics &metrics, int state, float percent, Globals *G, Llist *result) {
    return AddWorkNode(name, date, metrics, state, percent, IsSkipped(state, G), nullptr, result, G);
}

const char *TextOr(const char *text) {
    return text ? text : "";
}

void ShowPairProgress(const WorkData *older, const WorkData *newer, Globals *G) {
    if (G->progress_by_name) {
        fprintf(stderr, "  + %s vs %s\n", TextOr(older->diff_file), TextOr(newer->diff_file));
    } else {
        CountProgress(std::max(G->old_work_list.count, G->new_work_list.count), G);
    }
}

bool LoadLines(const WorkData *file, const char *work_file, DiffDataList *lines, Globals *G) {
    return LoadDiffDataFile(TextOr(file->diff_file), work_file, MetricsOf(file), lines, G) != 0;
}

// Fills G->line_counts.
Basis ComparePairLines(const WorkData *older, const WorkData *newer, Globals *G) {
    DiffDataList older_lines{};
    DiffDataList newer_lines{};
    const bool older_loaded = LoadLines(older, G->older_work_name, &older_lines, G);
    const bool newer_loaded = LoadLines(newer, G->newer_work_name, &newer_lines, G);
    if (G->diff_debug) {
        Message(G, "\n  Older Diff File: %s\n", TextOr(older->diff_file));
        Message(G, "  Newer Diff File: %s\n", TextOr(newer->diff_file));
    }
    const bool compared = older_loaded && newer_loaded && CompareCodeLCS(older->name, older_lines, newer_lines, G);
    FreeDiffData(&older_lines);
    FreeDiffData(&newer_lines);
    return compared ? Basis::kLines : Basis::kDoubt;
}

// The record of a pair that doesn't differ, or of the equal part of one that does. Without a comparison of lines only the size, a
// part of no table, is left of it.
WorkMetrics EqualPart(const WorkMetrics &difference, Basis basis, const Globals *G) {
    WorkMetrics equal{};
    equal.of[kWorkSize] = difference.of[kWorkSize];
    if (basis == Basis::kLines) {
        AddLineCounts(G->line_counts[kLineEq], &equal);
    }
    return equal;
}

int AddPair(const WorkData *older_file, const WorkData *newer_file, bool lines, Llist *result, Globals *G) {
    if (G->diff_code_lines && G->show_progress) {
        ShowPairProgress(older_file, newer_file, G);
    }
    const Basis basis = lines ? ComparePairLines(older_file, newer_file, G) : Basis::kMetrics;
    const WorkMetrics older = MetricsOf(older_file);
    const WorkMetrics newer = MetricsOf(newer_file);
    const WorkMetrics difference = Difference(older, newer, basis, G);
    AddFile(older, &G->older_totals);
    AddFile(newer, &G->newer_totals);
    Add(difference, &G->diff_totals); // of an equal pair that is its size
    const char *name = older_file->name;
    WorkMetrics equal = EqualPart(difference, basis, G);
    if (!IsChange(difference) && basis != Basis::kDoubt) {
        if (basis == Basis::kLines) {
            std::copy(older.of + kWorkFunctions, older.of + kWorkColumns, equal.of + kWorkFunctions);
        }
        return AddResult(name, newer_file->date, equal, kStateEqual, 0, G, result);
    }
    return AddResult(name, newer_file->date, difference, kStateModified, ElocPercent(older, difference), G, result) &&
           (basis != Basis::kLines || AddResult(name, newer_file->date, equal, kStateEqual, 0, G, result));
}

// A removed file counts whole, for or against the totals as the report's configuration has it for each metric.
int AddRemoved(const WorkData *file, Llist *result, Globals *G) {
    static constexpr ReportElement kSign[kWorkMetrics] = {
        kElementLoc,       kElementEloc,  kElementLloc,      kElementComments,   kElementBlanks,  kElementLines,
        kElementFunctions, kElementCyclo, kElementInterface, kElementComplexity, kElementNotices, kElementLoc};
    WorkMetrics metrics = MetricsOf(file);
    AddFile(metrics, &G->older_totals);
    for (int m = 0; m < kWorkMetrics; ++m) {
        if (!G->report_cfg[kSign[m]].plus) {
            metrics.of[m] = -metrics.of[m];
        }
    }
    Add(metrics, &G->diff_totals);
    const float percent = G->report_cfg[kElementElocPercent].plus ? 100.0f : -100.0f;
    return AddResult(file->name, file->date, metrics, kStateRemoved, percent, G, result);
}

int AddNew(const WorkData *file, Llist *result, Globals *G) {
    const WorkMetrics metrics = MetricsOf(file);
    AddFile(metrics, &G->newer_totals);
    Add(metrics, &G->diff_totals);
    return AddResult(file->name, file->date, metrics, kStateNew, 100.0f, G, result);
}

// False, told once, for a baseline of which no file has line records.
bool HoldsLines(const Llist &files, const char *work_file, Globals *G) {
    for (const WorkData *file : Records<WorkData>(files)) {
        if (*TextOr(file->diff_file)) {
            return true;
        }
    }
    if (files.count > 0) {
        Message(G,
                "  Error: No line records in the work file: %s\n"
                "         A baseline made without -wd has none: its files are compared by their metrics\n",
                work_file);
    }
    return files.count == 0;
}

// Returns 0 when memory is out.
int ClassifyFiles(const Llist &older, const Llist &newer, WorkData *const *newer_of, Llist *result, Globals *G) {
    bool lines = G->diff_code_lines != 0;
    if (lines) {
        const bool in_older = HoldsLines(older, G->older_work_name, G);
        lines = HoldsLines(newer, G->newer_work_name, G) && in_older;
    }
    for (const WorkData *file : Records<WorkData>(older)) {
        const WorkData *const match = *newer_of++;
        if (!(match ? AddPair(file, match, lines, result, G) : AddRemoved(file, result, G))) {
            return 0;
        }
    }
    for (const WorkData *file : Records<WorkData>(newer)) {
        if (file->returns == kStateUnprocessed && !AddNew(file, result, G)) {
            return 0;
        }
    }
    return 1;
}

} // namespace

void DiffWorkLists(Llist *older, Llist *newer, Llist *result, Globals *G) {
    BeginProgress(older->count, G);
    auto *const newer_of = static_cast<WorkData **>(calloc(static_cast<size_t>(older->count) + 1, sizeof(WorkData *)));
    // what was added last stands first among equal names: a changed file's equal part ahead of its changed one
    const bool whole = newer_of && MatchFiles(*older, *newer, newer_of, G) && ClassifyFiles(*older, *newer, newer_of, result, G);
    if (!LlistSort(result, CompName_NodeData, 0) || !whole) {
        MemoryError(G);
    }
    free(newer_of);
}
