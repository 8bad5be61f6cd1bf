// What the command line asks for, and the commands.
#pragma once

#include <string>
#include <vector>

// One field per option; its row in command_line.cpp tells its name, its meaning and which commands take it.
struct Options {
    std::string command;             // "json"
    std::vector<std::string> inputs; // of a report; {"-"} if none is named
    std::vector<std::string> paths;  // of a run
    std::string output;              // empty: standard output
    std::string root;                // see ReadProject
    std::string before;              // of a page: an earlier input, or a comparison of baselines; empty: none
    std::string trend;               // of a page: a directory of inputs; empty: none
    std::string tly;                 // the program; empty: looked for
    bool classic = false;            // without -xMODERN
    int jobs = 1;
};

// Exit statuses of tly-report.
inline constexpr int kFine = 0;
inline constexpr int kExceeded = 1; // a limit of the user's
inline constexpr int kBad = 2;      // input or command line

struct Command {
    const char *name;
    const char *help;                   // one line
    int (*run)(const Options &options); // returns an exit status; tells what is wrong on stderr
};

// Ends with a row whose name is null.
extern const Command kCommands[];

// Fills options. Returns true if its command is to be run; else the exit status is in status, and --help, --version or what is
// wrong has been printed.
bool ReadCommandLine(int argc, char **argv, Options &options, int &status);
