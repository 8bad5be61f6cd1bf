// Heads and texts of the long forms. What a notice says is in the catalogue and with the raisers.
#include "notices/long_form.h"

#include "notices/catalogue.h"
#include "report/names.h"
#include "run/globals.h"

namespace {

// HTML shows the place in bold, and for some notices only part of it.
void HtmlPlace(const NoticeRow &row, int line, const Globals *G) {
    const Shown file{G->file_name};
    switch (row.place) {
    case kNone: return;
    case kFileRow:
        if (row.traits & kHtmlNoLine) {
            PrintOnly<Shown>(Mode::kHtml, "<b>File %s</b>\n", file);
        } else if (row.number == 42) {
            Put("<b>Line %d:</b>\n", line);
        } else {
            PrintOnly<Shown, int>(Mode::kHtml, "<b>File %s: Line %d</b>\n", file, line);
        }
        return;
    case kOwnRow: Put("<b>Line %d</b>\n", line); return;
    case kComma:
    case kColon:
        if (!(row.traits & kHtmlNoLine)) {
            Put("<b>Line %d</b>: ", line);
        }
        return;
    }
}

void HtmlHead(const NoticeRow &row, int line, const Globals *G) {
    PrintOnly<Shown, const char *, int>(Mode::kHtml, "\n    <font color=\"%s\"><b>%s</b></font> #%d: ", Shown{G->html_notice_color},
                                        row.traits & kHtmlLoud ? "NOTICE" : "Notice", row.number);
    HtmlPlace(row, line, G);
}

void LineFirstHead(const NoticeRow &row, int line, const Globals *G) {
    switch (row.place) {
    case kFileRow:
        PrintOnly<Shown, int, int>(OutputMode(G), "\n    File %s: Line %d: Notice #%d\n", Shown{G->file_name}, line, row.number);
        return;
    case kOwnRow: Put("\n    Line %d: Notice #%d\n", line, row.number); return;
    default: Put("\n%sLine %d: Notice #%d: ", row.traits & kFiveBlanks ? "     " : "    ", line, row.number); return;
    }
}

void NoticeFirstHead(const NoticeRow &row, int line, const Globals *G) {
    Put("\n    Notice #%d: ", row.number);
    switch (row.place) {
    case kNone: return;
    case kComma: Put("Line %d, ", line); return;
    case kColon: Put("Line %d:%s", line, row.traits & kTwoBlanks ? "  " : " "); return;
    case kOwnRow: Put("Line %d\n", line); return;
    case kFileRow: PrintOnly<Shown, int>(OutputMode(G), "File %s: Line %d\n", Shown{G->file_name}, line); return;
    }
}

} // namespace

void WriteHead(int n, int line, const Globals *G) {
    const NoticeRow &row = Notice(n);
    if (OutputMode(G) == Mode::kHtml) {
        HtmlHead(row, line, G);
    } else if (G->reorder_notice_line && row.traits & kLineFirst) {
        LineFirstHead(row, line, G);
    } else {
        NoticeFirstHead(row, line, G);
    }
}

std::string MarkedText(const char *text, const char *html, Mode mode) {
    const bool bold = mode == Mode::kHtml;
    std::string marked;
    bool open = false;
    for (const char *p = bold && html && *html ? html : text; *p; ++p) {
        if (*p != '`') {
            marked += *p;
            continue;
        }
        open = !open;
        if (bold) {
            marked += open ? "<b>" : "</b>";
        }
    }
    if (mode != Mode::kXml) {
        return marked;
    }
    std::string encoded;
    xml_encode(marked.c_str(), encoded);
    return encoded;
}

void WriteText(int n, int line, const char *text, const char *html, const Globals *G) {
    WriteHead(n, line, G);
    fputs(MarkedText(text, html, OutputMode(G)).c_str(), gTLYOUT);
}

void WriteRowText(int n, int line, const Globals *G) {
    const NoticeRow &row = Notice(n);
    WriteText(n, line, row.body ? row.body : "", row.html, G);
}
