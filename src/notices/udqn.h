// User defined quality notices: reading the rules, running them, showing them.
#pragma once

#include <span>
#include <string>

#include "run/udqn_state.h"

struct Globals;

// Reads a rule file; with a null name the main file, udqn_file. A name without a "/" lies beside the main file. Returns 0, or the
// system's error number, told in a message, if the file can't be opened. With -xUDQNSHOW it doesn't return: it lists the rules and
// ends the process.
int load_udqn_file(const char *name, Globals *G);
// Loads the rules that the settings name, if this run raises notices.
void LoadUserRules(Globals *G);
// Takes one line of a rule file.
void parse_udqn_line(const char *line, UdqnRun *ctx, Globals *G);
// A key of the rule file.
struct RuleKey {
    const char *key;   // compared without regard to case
    const char *value; // what stands behind the colon, for the listing; "" for nothing
    void (*take)(const char *value, UdqnRun *ctx, Globals *G);
    bool of_a_rule;   // passed over outside of one: a record is under construction when take is called
    const char *help; // for the listing, in lines
};
// All keys, in the order in which they are told.
std::span<const RuleKey> RuleKeys();
// Fills a flag list; returns how many of its numbers were accepted.
int parse_flags(const char *text, std::span<int, kUdqnFlagNumbers> flags);
// Replaces the extensions of a rule. Returns how many there are.
int parse_sources(const char *text, std::span<char *, kUdqnSources> sources);
// Appends a finished rule. False when memory is out: the caller then still owns it.
bool AddUdqn(Udqn *record, UdqnList *list, Globals *G);
// Frees the record under construction, if there is one.
void DropUdqn(UdqnRun *ctx);
// Frees a rule's texts and pattern, not the record.
void free_udqn(void *record);
// Frees all rules, and one under construction.
void ClearUdqn(Globals *G);
// True if the list has a rule of this id. A null list has none.
bool search_udqn_id(int id, const UdqnList *list);
// The first rule of this id, or null.
Udqn *get_udqn_ptr(int id, const UdqnList *list);
// Lists one rule.
void UdqnShow(const Udqn *record, Globals *G);

// Runs the rules over the line just scanned (eof 0), or at the end of a file (eof 1).
void udqn_process(const char *text, int eof, Globals *G);
// True if a rule for the current file looks at the code, the comments or the strings of a line.
bool udqn_needs_split(Globals *G);
// Matches a text; 0 on a match.
int pcre_match(const char *text, Udqn *record, Globals *G);
// The sample test: its outcome goes into result, as text. Returns 0 on a match. A null text with a pattern leaves result empty.
int pcre_match_test(const char *text, const Udqn *record, const Globals *G, std::span<char> result);
// Fires a rule: flags, count, and the notice in the form that is asked for.
void emit_udqn(Udqn *record, Globals *G);
// The short form, and the entry in notice_list.
void emit_udqn_lite(Udqn *record, Globals *G);
// A word of a message that stands for something at the place of the notice.
struct Placeholder {
    const char *word;
    const char *example; // what the listing of the rules shows
    const char *help;    // for the listing of the keys, one line
    std::string (*text)(const Globals *G);
};
std::span<const Placeholder> Placeholders();
// Writes a message with its placeholders filled in, and a line feed. Null writes nothing.
void emit_message(const char *text, Globals *G);
// Fires of all active rules.
int udqn_notice_total_count(const Globals *G);
// The rows of the rules in the quality profile; total is the number of all notices.
void udqn_profile(int total, const Globals *G);

// What a pattern needs; any_case: it is compiled for letters of both cases. Nothing where it isn't understood.
UdqnNeeds NeedsOf(const char *pattern, bool any_case);
// Makes the sieves of a list; without memory for one, its rules do without.
void MakeSieves(UdqnList *list);
// Frees them. They are stale when a rule comes in.
void DropSieves(UdqnList *list);
// False if text, the part of the line that the rule looks at, lacks what its pattern needs.
bool MayMatch(const Udqn *rule, const char *text, Globals *G);

// The regular expressions. Options are those of the rule file, as bits.
struct UdqnMatch {
    int code;       // 0 on a match
    int limit_hit;  // stopped for taking too many steps; no match then
    int start, end; // offsets; -1 when there are none
};
// Null when the pattern doesn't compile; result says how it went in either case.
UdqnRegex *pcre_compile(const char *pattern, int flags, std::span<char> result);
UdqnMatch pcre_exec(const UdqnRegex *regex, const char *text, int flags);
void pcre_free(UdqnRegex *regex); // null is left alone
