// Programs that tly-report starts: by their path and arguments, without a shell.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

// Starts a program, which is looked for on the PATH if its name has no "/". Its standard input is empty and its standard output
// goes to the new file output (not a descriptor of ours is left to it). variables ("NAME=value") are set besides the environment.
// It runs in directory, in the current one if that is empty. Returns its process, or -1 with errno.
pid_t Start(const std::vector<std::string> &arguments, const std::vector<std::string> &variables, const std::string &output,
            const std::string &directory = "");

// Runs a program that reads the file input and says nothing on standard error, and adds its standard output to output. Returns
// whether it ended with 0.
bool Capture(const std::vector<std::string> &arguments, std::string &output, const std::string &input = "/dev/null");
