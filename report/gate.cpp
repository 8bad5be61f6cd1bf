#include "gate.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "notice_help.h"
#include "text_lines.h"

namespace {

struct Gate {
    const Model &m;
    Allowed &allowed;
    LineWriter w;
    std::vector<uint32_t> notices{}; // that count
    size_t limits = 0;
    size_t exceeded = 0;
};

void Head(Gate &g, const std::string &limit, size_t count, const char *thing) {
    ++g.exceeded;
    g.w.text += limit + " is exceeded: " + Counted(count, thing);
    EndLine(g.w);
}

void CheckFunctions(Gate &g, const char *what, int64_t limit, int64_t (*figure)(const FunctionRow &)) {
    if (limit == kNoLimit) {
        return;
    }
    ++g.limits;
    std::vector<const FunctionRow *> above;
    for (const FunctionRow &function : g.m.functions) {
        if (figure(function) > limit && !IsAllowed(g.allowed, g.m, what, function.file)) {
            above.push_back(&function);
        }
    }
    if (above.empty()) {
        return;
    }
    Head(g, "--max-" + std::string(what) + " " + std::to_string(limit), above.size(), "function");
    for (const FunctionRow *function : above) {
        g.w.text += Place(g.m, function->file, function->first_line) + ": " + what + " " + std::to_string(figure(*function)) + ": ";
        AppendShown(g.w.text, g.m.texts[function->name]);
        EndLine(g.w);
    }
}

void CheckNotices(Gate &g, const std::string &limit, int64_t most, const std::vector<uint32_t> &notices, const char *thing) {
    if (most == kNoLimit) {
        return;
    }
    ++g.limits;
    if (static_cast<int64_t>(notices.size()) <= most) {
        return;
    }
    Head(g, limit, notices.size(), thing);
    for (const uint32_t notice : notices) {
        AppendNotice(g.w.text, g.m, g.m.notices[notice]);
        EndLine(g.w);
    }
}

void CheckKind(Gate &g, const KindLimit &limit) {
    std::vector<uint32_t> of_kind;
    std::ranges::copy_if(g.notices, std::back_inserter(of_kind), [&](uint32_t n) { return g.m.notices[n].number == limit.number; });
    const std::string name = "--notice " + std::to_string(limit.number) + "=" + std::to_string(limit.most);
    CheckNotices(g, name, limit.most, of_kind, "notice");
}

void CheckNew(Gate &g, const Known &known) {
    std::vector<uint32_t> fresh = FindFresh(g.m, known).notices;
    std::vector<uint32_t> counting;
    std::ranges::set_intersection(fresh, g.notices, std::back_inserter(counting));
    CheckNotices(g, "--new", 0, counting, "new notice");
}

// An entry that allows nothing is a mistake, or what it allowed has been mended.
void TellUnused(const Allowed &allowed) {
    std::map<int, const std::string *> unused;
    for (const auto &[key, entry] : allowed.entries) {
        if (!entry.used) {
            unused[entry.line] = &key;
        }
    }
    for (const auto &[line, key] : unused) {
        std::string shown;
        AppendShown(shown, *key);
        fprintf(stderr, "tly-report: line %d of --allow, %s: there is no such finding.\n", line, shown.c_str());
    }
}

} // namespace

bool ReadKindLimit(const std::string &text, KindLimit &limit, std::string &error) {
    const char *end = text.data() + text.size();
    const auto number = std::from_chars(text.data(), end, limit.number);
    const bool split = number.ec == std::errc() && number.ptr != end && *number.ptr == '=';
    const auto most = std::from_chars(split ? number.ptr + 1 : end, end, limit.most);
    if (!split || most.ec != std::errc() || most.ptr != end || limit.most < 0) {
        error = "--notice " + text + ": write the number of a notice, \"=\", and how many there may be, such as 12=0.";
        return false;
    }
    if (limit.number < 100 && !FindNoticeHelp(limit.number)) {
        error = "--notice " + text + ": there is no notice " + std::to_string(limit.number) + ". tly -hn lists them.";
        return false;
    }
    return true;
}

bool WriteGate(const Model &m, const Limits &limits, Allowed &allowed, size_t &exceeded, std::FILE *out) {
    Gate g{m, allowed, {out}};
    for (uint32_t i = 0; i < m.notices.size(); ++i) {
        if (!IsAllowed(allowed, m, m.notices[i])) {
            g.notices.push_back(i);
        }
    }
    CheckFunctions(g, "complexity", limits.complexity, [](const FunctionRow &f) { return f.complexity.cyclomatic; });
    CheckFunctions(g, "lines", limits.lines, [](const FunctionRow &f) { return f.lines.lines; });
    for (const KindLimit &limit : limits.kinds) {
        CheckKind(g, limit);
    }
    if (limits.known) {
        CheckNew(g, *limits.known);
    }
    const int64_t notices = limits.notices == kNoLimit && g.limits == 0 ? 0 : limits.notices;
    CheckNotices(g, "--max-notices " + std::to_string(notices), notices, g.notices, "notice");
    const std::string end = g.exceeded ? " exceeded" : " kept";
    g.w.text += g.limits == 1    ? "the limit is" + end
                : g.exceeded > 0 ? std::to_string(g.exceeded) + " of " + std::to_string(g.limits) + " limits are" + end
                                 : "all " + std::to_string(g.limits) + " limits are" + end;
    EndLine(g.w);
    TellUnused(allowed);
    exceeded = g.exceeded;
    return Finish(g.w);
}
