// The glossary of -wg: what the states and the columns of the report on two baselines mean.
#include <string>

#include "baseline/diff_columns.h"
#include "baseline/diff_tables.h"
#include "report/forms.h"
#include "run/globals.h"

namespace {

struct StateText {
    int WorkSwitches::*skipped;
    const char *code, *size; // by code lines, by size
};

constexpr const char *kRemovedAdded = "\n  Note: Lines in the older baseline which are not present in the\n"
                                      "  current baseline are considered removed lines.  The TLY configuration\n"
                                      "  file is set to add these line to the Dif metrics shown on this report.\n";
constexpr const char *kRemovedLeftOut = "\n  Note: Lines in the older baseline which are not present in the\n"
                                        "  current baseline are considered removed lines.  The TLY configuration\n"
                                        "  file is set to not include these lines in the Dif metrics shown on\n"
                                        "  this report.\n";
constexpr const char *kNew = "\n  New - Indicates that a file exists in the current work file and not\n"
                             "        in the old work file.  These are new files in the baseline.\n";
constexpr const char *kRemoved = "\n  Rem - Indicates that a file exists in the old work file and not\n"
                                 "        in the current work file.  These are files that have been removed\n"
                                 "        from the baseline.\n";
constexpr const char *kMethod = "\n  LCS - The algorithm for code differentials is based on the\n"
                                "  Longest Common Sequence algorthim.  LCS is the basis for GNU Diff type\n"
                                "  programs like WinMerge and diff.  TLY enhances this diff algorithm by\n"
                                "  comparing the content and type of each line.\n";

constexpr StateText kStates[] = {
    {&WorkSwitches::skip_new, kNew, kNew},
    {&WorkSwitches::skip_removed, kRemoved, kRemoved},
    {&WorkSwitches::skip_equal,
     "\n  Equ - Indicates that the compared files are the same size and each\n"
     "        line is exactly the same.\n",
     "\n  Equ - Indicates that the compared files are the same size but each\n"
     "        line may be different.  The switch -wd when used to create a work\n"
     "        file and perform differentials will perform code differentials\n"
     "        between baselines.  Reference the TLY - Code Differential White \n"
     "        Paper in the product documentation for further reference.\n"},
    {&WorkSwitches::skip_modified,
     "\n  Dif - Indicates that the compared files differ by a code\n"
     "        differential algorithm.  Reference the TLY - Code Differential\n"
     "        White Paper in the product documentation for further reference.\n",
     "\n  Mod - Indicates that the compared files differ by a LOC, line\n"
     "        of code size metric.  Reference the TLY - Code Differential\n"
     "        White Paper in the product documentation for further reference.\n"},
};

// The words of a paragraph, one blank between them.
std::string OneLine(const char *text) {
    constexpr const char *kBlanks = " \n";
    std::string line;
    while (*(text += strspn(text, kBlanks))) {
        const size_t length = strcspn(text, kBlanks);
        if (!line.empty()) {
            line += ' ';
        }
        line.append(text, length);
        text += length;
    }
    return line;
}

// An element breaks its lines as it likes.
void Paragraph(const char *text, const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        PrintOnly(Mode::kXml, "<note>%s</note>\n", Shown{OneLine(text).c_str()});
    } else {
        Put("%s", text);
    }
}

void ColumnLine(const DiffColumn &column, const Globals *G) {
    const int blanks = 10 - static_cast<int>(strlen(column.label));
    switch (OutputMode(G)) {
    case Mode::kHtml: Put("  <b>%s</b>%*s- %s\n", column.label, blanks, "", column.meaning); break;
    case Mode::kXml: PrintOnly(Mode::kXml, "<note>%s - %s</note>\n", column.label, column.meaning); break;
    case Mode::kCsv:
    case Mode::kText: Put("  %s%*s- %s\n", column.label, blanks, "", column.meaning); break;
    }
}

} // namespace

void DiffReportGlossary(Globals *G) {
    const bool xml = OutputMode(G) == Mode::kXml;
    if (xml) {
        Put("<glossary>\n<name>Metrics Differential Glossary</name>\n");
    }
    DiffTitle("Metrics Differential Glossary", G);
    DiffDataRule(G);
    if (G->diff_code_lines) {
        Paragraph(G->diff_removed_as_modified ? kRemovedAdded : kRemovedLeftOut, G);
    }
    for (const StateText &state : kStates) {
        if (!(G->*state.skipped)) {
            Paragraph(G->diff_code_lines ? state.code : state.size, G);
        }
    }
    if (G->diff_code_lines) {
        Paragraph(kMethod, G);
    }
    for (const DiffColumn &column : kDiffColumns) {
        if (ColumnShown(column.key, G)) {
            ColumnLine(column, G);
        }
    }
    if (xml) {
        Put("</glossary>\n");
    }
}
