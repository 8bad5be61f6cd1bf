// What a line was taken for, shown: the -d and -wD reports, the split by kind, and the code of a line.
#include <algorithm>

#include "analysis/extraction.h"
#include "analysis/line_code.h"
#include "analysis/scan.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

char LineLetter(const Scan &scan, int has_comment, const Globals *G) {
    if (scan.is_loc) {
        const char *letters = has_comment ? "ngl" : "NGL";
        return scan.non_effective ? letters[0] : scan.is_logical ? letters[1] : letters[2];
    }
    if (has_comment) {
        return 'C';
    }
    return scan.blank && !G->diff_ignore_blank ? 'B' : '\0';
}

double LineCode(const char *line, const Globals *G) {
    int position = 0;
    double code = 0.0;
    for (; *line; ++line) {
        if ((*line == 11 || *line > 31) && !(*line == ' ' && G->diff_ignore_white)) {
            ++position;
            code += static_cast<double>(*line) / position;
        }
    }
    return code;
}

namespace {

const char *CommentType(int line_has_c_comment, const Globals *G) {
    if (line_has_c_comment) {
        return G->is_java  ? " Java (C-Style) Comment"
               : G->is_cs  ? " C# (C Style) Comment"
               : G->is_cpp ? " C++ (C Style) Comment"
                           : " C Comment";
    }
    if (G->cpp_comment) {
        return G->is_java ? " Java Comment" : G->is_cs ? " C# Comment" : " C++ Comment";
    }
    return "";
}

void ReportSource(const Scan &scan, int line_has_c_comment, Globals *G) {
    if (OutputMode(G) == Mode::kHtml) {
        PrintHtml(G, "\n  <b>Line</b> %d: <font color=\"%{line}\">%s</font>  <b>LOC Type(s)</b>:", scan.number,
                  Shown{Ltrim(scan.line)});
    } else if (OutputMode(G) == Mode::kCsv) { // the source as it is, commas too
        Put("\n  Line %d: %s  LOC Type(s):", scan.number, scan.line);
    } else {
        PrintOnly<int, Shown>(OutputMode(G), "\n  Line %d: %s  LOC Type(s):", scan.number, Shown{scan.line});
    }
    if (scan.blank) {
        Put(" Blank");
    }
    if (scan.is_loc) {
        Put(" LOC%s%s", scan.non_effective ? " Non-Effective" : " Effective", scan.is_logical ? " Logical" : "");
    }
    Put("%s\n", CommentType(line_has_c_comment, G));
}

constexpr Forms<Shown> kCodeHeadFile{
    .text = "\n  File: %s\n", .html = "\n  File: %s\n", .csv = "File,%s\n", .xml = "\n  File: %s\n"};

constexpr Forms<int, char, double, Shown> kCodeRow{.text = "  %6d |  %c  %-20.15f | %s",
                                                   .html = "  %6d |  %c  %-20.15f | %s",
                                                   .csv = "%d,%c,%-20.15f,", // the source follows as it is, commas too
                                                   .xml = "  %6d |  %c  %-20.15f | %s"};

void ReportCode(const Scan &scan, char letter, Globals *G) {
    if (scan.number == 1) {
        Print(G, kCodeHeadFile, Shown{G->file_name});
        if (OutputMode(G) == Mode::kCsv) {
            Put("Line,Type,Code,Source\n");
        } else {
            Put("  Line #  Type Differential Code      Source Code Line\n  %s%s\n", kDashes, kDashes);
        }
    }
    if (letter) {
        Print(G, kCodeRow, scan.number, letter, LineCode(scan.line, G), Shown{scan.line});
        if (OutputMode(G) == Mode::kCsv) {
            Put("%s", scan.line);
        }
        if (!strchr(scan.line, '\n')) { // the last line of a file may lack its line end; the report's line doesn't
            Put("\n");
        }
    }
}

} // namespace

void NoteComment(const Scan &scan, int begin, Globals *G) {
    NoteSpan(scan, begin, scan.index, kCommentSpan);
    if (G->extract_comments) { // to the "/" that closes it, or to the end of the line
        ExtractCommentSpan(scan.line + begin, std::min(scan.index + 2, scan.length) - begin, G);
    }
}

void NoteString(const Scan &scan, int begin, Globals *G) {
    NoteSpan(scan, begin, scan.index, kStringSpan);
    if (G->extract_strings) { // with its closing quote
        const int closed = !G->string_flag;
        ExtractStringSpan(scan.line + begin, scan.index + closed - begin, closed, scan.number, G);
    }
}

void ReportLine(const Scan &scan, int line_has_c_comment, Globals *G) {
    if (G->determine_source && !G->work_deterministic && !G->is_other) {
        ReportSource(scan, line_has_c_comment, G);
    }
    if (G->work_deterministic && !G->determine_source) {
        ReportCode(scan, LineLetter(scan, line_has_c_comment || G->cpp_comment, G), G);
    }
}

void SplitLine(const Scan &scan, Globals *G) {
    // Each text with its fill, so that a line costs its length once. A text never outgrows the line it comes from.
    int code = 0, string = 0, comment = 0;
    const auto file = [](LineText &text, int &fill, char c) {
        if (fill < static_cast<int>(sizeof(LineText)) - 1) {
            text[fill++] = c;
        }
    };
    for (int i = 0; i < scan.length; ++i) {
        const char c = scan.line[i];
        if (scan.kinds[i] == kPassedOver) {
            continue;
        }
        if (scan.kinds[i] == kCommentSpan) {
            file(G->line_comment, comment, c);
        } else if (scan.kinds[i] == kStringSpan) {
            file(G->line_string, string, c);
        } else if (scan.line[i - 1] == '*' && c == '/') {
            file(G->line_comment, comment, '*');
            file(G->line_comment, comment, '/');
        } else if (c == '*' && scan.line[i + 1] == '/') {
            continue; // filed with its "/"
        } else if (c == '"' && string > 0 && G->line_string[0] == '"') {
            file(G->line_string, string, c);
        } else {
            file(G->line_code, code, c);
        }
    }
    G->line_code[code] = '\0';
    G->line_string[string] = '\0';
    G->line_comment[comment] = '\0';
}
