// The pattern of a rule of tly's, compiled and run as tly does it. No other file of tly-report sees PCRE.
#pragma once

#include <memory>
#include <string>
#include <string_view>

// Options of a rule file, as bits.
inline constexpr int kIgnoreCase = 1, kNewline = 2, kNoPlaces = 32; // for compiling
inline constexpr int kNotBegin = 4, kNotEnd = 8;                    // for finding

// Steps of one match, from one place of a line on, behind which tly stops a pattern.
inline constexpr int kMostSteps = 100000;
inline constexpr size_t kTriedLine = 200; // characters, about, of the lines that AgainstPattern makes

struct RulePattern;
struct FreePattern {
    void operator()(RulePattern *pattern) const;
};
using RulePatternPtr = std::unique_ptr<RulePattern, FreePattern>;

// Null with what is wrong in error.
RulePatternPtr CompilePattern(const std::string &text, int options, std::string &error);

enum class Outcome { kFound, kNotFound, kStopped };
Outcome Find(const RulePattern &pattern, const std::string &line, int options);

// A line of about kTriedLine characters on which the pattern is stopped for its steps, made of what the pattern and its sample
// (empty if there is none) are made of; empty if none was come upon. Takes seconds of the processor's time at most, and less each
// time by what it took; when they are used up it tries nothing.
std::string AgainstPattern(const RulePattern &pattern, std::string_view text, std::string_view sample, double &seconds);
