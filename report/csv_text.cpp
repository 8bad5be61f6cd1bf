#include "csv_text.h"

void Field(CsvWriter &csv, std::string_view text) {
    std::string &out = csv.w.text;
    out += csv.first ? "" : ",";
    csv.first = false;
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        out.append(c == '"' ? 2 : 1, c);
    }
    out += '"';
}

void Field(CsvWriter &csv, int64_t number) {
    Field(csv, number == kUntold ? std::string() : std::to_string(number));
}

void EndRow(CsvWriter &csv) {
    csv.w.text += '\r';
    EndLine(csv.w);
    csv.first = true;
}
