// What is wrong in files of rules, told line by line.
#pragma once

#include "options.h"

// Returns an exit status: kExceeded if anything is wrong.
int RunRules(const Options &options);
