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
#include "run/encode.h"
#include "run/globals.h"

// The name line of a kind of entity, and the element that its block is in XML.
struct Head {
    const char *label, *element;
    ColorText HtmlSettings::*color;
    bool linked; // in HTML the label links to the file
    int width, indent;
};

// clang-format off
constexpr Head kFunction       {"Function",          "function",          &HtmlSettings::html_function_color, true,  62, 12};
constexpr Head kClass          {"Class",             "class",             &HtmlSettings::html_class_color,    true,  65, 9};
constexpr Head kStruct         {"Struct",            "struct",            &HtmlSettings::html_struct_color,   true,  64, 10};
constexpr Head kNestedClass    {"Nested Class",      "nested_class",      &HtmlSettings::html_class_color,    false, 58, 16};
constexpr Head kNestedStruct   {"Nested Struct",     "nested_struct",     &HtmlSettings::html_struct_color,   false, 57, 17};
constexpr Head kInterfaceHead  {"Interface",         "interface",         &HtmlSettings::html_macro_color,    true,  61, 13};
constexpr Head kNestedInterface{"Nested Interface",  "nested_interface",  &HtmlSettings::html_class_color,    true,  55, 19};
constexpr Head kNamespace      {"Namespace/Package", "namespace_package", &HtmlSettings::html_notice_color,   true,  53, 21};

// A text that belongs to an entity. The HTML labels differ in what is bold.
struct Detail {
    const char *label, *html, *element;
    ColorText HtmlSettings::*color;
    char csv_comma = ' '; // what stands for a comma of the text in CSV
};

constexpr Detail kParameters      {"Parameters",  "<b>Parameters</b>: ",  "parameters",  &HtmlSettings::html_function_parameter_color};
constexpr Detail kFunctionTemplate{"Template",    "<b>Template</b>: ",    "template",    &HtmlSettings::html_template_color};
constexpr Detail kClassTemplate   {"Template",    "<b>Template: </b>",    "template",    &HtmlSettings::html_template_color};
constexpr Detail kStructTemplate  {"Template",    "<b>Template:</b> ",    "template",    &HtmlSettings::html_struct_color};
constexpr Detail kInheritance     {"Inheritance", "<b>Inheritance</b>: ", "inheritance", &HtmlSettings::html_inheritance_color, ';'};
// clang-format on

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
    const Mode mode = OutputMode(G);
    LineText wrapped;
    AdjNameLength(name, wrapped, head.width, head.indent, G);
    const Shown color{G->*head.color};
    switch (mode) {
    case Mode::kText: PrintOnly(mode, "  %s: %s\n", head.label, Shown{wrapped}); break;
    case Mode::kHtml:
        if (head.linked) {
            std::string link;
            url_encode(HTMLPathFile(file, G), link);
            PrintOnly(mode, "  <b><a href=\"%s\" target=\"_blank\">%s</a></b>: <b><font color=\"%s\">%s</font></b>\n",
                      Shown{link.c_str()}, head.label, color, Shown{wrapped});
        } else {
            PrintOnly(mode, "  <b>%s</b>: <b><font color=\"%s\">%s</font></b>\n", head.label, color, Shown{wrapped});
        }
        break;
    case Mode::kCsv: break;
    case Mode::kXml: PrintOnly(mode, "<%s>\n<name>%s</name>\n", head.element, Shown{name}); break;
    }
}

// page is the text for text and HTML, data the one for XML and CSV.
static void ShowDetail(const Detail &detail, const char *page, const char *data, const Globals *G) {
    const Mode mode = OutputMode(G);
    switch (mode) {
    case Mode::kText: PrintOnly(mode, "  %s: %s\n", detail.label, Shown{page}); break;
    case Mode::kHtml:
        PrintOnly(mode, "  %s<b><font color=\"%s\">%s</font></b>\n", detail.html, Shown{G->*detail.color}, Shown{page});
        break;
    case Mode::kCsv: { // a text that comes broken stays so, with its indent
        std::string field = data;
        std::replace(field.begin(), field.end(), ',', detail.csv_comma);
        Put("%s,%s\n", detail.label, field.c_str());
        break;
    }
    case Mode::kXml: PrintOnly(mode, "<%s>%s</%s>\n", detail.element, Shown{data}, detail.element); break;
    }
}

static void ShowComplexityAndLines(const NodeData *record, Globals *G) {
    ComplexLine(WholeNumber(static_cast<double>(record->params)), record->returns, record->cyclo, G);
    LOCLine(record->loc, record->eloc, record->lloc, record->comments, record->lines, G);
    FPLOCLine(record->file, record->loc, record->eloc, record->lloc, G);
}

static void CloseBlock(const Head &head, const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("</%s>\n", head.element);
    } else {
        Put("\n");
    }
}

void FunctionDataShow(NodeData *record, Globals *G) {
    if (!HasBlock(record)) {
        return;
    }
    const Mode mode = OutputMode(G);
    if (mode == Mode::kCsv) {
        ReplaceCommas(record->name, ' ');
        ReplaceCommas(record->parameters, ';');
        ShowCsvRow(kFunctionColumns, record->name, record->parameters, FiguresOf(*record, 1), 0);
        return;
    }
    LineText wrapped;
    ShowName(kFunction, record->name, record->file, G);
    AdjNameLength(record->parameters, wrapped, 60, 14, G);
    ShowDetail(kParameters, wrapped, record->parameters, G);
    if (mode == Mode::kXml) {
        PrintOnly(mode, "<file>%s</file>\n<line>%d</line>\n", Shown{record->file}, record->line);
    }
    if (Holds(record->template_line)) {
        AdjNameLength(record->template_line, wrapped, kFunction.width, kFunction.indent, G);
        ShowDetail(kFunctionTemplate, wrapped, record->template_line, G);
    }
    ShowComplexityAndLines(record, G);
    CloseBlock(kFunction, G);
}

// The rows and lines that classes and interfaces have in common.
static void ShowMembers(const Head &head, const NodeData *record, Globals *G) {
    DataLine(record->public_data, record->protected_data, record->private_data, G);
    MethodLine(record->public_methods, record->protected_methods, record->private_methods, G);
    ShowComplexityAndLines(record, G);
    CloseBlock(head, G);
}

static void ShowClassRow(NodeData *record, const Globals *G) {
    if (OutputMode(G) == Mode::kCsv) {
        ReplaceCommas(record->name, ' ');
        ShowCsvRow(kClassColumns, record->name, nullptr, FiguresOf(*record, MethodSum(*record)), 0);
    }
}

void ClassDataShow(NodeData *record, Globals *G) {
    if (!HasBlock(record)) {
        return;
    }
    const bool is_struct = record->is_struct;
    const Head &plain = is_struct ? kStruct : kClass;
    const Head &head = !record->nesting ? plain : is_struct ? kNestedStruct : kNestedClass;
    LineText wrapped;
    ShowClassRow(record, G);
    ShowName(head, record->name, record->file, G);
    if (Holds(record->template_line)) {
        AdjNameLength(record->template_line, wrapped, plain.width, plain.indent, G);
        ShowDetail(is_struct ? kStructTemplate : kClassTemplate, wrapped, record->template_line, G);
    }
    if (Holds(record->inherit_line)) {
        AdjNameLength(record->inherit_line, wrapped, 59, 15, G);
        ShowDetail(kInheritance, wrapped, wrapped, G);
    }
    ShowMembers(head, record, G);
}

void InterDataShow(NodeData *record, Globals *G) {
    if (!HasBlock(record)) {
        return;
    }
    const Head &head = record->nesting ? kNestedInterface : kInterfaceHead;
    ShowClassRow(record, G);
    ShowName(head, record->name, record->file, G);
    ShowMembers(head, record, G);
}

void NamespaceDataShow(NodeData *record, Globals *G) {
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
