#include "rule_pattern.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <functional>
#include <pcre2posix.h>
#include <set>

static_assert(REG_ICASE == kIgnoreCase && REG_NEWLINE == kNewline && REG_NOSUB == kNoPlaces && REG_NOTBOL == kNotBegin &&
                  REG_NOTEOL == kNotEnd,
              "options are passed on as bits");

struct RulePattern {
    regex_t compiled;
};

namespace {

// The limits under which tly runs a pattern: steps, and KiB.
const std::string kLimits = "(*LIMIT_MATCH=" + std::to_string(kMostSteps) + ")(*LIMIT_HEAP=65536)";

constexpr char kFitsNothing = '\x01'; // what ends a line in vain
constexpr size_t kMostCharacters = 32;

// Where what stands in front of a group's pattern ends: behind "(?:", "(?<name>", "(?i)".
size_t BehindGroupHead(std::string_view text, size_t at) {
    if (text.substr(at, 2) != "(?") {
        return at + 1;
    }
    at = std::min(text.find_first_of(":=!>)", at), text.size() - 1);
    return at + 1;
}

size_t BehindClass(std::string_view text, size_t at, std::string &out) {
    at += text.substr(at, 2) == "[^" ? 2 : 1;
    out += text[at - 1] == '^' || at == text.size() || text[at] == '\\' ? 'a' : text[at];
    for (++at; at < text.size() && text[at] != ']'; ++at) {
        at += text[at] == '\\';
    }
    return std::min(at + 1, text.size());
}

// What "\c" finds; NUL if that is a place and no character.
char Escaped(char c) {
    constexpr std::string_view letters = "wdsWDSntrbBAzZ", examples = "a0 !a!\n\t\r";
    const size_t letter = letters.find(c);
    return letter == std::string_view::npos ? c : letter < examples.size() ? examples[letter] : '\0';
}

// A text such as a pattern finds, near enough: "foo(\d+)?;" makes "foo0;".
std::string ExampleOf(std::string_view pattern) {
    std::string out;
    for (size_t at = 0; at < pattern.size();) {
        const char c = pattern[at];
        if (c == '\\' && at + 1 < pattern.size()) {
            if (const char example = Escaped(pattern[at + 1])) {
                out += example;
            }
            at += 2;
        } else if (c == '[') {
            at = BehindClass(pattern, at, out);
        } else if (c == '(') {
            at = BehindGroupHead(pattern, at);
        } else if (c == '{') {
            at = std::min(pattern.find('}', at), pattern.size() - 1) + 1;
        } else {
            if (!strchr("*+?|^$)", c)) {
                out += c == '.' ? 'a' : c;
            }
            ++at;
        }
    }
    return out;
}

std::string Repeated(std::string_view head, std::string_view piece) {
    std::string line(head.substr(0, kTriedLine / 2));
    while (line.size() + piece.size() < kTriedLine) {
        line += piece;
    }
    return line;
}

// Lines that are tried until one is what is looked for. A search for a text that has to be there, which PCRE begins with, is led
// astray: behind what fits nothing, or in front in the wrong order, stands all that the pattern wants.
struct Trial {
    std::function<bool(const std::string &line)> look; // true: no more
    std::string example{}, turned{};                   // of the pattern; the same from its end to its begin
};

// Each piece of the sample over and over, behind what leads to it.
bool TryRepeats(const Trial &trial, std::string_view sample) {
    for (size_t at = 0; at < std::min(sample.size(), kTriedLine / 2); ++at) {
        for (size_t size = 1; size <= 3 && at + size <= sample.size(); ++size) {
            const std::string line = Repeated(sample.substr(0, at), sample.substr(at, size));
            if (trial.look(line + kFitsNothing + trial.example) || trial.look(line + std::string(sample.substr(at + size)))) {
                return true;
            }
        }
    }
    return false;
}

bool TryPairs(const Trial &trial, std::string_view characters) {
    for (const char first : characters) {
        for (const char second : characters) {
            const std::string pair{first, second};
            if (trial.look(Repeated("", pair) + kFitsNothing + trial.example) ||
                trial.look(Repeated(trial.turned, pair) + kFitsNothing)) {
                return true;
            }
        }
    }
    return false;
}

double ProcessorTime() {
    return static_cast<double>(clock()) / CLOCKS_PER_SEC;
}

} // namespace

void FreePattern::operator()(RulePattern *pattern) const {
    regfree(&pattern->compiled);
    delete pattern;
}

RulePatternPtr CompilePattern(const std::string &text, int options, std::string &error) {
    RulePattern made{};
    const int code = regcomp(&made.compiled, (kLimits + text).c_str(), options);
    if (code == 0) {
        return RulePatternPtr(new RulePattern(made));
    }
    // "missing closing parenthesis at offset 3": counted from where the user's pattern begins
    made.compiled.re_erroffset -= std::min(made.compiled.re_erroffset, kLimits.size());
    char message[256];
    regerror(code, &made.compiled, message, sizeof message);
    error = message; // padded with blanks
    error.resize(error.find_last_not_of(' ') + 1);
    return nullptr;
}

Outcome Find(const RulePattern &pattern, const std::string &line, int options) {
    regmatch_t match = {-1, -1};
    const int code = regexec(&pattern.compiled, line.c_str(), 1, &match, options);
    // REG_ESPACE tells of too many steps, REG_ASSERT of too much memory.
    return code == 0 ? Outcome::kFound : code == REG_ESPACE || code == REG_ASSERT ? Outcome::kStopped : Outcome::kNotFound;
}

std::string AgainstPattern(const RulePattern &pattern, std::string_view text, std::string_view sample, double &seconds) {
    const double begin = ProcessorTime();
    std::string found;
    Trial trial;
    trial.example = ExampleOf(text).substr(0, kTriedLine / 4);
    trial.turned.assign(trial.example.rbegin(), trial.example.rend());
    trial.look = [&](const std::string &line) {
        const bool late = ProcessorTime() - begin > seconds;
        if (!late && Find(pattern, line, 0) == Outcome::kStopped) {
            found = line;
        }
        return late || !found.empty();
    };
    const std::set<char> known(trial.example.begin(), trial.example.end());
    std::string characters = "a0 _(\"";
    std::ranges::copy_if(known, std::back_inserter(characters), [&](char c) { return characters.find(c) == std::string::npos; });
    characters.resize(std::min(characters.size(), kMostCharacters));
    if (!TryRepeats(trial, sample) && !TryRepeats(trial, trial.example)) {
        TryPairs(trial, characters);
    }
    seconds -= std::min(seconds, ProcessorTime() - begin);
    return found;
}
