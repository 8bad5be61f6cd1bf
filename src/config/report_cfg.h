// Report elements: a vocabulary of file metrics by key, and the tables that choose among them. The report on two baselines and the
// configurable CSV report each have a table of their own; both read it from files of one form.
#pragma once

#include <array>
#include <cstdio>

#include "run/report_cfg_state.h"

struct Globals;

// What a file amounts to, beside its counters.
enum Amount {
    kAmountLoc,
    kAmountEloc,
    kAmountLloc,
    kAmountBlanks,
    kAmountComments,
    kAmountLogical, // lines, one of code and comment twice
    kAmountPhysical,
    kAmountNotices,
    kAmountChars,
    kAmountWhite,   // characters of white space
    kAmountVisible, // all others
    kAmountWritten, // lines of code and of comment, one of both twice
    kAmounts
};

// How an element is read from the file in hand.
struct ElementValue {
    enum Kind { kNone, kFileName, kCounter, kAmount, kRatio, kLanguage } kind = kNone;
    int Globals::*counter = nullptr;
    Amount amount = kAmounts, whole = kAmounts; // of a ratio its part and its whole
    int decimals = 0;                           // of a ratio
    int language = 0;                           // LanguageIndex: 1 for a file of it
};

// By number: keys, column labels, values. Number 0 is no element.
extern const std::array<const char *, kReportElements> RepCfgStr, RepElemStr;
extern const std::array<ElementValue, kReportElements> kElementValues;

// Reads a table from an open file; elements that it doesn't mention are off. order holds kReportElements numbers and gets those of
// the elements that it does mention, on or off, in the order of their first lines. Returns how many there are.
int ReadReportCfg(FILE *file, ElementChoice *table, int *order);
// Reads a table from the file at path, as ReadReportCfg does. Returns 1. Without a file that can be read everything is on
// and 0 is returned; one that isn't there is made by MakeDiffCfgFile.
int LoadReportCfg(const char *path, ElementChoice *table, Globals *G);
// Writes the file that a user edits, in place of what stands there; does nothing when it can't.
void MakeDiffCfgFile(const char *path, Globals *G);
