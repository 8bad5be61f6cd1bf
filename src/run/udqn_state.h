// The user's own quality notices: one record per rule, and what the reader and the engine remember.
#pragma once

#include <cstddef>

#include "run/llist.h"

inline constexpr int kUdqnSources = 64;     // extensions of a rule
inline constexpr int kUdqnFlagNumbers = 32; // places of a flag list
inline constexpr int kNeededTexts = 16;     // that one pattern is known to need one of
inline constexpr int kNeededBytes = 16;     // of such a text
inline constexpr int kUdqnFlagLimit = 2000; // flags are numbered from 1 to one below

struct UdqnRegex;    // a compiled pattern; only udqn_regex.cpp looks inside
struct UdqnOpenFile; // a rule file being read
struct UdqnSieve;    // the texts that rules need; only udqn_sieve.cpp looks inside

enum UdqnContext { kUdqnUnknown, kUdqnLine, kUdqnCode, kUdqnComment, kUdqnString, kUdqnContexts };
extern const char *const UdqnContextStr[kUdqnContexts]; // their names

// What every text that a pattern matches has.
struct UdqnNeeds {
    int count;     // of texts, one of which it holds; 0: none are known
    int some_byte; // it isn't empty
    int any_case;  // the texts are in lower case and stand for both
    char texts[kNeededTexts][kNeededBytes + 1];
};

// One rule. Texts are owned and null until the file gives them. A flag list has a place for every number of the file, 0 where a
// number was refused; its count is that of the accepted ones.
struct Udqn {
    int id; // 100 or above; 0 until it is told
    int active;
    int context;                 // UdqnContext
    char *sources[kUdqnSources]; // extensions it applies to; null ends them
    char *pattern;
    char *compile_result; // how the compilation went
    char *message;        // template of the long form
    char *summary;        // text of the short form
    char *test_string;    // the sample line
    char *test_result;    // how the sample test went
    int set_count, set_flags[kUdqnFlagNumbers];
    int check_count, check_flags[kUdqnFlagNumbers];
    int not_check_count, not_check_flags[kUdqnFlagNumbers];
    int clear_count, clear_flags[kUdqnFlagNumbers];
    int emit_eof;     // for the end of a file, not for its lines
    int silent;       // moves flags only
    int count;        // fires of the run
    UdqnRegex *regex; // null when the pattern is missing or didn't compile
    UdqnNeeds needs;  // of its pattern
    int sieved;       // a sieve looks for them
    long seen;        // the last udqn_line on which the sieve found one

    int limit_hits;      // matches of the run that were stopped for taking too many steps
    int file_limit_hits; // those of the file in hand
    int limit_told;      // that the rule is off for a file
    Udqn *next_in_file;  // the next rule for the current file's extension, and for the same of lines and end
};

// The rules in the order of their ends, with a hash of their ids and the sieves beside them.
struct UdqnList : Llist {
    Udqn **slots;                     // open addressing; null is free
    size_t capacity;                  // a power of two, or 0
    UdqnSieve *sieves[kUdqnContexts]; // by part of the line; null: no rule there needs a text
    int sieves_made;                  // with all rules of the list
};

struct UdqnRun {
    int udqn_compile_flags; // options for the patterns that follow
    int udqn_exec_flags;    // options for all matches
    UdqnList udqn_list;
    Udqn *qnp;                       // the record under construction, or null
    int compile_status;              // a pattern of the run has compiled
    UdqnOpenFile *udqn_open_files;   // the file being read, and from it those that include it
    int udqn_files_read;             // or looked for
    int udqn_include_refused;        // told once
    long udqn_line;                  // counts the calls of udqn_process
    long udqn_sifted[kUdqnContexts]; // the last line whose part went through the sieves
};

// Cleared behind every file on whose lines rules have run.
struct UdqnFileState {
    int udqn_chosen;                // the rules for this file's extension are known
    int udqn_split;                 // one of them looks at a part of a line
    Udqn *udqn_first[2];            // the first of those for lines, and of those for the end of the file; or null
    int udqn_flags[kUdqnFlagLimit]; // by flag number
};
