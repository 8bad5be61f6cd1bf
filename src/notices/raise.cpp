// The protocol of the notices: counting, the short forms, the list of notices.
#include "notices/raise.h"

#include "notices/catalogue.h"
#include "notices/long_form.h"
#include "run/globals.h"

int CountNotice(int n, Globals *G) {
    if (n < 1 || n > kNotices || !G->notice_enabled[n] || G->skip_quality_active) {
        return 0;
    }
    ++G->notice_count;
    ++G->notice_cnt[n];
    return 1;
}

int PrintsInPlace(const Globals *G) {
    return G->quality_notices && !G->totals_only;
}

int PrintNotice(int n, int in_place, Globals *G) {
    return PrintNotice(n, in_place, G->file_line_no, G);
}

int PrintNotice(int n, int in_place, int line, Globals *G) {
    if (in_place && !G->notice_vs_format && !G->notice_short_format) {
        return 1;
    }
    if (in_place || G->notices_by_file) {
        EmitNotice(G->file_name, line, n, G);
    }
    return 0;
}

int Raise(int n, Globals *G) {
    return CountNotice(n, G) && PrintNotice(n, PrintsInPlace(G), G);
}

bool TabNoticesArePrinted(const Globals *G) {
    return G->notice_enabled[kNoticeTab] && (PrintsInPlace(G) || G->notices_by_file);
}

void CountTabNotices(int count, Globals *G) {
    if (G->notice_enabled[kNoticeTab] && !G->skip_quality_active) {
        G->notice_count += count;
        G->notice_cnt[kNoticeTab] += count;
    }
}

// One line. given is the line that the raiser told, line the one to show: they differ for a body without braces. CSV shows a
// built-in text as it stands, commas too.
static void ShortForm(const char *file, int given, int line, int n, const char *text, const Globals *G) {
    const Mode mode = OutputMode(G);
    const forms::Passed<Shown> encoded(mode == Mode::kCsv && n <= kNotices ? Mode::kText : mode, Shown{text});
    if (G->notice_vs_format) {
        PrintOnly<Shown, int, int, const char *>(mode, "%s(%d) : Notice #%-4d - %s\n", Shown{file}, line, n, encoded.get());
    } else if (mode == Mode::kHtml) {
        PrintHtml(G, "  <font color=%{notice}><b>Notice</b></font> <b>#%4d</b>: Line <b>%d</b>, %s\n", n, line, encoded.get());
    } else if (mode == Mode::kXml && !G->totals_no_file_names) {
        PrintOnly<int, int, const char *>(
            mode, "<notice>\n<type>%d</type>\n<line>%d</line><description>%s</description>\n</notice>\n", n, given, encoded.get());
    } else if (G->reorder_notice_line) {
        PrintOnly<int, int, const char *>(mode, "  Line %4d: Notice #%4d: %s\n", line, n, encoded.get());
    } else {
        PrintOnly<int, int, const char *>(mode, "  Notice #%4d: Line %4d, %s\n", n, line, encoded.get());
    }
}

// The text for a body without braces tells what it is the body of.
static const char *BareBodyText(Globals *G) {
    auto &text = G->bare_body_text[G->scope_kind];
    if (!*text) {
        const char *quote = OutputMode(G) == Mode::kXml && !G->totals_no_file_names && !G->notice_vs_format ? "" : "'";
        FormatText(text, "%s%s%s is not bound with scope braces {}", quote, kBodyWords[G->scope_kind], quote);
    }
    return text;
}

void EmitNotice(const char *file, int line, int n, Globals *G) {
    const int bare_body = n == kNoticeBareBody && G->function_metrics;
    const int shown_line = bare_body ? G->scope_line : line;
    if (G->notices_by_file || G->notices_by_file_tn) {
        ShortForm(file, line, shown_line, n, bare_body ? BareBodyText(G) : GetNoticeStr(n, G), G);
    }
    RememberNotice(file, shown_line, n, G);
}

void RememberNotice(const char *file, int line, int n, Globals *G) {
    if (G->totals_all || G->totals_notice_summary) {
        AddNameNode(file, line, n, &G->notice_list, G);
    }
}
