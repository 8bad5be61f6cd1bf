#include "rule_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "rule_checker.h"

namespace {

// The limits of tly's reader.
constexpr size_t kLongestLine = 2047;
constexpr size_t kMostDepth = 32, kMostFiles = 1000;

constexpr std::string_view kPasses = "# passes";

// clang-format off
struct OptionKey { const char *key; int Checker::*options; int bit; };

const OptionKey kOptions[] = {
    {"REG_ICASE",    &Checker::compile_options, kIgnoreCase},
    {"REG_NEWLINE",  &Checker::compile_options, kNewline},
    {"REG_NOSUB",    &Checker::compile_options, kNoPlaces},
    {"REG_EXTENDED", &Checker::compile_options, 0}, // always on
    {"REG_NOTBOL",   &Checker::find_options,    kNotBegin},
    {"REG_NOTEOL",   &Checker::find_options,    kNotEnd},
};
// clang-format on

const OptionKey *FindOption(std::string_view key) {
    const OptionKey *row = std::ranges::find_if(kOptions, [key](const OptionKey &each) { return Is(key, each.key); });
    return row == std::end(kOptions) ? nullptr : row;
}

bool IsKey(std::string_view key) {
    return IsRuleKey(key) || FindOption(key) || Is(key, "UDQN Begin") || Is(key, "include");
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
    if (const OptionKey *option = FindOption(key)) {
        TakeOption(c, *option, value);
    } else if (Is(key, "include")) {
        TakeInclude(c, value);
    } else if (Is(key, "UDQN Begin")) {
        BeginRule(c);
    } else if (IsRuleKey(key)) {
        TakeRuleKey(c, key, value);
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
