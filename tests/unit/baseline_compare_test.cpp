// Two work lists compared: which file matches which, in what order the results stand, what the sums hold. Times of hostile
// baselines.
#include "bench.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

#include "baseline/baseline_compare.h"
#include "baseline/diff_times.h"
#include "baseline/work_file.h"
#include "run/compare.h"

namespace {

struct CompareBench : StateBench {
    void File(Llist *list, const std::string &name, int64_t loc) const {
        WorkMetrics metrics{};
        metrics.of[kWorkLoc] = metrics.of[kWorkEloc] = loc;
        REQUIRE(AddWorkNode(name.c_str(), 1000, metrics, kStateUnprocessed, 0, false, nullptr, list, G) == 1);
    }
    // "Mod name 5, ..." of every result.
    std::string Results() const {
        DiffWorkLists(&G->old_work_list, &G->new_work_list, &G->work_result_list, G);
        static constexpr const char *kLabels[] = {"Unp", "Equ", "Mod", "Dif", "Rem", "New", "Prc"};
        std::string text;
        for (const WorkData *file : Records<WorkData>(G->work_result_list)) {
            text +=
                std::string(text.empty() ? "" : ", ") + kLabels[file->returns] + " " + file->name + " " + std::to_string(file->loc);
        }
        return text;
    }
};

using Files = std::vector<std::pair<std::string, int>>;

// The newer file of each older one, or -1, by walks through both lists: exact names first, then the rest without case.
std::vector<int> Matches(const Files &older, const Files &newer, bool case_sensitive) {
    std::vector<int> match(older.size(), -1);
    std::vector<bool> taken(newer.size());
    for (int pass = 0; pass < (case_sensitive ? 1 : 2); ++pass) {
        for (size_t o = 0; o < older.size(); ++o) {
            for (size_t n = 0; n < newer.size() && match[o] < 0; ++n) {
                const char *const a = older[o].first.c_str(), *const b = newer[n].first.c_str();
                if (pass ? !taken[n] && strcasecmp(a, b) == 0 : strcmp(a, b) == 0) {
                    match[o] = static_cast<int>(n);
                    taken[n] = true;
                }
            }
        }
    }
    return match;
}

// What a comparison gives, insertion by insertion.
std::string Expected(const Files &older, const Files &newer, bool case_sensitive) {
    std::vector<std::pair<std::string, std::string>> results;
    auto insert = [&results](const char *label, const std::string &name, int loc) {
        size_t at = 0;
        while (at < results.size() && results[at].first < name) {
            ++at;
        }
        results.insert(results.begin() + static_cast<long>(at), {name, label + (" " + name + " ") + std::to_string(loc)});
    };
    const std::vector<int> match = Matches(older, newer, case_sensitive);
    for (size_t o = 0; o < older.size(); ++o) {
        const auto &[name, loc] = older[o];
        if (match[o] < 0) {
            insert("Rem", name, -loc);
        } else {
            const int newer_loc = newer[match[o]].second;
            insert(loc == newer_loc ? "Equ" : "Mod", name, newer_loc - loc);
        }
    }
    for (size_t n = 0; n < newer.size(); ++n) {
        if (std::find(match.begin(), match.end(), n) == match.end()) {
            insert("New", newer[n].first, newer[n].second);
        }
    }
    std::string text;
    for (const auto &result : results) {
        text += (text.empty() ? "" : ", ") + result.second;
    }
    return text;
}

} // namespace

TEST_CASE("files match by name and then without case, in a list as insertions would make it") {
    unsigned seed = 5;
    auto random = [&seed](unsigned below) { return (seed = seed * 1664525 + 1013904223) / 65536 % below; };
    for (int round = 0; round < 300; ++round) {
        const CompareBench bench;
        bench.G->names_case_sensitive = round % 2;
        Files lists[2];
        for (int side = 0; side < 2; ++side) {
            Llist *const list = side ? &bench.G->new_work_list : &bench.G->old_work_list;
            for (unsigned files = random(12); files > 0; --files) {
                bench.File(list, {"aAbB"[random(4)], "cC["[random(3)]}, random(3));
            }
            REQUIRE(LlistSort(list, CompName_NodeData, 0) == 1);
            for (const WorkData *file : Records<WorkData>(*list)) {
                lists[side].emplace_back(file->name, file->loc);
            }
        }
        REQUIRE(bench.Results() == Expected(lists[0], lists[1], round % 2 != 0));
    }
}

TEST_CASE("a hundred thousand files of one folded name find their matches without a walk") {
    const CompareBench bench;
    Globals *const G = bench.G;
    constexpr int kFiles = 100000, kLetters = 17; // each is a spelling of the same letters
    const auto spelling = [](int number) {
        std::string name(kLetters, 'a');
        for (int bit = 0; bit < kLetters; ++bit) {
            name[bit] = static_cast<char>(number >> bit & 1 ? 'A' : 'a');
        }
        return name;
    };
    for (int i = 0; i < kFiles; ++i) {
        bench.File(&G->old_work_list, spelling(i), 1);
        bench.File(&G->new_work_list, spelling(i + kFiles / 4), 1); // a quarter matches without case
    }
    DiffWorkLists(&G->old_work_list, &G->new_work_list, &G->work_result_list, G);
    CHECK(G->work_result_list.count == kFiles);
    CHECK(G->diff_totals.of[kWorkLoc] == 0);
}

TEST_CASE("sums and differences of the largest numbers") {
    const CompareBench bench;
    Globals *const G = bench.G;
    for (const char *name : {"a", "b", "c"}) {
        bench.File(&G->old_work_list, name, INT_MIN);
        bench.File(&G->new_work_list, name, INT_MAX);
    }
    bench.File(&G->old_work_list, "gone", INT_MIN);
    G->report_cfg[kElementElocPercent].plus = 1;
    G->skip_removed = 1;
    bench.Results();
    CHECK(G->diff_totals.of[kWorkLoc] == 3 * (int64_t{INT_MAX} - INT_MIN) - INT_MIN);
    CHECK(G->newer_totals.of[kWorkLoc] == 3LL * INT_MAX);
    CHECK(G->older_totals.of[kWorkEloc] == 4LL * INT_MIN);
    CHECK(G->older_totals.files == 4);
    CHECK(G->newer_totals.files == 3);
    const WorkData *gone = Record<WorkData>(G->work_result_list.tail);
    CHECK(gone->hidden); // and yet it counts
    CHECK(gone->percent == 100.0f);
    CHECK(Record<WorkData>(G->work_result_list.head)->percent == 100.0f); // no part of less than no line
}

TEST_CASE("times between baselines") {
    const StateBench bench;
    Globals *const G = bench.G;
    auto dhms = [G](int64_t older, int64_t newer) { return std::string(TimeBetween(older, newer, G).dhms); };
    CHECK(dhms(7, 7) == "0:00:00:00");
    CHECK(dhms(0, 93784) == "1:02:03:04");
    CHECK(dhms(93784, 0) == "-1:-2:-3:-4");
    CHECK(dhms(INT64_MIN, INT64_MAX) == "106751991167300:15:30:07");
    // a setting of 0: no division by it
    WorkTime work = TimeBetween(0, 864000, G);
    CHECK(work.calendar_days == 10);
    CHECK(work.work_days == 0);
    G->work_seconds_per_hour = G->work_days_per_week = G->work_hours_per_shift = G->work_shifts_per_day = INT_MAX;
    work = TimeBetween(INT64_MIN, INT64_MAX, G);
    CHECK(work.man_hours > 1e27);
    CHECK(work.man_days == 0);
    CHECK(work.man_years == 0);
    G->older_work_name[0] = 'a';
    G->show_productivity = 1;
    for (const Mode mode : kModes) {
        bench.SetMode(mode);
        const std::string text = Written([&] {
            ShowWorkTimes(INT64_MIN, INT64_MAX, work, G);
            ShowProductivity(work, G);
        });
        CHECK(Has(text, "9223372036854775808"));
    }
}
