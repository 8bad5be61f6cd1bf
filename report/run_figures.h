// The figures of one run that are set side by side with those of another: sums, and how they spread.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model.h"

// Functions by cyclomatic complexity. A bin ends at the complexity last; that of the last bin is open.
struct ComplexityBin {
    const char *label;
    const char *brief;
    int64_t last;
};
// clang-format off
inline constexpr ComplexityBin kComplexityBins[] = {
    {"1", "1", 1}, {"2–3", "≤3", 3}, {"4–5", "≤5", 5}, {"6–10", "≤10", 10}, {"11–15", "≤15", 15},
    {"16–20", "≤20", 20}, {"21–30", "≤30", 30}, {"31–50", "≤50", 50}, {"51–100", "≤100", 100}, {"over 100", ">100", INT64_MAX},
};
// clang-format on

struct KindCount {
    int number = 0;
    std::string text;
    int64_t count = 0;
};

struct LanguageLines {
    std::string name;
    Lines lines;
};

struct RunFigures {
    std::string name;  // of the input
    std::string date;  // as in "Mon Nov 23 09:30:07 2026"; may be empty
    int64_t order = 0; // by date: 20261123093007; 0 if there is none to be read
    bool modern = false;

    int64_t files = 0;
    int64_t functions = 0;
    int64_t classes = 0;
    int64_t namespaces = 0;
    int64_t notices = 0;
    Lines lines;              // of all files
    Complexity complexity;    // of all functions together
    int64_t most_complex = 0; // highest cyclomatic complexity of a function
    int64_t longest = 0;      // most lines of code of a function
    std::array<int64_t, std::size(kComplexityBins)> spread{};
    std::vector<LanguageLines> languages; // by name
    std::vector<KindCount> kinds;         // by number
    std::vector<int64_t> depths;          // classes of the inheritance tree by depth, each once, where it stands deepest
};

// name is what the run is called beside others.
RunFigures FiguresOf(const Model &m, const std::string &name);

// What is told of a run, in the order of a table. None of them is negative.
struct FigureRow {
    const char *name;
    const char *unit;                           // behind the name; may be empty
    const char *brief;                          // over a narrow column; empty: it is in none
    int decimals;                               // of the value
    bool less_is_better;                        // else neither is
    bool leads;                                 // stands above the table as well
    bool in_trend;                              // has a line of its own
    double (*value)(const RunFigures &figures); // kUntold if the run doesn't tell it, or has nothing to take an average of
};

extern const FigureRow kFigures[];
extern const size_t kFigureCount;
