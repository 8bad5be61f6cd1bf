// The page of all keyword and construct counters, of a file or the project.
#include "report/project/summaries.h"

#include "report/forms.h"
#include "report/frame.h"
#include "run/globals.h"
#include "run/percent.h"

namespace {

// Values that aren't counters.
struct Derived {
    int eloc, lloc, chars_per_line;
    double logical;                                           // lines, a line of code and comment twice
    double code, ecode, comments, blanks, characters, spaces; // percent
};

Derived Derive(const Globals *G) {
    Derived d{};
    const int64_t written = int64_t{G->file_comments} + G->file_loc;
    const int64_t logical = written + G->file_blank;
    const int64_t visible = int64_t{G->file_chars} - G->file_white;
    d.eloc = EffectiveLines(*G);
    d.lloc = LogicalLines(*G);
    d.logical = static_cast<double>(logical);
    d.chars_per_line = written < 1 ? 0 : static_cast<int>(visible / written);
    d.code = Percent(G->file_loc, logical);
    d.ecode = Percent(d.eloc, logical);
    d.comments = Percent(G->file_comments, logical);
    d.blanks = Percent(G->file_blank, logical);
    d.characters = Percent(visible, G->file_chars);
    d.spaces = Percent(G->file_white, G->file_chars);
    return d;
}

// How the values of a cell are printed.
enum Shape { kHeading, kNumber, kPair, kTriple, kWide, kPercents };

// A label is bold up to its colon or only its words, then comes the rest. html: the bold text where HTML has another one.
// Of a heading: dashes, title, dashes.
struct Label {
    const char *bold, *rest;
    Shape shape;
    const char *html = nullptr;
};

struct Cell {
    Label label;
    double values[3];
};

Cell Of(const Label &label, double first = 0.0, double second = 0.0, double third = 0.0) {
    return {label, {first, second, third}};
}

struct VerboseRow {
    Cell left, right;
};

// HTML has a bold text of its own, or the one of a page.
void ShowLabel(const Label &label, const Globals *G) {
    static constexpr Forms<const char *, const char *> kLabel{.text = "  %s%s", .html = "  <b>%s</b>%s", .csv = "  %s%s"};
    const bool html = OutputMode(G) == Mode::kHtml && label.html;
    Print(G, kLabel, html ? label.html : label.bold, label.rest);
}

// "--------------- LOC ---------------"
void ShowHeading(const Label &label, const Globals *G) {
    static constexpr Forms<const char *, const char *, const char *> kHeadingLine{
        .text = "  %s %s %s", .html = "  <b>%s <font color=\"%{header}\">%s</font> %s</b>", .csv = "  %s %s %s"};
    Print(G, kHeadingLine, label.bold, label.rest, label.html);
}

void ShowLeft(const Cell &cell, const Globals *G) {
    if (cell.label.shape == kHeading) {
        ShowHeading(cell.label, G);
        return;
    }
    ShowLabel(cell.label, G);
    if (cell.label.shape == kPair) {
        Put("%6.0f,%5.0f", cell.values[0], cell.values[1]);
    } else {
        Put("%12.0f", cell.values[0]);
    }
}

void ShowRight(const Cell &cell, const Globals *G) {
    const double *const v = cell.values;
    if (cell.label.shape == kHeading) {
        ShowHeading(cell.label, G);
        Put("\n");
        return;
    }
    ShowLabel(cell.label, G);
    switch (cell.label.shape) {
    case kHeading: break;
    case kNumber: Put(" %12.0f\n", v[0]); break;
    case kPair: Put("%6.0f,%6.0f\n", v[0], v[1]); break;
    case kTriple: Put("%6.0f,%3.0f,%2.0f\n", v[0], v[1], v[2]); break;
    case kWide: Put("%13.0f\n", v[0]); break;
    case kPercents: Put("%5.1f%%,%5.1f%%\n", v[0], v[1]); break;
    }
}

void ShowPage(int project, const Derived &d, const Globals *G) {
    // A file without functions tells only what is inline.
    const Cell functions = G->function_count < 1
                               ? Of({"inline ..............:", "", kNumber}, G->inline_count)
                               : Of({"func, virtual, inline:", "", kTriple}, G->function_count, G->virtual_count, G->inline_count);
    // clang-format off
    const VerboseRow rows[] = {
        {Of({"---------------", "LOC", kHeading, "---------------"}),                              Of({"case, break .........:", "", kPair}, G->case_count, G->break_count)},
        {Of({"Lines of Code (LOC) .:", " ", kNumber}, G->file_loc),                                Of({"if, else ............:", "", kPair}, G->if_count, G->else_count)},
        {Of({"Lines of just { or } :", " ", kNumber}, G->just_brace_count),                        Of({"goto, return ........:", "", kPair}, G->goto_count, G->return_count)},
        {Of({"Lines of just (or)   :", " ", kNumber, "Lines of just ( or ) :"}, G->just_paren_count),Of({"exit, _exit, abort ..:", "", kTriple}, G->exit_count, G->_exit_count, G->abort_count)},
        {Of({"Effective LOC (eLOC) :", " ", kNumber}, d.eloc),                                     Of({"macros, struct, union:", "", kTriple}, G->macro_count, G->struct_count, G->union_count)},
        {Of({"Code Statement (lLOC):", " ", kNumber}, d.lloc),                                     Of({"class, interface ....:", "", kPair}, G->class_count, G->interface_count)},
        {Of({"--------------", "Lines", kHeading, "--------------"}),                              Of({"template, friend ....:", "", kPair}, G->template_count, G->friend_count)},
        {Of({"Blank Lines .........:", " ", kNumber}, G->file_blank),                              Of({"namespace, package ..:", "", kPair}, G->namespace_count, G->package_count)},
        {Of({"Comment Lines .......:", " ", kNumber}, G->file_comments),                           functions},
        {Of({"Total Logical Lines .:", " ", kNumber}, d.logical),                                  Of({"Memory alloc, free ..:", "", kPair}, G->alloc_count, G->free_count)},
        {Of({"Total Physical Lines :", " ", kNumber}, G->file_line_no),                            Of({"Memory new, delete ..:", "", kPair}, G->new_count, G->delete_count)},
        {Of({"------------", "Key Words", kHeading, "------------"}),                              Of({"-------------", "Analysis", kHeading, "------------"})},
        {Of({"Literal Strings", " .....: ", kNumber}, G->string_count),                            Of({"Continuation Lines \\", ".:", kWide}, G->continuation_count)},
        {Of({"Preprocessor Lines #", ".: ", kNumber}, G->preproc_count),                           Of({"Paren Count (,)", " .....:", kPair}, G->open_paren, G->close_paren)},
        {Of({"#include, import", " ....: ", kPair}, G->include_count, G->import_count),            Of({"Brace Count {,}", " .....:", kPair}, G->open_braces, G->closebrace_count)},
        {Of({"#define, typedef", " ....: ", kPair}, G->define_count, G->typedef_count),            Of({"Bracket Count [,]", " ...:", kPair}, G->open_bracket, G->close_bracket)},
        {Of({"const, enum .........:", " ", kPair}, G->const_count, G->enum_count),                Of({"Chars/NBLine, Notices:", "", kPair}, d.chars_per_line, G->notice_count)},
        {Of({"do, while ...........:", " ", kPair}, G->do_count, G->while_count),                  Of({"Code, eCode Lines ...:", "", kPercents}, d.code, d.ecode)},
        {Of({"switch, default .....:", " ", kPair}, G->switch_count, G->default_count),            Of({"Comment, Blank Lines :", "", kPercents}, d.comments, d.blanks)},
        {Of({"for .................:", " ", kNumber}, G->for_count),                               Of({"Characters, Spaces ..:", "", kPercents}, d.characters, d.spaces)},
    };
    // clang-format on
    static constexpr Forms<> kOpenTitle{.html = "<b><font color=\"%{header}\">"};
    static constexpr Forms<> kCloseTitle{.text = "\n", .html = "</font></b>\n", .csv = "\n"};
    Print(G, kOpenTitle);
    DashRule();
    Center(project ? "~~ Project Keywords and Metrics ~~" : "~~ File Keywords and Metrics ~~");
    Print(G, kCloseTitle);
    for (const VerboseRow &row : rows) {
        ShowLeft(row.left, G);
        ShowRight(row.right, G);
    }
}

struct XmlRow {
    const char *element;
    double value;
    int decimals;
};

void ShowXml(int project, const Derived &d, const Globals *G) {
    // A percentage of nothing is a plain 0.
    const auto percent = [&d](const char *element, double value) {
        return XmlRow{element, value, d.logical < 1 && value == 0.0 ? 0 : 1};
    };
    const auto count = [](const char *element, double value) { return XmlRow{element, value, 0}; };
    // clang-format off
    const XmlRow rows[] = {
        count("loc_count", G->file_loc),
        count("braceline_count", G->just_brace_count),
        count("parenline_count", G->just_paren_count),
        count("eLOC_count", d.eloc),
        count("lLOC_count", d.lloc),
        count("comment_lines_count", G->file_comments),
        count("blank_lines_count", G->file_blank),
        count("total_logical_lines_count", d.logical),
        count("total_physical_lines_count", G->file_line_no),
        percent("loc_percent_logical_lines", d.code),
        percent("eloc_percent_logical_lines", d.ecode),
        percent("comment_line_percentage_logical_lines", d.comments),
        percent("blank_line_percentage_logical_lines", d.blanks),
        count("chars_per_nonblank_line", d.chars_per_line),
        count("namespace_count", G->namespace_count),
        count("package_count", G->package_count),
        count("class_count", G->class_count),
        count("interface_count", G->interface_count),
        count("functions_count", G->function_count),
        count("virtual_function_count", G->virtual_count),
        count("inline_function_count", G->inline_count),
        count("template_count", G->template_count),
        count("friend_count", G->friend_count),
        count("macros_count", G->macro_count),
        count("struct_count", G->struct_count),
        count("union_count", G->union_count),
        count("memory_alloc_count", G->alloc_count),
        count("memory_free_count", G->free_count),
        count("memory_new_count", G->new_count),
        count("memory_delete_count", G->delete_count),
        count("literal_strings_count", G->string_count),
        count("continuation_lines_count", G->continuation_count),
        count("preprocessor_lines_count", G->preproc_count),
        count("include_count", G->include_count),
        count("import_count", G->import_count),
        count("define_count", G->define_count),
        count("typedef_count", G->typedef_count),
        count("const_count", G->const_count),
        count("enum_count", G->enum_count),
        count("open_bracket_count", G->open_bracket),
        count("close_bracket_count", G->close_bracket),
        count("open_brace_count", G->open_braces),
        count("close_brace_count", G->closebrace_count),
        count("open_paren_count", G->open_paren),
        count("close_paren_count", G->close_paren),
        count("do_count", G->do_count),
        count("while_count", G->while_count),
        count("switch_count", G->switch_count),
        count("default_count", G->default_count),
        count("for_count", G->for_count),
        count("case_count", G->case_count),
        count("break_count", G->break_count),
        count("if_count", G->if_count),
        count("else_count", G->else_count),
        count("goto_count", G->goto_count),
        count("return_count", G->return_count),
        count("exit_count", G->exit_count),
        count("_exit_count", G->_exit_count),
        count("abort_count", G->abort_count),
        percent("characters_percent", d.characters),
        percent("spaces_percent", d.spaces),
        count("quality_notice_count", G->notice_count),
    };
    // clang-format on
    Put("<report>\n<name>%s</name>\n", project ? "Total Verbose Metrics" : "File Verbose Metrics");
    for (const XmlRow &row : rows) {
        Put("<%s>%.*f</%s>\n", row.element, row.decimals, row.value, row.element);
    }
    Put("</report>\n");
}

} // namespace

void ShowVerbose(Globals *G, int project) {
    const Derived derived = Derive(G);
    if (OutputMode(G) == Mode::kXml) {
        ShowXml(project, derived, G);
    } else {
        ShowPage(project, derived, G);
    }
}
