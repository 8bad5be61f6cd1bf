// Switches whose parameter is a sub-letter or a number. Only the first letter of a sub-letter counts.
#include <climits>
#include <cstring>

#include "config/settings.h"
#include "run/driver/switches.h"
#include "run/globals.h"
#include "run/mode.h"
#include "tools/help.h"
#include "tools/notice_list.h"

namespace {

constexpr Flag kReport = &Globals::report_switch_given;

// clang-format off
constexpr FlagRow kAnalysis[] = {
    {'a', {kReport, &Globals::function_metrics}},
    {'d', {kReport, &Globals::complexity_metrics, &Globals::complexity_detail, &Globals::function_metrics}},
    {'m', {kReport, &Globals::object_metrics, &Globals::function_metrics, &Globals::show_class_methods}},
    {'p', {&Globals::function_points}},
};
constexpr FlagRow kDecharacter[] = {
    {'t', {&Globals::decharacter_tabs}},
    {'u', {&Globals::decharacter_unix}},
    {'d', {&Globals::decharacter_dos}},
};
constexpr FlagRow kExtract[] = {
    {'s', {kReport, &Globals::extract_mode, &Globals::extract_strings}},
    {'c', {kReport, &Globals::extract_mode, &Globals::extract_comments}},
    {'C', {kReport, &Globals::comment_doc_mode, &Globals::extract_comments, &Globals::function_metrics, &Globals::template_ident}},
};
constexpr FlagRow kReadOptions[] = {
    {'d', {&Globals::no_recursion}},
    {'l', {&Globals::list_files_only}},
    {'n', {&Globals::sort_input_by_name}},
};
constexpr FlagRow kNoticeForms[] = {
    {'s', {&Globals::notice_short_format}},
    {'v', {&Globals::notice_vs_format}},
};
constexpr FlagRow kTotals[] = {
    {'a', {&Globals::totals_all}},
    {'d', {&Globals::function_points, &Globals::totals_files_detail}},
    {'f', {&Globals::totals_functions, &Globals::function_points}},
    {'i', {&Globals::inheritance_report, &Globals::tree_only}},
    {'l', {&Globals::totals_summaries_only}},
    {'L', {&Globals::totals_language}},
    {'n', {&Globals::notices_by_file, &Globals::notices_by_file_tn}},
    {'N', {&Globals::totals_no_file_names}},
    {'o', {&Globals::totals_classes, &Globals::totals_interfaces, &Globals::totals_namespaces}},
    {'p', {&Globals::inheritance_report, &Globals::totals_quality_profile}},
    {'q', {&Globals::inheritance_report, &Globals::notices_by_file, &Globals::totals_notice_summary}},
    {'s', {&Globals::totals_summary}},
    {'v', {&Globals::verbose_metrics, &Globals::verbose_totals}},
    {'w', {&Globals::totals_work}},
};
// clang-format on

} // namespace

void SwitchAnalysis(const char *parameter, Globals *G) {
    if (!SetRowFlags(kAnalysis, *parameter, G)) {
        EndWithError(G, 1,
                     "\n  Error: As of version 6.20 the -f flag requires\n"
                     "         -fa for functional analysis\n"
                     "         -fd function file details\n"
                     "         -fm function and attribute detail for classes\n"
                     "         -fp for function points derived from LOC metrics\n"
                     "         Use -hs for program syntax\n");
    }
    if (*parameter == 'a' && G->csv_mode) {
        G->csv_function_lines = 1;
        G->csv_file_lines = 1;
    }
}

void SwitchDecharacter(const char *parameter, Globals *G) {
    if (!SetRowFlags(kDecharacter, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid or missing parameter for -D option\n         Use -hs for help text\n");
    }
}

void SwitchExtract(const char *parameter, Globals *G) {
    if (!SetRowFlags(kExtract, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid parameter for -E option\n         Use -hs for help text\n");
    }
}

void SwitchReadOptions(const char *parameter, Globals *G) {
    if (!SetRowFlags(kReadOptions, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid parameter for -R option\n         Use -hs for help text\n");
    }
}

void SwitchNoticeForm(const char *parameter, Globals *G) {
    if (!SetRowFlags(kNoticeForms, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid or missing parameter for -N option\n         Use -hs for help text\n");
    }
}

void SwitchTotals(const char *parameter, Globals *G) {
    if (!SetRowFlags(kTotals, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid or missing parameter for -T option\n         Use -hs for help text\n");
    }
    if (*parameter == 'p') {
        G->notices_by_file = 0; // the profile stands alone, whatever stood before
    } else if (*parameter == 'q' && !G->notice_vs_format) {
        G->notice_short_format = 1;
    }
}

void SwitchSort(const char *parameter, Globals *G) {
    if (*parameter == 'd') {
        G->sort_descending = 1;
        return;
    }
    G->sort_key = ClippedNumber(parameter, INT_MIN, INT_MAX);
    G->sort_active = 1;
    if (G->sort_key < 0 || G->sort_key > 10) {
        Message(G,
                "\n  Error: %d invalid sort key value.\n"
                "         Defaulting to no sort\n"
                "         Use -hs for help text\n",
                G->sort_key);
        G->sort_key = 0;
    }
}

void SwitchFileSummary(const char *, Globals *G) {
    if (G->csv_mode) {
        G->csv_file_lines = 1;
    }
}

// The limits of the page hold its rules and margins inside their texts.
void SwitchTopMargin(const char *parameter, Globals *G) {
    G->print_top_margin = ClippedNumber(parameter, 0, 200);
}

void SwitchLineLength(const char *parameter, Globals *G) {
    G->print_line_length = ClippedNumber(parameter, 20, 2000);
}

void SwitchLeftMargin(const char *parameter, Globals *G) {
    G->print_left_margin = ClippedNumber(parameter, 0, static_cast<int>(sizeof G->left_margin) - 1);
}

void SwitchPageLength(const char *parameter, Globals *G) {
    G->print_page_length = ClippedNumber(parameter, -10000, 10000);
    if (G->print_page_length < 0) {
        G->no_page_breaks = 1;
    }
}

void SwitchTitle(const char *parameter, Globals *G) {
    StoreParameter(G->report_title, parameter, strlen(parameter), 'S', G);
}

// The settings page closes itself.
static void ShowSettings(Globals *G) {
    ShowCfg(gTLYOUT, G);
    G->document_closed = OutputMode(G) == Mode::kHtml;
}

void SwitchHelp(const char *parameter, Globals *G) {
    switch (*parameter) {
    case 'c': ShowSettings(G); break;
    case 'n': ShowNotices(G); break;
    case 'p':
        G->syntax_pause = 1;
        ShowSyntax(G);
        break;
    case 's': ShowSwitchList(G); break;
    default: ShowHelp(G); break;
    }
    EndProcess(G, 0);
}

void SwitchShowSettings(const char *, Globals *G) {
    ShowSettings(G);
    EndProcess(G, 0);
}
