// From the records of one or several inputs to one project.
#pragma once

#include <string>

#include "model.h"

// Brings m into the order that model.h tells, counts the kinds of notices, finds each notice's function and adds up the sums. With
// several inputs, what they told about one class or namespace becomes one row of sums: a namespace counts a class once per input,
// and the tree of each input stands for itself. Fingerprints are not touched. Returns false with a message in error if a file was
// measured twice: its figures would count twice.
bool FinishModel(Model &m, bool several, std::string &error);
