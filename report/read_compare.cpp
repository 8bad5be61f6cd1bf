// The report is flat enough for the names of the elements that are open: what counts is a leaf's name, the one around it, and the
// one around that.
#include "read_compare.h"

#include <algorithm>
#include <charconv>
#include <expat.h>
#include <string_view>

namespace {

constexpr int kPiece = 64 * 1024;
constexpr size_t kLongestText = 64 * 1024; // of a leaf or a message; more is cut off
constexpr size_t kDeepest = 32;
constexpr int64_t kLargest = 100'000'000'000;
constexpr const char *kMakeAgain = " Make it again with: tly -X -w\"x OLD, NEW\".";

struct Reader {
    Comparison &comparison;
    XML_Parser parser;
    std::vector<std::string> open{};
    std::string text{};    // since the last tag
    bool is_leaf = false;  // the innermost element, so far
    bool is_one = false;   // its report has the name of a comparison
    bool stopped = false;  // it has another
    std::string failure{}; // the first one
};

void Fail(Reader *r, const std::string &what) {
    if (r->failure.empty()) {
        r->failure = what;
        XML_StopParser(r->parser, XML_FALSE);
    }
}

// The element that is n levels above the innermost one; "" if there is none.
std::string_view Around(const Reader *r, size_t n) {
    return n < r->open.size() ? std::string_view(r->open[r->open.size() - 1 - n]) : std::string_view();
}

constexpr struct {
    const char *name;
    FileState state;
} kFileElements[] = {
    {"new", FileState::kAdded}, {"dif", FileState::kChanged}, {"mod", FileState::kChanged}, {"rem", FileState::kRemoved}};

// Of the element of a file, else null.
const FileState *StateOf(std::string_view element) {
    const auto *found = std::ranges::find_if(kFileElements, [element](const auto &row) { return element == row.name; });
    return found == std::end(kFileElements) ? nullptr : &found->state;
}

CompareFigures *FiguresOf(Reader *r) {
    Comparison &c = r->comparison;
    const std::string_view part = Around(r, 1);
    if (Around(r, 2) == "report") {
        return part == "metrics_newer_work_files"   ? &c.newer.totals
               : part == "metrics_older_work_files" ? &c.older.totals
               : StateOf(part)                      ? &c.files.back().figures
                                                    : nullptr;
    }
    c.by_lines = c.by_lines || part == "differential_by_code";
    return part == "new"                                                  ? &c.added
           : part == "removed"                                            ? &c.removed
           : part == "equal"                                              ? &c.equal
           : part == "modified_by_size" || part == "differential_by_code" ? &c.changed
                                                                          : nullptr;
}

void TakeFigure(Reader *r, std::string_view tag, CompareFigures &figures) {
    for (size_t i = 0; i < figures.size(); ++i) {
        const CompareMetric &metric = kCompareMetrics[i];
        if (tag != metric.tags[0] && !(metric.tags[1] && tag == metric.tags[1])) {
            continue;
        }
        int64_t value = 0;
        const auto [end, bad] = std::from_chars(r->text.data(), r->text.data() + r->text.size(), value);
        if (bad != std::errc() || end != r->text.data() + r->text.size() || value > kLargest || value < -kLargest) {
            Fail(r, "\"" + r->text.substr(0, 40) + "\" is no count." + kMakeAgain);
            return;
        }
        figures[i] = value;
    }
}

void EndLeaf(Reader *r) {
    const std::string_view tag = Around(r, 0);
    const std::string_view part = Around(r, 1);
    if (tag == "name" && part == "report" && Around(r, 2) == "vxtly") {
        r->is_one = r->is_one || r->text == "baseline_differential_metrics";
    } else if (part == "older_work_file" || part == "newer_work_file") {
        Baseline &baseline = part == "older_work_file" ? r->comparison.older : r->comparison.newer;
        (tag == "name" ? baseline.name : baseline.date) = r->text;
    } else if (tag == "file" && Around(r, 2) == "report" && StateOf(part)) {
        r->comparison.files.back().path = r->text;
    } else if (tag == "warning") {
        r->comparison.remarks.push_back(r->text);
    } else if (CompareFigures *figures = FiguresOf(r)) {
        TakeFigure(r, tag, *figures);
    }
}

// A message from where it begins, every run of white space as one blank.
std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : text.substr(0, 1000)) {
        const bool blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
        if (!blank || (!line.empty() && line.back() != ' ')) {
            line += blank ? ' ' : c;
        }
    }
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

// tly's messages stand beside the elements. Lines of source may as well, but begin with a sign of their own.
void TakeMessage(Reader *r) {
    const std::string_view text = r->text;
    for (size_t at = 0; r->is_one && at < text.size(); at = std::min(text.find('\n', at), text.size() - 1) + 1) {
        at = std::min(text.find_first_not_of(" \t\r\n", at), text.size());
        const std::string_view line = text.substr(at);
        if (line.starts_with("Error:")) {
            Fail(r, "tly met an error when it made this: " + OneLine(line) + " - See to that, and make it again.");
        } else if (line.starts_with("Warning:")) {
            r->comparison.remarks.push_back(OneLine(line));
        }
    }
}

// Behind its name, a report that is none of ours needn't be read any further; nor does one that has files ahead of any report.
bool IsAnother(const Reader *r, std::string_view tag) {
    const size_t depth = r->open.size();
    return !r->is_one && ((depth == 0 && tag != "vxtly") || (depth == 1 && tag == "file") ||
                          (depth == 2 && tag != "name" && Around(r, 0) == "report"));
}

void OnStart(void *user, const XML_Char *name, const XML_Char **) {
    auto *r = static_cast<Reader *>(user);
    TakeMessage(r);
    r->text.clear();
    if (IsAnother(r, name) || r->open.size() > kDeepest) {
        r->stopped = true;
        XML_StopParser(r->parser, XML_FALSE);
        return;
    }
    const FileState *state = Around(r, 0) == "report" ? StateOf(name) : nullptr;
    if (state) {
        r->comparison.files.push_back({*state, "", {}});
    }
    r->is_leaf = true;
    r->open.emplace_back(name);
}

void OnEnd(void *user, const XML_Char *) {
    auto *r = static_cast<Reader *>(user);
    if (r->is_leaf) {
        EndLeaf(r);
    } else {
        TakeMessage(r);
    }
    r->is_leaf = false;
    r->text.clear();
    r->open.pop_back();
}

void OnText(void *user, const XML_Char *text, int length) {
    auto *r = static_cast<Reader *>(user);
    if (r->text.size() < kLongestText) {
        r->text.append(text, static_cast<size_t>(length));
    }
}

void OnDoctype(void *user, const XML_Char *, const XML_Char *, const XML_Char *, int) {
    auto *r = static_cast<Reader *>(user);
    r->stopped = true;
    XML_StopParser(r->parser, XML_FALSE);
}

// Returns whether all of it is XML.
bool Parse(Reader *r, std::FILE *in) {
    size_t bytes = 0;
    for (bool last = false; !last;) {
        void *piece = XML_GetBuffer(r->parser, kPiece);
        const size_t length = piece ? fread(piece, 1, kPiece, in) : 0;
        bytes += length;
        last = length < kPiece;
        if (!piece || ferror(in) || XML_ParseBuffer(r->parser, static_cast<int>(length), last) != XML_STATUS_OK) {
            return false;
        }
        // The parser holds a tag until it is whole.
        if (bytes > kLongestText * 16 && XML_GetCurrentByteIndex(r->parser) < static_cast<XML_Index>(bytes - kLongestText * 16)) {
            return false;
        }
    }
    return true;
}

} // namespace

CompareRead ReadComparison(std::FILE *in, const std::string &name, Comparison &comparison, std::string &error) {
    Reader r{.comparison = comparison, .parser = XML_ParserCreate(nullptr)};
    if (!r.parser) {
        return CompareRead::kOther;
    }
    XML_SetUserData(r.parser, &r);
    XML_SetElementHandler(r.parser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(r.parser, OnText);
    XML_SetStartDoctypeDeclHandler(r.parser, OnDoctype);
    const bool whole = Parse(&r, in);
    XML_ParserFree(r.parser);
    if (!r.is_one || r.stopped) {
        return CompareRead::kOther;
    }
    if (r.failure.empty() && !whole) {
        r.failure = std::string("it ends too early, or is no XML.") + kMakeAgain;
    }
    if (r.failure.empty() && (!comparison.newer.totals[0] || !comparison.older.totals[0])) {
        r.failure = std::string("it hasn't all totals.") + kMakeAgain;
    }
    if (!r.failure.empty()) {
        error = name + ": " + r.failure;
        return CompareRead::kFailed;
    }
    return CompareRead::kRead;
}
