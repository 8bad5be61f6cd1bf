// A comment has room for 65,536 characters, and for what people read: every table is cut, and what it cuts is counted below it.
#include <algorithm>

#include "formats.h"
#include "known.h"
#include "page_html.h"
#include "severity.h"
#include "text_lines.h"
#include "top.h"

namespace {

constexpr size_t kMostRows = 10;
constexpr size_t kLongest = 200; // bytes of a name or text

std::string Cut(std::string_view text) {
    std::string shown;
    AppendShown(shown, text);
    if (shown.size() <= kLongest) {
        return shown;
    }
    size_t end = kLongest;
    while ((static_cast<unsigned char>(shown[end]) & 0xC0) == 0x80) {
        --end;
    }
    return shown.substr(0, end) + "...";
}

// As code, where only "`" and, in a table, "|" mean anything. The one takes a longer fence; the other takes a backslash, and where
// one stands in front already, a character that looks alike.
std::string Code(std::string_view text) {
    std::string code;
    size_t run = 0;
    size_t longest = 0;
    for (const char c : Cut(text)) {
        run = c == '`' ? run + 1 : 0;
        longest = std::max(longest, run);
        if (c == '|') {
            code += code.ends_with('\\') ? "\xC7\x80" : "\\|";
        } else {
            code += c;
        }
    }
    const std::string fence(longest + 1, '`');
    const std::string pad = longest > 0 || code.empty() ? " " : "";
    return fence + pad + code + pad + fence;
}

// As prose. A remark keeps "@name" and "#12" from becoming a message to someone and a link.
std::string Prose(std::string_view text) {
    std::string prose;
    for (const char c : Cut(text)) {
        prose += std::string_view("\\`*_[]<>|&~!$:").find(c) != std::string_view::npos ? "\\" : "";
        prose += c;
        prose += c == '@' || c == '#' ? "<!-- -->" : "";
    }
    return prose;
}

void Line(LineWriter &w, const std::string &text) {
    w.text += text;
    EndLine(w);
}

void Total(LineWriter &w, const char *name, int64_t now, const Model *before, int64_t then) {
    std::string row = std::string("| ") + name + " | ";
    if (before) {
        row += Count(then) + " | " + Count(now) + " | " + Change(static_cast<double>(now), static_cast<double>(then), 0) + " |";
    } else {
        row += Count(now) + " |";
    }
    Line(w, row);
}

void Totals(LineWriter &w, const Model &m, const Model *before) {
    const Model &old = before ? *before : m;
    const auto count = [](const auto &rows) { return static_cast<int64_t>(rows.size()); };
    Line(w, before ? "| | Before | Now | Change |" : "| | Now |");
    Line(w, before ? "|---|---:|---:|---:|" : "|---|---:|");
    Total(w, "Files", count(m.files), before, count(old.files));
    Total(w, "Lines of code", m.total.loc, before, old.total.loc);
    Total(w, "Comment lines", m.total.comments, before, old.total.comments);
    Total(w, "Functions", m.function_sums.count, before, old.function_sums.count);
    Total(w, "Highest complexity of a function", m.function_sums.max.cyclomatic, before, old.function_sums.max.cyclomatic);
    Total(w, "Notices", count(m.notices), before, count(old.notices));
}

void More(LineWriter &w, size_t all) {
    if (all > kMostRows) {
        Line(w, "");
        Line(w, "And " + Count(static_cast<int64_t>(all - kMostRows)) + " more.");
    }
}

void Functions(LineWriter &w, const Model &m) {
    std::vector<int64_t> figures;
    const std::vector<uint32_t> order = TopFunctions(m, Rank::kComplexity, kMostRows, figures);
    if (order.empty()) {
        return;
    }
    Line(w, "");
    Line(w, "| Most complex functions | Complexity | Lines | Place |");
    Line(w, "|---|---:|---:|---|");
    for (const uint32_t f : order) {
        const FunctionRow &function = m.functions[f];
        Line(w, "| " + Code(m.texts[function.name]) + " | " + Count(function.complexity.cyclomatic) + " | " +
                    Count(function.lines.lines) + " | " + Code(Place(m, function.file, function.first_line)) + " |");
    }
}

void Kinds(LineWriter &w, const Model &m) {
    std::vector<NoticeKind> kinds = m.kinds;
    std::ranges::stable_sort(kinds, [](const NoticeKind &a, const NoticeKind &b) {
        const Severity left = SeverityOf(a.number);
        const Severity right = SeverityOf(b.number);
        return left != right ? left < right : a.count > b.count;
    });
    if (kinds.empty()) {
        return;
    }
    Line(w, "");
    Line(w, "| Notice | | Count |");
    Line(w, "|---:|---|---:|");
    for (size_t i = 0; i < std::min(kinds.size(), kMostRows); ++i) {
        Line(w,
             "| " + std::to_string(kinds[i].number) + " | " + Prose(m.texts[kinds[i].text]) + " | " + Count(kinds[i].count) + " |");
    }
    More(w, kinds.size());
}

void NewNotices(LineWriter &w, const Model &m, const Model &before) {
    const std::vector<uint32_t> fresh = FindFresh(m, KnownOf(before)).notices;
    Line(w, "");
    if (fresh.empty()) {
        Line(w, "No notice is new.");
        return;
    }
    Line(w, "| New notice | | Place |");
    Line(w, "|---:|---|---|");
    for (size_t i = 0; i < std::min(fresh.size(), kMostRows); ++i) {
        const Notice &notice = m.notices[fresh[i]];
        Line(w, "| " + std::to_string(notice.number) + " | " + Prose(m.texts[notice.text]) + " | " +
                    Code(Place(m, notice.file, notice.line)) + " |");
    }
    More(w, fresh.size());
}

} // namespace

bool WriteMarkdown(const Model &m, const Model *before, std::FILE *out) {
    LineWriter w{out};
    Totals(w, m, before);
    if (before) {
        NewNotices(w, m, *before);
    }
    Functions(w, m);
    Kinds(w, m);
    return Finish(w);
}
