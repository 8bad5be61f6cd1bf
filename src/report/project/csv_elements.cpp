// The configurable CSV report: the values of its elements, the template that its users edit, its columns and its rows.
//
// The vocabulary is in config/report_cfg.h. An element reads the counters of the file in hand, so a row is written between the
// last line of a file and the reset behind it.
#include "report/project/csv_elements.h"

#include <algorithm>
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

struct Amounts {
    long of[kAmounts];
};

Amounts Measure(const Globals *G) {
    Amounts a{};
    a.of[kAmountLoc] = G->file_loc;
    a.of[kAmountEloc] = EffectiveLines(*G);
    a.of[kAmountLloc] = LogicalLines(*G);
    a.of[kAmountBlanks] = G->file_blank;
    a.of[kAmountComments] = G->file_comments;
    a.of[kAmountWritten] = a.of[kAmountLoc] + a.of[kAmountComments];
    a.of[kAmountLogical] = a.of[kAmountWritten] + a.of[kAmountBlanks];
    a.of[kAmountPhysical] = G->file_line_no;
    a.of[kAmountNotices] = G->notice_count;
    a.of[kAmountChars] = G->file_chars;
    a.of[kAmountWhite] = G->file_white;
    a.of[kAmountVisible] = a.of[kAmountChars] - a.of[kAmountWhite];
    return a;
}

// A ratio to nothing is 0.
double RatioOf(const ElementValue &value, const Globals *G) {
    const Amounts amounts = Measure(G);
    const auto part = static_cast<float>(amounts.of[value.amount]);
    const auto whole = static_cast<float>(amounts.of[value.whole]);
    return static_cast<double>(whole < 1.0F ? 0.0F : part / whole);
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

// True for the one group that the file in hand belongs to: the sum of a column is the group's number of files. A file whose
// extension is of no language is in none.
bool IsOfLanguage(int language, const Globals *G) {
    const int own = G->ulpi_last > kCs ? kOther : G->ulpi_last;
    return LanguageInHand(G) != kNoLanguage && own == language;
}

bool IsElement(int element) {
    return element > kElementUnknown && element < kReportElements;
}

} // namespace

int insert_csv_data(FILE *stream, int element, int header, Globals *G) {
    if (!IsElement(element)) {
        fprintf(stream, "%s-%d,", "Invalid Report Selection", element);
        return 0;
    }
    if (header) {
        fputs(RepElemStr[element], stream);
        return 0;
    }
    const ElementValue &value = kElementValues[element];
    switch (value.kind) {
    case ElementValue::kFileName: WriteName(stream, G->file_name); break;
    case ElementValue::kCounter: fprintf(stream, "%d,", G->*value.counter); break;
    case ElementValue::kAmount: fprintf(stream, "%ld,", Measure(G).of[value.amount]); break;
    case ElementValue::kRatio: fprintf(stream, "%.*f,", value.decimals, RatioOf(value, G)); break;
    case ElementValue::kLanguage: fprintf(stream, "%d,", IsOfLanguage(value.language, G)); break;
    case ElementValue::kNone: fprintf(stream, "%d-%s,", element, "?"); break; // nothing that a file has
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
    return std::any_of(G->csv_columns, G->csv_columns + G->csv_column_count,
                       [](int element) { return kElementValues[element].amount == kAmountNotices; });
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
