#include "write_json.h"

#include <cstdio>

#include "json_text.h"

namespace {

void LinesMembers(JsonWriter &w, const Lines &lines) {
    Member(w, "loc", lines.loc);
    Member(w, "eloc", lines.eloc);
    Member(w, "lloc", lines.lloc);
    Member(w, "comments", lines.comments);
    if (lines.blanks != kUntold) {
        Member(w, "blanks", lines.blanks);
    }
    Member(w, "lines", lines.lines);
}

void ComplexityMembers(JsonWriter &w, const Complexity &c) {
    Member(w, "parameters", c.parameters);
    Member(w, "returns", c.returns);
    Member(w, "interface_complexity", c.interface);
    Member(w, "cyclomatic_complexity", c.cyclomatic);
    Member(w, "total_complexity", c.total);
}

void MemberCounts(JsonWriter &w, const char *const (&names)[3], const Members &members) {
    Member(w, names[0], members.publics);
    Member(w, names[1], members.protecteds);
    Member(w, names[2], members.privates);
}

void TextMember(JsonWriter &w, const Model &m, const char *name, TextId text) {
    if (text) {
        Member(w, name, m.texts[text]);
    }
}

void SumsRecord(JsonWriter &w, const char *name, const Sums &sums) {
    BeginRecord(w, name);
    Member(w, "count", sums.count);
    LinesMembers(w, sums.lines);
    ComplexityMembers(w, sums.sum);
    Member(w, "max_lines", sums.max_lines.lines);
    Member(w, "max_loc", sums.max_lines.loc);
    Member(w, "max_parameters", sums.max.parameters);
    Member(w, "max_returns", sums.max.returns);
    Member(w, "max_cyclomatic_complexity", sums.max.cyclomatic);
    EndRecord(w);
}

void Head(JsonWriter &w, const Model &m) {
    Member(w, "version", kJsonVersion);
    Member(w, "tly", m.texts[m.version]);
    Member(w, "date", m.texts[m.date]);
    Member(w, "command", m.texts[m.command]);
    Member(w, "title", m.texts[m.title]);
    Member(w, "modern", m.modern);
}

void Totals(JsonWriter &w, const Model &m) {
    BeginObject(w, "totals");
    BeginRecord(w, "files");
    Member(w, "count", static_cast<int64_t>(m.files.size()));
    LinesMembers(w, m.total);
    EndRecord(w);
    SumsRecord(w, "functions", m.function_sums);
    SumsRecord(w, "classes", m.class_sums);
    BeginRecord(w, "notices");
    Member(w, "count", static_cast<int64_t>(m.notices.size()));
    EndRecord(w);
    EndObject(w);
}

void Files(JsonWriter &w, const Model &m) {
    BeginArray(w, "files");
    for (const FileRow &file : m.files) {
        BeginRecord(w);
        Member(w, "path", m.texts[file.path]);
        Member(w, "language", kLanguageNames[static_cast<int>(file.language)]);
        Member(w, "date", m.texts[file.date]);
        Member(w, "bytes", file.bytes);
        LinesMembers(w, file.lines);
        Member(w, "notices", file.notice_count);
        if (file.by_line) {
            Member(w, "by_line", true);
        }
        EndRecord(w);
    }
    EndArray(w);
}

void Functions(JsonWriter &w, const Model &m) {
    BeginArray(w, "functions");
    for (const FunctionRow &function : m.functions) {
        BeginRecord(w);
        Member(w, "name", m.texts[function.name]);
        TextMember(w, m, "scope", function.scope);
        Member(w, "signature", m.texts[function.signature]);
        TextMember(w, m, "template", function.pattern);
        Member(w, "file", m.texts[m.files[function.file].path]);
        Member(w, "first_line", function.first_line);
        Member(w, "end_line", function.end_line);
        LinesMembers(w, function.lines);
        ComplexityMembers(w, function.complexity);
        EndRecord(w);
    }
    EndArray(w);
}

void Classes(JsonWriter &w, const Model &m, const char *name, const std::vector<ClassRow> &classes) {
    BeginArray(w, name);
    for (const ClassRow &row : classes) {
        BeginRecord(w);
        Member(w, "name", m.texts[row.name]);
        if (row.kind == ClassKind::kNamespace) {
            Member(w, "classes", row.classes);
            Member(w, "functions", row.functions);
        } else {
            Member(w, "kind", kClassKindNames[static_cast<int>(row.kind)]);
            Member(w, "nested", row.nested);
            TextMember(w, m, "bases", row.bases);
            TextMember(w, m, "template", row.pattern);
        }
        MemberCounts(w, {"public_attributes", "protected_attributes", "private_attributes"}, row.attributes);
        MemberCounts(w, {"public_methods", "protected_methods", "private_methods"}, row.methods);
        LinesMembers(w, row.lines);
        ComplexityMembers(w, row.complexity);
        EndRecord(w);
    }
    EndArray(w);
}

void Tree(JsonWriter &w, const Model &m) {
    BeginArray(w, "tree");
    for (const TreeRow &row : m.tree) {
        BeginRecord(w);
        Member(w, "name", m.texts[row.name]);
        Member(w, "depth", row.depth);
        Member(w, "children", row.children);
        Member(w, "parents", row.parents);
        EndRecord(w);
    }
    EndArray(w);
}

void LanguageRows(JsonWriter &w, const Model &m) {
    BeginArray(w, "languages");
    for (const LanguageRow &row : m.languages) {
        BeginRecord(w);
        Member(w, "name", m.texts[row.name]);
        LinesMembers(w, row.lines);
        EndRecord(w);
    }
    EndArray(w);
}

void Kinds(JsonWriter &w, const Model &m) {
    BeginArray(w, "kinds");
    for (const NoticeKind &kind : m.kinds) {
        BeginRecord(w);
        Member(w, "number", kind.number);
        Member(w, "text", m.texts[kind.text]);
        Member(w, "count", kind.count);
        EndRecord(w);
    }
    EndArray(w);
}

void Notices(JsonWriter &w, const Model &m) {
    BeginArray(w, "notices");
    for (const Notice &notice : m.notices) {
        char fingerprint[17];
        snprintf(fingerprint, sizeof fingerprint, "%016lx", static_cast<unsigned long>(notice.fingerprint));
        BeginRecord(w);
        Member(w, "file", m.texts[m.files[notice.file].path]);
        Member(w, "line", notice.line);
        Member(w, "number", static_cast<int64_t>(notice.number));
        if (notice.function != kNone) {
            Member(w, "function", m.texts[m.functions[notice.function].name]);
        }
        Member(w, "fingerprint", fingerprint);
        EndRecord(w);
    }
    EndArray(w);
}

} // namespace

bool WriteJson(const Model &m, std::FILE *out) {
    JsonWriter w{out};
    BeginObject(w);
    Head(w, m);
    Totals(w, m);
    LanguageRows(w, m);
    Kinds(w, m);
    Files(w, m);
    Functions(w, m);
    Classes(w, m, "classes", m.classes);
    Classes(w, m, "namespaces", m.namespaces);
    Tree(w, m);
    Notices(w, m);
    EndObject(w);
    return Finish(w);
}
