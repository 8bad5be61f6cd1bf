// Notices that an earlier report has, and those that it hasn't.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "model.h"

// What an earlier report tells of its notices.
struct Known {
    std::vector<uint64_t> fingerprints; // ascending
    bool by_line = false;               // some rest on line numbers
};

// Reads the fingerprints in a JSON, SARIF or GitLab file of tly-report's; name is for messages. An XML has none: they would be
// taken from sources that have changed since. The stream isn't closed. Returns false with a message of whole sentences in error if
// it can't be read, is none of these or not whole, or is a SARIF that was cut to the worst kinds.
bool ReadKnown(std::FILE *in, const std::string &name, Known &known, std::string &error);
// The same of a project at hand.
Known KnownOf(const Model &m);

struct Fresh {
    std::vector<uint32_t> notices; // indices of m.notices that aren't known
    size_t gone = 0;               // known ones that aren't in m
};
Fresh FindFresh(const Model &m, const Known &known);

// A line per notice that isn't known, and one that counts. Returns false with errno if the stream refused anything.
bool WriteFresh(const Model &m, const Fresh &fresh, std::FILE *out);
