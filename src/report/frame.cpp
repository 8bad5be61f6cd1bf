// Texts are centred by the width that a reader sees, so a text is measured before it is encoded.
#include "report/frame.h"

#include <string>

#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

const char *CenterBlanks(const char *text) {
    static constexpr char kBlanks[] = "                                      ";
    static_assert(sizeof kBlanks - 1 == 38);
    const size_t half = strlen(text) / 2;
    return kBlanks + (half <= 36 ? half : 37);
}

void Center(const char *text) {
    Center_HTML(text, text);
}

void Center_HTML(const char *plain, const char *marked) {
    Put("%s%s\n", CenterBlanks(plain), marked);
}

void DashRule() {
    Put("\n  %s%s\n\n", kDashes, kDashes);
}

void UnderscoreRule() {
    Put("  %s%s\n\n", kUnderscores, kUnderscores);
}

void CenteredTitle(const char *title, const Globals *G) {
    static constexpr Forms<const char *, Shown> kTitle{.text = "%s%s\n", .html = "<b><font color=\"%{header}\">%s%s\n</font></b>"};
    Print(G, kTitle, CenterBlanks(title), Shown{title});
}

constexpr Forms<const char *, const char *, const char *> kSortLine{
    .text = "%sSorted By: %s  - %s\n", .html = "\n%s<b><font color=\"%{header}\">Sorted By %s  - %s</font></b>\n"};
constexpr Forms<const char *, const char *> kSortFields{.csv = "Sorted By: %s  - %s\n",
                                                        .xml = "<sort_mode>%s</sort_mode>\n<sort_direction>%s</sort_direction>\n"};

void ShowSortMethod(const Globals *G) {
    static const char *const kNames[] = {
        "Name",      "LOC",      "eLOC", "lLOC", "Cyclomatic Complexity", "Work State", "Function Count", "Quality Notice Count",
        "File Date", "File Size"};
    if (G->sort_key < 1 || G->sort_key > 10) {
        return;
    }
    const char *const name = kNames[G->sort_key - 1];
    const char *const direction = G->sort_descending ? "Descending" : "Ascending";
    char plain[100]; // in HTML it is centred as if it had a second hyphen
    FormatText(plain, OutputMode(G) == Mode::kHtml ? "Sorted By: %s -  - %s" : "Sorted By: %s  - %s", name, direction);
    Print(G, kSortLine, CenterBlanks(plain), name, direction);
    Print(G, kSortFields, name, direction);
}

void BeginBlock(Globals *G) {
    Put("\n");
    G->heading_open = 0;
}

void EndHeading(Globals *G) {
    if (G->heading_open) {
        BeginBlock(G);
    }
}

void CloseDocument(Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kHtml:
        if (G->report_header_active) {
            Put("%s\n", G->header_html);
        }
        Put("</pre></body></html>");
        break;
    case Mode::kXml:
        if (G->report_header_active) {
            PrintOnly(Mode::kXml, "<banner>%s</banner>\n", Shown{G->header_text});
        }
        Put("</vxtly>\n");
        G->root_open = 0;
        break;
    case Mode::kCsv:
        if (G->report_header_active) {
            Put("\n%s\n", G->header_text);
        }
        break;
    case Mode::kText:
        if (G->report_header_active) {
            Center(G->header_text);
        }
        break;
    }
    G->document_closed = 1;
}
