// The file table and the profile by state of the report on two baselines, and its lines of productivity.
#include "baseline/diff_tables.h"

#include <string>

#include "baseline/diff_columns.h"
#include "baseline/work_file.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

bool ColumnShown(ReportElement key, const Globals *G) {
    return G->report_cfg[key].on != 0;
}

void DiffTitle(const char *title, const Globals *G) {
    static constexpr Forms<const char *> kTitle{
        .text = "  %s\n", .html = "  <b><font color=\"%{header}\">%s</font></b>\n", .csv = "%s\n"};
    Print(G, kTitle, title);
}

namespace {

constexpr Wrap kNameWrap{40, 56}; // of a name in the file table
constexpr int kNarrow = 79;       // a narrower rule gives way to the usual one

// Labels by state.
constexpr const char *pstate[kDiffStates] = {"Unp", "Equ", "Mod", "Dif", "Rem", "New", "Prc", "Tot"};

struct StateRow {
    WorkState state;
    int WorkSwitches::*skipped;
    Color color;
    const char *tag, *note; // of the profile's element
};

// clang-format off
constexpr StateRow kNewRow =
    {kStateNew,      &WorkSwitches::skip_new,      {&HtmlSettings::html_new_code_diff_color},      "new",                  "Size metrics for new baseline files"};
constexpr StateRow kRemovedRow =
    {kStateRemoved,  &WorkSwitches::skip_removed,  {&HtmlSettings::html_removed_code_diff_color},  "removed",              "Size metrics for removed baseline files"};
constexpr StateRow kEqualRow =
    {kStateEqual,    &WorkSwitches::skip_equal,    {&HtmlSettings::html_equal_code_diff_color},    "equal",                "Size metrics for unchanged baseline files"};
constexpr StateRow kModifiedRow =
    {kStateModified, &WorkSwitches::skip_modified, {&HtmlSettings::html_modified_code_diff_color}, "modified_by_size",     "Size metrics for changed baseline files"};
constexpr StateRow kDifferentRow = // the modified ones by lines of code
    {kStateModified, &WorkSwitches::skip_modified, {&HtmlSettings::html_modified_code_diff_color}, "differential_by_code", "Differential code metrics for changed baseline files"};
// clang-format on

// The profile's lines: pages of HTML and XML tell the equal files first, then the changed ones.
constexpr const StateRow *kTextOrder[] = {&kNewRow, &kRemovedRow, &kModifiedRow, &kEqualRow};
constexpr const StateRow *kHtmlOrder[] = {&kNewRow, &kRemovedRow, &kEqualRow, &kModifiedRow};

const char *StateLabel(int state, const Globals *G) {
    if (state == kStateModified && G->diff_code_lines) {
        return pstate[kStateDifferent];
    }
    return pstate[state];
}

Color StateColor(int state) {
    switch (state) {
    case kStateEqual: return kEqualRow.color;
    case kStateRemoved: return kRemovedRow.color;
    case kStateNew: return kNewRow.color;
    default: return kModifiedRow.color;
    }
}

int StateOf(const WorkData *record) {
    return record->returns >= 0 && record->returns < kDiffStates ? record->returns : kStateUnprocessed;
}

constexpr Forms<long> kNumber{.text = " %7ld", .html = " %7ld", .csv = ",%7ld", .xml = "%ld"};
constexpr Forms<double> kPercent{.text = " %8.2f", .html = " %8.2f", .csv = ",%8.2f", .xml = "%.2f"};
constexpr Forms<double> kRate{.text = " %7.0f", .html = " %7.0f", .csv = ",%7.0f", .xml = "%7.0f"};
constexpr Forms<> kLineEnd{.text = "\n", .html = "\n", .csv = "\n"};

void PercentCell(const char *tag, float percent, const Globals *G) {
    if (ColumnShown(kElementElocPercent, G)) {
        DiffCell(kPercent, tag, static_cast<double>(percent), G);
    }
}

// The file table.

// A record opens with its state, in XML with the element of that name, and ends with its file.
constexpr Forms<Color, const char *> kOpenRecord{
    .text = "  %s ", .html = "<font color=\"%{color}\"><b>  %s </b></font>", .csv = "%s", .xml = "<%s>\n"};
constexpr Forms<Shown, const char *> kCloseRecord{
    .text = " %s\n", .html = " <font color=\"%{function}\">%s</font>\n", .csv = ",%s\n", .xml = "<file>%s</file>\n</%s>\n"};

void ShowRecord(const WorkData *record, const WorkMetrics &metrics, const Globals *G) {
    const int state = StateOf(record);
    const char *const label = StateLabel(state, G);
    std::string tag;
    xml_tag_encode(label, tag);
    Print(G, kOpenRecord, StateColor(state), OutputMode(G) == Mode::kXml ? tag.c_str() : label);
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            DiffCell(kNumber, column.tag, metrics.of[column.metric], G);
        }
    }
    PercentCell("eloc_change_percent", record->percent, G);
    LineText room;
    Print(G, kCloseRecord, Shown{OnPage(record->name, room, kNameWrap, G)}, tag.c_str());
}

// The profile.

void ReportProfileLine(const DiffProfile &profile, const Globals *G) {
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            DiffCell(kNumber, column.profile_tag, profile.of[column.metric], G);
        }
    }
    const float average = profile.files < 1 ? 0.0F : profile.diff_pct / static_cast<float>(profile.files);
    PercentCell("eloc_percent_difference", average, G);
    DiffCell(kNumber, "files", profile.files, G);
    Print(G, kLineEnd);
}

void ShowProfileState(const StateRow &row, const Globals *G) {
    if (G->*row.skipped) {
        return;
    }
    static constexpr Forms<Color, const char *, const char *> kOpen{
        .text = "  %-3s ", .html = "  <b><font color=%{color}>%-4s</font></b>", .csv = "%s ", .xml = "<%s>\n<note>%s</note>\n"};
    static constexpr Forms<const char *> kClose{.xml = "</%s>\n"};
    Print(G, kOpen, row.color, OutputMode(G) == Mode::kXml ? row.tag : StateLabel(row.state, G), row.note);
    ReportProfileLine(G->diff_profile[row.state], G);
    Print(G, kClose, row.tag);
}

void AddToProfile(const WorkData *record, const WorkMetrics &metrics, Globals *G) {
    DiffProfile &profile = G->diff_profile[StateOf(record)];
    ++profile.files;
    profile.diff_pct += record->percent;
    for (int metric = 0; metric < kWorkColumns; ++metric) {
        profile.of[metric] += metrics.of[metric];
    }
}

// A table's head: its line, and the width of the rule below.
struct Head {
    std::string line;
    bool csv;
    int rule;
    void Add(const char *text, int width, int hyphens) {
        const size_t blanks = static_cast<size_t>(width) - strlen(text);
        line += csv ? std::string(",") : std::string(blanks, ' ');
        line += text;
        rule += hyphens;
    }
};

} // namespace

void DiffDataRule(Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kCsv || mode == Mode::kXml) {
        return;
    }
    if (G->diff_header < kNarrow) {
        Put("  %s%s\n", kDashes, kDashes);
    } else {
        Put("  %s\n", std::string(static_cast<size_t>(G->diff_header), '-').c_str());
    }
}

void DiffDataHeader(Globals *G, DiffTable kind) {
    const Mode mode = OutputMode(G);
    const bool csv = mode == Mode::kCsv;
    Head head{.line = csv ? "State" : "  State", .csv = csv, .rule = 7};
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            const int width = column.metric == kWorkLoc ? 7 : 8;
            head.Add(column.head, width, width);
        }
    }
    if (ColumnShown(kElementElocPercent, G)) {
        const bool files = kind == DiffTable::kFiles;
        head.Add(files ? "eLOC%" : "Av.eLOC%", 9, files ? 5 : 7);
    }
    switch (kind) {
    case DiffTable::kFiles: head.Add("File", 5, 7); break;
    case DiffTable::kProfile: head.Add("Files", 8, 8); break;
    case DiffTable::kProductivity: break;
    }
    G->diff_header = head.rule;
    if (mode == Mode::kHtml) {
        Put("<b>%s</b>\n", head.line.c_str());
    } else if (mode != Mode::kXml) {
        Put("%s\n", head.line.c_str());
    }
    DiffDataRule(G);
}

void DiffDataShow(WorkData *record, Globals *G) {
    const WorkMetrics metrics = MetricsOf(record);
    if (!record->hidden && !G->totals_work) {
        ShowRecord(record, metrics, G);
    }
    AddToProfile(record, metrics, G); // what isn't shown counts too
}

void ShowDiffProfile(Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode == Mode::kXml) {
        Put("<total_differentials>\n<name>Source Metrics %s Differential</name>\n", G->diff_code_lines ? "Code" : "Size");
    }
    DiffTitle(G->diff_code_lines ? "Source Metrics Differential Profile Based on Code Line Differences"
                                 : "Source Metrics Differential Profile Based on Code Size Differences",
              G);
    DiffDataHeader(G, DiffTable::kProfile);
    for (const StateRow *row : mode == Mode::kHtml || mode == Mode::kXml ? kHtmlOrder : kTextOrder) {
        ShowProfileState(row == &kModifiedRow && G->diff_code_lines ? kDifferentRow : *row, G);
    }
    if (mode == Mode::kXml) {
        Put("</total_differentials>\n");
    }
}

void DiffProfileLine(Globals *G, double unit) {
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            const double rate = unit > 0 ? static_cast<double>(G->diff_totals.of[column.metric]) / unit : 0.0;
            DiffCell(kRate, column.rate_tag, rate, G);
        }
    }
}
