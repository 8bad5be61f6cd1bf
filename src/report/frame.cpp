// Texts are centred by the width that a reader sees, so a text is measured before it is encoded.
#include "report/frame.h"

#include <string>

#include "report/forms.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

int CenterBlanks(size_t length) {
    const size_t half = length / 2;
    return half <= 36 ? static_cast<int>(38 - half) : 1;
}

void Center(const char *text) {
    Center_HTML(text, text);
}

void Center_HTML(const char *plain, const char *marked) {
    Put("%*s%s\n", CenterBlanks(strlen(plain)), "", marked);
}

void DashRule() {
    Put("\n  %s%s\n\n", kDashes, kDashes);
}

void UnderscoreRule() {
    Put("  %s%s\n\n", kUnderscores, kUnderscores);
}

void CenteredTitle(const char *title, const Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kText) {
        Center(title);
    } else if (mode == Mode::kHtml) {
        std::string escaped;
        HTML_esc(title, escaped);
        PrintOnly(mode, "<b><font color=\"%s\">", Shown{G->html_header_color});
        Center_HTML(title, escaped.c_str());
        Put("</font></b>");
    }
}

void ShowSortMethod(const Globals *G) {
    static const char *const kNames[] = {
        "Name",      "LOC",      "eLOC", "lLOC", "Cyclomatic Complexity", "Work State", "Function Count", "Quality Notice Count",
        "File Date", "File Size"};
    if (G->sort_key < 1 || G->sort_key > 10) {
        return;
    }
    const char *const name = kNames[G->sort_key - 1];
    const char *const direction = G->sort_descending ? " - Descending" : " - Ascending";
    const Mode mode = OutputMode(G);
    char plain[100];
    switch (mode) {
    case Mode::kHtml: {
        char marked[200];
        std::string color;
        HTML_esc(G->html_header_color, color);
        FormatText(plain, "Sorted By: %s - %s", name, direction);
        FormatText(marked, "<b><font color=\"%s\">Sorted By %s %s</font></b>", color.c_str(), name, direction);
        Put("\n");
        Center_HTML(plain, marked);
        break;
    }
    case Mode::kXml:
        Put("<sort_mode>%s</sort_mode>\n<sort_direction>%s</sort_direction>\n", name, direction + 3); // without " - "
        break;
    case Mode::kCsv: Put("Sorted By: %s %s\n", name, direction); break;
    case Mode::kText:
        FormatText(plain, "Sorted By: %s %s", name, direction);
        Center(plain);
        break;
    }
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
