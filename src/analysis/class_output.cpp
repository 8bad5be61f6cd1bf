// What a class writes: in notice mode a head where it begins and a tail where it ends, in all other modes a head ahead of its
// figures. A class, struct or interface has a label, and a width at which its name is broken; nested ones have their own.
#include "analysis/class.h"
#include "notices/raise.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "report/state_line.h"
#include "run/encode.h"
#include "run/globals.h"

namespace {

struct Kind {
    const char *label;
    const char *begin; // of the rule where it begins
    int width, indent;
};

// clang-format off
constexpr Kind kKinds[2][3] = {
    // label             rule                       width  indent
    {{"Class",            "Class Begin",            65,    9},
     {"Struct",           "Struct Begin",           64,    10},
     {"Interface",        "Interface Begin",        61,    13}},
    {{"Nested Class",     "Nested Class Begin",     58,    16},
     {"Nested Struct",    "Nested Struct Begin",    57,    17},
     {"Nested Interface", "Nested Interface Begin", 54,    20}},
};
// clang-format on

constexpr int kBasesWidth = 59, kBasesIndent = 15;

const Kind &KindInHand(const Globals *G) {
    return kKinds[G->class_index > 0][G->interface_class ? 2 : G->struct_flag != 0];
}

int HasTemplate(const Globals *G) {
    return G->template_done && !G->interface_class;
}

void ForgetTemplate(Globals *G) {
    ClearText(G->class_template);
    G->template_done = 0;
}

// CSV and XML have no head of their own in notice mode and show the plain one.
void PutPlainHead(Mode mode, const Kind &kind, const char *wrapped, const Globals *G) {
    PrintOnly(mode, "  %s: %s\n", kind.label, Shown{wrapped});
    if (HasTemplate(G)) {
        PrintOnly(mode, "  Template: %s\n", Shown{G->class_template});
    }
}

void PutMarkedHead(const Kind &kind, const char *wrapped, const Globals *G) {
    const Mode mode = Mode::kHtml;
    if (G->interface_class) {
        PrintOnly(mode, "  <b>%s</b>: <b><font color=\"%s\">%-46s</font></b>\n", kind.label, Shown{G->html_class_color},
                  Shown{wrapped});
        return;
    }
    PrintOnly(mode, "  <b>%s</b>: <b><font color=\"%s\">%s</font></b>\n", kind.label,
              Shown{G->struct_flag ? G->html_struct_color : G->html_class_color}, Shown{wrapped});
    if (HasTemplate(G)) {
        PrintOnly(mode, "  <b>Template</b>: <b><font color=\"%s\">%s</font></b>\n", Shown{G->html_template_color},
                  Shown{G->class_template});
    }
}

void PutLinkedHead(const Kind &kind, const char *wrapped, const Globals *G) {
    const Mode mode = Mode::kHtml;
    std::string link;
    url_encode(HTMLPathFile(G->file_name, G), link);
    PrintOnly(mode, "  <b><a href=\"%s\" target=\"_blank\">%s</a></b>: <b><font color=\"%s\">%s</font></b>\n", Shown{link.c_str()},
              kind.label, Shown{G->html_class_color}, Shown{wrapped});
    if (HasTemplate(G)) {
        PrintOnly(mode, "  <b>Template:</b> <b><font color=\"%s\">%s</font></b>\n", Shown{G->html_template_color},
                  Shown{G->class_template});
    }
}

void PutRow(const Kind &kind, const Globals *G) {
    PrintOnly(Mode::kCsv, "%s,%s\n", kind.label, Shown{G->classname});
    if (HasTemplate(G)) {
        PrintOnly(Mode::kCsv, "Template,%s\n", Shown{G->class_template});
    }
}

} // namespace

void ClassBegin(Globals *G) {
    Rtrim(G->classname);
    if (!G->totals_only) {
        const Kind &kind = KindInHand(G);
        LineText wrapped;
        AdjNameLength(G->classname, wrapped, kind.width, kind.indent, G);
        ShowStateLine(G->file_line_no, kind.begin, G);
        if (OutputMode(G) == Mode::kHtml) {
            PutMarkedHead(kind, wrapped, G);
        } else {
            PutPlainHead(OutputMode(G), kind, wrapped, G);
        }
    }
    ForgetTemplate(G);
}

void ClassEnd(Globals *G) {
    Rtrim(G->classname);
    if (G->totals_only) {
        return;
    }
    const Mode mode = OutputMode(G);
    const Kind &kind = KindInHand(G);
    LineText wrapped;
    AdjNameLength(G->classname, wrapped, kind.width, kind.indent, G);
    if (mode == Mode::kHtml) {
        PrintOnly(mode, "\n  <b>%s</b>: <b><font color=\"%s\">%s</font></b>\n", kind.label, Shown{G->html_class_color},
                  Shown{wrapped});
    } else {
        PrintOnly(mode, "\n  %s: %s\n", kind.label, Shown{wrapped});
    }
}

void EmitClass(Globals *G) {
    Rtrim(G->classname);
    if (!G->totals_only) {
        const Mode mode = OutputMode(G);
        const Kind &kind = KindInHand(G);
        LineText wrapped;
        AdjNameLength(G->classname, wrapped, kind.width, kind.indent, G);
        if (G->comment_doc_mode) {
            Put("\n");
        }
        switch (mode) {
        case Mode::kHtml: PutLinkedHead(kind, wrapped, G); break;
        case Mode::kCsv: PutRow(kind, G); break;
        case Mode::kText:
        case Mode::kXml: PutPlainHead(mode, kind, wrapped, G); break;
        }
        if (G->comment_doc_mode) {
            Put("  %s%s\n", kDashes, kDashes);
        }
        if (G->quality_notices) {
            Put("\n");
        }
    }
    ForgetTemplate(G);
}

void EmitInheritanceLine(Globals *G) {
    if (!G->inherit_flag) {
        return;
    }
    if (!G->totals_only && G->object_metrics) {
        const Mode mode = OutputMode(G);
        LineText wrapped;
        Rtrim(G->inherit_line); // an interface's keeps the end of its line
        AdjNameLength(G->inherit_line, wrapped, kBasesWidth, kBasesIndent, G);
        switch (mode) {
        case Mode::kHtml:
            PrintOnly(mode, "  <b>Inheritance</b>: <b><font color=\"%s\">%s</font></b>\n", Shown{G->html_inheritance_color},
                      Shown{wrapped});
            break;
        case Mode::kCsv: PrintOnly(mode, "Inheritance,%s\n", ShownList{G->inherit_line}); break;
        case Mode::kText:
        case Mode::kXml: PrintOnly(mode, "  Inheritance: %s\n", Shown{wrapped}); break;
        }
    }
    if (G->quality_notices && CheckMultipleInheritance(G->inherit_line)) {
        EmitMultipleInheritanceNotice(G->classname, G);
    }
}
