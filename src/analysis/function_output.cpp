// What a function prints: its identification lines and its block of figures.
//
// In notice mode a function has a head at its "{" and a tail at its last "}", with the notices between; in all other modes its
// lines come once. A listing (-l) has one line per function.
#include "analysis/function.h"

#include <algorithm>

#include "report/entity_lines.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/state_line.h"
#include "run/encode.h"
#include "run/globals.h"

namespace {

// Columns of a line and blanks in front of the lines that follow: a name or a template, and parameters.
constexpr int kNameWidth = 62, kNameIndent = 12;
constexpr int kInlineWidth = 55, kInlineIndent = 19;
constexpr int kParamsWidth = 60, kParamsIndent = 14;

using Text = forms::Format<Shown>;                 // a text
using Coloured = forms::Format<Shown, Shown>;      // a colour and a text
using Linked = forms::Format<Shown, Shown, Shown>; // a link, a colour and a text
using Pair = forms::Format<Shown, Shown>;          // name and parameters
using Triple = forms::Format<Shown, Shown, Shown>; // template, name, parameters
using Numbered = forms::Format<int, Shown, Shown>; // line, name, parameters

// The pairs are for a plain and for an inline function.
constexpr Text kTextName[] = {"  Function: %s\n", "  Inline Function: %s\n"};
constexpr Text kTextParams = "  Parameters: %s\n";
constexpr Text kTextTemplate = "  Template: %s\n";

constexpr Pair kTextRow[] = {"  %s %s\n", "  Inline %s %s\n"};
constexpr Triple kTextTemplateRow[] = {"  template %s %s %s\n", "  inline template %s %s %s\n"};

constexpr forms::Format<Shown, ShownList> kCsvRow[] = {"Function,%s,%s", "Inline Function,%s,%s"};
constexpr Text kCsvTemplate = ",template %s";

constexpr Numbered kXmlBody = "<line>%d</line>\n<name>%s</name>\n<parameters>%s</parameters>\n";
constexpr Text kXmlTemplate = "<template>%s</template>\n";

constexpr Linked kHtmlName = "  <b><a href=\"%s\" target=\"_blank\">Function</a></b>: <b><font color=\"%s\">%s</font></b>\n";
constexpr Coloured kHtmlInlineName = "  <b>Inline Function</b>: <b><font color=\"%s\">%s</font></b>\n";
constexpr Coloured kHtmlParams = "  <b>Parameters</b>: <b><font color=\"%s\">%s</font></b>\n";
constexpr Coloured kHtmlTemplate = "  <b>Template</b>: <b><font color=\"%s\">%s</font></b>\n";

constexpr Coloured kHtmlRowName[] = {"  <b><font color=\"%s\">%s</font></b>", "  <b>Inline <font color=\"%s\">%s</font></b>"};
constexpr Coloured kHtmlRowParams = " <b><font color=\"%s\">%s</font></b>";
constexpr Coloured kHtmlRowTemplate = " <b>template</b> <b><font color=\"%s\">%s</font></b>";

// The head and the tail of notice mode.
constexpr Text kBeginName = "  Function: %s\n";
constexpr Coloured kHtmlBeginName = "  <b>Function</b>: <b><font color=\"%s\">%s</font></b>\n";
constexpr Coloured kHtmlBeginParams = "  <b>Parameters:</b> <b><font color=\"%s\">%s</font></b>\n";
constexpr Coloured kHtmlBeginTemplate = "  <b>Template:</b> <b><font color=\"%s\">%s</font></b>\n";

// The texts of a function as they are shown, wrapped where the form wraps.
struct Identity {
    LineText name, params, template_text;
    int is_inline;
    int has_template;
};

void Wrap(Identity &f, int width, int indent, const Globals *G) {
    AdjNameLength(G->funcname, f.name, width, indent, G);
    AdjNameLength(G->params, f.params, kParamsWidth, kParamsIndent, G);
    AdjNameLength(G->func_template_text, f.template_text, width, indent, G);
}

void ReadIdentity(Identity &f, const Globals *G) {
    const Mode mode = OutputMode(G);
    // a method with a body in its class is inline without the word
    f.is_inline = G->inline_flag || (G->class_flag && G->is_cpp && !G->list_functions);
    f.has_template = G->func_template;
    if (G->list_functions || mode == Mode::kCsv || mode == Mode::kXml) {
        CopyText(f.name, G->funcname);
        CopyText(f.params, G->params);
        CopyText(f.template_text, G->func_template_text);
    } else if (f.is_inline) {
        Wrap(f, kInlineWidth, kInlineIndent, G);
    } else {
        Wrap(f, kNameWidth, kNameIndent, G);
    }
}

void EmitText(const Identity &f) {
    PrintOnly(Mode::kText, kTextName[f.is_inline], Shown{f.name});
    PrintOnly(Mode::kText, kTextParams, Shown{f.params});
    if (f.has_template) {
        PrintOnly(Mode::kText, kTextTemplate, Shown{f.template_text});
    }
}

void EmitTextRow(const Identity &f) {
    if (f.has_template) {
        PrintOnly(Mode::kText, kTextTemplateRow[f.is_inline], Shown{f.template_text}, Shown{f.name}, Shown{f.params});
    } else {
        PrintOnly(Mode::kText, kTextRow[f.is_inline], Shown{f.name}, Shown{f.params});
    }
}

void EmitCsvRow(const Identity &f) {
    PrintOnly(Mode::kCsv, kCsvRow[f.is_inline], Shown{f.name}, ShownList{f.params});
    if (f.has_template) {
        PrintOnly(Mode::kCsv, kCsvTemplate, Shown{f.template_text});
    }
    Put("\n");
}

void EmitXml(const Identity &f, const Globals *G) {
    if (!f.is_inline && !f.has_template && !G->list_functions) {
        return;
    }
    Put("<function>\n");
    if (f.is_inline) {
        Put("<state>inline</state>\n");
    }
    PrintOnly(Mode::kXml, kXmlBody, G->file_line_no, Shown{f.name}, Shown{f.params});
    if (f.has_template) {
        PrintOnly(Mode::kXml, kXmlTemplate, Shown{f.template_text});
    }
    Put("</function>\n");
}

void EmitHtml(const Identity &f, const Globals *G) {
    if (f.is_inline) {
        PrintOnly(Mode::kHtml, kHtmlInlineName, Shown{G->html_function_color}, Shown{f.name});
    } else {
        std::string link;
        url_encode(HTMLPathFile(G->file_name, G), link);
        PrintOnly(Mode::kHtml, kHtmlName, Shown{link.c_str()}, Shown{G->html_function_color}, Shown{f.name});
    }
    PrintOnly(Mode::kHtml, kHtmlParams, Shown{G->html_function_parameter_color}, Shown{f.params});
    if (f.has_template) {
        PrintOnly(Mode::kHtml, kHtmlTemplate, Shown{G->html_template_color}, Shown{f.template_text});
    }
}

void EmitHtmlRow(const Identity &f, const Globals *G) {
    PrintOnly(Mode::kHtml, kHtmlRowName[f.is_inline], Shown{G->html_function_color}, Shown{f.name});
    PrintOnly(Mode::kHtml, kHtmlRowParams, Shown{G->html_function_parameter_color}, Shown{f.params});
    if (f.has_template) {
        PrintOnly(Mode::kHtml, kHtmlRowTemplate, Shown{G->html_template_color}, Shown{f.template_text});
    }
    Put("\n");
}

void EmitLines(const Globals *G) {
    Identity f;
    ReadIdentity(f, G);
    switch (OutputMode(G)) {
    case Mode::kText: G->list_functions ? EmitTextRow(f) : EmitText(f); break;
    case Mode::kHtml: G->list_functions ? EmitHtmlRow(f, G) : EmitHtml(f, G); break;
    case Mode::kXml: EmitXml(f, G); break;
    case Mode::kCsv:
        if (G->list_functions) {
            EmitCsvRow(f);
        }
        break;
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
    Wrap(f, kNameWidth, kNameIndent, G);
    const Mode mode = FreeTextMode(G);
    if (mode == Mode::kHtml) {
        PrintOnly(mode, kHtmlBeginName, Shown{G->html_function_color}, Shown{f.name});
        PrintOnly(mode, kHtmlBeginParams, Shown{G->html_function_parameter_color}, Shown{f.params});
        if (G->func_template) {
            PrintOnly(mode, kHtmlBeginTemplate, Shown{G->html_template_color}, Shown{f.template_text});
        }
        return;
    }
    PrintOnly(mode, kBeginName, Shown{f.name});
    PrintOnly(mode, kTextParams, Shown{f.params});
    if (G->func_template) {
        PrintOnly(mode, kTextTemplate, Shown{f.template_text});
    }
}

void FunctionEnd(Globals *G) {
    if (G->totals_only) {
        return;
    }
    const Mode mode = FreeTextMode(G);
    LineText name;
    AdjNameLength(G->funcname, name, kNameWidth, kNameIndent, G);
    Put("\n");
    if (mode == Mode::kHtml) {
        PrintOnly(mode, kHtmlBeginName, Shown{G->html_function_color}, Shown{name});
    } else {
        PrintOnly(mode, kBeginName, Shown{name});
    }
}

void EmitFunction(Globals *G) {
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
    const int cyclo = GetCycloComplexity(G);
    if (G->csv_function_lines) {
        std::replace(G->params, G->params + strlen(G->params), ',', ';');
        CSV_Function_Line(gTLYOUT, G->funcname, G->params, 0, lines.loc, lines.eloc, lines.lloc, lines.comments, lines.blanks,
                          lines.lines, 0, 1, G->local_params, G->local_return, cyclo, 0, 0, G);
        return;
    }
    if (G->totals_only || G->comment_doc_mode) {
        return;
    }
    ComplexDetails(cyclo, G);
    ComplexLine(G->local_params, G->local_return, cyclo, G);
    LOCLine(lines.loc, lines.eloc, lines.lloc, lines.comments, lines.lines, G);
    FPLOCLine(nullptr, lines.loc, lines.eloc, lines.lloc, G);
    if (G->quality_notices) {
        ShowStateLine(G->file_line_no, "Function End", G);
    } else {
        Put("\n");
    }
}
