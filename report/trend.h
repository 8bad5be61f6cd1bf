// "tly-report trend": the figures of the last commits.
#pragma once

#include <cstdint>
#include <cstdio>
#include <vector>

#include "options.h"
#include "revisions.h"
#include "run_figures.h"

struct TrendRow {
    Commit commit;
    RunFigures figures; // by the date of the commit
};

enum class TrendForm : uint8_t { kText, kCsv, kJson };
inline constexpr const char *kTrendForms[] = {"text", "csv", "json"};

// A row or record per commit, in the order given; as text the change from the first to the last below. Returns false with errno if
// the stream refused anything.
bool WriteTrendAs(TrendForm form, const std::vector<TrendRow> &rows, std::FILE *out);

// The command.
int RunTrend(const Options &options);
