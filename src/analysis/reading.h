// The modern reading: a second way to read sources, which -xMODERN or a setting turns on. One row per rule; the scanner asks for a
// rule by its bit in G->reading, and with none of them it reads as ever.
#pragma once

#include <span>

#include "run/reading_state.h"

struct Globals;

struct ReadingRule {
    ReadingBit rule;
    const char *name;     // of -xMODERN:name,...
    const char *change;   // what it changes, in a line
    const char *language; // of the sample
    const char *sample;   // a source
    const char *with;     // its functions with all rules on, "name:line of its }", "=complexity" where it isn't 1, joined by blanks
    const char *without;  // the same with all rules but this one
    // of 15,800 files, 8.8 million lines:
    int brings;  // functions that are lost without it
    int changes; // functions and classes with another figure or name without it
};

std::span<const ReadingRule> ReadingRules();
// The rules of a list of names, separated by commas; 0 if one of them is unknown.
unsigned RulesOf(const char *names);
