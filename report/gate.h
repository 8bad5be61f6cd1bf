// Limits of the user's, to be kept by what goes in.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "allow.h"
#include "known.h"
#include "model.h"

inline constexpr int64_t kNoLimit = -1;

struct KindLimit {
    int number;
    int64_t most;
};

struct Limits {
    int64_t complexity = kNoLimit; // cyclomatic, of a function
    int64_t lines = kNoLimit;      // physical, of a function
    int64_t notices = kNoLimit;    // of all files
    std::vector<KindLimit> kinds{};
    const Known *known = nullptr; // no notice may come that isn't among these; null: any may
};

// Reads "12=0". Returns false with a message of whole sentences in error.
bool ReadKindLimit(const std::string &text, KindLimit &limit, std::string &error);

// Prints every limit that is exceeded, with a line for each finding that counts, or that all are kept. What is allowed doesn't
// count; entries that allow nothing which is there are told on stderr. Without any limit no notice may be there. exceeded is how
// many limits are. Returns false with errno if the stream refused anything.
bool WriteGate(const Model &m, const Limits &limits, Allowed &allowed, size_t &exceeded, std::FILE *out);
