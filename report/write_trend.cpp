#include "trend.h"

#include <string>

#include "csv_text.h"
#include "json_text.h"
#include "page_html.h"
#include "text_lines.h"

namespace {

// What programs get. An average follows from these.
constexpr struct {
    const char *name;
    int64_t (*value)(const RunFigures &f);
} kMembers[] = {
    {"files", [](const RunFigures &f) { return f.files; }},
    {"loc", [](const RunFigures &f) { return f.lines.loc; }},
    {"eloc", [](const RunFigures &f) { return f.lines.eloc; }},
    {"lloc", [](const RunFigures &f) { return f.lines.lloc; }},
    {"comments", [](const RunFigures &f) { return f.lines.comments; }},
    {"blanks", [](const RunFigures &f) { return f.lines.blanks; }},
    {"lines", [](const RunFigures &f) { return f.lines.lines; }},
    {"functions", [](const RunFigures &f) { return f.functions; }},
    {"classes", [](const RunFigures &f) { return f.classes; }},
    {"namespaces", [](const RunFigures &f) { return f.namespaces; }},
    {"cyclomatic_complexity", [](const RunFigures &f) { return f.complexity.cyclomatic; }},
    {"max_cyclomatic_complexity", [](const RunFigures &f) { return f.most_complex; }},
    {"max_function_loc", [](const RunFigures &f) { return f.longest; }},
    {"notices", [](const RunFigures &f) { return f.notices; }},
};

bool WriteCsvTrend(const std::vector<TrendRow> &rows, std::FILE *out) {
    CsvWriter csv{{out}};
    for (const char *name : {"commit", "id", "date", "subject"}) {
        Field(csv, name);
    }
    for (const auto &member : kMembers) {
        Field(csv, member.name);
    }
    EndRow(csv);
    for (const TrendRow &row : rows) {
        for (const std::string *text : {&row.commit.name, &row.commit.id, &row.commit.iso, &row.commit.subject}) {
            Field(csv, *text);
        }
        for (const auto &member : kMembers) {
            Field(csv, member.value(row.figures));
        }
        EndRow(csv);
    }
    return Finish(csv.w);
}

bool WriteJsonTrend(const std::vector<TrendRow> &rows, std::FILE *out) {
    JsonWriter w{out};
    BeginObject(w);
    Member(w, "version", 1);
    BeginArray(w, "commits");
    for (const TrendRow &row : rows) {
        BeginRecord(w);
        Member(w, "commit", row.commit.name);
        Member(w, "id", row.commit.id);
        Member(w, "date", row.commit.iso);
        Member(w, "subject", row.commit.subject);
        for (const auto &member : kMembers) {
            Member(w, member.name, member.value(row.figures));
        }
        EndRecord(w);
    }
    EndArray(w);
    EndObject(w);
    return Finish(w);
}

// The first characters of a subject.
std::string Cut(const std::string &subject) {
    constexpr size_t kMost = 50;
    size_t characters = 0;
    for (size_t i = 0; i < subject.size(); ++i) {
        if ((static_cast<unsigned char>(subject[i]) & 0xC0U) != 0x80U && ++characters > kMost) {
            return Plain(subject.substr(0, i)) + "...";
        }
    }
    return Plain(subject);
}

bool WriteTextTrend(const std::vector<TrendRow> &rows, std::FILE *out) {
    std::vector<std::vector<std::string>> lines{{"commit", "date"}};
    for (const TrendRow &row : rows) {
        lines.push_back({Plain(row.commit.name), row.commit.iso.substr(0, 10)});
    }
    lines.push_back({"change", ""});
    std::string alignment = "ll";
    for (size_t i = 0; i < kFigureCount; ++i) {
        const FigureRow &figure = kFigures[i];
        if (!*figure.brief) {
            continue;
        }
        alignment += 'r';
        lines.front().emplace_back(figure.brief);
        for (size_t row = 0; row < rows.size(); ++row) {
            lines[row + 1].push_back(PlainValue(figure.value(rows[row].figures), figure.decimals));
        }
        lines.back().push_back(PlainChange(figure.value(rows.back().figures), figure.value(rows.front().figures), figure.decimals));
    }
    lines.front().emplace_back("subject");
    for (size_t row = 0; row < rows.size(); ++row) {
        lines[row + 1].push_back(Cut(rows[row].commit.subject));
    }
    LineWriter w{out};
    AppendColumns(w, lines, alignment + 'l');
    return Finish(w);
}

} // namespace

bool WriteTrendAs(TrendForm form, const std::vector<TrendRow> &rows, std::FILE *out) {
    switch (form) {
    case TrendForm::kCsv: return WriteCsvTrend(rows, out);
    case TrendForm::kJson: return WriteJsonTrend(rows, out);
    case TrendForm::kText: break;
    }
    return WriteTextTrend(rows, out);
}
