// Expat calls back for every tag. Elements come in two sorts: a record (a file, a function, a class ...) holds leaves, a leaf holds
// a text. Texts of leaves are collected in a Scratch, one cell per leaf, and become a record of the Model where their record's
// element ends. Text that stands beside elements is a message of tly's; so is a comment.
#include "read_xml.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstring>
#include <expat.h>
#include <vector>

#include "paths.h"
#include "qualified_name.h"
#include "xml_elements.h"

namespace {

constexpr int kPiece = 64 * 1024;
constexpr size_t kLongestText = 1024 * 1024; // of a leaf, or of tly's messages together
constexpr size_t kDeepest = 32;
constexpr int64_t kLargest = 100'000'000'000; // of any figure, so that no sum of them overflows
constexpr const char *kMakeAgain = " Make it again with: tly -X -Ta -Tq, or tly-report run.";

struct Level {
    Part part;
    Leaf leaf;
};

struct Reader {
    const std::string &name;
    const std::string &root;
    Model &m;
    std::string &error;
    XML_Parser parser;

    std::vector<Level> stack{{Part::kOutside, kLeaves}};
    std::string text{}; // since the last tag
    std::array<std::string, kLeaves> cell{};
    std::array<bool, kLeaves> filled{};
    Members attributes{};
    std::string messages{};
    int64_t long_lines = 0;          // told as too long
    std::vector<uint32_t> file_at{}; // index of m.files by the TextId of the path that tly has; kNone
    Part section = Part::kOutside;   // kSlice or kWhole within these

    // Of the document in hand.
    int64_t counted = kUntold; // notices by the quality profile
    int64_t announced = 0;     // notices by the head of their list
    int64_t listed = 0;
    bool has_languages = false;
    size_t files = 0;
    size_t documents = 0;
};

// The first failure stands, and ends the reading.
void Fail(Reader *r, const std::string &what) {
    if (r->error.empty()) {
        r->error = r->name + ": " + what;
        XML_StopParser(r->parser, XML_FALSE);
    }
}

std::string Place(const Reader *r) {
    return "line " + std::to_string(XML_GetCurrentLineNumber(r->parser)) + ": ";
}

bool Blank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// tly passes over a line that is too long and reads on: what it tells of that is counted, and taken out of the messages.
void TakeLongLines(Reader *r) {
    static constexpr std::string_view kBegin = "Error: Text line ";
    static constexpr std::string_view kEnd = " characters Examine file for proper text file formatting.";
    size_t at = 0;
    while ((at = r->messages.find(kBegin, at)) != std::string::npos) {
        const size_t end = r->messages.find(kEnd, at);
        if (end == std::string::npos) {
            return;
        }
        r->messages.erase(at, end + kEnd.size() - at);
        r->long_lines += r->section != Part::kWhole; // which tells those of its slices again
    }
    if (Blank(r->messages)) {
        r->messages.clear();
    }
}

// Every run of white space becomes one blank; none at the ends.
void AppendMessage(Reader *r, std::string_view text) {
    if (r->messages.size() > kLongestText / 2) {
        TakeLongLines(r);
    }
    if (r->messages.size() + text.size() > kLongestText) {
        Fail(r, Place(r) + "more than a megabyte of messages. This isn't the XML of tly." + kMakeAgain);
        return;
    }
    for (size_t at = text.find_first_not_of(" \t\r\n"); at != std::string_view::npos; at = text.find_first_not_of(" \t\r\n", at)) {
        const size_t end = std::min(text.find_first_of(" \t\r\n", at), text.size());
        r->messages += r->messages.empty() || r->messages.back() == '\n' ? "" : " ";
        r->messages += text.substr(at, end - at);
        at = end;
    }
    r->messages += '\n';
}

// tly breaks the long list of bases into lines and indents them.
std::string Unwrapped(std::string_view text) {
    std::string whole;
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        whole += text.substr(0, end);
        text.remove_prefix(end);
        text.remove_prefix(std::min(text.find_first_not_of("\n "), text.size()));
    }
    return whole;
}

int64_t Number(Reader *r, Leaf leaf, int64_t largest = kLargest, int64_t least = 0) {
    const std::string &text = r->cell[leaf];
    int64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (!r->filled[leaf] || failure != std::errc() || end != text.data() + text.size() || value < least || value > largest) {
        Fail(r, Place(r) + (r->filled[leaf] ? "\"" + text.substr(0, 40) + "\" is no count." : "a figure is missing.") + kMakeAgain);
        return 0;
    }
    return value;
}

int64_t NumberOr(Reader *r, Leaf leaf, int64_t without) {
    return r->filled[leaf] ? Number(r, leaf) : without;
}

TextId Text(Reader *r, Leaf leaf) {
    return r->filled[leaf] ? r->m.texts.Intern(r->cell[leaf]) : 0;
}

Lines LinesOf(Reader *r) {
    Lines lines;
    lines.loc = Number(r, kLoc);
    lines.eloc = Number(r, kEloc);
    lines.lloc = Number(r, kLloc, kLargest, -kLargest);
    lines.comments = Number(r, kComments);
    lines.blanks = NumberOr(r, kBlanks, kUntold);
    lines.lines = Number(r, kPhysical);
    return lines;
}

Complexity ComplexityOf(Reader *r) {
    Complexity c;
    c.parameters = Number(r, kParameters);
    c.returns = Number(r, kReturns);
    c.interface = Number(r, kInterface);
    c.cyclomatic = Number(r, kCyclomatic);
    c.total = Number(r, kTotal);
    return c;
}

Members MembersOf(Reader *r) {
    return {Number(r, kPublic), Number(r, kProtected), Number(r, kPrivate)};
}

uint32_t FileAt(Reader *r) {
    const TextId path = Text(r, kFile);
    if (path >= r->file_at.size() || r->file_at[path] == kNone) {
        Fail(r, Place(r) + "the file \"" + r->cell[kFile] + "\" has figures, but isn't among the files." + kMakeAgain);
        return 0;
    }
    return r->file_at[path];
}

void EndFile(Reader *r) {
    if (r->section == Part::kWhole) {
        return;
    }
    FileRow file;
    file.opened = Text(r, kName);
    file.path = r->m.texts.Intern(ShownPath(r->cell[kName], r->root));
    if (!file.path) {
        Fail(r, Place(r) + "a file without a name." + kMakeAgain);
        return;
    }
    file.date = Text(r, kDate);
    file.language = LanguageOf(r->cell[kName]);
    file.bytes = NumberOr(r, kBytes, 0);
    file.lines = LinesOf(r);
    r->file_at.resize(std::max<size_t>(r->file_at.size(), file.opened + size_t{1}), kNone);
    r->file_at[file.opened] = static_cast<uint32_t>(r->m.files.size());
    r->m.files.push_back(file);
    ++r->files;
}

void EndFunction(Reader *r) {
    if (r->section == Part::kWhole) {
        return;
    }
    FunctionRow function;
    function.file = FileAt(r);
    function.name = Text(r, kName);
    function.scope = r->m.texts.Intern(ScopeOf(r->cell[kName]));
    function.signature = Text(r, kSignature);
    function.pattern = Text(r, kTemplate);
    function.lines = LinesOf(r);
    function.complexity = ComplexityOf(r);
    function.end_line = std::max<int64_t>(Number(r, kLine), 1);
    function.first_line = std::max<int64_t>(function.end_line - function.lines.lines + 1, 1);
    r->m.functions.push_back(function);
}

void EndClass(Reader *r, ClassKind kind, bool nested) {
    if (r->section == Part::kSlice) {
        return;
    }
    ClassRow row;
    row.name = Text(r, kName);
    row.bases = r->m.texts.Intern(Unwrapped(r->cell[kInheritance]));
    row.pattern = Text(r, kTemplate);
    row.kind = kind;
    row.nested = nested;
    row.attributes = r->attributes;
    row.methods = MembersOf(r); // they stand behind the attributes
    row.classes = NumberOr(r, kClasses, 0);
    row.functions = NumberOr(r, kFunctions, 0);
    row.complexity = ComplexityOf(r);
    row.lines = LinesOf(r);
    (kind == ClassKind::kNamespace ? r->m.namespaces : r->m.classes).push_back(row);
}

void EndTreeClass(Reader *r) {
    if (r->section != Part::kSlice) {
        r->m.tree.push_back({Text(r, kName), Number(r, kDepth), Number(r, kChildren), NumberOr(r, kParents, 0)});
    }
}

void EndLanguage(Reader *r) {
    if (r->section == Part::kWhole || !r->filled[kLoc]) {
        return; // a row of percentages
    }
    r->has_languages = true;
    if (r->cell[kExtension] != "Total All Languages") {
        r->m.languages.push_back({Text(r, kExtension), LinesOf(r)});
    }
}

// Whether the section in hand tells of notices of this kind.
bool IsToldHere(const Reader *r, int number) {
    const bool of_tree = std::ranges::find(kTreeNotices, number) != std::end(kTreeNotices);
    return r->section != (of_tree ? Part::kSlice : Part::kWhole);
}

// A row of the quality profile. The last one is their sum.
void EndKind(Reader *r) {
    if (r->cell[kType] == "All") {
        return;
    }
    NoticeKind kind{static_cast<int>(Number(r, kType, INT32_MAX)), Text(r, kDescription), Number(r, kCount)};
    r->listed += kind.count;
    if (IsToldHere(r, kind.number)) {
        r->m.kinds.push_back(kind);
    }
}

void EndNotice(Reader *r) {
    if (!r->filled[kFile]) {
        if (!r->m.lists_notices) {
            EndKind(r);
        }
        return;
    }
    ++r->listed;
    Notice notice;
    notice.number = static_cast<int32_t>(Number(r, kType, INT32_MAX));
    if (!IsToldHere(r, notice.number)) {
        return;
    }
    notice.file = FileAt(r);
    notice.line = static_cast<uint32_t>(Number(r, kLine, INT32_MAX));
    notice.has_line = notice.line > 0; // a class of the tree may have none
    notice.line = std::max(notice.line, 1U);
    notice.text = Text(r, kDescription);
    r->m.notices.push_back(notice);
}

void BeginDocument(Reader *r) {
    r->counted = kUntold;
    r->announced = r->listed = 0;
    r->has_languages = false;
    r->files = 0;
    ++r->documents;
}

// Figures beside an error are figures of a part. It is told ahead of what follows from it, such as that there are no files.
void RefuseErrors(Reader *r) {
    TakeLongLines(r);
    if (r->messages.find("Error:") != std::string::npos) {
        std::string messages = r->messages.substr(0, 2000);
        std::ranges::replace(messages, '\n', ' ');
        Fail(r, "tly met an error when it made this: " + messages + "- See to that, and make it again.");
    }
}

void EndDocument(Reader *r) {
    RefuseErrors(r);
    if (r->section != Part::kWhole) {
        if (r->files == 0) {
            Fail(r,
                 "it has no files. Check the extensions and the directory that tly was given; a comparison of baselines has none.");
        }
        if (r->counted == kUntold || !r->has_languages) {
            Fail(r, std::string("it hasn't all totals.") + kMakeAgain);
        }
    }
    const int64_t wanted = std::max(r->counted, r->announced);
    if (r->listed != wanted) {
        Fail(r,
             "tly counted " + std::to_string(wanted) + " notices, but " + std::to_string(r->listed) + " are listed." + kMakeAgain);
    }
}

// A text of the document's head. The first one of several inputs stands; the command of a run of ours stands ahead of tly's own.
// The reading is told in an element only where the settings choose it.
void EndHeadLeaf(Reader *r, Leaf leaf) {
    const bool modern = r->cell[leaf].find(leaf == kReading ? "Modern" : "-xMODERN") != std::string::npos;
    r->m.modern = r->m.modern || (modern && (leaf == kReading || leaf == kCommand));
    TextId *field = leaf == kVersion   ? &r->m.version
                    : leaf == kDate    ? &r->m.date
                    : leaf == kCommand ? &r->m.command
                    : leaf == kTitle   ? &r->m.title
                                       : nullptr;
    if (field && !*field) {
        *field = Text(r, leaf);
    }
}

void EndLeaf(Reader *r, Leaf leaf, Part around) {
    // A function has its parameters as they stand in the source, then their number.
    const Leaf cell = leaf == kParameters && around == Part::kFunction && !r->filled[kSignature] ? kSignature : leaf;
    r->cell[cell].swap(r->text);
    r->filled[cell] = true;
    if (around == Part::kDocument || around == Part::kJoined) {
        EndHeadLeaf(r, leaf);
    } else if (leaf == kNoticeCount) {
        r->announced = Number(r, leaf);
    } else if (leaf == kTotalNotices) {
        r->counted = Number(r, leaf);
    }
}

void EndRecord(Reader *r, Part part) {
    switch (part) {
    case Part::kFile: EndFile(r); break;
    case Part::kFunction: EndFunction(r); break;
    case Part::kClass: EndClass(r, ClassKind::kClass, false); break;
    case Part::kStruct: EndClass(r, ClassKind::kStruct, false); break;
    case Part::kInterface: EndClass(r, ClassKind::kInterface, false); break;
    case Part::kNestedClass: EndClass(r, ClassKind::kClass, true); break;
    case Part::kNestedStruct: EndClass(r, ClassKind::kStruct, true); break;
    case Part::kNestedInterface: EndClass(r, ClassKind::kInterface, true); break;
    case Part::kNamespace: EndClass(r, ClassKind::kNamespace, false); break;
    case Part::kTreeClass: EndTreeClass(r); break;
    case Part::kNotice: EndNotice(r); break;
    case Part::kLanguage: EndLanguage(r); break;
    case Part::kAttributes: r->attributes = MembersOf(r); break;
    case Part::kDocument: EndDocument(r); break;
    case Part::kSlice:
    case Part::kWhole: r->section = Part::kJoined; break;
    default: break;
    }
}

void TakeMessage(Reader *r) {
    if (!Blank(r->text)) {
        AppendMessage(r, r->text);
    }
    r->text.clear();
}

// A record starts without what an earlier one left. A class has attributes and methods within it, which are no records.
void BeginRecord(Reader *r, Part part) {
    if (part == Part::kDocument) {
        BeginDocument(r);
    } else if (part == Part::kSlice || part == Part::kWhole) {
        r->section = part;
    }
    if (part != Part::kAttributes && part != Part::kMethods) {
        r->filled.fill(false);
        r->cell[kInheritance].clear();
        r->attributes = {};
    }
}

void OnStart(void *user, const XML_Char *name, const XML_Char **) {
    auto *r = static_cast<Reader *>(user);
    const Part around = r->stack.back().part;
    Level level{Part::kSkipped, kLeaves};
    if (around != Part::kSkipped && around != Part::kLeaf) {
        TakeMessage(r);
        if (const Element *element = FindElement(around, name)) {
            level = {element->part, element->leaf};
        } else if (around == Part::kOutside) {
            Fail(r, std::string("it isn't the XML of tly: it begins with <") + std::string(name).substr(0, 40) + ">." + kMakeAgain);
        }
    }
    if (r->stack.size() > kDeepest) {
        Fail(r, Place(r) + "elements stand too deep in one another. This isn't the XML of tly." + kMakeAgain);
        return;
    }
    if (level.part != Part::kLeaf && level.part != Part::kSkipped) {
        BeginRecord(r, level.part);
    }
    r->text.clear();
    r->stack.push_back(level);
}

void OnEnd(void *user, const XML_Char *) {
    auto *r = static_cast<Reader *>(user);
    const Level level = r->stack.back();
    r->stack.pop_back();
    if (level.part == Part::kLeaf) {
        EndLeaf(r, level.leaf, r->stack.back().part);
    } else if (level.part != Part::kSkipped) {
        TakeMessage(r);
        EndRecord(r, level.part);
    }
    r->text.clear();
}

void OnText(void *user, const XML_Char *text, int length) {
    auto *r = static_cast<Reader *>(user);
    if (r->stack.back().part == Part::kSkipped) {
        return;
    }
    if (r->text.size() + static_cast<size_t>(length) > kLongestText) {
        Fail(r, Place(r) + "a text of more than a megabyte. This isn't the XML of tly." + kMakeAgain);
        return;
    }
    r->text.append(text, static_cast<size_t>(length));
}

void OnComment(void *user, const XML_Char *text) {
    AppendMessage(static_cast<Reader *>(user), text);
}

void OnDoctype(void *user, const XML_Char *, const XML_Char *, const XML_Char *, int) {
    Fail(static_cast<Reader *>(user),
         std::string("it has a document type, which tly never writes; nothing of it is read.") + kMakeAgain);
}

bool Parse(Reader *r, std::FILE *in) {
    size_t bytes = 0;
    for (bool last = false; !last;) {
        void *piece = XML_GetBuffer(r->parser, kPiece);
        if (!piece) {
            Fail(r, "out of memory.");
            return false;
        }
        const size_t length = fread(piece, 1, kPiece, in);
        bytes += length;
        if (ferror(in)) {
            Fail(r, std::string("it can't be read: ") + strerror(errno) + ".");
            return false;
        }
        last = length < kPiece;
        if (last && bytes == 0) {
            Fail(r, std::string("it is empty. Was it written by a run that failed?") + kMakeAgain);
            return false;
        }
        if (XML_ParseBuffer(r->parser, static_cast<int>(length), last) != XML_STATUS_OK) {
            const XML_Error code = XML_GetErrorCode(r->parser);
            const bool cut = last && (code == XML_ERROR_NO_ELEMENTS || code == XML_ERROR_UNCLOSED_TOKEN);
            Fail(r, Place(r) +
                        (cut ? "it ends too early. Was it written by a run that was cut off?"
                             : std::string("it is no XML: ") + XML_ErrorString(code) + ".") +
                        kMakeAgain);
            return false;
        }
        // The parser holds a tag or a comment until it is whole.
        if (bytes > kLongestText && XML_GetCurrentByteIndex(r->parser) < static_cast<XML_Index>(bytes - kLongestText)) {
            Fail(r, Place(r) + "a tag of more than a megabyte. This isn't the XML of tly." + kMakeAgain);
            return false;
        }
    }
    return true;
}

} // namespace

bool ReadXml(std::FILE *in, const std::string &name, const std::string &root, Model &m, std::string &error) {
    error.clear();
    Reader r{.name = name, .root = root, .m = m, .error = error, .parser = XML_ParserCreate(nullptr)};
    if (!r.parser) {
        error = name + ": out of memory.";
        return false;
    }
    XML_SetUserData(r.parser, &r);
    XML_SetElementHandler(r.parser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(r.parser, OnText);
    XML_SetCommentHandler(r.parser, OnComment);
    XML_SetStartDoctypeDeclHandler(r.parser, OnDoctype);
    Parse(&r, in);
    RefuseErrors(&r);
    if (r.documents == 0) {
        Fail(&r, std::string("it has no report of tly.") + kMakeAgain);
    }
    XML_ParserFree(r.parser);
    if (error.empty() && !r.messages.empty()) {
        r.messages.pop_back();
        m.remarks.push_back(name + ": " + r.messages);
    }
    if (error.empty() && r.long_lines > 0) {
        m.remarks.push_back(name + ": tly passed over " + std::to_string(r.long_lines) +
                            " pieces of lines of more than 2048 characters.");
    }
    return error.empty();
}
