// Heads and texts of the long forms. What a notice says is in the catalogue and with the raisers.
#include "notices/long_form.h"

#include <cstdlib>
#include <string>

#include "notices/catalogue.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"
#include "run/notice_numbers.h"

namespace {

// HTML shows the place in bold, and for some notices only part of it.
void HtmlPlace(const NoticeRow &row, int line, const Globals *G) {
    const Shown file{G->file_name};
    switch (row.place) {
    case kNone: return;
    case kFileRow:
        if (row.traits & kHtmlNoLine) {
            PrintOnly<Shown>(Mode::kHtml, "<b>File %s</b>\n", file);
        } else if (row.number == kNoticeMultipleInheritance) {
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
    PrintHtml<const char *, int>(
        G, "\n    <font color=\"%{notice}\"><b>%s</b></font> #%d: ", row.traits & kHtmlLoud ? "NOTICE" : "Notice", row.number);
    HtmlPlace(row, line, G);
}

using HeadText = char[64];

// The heads of the other modes, as formats.
HeadValues LineFirstHead(const NoticeRow &row, HeadText &head) {
    switch (row.place) {
    case kFileRow: FormatText(head, "\n    File %%s: Line %%d: Notice #%d\n", row.number); return kHeadFileLine;
    case kOwnRow: FormatText(head, "\n    Line %%d: Notice #%d\n", row.number); return kHeadLine;
    default: FormatText(head, "\n    %sLine %%d: Notice #%d: ", row.traits & kFiveBlanks ? " " : "", row.number); return kHeadLine;
    }
}

HeadValues NoticeFirstHead(const NoticeRow &row, HeadText &head) {
    switch (row.place) {
    case kNone: FormatText(head, "\n    Notice #%d: ", row.number); return kNoHead;
    case kComma: FormatText(head, "\n    Notice #%d: Line %%d, ", row.number); return kHeadLine;
    case kColon:
        FormatText(head, "\n    Notice #%d: Line %%d:%s", row.number, row.traits & kTwoBlanks ? "  " : " ");
        return kHeadLine;
    case kOwnRow: FormatText(head, "\n    Notice #%d: Line %%d\n", row.number); return kHeadLine;
    case kFileRow: FormatText(head, "\n    Notice #%d: File %%s: Line %%d\n", row.number); return kHeadFileLine;
    }
    return kNoHead;
}

std::string Mark(const char *text, bool bold) {
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

} // namespace

LongFormat BeginLong(int n, int line, const char *text, const char *html, Mode mode, Globals *G) {
    const NoticeRow &row = Notice(n);
    const bool bold = mode == Mode::kHtml;
    const int line_first = !bold && G->reorder_notice_line && row.traits & kLineFirst;
    const char *source = bold && html && *html ? html : text;
    if (bold) {
        HtmlHead(row, line, G);
    }
    KeptNoticeText &kept = G->marked_texts[row.number];
    if (kept.source == source && kept.mode == static_cast<int>(mode) && kept.line_first == line_first && kept.format) {
        return {kept.format, kept.head};
    }
    HeadText head = "";
    const HeadValues values = bold ? kNoHead : line_first ? LineFirstHead(row, head) : NoticeFirstHead(row, head);
    std::string whole = Mark(source, bold);
    if (mode == Mode::kXml) {
        std::string encoded;
        xml_encode(whole.c_str(), encoded);
        whole = encoded;
    }
    whole.insert(0, head);
    free(kept.format);
    kept = {source, static_cast<int>(mode), line_first, values, CopyOnHeap(whole.c_str())};
    return kept.format ? LongFormat{kept.format, values} : LongFormat{source, kNoHead};
}

Shown NoticeFile(const Globals *G) {
    return {G->file_name};
}

void WriteText(int n, int line, const char *text, const char *html, Globals *G) {
    LongText<> body;
    body.text.text = text;
    body.html.text = html;
    WriteLong(n, line, G, body);
}

void WriteRowText(int n, int line, Globals *G) {
    const NoticeRow &row = Notice(n);
    WriteText(n, line, row.body ? row.body : "", row.html, G);
}

void FreeMarkedTexts(Globals *G) {
    for (KeptNoticeText &kept : G->marked_texts) {
        free(kept.format);
        kept = {};
    }
}
