// The manual of -hf: its sections and one entry per switch, laid out.
#include <cstring>

#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "report/project/report_head.h"
#include "run/globals.h"
#include "tools/help.h"
#include "tools/manual.h"

namespace {

// Prints a text line by line behind the report's margin.
void PrintText(Mode mode, const char *text) {
    while (*text) {
        const size_t length = strcspn(text, "\n");
        LineText line;
        CopyPart(line, text, length);
        PrintOnly<const char *, Shown>(mode, "%s%s\n", length > 0 ? "  " : "", Shown{line});
        text += length + (text[length] == '\n');
    }
}

void ShowEntry(Mode mode, const SwitchEntry &entry) {
    PrintOnly(mode, "\n%s", Shown{entry.heading});
    Put("  %s%s\n", kDashes, kDashes);
    PrintOnly(mode, "  -%c\n\n", *entry.letters);
    PrintText(mode, entry.text);
}

} // namespace

void ShowHelp(Globals *G) {
    ShowHeader(G);
    ShowFMCHeader(G);
    const Mode mode = ProseMode(G);
    for (const ManualSection &section : kManualSections) {
        Put("\n");
        Center(section.title);
        PrintText(mode, section.text);
    }
    for (const SwitchEntry &entry : kSwitchEntries) {
        ShowEntry(mode, entry);
    }
    Put("\n");
}
