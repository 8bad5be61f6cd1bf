#include "join.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <tuple>

namespace {

void Add(int64_t &sum, int64_t value) {
    sum = sum == kUntold || value == kUntold ? std::max(sum, value) : sum + value;
}

void Add(Lines &sum, const Lines &lines) {
    Add(sum.loc, lines.loc);
    Add(sum.eloc, lines.eloc);
    Add(sum.lloc, lines.lloc);
    Add(sum.comments, lines.comments);
    Add(sum.blanks, lines.blanks);
    Add(sum.lines, lines.lines);
}

void Add(Complexity &sum, const Complexity &c) {
    sum.parameters += c.parameters;
    sum.returns += c.returns;
    sum.interface += c.interface;
    sum.cyclomatic += c.cyclomatic;
    sum.total += c.total;
}

void Add(Members &sum, const Members &members) {
    sum.publics += members.publics;
    sum.protecteds += members.protecteds;
    sum.privates += members.privates;
}

void Raise(Lines &max, const Lines &lines) {
    max.loc = std::max(max.loc, lines.loc);
    max.eloc = std::max(max.eloc, lines.eloc);
    max.lloc = std::max(max.lloc, lines.lloc);
    max.comments = std::max(max.comments, lines.comments);
    max.blanks = std::max(max.blanks, lines.blanks);
    max.lines = std::max(max.lines, lines.lines);
}

void Raise(Complexity &max, const Complexity &c) {
    max.parameters = std::max(max.parameters, c.parameters);
    max.returns = std::max(max.returns, c.returns);
    max.interface = std::max(max.interface, c.interface);
    max.cyclomatic = std::max(max.cyclomatic, c.cyclomatic);
    max.total = std::max(max.total, c.total);
}

// Sorts the files, and tells where each went.
std::vector<uint32_t> SortFiles(Model &m) {
    std::vector<uint32_t> order(m.files.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, {}, [&m](uint32_t file) { return m.texts[m.files[file].path]; });
    std::vector<uint32_t> place(order.size());
    std::vector<FileRow> files;
    files.reserve(order.size());
    for (const uint32_t file : order) {
        place[file] = static_cast<uint32_t>(files.size());
        files.push_back(m.files[file]);
    }
    m.files = std::move(files);
    return place;
}

void SortFunctions(Model &m, const std::vector<uint32_t> &place) {
    for (FunctionRow &function : m.functions) {
        function.file = place[function.file];
    }
    std::ranges::stable_sort(m.functions, {}, [&m](const FunctionRow &f) {
        return std::tuple(f.file, f.end_line, m.texts[f.name], m.texts[f.signature], f.first_line);
    });
}

void SortNotices(Model &m, const std::vector<uint32_t> &place) {
    for (Notice &notice : m.notices) {
        notice.file = place[notice.file];
    }
    std::ranges::stable_sort(m.notices, {}, [](const Notice &n) { return std::tuple(n.file, n.line, n.number); });
    for (FileRow &file : m.files) {
        file.first_notice = file.notice_count = 0;
    }
    for (uint32_t i = static_cast<uint32_t>(m.notices.size()); i-- > 0;) {
        FileRow &file = m.files[m.notices[i].file];
        file.first_notice = i;
        ++file.notice_count;
    }
}

void CountKinds(Model &m) {
    std::map<int, NoticeKind> kinds;
    for (const Notice &notice : m.notices) {
        NoticeKind &kind = kinds[notice.number];
        kind.number = notice.number;
        kind.text = kind.text ? kind.text : notice.text;
        ++kind.count;
    }
    for (Notice &notice : m.notices) {
        notice.text = kinds[notice.number].text;
    }
    if (!m.lists_notices) {
        for (const NoticeKind &told : m.kinds) { // by each input
            NoticeKind &kind = kinds[told.number];
            kind = {told.number, told.text, kind.count + told.count};
        }
    }
    m.kinds.clear();
    for (const auto &[number, kind] : kinds) {
        m.kinds.push_back(kind);
    }
}

// Gives every notice of one file the innermost function that holds its line. Both go by line; open holds the functions that began.
void PlaceInFunctions(Model &m, const FileRow &file, std::vector<uint32_t> &functions) {
    std::ranges::stable_sort(functions, {},
                             [&m](uint32_t f) { return std::tuple(m.functions[f].first_line, -m.functions[f].end_line); });
    std::vector<uint32_t> open;
    size_t next = 0;
    for (uint32_t i = file.first_notice; i < file.first_notice + file.notice_count; ++i) {
        Notice &notice = m.notices[i];
        for (; next < functions.size() && m.functions[functions[next]].first_line <= notice.line; ++next) {
            open.push_back(functions[next]);
        }
        while (!open.empty() && m.functions[open.back()].end_line < notice.line) {
            open.pop_back();
        }
        notice.function = open.empty() ? kNone : open.back();
    }
}

void FindFunctions(Model &m) {
    std::vector<uint32_t> functions;
    uint32_t next = 0;
    for (uint32_t file = 0; file < m.files.size(); ++file) {
        functions.clear();
        for (; next < m.functions.size() && m.functions[next].file == file; ++next) {
            functions.push_back(next);
        }
        PlaceInFunctions(m, m.files[file], functions);
    }
}

// One class that two inputs know: its definition in one, methods of it in others.
void MergeClass(ClassRow &row, const ClassRow &other) {
    row.bases = row.bases ? row.bases : other.bases;
    row.pattern = row.pattern ? row.pattern : other.pattern;
    row.kind = row.kind == ClassKind::kClass ? other.kind : row.kind;
    row.nested = row.nested || other.nested;
    Add(row.attributes, other.attributes);
    Add(row.methods, other.methods);
    row.classes += other.classes;
    row.functions += other.functions;
    Add(row.complexity, other.complexity);
    Add(row.lines, other.lines);
}

bool IsSame(const ClassRow &a, const ClassRow &b) {
    return a.name == b.name && (a.kind == ClassKind::kInterface) == (b.kind == ClassKind::kInterface);
}

void MergeClasses(std::vector<ClassRow> &classes) {
    std::vector<ClassRow> merged;
    for (const ClassRow &row : classes) {
        if (!merged.empty() && IsSame(merged.back(), row)) {
            MergeClass(merged.back(), row);
        } else {
            merged.push_back(row);
        }
    }
    classes = std::move(merged);
}

void JoinClasses(Model &m, bool several) {
    for (std::vector<ClassRow> *classes : {&m.classes, &m.namespaces}) {
        std::ranges::stable_sort(*classes, {}, [&m](const ClassRow &c) { return std::tuple(m.texts[c.name], c.kind); });
        if (several) {
            MergeClasses(*classes);
        }
    }
}

void JoinLanguages(Model &m) {
    std::ranges::stable_sort(m.languages, {}, [&m](const LanguageRow &l) { return m.texts[l.name]; });
    std::vector<LanguageRow> joined;
    for (const LanguageRow &row : m.languages) {
        if (!joined.empty() && joined.back().name == row.name) {
            Add(joined.back().lines, row.lines);
        } else {
            joined.push_back(row);
        }
    }
    m.languages = std::move(joined);
}

// What a nested class has, the class around it has as well.
bool IsPartOfAnother(const FunctionRow &) {
    return false;
}

bool IsPartOfAnother(const ClassRow &row) {
    return row.nested;
}

template <class Row> Sums SumsOf(const std::vector<Row> &rows) {
    Sums sums;
    for (const Row &row : rows) {
        ++sums.count;
        if (!IsPartOfAnother(row)) {
            Add(sums.lines, row.lines);
            Add(sums.sum, row.complexity);
        }
        Raise(sums.max, row.complexity);
        Raise(sums.max_lines, row.lines);
    }
    return sums;
}

void AddUp(Model &m) {
    m.total = {};
    for (const FileRow &file : m.files) {
        Add(m.total, file.lines);
    }
    m.total.blanks = kUntold;
    for (const LanguageRow &language : m.languages) {
        Add(m.total.blanks, language.lines.blanks);
    }
    m.function_sums = SumsOf(m.functions);
    m.class_sums = SumsOf(m.classes);
}

} // namespace

bool FinishModel(Model &m, bool several, std::string &error) {
    const std::vector<uint32_t> place = SortFiles(m);
    const auto twice = std::ranges::adjacent_find(m.files, {}, &FileRow::path);
    if (twice != m.files.end()) {
        error = std::string(m.texts[twice->path]) + ": two files of this name are measured, and would count twice. Leave one of "
                                                    "the inputs away; names that differ in bytes that aren't "
                                                    "UTF-8 look alike to tly, rename them.";
        return false;
    }
    SortFunctions(m, place);
    SortNotices(m, place);
    CountKinds(m);
    FindFunctions(m);
    JoinClasses(m, several);
    JoinLanguages(m);
    AddUp(m);
    return true;
}
