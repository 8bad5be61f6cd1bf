// Rewriting of sources in place: tabs to blanks, carriage returns removed or added. The text isn't parsed.
//
// The new text is written beside the source and takes its place in one step, so that the source is whole at any moment. The three
// rewriters take a text in pieces of any size and carry their state from piece to piece; every byte that they aren't about is
// handed on as it is, NUL too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct Globals;
struct SourceReader;

// Where the walk through the tabs stands; zero at the beginning of a file.
struct TabWalk {
    int in_string; // behind an odd number of quotation marks
    int64_t tabs_replaced;
    char before[2]; // the last two bytes of the piece before, NUL if there are none
};

// Where the walk through the line ends stands; zero at the beginning of a file.
struct LineEndWalk {
    bool has_cr;     // the line in hand holds a carriage return
    bool held_cr;    // a carriage return ended the piece before and isn't handed on yet
    int64_t changed; // carriage returns removed or added
};

// Appends line to out, with tab_width blanks for every tab outside of a string. A quotation mark begins or ends a string wherever
// it stands, unless it is behind a single backslash.
void Detab_line(std::string_view line, std::string *out, int tab_width, TabWalk *walk);
// Appends text to out without the carriage returns that stand directly in front of a line feed. At the end of the file one may
// still be held.
void RemoveReturns(std::string_view text, std::string *out, LineEndWalk *walk);
// Appends text to out with a carriage return in front of the line feed of every line that has none anywhere.
void AddReturns(std::string_view text, std::string *out, LineEndWalk *walk);

// Rewrites the open source called name as decharacter_tabs, decharacter_unix and decharacter_dos say, reports on it and closes it.
// A source that needs no change isn't touched, unless an earlier run left a text that goes ahead of it. Returns 1; 0 behind a
// message, with the source as it was.
int DeFile(SourceReader *source, const char *name, Globals *G);
