// What goes wrong, told on stderr.
#pragma once

#include <cstdio>
#include <string>

#include "options.h"

// Returns false, for whoever answers by that.
inline bool Tell(const std::string &what) {
    fprintf(stderr, "tly-report: %s\n", what.c_str());
    return false;
}

// The same, and returns the exit status of bad input.
inline int Refuse(const std::string &what) {
    Tell(what);
    return kBad;
}
