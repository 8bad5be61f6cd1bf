// What a class writes: in notice mode a head where it begins and a tail where it ends, in all other modes a head ahead of its
// figures. A class, struct or interface has a label; nested ones have their own.
#include "analysis/class.h"
#include "notices/raise.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "report/state_line.h"
#include "run/globals.h"

namespace {

constexpr const char *kLabels[2][3] = {
    {"Class", "Struct", "Interface"},
    {"Nested Class", "Nested Struct", "Nested Interface"},
};

const char *LabelInHand(const Globals *G) {
    return kLabels[G->class_index > 0][G->interface_class ? 2 : G->struct_flag != 0];
}

// The label and the name where a class begins and where it ends in notice mode, which have no forms of their own in CSV and XML.
constexpr Forms<Color, const char *, Shown> kBeginName{.text = "  %s: %s\n",
                                                       .html = "  <b>%s</b>: <b><font color=\"%{color}\">%s</font></b>\n",
                                                       .csv = "  %s: %s\n",
                                                       .xml = "  %s: %s\n"};
constexpr Forms<Color, const char *, Shown> kBeginInterface{.text = kBeginName.text,
                                                            .html = "  <b>%s</b>: <b><font color=\"%{color}\">%-46s</font></b>\n",
                                                            .csv = kBeginName.csv,
                                                            .xml = kBeginName.xml};
constexpr Forms<Shown> kBeginTemplate{.text = "  Template: %s\n",
                                      .html = "  <b>Template</b>: <b><font color=\"%{template}\">%s</font></b>\n",
                                      .csv = "  Template: %s\n",
                                      .xml = "  Template: %s\n"};

// In all other modes.
constexpr Forms<LinkTo, const char *, Shown> kName{
    .text = "  %s: %s\n",
    .html = "  <b><a href=\"%{href}\" target=\"_blank\">%s</a></b>: <b><font color=\"%{class}\">%s</font></b>\n",
    .csv = "%s,%s\n",
    .xml = "  %s: %s\n"};
constexpr Forms<Shown> kTemplate{.text = "  Template: %s\n",
                                 .html = "  <b>Template:</b> <b><font color=\"%{template}\">%s</font></b>\n",
                                 .csv = "Template,%s\n",
                                 .xml = "  Template: %s\n"};
constexpr Forms<ShownList> kInheritance{.text = "  Inheritance: %s\n",
                                        .html = "  <b>Inheritance</b>: <b><font color=\"%{inheritance}\">%s</font></b>\n",
                                        .csv = "Inheritance,%s\n",
                                        .xml = "  Inheritance: %s\n"};

constexpr Color kClassColor{&HtmlSettings::html_class_color}, kStructColor{&HtmlSettings::html_struct_color};

void PutTemplate(const Forms<Shown> &forms, const Globals *G) {
    if (G->template_done && !G->interface_class) {
        Print(G, forms, Shown{G->class_template});
    }
}

void ForgetTemplate(Globals *G) {
    ClearText(G->class_template);
    G->template_done = 0;
}

} // namespace

void ClassBegin(Globals *G) {
    Rtrim(G->classname);
    if (!G->totals_only) {
        const char *const label = LabelInHand(G);
        char rule[32];
        LineText wrapped;
        FormatText(rule, "%s Begin", label);
        AdjNameLength(G->classname, wrapped, Behind(label), G);
        ShowStateLine(G->file_line_no, rule, G);
        const bool plain_struct = G->struct_flag && !G->interface_class;
        Print(G, G->interface_class ? kBeginInterface : kBeginName, plain_struct ? kStructColor : kClassColor, label,
              Shown{wrapped});
        PutTemplate(kBeginTemplate, G);
    }
    ForgetTemplate(G);
}

void ClassEnd(Globals *G) {
    Rtrim(G->classname);
    const char *const label = LabelInHand(G);
    LineText wrapped;
    AdjNameLength(G->classname, wrapped, Behind(label), G);
    Put("\n");
    Print(G, kBeginName, kClassColor, label, Shown{wrapped});
}

void EmitClass(Globals *G) {
    Rtrim(G->classname);
    if (!G->totals_only) {
        const char *const label = LabelInHand(G);
        LineText wrapped;
        AdjNameLength(G->classname, wrapped, Behind(label), G);
        if (G->comment_doc_mode) {
            Put("\n");
        }
        Print(G, kName, LinkTo{G->file_name}, label, Shown{OutputMode(G) == Mode::kCsv ? G->classname : wrapped});
        PutTemplate(kTemplate, G);
        if (G->comment_doc_mode) {
            Put("  %s%s\n", kDashes, kDashes);
        }
    }
    ForgetTemplate(G);
}

void EmitInheritanceLine(Globals *G) {
    if (!G->inherit_flag) {
        return;
    }
    if (!G->totals_only && G->object_metrics) {
        LineText wrapped;
        Rtrim(G->inherit_line); // an interface's keeps the end of its line
        AdjNameLength(G->inherit_line, wrapped, Behind("Inheritance"), G);
        Print(G, kInheritance, ShownList{OutputMode(G) == Mode::kCsv ? G->inherit_line : wrapped});
    }
    if (G->quality_notices && CheckMultipleInheritance(G->inherit_line)) {
        EmitMultipleInheritanceNotice(G->classname, G);
    }
}
