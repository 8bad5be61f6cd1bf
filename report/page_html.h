// What the page is made of: figures for people, texts, tables.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// "1,234,567", "−12".
std::string Count(int64_t value);
// With decimals behind the point: "1,234.50".
std::string Fixed(double value, int decimals);
// "37.5%", or "–" if there is no whole to be a part of.
std::string Share(double part, double whole);
// With its sign, and in proportion to before unless that is 0: "+12 (+3.2%)", "0".
std::string Change(double now, double before, int decimals);

// A figure that may be kUntold (model.h), or not be there: "not in the input" is said of it.
bool IsTold(double value);
std::string Value(double value, int decimals);
// A change of such figures. Where less is better it has a colour, and an arrow up for worse or down for better.
std::string Judged(double now, double before, int decimals, bool less_is_better);

// The same for a terminal: "12", "-" where there is none; "+12", "-3.50", nothing where there is no change to be told.
std::string PlainValue(double value, int decimals);
std::string PlainChange(double now, double before, int decimals);

// For HTML: escaped, and cut to at most this many characters, the last one "…" then.
std::string Shown(std::string_view text, size_t most = 400);

// A name or path for HTML, which may break behind each "/". What it has of writing from right to left ends with it.
std::string Isolated(std::string_view text);

inline constexpr const char *kUntoldText = "not in the input";

void AppendParagraph(std::string &out, const std::string &html);
// What stands in a section of which the input has nothing.
void AppendNothing(std::string &out, const char *text);

// How a cell is set; several may be joined.
enum CellStyle : unsigned {
    kText = 0,
    kNumber = 1,   // to the right, figures below each other
    kWideOnly = 2, // not on a narrow screen
};

struct Column {
    std::string head; // HTML; empty for a column of bars
    unsigned style;
};

// A table with a caption, both HTML. Rows are HTML too, one cell per column; the first cell of a row is its head.
void AppendTable(std::string &out, const std::string &caption, const std::vector<Column> &columns,
                 const std::vector<std::vector<std::string>> &rows);

// A bar within a cell that fills this part, 0 to 1, of the cell. The figure stands in another cell.
std::string Bar(double part);
