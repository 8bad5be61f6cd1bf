// The configurable CSV report: the values of its elements, the template that its users edit, its columns and its rows.
//
// The vocabulary is in config/report_cfg.h. An element reads the counters of the file in hand, so a row is written between the
// last line of a file and the reset behind it.
#include "report/project/csv_elements.h"

#include <cerrno>
#include <string>

#include "config/languages.h"
#include "config/report_cfg.h"
#include "notices/udqn.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/read_lines.h"

namespace {

using Field = int Globals::*;

// Numbers of the vocabulary at which another way to get a value begins.
constexpr int kFirstCounter = 9, kFirstRatio = 57, kFirstNoticeRatio = 66, kFirstLanguage = 69;

// Elements 9 to 54, in their order.
constexpr Field kCounters[] = {
    &Globals::string_count,  &Globals::continuation_count, &Globals::preproc_count,   &Globals::include_count,
    &Globals::import_count,  &Globals::typedef_count,      &Globals::const_count,     &Globals::enum_count,
    &Globals::do_count,      &Globals::while_count,        &Globals::switch_count,    &Globals::default_count,
    &Globals::for_count,     &Globals::case_count,         &Globals::break_count,     &Globals::if_count,
    &Globals::else_count,    &Globals::goto_count,         &Globals::return_count,    &Globals::exit_count,
    &Globals::_exit_count,   &Globals::abort_count,        &Globals::macro_count,     &Globals::struct_count,
    &Globals::union_count,   &Globals::class_count,        &Globals::interface_count, &Globals::template_count,
    &Globals::friend_count,  &Globals::namespace_count,    &Globals::package_count,   &Globals::function_count,
    &Globals::virtual_count, &Globals::inline_count,       &Globals::alloc_count,     &Globals::free_count,
    &Globals::new_count,     &Globals::delete_count,       &Globals::semicolon_count, &Globals::using_count,
    &Globals::open_paren,    &Globals::close_paren,        &Globals::open_braces,     &Globals::closebrace_count,
    &Globals::open_bracket,  &Globals::close_bracket,
};
constexpr int kBehindCounters = kFirstCounter + static_cast<int>(std::size(kCounters));
static_assert(kBehindCounters == 55 && kElementNotices == 56);

// What ratios are made of. The first seven are elements themselves, from kElementLoc on.
enum Figure { kLoc, kEloc, kLloc, kBlanks, kComments, kLogical, kPhysical, kNotices, kChars, kWhite, kVisible, kWritten, kFigures };

struct Figures {
    long value[kFigures];
};

Figures Measure(const Globals *G) {
    Figures f{};
    f.value[kLoc] = G->file_loc;
    f.value[kEloc] = EffectiveLines(*G);
    f.value[kLloc] = LogicalLines(*G);
    f.value[kBlanks] = G->file_blank;
    f.value[kComments] = G->file_comments;
    f.value[kWritten] = f.value[kLoc] + f.value[kComments];
    f.value[kLogical] = f.value[kWritten] + f.value[kBlanks];
    f.value[kPhysical] = G->file_line_no;
    f.value[kNotices] = G->notice_count;
    f.value[kChars] = G->file_chars;
    f.value[kWhite] = G->file_white;
    f.value[kVisible] = f.value[kChars] - f.value[kWhite];
    return f;
}

struct Ratio {
    Figure part, whole;
    int decimals;
};
constexpr Ratio kCharsPerLine{kVisible, kWritten, 2};
// Elements 57 to 68, in their order.
constexpr Ratio kRatios[] = {
    {kLoc, kLogical, 4},   {kEloc, kLogical, 4}, {kComments, kLogical, 4}, {kBlanks, kLogical, 4},
    {kVisible, kChars, 4}, {kWhite, kChars, 4},  {kComments, kLoc, 2},     {kComments, kEloc, 2},
    {kComments, kLloc, 2}, {kNotices, kLoc, 2},  {kNotices, kEloc, 2},     {kNotices, kLloc, 2},
};
static_assert(kFirstRatio + std::size(kRatios) == kFirstLanguage);

// A ratio to nothing is 0.
void WriteRatio(FILE *stream, const Ratio &ratio, const Globals *G) {
    const Figures f = Measure(G);
    const auto part = static_cast<float>(f.value[ratio.part]);
    const auto whole = static_cast<float>(f.value[ratio.whole]);
    fprintf(stream, "%.*f,", ratio.decimals, static_cast<double>(whole < 1.0F ? 0.0F : part / whole));
}

// A name is one field, whatever it holds: a quotation mark is doubled, and then the field stands in such marks.
void WriteName(FILE *stream, const char *name) {
    std::string field;
    csv_field(name, field);
    if (field.find('"') != std::string::npos) {
        for (size_t at = 0; (at = field.find('"', at)) != std::string::npos; at += 2) {
            field.insert(at, 1, '"');
        }
        field = '"' + field + '"';
    }
    fprintf(stream, "%s,", field.c_str());
}

// 1 for the one group that the file in hand belongs to: the sum of a column is the group's number of files. A file whose extension
// is of no language is in none.
int IsOfLanguage(int element, const Globals *G) {
    static constexpr int kGroups[] = {kCpp, kC, kCppHeader, kCHeader, kJava, kCs, kOther};
    if (!(G->is_c | G->is_cpp | G->is_java | G->is_cs | G->is_other)) {
        return 0;
    }
    const int language = G->ulpi_last > kCs ? kOther : G->ulpi_last;
    return kGroups[element - kFirstLanguage] == language;
}

bool IsElement(int element) {
    return element > kElementUnknown && element < kReportElements;
}

} // namespace

int insert_csv_data(FILE *stream, int element, int header, Globals *G) {
    if (!IsElement(element)) {
        fprintf(stream, "%s-%d,", "Invalid Report Selection", element);
    } else if (header) {
        fputs(RepElemStr[element], stream);
    } else if (element == kElementFileName) {
        WriteName(stream, G->file_name);
    } else if (element < kFirstCounter) {
        fprintf(stream, "%ld,", Measure(G).value[element - kElementLoc]);
    } else if (element < kBehindCounters) {
        fprintf(stream, "%d,", G->*kCounters[element - kFirstCounter]);
    } else if (element == kBehindCounters) {
        WriteRatio(stream, kCharsPerLine, G);
    } else if (element == kElementNotices) {
        fprintf(stream, "%d,", G->notice_count);
    } else if (element < kFirstLanguage) {
        WriteRatio(stream, kRatios[element - kFirstRatio], G);
    } else if (element < kElementCyclo) {
        fprintf(stream, "%d,", IsOfLanguage(element, G));
    } else { // nothing that a file has
        fprintf(stream, "%d-%s,", element, "?");
    }
    return 0;
}

int CreateCSVCfg(ElementChoice *table, Globals *G) {
    const int loaded = LoadReportCfg(G->csv_report_file, table, G);
    Put("# TLY CSV file metrics\n#\n"
        "# This output is a template for creating a configurable CSV report.\n"
        "# Specify Yes or No to the data types shown in this template.\n"
        "# You must create a report configuration file from this template\n"
        "# by rerouting this output to a file.  All lines beginning with #\n"
        "# are comments.\n#\n"
        "# For Example:\n"
        "#     tly -hc > /proj/reports/my_metrics.cfg\n#\n"
        "# Edit this configuration file to specify the desired data and order\n"
        "# of the data.  The resultant CSV report can be imported into\n"
        "# Microsoft Excel.\n#\n"
        "# Use TLY with the -X option to process this configuration file\n"
        "# into a CSV report.\n#\n"
        "#     tly -X \"File CSV my_metrics.cfg\" -O my_metrics.csv\n#\n");
    for (int element = kElementUnknown + 1; element < kReportElements; ++element) {
        Put("%-40s: %s", RepCfgStr[element], table[element].on ? "On\n" : "Off\n");
    }
    Put("# End of report configuration\n");
    return loaded;
}

namespace {

[[noreturn]] void RefuseChoice(const char *reason, Globals *G) {
    Message(G, "\n  Error: Problem with the CSV report configuration file:\n         %s\n         %s\n\n", G->csv_report_file,
            reason);
    EndProcess(G, 1);
}

// The columns stand in the order of the user's lines.
void LoadChoice(Globals *G) {
    FILE *file = OpenRegularFile(G->csv_report_file); // not LoadReportCfg, which makes a file where there is none
    if (!file) {
        RefuseChoice(errno == EINVAL ? "Not a regular file" : strerror(errno), G);
    }
    int order[kReportElements];
    const int count = ReadReportCfg(file, G->csv_report_cfg, order);
    fclose(file);
    for (int i = 0; i < count; ++i) {
        if (G->csv_report_cfg[order[i]].on) {
            G->csv_columns[G->csv_column_count++] = order[i];
        }
    }
    if (G->csv_column_count == 0) {
        RefuseChoice("No element is on. A line such as \"LOC_COUNT ON\" turns one on", G);
    }
}

bool CountsNotices(const Globals *G) {
    for (int element = kFirstNoticeRatio; element < kFirstLanguage; ++element) {
        if (G->csv_report_cfg[element].on) {
            return true;
        }
    }
    return G->csv_report_cfg[kElementNotices].on;
}

// Whatever else the command line asks for, this run measures, and is silent. Functions and classes are always measured: so an
// element reads the same whatever stands beside it.
void SettleForRows(Globals *G) {
    static constexpr Field kOn[] = {&Globals::csv_mode,         &Globals::totals_only,    &Globals::totals_no_file_names,
                                    &Globals::function_metrics, &Globals::object_metrics, &Globals::no_config};
    static constexpr Field kOff[] = {
        &Globals::html_mode,        &Globals::xml_mode,           &Globals::csv_file_lines,   &Globals::csv_function_lines,
        &Globals::print_mode,       &Globals::decharacter_mode,   &Globals::decharacter_tabs, &Globals::decharacter_unix,
        &Globals::decharacter_dos,  &Globals::extract_mode,       &Globals::extract_strings,  &Globals::extract_comments,
        &Globals::comment_doc_mode, &Globals::template_ident,     &Globals::list_functions,   &Globals::list_files_only,
        &Globals::determine_source, &Globals::work_deterministic, &Globals::macro_metrics,    &Globals::show_class_methods,
        &Globals::notices_by_file,  &Globals::notices_by_file_tn, &Globals::notice_vs_format, &Globals::notice_short_format,
        &Globals::udqn_show,
    };
    for (const Field flag : kOn) {
        G->*flag = 1;
    }
    for (const Field flag : kOff) {
        G->*flag = 0;
    }
}

// Notices that only a column asks for have no part in the run's exit status.
void CountNoticesForRows(Globals *G) {
    G->csv_notices_implied = !G->quality_notices && CountsNotices(G);
    if (G->csv_notices_implied) {
        G->quality_notices = 1;
    }
    LoadUserRules(G);
}

} // namespace

void BeginCsvElements(Globals *G) {
    SettleForRows(G);
    G->csv_rows = gTLYOUT;
    gTLYOUT = stderr;
    FlushEarlyMessages(G);
    LoadChoice(G);
    CountNoticesForRows(G);
    for (int i = 0; i < G->csv_column_count; ++i) {
        if (i > 0) {
            fputc(',', G->csv_rows);
        }
        insert_csv_data(G->csv_rows, G->csv_columns[i], 1, G);
    }
    fputc('\n', G->csv_rows);
}

void ShowCsvElements(Globals *G) {
    char *text = nullptr;
    size_t length = 0;
    FILE *row = open_memstream(&text, &length);
    if (!row) {
        Message(G, "  Memory Error: %s\n", strerror(errno));
        return;
    }
    for (int i = 0; i < G->csv_column_count; ++i) {
        insert_csv_data(row, G->csv_columns[i], 0, G);
    }
    if (fclose(row) == 0 && length > 0) {
        text[length - 1] = '\n'; // in place of the last comma: a line has as many fields as there are labels
        fwrite(text, 1, length, G->csv_rows);
    } else {
        Message(G, "  Memory Error: %s\n", strerror(ENOMEM));
    }
    free(text);
}

void EndCsvElements(Globals *G) {
    gTLYOUT = G->csv_rows;
    if (G->csv_notices_implied) {
        G->quality_notices = 0;
    }
}
