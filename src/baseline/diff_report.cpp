// The order of a report on two baselines: head, notes, both work files, times, comparison, tables, explanations, end.
#include "baseline/diff_report.h"

#include "baseline/baseline_compare.h"
#include "baseline/diff_columns.h"
#include "baseline/diff_tables.h"
#include "baseline/diff_times.h"
#include "baseline/work_file.h"
#include "config/report_cfg.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/project/report_head.h"
#include "run/compare.h"
#include "run/globals.h"

namespace {

// What a work file tells beside its files.
struct Baseline {
    int64_t time; // of its creation
    int ignore_blank, ignore_white;
};

// A comparison of lines knows no metrics but those of lines.
void LoadColumns(Globals *G) {
    if (G->show_progress) {
        fprintf(stderr, "  Work File Differential Extraction\n  Loading Report Configuration: %s\n", G->diff_cfg_file);
    }
    LoadReportCfg(G->diff_cfg_file, G->report_cfg, G);
    G->diff_cfg_shown = 1;
    if (!G->diff_code_lines) {
        return;
    }
    for (const ReportElement element : {kElementFunctions, kElementCyclo, kElementInterface, kElementComplexity, kElementNotices}) {
        G->report_cfg[element].on = 0;
    }
    if (G->diff_ignore_blank) {
        G->report_cfg[kElementBlanks].on = 0;
    }
}

void OpenReport(Globals *G) {
    const char *const method = G->diff_code_lines ? "Based On Code Difference" : "Based On Code Size";
    switch (OutputMode(G)) {
    case Mode::kCsv:
        CSV_Header(G);
        Put("Metrics Differential\n%s\n", method);
        break;
    case Mode::kXml:
        XML_Header(G);
        Put("<report>\n<name>baseline_differential_metrics</name>\n");
        break;
    case Mode::kHtml:
    case Mode::kText:
        ShowHeader(G);
        ShowFMCHeader(G);
        CenteredTitle("~~ Metrics Differential ~~", G);
        CenteredTitle(method, G);
        break;
    }
}

void ShowNotes(const Globals *G) {
    static constexpr Forms<const char *> kNote{.text = "  %s\n", .html = "  %s\n", .csv = "%s\n", .xml = "<note>%s</note>\n"};
    const bool lines = G->diff_code_lines && (G->work_deterministic || G->diff_show_details);
    const struct {
        bool on;
        const char *text;
    } notes[] = {
        {G->skip_new != 0, "New files are not processed for this report"},
        {G->skip_removed != 0, "Removed files are not processed for this report"},
        {G->skip_modified != 0, "Modified files are not processed for this report"},
        {G->skip_equal != 0, "Equal files are not processed for this report"},
        {lines && !G->show_equal_lines, "Not showing equal lines between older and present baselines"},
        {lines && !G->show_added_lines, "Not showing modified lines to the present baseline"},
        {lines && !G->show_removed_lines, "Not showing removed lines from the older baseline"},
    };
    for (const auto &note : notes) {
        if (note.on) {
            Print(G, kNote, note.text);
        }
    }
    if (OutputMode(G) != Mode::kXml) {
        Put("\n");
    }
}

int LoadBaseline(const char *which, const char *path, Llist *list, Baseline *baseline, Globals *G) {
    if (G->show_progress) {
        fprintf(stderr, "  Loading %s Work File: %s\n", which, path);
    }
    if (LoadWorkFile(path, &baseline->time, list, &baseline->ignore_blank, &baseline->ignore_white, G)) {
        return 1;
    }
    Message(G, "\n  Error: Failed to load work file, %s\n", path);
    return 0;
}

// Line records that were made by different rules can't be compared.
void RequireSame(const char *constraint, int older, int newer, Globals *G) {
    if (!older == !newer) {
        return;
    }
    Message(G,
            "\n  Error: The older and current work files have not been\n"
            "         created with the same constraints.  These settings are\n"
            "         located in the TLY configuration file.\n"
            "         Older Work File: %s - %s\n"
            "         Newer Work File: %s - %s\n"
            "         This condition will create erroneous metrics.\n",
            constraint, older ? "Yes" : "No", constraint, newer ? "Yes" : "No");
    if (OutputMode(G) == Mode::kXml) {
        Put("</report>\n");
    }
    EndProcess(G, 1);
}

WorkTime ShowTimes(const Baseline &older, const Baseline &newer, Globals *G) {
    const WorkTime work = TimeBetween(older.time, newer.time, G);
    if (work.delta < 0) {
        Message(G, "\n  Warning: The older work file was created after the present work file.\n\n");
    }
    RequireSame("Ignore Blank Lines", older.ignore_blank, newer.ignore_blank, G);
    RequireSame("Ignore White Space", older.ignore_white, newer.ignore_white, G);
    ShowWorkTimes(older.time, newer.time, work, G);
    if (OutputMode(G) != Mode::kXml) {
        Put("\n");
    }
    return work;
}

void CompareBaselines(Globals *G) {
    DiffWorkLists(&G->old_work_list, &G->new_work_list, &G->work_result_list, G);
    if (G->sort_active) {
        LlistResort_NodeData(&G->work_result_list, G->sort_key, G);
    }
    if (G->show_progress) {
        fputs("(100%)\n  Reporting Differentials\n", stderr);
    }
}

// The profile adds up what the table shows, and what it leaves out.
void ShowFileTable(Globals *G) {
    if (!G->totals_work) {
        const char *const title = G->diff_code_lines ? "File Metrics Differentials Based on Code Line Differences"
                                                     : "File Metrics Differentials Based on Code Size Differences";
        DiffTitle(title, G);
        if (OutputMode(G) == Mode::kXml) {
            Put("<note>%s</note>\n", title);
        }
        DiffDataHeader(G, DiffTable::kFiles);
    }
    for (WorkData *record : Records<WorkData>(G->work_result_list)) {
        DiffDataShow(record, G);
    }
}

void ShowTables(const WorkTime &work, Globals *G) {
    if (!G->totals_work) {
        DiffDataRule(G);
    }
    ShowDiffProfile(G);
    ShowProductivity(work, G);
    ShowDiffTotals(G);
    if (G->show_work_basis) {
        ShowWorkBasis(G);
    }
    if (G->diff_show_details) {
        ShowListingLegend(G);
    }
    if (G->show_glossary) {
        DiffReportGlossary(G);
    }
}

void CloseReport(Globals *G) {
    if (G->show_progress) {
        fprintf(stderr, "  %d Older Work Files\n  %d Newer Work Files\n  Work File Differential Extraction Complete\n",
                G->old_work_list.count, G->new_work_list.count);
    }
    LlistDestroy(&G->old_work_list, nullptr);
    LlistDestroy(&G->new_work_list, nullptr);
    LlistDestroy(&G->work_result_list, nullptr);
    if (IsPage(OutputMode(G))) {
        UnderscoreRule();
    } else if (OutputMode(G) == Mode::kXml) {
        Put("</report>\n");
        CloseDocument(G);
    }
}

} // namespace

void ExtractWork(const char *older_name, const char *newer_name, Globals *G, int full_head) {
    LoadColumns(G);
    CopyText(G->older_work_name, older_name);
    CopyText(G->newer_work_name, newer_name);
    LlistDestroy(&G->work_result_list, nullptr);
    if (full_head) {
        OpenReport(G);
    }
    ShowSortMethod(G);
    ShowNotes(G);
    Baseline older{}, newer{};
    WorkTime work{};
    if (LoadBaseline("Older", older_name, &G->old_work_list, &older, G) &&
        LoadBaseline("Newer", newer_name, &G->new_work_list, &newer, G)) {
        work = ShowTimes(older, newer, G);
        G->blanks_recorded = !newer.ignore_blank; // as in the older one
        CompareBaselines(G);
        ShowFileTable(G);
    }
    ShowTables(work, G);
    CloseReport(G);
}
