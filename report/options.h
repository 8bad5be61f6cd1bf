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
    std::string before;              // an earlier input to compare with; of a page also a comparison of baselines; empty: none
    std::string trend;               // of a page: a directory of inputs; empty: none
    std::string tly;                 // the program; empty: looked for
    std::string table = "files";     // of a CSV: see kTableNames
    std::string badge = "lines";     // see kBadgeNames
    bool svg = false;                // a badge as a picture
    std::string by = "complexity";   // of a list of functions: see kRankNames
    int count = 10;                  // of a list of functions, or of commits
    std::string since;               // a commit; of new: empty if a file is compared
    std::string until = "HEAD";      // the later of two commits
    std::string page;                // where a page goes as well; empty: nowhere
    std::string form = "text";       // of a trend: see kTrendForms
    int every = 1;                   // of a trend: each how many-th commit
    bool tags = false;               // of a trend: tags in place of commits
    int most_new = -1;               // how many new notices there may be; -1: any number
    int max_complexity = -1;         // limits of a gate; -1: none
    int max_lines = -1;
    int max_notices = -1;
    std::vector<std::string> notice_limits; // "12=0"
    std::string known;                      // a report whose notices aren't new; empty: none
    std::string allow;                      // see allow.h; empty: none
    bool config_home = false;               // settings may lie in the user's $XDG_CONFIG_HOME/tly
    bool classic = false;                   // without -xMODERN
    int jobs = 1;
    bool counts_only = false; // of a run, not an option: notices are counted, and not listed
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
