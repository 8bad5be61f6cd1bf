// Where a report goes.
#pragma once

#include <cstdio>
#include <functional>
#include <string>

// Has write fill the file path, or standard output if path is empty, and returns an exit status. The file is written beside its
// place and put there when it is whole: a report that failed leaves the old one. write returns false with errno if its stream
// refused anything. What is wrong is told on stderr.
int WriteOutput(const std::string &path, const std::function<bool(std::FILE *out)> &write);
