// The page: the figures of a project as one HTML file that needs nothing else, to look at and to print.
//
// It is HTML that is well-formed XML too. It has no script and names nothing outside of itself. Every text of the input is
// escaped, and a policy in the head forbids the browser to load or to run anything.
#pragma once

#include <cstdio>
#include <optional>
#include <vector>

#include "model.h"
#include "options.h"
#include "read_compare.h"
#include "run_figures.h"

struct PageInput {
    const Model &m;
    RunFigures now; // of m
    std::optional<RunFigures> before;
    std::optional<Comparison> comparison;
    std::vector<RunFigures> trend; // oldest first; empty: no trend is asked for
};

// False with errno if the stream refused anything.
bool WritePage(const PageInput &input, std::FILE *out);

// The command.
int RunPage(const Options &options);
