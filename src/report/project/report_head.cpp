// The heads take a stream, everything else writes to gTLYOUT: while a head runs, its stream is gTLYOUT. A head also loads the
// user's rules, whose messages belong into the document.
#include "report/project/report_head.h"

#include <algorithm>
#include <string>
#include <utility>

#include "notices/udqn.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

static void BodyTag(const Globals *G) {
    const Shown background{G->html_background_color};
    const Shown text{G->html_text_color}, vlink{G->html_vlink_color}, link{G->html_link_color}, alink{G->html_alink_color};
    const bool colored = *text.text && *vlink.text && *link.text;
    const Mode html = Mode::kHtml;
    if (*background.text && colored) {
        PrintOnly(html, "<body bgcolor=\"%s\" text=\"%s\" vlink=\"%s\" link=\"%s\" alink=\"%s\" >\n", background, text, vlink, link,
                  alink);
    } else if (*background.text) {
        PrintOnly(html, "<body bgcolor=\"%s\" text=\"#000000\" vlink=\"#660099\" link=\"#0000ee\" alink=\"#CCCCCC\">\n",
                  background);
    } else if (colored) {
        PrintOnly(html, "<body text=\"%s\" vlink=\"%s\" link=\"%s\" alink=\"%s\">\n", text, vlink, link, alink);
    } else {
        Put("<body text=\"#000000\" vlink=\"#660099\" link=\"#0000ee\" alink=\"#CCCCCC\">\n");
    }
}

static void OpenHtmlDocument(const Globals *G) {
    Put("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n"
        "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" "
        "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">\n"
        "<html xmlns=\"http://www.w3.org/1999/xhtml\">\n");
    PrintOnly(Mode::kHtml,
              "<head><title>Tallyline %s</title>\n"
              "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\" /></head>\n",
              Shown{G->version});
    BodyTag(G);
    Put("<pre>\n");
}

// Today in the form "Sep 02, 2009".
static void GetRunDate(std::span<char> out) {
    const time_t now = time(nullptr);
    const struct tm *local = localtime(&now);
    if (!local || strftime(out.data(), out.size(), "%b %d, %Y", local) == 0) {
        ClearText(out);
    }
}

// Banner, product, version and date lines, down to the underscore rule.
static void ShowProductLines(Mode mode, const Globals *G) {
    static constexpr Forms<Shown> kProduct{
        .text = "           Tallyline (TM) for C, C++, C# and Java\n",
        .html = "<b><font color=\"%s\">\n             Tallyline&#8482; for C, C++, C# and Java\n</font></b>"};
    char version[40];
    char run_date[40];
    FormatText(version, "Version %s", G->version);
    GetRunDate(run_date);
    const Shown color{G->html_date_color};
    if (mode == Mode::kHtml) {
        if (G->report_header_active) {
            Put("%s\n", G->header_html);
        }
        PrintAs(mode, kProduct, Shown{G->html_tly_color});
        char marked[60];
        FormatText(marked, "<b>Version</b> %s", G->version);
        Center_HTML(version, marked);
        Put("\n");
        PrintOnly(mode,
                  "  <b><font color=\"%s\">Build Date</font></b>  : <b>%-15s                     "
                  "<font color=\"%s\">Run Date</font></b>: %s \n",
                  color, BuildDate(), color, Shown{run_date});
    } else {
        if (G->report_header_active) {
            Center(G->header_text);
        }
        Put("\n");
        PrintAs(mode, kProduct, Shown{nullptr});
        Center(version);
        Put("\n");
        PrintOnly(mode, "  Build Date  : %-15s                     Run Date: %s\n", BuildDate(), Shown{run_date});
    }
    UnderscoreRule();
}

// The setting alone turned the modern reading on: the command line doesn't show it.
static bool IsReadingShown(const Globals *G) {
    return G->reading != 0 && G->switch_rules == 0;
}

// Which settings and which arguments the report comes from.
static void ShowOrigin(Mode mode, const Globals *G) {
    const Shown color{G->html_header_color};
    if (!G->no_config) {
        LineText name;
        AdjNameLength(G->cfg_file, name, 58, 22, G);
        if (mode == Mode::kHtml) {
            PrintOnly(mode, "  <b><font color=\"%s\">Config. File</font></b>: %s\n", color, Shown{name});
        } else {
            PrintOnly(mode, "  Config. File: %s\n", Shown{name});
        }
    }
    if (!G->no_command) {
        if (mode == Mode::kHtml) {
            PrintOnly(mode, "  <b><font color=\"%s\">Command Line</font></b>: ", color);
        } else {
            Put("  Command Line: ");
        }
        ShowCmdLine(gTLYOUT, G);
        Put("\n");
    }
    if (IsReadingShown(G)) {
        if (mode == Mode::kHtml) {
            PrintOnly(mode, "  <b><font color=\"%s\">Reading     </font></b>: Modern\n", color);
        } else {
            Put("  Reading     : Modern\n");
        }
    }
}

// The columns of a report on two baselines have a configuration of their own.
static void ShowDiffCfg(Mode mode, const Globals *G) {
    const Shown name{G->diff_cfg_file};
    if (mode == Mode::kHtml) {
        PrintOnly(mode, "  <b><font color=\"%s\">Diff Config.</font></b>: %s\n", Shown{G->html_header_color}, name);
    } else {
        PrintOnly(mode, "  Diff Config.: %s\n", name);
    }
}

static void ShowTitle(Mode mode, const Globals *G) {
    std::string shown = G->report_title;
    if (mode == Mode::kHtml) {
        HTML_esc(G->report_title, shown);
        shown = "<b><i>" + shown + "</i></b>";
    }
    Put("\n");
    Center_HTML(G->report_title, shown.c_str());
    Put("\n");
}

void ShowHeader(FILE *stream, Globals *G) {
    FILE *const report = std::exchange(gTLYOUT, stream);
    const Mode mode = G->html_mode ? Mode::kHtml : Mode::kText; // help in a CSV or XML run has a text head too
    if (mode == Mode::kHtml) {
        OpenHtmlDocument(G);
    }
    FlushEarlyMessages(G);
    if (!G->no_header) {
        ShowProductLines(mode, G);
        ShowOrigin(mode, G);
    }
    if (G->diff_cfg_shown && !G->no_config) {
        ShowDiffCfg(mode, G);
    }
    LoadUserRules(G);
    if (!G->no_header && G->title_set) {
        ShowTitle(mode, G);
    }
    gTLYOUT = report;
}

void CSV_Header(FILE *stream, Globals *G) {
    FILE *const report = std::exchange(gTLYOUT, stream);
    const time_t now = time(nullptr);
    FlushEarlyMessages(G);
    if (G->report_header_active) {
        Put("%s\n\n", G->header_text);
    }
    Put("Tallyline\n");
    Put("%s,%s\n", "Version", G->version);
    Put("Date Processed,%s\n\n", get_date(&now));
    if (!G->no_command) {
        Put("TLY Command Line,%s\n", G->command_line);
    }
    if (IsReadingShown(G)) {
        Put("Reading,Modern\n");
    }
    if (!G->no_config) {
        PrintOnly(Mode::kCsv, "Configuration File,%s\n", Shown{G->cfg_file});
    }
    LoadUserRules(G);
    if (!G->no_header && G->title_set) {
        Put("\n%s\n", G->report_title);
    }
    gTLYOUT = report;
}

// The address of the style sheet. "c:\x\y.xsl" becomes "file:///c:/x/y.xsl"; what is an address or a path already stays.
static std::string StyleSheetAddress(const char *name) {
    if (strstr(name, "file:///") || name[0] == '/' || name[0] == '.') {
        return name;
    }
    std::string address = std::string("file:///") + name;
    std::replace(address.begin(), address.end(), '\\', '/');
    return address;
}

void XML_Header(FILE *stream, Globals *G) {
    FILE *const report = std::exchange(gTLYOUT, stream);
    const Mode xml = Mode::kXml;
    const time_t now = time(nullptr);
    Put("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    if (G->xsl_file_set) {
        PrintOnly(xml, "<?xml-stylesheet type=\"text/xsl\" href=\"%s\"?>\n", Shown{StyleSheetAddress(G->xsl_file).c_str()});
    }
    Put("<vxtly>\n");
    G->root_open = 1;
    FlushEarlyMessages(G);
    if (G->report_header_active) {
        PrintOnly(xml, "<banner>%s</banner>\n", Shown{G->header_text});
    }
    Put("<program>Tallyline</program>\n");
    PrintOnly(xml, "<version>%s</version>\n", Shown{G->version});
    PrintOnly(xml, "<date>%s</date>\n", Shown{get_date(&now)});
    if (!G->no_command) {
        PrintOnly(xml, "<command>%s</command>\n", Shown{G->command_line});
    }
    if (IsReadingShown(G)) {
        Put("<reading>Modern</reading>\n");
    }
    if (!G->no_config) {
        PrintOnly(xml, "<config_file>%s</config_file>\n", Shown{G->cfg_file});
    }
    LoadUserRules(G);
    if (!G->no_header && G->title_set) {
        PrintOnly(xml, "<title>%s</title>\n", Shown{G->report_title});
    }
    gTLYOUT = report;
}

// Comes ahead of the head of an XML report, which can't hold it there: so it goes the way of a message.
static void ShowStudioTitle(Globals *G) {
    const char *const title = "Visual Studio Code Quality Notices";
    const char *const hint =
        "\n  Double click any notice in the Visual Studio output window to\n  jump to the specified line number\n\n";
    if (OutputMode(G) == Mode::kXml) {
        Message(G, "%*s%s\n%s", CenterBlanks(strlen(title)), "", title, hint);
    } else {
        Center(title);
        Put("%s", hint);
    }
}

void ShowFMCHeader(Globals *G) {
    if (G->notice_vs_format && G->notices_by_file) {
        ShowStudioTitle(G);
    }
    if (G->totals_only || G->csv_mode) {
        return;
    }
    const struct {
        bool on;
        const char *title;
    } titles[] = {
        {G->macro_metrics && !G->quality_notices, "~~ Macro Metrics ~~"},
        {G->function_metrics && G->list_functions, "~~ Function Listing ~~"},
        {G->function_metrics && !G->list_functions, "~~ Function Metrics ~~"},
        {G->object_metrics != 0, "~~ Class/Struct Metrics ~~"},
        {G->template_ident != 0, "~~ Template Identification ~~"},
        {G->determine_source != 0, "~~ Determine Source vs. LOC Algorithms ~~"},
        {G->comment_doc_mode != 0, "~~ Comment Documentation ~~"},
        {G->complexity_metrics && G->complexity_detail, "~~ Complexity Detail Analysis ~~"},
        {G->complexity_metrics && !G->complexity_detail, "~~ Complexity Analysis ~~"},
        {G->quality_notices != 0, "~~ Quality Analysis ~~"},
        {G->memory_metrics != 0, "~~ Memory Allocation/De-allocation Metrics ~~"},
        {G->extract_strings != 0, "~~ Literal String Extraction Mode ~~"},
        {G->extract_comments != 0, "~~ Comment Extraction Mode ~~"},
    };
    for (const auto &row : titles) {
        if (row.on) {
            CenteredTitle(row.title, G);
        }
    }
}

void ShowCmdLine(FILE *stream, const Globals *G) {
    const char *text = G->command_line;
    const Mode mode = OutputMode(G);
    if (mode == Mode::kCsv) {
        fputs(text, stream);
        return;
    }
    std::string encoded;
    if (mode == Mode::kXml) {
        xml_encode(text, encoded);
        fprintf(stream, "<command>%s</command>\n", encoded.c_str());
        return;
    }
    // Wrapped first and escaped then, so that a break never falls into an entity.
    LineText wrapped;
    constexpr int kWidth = 58;
    if (strlen(text) > kWidth && G->wrap_long_names) {
        AdjNameLength(text, wrapped, kWidth, 16, G);
        text = wrapped;
    }
    if (mode == Mode::kHtml) {
        HTML_esc(text, encoded);
        text = encoded.c_str();
    }
    fprintf(stream, "%s ", text);
}
