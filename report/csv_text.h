// CSV by RFC 4180 as text: lines end in CR LF, fields that need it stand in quotes.
#pragma once

#include <cstdint>
#include <string_view>

#include "text_lines.h"

//   CsvWriter csv{{out}};  Field(csv, "a.c");  Field(csv, 12);  EndRow(csv);  ...  Finish(csv.w);
struct CsvWriter {
    LineWriter w;
    bool first = true; // of the row
};

void Field(CsvWriter &csv, std::string_view text);
// Empty for kUntold (model.h).
void Field(CsvWriter &csv, int64_t number);
void EndRow(CsvWriter &csv);
