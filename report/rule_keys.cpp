#include "rule_checker.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <strings.h>

namespace {

// The limits of tly's reader.
constexpr int kFlagLimit = 2000;
constexpr size_t kMostFlags = 32, kMostExtensions = 64;

const char *const kContexts[] = {"Line", "Code", "Comment", "String"};

std::vector<std::string> Listed(std::string_view value) {
    std::vector<std::string> words;
    while (!(value = Trimmed(value, " ,\t", " ,\t")).empty()) {
        const size_t end = std::min(value.find_first_of(" ,\t"), value.size());
        words.emplace_back(value.substr(0, end));
        value.remove_prefix(end);
    }
    return words;
}

// As strtol reads it: what begins the text, 0 if no number does.
long NumberOf(const std::string &text, bool &whole) {
    char *end = nullptr;
    const long number = std::clamp<long>(strtol(text.c_str(), &end, 10), INT_MIN, INT_MAX);
    whole = end != text.c_str() && *end == '\0';
    return number;
}

// The keys of a rule.

bool TakeSwitch(Checker &c, const char *key, const std::string &value) {
    if (!IsOn(value) && !Is(value, "no") && !Is(value, "off")) {
        Tell(c, Quoted(value) + " stands for off: \"" + key + "\" is on, yes, off or no");
    }
    return IsOn(value);
}

// tly looks at as many places of a list as it has good numbers: a bad one costs the last of them.
void TakeFlags(Checker &c, const std::string &value, Flags &flags) {
    const std::vector<std::string> words = Listed(value);
    size_t good = 0;
    flags = {{}, c.at.line};
    for (size_t place = 0; place < std::min(words.size(), kMostFlags); ++place) {
        bool whole = false;
        const long number = NumberOf(words[place], whole);
        const bool fits = number >= 1 && number < kFlagLimit;
        if (!fits) {
            Tell(c, Quoted(words[place]) + " is no flag from 1 to " + Number(kFlagLimit - 1) +
                        ": the last of the list is lost for it");
        } else if (!whole) {
            Tell(c, Quoted(words[place]) + " is no number: tly takes it for " + Number(number));
        }
        flags.numbers.push_back(fits ? static_cast<int>(number) : 0);
        good += fits;
    }
    flags.numbers.resize(good);
    std::erase(flags.numbers, 0);
    if (words.size() > kMostFlags) {
        Tell(c, "more than " + Number(kMostFlags) + " flags: tly passes over those behind " + Quoted(words[kMostFlags - 1]));
    }
}

void TakeId(Checker &c, const std::string &value) {
    bool whole = false;
    const long id = NumberOf(value, whole);
    if (!whole) {
        Tell(c, Quoted(value) + " is no number: tly takes it for " + Number(id));
    }
    if (id < 100) {
        Tell(c, "identifier " + Number(id) + ": below 100 are tly's own notices; tly complains in every run, and uses it");
    }
    if (const auto taken = c.ids.find(id); taken != c.ids.end()) {
        Tell(c, "identifier " + Number(id) + " is that of the rule in " + Shown(taken->second) +
                    ": tly complains in every run, and this rule has " + Number(c.rule.id));
        return;
    }
    c.rule.id = id;
}

void TakeActive(Checker &c, const std::string &value) {
    TakeSwitch(c, "active", value);
}

void TakeAtEnd(Checker &c, const std::string &value) {
    c.rule.at_end = TakeSwitch(c, "emit eof flag", value);
}

void TakeSilent(Checker &c, const std::string &value) {
    c.rule.silent = TakeSwitch(c, "silent flag", value);
}

void TakeSources(Checker &c, const std::string &value) {
    const std::vector<std::string> words = Listed(value);
    for (const std::string &word : words) {
        if (word.find_first_of(".*;") != std::string::npos) {
            Tell(c, Quoted(word) + " is no extension: write c, h, not .c or *.h, with blanks or commas between");
        }
    }
    if (words.empty()) {
        Tell(c, "no extension: the rule is for no file");
    } else if (words.size() > kMostExtensions) {
        Tell(c, "more than " + Number(kMostExtensions) + " extensions: tly passes over those behind " +
                    Quoted(words[kMostExtensions - 1]));
    }
}

void TakeContext(Checker &c, const std::string &value) {
    const auto *context = std::ranges::find_if(kContexts, [&](const char *each) { return Is(value, each); });
    if (context == std::end(kContexts)) {
        Tell(c, Quoted(value) + " is no context: it is Line, Code, Comment or String" +
                    (c.rule.context.empty() ? ", and without one the rule finds nothing" : ""));
    } else {
        c.rule.context = *context;
    }
}

void TakePattern(Checker &c, const std::string &value) {
    std::string error;
    c.rule.text = value;
    c.rule.pattern = CompilePattern(value, c.compile_options, error);
    if (!c.rule.pattern) {
        Tell(c, "the pattern can't be read, and the rule finds nothing: " + error);
    } else if (value.empty()) {
        Tell(c, "an empty pattern is found in every line");
    }
}

void TakeSample(Checker &c, const std::string &value) {
    c.rule.sample = value;
}

void TakeSets(Checker &c, const std::string &value) {
    TakeFlags(c, value, c.rule.sets);
}

void TakeClears(Checker &c, const std::string &value) {
    TakeFlags(c, value, c.rule.clears);
}

void TakeAsks(Checker &c, const std::string &value) {
    TakeFlags(c, value, c.rule.asks);
}

void TakeAsksNot(Checker &c, const std::string &value) {
    Flags flags;
    TakeFlags(c, value, flags);
}

void TakeText(Checker &, const std::string &) {}

// What a whole rule lacks, at the line of its begin.
void CheckKeys(Checker &c) {
    const Rule &rule = c.rule;
    const auto miss = [&](const char *key, const char *effect) {
        if (!Has(rule, key)) {
            Tell(c, rule.begin.line, "no \"" + std::string(key) + "\": " + effect);
        }
    };
    miss("udqn identifier", "the notice has the number 0");
    miss("active", "the rule is off");
    miss("sources", "the rule is for no file");
    miss("context", "the rule finds nothing");
    miss("pattern", "the rule finds nothing");
    if (!rule.silent) {
        miss("summary", "short forms show the number alone");
        miss("message", "the long form shows the number alone");
    } else if (rule.sets.numbers.empty() && rule.clears.numbers.empty()) {
        Tell(c, LineOf(rule, "silent flag"), "a silent rule that neither sets nor clears a flag does nothing");
    }
}

void CheckSamples(Checker &c) {
    const Rule &rule = c.rule;
    if (Has(rule, "string") && Find(*rule.pattern, rule.sample, c.find_options) == Outcome::kNotFound) {
        Tell(c, LineOf(rule, "string"), "the pattern isn't found in this sample");
    }
    for (const auto &[line, text] : rule.passes) {
        if (Find(*rule.pattern, text, c.find_options) == Outcome::kFound) {
            Tell(c, line, "the pattern is found in what it is to let pass");
        }
    }
    if (!rule.at_end) {
        return;
    }
    if (rule.context != "Line") {
        Tell(c, LineOf(rule, "emit eof flag"), "at the end of a file only the context Line has a text of its own, \"UDQN eof\"");
    } else if (Find(*rule.pattern, "UDQN eof", c.find_options) == Outcome::kNotFound) {
        Tell(c, LineOf(rule, "pattern"), "at the end of a file the text is \"UDQN eof\", and the pattern isn't found in it");
    }
}

void CheckSteps(Checker &c) {
    const std::string line = AgainstPattern(*c.rule.pattern, c.rule.text, c.rule.sample, c.seconds);
    c.check.untried |= c.seconds <= 0;
    if (!line.empty()) {
        Tell(c, LineOf(c.rule, "pattern"),
             "the pattern takes more than " + Number(kMostSteps) + " steps on a line of " + Number(kTriedLine) +
                 " characters, such as " + Quoted(line) +
                 ": tly gives such a line up, and behind ten of them the rule for the rest of the file");
    }
}

void EndRule(Checker &c, const std::string &) {
    CheckKeys(c);
    if (c.rule.pattern) {
        CheckSamples(c);
        CheckSteps(c);
    }
    c.ids.try_emplace(c.rule.id, c.rule.begin);
    for (const int flag : c.rule.sets.numbers) {
        c.set[flag] = true;
    }
    for (const int flag : c.rule.asks.numbers) {
        c.asked.try_emplace(flag, Place{c.at.file, c.rule.asks.line});
    }
    ++c.check.rules;
    c.in_rule = false;
}

// clang-format off
struct RuleKey { const char *key; void (*take)(Checker &c, const std::string &value); };

const RuleKey kRuleKeys[] = {
    {"udqn identifier", TakeId},
    {"udqn id",         TakeId},
    {"active",          TakeActive},
    {"sources",         TakeSources},
    {"context",         TakeContext},
    {"pattern",         TakePattern},
    {"string",          TakeSample},
    {"message",         TakeText},
    {"summary",         TakeText},
    {"set flags",       TakeSets},
    {"clear flags",     TakeClears},
    {"check flags",     TakeAsks},
    {"!check flags",    TakeAsksNot},
    {"emit eof flag",   TakeAtEnd},
    {"silent flag",     TakeSilent},
    {"udqn end",        EndRule},
};
// clang-format on

const RuleKey *FindKey(std::string_view key) {
    const RuleKey *row = std::ranges::find_if(kRuleKeys, [key](const RuleKey &each) { return Is(key, each.key); });
    return row == std::end(kRuleKeys) ? nullptr : row;
}

} // namespace

void Tell(Checker &c, int line, const std::string &text) {
    if (c.check.findings.size() < kMostFindings) {
        c.check.findings.push_back({c.at.file, line, text});
    } else {
        ++c.check.left_out;
    }
}

void Tell(Checker &c, const std::string &text) {
    Tell(c, c.at.line, text);
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text.substr(0, 60)) + (text.size() > 60 ? "..." : "") + "\"";
}

std::string Number(long number) {
    return std::to_string(number);
}

std::string Shown(const Place &place) {
    return place.file + ":" + Number(place.line);
}

std::string_view Trimmed(std::string_view text, const char *front, const char *back) {
    text.remove_prefix(std::min(text.find_first_not_of(front), text.size()));
    return text.substr(0, text.find_last_not_of(back) + 1);
}

bool Is(std::string_view text, const char *word) {
    return text.size() == strlen(word) && strncasecmp(text.data(), word, text.size()) == 0;
}

bool IsOn(const std::string &value) {
    return Is(value, "yes") || Is(value, "on");
}

bool Has(const Rule &rule, const char *key) {
    return rule.lines.contains(key);
}

int LineOf(const Rule &rule, const char *key) {
    return rule.lines.find(key)->second;
}

bool IsRuleKey(std::string_view key) {
    return FindKey(key);
}

void TakeRuleKey(Checker &c, std::string_view key, const std::string &value) {
    if (!c.in_rule) {
        Tell(c, Quoted(key) + " outside of a rule: tly passes it over");
        return;
    }
    const RuleKey *row = FindKey(key);
    const char *name = row->take == TakeId ? "udqn identifier" : row->key;
    const auto [earlier, fresh] = c.rule.lines.try_emplace(name, c.at.line);
    if (!fresh) {
        Tell(c, "a second " + Quoted(key) + " takes the place of that in line " + Number(earlier->second));
        earlier->second = c.at.line;
    }
    row->take(c, value);
}
