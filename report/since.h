// "tly-report new --since": the notices that the work tree has and a commit hadn't.
#pragma once

#include <cstdio>
#include <functional>

#include "known.h"
#include "options.h"

// Measures options.paths as they are, and as they were in the commit options.since of the repository that the current directory
// lies in, whose files are written to a place for temporary ones: neither the work tree nor anything of the repository is touched.
// Calls report with the first, its paths relative to the top of the repository, and with the notices of the second. Files of
// submodules are left out. Returns an exit status: that of report, or kBad with what is wrong told on stderr.
int CompareSince(const Options &options, const std::function<int(const Model &now, const Known &before)> &report);
