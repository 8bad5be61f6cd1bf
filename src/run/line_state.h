// What the line scanner keeps from line to line, and what it counts. The per-file records are cleared behind every file.
#pragma once

#include <bit>
#include <cstdint>

#include "run/records.h"
#include "run/text.h"

// Counters of one file that have a project sum. Ints only: the sum is taken cell by cell.
struct FileCounters {
    int skipped_lines;      // lines inside code skip regions
    int notice_count;       // quality notices
    int file_line_no;       // physical lines read; skipped lines count
    int file_chars;         // characters of all scanned lines, line ends left out
    int file_white;         // blanks, and tab_width for every tab, of all lines; told behind the last one
    int file_loc;           // lines of code
    int file_blank;         // blank lines
    int file_comments;      // lines that hold comment text
    int semicolon_count;    // ";" in code
    int for_count;          // for and foreach
    int just_brace_count;   // lines of just "{" or "}"
    int just_paren_count;   // lines of just "(" or ")"
    int open_braces;        // "{" in code
    int closebrace_count;   // "}" in code
    int open_paren;         // "(" in code
    int close_paren;        // ")" in code
    int open_bracket;       // "[" in code
    int close_bracket;      // "]" in code
    int string_count;       // string literals closed
    int continuation_count; // lines that end in a backslash
    // keywords, each by its own name
    int alloc_count, free_count, new_count, delete_count;
    int do_count, while_count, switch_count, default_count, case_count, break_count, if_count, else_count;
    int goto_count, return_count, exit_count, _exit_count, abort_count;
    int union_count, template_count, friend_count, typedef_count, const_count, enum_count, using_count;
    int inline_count, virtual_count;
    int preproc_count, define_count, include_count, import_count;
    int macro_count;                    // #define names; in the first file those of the macro file too
    int struct_count;                   // structs that open
    int class_count;                    // class and struct records made
    int interface_count;                // interface records made
    int template_class_count;           // classes behind a template heading
    int template_func_count;            // functions behind one
    int namespace_count, package_count; // records made
    int function_count;                 // functions closed and listed
};

// eLOC: lines of just a brace or a parenthesis aren't effective.
inline int EffectiveLines(const FileCounters &of) {
    return of.file_loc - of.just_brace_count - of.just_paren_count;
}
// lLOC: statements; the head of a for has two ";" and ends none.
inline int LogicalLines(const FileCounters &of) {
    return of.semicolon_count - of.for_count;
}

// The lines of a file, or of the project.
inline LineCounts LinesOf(const FileCounters &of) {
    return {.loc = of.file_loc,
            .eloc = EffectiveLines(of),
            .lloc = LogicalLines(of),
            .comments = of.file_comments,
            .blanks = of.file_blank,
            .lines = of.file_line_no};
}

// What the character in hand is part of: 0 or 1 each, and none in code.
struct SpanState {
    char c_comment;   // inside /* */
    char cpp_comment; // inside //; on the next line only behind a continuation
    char string_flag; // inside "..."
    char char_flag;   // inside '...'
};

inline bool IsInCode(const SpanState &state) {
    return std::bit_cast<uint32_t>(state) == 0;
}

inline bool IsJustBlockComment(const SpanState &state) {
    constexpr SpanState kBlockComment{1, 0, 0, 0};
    return std::bit_cast<uint32_t>(state) == std::bit_cast<uint32_t>(kBlockComment);
}

// The state of comments, strings and continued lines.
struct LineState : SpanState {
    int continuation;       // the previous line ended in a backslash
    int quote_count;        // quotes of the line, and of those that it goes on from
    int comment_star_index; // index of the character behind the "/" that opened the comment; -1 when none is open
    int comment_start_line;
    int comment_pending;     // comment lines since the last blank line or the last entity that took them
    int fall_through;        // comment lines that speak of falling through, since the last function end
    int key_string_found;    // the key string of the settings was seen
    int64_t quiet_tabs;      // tabs that raise no notice: those in strings, and those whose notices are counted
    int skip_lines_active;   // inside a code skip region
    int skip_quality_active; // inside a quality skip region
};

// What is to be done for a line beside the count of it: for most lines of most runs nothing.
enum LineWants : unsigned {
    kWantsSplit = 1,   // its code, its strings and its comments each for themselves
    kWantsLook = 2,    // someone looks at it when it is scanned: the user's rules, -d, line records
    kWantsNotices = 4, // the notices of tabs print in their places; otherwise they only count
    kWantsKey = 8,     // the key string is looked for, and not found yet
    kWantsHead = 16,   // at the head of the next line: a text goes on, or function_scope is below 0
    kGivenUp = 32,     // a record of the line in hand couldn't be made
};

struct Scan;
struct SourceReader;

// The line in hand, and its split by kind in debug mode.
struct LineBuffers {
    unsigned line_wants;   // LineWants
    SourceReader *source;  // of the file in hand; null outside of its lines
    const Scan *scan;      // the line in hand; null between lines
    const char *line_text; // its text for the user's rules, behind the last line what stands there; null ahead of the first file
    LineText line_kinds;   // a SpanKind for every character, where the split is wanted
    LineText mname;        // name of the macro whose #define was read last
    LineText line_code;    // characters outside comments and strings
    LineText line_string;  // characters of string literals, quotes included
    LineText line_comment; // characters of comments
};
