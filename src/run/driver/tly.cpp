// The order of a run: defaults, environment, settings, languages, command line, heads, file list, files, project reports, close.
#include "run/driver/tly.h"

#include <cerrno>
#include <unistd.h>

#include "analysis/entities.h"
#include "analysis/roll_up.h"
#include "baseline/work_file.h"
#include "config/languages.h"
#include "config/macros.h"
#include "config/settings.h"
#include "files/file_list.h"
#include "report/benchmark.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/project/csv_elements.h"
#include "report/project/estimation.h"
#include "report/project/quality_profile.h"
#include "report/project/report_head.h"
#include "report/project/summaries.h"
#include "report/project/totals.h"
#include "run/driver/command_line.h"
#include "run/driver/file_loop.h"
#include "run/driver/teardown.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/program_files.h"
#include "run/progress.h"
#include "run/read_lines.h"
#include "tools/listing.h"
#include "tree/class_tree.h"

void InitGlobals(Globals *G) {
    gTLYOUT = stdout;
    gTLYIN = stdin;
    G->teardown = FreeGlobals;
    DefaultSettings(G);
    G->ulpi_count = -1;
    G->ulpi_last = -1;
    CopyText(G->version, "7.75");
    CopyText(G->extension_list, "c,cc,cpp,cxx,C,CC,h,hh,H,hxx,java,jav,cs");
    if (!getcwd(G->start_dir, sizeof G->start_dir)) {
        ClearText(G->start_dir);
    }
    ResetState(G);
}

namespace {

void JoinArguments(int argc, char **argv, Globals *G) {
    if (argc > 1) {
        CopyText(G->command_line, argv[1]);
    }
    for (int i = 2; i < argc && strlen(G->command_line) <= 3995; ++i) {
        AppendChar(G->command_line, ' ');
        AppendText(G->command_line, argv[i]);
    }
}

void LocateFile(PathText &path, const char *name, Globals *G) {
    ClearText(path);
    GetProgFile(path, name, G);
}

// Half a second, or a key: whoever debugs reads the lines above first. A prompt has no place ahead of a document.
void Pause(Globals *G) {
    if (IsSwitchGiven(G->argc, G->argv, 'X') || IsSwitchGiven(G->argc, G->argv, 'H')) {
        usleep(500000);
        return;
    }
    Message(G, "\n  Press Enter Key To Continue ...\n");
    FlushEarlyMessages(G);
    fflush(gTLYOUT);
    char key[3];
    if (!fgets(key, sizeof key, gTLYIN)) {
        return; // nobody there to press it
    }
}

void ShowSystemParameters(Globals *G) {
    Message(G, "*** Debug: System Parameters\n");
    Message(G, "*** Debug: Prog Path   = %s\n", G->PROGPATH);
    Message(G, "*** Debug: Macro File  = %s\n", G->macro_file);
    Message(G, "*** Debug: TLYHOME     = %s\n", G->TLYHOME);
    Message(G, "*** Debug: System Path = %s\n", G->SYSTEMPATH ? G->SYSTEMPATH : "");
    Pause(G);
}

void LoadSettings(int argc, char **argv, bool config_home, Globals *G) {
    InitGlobals(G);
    CopyText(G->prog_name, argc > 0 ? argv[0] : "tly");
    G->argc = argc;
    G->argv = argv;
    LoadEnv(G);
    if (config_home) {
        UseConfigHome(G);
    }
    SetProgramPath(G);
    JoinArguments(argc, argv, G);
    LocateFile(G->macro_file, "tly_macro.cfg", G);
    LocateFile(G->cfg_file, "tly.cfg", G);
    LocateFile(G->diff_cfg_file, "tly_workdiff.cfg", G);
    if (G->debug) {
        ShowSystemParameters(G);
    }
    LoadCfg(G);
    AddBuiltInLanguages(G);
    buildExtensions(G);
    G->macro_count = LoadMacros(G); // they count in the first file, as its own do
}

// The rules that the switch names, or all of them where the setting is on.
void SettleReading(Globals *G) {
    G->reading = G->switch_rules ? G->switch_rules : G->modern_constructs ? kAllRules : 0;
}

// The report goes to a file: only then is progress shown, whatever the settings say. Classes need their functions measured.
void SettleSwitches(Globals *G) {
    G->show_progress = G->output_to_file;
    if (G->object_metrics && !G->function_metrics) {
        G->function_metrics = 1;
        G->function_metrics_implied = 1;
    }
}

void OpenFileList(Globals *G) {
    G->file_list_stream = OpenFileOrStream(G->file_list_name);
    if (!G->file_list_stream) {
        Message(G, "\n  Error: Cannot open the specified file: %s\n         for read, %s\n\n", G->file_list_name, strerror(errno));
        EndProcess(G, -1);
    }
}

void BeginListing(Globals *G) {
    if (OutputMode(G) == Mode::kHtml) {
        Put("<html><head><title>Tallyline %s</title></head><body><pre><P>", G->version);
    }
    SetBars(G);
    FlushEarlyMessages(G);
}

// Listings and rewritten sources are not measured, so there is nothing that a baseline could hold.
bool HasRecords(const Globals *G) {
    return !G->print_mode && !G->decharacter_mode;
}

// The heads, and between them the last steps that can fail before the first file is looked at.
void BeginReport(ProcessTimer *timer, Globals *G) {
    if (G->report_file_type == kCsvElementsReport) {
        BeginCsvElements(G);
    }
    const Mode mode = OutputMode(G);
    if ((mode == Mode::kText || mode == Mode::kHtml) && !G->print_mode) {
        ShowHeader(G);
    }
    ShowFMCHeader(G);
    if (G->benchmark_mode) {
        Timer(timer, kTimerStart, G);
    }
    if (G->show_progress) {
        fputs("  Acquiring Files\n", stderr);
    }
    if (G->file_list_mode) {
        OpenFileList(G);
    }
    G->treat_c_headers_as_cpp = G->notice_enabled[kTreatHeadersAsCpp];
    if (G->work_file_create && HasRecords(G)) {
        G->work_file = CreateWorkFile(G);
        G->work_file_create = G->work_file != nullptr;
        G->baseline_lacking = !G->work_file;
    }
    if (mode == Mode::kCsv && !G->csv_rows) {
        CSV_Header(G);
    } else if (mode == Mode::kXml) {
        XML_Header(G);
    }
    if (G->print_mode) {
        BeginListing(G);
    }
}

void GatherFiles(int first_argument, Globals *G) {
    G->file_arg_count = BuildFileList(first_argument, G);
    if (G->file_arg_count > 0) {
        G->have_files = 1;
    }
    if (G->debug) {
        LlistShow(&G->file_list, FileShow, G);
    }
    BeginProgress(G->file_arg_count, G);
}

void EndProgress(const Globals *G) {
    if (G->show_progress) {
        fprintf(stderr, "(100%%)\n  Processing Files Complete\n  %sReporting and Post Processing\n",
                G->sort_key || G->sort_input_by_name ? "Sorting, " : "");
    }
}

void ProjectHeading(Globals *G) {
    static constexpr Forms<const char *, int> kHeading{
        .text = "%s~~ Project Analysis For %d Files ~~\n",
        .html = "%s<b>~~ Total Metrics For <font color=\"%{total}\">%d</font> Files ~~</b>\n"};
    static constexpr Forms<int> kFields{.csv = "\nProject,%d,Files"};
    const Mode mode = OutputMode(G);
    if (IsPage(mode)) {
        DashRule();
    }
    char plain[64];
    FormatText(plain, "~~ Project Analysis For %d Files ~~", G->project_files);
    Print(G, kHeading, CenterBlanks(plain), G->project_files);
    Print(G, kFields, G->project_files);
    G->heading_open = mode == Mode::kCsv;
}

void EntityReports(Globals *G) {
    ShowProjectFunctionSummary(G);
    if (G->object_metrics) {
        ShowProjectClassSummary(G);
        ShowProjectInterSummary(G);
    }
    if (G->inheritance_report) {
        ReportInheritanceTree(G);
    }
    if (G->object_metrics) {
        ShowProjectNamespaceSummary(G);
    }
}

void ProjectReports(Globals *G) {
    if (G->totals_only) {
        ShowTotalReport(G);
    } else {
        if (G->file_list_mode) {
            ShowTotalDirSummary(G);
        }
        if (G->file_summary) {
            BeginBlock(G);
            ShowTotalSummary(G, 1, 1);
        }
        EntityReports(G);
        if (G->quality_notices) {
            ShowQualityProfile(G);
        }
    }
    if (G->verbose_metrics) {
        ShowVerbose(G, 1);
        G->heading_open = 0; // its rule has begun with a line feed
    }
    if (G->memory_metrics) {
        ShowMemorySummary(G);
    }
    if (G->estimate_mode) {
        ShowEstimation(G);
    }
    if (G->have_files || G->totals_summary) {
        if (OutputMode(G) == Mode::kCsv) {
            BeginBlock(G);
        }
        ShowFileSummary(G);
    }
}

// Listings, extractions and rewritten sources have no totals.
bool HasTotals(const Globals *G) {
    return !G->print_mode && !G->comment_doc_mode && !G->extract_mode && !G->decharacter_mode;
}

// Of a listing the files and functions are all; the others have project reports behind their totals.
bool HasProjectReports(const Globals *G) {
    return HasTotals(G) && !G->list_functions && !G->list_files_only;
}

// Behind everything that changes a switch, and ahead of the first file.
void SettleFunctionRecords(Globals *G) {
    const bool walked = WantsFunctionSummary(G) || G->estimate_mode;
    G->functions_unlisted = G->csv_rows || !HasProjectReports(G) || !walked;
}

void EndReport(ProcessTimer *timer, Globals *G) {
    if (G->csv_rows) { // its lines are the whole report
        SetTotal(G);
        CloseWorkFile(G);
        EndCsvElements(G);
        return;
    }
    if (G->totals_all || G->inheritance_report) {
        BuildClassTree(G);
    }
    if (HasTotals(G)) {
        SetTotal(G);
        if (G->csv_mode && G->csv_file_lines) {
            CSV_File_Total(G);
        }
        if (HasProjectReports(G)) {
            ProjectHeading(G);
            ProjectReports(G);
        }
    }
    if (!G->print_mode && !G->decharacter_mode) {
        Benchmark(timer, G);
        CloseWorkFile(G);
        if (OutputMode(G) == Mode::kText || OutputMode(G) == Mode::kHtml) {
            UnderscoreRule();
        }
    }
    CloseDocument(G);
}

} // namespace

int tly(int argc, char **argv, bool config_home) {
    Globals *G = static_cast<Globals *>(calloc(1, sizeof(Globals)));
    if (!G) {
        gTLYOUT = stdout;
        Put("\n  Error: memory allocation failed\n\n");
        return 1;
    }
    TellWhenContainersFail();
    ProcessTimer timer{};
    LoadSettings(argc, argv, config_home, G);
    const int first_argument = SetUpParams(argc, argv, G);
    SettleSwitches(G);
    SettleReading(G);
    BeginReport(&timer, G);
    SettleFunctionRecords(G);
    GatherFiles(first_argument, G);
    ProcessFiles(G);
    EndProgress(G);
    EndReport(&timer, G);

    const int status = FinishOutput(G->baseline_lacking ? 1 : G->quality_notices ? G->notice_count : 0);
    if (G->show_progress) {
        fprintf(stderr, "  TLY Processed - %d Files\n", G->files_processed);
    }
    FreeGlobals(G);
    return status;
}
