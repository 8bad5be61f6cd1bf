#include "csv_text.h"
#include "formats.h"

namespace {

void LinesFields(CsvWriter &row, const Lines &lines) {
    for (const int64_t figure : {lines.loc, lines.eloc, lines.lloc, lines.comments, lines.lines}) {
        Field(row, figure);
    }
}

void ComplexityFields(CsvWriter &row, const Complexity &c) {
    for (const int64_t figure : {c.parameters, c.returns, c.interface, c.cyclomatic, c.total}) {
        Field(row, figure);
    }
}

void MemberFields(CsvWriter &row, const Members &members) {
    for (const int64_t figure : {members.publics, members.protecteds, members.privates}) {
        Field(row, figure);
    }
}

void Head(CsvWriter &row, std::initializer_list<const char *> names, bool lines, bool complexity) {
    for (const char *name : names) {
        Field(row, name);
    }
    for (const char *name : {"loc", "eloc", "lloc", "comments", "lines"}) {
        if (lines) {
            Field(row, name);
        }
    }
    for (const char *name : {"parameters", "returns", "interface_complexity", "cyclomatic_complexity", "total_complexity"}) {
        if (complexity) {
            Field(row, name);
        }
    }
    EndRow(row);
}

void Files(CsvWriter &row, const Model &m) {
    Head(row, {"path", "language", "bytes", "notices"}, true, false);
    for (const FileRow &file : m.files) {
        Field(row, m.texts[file.path]);
        Field(row, kLanguageNames[static_cast<int>(file.language)]);
        Field(row, file.bytes);
        Field(row, static_cast<int64_t>(file.notice_count));
        LinesFields(row, file.lines);
        EndRow(row);
    }
}

void Functions(CsvWriter &row, const Model &m) {
    Head(row, {"file", "first_line", "end_line", "name", "signature"}, true, true);
    for (const FunctionRow &function : m.functions) {
        Field(row, m.texts[m.files[function.file].path]);
        Field(row, function.first_line);
        Field(row, function.end_line);
        Field(row, m.texts[function.name]);
        Field(row, m.texts[function.signature]);
        LinesFields(row, function.lines);
        ComplexityFields(row, function.complexity);
        EndRow(row);
    }
}

void Classes(CsvWriter &row, const Model &m) {
    Head(row,
         {"name", "kind", "bases", "public_attributes", "protected_attributes", "private_attributes", "public_methods",
          "protected_methods", "private_methods"},
         true, true);
    for (const ClassRow &type : m.classes) {
        Field(row, m.texts[type.name]);
        Field(row, kClassKindNames[static_cast<int>(type.kind)]);
        Field(row, m.texts[type.bases]);
        MemberFields(row, type.attributes);
        MemberFields(row, type.methods);
        LinesFields(row, type.lines);
        ComplexityFields(row, type.complexity);
        EndRow(row);
    }
}

void Notices(CsvWriter &row, const Model &m) {
    Head(row, {"file", "line", "number", "text", "function", "fingerprint"}, false, false);
    for (const Notice &notice : m.notices) {
        Field(row, m.texts[m.files[notice.file].path]);
        Field(row, static_cast<int64_t>(notice.line));
        Field(row, static_cast<int64_t>(notice.number));
        Field(row, m.texts[notice.text]);
        Field(row, notice.function == kNone ? "" : m.texts[m.functions[notice.function].name]);
        Field(row, FingerprintText(notice.fingerprint));
        EndRow(row);
    }
}

void LanguageRows(CsvWriter &row, const Model &m) {
    Head(row, {"language", "blanks"}, true, false);
    for (const LanguageRow &language : m.languages) {
        Field(row, m.texts[language.name]);
        Field(row, language.lines.blanks);
        LinesFields(row, language.lines);
        EndRow(row);
    }
}

void Kinds(CsvWriter &row, const Model &m) {
    Head(row, {"number", "count", "text"}, false, false);
    for (const NoticeKind &kind : m.kinds) {
        Field(row, static_cast<int64_t>(kind.number));
        Field(row, kind.count);
        Field(row, m.texts[kind.text]);
        EndRow(row);
    }
}

} // namespace

bool WriteCsv(const Model &m, Table table, std::FILE *out) {
    CsvWriter row{{out}};
    switch (table) {
    case Table::kFiles: Files(row, m); break;
    case Table::kFunctions: Functions(row, m); break;
    case Table::kClasses: Classes(row, m); break;
    case Table::kNotices: Notices(row, m); break;
    case Table::kLanguages: LanguageRows(row, m); break;
    case Table::kKinds: Kinds(row, m); break;
    }
    return Finish(row.w);
}
