// One row per command.
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "allow.h"
#include "formats.h"
#include "gate.h"
#include "known.h"
#include "options.h"
#include "output.h"
#include "read_project.h"
#include "run.h"
#include "since.h"
#include "top.h"
#include "write_json.h"

namespace {

bool Tell(const std::string &error) {
    fprintf(stderr, "tly-report: %s\n", error.c_str());
    return false;
}

// What every report begins with. Remarks go to stderr.
bool Load(const Options &options, Model &m) {
    std::string error;
    if (!ReadProject(options.inputs, options.root, m, error)) {
        return Tell(error);
    }
    for (const std::string &remark : m.remarks) {
        fprintf(stderr, "tly-report: %s\n", remark.c_str());
    }
    return true;
}

int RunJson(const Options &options) {
    Model m;
    if (!Load(options, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&m](std::FILE *out) { return WriteJson(m, out); });
}

int RunSarif(const Options &options) {
    Model m;
    if (!Load(options, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&m](std::FILE *out) { return WriteSarif(m, kMostResults, out); });
}

int RunTop(const Options &options) {
    const auto *rank = std::ranges::find(kRankNames, options.by);
    Model m;
    if (rank == std::end(kRankNames)) {
        Tell("--by " + options.by + ": functions are listed by complexity, lines, parameters or notices.");
        return kBad;
    }
    if (!Load(options, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&](std::FILE *out) {
        return WriteTop(m, static_cast<Rank>(rank - kRankNames), static_cast<size_t>(options.count), out);
    });
}

bool LoadAllowed(const Options &options, Allowed &allowed) {
    std::string error;
    return options.allow.empty() || ReadAllowed(options.allow, allowed, error) || Tell(error);
}

bool LoadKnown(const std::string &path, Known &known) {
    std::string error;
    if (!ReadKnown(path, known, error)) {
        return Tell(error);
    }
    if (known.by_line) {
        Tell(path + ": fingerprints in it rest on line numbers, as sources were gone when it was made. Notices there look new when "
                    "lines move.");
    }
    return true;
}

int ReportNew(const Options &options, const Model &m, const Known &known) {
    Allowed allowed;
    if (!LoadAllowed(options, allowed)) {
        return kBad;
    }
    Fresh fresh = FindFresh(m, known);
    std::erase_if(fresh.notices, [&](uint32_t n) { return IsAllowed(allowed, m, m.notices[n]); });
    const int written = WriteOutput(options.output, [&](std::FILE *out) { return WriteFresh(m, fresh, out); });
    const bool exceeded = options.most_new >= 0 && fresh.notices.size() > static_cast<size_t>(options.most_new);
    return written == kFine && exceeded ? kExceeded : written;
}

int RunNew(const Options &options) {
    if (!options.since.empty()) {
        Options sides = options;
        if (options.inputs != std::vector<std::string>{"-"}) {
            sides.paths = options.inputs;
        }
        return CompareSince(sides, [&](const Model &now, const Known &before) { return ReportNew(options, now, before); });
    }
    if (options.inputs.size() < 2) {
        Tell("Name two reports to compare, or a commit: tly-report new OLD.json NEW.xml, tly-report new --since COMMIT.");
        return kBad;
    }
    Options second = options;
    second.inputs.erase(second.inputs.begin());
    Known known;
    Model m;
    return LoadKnown(options.inputs.front(), known) && Load(second, m) ? ReportNew(options, m, known) : kBad;
}

bool ReadLimits(const Options &options, Limits &limits, Known &known) {
    limits.complexity = options.max_complexity;
    limits.lines = options.max_lines;
    limits.notices = options.max_notices;
    for (const std::string &text : options.notice_limits) {
        std::string error;
        if (!ReadKindLimit(text, limits.kinds.emplace_back(), error)) {
            return Tell(error);
        }
    }
    limits.known = options.known.empty() ? nullptr : &known;
    return options.known.empty() || LoadKnown(options.known, known);
}

int RunGate(const Options &options) {
    Model m;
    Limits limits;
    Known known;
    Allowed allowed;
    if (!ReadLimits(options, limits, known) || !LoadAllowed(options, allowed) || !Load(options, m)) {
        return kBad;
    }
    size_t exceeded = 0;
    const int written = WriteOutput(options.output, [&](std::FILE *out) { return WriteGate(m, limits, allowed, exceeded, out); });
    return written == kFine && exceeded > 0 ? kExceeded : written;
}

} // namespace

const Command kCommands[] = {
    {"run", "measure sources with tly, several at once, into one XML", RunTly},
    {"json", "all figures as JSON, for programs and for later comparison", RunJson},
    {"sarif", "notices as SARIF 2.1.0, for code scanning services and editors", RunSarif},
    {"top", "the functions that stand out by their figures", RunTop},
    {"new", "the notices that an earlier report or commit hasn't", RunNew},
    {"gate", "fail with 1 when limits are exceeded, and tell where", RunGate},
    {nullptr, nullptr, nullptr},
};
