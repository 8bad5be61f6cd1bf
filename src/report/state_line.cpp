// Rules between the parts of a listing, and the lines that name a macro.
#include "report/state_line.h"

#include <algorithm>

#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/globals.h"

static constexpr int kRuleLength = 72;
static constexpr int kHalfRule = 35;

// A margin, dashes, text and line, dashes.
static constexpr Forms<const char *, const char *, const char *, int, const char *> kStateLine{"%s  %s %s Line: %d %s\n"};

void ShowStateLine(int line, const char *text, const Globals *G) {
    int label = static_cast<int>(strlen(text) + strlen("  Line: 1 "));
    for (int rest = line; rest > 9; rest /= 10) {
        ++label;
    }
    const int ahead = 1 + std::max(0, kHalfRule - label / 2);
    const int behind = std::max(0, kRuleLength - ahead - label);
    const char *end = kDashes + strlen(kDashes);
    PrintAs(Mode::kText, G, kStateLine, strstr(text, "End") ? "" : "\n", end - ahead, text, line, end - behind);
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
