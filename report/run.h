// "tly-report run": from sources to one XML, with as many tly at once as asked for.
#pragma once

#include "options.h"

// Measures options.paths and writes the XML that ReadXml takes to options.output. Returns an exit status; what is wrong is told on
// stderr. tly's own exit status counts notices and is no error; a tly that is ended by a signal is one, and nothing is written
// then.
int RunTly(const Options &options);
