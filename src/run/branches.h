// What counts as a branch of a function: a row per keyword or operator, with the setting that includes it in the cyclomatic
// complexity. "default" and "do" are no branches of their own: do { } while (a) counts its while.
#pragma once

#include "run/config_state.h"
#include "run/function_state.h"

struct Branch {
    int CyclomaticSettings::*included;
    int FunctionCounters::*counter;
    const char *label; // what its line in the detail of a function begins with
};

inline constexpr Branch kBranches[] = {
    {&CyclomaticSettings::cyclo_while, &FunctionCounters::local_while, "      Loops while / do        : "},
    {&CyclomaticSettings::cyclo_for, &FunctionCounters::local_for, "      Loops for / foreach     : "},
    {&CyclomaticSettings::cyclo_switch, &FunctionCounters::local_switch, "      Selection switch        : "},
    {&CyclomaticSettings::cyclo_case, &FunctionCounters::local_case, "      Selection case          : "},
    {&CyclomaticSettings::cyclo_if, &FunctionCounters::local_if, "      Conditional if / else if: "},
    {&CyclomaticSettings::cyclo_else, &FunctionCounters::local_else, "      Conditional else        : "},
    {&CyclomaticSettings::cyclo_inline_if, &FunctionCounters::local_inline_if, "      Inlined if-else ( ? : ) : "},
    {&CyclomaticSettings::cyclo_goto, &FunctionCounters::local_goto, "      goto                    : "},
    {&CyclomaticSettings::cyclo_or, &FunctionCounters::local_or, "      Logical or ( || )       : "},
    {&CyclomaticSettings::cyclo_and, &FunctionCounters::local_and, "      Logical and ( && )      : "},
};
