// The parser calls back for every value. A value of a record goes to the cell that its name has; where the record ends, the cells
// become a row of the Model. Files may stand behind what names them: the names are looked up at the end.
#include "read_json.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstring>
#include <iterator>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <vector>

#include "write_json.h"

namespace {

using Json = nlohmann::json;

constexpr int64_t kLargest = 100'000'000'000; // of any figure, so that no sum of them overflows

enum Cell : uint8_t {
    // clang-format off
    kPath, kLanguage, kDate, kBytes, kNoticeCount, kByLine, kName, kScope, kSignature, kTemplate, kFile, kFirstLine, kEndLine,
    kLoc, kEloc, kLloc, kComments, kBlanks, kPhysical, kParameters, kReturns, kInterface, kCyclomatic, kTotal,
    kKind, kNested, kBases, kPublicData, kProtectedData, kPrivateData, kPublicMethods, kProtectedMethods, kPrivateMethods,
    kClassCount, kFunctionCount, kDepth, kChildren, kParents, kNumber, kText, kLine, kFingerprint,
    kVersion, kTly, kCommand, kTitle, kModern,
    kCells
    // clang-format on
};

struct CellName {
    const char *name;
    Cell cell;
};

// clang-format off
constexpr CellName kHeadCells[] = {
    {"version", kVersion}, {"tly", kTly}, {"date", kDate}, {"command", kCommand}, {"title", kTitle}, {"modern", kModern}};
constexpr CellName kRowCells[] = {
    {"path", kPath}, {"language", kLanguage}, {"date", kDate}, {"bytes", kBytes}, {"notices", kNoticeCount}, {"by_line", kByLine},
    {"name", kName}, {"scope", kScope}, {"signature", kSignature}, {"template", kTemplate}, {"file", kFile},
    {"first_line", kFirstLine}, {"end_line", kEndLine}, {"loc", kLoc}, {"eloc", kEloc}, {"lloc", kLloc}, {"comments", kComments},
    {"blanks", kBlanks}, {"lines", kPhysical}, {"parameters", kParameters}, {"returns", kReturns},
    {"interface_complexity", kInterface}, {"cyclomatic_complexity", kCyclomatic}, {"total_complexity", kTotal}, {"kind", kKind},
    {"nested", kNested}, {"bases", kBases}, {"public_attributes", kPublicData}, {"protected_attributes", kProtectedData},
    {"private_attributes", kPrivateData}, {"public_methods", kPublicMethods}, {"protected_methods", kProtectedMethods},
    {"private_methods", kPrivateMethods}, {"classes", kClassCount}, {"functions", kFunctionCount}, {"depth", kDepth},
    {"children", kChildren}, {"parents", kParents}, {"number", kNumber}, {"text", kText}, {"line", kLine},
    {"fingerprint", kFingerprint}};
constexpr const char *kSections[] = {"files", "functions", "classes", "namespaces", "tree", "languages", "kinds", "notices"};
// clang-format on
enum Section : uint8_t { kFiles, kFunctions, kClasses, kNamespaces, kTree, kLanguages, kKinds, kNotices, kNoSection };

struct Value {
    int64_t number = kUntold;
    std::string text{};
    bool flag = false;
};

struct Reader {
    const std::string &name;
    Model &m;
    std::string &error;
    std::array<Value, kCells> cell{};
    int depth = 0; // of objects and arrays
    Section section = kNoSection;
    Cell next = kCells; // where the next value goes
    int64_t version = kUntold;
    int64_t counted = 0; // notices, by the files

    std::vector<uint32_t> file_at{};         // index of m.files by the TextId of its path
    std::unordered_map<int, TextId> kinds{}; // texts by number

    // What the parser wants of its caller; false ends the parsing.
    bool null() { return Take({}); }
    bool boolean(bool value) { return Take({kUntold, "", value}); }
    bool number_integer(int64_t value) { return Take({value}); }
    bool number_unsigned(uint64_t value) { return Take({static_cast<int64_t>(std::min<uint64_t>(value, INT64_MAX))}); }
    bool number_float(double, const std::string &) { return Take({}); }
    bool string(std::string &value) { return Take({kUntold, std::move(value)}); }
    bool binary(Json::binary_t &) { return false; }
    bool start_object(size_t);
    bool key(std::string &name);
    bool end_object();
    bool start_array(size_t);
    bool end_array();
    bool parse_error(size_t position, const std::string &token, const Json::exception &);

    bool Take(Value value);
};

bool Fail(Reader &r, const std::string &what) {
    if (r.error.empty()) {
        r.error = r.name + ": " + what + " Make it again with: tly-report json.";
    }
    return false;
}

int64_t Number(Reader &r, Cell cell, int64_t largest = kLargest, int64_t least = 0) {
    const int64_t value = r.cell[cell].number;
    if (value < least || value > largest) {
        Fail(r, std::string("an element of \"") + kSections[r.section] + "\" has a figure that is missing or no count.");
        return 0;
    }
    return value;
}

int64_t NumberOr(Reader &r, Cell cell, int64_t without) {
    return r.cell[cell].number == kUntold ? without : Number(r, cell);
}

TextId Text(Reader &r, Cell cell) {
    return r.m.texts.Intern(r.cell[cell].text);
}

// The index of text in names; 0 if it isn't among them.
template <class Enum, size_t n> Enum Named(const char *const (&names)[n], const std::string &text) {
    const auto found = std::find(std::begin(names), std::end(names), text);
    return found == std::end(names) ? Enum{} : static_cast<Enum>(found - names);
}

Lines LinesOf(Reader &r) {
    Lines lines;
    lines.loc = Number(r, kLoc);
    lines.eloc = Number(r, kEloc);
    lines.lloc = Number(r, kLloc, kLargest, -kLargest);
    lines.comments = Number(r, kComments);
    lines.blanks = NumberOr(r, kBlanks, kUntold);
    lines.lines = Number(r, kPhysical);
    return lines;
}

Complexity ComplexityOf(Reader &r) {
    return {Number(r, kParameters), Number(r, kReturns), Number(r, kInterface), Number(r, kCyclomatic), Number(r, kTotal)};
}

void EndFile(Reader &r) {
    FileRow file;
    file.path = Text(r, kPath);
    file.date = Text(r, kDate);
    file.language = Named<Language>(kLanguageNames, r.cell[kLanguage].text);
    file.by_line = r.cell[kByLine].flag;
    file.bytes = Number(r, kBytes);
    file.lines = LinesOf(r);
    if (!file.path) {
        Fail(r, "a file has no path.");
        return;
    }
    r.counted += Number(r, kNoticeCount);
    r.file_at.resize(std::max<size_t>(r.file_at.size(), file.path + size_t{1}), kNone);
    r.file_at[file.path] = static_cast<uint32_t>(r.m.files.size());
    r.m.files.push_back(file);
}

void EndFunction(Reader &r) {
    FunctionRow function;
    function.file = Text(r, kFile);
    function.name = Text(r, kName);
    function.scope = Text(r, kScope);
    function.signature = Text(r, kSignature);
    function.pattern = Text(r, kTemplate);
    function.first_line = Number(r, kFirstLine);
    function.end_line = Number(r, kEndLine);
    function.lines = LinesOf(r);
    function.complexity = ComplexityOf(r);
    r.m.functions.push_back(function);
}

void EndClass(Reader &r) {
    ClassRow row;
    const bool is_namespace = r.section == kNamespaces;
    row.name = Text(r, kName);
    row.kind = is_namespace ? ClassKind::kNamespace : Named<ClassKind>(kClassKindNames, r.cell[kKind].text);
    row.nested = r.cell[kNested].flag;
    row.bases = Text(r, kBases);
    row.pattern = Text(r, kTemplate);
    row.attributes = {Number(r, kPublicData), Number(r, kProtectedData), Number(r, kPrivateData)};
    row.methods = {Number(r, kPublicMethods), Number(r, kProtectedMethods), Number(r, kPrivateMethods)};
    row.classes = NumberOr(r, kClassCount, 0);
    row.functions = NumberOr(r, kFunctionCount, 0);
    row.lines = LinesOf(r);
    row.complexity = ComplexityOf(r);
    (is_namespace ? r.m.namespaces : r.m.classes).push_back(row);
}

void EndKind(Reader &r) {
    const auto number = static_cast<int>(Number(r, kNumber, INT32_MAX));
    r.kinds[number] = Text(r, kText);
}

void EndNotice(Reader &r) {
    const std::string &text = r.cell[kFingerprint].text;
    Notice notice;
    notice.file = Text(r, kFile);
    notice.line = static_cast<uint32_t>(Number(r, kLine, INT32_MAX));
    notice.number = static_cast<int32_t>(Number(r, kNumber, INT32_MAX));
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), notice.fingerprint, 16);
    if (failure != std::errc() || end != text.data() + text.size() || text.size() != 16) {
        Fail(r, "a notice's fingerprint isn't 16 hexadecimal digits.");
    }
    r.m.notices.push_back(notice);
}

bool EndRecord(Reader &r) {
    switch (r.section) {
    case kFiles: EndFile(r); break;
    case kFunctions: EndFunction(r); break;
    case kClasses:
    case kNamespaces: EndClass(r); break;
    case kTree: r.m.tree.push_back({Text(r, kName), Number(r, kDepth), Number(r, kChildren), Number(r, kParents)}); break;
    case kLanguages: r.m.languages.push_back({Text(r, kName), LinesOf(r)}); break;
    case kKinds: EndKind(r); break;
    case kNotices: EndNotice(r); break;
    case kNoSection: break;
    }
    return r.error.empty();
}

bool TakeHead(Reader &r, Cell cell) {
    Value &value = r.cell[cell];
    TextId *field = cell == kTly ? &r.m.version : cell == kDate ? &r.m.date : cell == kCommand ? &r.m.command : &r.m.title;
    if (cell == kVersion) {
        r.version = value.number;
        return r.version == kJsonVersion ||
               Fail(r, r.version > kJsonVersion ? "a later tly-report made it." : "its \"version\" is none of tly-report's.");
    }
    if (cell == kModern) {
        r.m.modern = value.flag;
    } else if (!*field) {
        *field = r.m.texts.Intern(value.text);
    }
    return true;
}

bool Reader::Take(Value value) {
    const Cell cell_of_value = next;
    next = kCells;
    if (cell_of_value == kCells) {
        return true;
    }
    std::ranges::replace(value.text, '\0', '?');
    cell[cell_of_value] = std::move(value);
    return depth > 1 || TakeHead(*this, cell_of_value);
}

bool Reader::key(std::string &key_name) {
    const auto find = [&](const CellName *begin, const CellName *end) {
        const CellName *found = std::find_if(begin, end, [&](const CellName &row) { return key_name == row.name; });
        return found == end ? kCells : found->cell;
    };
    next = kCells;
    if (depth == 1) {
        next = find(std::begin(kHeadCells), std::end(kHeadCells));
        section = static_cast<Section>(std::find(std::begin(kSections), std::end(kSections), key_name) - kSections);
    } else if (depth == 3) {
        next = find(std::begin(kRowCells), std::end(kRowCells));
    }
    return true;
}

bool Reader::start_object(size_t) {
    ++depth;
    next = kCells;
    if (depth == 3) {
        cell.fill({});
    }
    return true;
}

bool Reader::end_object() {
    return --depth != 2 || EndRecord(*this);
}

bool Reader::start_array(size_t) {
    if (++depth == 1) {
        return Fail(*this, "it isn't the JSON of tly-report.");
    }
    next = kCells;
    return true;
}

bool Reader::end_array() {
    --depth;
    return true;
}

bool Reader::parse_error(size_t position, const std::string &, const Json::exception &) {
    return Fail(*this, "it is no whole JSON: byte " + std::to_string(position) + " can't stand there. Was its writing cut off?");
}

// Files are known by now: names become indices.
bool FindFiles(Reader &r, size_t functions, size_t notices) {
    const auto find = [&r](uint32_t &file) {
        if (file >= r.file_at.size() || r.file_at[file] == kNone) {
            return Fail(r, "the file \"" + std::string(r.m.texts[file]) + "\" has figures, but isn't among the files.");
        }
        file = r.file_at[file];
        return true;
    };
    for (size_t i = functions; i < r.m.functions.size(); ++i) {
        if (!find(r.m.functions[i].file)) {
            return false;
        }
    }
    for (size_t i = notices; i < r.m.notices.size(); ++i) {
        Notice &notice = r.m.notices[i];
        if (!find(notice.file)) {
            return false;
        }
        const auto kind = r.kinds.find(notice.number);
        notice.text = kind == r.kinds.end() ? 0 : kind->second;
    }
    return true;
}

} // namespace

bool ReadJson(std::FILE *in, const std::string &name, Model &m, std::string &error) {
    error.clear();
    Reader r{.name = name, .m = m, .error = error};
    const size_t files = m.files.size();
    const size_t functions = m.functions.size();
    const size_t notices = m.notices.size();
    Json::sax_parse(in, &r);
    if (ferror(in)) {
        return Fail(r, std::string("it can't be read: ") + strerror(errno) + ".");
    }
    if (!error.empty()) {
        return false;
    }
    if (r.version == kUntold) {
        return Fail(r, "it isn't the JSON of tly-report.");
    }
    if (m.files.size() == files) {
        return Fail(r, "it has no files.");
    }
    const size_t listed = m.notices.size() - notices;
    if (r.counted != static_cast<int64_t>(listed)) {
        return Fail(r, std::to_string(r.counted) + " notices are counted, but " + std::to_string(listed) + " listed.");
    }
    return FindFiles(r, functions, notices);
}
