// One table per element that holds others.
#include "xml_elements.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

constexpr Element LeafRow(const char *name, Leaf leaf) {
    return {name, Part::kLeaf, leaf};
}

// clang-format off
constexpr Element kOutsideElements[] = {{"vxtly", Part::kDocument}, {"tly-report", Part::kJoined}};
constexpr Element kJoinedElements[] = {
    {"vxtly", Part::kDocument}, {"slice", Part::kSlice}, {"whole", Part::kWhole}, LeafRow("run", kCommand)};
constexpr Element kSliceElements[] = {{"vxtly", Part::kDocument}};
constexpr Element kDocumentElements[] = {
    {"file", Part::kFile}, {"report", Part::kReport}, LeafRow("version", kVersion), LeafRow("date", kDate),
    LeafRow("command", kCommand), LeafRow("reading", kReading), LeafRow("title", kTitle)};
constexpr Element kReportElements[] = {
    {"notice", Part::kNotice}, {"function", Part::kFunction},
    {"class", Part::kClass}, {"struct", Part::kStruct}, {"interface", Part::kInterface},
    {"nested_class", Part::kNestedClass}, {"nested_struct", Part::kNestedStruct}, {"nested_interface", Part::kNestedInterface},
    {"namespace_package", Part::kNamespace}, {"inheritance_tree", Part::kInheritanceTree}, {"language", Part::kLanguage},
    LeafRow("name", kName), LeafRow("notice_count", kNoticeCount), LeafRow("total_notices", kTotalNotices)};
constexpr Element kTreeElements[] = {{"class", Part::kTreeClass}};
constexpr Element kFileElements[] = {
    LeafRow("name", kName), LeafRow("date", kDate), LeafRow("size_bytes", kBytes), LeafRow("loc", kLoc), LeafRow("eloc", kEloc),
    LeafRow("lloc", kLloc), LeafRow("comments", kComments), LeafRow("lines", kPhysical)};
constexpr Element kNoticeElements[] = {
    LeafRow("file", kFile), LeafRow("type", kType), LeafRow("line", kLine), LeafRow("count", kCount),
    LeafRow("description", kDescription)};
// Of functions, classes, namespaces and languages.
constexpr Element kEntityElements[] = {
    LeafRow("name", kName), LeafRow("file", kFile), LeafRow("line", kLine), LeafRow("template", kTemplate),
    LeafRow("inheritance", kInheritance), LeafRow("extension", kExtension), LeafRow("parameters", kParameters),
    LeafRow("returns", kReturns), LeafRow("interface_complexity", kInterface), LeafRow("cyclomatic_complexity", kCyclomatic),
    LeafRow("total_complexity", kTotal), LeafRow("loc", kLoc), LeafRow("eloc", kEloc), LeafRow("lloc", kLloc),
    LeafRow("comments", kComments), LeafRow("blanks", kBlanks), LeafRow("lines", kPhysical),
    LeafRow("total_classes", kClasses), LeafRow("total_functions", kFunctions),
    LeafRow("depth", kDepth), LeafRow("children", kChildren), LeafRow("parent", kParents),
    {"attributes", Part::kAttributes}, {"methods", Part::kMethods}};
constexpr Element kMemberElements[] = {
    LeafRow("public", kPublic), LeafRow("protected", kProtected), LeafRow("private", kPrivate)};
// clang-format on

struct Elements {
    const Element *rows;
    size_t count;
};

template <size_t n> constexpr Elements Of(const Element (&rows)[n]) {
    return {rows, n};
}

Elements Within(Part part) {
    switch (part) {
    case Part::kOutside: return Of(kOutsideElements);
    case Part::kJoined: return Of(kJoinedElements);
    case Part::kSlice:
    case Part::kWhole: return Of(kSliceElements);
    case Part::kDocument: return Of(kDocumentElements);
    case Part::kReport: return Of(kReportElements);
    case Part::kFile: return Of(kFileElements);
    case Part::kNotice: return Of(kNoticeElements);
    case Part::kInheritanceTree: return Of(kTreeElements);
    case Part::kAttributes:
    case Part::kMethods: return Of(kMemberElements);
    case Part::kSkipped:
    case Part::kLeaf: return {nullptr, 0};
    default: return Of(kEntityElements);
    }
}

} // namespace

const Element *FindElement(Part within, const char *name) {
    const Elements elements = Within(within);
    const Element *end = elements.rows + elements.count;
    const Element *row = std::find_if(elements.rows, end, [name](const Element &e) { return strcmp(e.name, name) == 0; });
    return row == end ? nullptr : row;
}
