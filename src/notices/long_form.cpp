// Heads and texts of the long forms. What a notice says is in the catalogue and with the raisers.
#include "notices/long_form.h"

#include <cstdlib>
#include <string>

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
            PrintOnly(Mode::kHtml, "<b>Line %d:</b>\n", line);
        } else {
            PrintOnly<Shown, int>(Mode::kHtml, "<b>File %s: Line %d</b>\n", file, line);
        }
        return;
    case kOwnRow: PrintOnly(Mode::kHtml, "<b>Line %d</b>\n", line); return;
    case kComma:
    case kColon:
        if (!(row.traits & kHtmlNoLine)) {
            PrintOnly(Mode::kHtml, "<b>Line %d</b>: ", line);
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
    const Mode mode = OutputMode(G);
    switch (row.place) {
    case kFileRow:
        PrintOnly<Shown, int, int>(mode, "\n    File %s: Line %d: Notice #%d\n", Shown{G->file_name}, line, row.number);
        return;
    case kOwnRow: PrintOnly(mode, "\n    Line %d: Notice #%d\n", line, row.number); return;
    default:
        PrintOnly<const char *, int, int>(mode, "\n    %sLine %d: Notice #%d: ", row.traits & kFiveBlanks ? " " : "", line,
                                          row.number);
        return;
    }
}

void NoticeFirstHead(const NoticeRow &row, int line, const Globals *G) {
    const Mode mode = OutputMode(G);
    switch (row.place) {
    case kNone: PrintOnly(mode, "\n    Notice #%d: ", row.number); return;
    case kComma: PrintOnly(mode, "\n    Notice #%d: Line %d, ", row.number, line); return;
    case kColon: PrintOnly(mode, "\n    Notice #%d: Line %d:%s", row.number, line, row.traits & kTwoBlanks ? "  " : " "); return;
    case kOwnRow: PrintOnly(mode, "\n    Notice #%d: Line %d\n", row.number, line); return;
    case kFileRow:
        PrintOnly<int, Shown, int>(mode, "\n    Notice #%d: File %s: Line %d\n", row.number, Shown{G->file_name}, line);
        return;
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

static std::string Mark(const char *text, bool bold) {
    std::string marked;
    bool open = false;
    for (const char *p = text; *p; ++p) {
        if (*p != '`') {
            marked += *p;
            continue;
        }
        open = !open;
        if (bold) {
            marked += open ? "<b>" : "</b>";
        }
    }
    return marked;
}

const char *MarkedText(int n, const char *text, const char *html, Mode mode, Globals *G) {
    const bool bold = mode == Mode::kHtml;
    const char *source = bold && html && *html ? html : text;
    KeptNoticeText &kept = G->marked_texts[Notice(n).number];
    if (kept.source == source && kept.mode == static_cast<int>(mode) && kept.marked) {
        return kept.marked;
    }
    std::string marked = Mark(source, bold);
    if (mode == Mode::kXml) {
        std::string encoded;
        xml_encode(marked.c_str(), encoded);
        marked = encoded;
    }
    free(kept.marked);
    kept = {source, static_cast<int>(mode), CopyOnHeap(marked.c_str())};
    return kept.marked ? kept.marked : source;
}

void WriteText(int n, int line, const char *text, const char *html, Globals *G) {
    WriteHead(n, line, G);
    fputs_unlocked(MarkedText(n, text, html, OutputMode(G), G), gTLYOUT); // no values, so no %
}

void WriteRowText(int n, int line, Globals *G) {
    const NoticeRow &row = Notice(n);
    WriteText(n, line, row.body ? row.body : "", row.html, G);
}

void FreeMarkedTexts(Globals *G) {
    for (KeptNoticeText &kept : G->marked_texts) {
        free(kept.marked);
        kept = {};
    }
}
