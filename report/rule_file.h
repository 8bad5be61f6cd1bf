// What is wrong in a file of rules (UDQN) as tly reads it: for the people who write rules.
#pragma once

#include <string>
#include <vector>

struct RuleFinding {
    std::string file;
    int line;
    std::string text; // one line, which may hold anything that the file holds
};

inline constexpr size_t kMostFindings = 500;

struct RuleCheck {
    std::vector<RuleFinding> findings{}; // by file in the order of reading, then by line; kMostFindings at most
    size_t left_out = 0;                 // findings beyond these
    size_t rules = 0;                    // that have an end
    bool untried = false;                // there was no time to try all patterns against long lines
};

// Reads files, "-" for standard input, with the files that they include, as one set of rules. Returns false, with a message of
// whole sentences in error, if one of paths can't be read.
bool CheckRules(const std::vector<std::string> &paths, RuleCheck &check, std::string &error);
