// Two baselines matched by name. How a pair's lines are compared is in code_compare.h, how the outcome is shown in diff_tables.h.
//
// A pair's difference is the arithmetic one of its metrics; where lines are compared, the line metrics count touched lines instead.
// A changed file then gives two records, of its equal and of its changed part.
#include "baseline/baseline_compare.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "baseline/code_compare.h"
#include "baseline/work_file.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/name_index.h"
#include "run/progress.h"

namespace {

// A newer file under the name that it is found by.
struct NameKey {
    char *name; // the record's own name, or a folded copy
    NodeData *file;
};

// The newer files by name. Where case doesn't matter the keys are folded, and so is the name that is asked for.
struct NewerFiles {
    NameKey *keys;
    int count;
    bool folded;
    NameIndex by_name;
};

void Fold(char *name) {
    for (; *name; ++name) {
        if (*name >= 'A' && *name <= 'Z') {
            *name = static_cast<char>(*name - 'A' + 'a');
        }
    }
}

void FreeNewerFiles(NewerFiles *files) {
    FreeIndex(&files->by_name);
    for (int i = 0; files->folded && i < files->count; ++i) {
        free(files->keys[i].name);
    }
    free(files->keys);
}

// Returns 0 when memory is out; what has been entered is still to be freed.
int EnterNewerFiles(const Llist &newer, NewerFiles *files) {
    files->keys = static_cast<NameKey *>(calloc(static_cast<size_t>(newer.count) + 1, sizeof *files->keys));
    if (!files->keys) {
        return 0;
    }
    for (NodeData *file : Records<NodeData>(newer)) {
        NameKey *const key = &files->keys[files->count];
        *key = {files->folded ? CopyOnHeap(file->name) : file->name, file};
        if (!key->name) {
            return 0;
        }
        ++files->count;
        if (files->folded) {
            Fold(key->name);
        }
        if (!IndexName(&files->by_name, key)) {
            return 0;
        }
    }
    return 1;
}

// The first newer file of a name, whether or not another older file has matched it already; null for a removed file.
NodeData *FindNewer(const NewerFiles &files, const char *name) {
    LineText folded;
    if (files.folded) {
        CopyText(folded, name);
        Fold(folded);
        name = folded;
    }
    const auto *key = static_cast<const NameKey *>(FindIndexed(&files.by_name, name));
    return key ? key->file : nullptr;
}

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

WorkMetrics Difference(const WorkMetrics &older, const WorkMetrics &newer, const Globals *G) {
    WorkMetrics difference;
    for (int m = 0; m < kWorkMetrics; ++m) {
        difference.of[m] = newer.of[m] - older.of[m];
    }
    if (G->diff_code_lines) {
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

int IsSkipped(int state, const Globals *G) {
    switch (state) {
    case kStateEqual: return G->skip_equal;
    case kStateModified: return G->skip_modified;
    case kStateRemoved: return G->skip_removed;
    default: return G->skip_new;
    }
}

int AddResult(const char *name, int64_t date, const WorkMetrics &metrics, int state, float percent, Globals *G, Llist *result) {
    return AddWorkNode(name, date, metrics, state, percent, IsSkipped(state, G) ? kHidden : 0, nullptr, result, G);
}

const char *TextOr(const char *text) {
    return text ? text : "";
}

void ShowPairProgress(const NodeData *older, const NodeData *newer, const Globals *G) {
    if (G->progress_by_name) {
        fprintf(stderr, "  + %s vs %s\n", TextOr(older->diff_file), TextOr(newer->diff_file));
    } else {
        CountProgress(std::max(G->old_work_list.count, G->new_work_list.count), G);
    }
}

// Fills G->line_counts; they stay 0 where a file's line records are missing or empty.
void ComparePairLines(const NodeData *older, const NodeData *newer, Globals *G) {
    memset(G->line_counts, 0, sizeof G->line_counts);
    DiffDataList older_lines{};
    DiffDataList newer_lines{};
    const int older_loaded = LoadDiffDataFile(TextOr(older->diff_file), G->older_work_name, &older_lines, G);
    const int newer_loaded = LoadDiffDataFile(TextOr(newer->diff_file), G->newer_work_name, &newer_lines, G);
    if (G->diff_debug) {
        Message(G, "\n  Older Diff File: %s\n", TextOr(older->diff_file));
        Message(G, "  Newer Diff File: %s\n", TextOr(newer->diff_file));
    }
    if (G->show_progress) {
        ShowPairProgress(older, newer, G);
    }
    if (older_loaded && newer_loaded) {
        CompareCodeLCS(older->name, older_lines, newer_lines, G);
    }
    FreeDiffData(&older_lines);
    FreeDiffData(&newer_lines);
}

// The record of a pair that doesn't differ, or of the equal part of one that does. Without a comparison of lines only the size, a
// part of no table, is left of it.
WorkMetrics EqualPart(const WorkMetrics &difference, const Globals *G) {
    WorkMetrics equal{};
    equal.of[kWorkSize] = difference.of[kWorkSize];
    if (G->diff_code_lines) {
        AddLineCounts(G->line_counts[kLineEq], &equal);
    }
    return equal;
}

int AddPair(const NodeData *older_file, NodeData *newer_file, Llist *result, Globals *G) {
    newer_file->returns = kStateProcessed;
    if (G->diff_code_lines) {
        ComparePairLines(older_file, newer_file, G);
    }
    const WorkMetrics older = MetricsOf(older_file);
    const WorkMetrics newer = MetricsOf(newer_file);
    const WorkMetrics difference = Difference(older, newer, G);
    AddFile(older, &G->older_totals);
    AddFile(newer, &G->newer_totals);
    Add(difference, &G->diff_totals); // of an equal pair that is its size
    const char *name = older_file->name;
    WorkMetrics equal = EqualPart(difference, G);
    if (!IsChange(difference)) {
        if (G->diff_code_lines) {
            std::copy(older.of + kWorkFunctions, older.of + kWorkColumns, equal.of + kWorkFunctions);
        }
        return AddResult(name, newer_file->date, equal, kStateEqual, 0, G, result);
    }
    return AddResult(name, newer_file->date, difference, kStateModified, ElocPercent(older, difference), G, result) &&
           (!G->diff_code_lines || AddResult(name, newer_file->date, equal, kStateEqual, 0, G, result));
}

// A removed file counts whole, for or against the totals as the report's configuration has it for each metric.
int AddRemoved(const NodeData *file, Llist *result, Globals *G) {
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

int AddNew(const NodeData *file, Llist *result, Globals *G) {
    const WorkMetrics metrics = MetricsOf(file);
    AddFile(metrics, &G->newer_totals);
    Add(metrics, &G->diff_totals);
    return AddResult(file->name, file->date, metrics, kStateNew, 100.0f, G, result);
}

// Returns 0 when memory is out.
int ClassifyFiles(const Llist &older, const Llist &newer, const NewerFiles &newer_files, Llist *result, Globals *G) {
    for (const NodeData *file : Records<NodeData>(older)) {
        NodeData *const match = FindNewer(newer_files, file->name);
        if (!(match ? AddPair(file, match, result, G) : AddRemoved(file, result, G))) {
            return 0;
        }
    }
    for (const NodeData *file : Records<NodeData>(newer)) {
        if (file->returns == kStateUnprocessed && !AddNew(file, result, G)) {
            return 0;
        }
    }
    return 1;
}

} // namespace

void DiffWorkLists(Llist *older, Llist *newer, Llist *result, Globals *G) {
    BeginProgress(older->count, G);
    NewerFiles newer_files{.keys = nullptr, .count = 0, .folded = !G->names_case_sensitive, .by_name = {}};
    // what was added last stands first among equal names: a changed file's equal part ahead of its changed one
    const bool whole = EnterNewerFiles(*newer, &newer_files) && ClassifyFiles(*older, *newer, newer_files, result, G);
    if (!LlistSort(result, CompName_NodeData, 0) || !whole) {
        Message(G, "  Memory Error: %s\n", strerror(errno));
    }
    FreeNewerFiles(&newer_files);
}
