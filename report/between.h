// "tly-report between": what changed from one commit to another.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "model.h"
#include "options.h"
#include "read_compare.h"
#include "revisions.h"

// One of the two commits, measured.
struct Side {
    Commit commit;
    Model m; // without files if the commit has no sources
    // For each of m.functions a hash of its text from "{" to "}", but for white space; 0 where the source wasn't readable.
    std::vector<uint64_t> bodies;
};

struct Between {
    Side older;
    Side newer;
    Comparison comparison; // of baselines, line by line
};

// Totals, then files, functions and notices that are new, changed or gone, at most `most` of each in full. A function is known
// again by its file, name and parameters. Returns false with errno if the stream refused anything.
bool WriteBetween(const Between &b, size_t most, std::FILE *out);

// The command.
int RunBetween(const Options &options);
