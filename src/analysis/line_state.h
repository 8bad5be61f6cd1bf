// What the line scanner keeps from line to line, and what it counts. The per-file records are cleared behind every file.
#pragma once

#include "run/text.h"

// Counters of one file that have a project sum. Ints only: the sum is taken cell by cell.
struct FileCounters {
    int skipped_lines;      // lines inside code skip regions
    int notice_count;       // quality notices
    int file_line_no;       // physical lines read; skipped lines count
    int file_chars;         // characters of all scanned lines, line ends left out
    int file_white;         // blanks, and tab_width for every tab
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
    int string_count;       // string literals closed
    int continuation_count; // lines that end in a backslash
    int alloc_count, free_count, new_count, delete_count;
};

// The state of comments, strings and continued lines.
struct LineState {
    int c_comment;          // inside /* */
    int cpp_comment;        // inside //; on the next line only behind a continuation
    int string_flag;        // inside "..."
    int char_flag;          // inside '...'
    int continuation;       // the previous line ended in a backslash
    int quote_count;        // quotes since the last line that didn't follow a continuation
    int comment_star_index; // index of the character behind the "/" that opened the comment; -1 when none is open
    int comment_start_line;
    int skip_lines_active;   // inside a code skip region
    int skip_quality_active; // inside a quality skip region
};

// The line in hand, and its split by kind in debug mode.
struct LineBuffers {
    alignas(16) char line_pad[16]; // NULs: what stands in front of the first character
    char line_buffer[2048 + 16];   // the current line, NUL terminated; the bytes behind it are zero up to the next 16
    LineText line_code;            // characters outside comments and strings
    LineText line_string;          // characters of string literals, quotes included
    LineText line_comment;         // characters of comments
};

// LOC family of one language group of the project.
struct LanguageSums {
    int loc, eloc, lloc, comments, blanks, lines;
};

enum LanguageGroup { kHeaderGroup, kCGroup, kCppGroup, kJavaGroup, kCsGroup, kOtherGroup, kLanguageGroups };
