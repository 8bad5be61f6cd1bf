// From the records of one or several inputs to one project.
#pragma once

#include <string>

#include "model.h"

// Brings m into the order that model.h tells, joins what the inputs told about one class, namespace or language, counts the kinds
// of notices, finds each notice's function and adds up the sums. Fingerprints are not touched. Returns false with a message in
// error if a file was measured twice: its figures would count twice.
bool FinishModel(Model &m, std::string &error);
