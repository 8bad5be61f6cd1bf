// Fields of the report frame. They last for the whole run.
#pragma once

#include <cstdio>

#include "run/llist.h"
#include "run/records.h"
#include "run/report_cfg_state.h"
#include "run/text.h"

inline constexpr int kFigureRoom = 28; // what report/figures.h numbers

// Figures of a file, a function, a class or a namespace. Doubles hold every sum of 32-bit counts exactly.
struct Figures {
    double value[kFigureRoom];
};

// Sums, maxima and minima of a list.
struct Summary {
    Figures sum, maximum, minimum;
};

// The sums of all files of -Td so far; wider than a file's own figures, so that no project overflows them.
struct FileSums : FunctionPointValues {
    int64_t files, size;
    int64_t functions, notices, params, returns, cyclo;
    int64_t loc, eloc, lloc, comments, lines;
};

struct ReportState {
    int head_written;                        // the document has begun: messages may go into it
    int root_open;                           // the root element of an XML report is open
    int document_closed;                     // the close of the document has been written
    int heading_open;                        // CSV: the line of the project heading has no end yet
    Llist early_messages;                    // char*: messages that wait for the document to begin
    Summary csv_files;                       // the lines of the CSV table of files
    Summary csv_functions;                   // those of the table of functions, since the last totals
    int csv_functions_titled;                // the table of functions has its column line
    FileSums file_sums;                      // of the file blocks
    mutable LineText link_text;              // the answer of PathFile and HTMLPathFile
    LineText bar_dash, bar_page, bar_header; // rules and title of a code listing page
    char left_margin[44];                    // its margin, blanks
};

// The configurable CSV report.
struct CsvElementsState {
    FILE *csv_rows;                   // where its lines go; null in a run without it
    int csv_columns[kReportElements]; // element numbers, in the order of the columns
    int csv_column_count;             // columns
    int csv_notices_implied;          // notices are counted for a column only
    const char *unnamed_file;         // the source in hand, until a message has named it; null in a run that prints its name
};
