// Matching by two indexes, of the newer files by name and of those that are left by their folded names: no walk per older file.
#include "baseline/baseline_match.h"

#include <utility>

#include "baseline/work_file.h"
#include "run/globals.h"
#include "run/name_index.h"

namespace {

// Newer files whose folded names are equal wait in a row, in list order. The first of them is in the index.
struct Waiting {
    char *folded; // owned; the first field, for NameIndex
    WorkData *file;
    Waiting *next;
};

void Fold(char *name) {
    for (; *name; ++name) {
        *name = ToLower(*name);
    }
}

int MatchExactly(const Llist &older, const Llist &newer, WorkData **newer_of) {
    NameIndex by_name{};
    int whole = 1;
    for (WorkData *file : Records<WorkData>(newer)) {
        whole &= IndexName(&by_name, file);
    }
    for (const WorkData *file : Records<WorkData>(older)) {
        auto *const match = static_cast<WorkData *>(FindIndexed(&by_name, file->name));
        *newer_of++ = match;
        if (match) {
            match->returns = kStateProcessed;
        }
    }
    FreeIndex(&by_name);
    return whole;
}

// Puts a file ahead of those that wait under its name already.
int PutAhead(Waiting *entry, NameIndex *by_folded) {
    auto *const first = static_cast<Waiting *>(FindIndexed(by_folded, entry->folded));
    if (!first) {
        return IndexName(by_folded, entry);
    }
    std::swap(entry->file, first->file);
    entry->next = std::exchange(first->next, entry);
    return 1;
}

WorkData *TakeFirst(Waiting *first) {
    WorkData *const file = first->file;
    const Waiting *const next = first->next;
    first->file = next ? next->file : nullptr;
    first->next = next ? next->next : nullptr;
    return file;
}

// Fills entries, of which there is one for each newer file. Returns how many were left, or -1 when memory is out.
int CollectLeft(const Llist &newer, Waiting *entries) {
    int count = 0;
    for (WorkData *file : Records<WorkData>(newer)) {
        if (file->returns == kStateProcessed) {
            continue;
        }
        Waiting &entry = entries[count++];
        entry = {CopyOnHeap(file->name), file, nullptr};
        if (!entry.folded) {
            return -1;
        }
        Fold(entry.folded);
    }
    return count;
}

void MatchLeft(const Llist &older, const NameIndex &by_folded, WorkData **newer_of) {
    for (const WorkData *file : Records<WorkData>(older)) {
        WorkData *&match = *newer_of++;
        if (match) {
            continue;
        }
        LineText folded;
        CopyText(folded, file->name);
        Fold(folded);
        auto *const first = static_cast<Waiting *>(FindIndexed(&by_folded, folded));
        match = first ? TakeFirst(first) : nullptr;
        if (match) {
            match->returns = kStateProcessed;
        }
    }
}

int MatchWithoutCase(const Llist &older, const Llist &newer, WorkData **newer_of) {
    auto *const entries = static_cast<Waiting *>(calloc(static_cast<size_t>(newer.count) + 1, sizeof(Waiting)));
    if (!entries) {
        return 0;
    }
    NameIndex by_folded{};
    int left = CollectLeft(newer, entries);
    int whole = left >= 0;
    for (; whole && left > 0; --left) {
        whole = PutAhead(&entries[left - 1], &by_folded);
    }
    if (whole) {
        MatchLeft(older, by_folded, newer_of);
    }
    FreeIndex(&by_folded);
    for (int i = 0; i < newer.count; ++i) {
        free(entries[i].folded);
    }
    free(entries);
    return whole;
}

} // namespace

int MatchFiles(const Llist &older, const Llist &newer, WorkData **newer_of, const Globals *G) {
    return MatchExactly(older, newer, newer_of) && (G->names_case_sensitive || MatchWithoutCase(older, newer, newer_of));
}
