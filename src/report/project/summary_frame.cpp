// The head of a project summary, in the four modes.
#include "report/project/summary_frame.h"

#include "report/entity_lines.h"
#include "report/forms.h"
#include "report/frame.h"
#include "run/compare.h"
#include "run/globals.h"

static void ShowHead(const SummaryFrame &frame, int count, Globals *G) {
    const char *const *note = frame.note;
    switch (OutputMode(G)) {
    case Mode::kText:
    case Mode::kHtml:
        DashRule();
        CenteredTitle(frame.title, G);
        if (note[0]) {
            Center(note[0]);
        }
        ShowSortMethod(G);
        Put("\n");
        break;
    case Mode::kCsv:
        BeginBlock(G);
        Put("%s\n%s", frame.csv_name, note[1] ? note[1] : "");
        ShowSortMethod(G);
        Put("%s,%d\n%s\n", frame.csv_count, count, frame.csv_columns);
        break;
    case Mode::kXml:
        Put("<report>\n<name>%s</name>\n%s", frame.xml_name, note[2] ? note[2] : "");
        ShowSortMethod(G);
        break;
    }
}

void OpenSummary(const SummaryFrame &frame, Llist *list, Globals *G) {
    if (G->sort_key > 0) {
        LlistResort_NodeData(list, G->sort_key, G);
    }
    ShowHead(frame, list->count, G);
    if (G->totals_summaries_only) {
        return;
    }
    LlistShow(list, frame.show, G);
}

void CloseSummary(const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("</report>\n");
    }
}
