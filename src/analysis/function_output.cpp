// What a function prints: its identification lines and its block of figures. An XML report has none of them: it holds totals only.
//
// In notice mode a function has a head at its "{" and a tail at its last "}", with the notices between; in all other modes its
// lines come once. A listing (-l) has one line per function.
#include "analysis/function.h"

#include <algorithm>

#include "config/languages.h"
#include "report/entity_lines.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/state_line.h"
#include "run/globals.h"

namespace {

constexpr Wrap kNameWrap = Behind("Function"), kInlineWrap = Behind("Inline Function"), kParamsWrap = Behind("Parameters");

// The pairs are for a plain and for an inline function.

// The lines of a page.
constexpr Forms<LinkTo, Shown> kName[] = {
    {.text = "  Function: %s\n",
     .html = "  <b><a href=\"%{href}\" target=\"_blank\">Function</a></b>: <b><font color=\"%{function}\">%s</font></b>\n"},
    {.text = "  Inline Function: %s\n", .html = "  <b>Inline Function</b>: <b><font color=\"%{function}\">%s</font></b>\n"}};
constexpr Forms<Shown> kParameters{.text = "  Parameters: %s\n",
                                   .html = "  <b>Parameters</b>: <b><font color=\"%{function_parameter}\">%s</font></b>\n"};
constexpr Forms<Shown> kTemplate{.text = "  Template: %s\n",
                                 .html = "  <b>Template</b>: <b><font color=\"%{template}\">%s</font></b>\n"};

// The row of a listing: its begin, with a template for those that have one; name and parameters; the template.
constexpr Forms<> kRow[] = {{.text = "  ", .html = "  <b><font color=\"%{function}\">", .csv = "Function,"},
                            {.text = "  Inline ", .html = "  <b>Inline <font color=\"%{function}\">", .csv = "Inline Function,"}};
constexpr Forms<Shown> kTemplateRow[] = {
    {.text = "  template %s ", .html = "  <b><font color=\"%{function}\">", .csv = "Function,"},
    {.text = "  inline template %s ", .html = "  <b>Inline <font color=\"%{function}\">", .csv = "Inline Function,"}};
constexpr Forms<Shown, ShownList> kRowTexts{
    .text = "%s %s", .html = "%s</font></b> <b><font color=\"%{function_parameter}\">%s</font></b>", .csv = "%s,%s"};
constexpr Forms<Shown> kRowTemplate{.html = " <b>template</b> <b><font color=\"%{template}\">%s</font></b>", .csv = ",template %s"};

// The head and the tail of notice mode, which stand in a CSV report as they stand on a page.
constexpr Forms<Shown> kBeginName{.text = "  Function: %s\n",
                                  .html = "  <b>Function</b>: <b><font color=\"%{function}\">%s</font></b>\n",
                                  .xml = "  Function: %s\n"};
constexpr Forms<Shown> kBeginParameters{.text = "  Parameters: %s\n",
                                        .html = "  <b>Parameters:</b> <b><font color=\"%{function_parameter}\">%s</font></b>\n",
                                        .xml = "  Parameters: %s\n"};
constexpr Forms<Shown> kBeginTemplate{.text = "  Template: %s\n",
                                      .html = "  <b>Template:</b> <b><font color=\"%{template}\">%s</font></b>\n",
                                      .xml = "  Template: %s\n"};

// The texts of a function as they are shown, wrapped where the form wraps.
struct Identity {
    const char *name, *params, *template_text;
    bool is_inline;
    bool has_template;
    LineText name_room, params_room, template_room;
};

void Break(Identity &f, Wrap wrap, const Globals *G) {
    f.name = Wrapped(G->funcname, f.name_room, wrap, G);
    f.params = Wrapped(G->params, f.params_room, kParamsWrap, G);
    f.template_text = G->func_template ? Wrapped(G->func_template_text, f.template_room, wrap, G) : nullptr;
}

void ReadIdentity(Identity &f, const Globals *G) {
    const Mode mode = OutputMode(G);
    // a method with a body in its class is inline without the word
    f.is_inline = G->inline_flag || (G->class_flag && G->is_cpp && !G->list_functions);
    f.has_template = G->func_template != 0;
    if (G->list_functions || mode == Mode::kCsv) {
        f.name = G->funcname;
        f.params = G->params;
        f.template_text = G->func_template_text;
    } else {
        Break(f, f.is_inline ? kInlineWrap : kNameWrap, G);
    }
}

void EmitPage(const Identity &f, const Globals *G) {
    Print(G, kName[f.is_inline], LinkTo{G->file_name}, Shown{f.name});
    Print(G, kParameters, Shown{f.params});
    if (f.has_template) {
        Print(G, kTemplate, Shown{f.template_text});
    }
}

void EmitRow(const Identity &f, const Globals *G) {
    if (f.has_template) {
        Print(G, kTemplateRow[f.is_inline], Shown{f.template_text});
    } else {
        Print(G, kRow[f.is_inline]);
    }
    Print(G, kRowTexts, Shown{f.name}, ShownList{f.params});
    if (f.has_template) {
        Print(G, kRowTemplate, Shown{f.template_text});
    }
    Put("\n");
}

void EmitLines(const Globals *G) {
    Identity f;
    ReadIdentity(f, G);
    if (G->list_functions) {
        EmitRow(f, G);
    } else {
        EmitPage(f, G);
    }
}

} // namespace

void FunctionBegin(Globals *G) {
    Rtrim(G->funcname);
    if (G->totals_only) {
        return;
    }
    if (G->quality_notices) {
        ShowStateLine(G->file_line_no, "Function Begin", G);
    }
    Identity f;
    Break(f, kNameWrap, G);
    const Mode mode = FreeTextMode(G);
    PrintAs(mode, G, kBeginName, Shown{f.name});
    PrintAs(mode, G, kBeginParameters, Shown{f.params});
    if (G->func_template) {
        PrintAs(mode, G, kBeginTemplate, Shown{f.template_text});
    }
}

void FunctionEnd(Globals *G) {
    if (G->totals_only) {
        return;
    }
    LineText room;
    Put("\n");
    PrintAs(FreeTextMode(G), G, kBeginName, Shown{Wrapped(G->funcname, room, kNameWrap, G)});
}

void EmitFunction(Globals *G) {
    TidyParams(G); // at the end of a file a head may be open
    if (!G->function_metrics_implied && !G->totals_only) {
        if (G->comment_doc_mode) {
            Put("\n");
        }
        EmitLines(G);
        if (G->comment_doc_mode) {
            Put("  %s%s\n", kDashes, kDashes);
        }
        if (G->quality_notices) {
            Put("\n");
        }
    }
    if (G->func_template) {
        ClearText(G->func_template_text);
        G->func_template = 0;
    }
    G->instantiate_colon_flag = 0;
    G->inline_flag = 0;
}

void ShowFunction(const LineCounts &lines, Globals *G) {
    if (G->csv_function_lines) {
        FunctionData function{};
        static_cast<LineCounts &>(function) = lines;
        function.name = G->funcname;
        function.parameters = G->params;
        function.params = G->local_params;
        function.returns = G->local_return;
        function.cyclo = GetCycloComplexity(G);
        CSV_Function_Line(function, G);
        return;
    }
    if (G->totals_only || G->comment_doc_mode) {
        return;
    }
    const int cyclo = GetCycloComplexity(G);
    ComplexDetails(cyclo, G);
    ComplexLine(G->local_params, G->local_return, cyclo, G);
    LOCLine(lines.loc, lines.eloc, lines.lloc, lines.comments, lines.lines, G);
    FPLOCLine(LanguageInHand(G), lines.loc, lines.eloc, lines.lloc, G);
    if (G->quality_notices) {
        ShowStateLine(G->file_line_no, "Function End", G);
    } else {
        Put("\n");
    }
}
