// What tly is started for: "tly-report run", from sources to one XML, with as many tly at once as asked for; and baselines.
#pragma once

#include "options.h"

// Measures options.paths and writes the XML that ReadXml takes to options.output. Returns an exit status; what is wrong is told on
// stderr. tly's own exit status counts notices and is no error; a tly that is ended by a signal is one, and nothing is written
// then.
int RunTly(const Options &options);

// Makes a baseline of the sources below root, a directory with "/", as the new file name in the directory place. Sources whose name
// no list of tly's holds are left out. Returns an exit status.
int MakeBaseline(const Options &options, const std::string &root, const std::string &place, const char *name);

// Writes what tly tells of two baselines in place, line by line, to the new file output, see read_compare.h. Returns an exit
// status.
int CompareBaselines(const Options &options, const std::string &place, const char *older, const char *newer,
                     const std::string &output);
