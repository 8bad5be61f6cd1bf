// The list of -hn: what can be noticed, and what is switched on; and how the user's own rules are written.
#include "tools/notice_list.h"

#include <cstring>

#include "notices/catalogue.h"
#include "notices/raise.h"
#include "notices/udqn.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/project/report_head.h"
#include "run/globals.h"
#include "run/program_files.h"
#include "run/read_lines.h"

namespace {

void ListTitle(const char *title, const Globals *G) {
    if (ProseMode(G) == Mode::kHtml) {
        CenteredTitle(title, G);
    } else {
        Center(title);
    }
}

void NoticeLine(int number, int on, const char *text, const Globals *G) {
    PrintOnly<int, const char *, Shown>(ProseMode(G), "  Notice %-4d: [%3s] %s\n", number, on ? "On" : "Off", Shown{text});
}

// The head has read the rules only where notices are on. A rule file is optional: without one there is nothing to list.
void LoadRules(Globals *G) {
    if (G->quality_notices || !*G->udqn_file) {
        return;
    }
    GetProgFile(G->udqn_file, G->udqn_file, G);
    LineReader probe;
    if (OpenLines(&probe, G->udqn_file)) {
        CloseLines(&probe);
        load_udqn_file(nullptr, G);
    }
}

} // namespace

void ShowNotices(Globals *G) {
    ShowHeader(G);
    ListTitle("TLY Quality Notice Types", G);
    for (int n = 1; n <= kNotices; ++n) {
        NoticeLine(n, G->notice_enabled[n], GetNoticeStr(n, G), G);
    }
    LoadRules(G);
    ListTitle("User Defined Quality Notices", G);
    PrintOnly(ProseMode(G), "  UDQN File   : %s\n", Shown{G->udqn_file});
    Put("  PCRE Version: %s\n", "7.0");
    for (const Udqn *rule : Records<Udqn>(G->udqn_list)) {
        if (rule->summary && strlen(rule->summary) > 1) {
            NoticeLine(rule->id, rule->active, rule->summary, G);
        }
    }
    DashRule();
}

void ShowRuleKeys(Globals *G) {
    const Mode mode = ProseMode(G);
    ShowHeader(G);
    ListTitle("Keys of User Defined Quality Notices", G);
    for (const RuleKey &row : RuleKeys()) {
        PrintOnly<Shown, const char *, Shown>(mode, "\n  %s:%s%s\n", Shown{row.key}, *row.value ? " " : "", Shown{row.value});
        for (const char *line = row.help; *line;) {
            const size_t length = strcspn(line, "\n");
            PrintOnly(mode, "      %s\n", Shown{std::string(line, length).c_str()});
            line += length + (line[length] == '\n');
        }
        if (strcmp(row.key, "Message") == 0) {
            for (const Placeholder &each : Placeholders()) {
                PrintOnly<const char *, Shown>(mode, "          %-8s  %s\n", each.word, Shown{each.help});
            }
        }
    }
    DashRule();
}
