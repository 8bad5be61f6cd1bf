// A head also loads the user's rules, whose messages belong into the document.
#include "report/project/report_head.h"

#include <algorithm>
#include <string>

#include "notices/udqn.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

// Colours that aren't set are those of the document.
static void BodyTag(const Globals *G) {
    const bool background = *G->html_background_color;
    const bool colored = *G->html_text_color && *G->html_vlink_color && *G->html_link_color;
    if (background && colored) {
        PrintHtml(G, "<body bgcolor=\"%{background}\" text=\"%{text}\" vlink=\"%{vlink}\" link=\"%{link}\" alink=\"%{alink}\" >\n");
    } else if (background) {
        PrintHtml(G, "<body bgcolor=\"%{background}\" text=\"#000000\" vlink=\"#660099\" link=\"#0000ee\" alink=\"#CCCCCC\">\n");
    } else if (colored) {
        PrintHtml(G, "<body text=\"%{text}\" vlink=\"%{vlink}\" link=\"%{link}\" alink=\"%{alink}\">\n");
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

// The head of help is a page in a CSV or XML run too, so mode isn't always that of the run.

// Banner, product, version and date lines, down to the underscore rule.
static void ShowProductLines(Mode mode, const Globals *G) {
    static constexpr Forms<> kProduct{
        .text = "           Tallyline (TM) for C, C++, C# and Java\n",
        .html = "<b><font color=\"%{tly}\">\n             Tallyline&#8482; for C, C++, C# and Java\n</font></b>"};
    static constexpr Forms<const char *, Shown> kDates{
        .text = "  Build Date  : %-15s                     Run Date: %s\n",
        .html = "  <b><font color=\"%{date}\">Build Date</font></b>  : <b>%-15s                     "
                "<font color=\"%{date}\">Run Date</font></b>: %s \n"};
    const bool html = mode == Mode::kHtml;
    char version[40];
    char marked[60];
    char run_date[40];
    FormatText(version, "Version %s", G->version);
    FormatText(marked, html ? "<b>Version</b> %s" : "Version %s", G->version);
    GetRunDate(run_date);
    if (G->report_header_active) {
        html ? Put("%s\n", G->header_html) : Center(G->header_text);
    }
    if (!html) {
        Put("\n");
    }
    PrintAs(mode, G, kProduct);
    Center_HTML(version, marked);
    Put("\n");
    PrintAs(mode, G, kDates, BuildDate(), Shown{run_date});
    UnderscoreRule();
}

// The setting alone turned the modern reading on: the command line doesn't show it.
static bool IsReadingShown(const Globals *G) {
    return G->reading != 0 && G->switch_rules == 0;
}

// Which settings and which arguments the report comes from.
static void ShowOrigin(Mode mode, const Globals *G) {
    static constexpr Forms<Shown> kConfig{.text = "  Config. File: %s\n",
                                          .html = "  <b><font color=\"%{header}\">Config. File</font></b>: %s\n"};
    static constexpr Forms<> kCommand{.text = "  Command Line: ",
                                      .html = "  <b><font color=\"%{header}\">Command Line</font></b>: "};
    static constexpr Forms<> kReading{.text = "  Reading     : Modern\n",
                                      .html = "  <b><font color=\"%{header}\">Reading     </font></b>: Modern\n"};
    static constexpr Wrap kConfigWrap{58, 22}; // indented deeper than its label
    if (!G->no_config) {
        LineText name;
        AdjNameLength(G->cfg_file, name, kConfigWrap, G);
        PrintAs(mode, G, kConfig, Shown{name});
    }
    if (!G->no_command) {
        PrintAs(mode, G, kCommand);
        ShowCmdLine(G);
        Put("\n");
    }
    if (IsReadingShown(G)) {
        PrintAs(mode, G, kReading);
    }
}

// The columns of a report on two baselines have a configuration of their own.
static void ShowDiffCfg(Mode mode, const Globals *G) {
    static constexpr Forms<Shown> kDiffConfig{.text = "  Diff Config.: %s\n",
                                              .html = "  <b><font color=\"%{header}\">Diff Config.</font></b>: %s\n"};
    PrintAs(mode, G, kDiffConfig, Shown{G->diff_cfg_file});
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

void ShowHeader(Globals *G) {
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
}

void CSV_Header(Globals *G) {
    const time_t now = time(nullptr);
    FlushEarlyMessages(G);
    if (G->report_header_active) {
        Put("%s\n\n", G->header_text);
    }
    Put("Tallyline\n");
    Put("%s,%s\n", "Version", G->version);
    Put("Date Processed,%s\n\n", get_date(&now).c_str());
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

void XML_Header(Globals *G) {
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
    PrintOnly(xml, "<date>%s</date>\n", Shown{get_date(&now).c_str()});
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
}

// Comes ahead of the head of an XML report, which can't hold it there: so it goes the way of a message.
static void ShowStudioTitle(Globals *G) {
    const char *const title = "Visual Studio Code Quality Notices";
    const char *const hint =
        "\n  Double click any notice in the Visual Studio output window to\n  jump to the specified line number\n\n";
    if (OutputMode(G) == Mode::kXml) {
        Message(G, "%s%s\n%s", CenterBlanks(title), title, hint);
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

void ShowCmdLine(const Globals *G) {
    static constexpr Forms<Shown> kCommand{.text = "%s ", .html = "%s ", .xml = "<command>%s</command>\n"};
    if (OutputMode(G) == Mode::kCsv) { // the last field: its commas may stay
        Put("%s", G->command_line);
        return;
    }
    LineText room;
    Print(G, kCommand, Shown{OnPage(G->command_line, room, Behind("Command Line"), G)});
}
