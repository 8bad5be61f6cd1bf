// One file: open, read line by line, store the metrics, report, roll up, reset.
#include "run/driver/file_loop.h"

#include <cerrno>

#include "analysis/function.h"
#include "analysis/line_counts.h"
#include "analysis/namespaces.h"
#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "analysis/scopes.h"
#include "baseline/line_records.h"
#include "baseline/work_file.h"
#include "config/languages.h"
#include "files/source_reader.h"
#include "notices/raise.h"
#include "notices/udqn.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/lines.h"
#include "report/project/csv_elements.h"
#include "report/project/summaries.h"
#include "report/project/totals.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/percent.h"
#include "run/progress.h"
#include "tools/decharacter.h"
#include "tools/listing.h"

namespace {

// Whether the report holds nothing but lines, which can be counted without a look at functions, classes and notices.
bool LinesAreAll(const Globals *G) {
    const int entities = G->function_metrics | G->list_functions | G->object_metrics | G->inheritance_report | G->macro_metrics;
    const int figures = G->verbose_metrics | G->memory_metrics | G->csv_file_lines | (G->csv_rows != nullptr);
    const int notices = G->quality_notices | G->notices_by_file | (G->udqn_list.count > 0) | G->skip_tokens_active;
    const int records = G->work_file_create | G->diff_code_lines | G->determine_source | G->work_deterministic | G->debug;
    const int rewritings = G->extract_mode | G->comment_doc_mode | G->extract_strings | G->extract_comments;
    return !(entities | figures | notices | records | rewritings) && !G->reading;
}

void ReadSource(SourceReader *reader, Globals *G) {
    if (G->lines_only && CountLines(reader, G)) {
        return;
    }
    ScanSource(reader, G);
}

void StoreMetrics(FileData *file, Globals *G) {
    static_cast<LineCounts &>(*file) = LinesOf(*G);
    file->cyclo = G->cyclo_total;
    file->functions = G->file_functions;
    file->params = G->params_total;
    file->returns = G->returns_total;
    file->skipped = G->skipped_lines;
    file->fp_loc = GetFP(file->loc, 0, G);
    file->fp_eloc = GetFP(file->eloc, 1, G);
    file->fp_lloc = GetFP(file->lloc, 2, G);
    G->fp_loc += file->fp_loc;
    G->fp_eloc += file->fp_eloc;
    G->fp_lloc += file->fp_lloc;
}

// With a -F list: the file counts in the first listed directory that its own directory's name begins with.
void AddToDirectory(const FileData *file, Globals *G) {
    const char *slash = strrchr(file->name, '/');
    if (!slash) {
        return;
    }
    LineText directory;
    CopyPart(directory, file->name, slash - file->name);
    const LlistNode *node = LlistSearch(&G->dir_metrics_list, directory, IsInName_NodeType);
    if (!node) {
        return;
    }
    NodeData *sums = Record<NodeData>(node);
    ++sums->params;
    Add(*sums, *file);
}

constexpr Forms<int, int> kBracesDiffer{
    .text = "\n    NOTICE: The end of the source file has been reached where the\n"
            "            open brace count { %d != %d } close brace count \n"
            "            This is an indication of non-compilable code within the source\n"
            "            file.  TLY processes all source code including code wrapped\n"
            "            with preprocessor directives.  Accurate metrics requires that\n"
            "            all code present in this file must be compilable.\n",
    .html = "\n    <font color=\"%{notice}\"><b>Notice</b></font>: The end of the source file has been reached where the\n"
            "            <b>open brace count { %d != %d } close brace count</b>\n"
            "            This is an indication of non-compilable code within the source\n"
            "            file.  TLY processes all source code including code wrapped\n"
            "            with preprocessor directives.  Accurate metrics requires that\n"
            "            all code present in this file must be compilable.\n",
    .csv = "\n    NOTICE: The end of the source file has been reached where the\n"
           "            open brace count { %d != %d } close brace count \n"
           "            This is an indication of non-compilable code within the source\n"
           "            file.  TLY processes all source code including code wrapped\n"
           "            with preprocessor directives.  Accurate metrics requires that\n"
           "            all code present in this file must be compilable.\n"};

constexpr Forms<> kOpenFunction{
    .text = "\n    NOTICE: The end of the source file has been reached where the\n"
            "            local function scope remains open.  The last known function\n"
            "            will be emitted but metrics cannot be generated in this\n"
            "            condition.\n",
    .html = "\n    <font color=\"%{notice}\"><b>Notice</b></font>: The end of the source file has been reached where the\n"
            "            <b>local function scope remains open</b>.  The last known function\n"
            "            will be emitted but metrics cannot be generated in this\n"
            "            condition.\n",
    .csv = "\n    NOTICE: The end of the source file has been reached where the\n"
           "            local function scope remains open.  The last known function\n"
           "            will be emitted but metrics cannot be generated in this\n"
           "            condition.\n",
    .xml = "\n    NOTICE: The end of the source file has been reached where the\n"
           "            local function scope remains open.  The last known function\n"
           "            will be emitted but metrics cannot be generated in this\n"
           "            condition.\n"};

void RaiseBelow(int n, float measured, float limit, Globals *G) {
    if (limit > measured) {
        NoticeFilePercent(n, measured, limit, G);
    }
}

void FileNotices(Globals *G) {
    RaiseBelow(kNoticeFileBlank, Percent(G->file_blank, G->file_loc), G->min_file_blank_pct, G);
    RaiseBelow(kNoticeFileComments, Percent(G->file_comments, G->file_loc + G->file_comments), G->min_file_comment_pct, G);
    RaiseBelow(kNoticeFileWhite, Percent(G->file_white, G->file_chars), G->min_file_white_pct, G);
    if (G->is_cpp && (G->new_count < 1 ? G->delete_count > 0 : G->new_count != G->delete_count)) {
        EmitNewDelNotice(G);
    }
    if (G->key_string_set && !G->key_string_found) {
        NoticeKeyString(G);
    }
}

void ReportFile(const FileData *file, Globals *G) {
    if (G->csv_file_lines) {
        CSV_Function_Total(G);
        CSV_File_Line(*file, G);
        return;
    }
    if (G->work_file && !G->comment_doc_mode && !G->extract_mode) {
        WriteWorkRecord(file, G);
    }
    const int verbose_xml = G->verbose_metrics && OutputMode(G) == Mode::kXml && !G->verbose_totals;
    if (!G->comment_doc_mode && !G->extract_mode && (!G->totals_only || verbose_xml)) {
        if (G->file_summary || G->function_metrics) {
            ShowTotalSummary(G, 0, 0);
        }
        if ((G->function_metrics || G->list_functions) && G->file_functions > 0) {
            ShowFileFunctionSummary(G);
        }
        if (G->memory_metrics) {
            ShowMemorySummary(G);
        }
        if (G->verbose_metrics) {
            ShowVerbose(G, 0);
        }
    }
    if (G->report_switch_given && !G->totals_only) {
        ShowFileEnd(file->name, G);
    }
}

void EndFile(FileData *file, Globals *G) {
    StoreMetrics(file, G);
    if (G->file_list_mode) {
        AddToDirectory(file, G);
    }
    if (G->namespace_flag && (G->is_java || G->file_namespace)) { // a package has no closing brace
        CloseNamespace(G);
    }
    if (!G->totals_only) {
        const int closed = G->reading & kBraces ? ClosedBraces(G) : G->closebrace_count;
        if (G->open_braces != closed) {
            Print(G, kBracesDiffer, G->open_braces, closed);
        }
        if (G->function_scope > 0 && G->funcname_flag) {
            Print(G, kOpenFunction);
            EmitFunction(G);
        }
    }
    FileNotices(G);
    ReportFile(file, G);
    WorkDiffDataFileClose(G);
    udqn_process("UDQN eof", 1, G);
    if (G->csv_rows) {
        ShowCsvElements(G);
        G->unnamed_file = nullptr;
    }
    AddTotal(G);
    file->notices = G->notice_count;
    if (OutputMode(G) == Mode::kXml && !G->totals_no_file_names) {
        if (!G->list_files_only) {
            LOCLine(file->loc, file->eloc, file->lloc, file->comments, file->lines, G);
            FPLine(G, file->fp_loc, file->fp_eloc, file->fp_lloc);
        }
        Put("</file>\n");
    }
}

void ReportReadFailure(const FileData *file, const SourceReader *reader, int line, Globals *G) {
    if (reader->failed) {
        Message(G, "\n  Error: Problem reading input file:\n         %s\n         At line %d, %s\n\n", file->name, line,
                strerror(reader->failed));
    }
}

void ListFile(const FileData *file, SourceReader *reader, Globals *G) {
    const int lines = PrintCode(reader, file->name, G);
    ++G->files_processed;
    ReportReadFailure(file, reader, lines, G);
    CloseSource(reader);
}

void ProcessFile(FileData *file, SourceReader *reader, Globals *G) {
    G->file_name = file->name;
    if (static_cast<unsigned char>(*file->name) <= 32 || strcmp(file->name, ".") == 0) {
        return;
    }
    if (!OpenSource(reader, file->name, G->lines_only ? MaskUse::kLines : MaskUse::kCode, G->decharacter_mode)) {
        Message(G, "\n  Error: Problem opening input file:\n         %s\n         For %s, %s\n\n", file->name,
                G->decharacter_mode ? "modification" : "read", errno == EINVAL ? "Not a regular file" : strerror(errno));
        return;
    }
    if (G->print_mode) {
        ListFile(file, reader, G);
        return;
    }
    if (G->decharacter_mode) {
        DeFile(reader, file->name, G);
        ++G->files_processed;
        return;
    }
    if (G->show_progress && G->progress_by_name) {
        fprintf(stderr, "  + %s\n", file->name);
    } else if (G->show_progress) {
        CountProgress(G->file_list.count, G);
    }
    if (OutputMode(G) == Mode::kXml && !G->totals_no_file_names) {
        Put("<file>\n");
    }
    G->file_size = file->size;
    G->file_date = file->date;
    G->total_size += file->size;
    G->unnamed_file = G->csv_rows ? file->name : nullptr;
    ShowFileLine(file->name, file->date, file->size, G->totals_only, 0, G);
    file->language = WhichFile(file->name, G, 1);
    ++G->files_processed;
    if (G->work_file && G->diff_code_lines) {
        WorkDiffDataFileOpen(G);
    }
    ReadSource(reader, G);
    ReportReadFailure(file, reader, G->file_line_no, G);
    EndFile(file, G);
    ResetState(G);
    CloseSource(reader);
}

} // namespace

void ProcessFiles(Globals *G) {
    static SourceReader reader; // large for the stack; between two files it holds nothing
    G->lines_only = LinesAreAll(G);
    for (FileData *file : Records<FileData>(G->file_list)) {
        ProcessFile(file, &reader, G);
    }
    G->file_name = nullptr;
}
