// The getopt loop and the table of all switches. The handlers of switches with sub-letters are in switch_letters.cpp (flags and
// numbers), switch_files.cpp (-F -O -r -u) and switch_work.cpp (-w -x).
#include "run/driver/command_line.h"

#include <algorithm>
#include <cstdarg>
#include <unistd.h>

#include "run/driver/switches.h"
#include "run/globals.h"
#include "run/mode.h"
#include "tools/help.h"

namespace {

using SwitchHandler = void (*)(const char *parameter, Globals *G);

struct SwitchRow {
    char letter;
    SwitchHandler handler; // runs behind the flags; null when the flags are all
    Flag flags[6];         // set to 1; a null ends the list early
};

[[noreturn]] void SwitchQuery(const char *, Globals *G) {
    EndWithError(G, 1, "\n  -q Query setup mode is now supported in the %s file.\n", "tly.cfg");
}

[[noreturn]] void SwitchOldDiff(const char *, Globals *G) {
    EndWithError(G, 1, "\n  -W Work Diff mode is now supported under the -wx option\n");
}

constexpr Flag kReport = &Globals::report_switch_given;

// clang-format off
constexpr SwitchRow kSwitches[] = {
    // letter, handler,      flags
    {'a', nullptr,            {kReport, &Globals::memory_metrics}},
    {'A', nullptr,            {kReport, &Globals::csv_mode, &Globals::csv_mode_c, &Globals::complexity_metrics}},
    {'b', nullptr,            {&Globals::benchmark_mode}},
    {'B', SwitchTopMargin,    {}},
    {'c', nullptr,            {kReport, &Globals::complexity_metrics, &Globals::function_metrics}},
    {'C', nullptr,            {kReport, &Globals::csv_mode, &Globals::csv_mode_c, &Globals::complexity_metrics}},
    {'d', nullptr,            {kReport, &Globals::determine_source}},
    {'D', SwitchDecharacter,  {kReport, &Globals::decharacter_mode}},
    {'e', nullptr,            {kReport, &Globals::function_metrics, &Globals::estimate_mode}},
    {'E', SwitchExtract,      {}},
    {'f', SwitchAnalysis,     {}},
    {'F', SwitchFileList,     {&Globals::file_list_mode}},
    {'h', SwitchHelp,         {}},
    {'H', nullptr,            {&Globals::html_mode}},
    {'i', nullptr,            {kReport, &Globals::object_metrics, &Globals::inheritance_report}},
    {'k', SwitchSort,         {}},
    {'l', nullptr,            {kReport, &Globals::list_functions, &Globals::function_metrics}},
    {'L', SwitchLineLength,   {}},
    {'m', nullptr,            {kReport, &Globals::macro_metrics}},
    {'M', SwitchLeftMargin,   {}},
    {'n', nullptr,            {kReport, &Globals::quality_notices}},
    {'N', SwitchNoticeForm,   {kReport, &Globals::quality_notices, &Globals::notices_by_file}},
    {'o', nullptr,            {kReport, &Globals::object_metrics}},
    {'O', SwitchOutputFile,   {&Globals::output_to_file, &Globals::show_progress}},
    {'p', nullptr,            {&Globals::print_mode}},
    {'P', SwitchPageLength,   {}},
    {'q', SwitchQuery,        {}},
    {'r', SwitchRecursive,    {&Globals::recursive_mode}},
    {'R', SwitchReadOptions,  {}},
    {'s', SwitchFileSummary,  {&Globals::file_summary}},
    {'S', SwitchTitle,        {&Globals::title_set}},
    {'T', SwitchTotals,       {kReport, &Globals::object_metrics, &Globals::function_metrics, &Globals::complexity_metrics,
                               &Globals::quality_notices, &Globals::totals_only}},
    {'u', SwitchUserFile,     {}},
    {'v', nullptr,            {kReport, &Globals::verbose_metrics}},
    {'w', SwitchWork,         {kReport, &Globals::totals_no_file_names, &Globals::totals_only}},
    {'W', SwitchOldDiff,      {}},
    {'x', SwitchExtended,     {}},
    {'X', nullptr,            {kReport, &Globals::xml_mode, &Globals::totals_only}},
    {'y', SwitchShowSettings, {}},
};
// clang-format on

void TakeSwitch(int letter, const char *parameter, Globals *G) {
    for (const SwitchRow &row : kSwitches) {
        if (row.letter != letter) {
            continue;
        }
        SetFlags(row.flags, G);
        if (row.handler) {
            row.handler(parameter ? parameter : "", G);
        }
        return;
    }
    EndWithError(G, 1,
                 "\n  Error: Command line parse error, invalid option.\n"
                 "         Use -hs to show program help syntax.\n");
}

// Counts the arguments behind the switches. The stride over a switch is two more when the argument after the next is a switch
// again: in "-c -s -d a.c" the walk goes from -c to -d.
int CountFileArguments(int argc, char **argv) {
    int i = 1;
    while (i < argc && argv[i][0] == '-') {
        i += i + 2 < argc && argv[i + 2][0] == '-' ? 3 : 1;
    }
    return argc - i;
}

} // namespace

const char *LetterWithParameter(const char *argument) {
    for (const char *p = argument + 1; *p; ++p) {
        const char *known = *p == ':' ? nullptr : strchr(kSwitchLetters, *p);
        if (known && known[1] == ':') {
            return p;
        }
    }
    return nullptr;
}

bool IsSwitchGiven(int argc, char *const *argv, char letter) {
    for (int i = 1; i < argc && strcmp(argv[i], "--") != 0; ++i) {
        if (argv[i][0] != '-') {
            continue;
        }
        const char *end = LetterWithParameter(argv[i]);
        const char *found = strchr(argv[i] + 1, letter);
        if (found && (!end || found <= end)) {
            return true;
        }
        i += end && end[1] == '\0'; // its parameter is the next argument
    }
    return false;
}

void SetFlags(std::span<const Flag> flags, Globals *G) {
    for (const Flag flag : flags) {
        if (!flag) {
            return;
        }
        G->*flag = 1;
    }
}

bool SetRowFlags(std::span<const FlagRow> rows, char letter, Globals *G) {
    for (const FlagRow &row : rows) {
        if (row.letter == letter) {
            SetFlags(row.flags, G);
            return true;
        }
    }
    return false;
}

void EndWithError(Globals *G, int status, const char *fmt, ...) {
    char text[4096];
    va_list args;
    va_start(args, fmt);
    vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    Message(G, "%s", text);
    EndProcess(G, status);
}

void StoreParameter(std::span<char> field, const char *text, size_t length, char letter, Globals *G) {
    if (length >= field.size()) {
        EndWithError(G, 1,
                     "\n  Error: The parameter of the -%c option is too long\n"
                     "         At most %zu characters are possible\n"
                     "         Use -hs for help text\n",
                     letter, field.size() - 1);
    }
    CopyPart(field, text, length);
}

int ClippedNumber(const char *text, int low, int high) {
    return static_cast<int>(std::clamp<long>(strtol(text, nullptr, 10), low, high));
}

FileForm SplitFileForm(const char *parameter) {
    constexpr const char *kSpaces = " \t\r\n";
    FileForm form{};
    const char *p = parameter + strspn(parameter, kSpaces);
    size_t length = strcspn(p, kSpaces);
    CopyPart(form.first, p, length);
    p += length;
    p += strspn(p, kSpaces);
    length = strcspn(p, kSpaces);
    CopyPart(form.type, p, length);
    form.name = Ltrim(p + length);
    form.length = strcspn(form.name, "\r\n");
    return form;
}

int SetUpParams(int argc, char **argv, Globals *G) {
    if (argc <= 1) {
        ShowSyntax(G);
        EndProcess(G, 0);
    }
    optind = 0; // the C library starts afresh, whatever was parsed before
    int switches = 0;
    for (int letter; (letter = getopt(argc, argv, kSwitchLetters)) != -1; ++switches) {
        TakeSwitch(letter, optarg, G);
    }
    G->file_summary = 1;
    G->file_arg_count = CountFileArguments(argc, argv);
    if (G->file_arg_count > 0) {
        G->have_files = 1;
    }
    return 1 + switches;
}
