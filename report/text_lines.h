// Lines of text for people, editors and spreadsheets.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "model.h"

// Writes to a stream in pieces: append to text, and end every line with EndLine.
struct LineWriter {
    std::FILE *out;
    std::string text{}; // not written yet
};

void EndLine(LineWriter &w);
// Everything to the stream. False with errno if the stream refused anything.
bool Finish(LineWriter &w);

// Appends text that may hold anything to a line for a terminal. What would end the line, drive the terminal or turn the direction
// of writing is shown by its number: \x1b, \u202e.
void AppendShown(std::string &out, std::string_view text);
// The same as a text.
std::string Plain(std::string_view text);
// "src/a.c:12", as editors and people read it.
std::string Place(const Model &m, uint32_t file, int64_t line);
// "src/a.c:12: notice 9: 'goto' keyword identified [0123456789abcdef]": the last is its fingerprint.
void AppendNotice(std::string &out, const Model &m, const Notice &notice);
// "1 function", "2 functions".
std::string Counted(size_t count, const char *thing);

// Rows as lines, each cell of a column as wide as the widest (up to 60), two blanks between. alignment has an "l" or "r" for each
// column: to the left or to the right. Cells hold nothing that moves a terminal's cursor, see AppendShown.
void AppendColumns(LineWriter &w, const std::vector<std::vector<std::string>> &rows, std::string_view alignment,
                   std::string_view indent = "");
