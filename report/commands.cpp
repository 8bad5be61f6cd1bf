// One row per command.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "allow.h"
#include "between.h"
#include "formats.h"
#include "gate.h"
#include "known.h"
#include "options.h"
#include "output.h"
#include "page.h"
#include "read_project.h"
#include "rules.h"
#include "run.h"
#include "since.h"
#include "tell.h"
#include "top.h"
#include "trend.h"
#include "write_json.h"

namespace {

// What every report begins with. Remarks go to stderr. Sources are read for fingerprints only.
bool Load(const Options &options, bool fingerprints, Model &m) {
    std::string error;
    if (!(fingerprints ? ReadProject : ReadFigures)(options.inputs, options.root, m, error)) {
        return Tell(error);
    }
    for (const std::string &remark : m.remarks) {
        Tell(remark);
    }
    return true;
}

template <bool (*write)(const Model &, std::FILE *), bool fingerprints> int Report(const Options &options) {
    Model m;
    if (!Load(options, fingerprints, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&m](std::FILE *out) { return write(m, out); });
}

bool WriteCutSarif(const Model &m, std::FILE *out) {
    return WriteSarif(m, kMostResults, out);
}

// The place of a name among those that an option takes.
template <size_t count>
bool Choose(const char *option, const std::string &name, const char *const (&names)[count], size_t &choice) {
    choice = static_cast<size_t>(std::ranges::find(names, name) - names);
    std::string known;
    for (size_t i = 0; i < count; ++i) {
        known += std::string(i == 0 ? "" : i + 1 < count ? ", " : " or ") + names[i];
    }
    return choice < count || Tell(std::string(option) + " " + name + ": it takes " + known + ".");
}

int RunCsv(const Options &options) {
    Model m;
    size_t table = 0;
    if (!Choose("--table", options.table, kTableNames, table) || !Load(options, table == static_cast<size_t>(Table::kNotices), m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&](std::FILE *out) { return WriteCsv(m, static_cast<Table>(table), out); });
}

int RunMarkdown(const Options &options) {
    Model m;
    Model before;
    Options earlier = options;
    earlier.inputs = {options.before};
    const bool compared = !options.before.empty();
    if (!Load(options, compared, m) || (compared && !Load(earlier, true, before))) {
        return kBad;
    }
    return WriteOutput(options.output, [&](std::FILE *out) { return WriteMarkdown(m, compared ? &before : nullptr, out); });
}

int RunBadge(const Options &options) {
    Model m;
    size_t badge = 0;
    if (!Choose("--of", options.badge, kBadgeNames, badge) || !Load(options, false, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&](std::FILE *out) { return WriteBadge(m, static_cast<Badge>(badge), options.svg, out); });
}

int RunTop(const Options &options) {
    Model m;
    size_t rank = 0;
    if (!Choose("--by", options.by, kRankNames, rank) || !Load(options, false, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&](std::FILE *out) {
        return WriteTop(m, static_cast<Rank>(rank), static_cast<size_t>(options.count), out);
    });
}

bool LoadAllowed(const Options &options, Allowed &allowed) {
    std::string error;
    return options.allow.empty() || ReadAllowed(options.allow, allowed, error) || Tell(error);
}

bool LoadKnown(const std::string &path, Known &known) {
    std::FILE *in = fopen(path.c_str(), "rbe");
    if (!in) {
        return Tell(path + ": " + strerror(errno) + ". Name what tly-report json or tly-report sarif wrote.");
    }
    std::string error;
    const bool read = ReadKnown(in, path, known, error);
    fclose(in);
    if (!read) {
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
    return LoadKnown(options.inputs.front(), known) && Load(second, true, m) ? ReportNew(options, m, known) : kBad;
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
    if (!ReadLimits(options, limits, known) || !LoadAllowed(options, allowed) || !Load(options, true, m)) {
        return kBad;
    }
    size_t exceeded = 0;
    const int written = WriteOutput(options.output, [&](std::FILE *out) { return WriteGate(m, limits, allowed, exceeded, out); });
    return written == kFine && exceeded > 0 ? kExceeded : written;
}

} // namespace

const Command kCommands[] = {
    {"run", "measure sources with tly, several at once, into one XML", RunTly},
    {"json", "all figures as JSON, for programs and for later comparison", Report<WriteJson, true>},
    {"page", "one HTML page with charts, to look at and to print", RunPage},
    {"sarif", "notices as SARIF 2.1.0, for code scanning services and editors", Report<WriteCutSarif, true>},
    {"gitlab", "notices as a GitLab report on code quality", Report<WriteGitlab, true>},
    {"checkstyle", "notices as the XML of Checkstyle, for Jenkins and others", Report<WriteCheckstyle, false>},
    {"github", "notices as annotations of a GitHub workflow", Report<WriteGithub, false>},
    {"csv", "a table of figures for spreadsheets", RunCsv},
    {"markdown", "tables for a comment on a change", RunMarkdown},
    {"badge", "one figure for a page's head", RunBadge},
    {"top", "the functions that stand out by their figures", RunTop},
    {"new", "the notices that an earlier report or commit hasn't", RunNew},
    {"trend", "the figures of the last commits, or of tags", RunTrend},
    {"between", "what changed from one commit to another", RunBetween},
    {"gate", "fail with 1 when limits are exceeded, and tell where", RunGate},
    {"rules", "what is wrong in a file of rules of your own", RunRules},
    {nullptr, nullptr, nullptr},
};
