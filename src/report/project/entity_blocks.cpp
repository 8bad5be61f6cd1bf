// The block of one function, class, interface or namespace: its head, and the lines of its figures. In CSV the figures are a row.
#include "report/entity_lines.h"

#include <algorithm>
#include <string>

#include "analysis/class.h"
#include "report/figures.h"
#include "report/forms.h"
#include "report/lines.h"
#include "report/names.h"
#include "run/char_tests.h"
#include "run/globals.h"

// The name line of a kind of entity, and the element that its block is in XML.
struct Head {
    const char *label, *element;
    Color color;
    bool linked; // in HTML the label links to the file
    Wrap wrap = Behind(label);
};

// clang-format off
constexpr Head kFunction       {"Function",          "function",          {&HtmlSettings::html_function_color}, true};
constexpr Head kClass          {"Class",             "class",             {&HtmlSettings::html_class_color},    true};
constexpr Head kStruct         {"Struct",            "struct",            {&HtmlSettings::html_struct_color},   true};
constexpr Head kNestedClass    {"Nested Class",      "nested_class",      {&HtmlSettings::html_class_color},    false};
constexpr Head kNestedStruct   {"Nested Struct",     "nested_struct",     {&HtmlSettings::html_struct_color},   false};
constexpr Head kInterfaceHead  {"Interface",         "interface",         {&HtmlSettings::html_macro_color},    true};
constexpr Head kNestedInterface{"Nested Interface",  "nested_interface",  {&HtmlSettings::html_class_color},    true, {55, 19}};
constexpr Head kNamespace      {"Namespace/Package", "namespace_package", {&HtmlSettings::html_notice_color},   true};

// A text that belongs to an entity. The HTML labels differ in what is bold.
struct Detail {
    const char *label, *html, *element;
    Color color;
    char csv_comma = ' '; // what stands for a comma of the text in CSV
};

constexpr Detail kParameters      {"Parameters",  "<b>Parameters</b>: ",  "parameters",  {&HtmlSettings::html_function_parameter_color}};
constexpr Detail kFunctionTemplate{"Template",    "<b>Template</b>: ",    "template",    {&HtmlSettings::html_template_color}};
constexpr Detail kClassTemplate   {"Template",    "<b>Template: </b>",    "template",    {&HtmlSettings::html_template_color}};
constexpr Detail kStructTemplate  {"Template",    "<b>Template:</b> ",    "template",    {&HtmlSettings::html_struct_color}};
constexpr Detail kInheritance     {"Inheritance", "<b>Inheritance</b>: ", "inheritance", {&HtmlSettings::html_inheritance_color}, ';'};
// clang-format on

// A label, in XML the element, and the name.
constexpr Forms<LinkTo, Color, const char *, Shown> kName{
    .text = "  %s: %s\n", .html = "  <b>%s</b>: <b><font color=\"%{color}\">%s</font></b>\n", .xml = "<%s>\n<name>%s</name>\n"};
constexpr Forms<LinkTo, Color, const char *, Shown> kLinkedName{
    .text = kName.text,
    .html = "  <b><a href=\"%{href}\" target=\"_blank\">%s</a></b>: <b><font color=\"%{color}\">%s</font></b>\n",
    .xml = kName.xml};
// The same of a detail, and the element once more.
constexpr Forms<Color, const char *, Shown, const char *> kDetail{
    .text = "  %s: %s\n", .html = "  %s<b><font color=\"%{color}\">%s</font></b>\n", .xml = "<%s>%s</%s>\n"};

// operator=(...) and the like, without a class in front, and unnamed scopes have no block of their own.
static bool HasBlock(const NodeData *record) {
    return record && record->name && isfirstchar(*record->name);
}

static bool Holds(const char *text) {
    return text && *text;
}

static void ReplaceCommas(char *text, char with) {
    for (char *p = text; p && *p; ++p) {
        if (*p == ',') {
            *p = with;
        }
    }
}

static void ShowName(const Head &head, const char *name, const char *file, const Globals *G) {
    const bool xml = OutputMode(G) == Mode::kXml;
    LineText room;
    Print(G, head.linked ? kLinkedName : kName, LinkTo{file}, head.color, xml ? head.element : head.label,
          Shown{OnPage(name, room, head.wrap, G)});
}

// page is the text for text and HTML, data the one for XML and CSV.
static void ShowDetail(const Detail &detail, const char *page, const char *data, const Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kText: Print(G, kDetail, detail.color, detail.label, Shown{page}, ""); break;
    case Mode::kHtml: Print(G, kDetail, detail.color, detail.html, Shown{page}, ""); break;
    case Mode::kXml: Print(G, kDetail, detail.color, detail.element, Shown{data}, detail.element); break;
    case Mode::kCsv: { // a text that comes broken stays so, with its indent
        std::string field = data;
        std::replace(field.begin(), field.end(), ',', detail.csv_comma);
        Put("%s,%s\n", detail.label, field.c_str());
        break;
    }
    }
}

static void ShowComplexityAndLines(const NodeData *record, const Globals *G) {
    ComplexLine(WholeNumber(static_cast<double>(record->params)), record->returns, record->cyclo, G);
    LOCLine(record->loc, record->eloc, record->lloc, record->comments, record->lines, G);
    FPLOCLine(record->language, record->loc, record->eloc, record->lloc, G);
}

static void CloseBlock(const Head &head, const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("</%s>\n", head.element);
    } else {
        Put("\n");
    }
}

void FunctionDataShow(void *entity, Globals *G) {
    auto *record = static_cast<FunctionData *>(entity);
    if (!HasBlock(record)) {
        return;
    }
    const Mode mode = OutputMode(G);
    if (mode == Mode::kCsv) {
        ReplaceCommas(record->name, ' ');
        ReplaceCommas(record->parameters, ';');
        ShowCsvRow(kFunctionColumns, record->name, record->parameters, FiguresOf(*record), 0);
        return;
    }
    LineText room;
    ShowName(kFunction, record->name, record->file, G);
    ShowDetail(kParameters, Wrapped(record->parameters, room, Behind(kParameters.label), G), record->parameters, G);
    if (mode == Mode::kXml) {
        PrintOnly(mode, "<file>%s</file>\n<line>%d</line>\n", Shown{record->file}, record->line);
    }
    if (Holds(record->template_line)) {
        ShowDetail(kFunctionTemplate, Wrapped(record->template_line, room, kFunction.wrap, G), record->template_line, G);
    }
    ShowComplexityAndLines(record, G);
    CloseBlock(kFunction, G);
}

// The rows and lines that classes and interfaces have in common.
static void ShowMembers(const Head &head, const ClassData *record, const Globals *G) {
    DataLine(record->public_data, record->protected_data, record->private_data, G);
    MethodLine(record->public_methods, record->protected_methods, record->private_methods, G);
    ShowComplexityAndLines(record, G);
    CloseBlock(head, G);
}

static void ShowClassRow(ClassData *record, const Globals *G) {
    if (OutputMode(G) == Mode::kCsv) {
        ReplaceCommas(record->name, ' ');
        ShowCsvRow(kClassColumns, record->name, nullptr, FiguresOf(*record, MethodSum(*record)), 0);
    }
}

void ClassDataShow(void *entity, Globals *G) {
    auto *record = static_cast<ClassData *>(entity);
    if (!HasBlock(record)) {
        return;
    }
    const bool is_struct = record->is_struct;
    const Head &plain = is_struct ? kStruct : kClass;
    const Head &head = !record->nesting ? plain : is_struct ? kNestedStruct : kNestedClass;
    LineText room;
    ShowClassRow(record, G);
    ShowName(head, record->name, record->file, G);
    if (Holds(record->template_line)) {
        const char *const wrapped = Wrapped(record->template_line, room, plain.wrap, G);
        ShowDetail(is_struct ? kStructTemplate : kClassTemplate, wrapped, record->template_line, G);
    }
    if (Holds(record->inherit_line)) {
        const char *const wrapped = Wrapped(record->inherit_line, room, Behind(kInheritance.label), G);
        ShowDetail(kInheritance, wrapped, wrapped, G);
    }
    ShowMembers(head, record, G);
}

void InterDataShow(void *entity, Globals *G) {
    auto *record = static_cast<ClassData *>(entity);
    if (!HasBlock(record)) {
        return;
    }
    const Head &head = record->nesting ? kNestedInterface : kInterfaceHead;
    ShowClassRow(record, G);
    ShowName(head, record->name, record->file, G);
    ShowMembers(head, record, G);
}

void NamespaceDataShow(void *entity, Globals *G) {
    auto *record = static_cast<ClassData *>(entity);
    if (!HasBlock(record)) {
        return;
    }
    const int functions = NamespaceFunctions(*record, G);
    if (OutputMode(G) == Mode::kCsv) {
        ReplaceCommas(record->name, ' ');
        ShowCsvRow(kNamespaceColumns, record->name, nullptr, FiguresOf(*record, functions), 0);
        return;
    }
    ShowName(kNamespace, record->name, record->file, G);
    ClassFuncLine(record->nesting, functions, G);
    ShowMembers(kNamespace, record, G);
}
