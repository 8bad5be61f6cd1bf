// The work file switches -w and the extended options -x.
#include <algorithm>
#include <cstring>
#include <strings.h>
#include <unistd.h>

#include "analysis/reading.h"
#include "baseline/diff_report.h"
#include "report/project/csv_elements.h"
#include "run/driver/switches.h"
#include "run/globals.h"
#include "run/mode.h"
#include "tools/notice_list.h"

namespace {

// clang-format off
constexpr FlagRow kWork[] = {
    {'d', {&Globals::diff_code_lines}},
    {'e', {&Globals::skip_equal}},
    {'r', {&Globals::skip_removed}},
    {'m', {&Globals::skip_modified}},
    {'n', {&Globals::skip_new}},
    {'g', {&Globals::show_glossary}},
    {'b', {&Globals::show_work_basis}},
    {'p', {&Globals::show_productivity}},
    {'s', {&Globals::diff_show_details}},
    {'v', {&Globals::work_verbose}},
};

struct WordRow {
    const char *word; // compared without regard to case
    Flag flags[2];
};
constexpr WordRow kExtended[] = {
    {"NOCONFIG",  {&Globals::no_config}},
    {"NOCOMMAND", {&Globals::no_command}},
    {"NOHEADER",  {&Globals::no_header}},
    {"UDQNSHOW",  {&Globals::quality_notices, &Globals::udqn_show}},
    {"DEBUG",     {&Globals::debug}},
    {"DIFFDEBUG", {&Globals::diff_debug}},
};
// clang-format on

// "Create /proj": this run makes a baseline of everything below a directory.
void TakeCreate(const char *parameter, Globals *G) {
    constexpr Flag kCreate[] = {&Globals::work_file_create, &Globals::complexity_metrics, &Globals::object_metrics,
                                &Globals::function_metrics};
    SetFlags(kCreate, G);
    if (*G->work_file_name == '\0') {
        CopyText(G->work_file_name, "workfile.dat");
    }
    if (strncasecmp(parameter, "create", 6) != 0) {
        EndWithError(G, 1,
                     "\n  Error: The correct syntax for the work file create\n"
                     "         option is: -w \"Create top directory of baseline\"\n"
                     "         Windows Example: -w \"Create c:\\my project\"\n"
                     "         Unix Example: -w \"Create /Project_Dir\"\n"
                     "         Current Directory Example: -w \"Create .\"\n");
    }
    const char *directory = parameter[6] == '\0' ? "" : parameter + 7;
    size_t length = strlen(directory);
    if (length > 1 && directory[length - 1] == '/') {
        --length;
    }
    if (length == 0 || (length == 1 && *directory != '.')) {
        EndWithError(G, 1,
                     "\n  Error: No baseline directory specififed for the\n"
                     "         -w \"Create dir\" option.\n");
    }
    StoreParameter(G->top_dir, directory, length, 'w', G);
}

// "File dat base/one.dat": the name of the work file, and where the latest one is kept.
void TakeWorkName(const FileForm &form, Globals *G) {
    if (form.length == 0) {
        EndWithError(G, 0, "\n  Error: -w \"File dat\" file name not parsed\n         Check command line syntax\n");
    }
    StoreParameter(G->work_file_name, form.name, form.length, 'w', G);
    if (IsSourceOrInput(G->work_file_name, G)) {
        EndWithError(G, 1,
                     "\n  Error: The work file of the -w option is a source file\n"
                     "         or an input file that already exists\n"
                     "         Filename: %s\n"
                     "         Use -hs for help text\n",
                     G->work_file_name);
    }
    const char *slash = strrchr(G->work_file_name, '/');
    if (!slash) {
        CopyText(G->work_file_path, ".");
    } else if (slash == G->work_file_name) {
        CopyText(G->work_file_path, "/");
    } else {
        CopyPart(G->work_file_path, G->work_file_name, static_cast<size_t>(slash - G->work_file_name));
    }
}

void TakeDiffCfg(const FileForm &form, Globals *G) {
    if (form.length == 0) {
        EndWithError(G, 0, "\n  Error: -w \"File cfg\" file name not parsed\n         Check command line syntax\n");
    }
    PathText name;
    StoreParameter(name, form.name, form.length, 'w', G);
    if (access(name, R_OK) != 0) {
        EndWithError(G, 0, "\n  Error: File name [%s] not found\n", name);
    }
    CopyText(G->diff_cfg_file, name);
}

void TakeWorkFile(const char *parameter, Globals *G) {
    const FileForm form = SplitFileForm(parameter);
    if (strcasecmp(form.type, "dat") == 0) {
        TakeWorkName(form, G);
    } else if (strcasecmp(form.type, "cfg") == 0) {
        TakeDiffCfg(form, G);
    } else {
        EndWithError(G, 0,
                     "\n  Error: -w \"File [dat|cfg] [path\\filename]\"\n"
                     "         Command line syntax is not correct\n");
    }
}

std::string_view Trimmed(std::string_view text) {
    constexpr const char *kBlanks = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// "x old.dat, new.dat": compares two baselines.
[[noreturn]] void TakeCompare(const char *names, Globals *G) {
    std::string_view older, newer;
    if (!SplitBaselines(names, &older, &newer)) {
        EndWithError(G, 1,
                     "\n  Error: -wx option syntax is invalid\n"
                     "         Example -w\"x work file old, work file new\"\n"
                     "         Use -hs for help text\n");
    }
    PathText older_name, newer_name;
    StoreParameter(older_name, older.data(), older.size(), 'w', G);
    StoreParameter(newer_name, newer.data(), newer.size(), 'w', G);
    G->show_progress = G->output_to_file; // as SettleSwitches has it for the runs that come so far
    ExtractWork(older_name, newer_name, G, 1);
    EndProcess(G, 0);
}

// "File csv my.cfg": the elements of a configurable CSV report. Another first word with this letter only counts as a report.
void TakeReportFile(const char *parameter, Globals *G) {
    G->report_switch_given = 1;
    const FileForm form = SplitFileForm(parameter);
    if (strcasecmp(form.first, "file") != 0) {
        return;
    }
    if (strcasecmp(form.type, "csv") != 0) {
        EndWithError(G, 1, "\n  Error: Invalid report file type\n");
    }
    const size_t length = strcspn(form.name, " \t\r\n");
    if (length == 0) {
        EndWithError(G, 1, "\n  Error: -x \"File csv\" file name not parsed\n         Check command line syntax\n");
    }
    G->report_file_type = kCsvElementsReport;
    StoreParameter(G->csv_report_file, form.name, length, 'x', G);
    if (G->debug) {
        Message(G, "*** Debug: Report File Options\n*** Type: %s\n*** File: %s\n", "Comma Separated Variables - CSV",
                G->csv_report_file);
    }
}

} // namespace

bool SplitBaselines(const char *names, std::string_view *older, std::string_view *newer) {
    const std::string_view text = names;
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        return false;
    }
    *older = Trimmed(text.substr(0, comma));
    *newer = Trimmed(text.substr(comma + 1));
    return true;
}

void SwitchWork(const char *parameter, Globals *G) {
    switch (*parameter) {
    case 'c':
    case 'C': TakeCreate(parameter, G); return;
    case 'f':
    case 'F': TakeWorkFile(parameter, G); return;
    case 'x': TakeCompare(parameter + 1, G);
    case 'D':
        G->totals_no_file_names = 0;
        G->work_file_create = 0;
        G->work_deterministic = 1;
        return;
    case 'W':
        EndWithError(G, 0,
                     "\n  Error: The -wW switch has been deprecated and is no\n"
                     "         longer supported.  Use the -wx switch to perform\n"
                     "         baseline differentials\n\n");
    default: break;
    }
    if (!SetRowFlags(kWork, *parameter, G)) {
        EndWithError(G, 1, "\n  Error: Invalid or missing parameter for -w option\n         Use -hs for help text\n");
    }
}

// "MODERN" turns every rule of the modern reading on, "MODERN:braces,literals" those.
static bool TakeReading(const char *parameter, Globals *G) {
    constexpr size_t kLength = 6;
    if (strncasecmp(parameter, "MODERN", kLength) != 0 || (parameter[kLength] != '\0' && parameter[kLength] != ':')) {
        return false;
    }
    G->switch_rules = parameter[kLength] == ':' ? RulesOf(parameter + kLength + 1) : kAllRules;
    if (G->switch_rules == 0) {
        std::string names;
        int count = 0;
        for (const ReadingRule &row : ReadingRules()) {
            names += count == 0 ? "" : count % 6 == 0 ? ",\n         " : ", ";
            names += row.name;
            ++count;
        }
        EndWithError(G, 1, "\n  Error: Unknown rule in %s\n         The rules of the -xMODERN option are:\n         %s\n",
                     parameter, names.c_str());
    }
    return true;
}

void SwitchExtended(const char *parameter, Globals *G) {
    if (TakeReading(parameter, G)) {
        return;
    }
    for (const WordRow &row : kExtended) {
        if (strcasecmp(parameter, row.word) == 0) {
            SetFlags(row.flags, G);
            return;
        }
    }
    if (strcasecmp(parameter, "UDQNKEYS") == 0) {
        ShowRuleKeys(G);
        EndProcess(G, 0);
    }
    if (strcasecmp(parameter, "NOWRAP") == 0) {
        G->wrap_long_names = 0;
        return;
    }
    switch (*parameter) {
    case 'c':
    case 'C':
        CreateCSVCfg(G->csv_report_cfg, G);
        G->document_closed = 1; // the template is a file of its own, in every mode
        EndProcess(G, 1);
    case 'f':
    case 'F': TakeReportFile(parameter, G); return;
    case ' ': EndWithError(G, 1, "\n  -x Work Diff extraction mode is now supported under the -wx option\n");
    default: EndWithError(G, 1, "\n  Error: Invalid parameter for -x option\n         Use -hs for help text\n");
    }
}
