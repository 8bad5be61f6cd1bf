#include "rule_file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "rule_pattern.h"

namespace {

// The limits of tly's reader.
constexpr size_t kLongestLine = 2047;
constexpr int kFlagLimit = 2000;
constexpr size_t kMostFlags = 32, kMostExtensions = 64;
constexpr size_t kMostDepth = 32, kMostFiles = 1000;

constexpr double kTryingSeconds = 20; // for all patterns together
constexpr std::string_view kPasses = "# passes";
const char *const kContexts[] = {"Line", "Code", "Comment", "String"};

struct Place {
    std::string file;
    int line = 0;
};

struct Flags {
    std::vector<int> numbers{}; // that count
    int line = 0;
};

struct Rule {
    Place begin{};
    std::map<std::string, int> lines{}; // of its keys
    long id = 0;
    bool silent = false, at_end = false;
    std::string context{}, text{}, sample{};
    std::vector<std::pair<int, std::string>> passes{}; // with their lines
    Flags sets{}, clears{}, asks{};                    // asks: "check flags"
    RulePatternPtr pattern{};
};

struct OpenFile {
    dev_t device;
    ino_t inode;
};

struct Checker {
    RuleCheck &check;
    Place at{};         // the line in hand
    std::string main{}; // the file that includes begin with
    std::vector<OpenFile> open{};
    size_t files = 0;
    int compile_options = 0, find_options = 0;
    bool in_rule = false;
    Rule rule{};
    std::map<long, Place> ids{};           // of rules that have an end
    std::map<int, Place> asked{};          // flags, by the first rule that asks for them
    std::map<int, bool> set{};             // flags that a rule sets
    std::map<std::string, size_t> order{}; // of the files
    double seconds = kTryingSeconds;
};

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

void EndRule(Checker &c, const std::string &);

// clang-format off
struct RuleKey   { const char *key; void (*take)(Checker &c, const std::string &value); };
struct OptionKey { const char *key; int Checker::*options; int bit; };

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
const OptionKey kOptions[] = {
    {"REG_ICASE",    &Checker::compile_options, kIgnoreCase},
    {"REG_NEWLINE",  &Checker::compile_options, kNewline},
    {"REG_NOSUB",    &Checker::compile_options, kNoPlaces},
    {"REG_EXTENDED", &Checker::compile_options, 0}, // always on
    {"REG_NOTBOL",   &Checker::find_options,    kNotBegin},
    {"REG_NOTEOL",   &Checker::find_options,    kNotEnd},
};
// clang-format on

template <class Row, size_t n> const Row *FindKey(const Row (&rows)[n], std::string_view key) {
    const Row *row = std::ranges::find_if(rows, [key](const Row &each) { return Is(key, each.key); });
    return row == std::end(rows) ? nullptr : row;
}

bool IsKey(std::string_view key) {
    return FindKey(kRuleKeys, key) || FindKey(kOptions, key) || Is(key, "UDQN Begin") || Is(key, "include");
}

bool Has(const Rule &rule, const char *key) {
    return rule.lines.contains(key);
}

int LineOf(const Rule &rule, const char *key) {
    return rule.lines.find(key)->second;
}

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

void BeginRule(Checker &c) {
    if (c.in_rule) {
        Tell(c, "the rule in " + Shown(c.rule.begin) + " has no \"UDQN End\": tly drops it");
    }
    c.rule = {};
    c.rule.begin = c.at;
    c.in_rule = true;
}

void TakeOption(Checker &c, const OptionKey &option, const std::string &value) {
    int &options = c.*option.options;
    if (!IsOn(value)) {
        if (!Is(value, "off") && !Is(value, "no")) {
            Tell(c, Quoted(value) + " changes nothing: an option is set by on or yes");
        } else if (options & option.bit) {
            Tell(c, "an option that is set stays set up to the end of the file");
        }
        return;
    }
    if (c.in_rule && Has(c.rule, "pattern") && option.options == &Checker::compile_options) {
        Tell(c, "\"" + std::string(option.key) + "\" is for the patterns behind it, not for that of line " +
                    Number(LineOf(c.rule, "pattern")));
    }
    options |= option.bit;
}

bool ReadRules(Checker &c, const std::string &path, std::string &error);

void TakeInclude(Checker &c, const std::string &name) {
    if (c.compile_options || c.find_options) {
        Tell(c, "the options end here: a file that is included begins without any, and what it leaves is there behind it");
    }
    const size_t slash = c.main.rfind('/');
    const bool beside = name.find('/') == std::string::npos && slash != std::string::npos;
    const Place here = c.at;
    std::string error;
    if (!name.empty() && !ReadRules(c, beside ? c.main.substr(0, slash + 1) + name : name, error)) {
        c.at = here;
        Tell(c, error);
    }
    c.at = here;
}

void TakeRuleKey(Checker &c, const RuleKey &key, std::string_view word, const std::string &value) {
    const std::string shown(word);
    if (!c.in_rule) {
        Tell(c, Quoted(shown) + " outside of a rule: tly passes it over");
        return;
    }
    const char *name = key.take == TakeId ? "udqn identifier" : key.key;
    const auto [earlier, fresh] = c.rule.lines.try_emplace(name, c.at.line);
    if (!fresh) {
        Tell(c, "a second " + Quoted(shown) + " takes the place of that in line " + Number(earlier->second));
        earlier->second = c.at.line;
    }
    key.take(c, value);
}

void TakeLine(Checker &c, std::string_view line) {
    if (line.starts_with('#')) {
        if (const size_t colon = line.find(':'); c.in_rule && line.starts_with(kPasses) && colon != std::string_view::npos &&
                                                 Trimmed(line.substr(0, colon), "", " ") == kPasses) {
            c.rule.passes.emplace_back(c.at.line, Trimmed(line.substr(colon + 1), " \t", " \t\r\n"));
        }
        return;
    }
    const std::string_view text = Trimmed(line, " \t\r\n", " \t\r\n");
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
        if (!text.empty() && text[0] != '#') {
            Tell(c, "no \":\" in " + Quoted(text) + ": tly passes the line over");
        }
        return;
    }
    const std::string_view key = Trimmed(line.substr(0, colon), "", " \t\r\n");
    const std::string value(Trimmed(line.substr(colon + 1), " \t", " \t\r\n"));
    if (const OptionKey *option = FindKey(kOptions, key)) {
        TakeOption(c, *option, value);
    } else if (Is(key, "include")) {
        TakeInclude(c, value);
    } else if (Is(key, "UDQN Begin")) {
        BeginRule(c);
    } else if (const RuleKey *row = FindKey(kRuleKeys, key)) {
        TakeRuleKey(c, *row, key, value);
    } else if (const std::string_view inner = Trimmed(key, " \t", ""); inner.empty() || inner[0] != '#') {
        Tell(c, Quoted(inner) + (IsKey(inner) ? " doesn't begin the line" : " is no key") + ": tly passes the line over");
    }
}

// A line, or what of it fits into tly's; the rest is the next. False at the end.
bool NextPiece(std::FILE *in, std::string &piece) {
    piece.clear();
    for (int byte = 0; piece.size() < kLongestLine && byte != '\n' && (byte = fgetc(in)) != EOF;) {
        piece += static_cast<char>(byte);
    }
    return !piece.empty();
}

void ReadLines(Checker &c, std::FILE *in) {
    std::string piece;
    bool begins = true; // a line
    while (NextPiece(in, piece)) {
        c.at.line += begins;
        if (c.at.line == 1 && begins && piece.starts_with("\xef\xbb\xbf")) {
            piece.erase(0, 3);
        }
        const bool ends = piece.ends_with('\n');
        if (begins && !ends && piece.size() >= kLongestLine) {
            Tell(c, "more than " + Number(kLongestLine) + " bytes: tly takes what is behind them for a line of its own");
        }
        if (const size_t nul = piece.find('\0'); nul != std::string::npos) {
            piece.resize(nul);
            if (begins) {
                Tell(c, "a NUL: tly passes over what is behind it");
            }
        }
        if (begins || piece.find(':') != std::string::npos) {
            TakeLine(c, piece);
        }
        begins = ends;
    }
}

// Opens what tly would: a regular file; standard input too where the command line names it.
std::FILE *OpenRules(const std::string &path, OpenFile &about, std::string &error) {
    const bool standard = path == "-";
    const int fd = standard ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat found = {};
    if (fd >= 0 && fstat(fd, &found) == 0 && (standard || S_ISREG(found.st_mode))) {
        about = {found.st_dev, found.st_ino};
        return fdopen(fd, "rb");
    }
    error = path + (fd < 0 ? std::string(": ") + strerror(errno) : ": it isn't a regular file") + ".";
    if (fd >= 0) {
        close(fd);
    }
    return nullptr;
}

bool ReadRules(Checker &c, const std::string &path, std::string &error) {
    OpenFile about{};
    std::FILE *in = OpenRules(path, about, error);
    if (!in) {
        return false;
    }
    const bool circle = std::ranges::any_of(
        c.open, [&](const OpenFile &outer) { return outer.device == about.device && outer.inode == about.inode; });
    if (circle || c.open.size() >= kMostDepth || c.files >= kMostFiles) {
        error = path + " is passed over: files include each other in a circle, or there are too many";
        fclose(in);
        return false;
    }
    ++c.files;
    c.open.push_back(about);
    c.compile_options = c.find_options = 0;
    c.at = {path == "-" ? "standard input" : path, 0};
    c.order.try_emplace(c.at.file, c.order.size());
    ReadLines(c, in);
    const bool good = !ferror(in);
    error = good ? "" : path + ": it can't be read: " + strerror(errno) + ".";
    fclose(in);
    c.open.pop_back();
    return good;
}

void CheckFlags(Checker &c) {
    for (const auto &[flag, place] : c.asked) {
        if (!c.set[flag]) {
            c.at = place;
            Tell(c, "no rule sets the flag " + Number(flag) + ", so this one never runs");
        }
    }
}

} // namespace

bool CheckRules(const std::vector<std::string> &paths, RuleCheck &check, std::string &error) {
    Checker c{check};
    for (const std::string &path : paths) {
        c.main = path;
        if (!ReadRules(c, path, error)) {
            return false;
        }
        if (c.in_rule) {
            c.at = c.rule.begin;
            Tell(c, "no \"UDQN End\": tly drops the rule");
            c.in_rule = false;
        }
    }
    CheckFlags(c);
    std::ranges::stable_sort(check.findings, [&](const RuleFinding &a, const RuleFinding &b) {
        const size_t first = c.order[a.file], second = c.order[b.file];
        return first != second ? first < second : a.line < b.line;
    });
    return true;
}
