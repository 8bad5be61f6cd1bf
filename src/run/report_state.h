// Fields of the report frame. They last for the whole run.
#pragma once

#include <cstdio>

#include "run/llist.h"
#include "run/report_cfg_state.h"
#include "run/text.h"

struct ReportState {
    int head_written;                        // the document has begun: messages may go into it
    int root_open;                           // the root element of an XML report is open
    int document_closed;                     // the close of the document has been written
    int heading_open;                        // CSV: the line of the project heading has no end yet
    int keeping_message;                     // a message is on its way into early_messages
    Llist early_messages;                    // char*: messages that wait for the document to begin
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
