// What concerns one file, and the table of all files: the name line and the end lines of a file's section, the file block of -Td
// and the closing summary of a run.
//
// Not here: the figures themselves (report/lines.h) and the CSV table of files (csv_file_line.cpp).
#include "report/file_reports.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "run/compare.h"
#include "run/globals.h"

static constexpr Wrap kCompactWrap{72, 2}; // of a name without a label

static constexpr Forms<const char *, long> kLabelLine{.text = "\n  %s\n",
                                                      .html = "\n  <b><font color=\"%{header}\">%s</font></b>  Bytes: %ld\n",
                                                      .csv = "\n%s\n",
                                                      .xml = "<name>%s</name>\n"};
static constexpr Forms<long> kLabelBytes{.xml = "<bytes>%ld</bytes>\n"};

static constexpr Forms<LinkTo, Shown> kNameLine{.text = "\n  File: %s\n",
                                                .html = "\n  <b>File</b>: <b><a href=\"%{href}\" target=\"_blank\">%s</a></b>\n",
                                                .csv = "\nFile,%s\n",
                                                .xml = "<name>%s</name>\n"};

static constexpr Forms<LinkTo, const char *, Shown> kCompactLine{
    .text = "\n  %s\n  %s\n",
    .html = "\n  <b><font color=\"%{date}\">%s</font></b>\n  <a href=\"%{href}\" target=\"_blank\"><b>%s</b></a>\n"};
static constexpr Forms<const char *, long> kDateAndBytes{.xml = "<date>%s</date>\n<size_bytes>%ld</size_bytes>\n"};
static constexpr Forms<Shown> kNameAlone{.csv = "%s\n", .xml = "<name>%s</name>\n"};

static constexpr Forms<LinkTo, Shown> kEndLine{
    .text = "  End of File: %s\n\n",
    .html = "  <b>End of File: </b><b><a href=\"%{href}\" target=\"_blank\">%s</a></b>\n\n\n",
    .csv = "File End\n",
    .xml = "  End of File: %s\n\n"};

// A name with a date is a file's, even if it is called TotalCost.c: only the closing blocks have none.
static bool IsLabel(const char *name, int64_t date) {
    return date == 0 && (strstr(name, "Total") || strstr(name, "Average"));
}

// The label is printed as it stands: in CSV its comma parts two fields.
static void ShowLabelLine(const char *label, int64_t size, const Globals *G) {
    Print(G, kLabelLine, label, long{size});
    if (!G->list_files_only) {
        Print(G, kLabelBytes, long{size});
    }
}

static void ShowNameLine(const char *name, const Globals *G) {
    LineText room;
    Print(G, kNameLine, LinkTo{name}, Shown{OnPage(name, room, Behind("File"), G)});
}

static void ShowDateSize(int64_t date, int64_t size, const Globals *G) {
    const time_t when = date;
    const std::string date_text = get_date(&when);
    const char *const day = date_text.c_str();
    char bytes[64];
    switch (OutputMode(G)) {
    case Mode::kText:
        FormatText(bytes, "File Size: %ld Bytes", long{size});
        Put("  Date: %s%42s\n", day, bytes);
        break;
    case Mode::kHtml:
        FormatText(bytes, "<b>File Size</b>: %ld Bytes", long{size});
        Put("  <b>Date</b>: %s%49s\n", day, bytes);
        break;
    case Mode::kCsv: Put("Date,%s\nSize,%ld,Bytes\n", day, long{size}); break;
    case Mode::kXml:
        if (!G->list_files_only) {
            Print(G, kDateAndBytes, day, long{size});
        }
        break;
    }
}

// The head of a file in totals mode, where nothing else is told about it.
static void ShowCompactLine(const char *name, int64_t date, int64_t size, const Globals *G) {
    const Mode mode = OutputMode(G);
    const time_t when = date;
    if (IsPage(mode)) {
        LineText room;
        const char *shown = OnPage(name, room, kCompactWrap, G);
        Print(G, kCompactLine, LinkTo{name}, get_date(&when).c_str(),
              Shown{mode == Mode::kHtml && G->relative_html_links ? HTMLPathFile(name, G) : shown});
        return;
    }
    if (!G->list_files_only) {
        Print(G, kDateAndBytes, get_date(&when).c_str(), long{size});
    }
    if (mode == Mode::kXml || G->show_date_size) {
        Print(G, kNameAlone, Shown{name});
    }
}

void ShowFileLine(const char *name, int64_t date, int64_t size, int compact, int detail, Globals *G) {
    if (!name) {
        return;
    }
    if (compact) {
        if (!G->totals_no_file_names) {
            ShowCompactLine(name, date, size, G);
        }
        return;
    }
    const Mode mode = OutputMode(G);
    if (IsLabel(name, date)) {
        ShowLabelLine(forms::Passed<Shown>(mode, Shown{name}).get(), size, G);
    } else {
        ShowNameLine(name, G);
    }
    if (G->show_date_size && date > 0) {
        ShowDateSize(date, size, G);
    }
    if (!IsPage(mode)) {
        return;
    }
    if (!G->report_switch_given && !G->file_summary) {
        Put("\n");
    }
    if (!detail && G->report_switch_given) {
        UnderscoreRule();
    }
}

void ShowFileEnd(const char *name, Globals *G) {
    const Mode mode = OutputMode(G);
    LineText room;
    const char *const wrapped = Wrapped(name, room, Behind("End of File"), G);
    if (mode != Mode::kCsv) {
        Put("  %s%s\n", kUnderscores, kUnderscores);
    }
    Print(G, kEndLine, LinkTo{name}, Shown{mode == Mode::kHtml && !G->wrap_long_names ? HTMLPathFile(name, G) : wrapped});
}

void FileShow(void *file, Globals *G) {
    PrintOnly(OutputMode(G), "%s\n", Shown{static_cast<const FileData *>(file)->name});
}

static void AddFile(FileSums &sums, const FileData &file) {
    sums.files += 1;
    sums.size += file.size;
    sums.functions += file.functions;
    sums.notices += file.notices;
    sums.params += file.params;
    sums.returns += file.returns;
    sums.cyclo += file.cyclo;
    sums.loc += file.loc;
    sums.eloc += file.eloc;
    sums.lloc += file.lloc;
    sums.comments += file.comments;
    sums.lines += file.lines;
    sums.fp_loc += file.fp_loc;
    sums.fp_eloc += file.fp_eloc;
    sums.fp_lloc += file.fp_lloc;
}

static int ShareOf(int64_t sum, int64_t divisor) {
    const double share = std::ceil(static_cast<double>(sum) / static_cast<double>(divisor));
    return static_cast<int>(std::clamp<double>(share, INT_MIN, INT_MAX));
}

// The sums as the figures of one file, shared out over divisor files and rounded up to whole numbers.
static FileData SumsAsFile(const FileSums &sums, int64_t divisor) {
    FileData file{};
    file.size = static_cast<int64_t>(std::ceil(static_cast<double>(sums.size) / static_cast<double>(divisor)));
    file.functions = ShareOf(sums.functions, divisor);
    file.notices = ShareOf(sums.notices, divisor);
    file.params = ShareOf(sums.params, divisor);
    file.returns = ShareOf(sums.returns, divisor);
    file.cyclo = ShareOf(sums.cyclo, divisor);
    file.loc = ShareOf(sums.loc, divisor);
    file.eloc = ShareOf(sums.eloc, divisor);
    file.lloc = ShareOf(sums.lloc, divisor);
    file.comments = ShareOf(sums.comments, divisor);
    file.lines = ShareOf(sums.lines, divisor);
    file.fp_loc = std::ceil(sums.fp_loc / static_cast<double>(divisor));
    file.fp_eloc = std::ceil(sums.fp_eloc / static_cast<double>(divisor));
    file.fp_lloc = std::ceil(sums.fp_lloc / static_cast<double>(divisor));
    return file;
}

constexpr Forms<> kFileOpen{.xml = "<file>\n"};
constexpr Forms<> kFileClose{.xml = "</file>\n"};

static void ShowFigures(const FileData &file, Globals *G) {
    if (G->list_files_only) {
        return;
    }
    FileMethodNotices(file.functions, file.notices, file.eloc, G);
    ComplexLine(file.params, file.returns, file.cyclo, G);
    LOCLine(file.loc, file.eloc, file.lloc, file.comments, file.lines, G);
    FPLine(G, file.fp_loc, file.fp_eloc, file.fp_lloc);
}

static void ShowSumsBlock(const char *label, const FileData &file, Globals *G) {
    Print(G, kFileOpen);
    ShowLabelLine(label, file.size, G);
    ShowFigures(file, G);
    Print(G, kFileClose);
}

void FileDetailShow(const FileData *file, Globals *G) {
    FileSums &sums = G->file_sums;
    if (file) {
        AddFile(sums, *file);
        Print(G, kFileOpen);
        ShowFileLine(file->name, file->date, file->size, 0, 1, G);
        ShowFigures(*file, G);
        Print(G, kFileClose);
        return;
    }
    const Mode mode = OutputMode(G);
    char label[64];
    FormatText(label, mode == Mode::kCsv ? "Total All %ld,Files" : "Total All %ld Files", long{sums.files});
    FileData total = SumsAsFile(sums, 1);
    total.fp_loc = sums.fp_loc; // only averages are whole numbers
    total.fp_eloc = sums.fp_eloc;
    total.fp_lloc = sums.fp_lloc;
    ShowSumsBlock(label, total, G);
    if (sums.files > 0) {
        ShowSumsBlock(mode == Mode::kText ? "Average per File" : "Average Per File", SumsAsFile(sums, sums.files), G);
    }
    sums = {};
}

constexpr Forms<const char *> kSummaryOpen{.csv = "%s\n", .xml = "<report>\n<name>%s</name>\n"};

// C, C headers, C++, C++ headers, C#, Java, other, all.
constexpr Forms<int, int, int, int, int, int, int, int> kFileCounts{
    .text = "\n  C Source Files *.c ....: %10d  C/C++ Include Files *.h: %10d\n"
            "  C++ Source Files *.c* .: %10d  C++ Include Files *.h* : %10d\n"
            "  C# Source Files *.cs ..: %10d  Java Source File *.jav*: %10d\n"
            "  Other File Count ......: %10d  Total File Count ......: %10d\n",
    .html = "\n  <b>C Source Files <i>*.c</i></b> ....: %10d  <b>C/C++ Include Files <i>*.h</i></b>: %10d\n"
            "  <b>C++ Source Files <i>*.c*</i></b> .: %10d  <b>C++ Include Files <i>*.h*</i></b> : %10d\n"
            "  <b>C# Source Files <i>*.cs</i></b> ..: %10d  <b>Java Source File <i>*.jav*</i></b>: %10d\n"
            "  <b>Other Source Files</b> ....: %10d\n"
            "  <b>Total File Count</b> ......: %10d\n",
    .csv = "\nC Source Files *.c,%10d\n"
           "C/C++ Include Files *.h,%10d\n"
           "C++ Source Files *.c*,%10d\n"
           "C++ Include Files *.h*,%10d\n"
           "C# Source Files *.cs,%10d\n"
           "Java Source File *.jav*,%10d\n"
           "Other File Count,%10d\n"
           "Total File Count,%10d\n",
    .xml = "<file_counts>\n"
           "<c_file_count>%d</c_file_count>\n"
           "<c_include_file_count>%d</c_include_file_count>\n"
           "<cpp_file_count>%d</cpp_file_count>\n"
           "<cpp_include_file_count>%d</cpp_include_file_count>\n"
           "<csharp_file_count>%d</csharp_file_count>\n"
           "<java_file_count>%d</java_file_count>\n"
           "<other_file_count>%d</other_file_count>\n"
           "<total_file_count>%d</total_file_count>\n"
           "</file_counts>\n"
           "</report>\n"};

void ShowFileSummary(Globals *G) {
    const Mode mode = OutputMode(G);
    if (IsPage(mode)) {
        DashRule();
        CenteredTitle(G->totals_files_detail ? "~~ File Detail Summary ~~" : "~~ File Summary ~~", G);
    }
    Print(G, kSummaryOpen, G->totals_files_detail ? "File Detail Summary" : "File Summary");
    if (G->totals_files_detail) {
        if (G->sort_active) {
            ShowSortMethod(G);
            LlistResort_FileData(&G->file_list, G->sort_key, G);
        }
        for (const FileData *file : Records<FileData>(G->file_list)) {
            FileDetailShow(file, G);
        }
        FileDetailShow(nullptr, G);
    }
    if (mode == Mode::kXml) { // whatever was asked for, an XML report holds the totals
        G->function_points = 1;
        ShowTotalSummary(G, 1, 1);
    }
    Print(G, kFileCounts, G->c_files, G->c_header_files, G->cpp_files, G->cpp_header_files, G->cs_files, G->java_files,
          G->other_files, G->project_files);
}
