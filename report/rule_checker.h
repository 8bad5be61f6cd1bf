// Within the check of rules: the state of reading, shared by the reader of lines (rule_file.cpp) and what knows the keys of a rule
// (rule_keys.cpp).
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

#include "rule_file.h"
#include "rule_pattern.h"

inline constexpr double kTryingSeconds = 20; // for all patterns together

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

void Tell(Checker &c, int line, const std::string &text);
void Tell(Checker &c, const std::string &text); // of the line in hand

// A text from the file, cut to what is bearable.
std::string Quoted(std::string_view text);
std::string Number(long number);
std::string Shown(const Place &place);
// Without the characters front at its front and back at its back.
std::string_view Trimmed(std::string_view text, const char *front, const char *back);
bool Is(std::string_view text, const char *word); // in any case
bool IsOn(const std::string &value);

bool IsRuleKey(std::string_view key);
// Takes a line with a key of a rule, or tells that none has begun. The end is such a key: then the rule is looked at as a whole.
void TakeRuleKey(Checker &c, std::string_view key, const std::string &value);
bool Has(const Rule &rule, const char *key);
// The line of a key that the rule has.
int LineOf(const Rule &rule, const char *key);
