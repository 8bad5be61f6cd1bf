// Rules between the parts of a listing, and the lines that name a macro.
#include "report/state_line.h"

#include <algorithm>

#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/globals.h"

static constexpr int kRuleLength = 72;
static constexpr int kHalfRule = 35;

void ShowStateLine(int line, const char *text, const Globals *) {
    char rule[kRuleLength + 1];
    FormatText(rule, " %s Line: %d ", text, line);
    const int label = static_cast<int>(strlen(rule));
    const int ahead = 1 + std::max(0, kHalfRule - label / 2);
    const int behind = std::max(0, kRuleLength - ahead - label);
    const char *end = kDashes + strlen(kDashes);
    PrintOnly<const char *, const char *, const char *, const char *>(Mode::kText, "%s  %s%s%s\n", strstr(text, "End") ? "" : "\n",
                                                                      end - ahead, rule, end - behind);
}

// margin: blank lines ahead.
static void ShowMacroName(const char *margin, const char *name, const Globals *G) {
    static constexpr Forms<const char *, Shown> kMacro{.text = "%s  Macro: %s\n",
                                                       .html = "%s  <b>Macro</b>: <b><font color=\"%{macro}\">%s</font></b>\n",
                                                       .csv = "%s  Macro: %s\n",
                                                       .xml = "%s  Macro: %s\n"};
    Print(G, kMacro, margin, Shown{name});
}

void MacroBegin(const char *name, Globals *G) {
    if (G->totals_only) {
        return;
    }
    if (G->quality_notices) {
        ShowStateLine(G->file_line_no, "Macro Begin", G);
    }
    ShowMacroName("", name, G);
    if (G->quality_notices) {
        Put("\n");
        CenteredTitle("~~ Macro Quality Notices ~~", G);
    }
}

void MacroEnd(const char *name, Globals *G) {
    if (G->totals_only) {
        return;
    }
    ShowMacroName("\n", name, G);
    if (G->quality_notices) {
        ShowStateLine(G->file_line_no, "Macro End", G);
    }
}

void EmitMacro(const char *name, Globals *G) {
    if (!G->totals_only) {
        ShowMacroName("", name, G);
        Put("\n");
    }
}
