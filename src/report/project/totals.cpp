// Project reports of sums that aren't split by language: the selection of -T, directories, memory.
#include "report/project/totals.h"

#include <algorithm>
#include <climits>

#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/project/quality_profile.h"
#include "report/project/summaries.h"
#include "run/globals.h"
#include "tree/class_tree.h"

void ShowTotalReport(Globals *G) {
    ShowProjectFunctionSummary(G);
    if (G->totals_all || G->totals_classes) {
        ShowProjectClassSummary(G);
    }
    if (G->totals_all || G->totals_interfaces) {
        ShowProjectInterSummary(G);
    }
    if (G->totals_all || G->tree_only) {
        ReportInheritanceTree(G);
    } else if (G->inheritance_report) { // -Tp and -Tq need the tree for its notices only
        G->inheritance_report = 0;
        RaiseTreeNotices(G);
    }
    if (G->totals_all || G->totals_namespaces) {
        ShowProjectNamespaceSummary(G);
    }
    if (G->totals_all || G->totals_quality_profile) {
        ShowQualityProfile(G);
    }
    if (G->totals_all || G->totals_notice_summary) {
        ShowNoticeSummary(G);
    }
    if (G->totals_all || G->totals_language) {
        ShowLanguageProfile(G);
        ShowLanguageSummary(G);
    }
    if (G->file_list_mode) {
        ShowTotalDirSummary(G);
    }
    if (G->totals_all || G->totals_summary) {
        EndHeading(G);
        ShowTotalSummary(G, 1, 1);
    }
}

constexpr Forms<int, Shown> kDirectory{.text = "  Files %d - %s\n", .html = "  <b>Files</b> %d - %s\n", .csv = "Files,%d,%s\n"};

static void ShowDirSummaryHead(const Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kXml) {
        Put("<project_directory_summary>\n");
    }
    if ((mode != Mode::kText && mode != Mode::kHtml) || !G->report_switch_given) {
        return;
    }
    // A run for functions that found none, and no notice, has no rule.
    if (!G->function_metrics || G->file_functions != 0 || G->notice_count != 0) {
        Put("  %s%s\n\n", kDashes, kDashes);
    }
    CenteredTitle("~~ Project Directory Summary ~~", G);
    Put("\n");
    if (!G->file_summary) {
        Put("  %s%s\n", kDashes, kDashes);
    }
}

void ShowTotalDirSummary(Globals *G) {
    const LlistNode *last = G->dir_metrics_list.tail;
    if (!last) {
        return;
    }
    const bool xml = OutputMode(G) == Mode::kXml;
    EndHeading(G);
    ShowDirSummaryHead(G);
    for (const NodeData *directory : Records<NodeData>(G->dir_metrics_list)) {
        const int files = static_cast<int>(std::clamp<int64_t>(directory->params, 0, INT_MAX));
        if (xml) {
            PrintOnly(Mode::kXml, "<directory>\n<name>%s</name>\n<file_count>%d</file_count>\n", Shown{directory->name}, files);
        } else {
            Print(G, kDirectory, files, Shown{directory->name});
        }
        LOCLine(directory->loc, directory->eloc, directory->lloc, directory->comments, directory->lines, G);
        if (xml) {
            Put("</directory>\n");
        } else if (directory != Record<NodeData>(last)) {
            Put("\n");
        }
    }
    if (xml) {
        Put("</project_directory_summary>\n");
    }
}

constexpr Forms<int, int, int, int> kMemory{.text = "\n  Memory alloc count ....: %10d  Memory free count .....: %10d\n"
                                                    "  Memory new count ......: %10d  Memory delete count ...: %10d\n",
                                            .html =
                                                "\n  <b>Memory alloc count</b> ....: %10d  <b>Memory free count</b> .....: %10d\n"
                                                "  <b>Memory new count</b> ......: %10d  <b>Memory delete count</b> ...: %10d\n"};

void ShowMemorySummary(Globals *G) {
    static constexpr const char *kTitle = "~~ Memory Allocation/De-allocation Summary ~~";
    if (G->alloc_count < 1 && G->free_count < 1 && G->new_count < 1 && G->delete_count < 1) {
        return;
    }
    // This report has a page form only: CSV and XML get the lines of the text form, which are plain character data there.
    const bool html = OutputMode(G) == Mode::kHtml;
    DashRule();
    if (html) {
        CenteredTitle(kTitle, G);
    } else {
        Center(kTitle);
    }
    PrintAs(html ? Mode::kHtml : Mode::kText, G, kMemory, G->alloc_count, G->free_count, G->new_count, G->delete_count);
}
