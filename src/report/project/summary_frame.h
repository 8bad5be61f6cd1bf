// What the project summaries of functions, classes, interfaces and namespaces share: the head of the report, the blocks of the
// records, the head of the analysis.
#pragma once

struct Globals;
struct Llist;

struct SummaryFrame {
    const char *title;    // on a page
    const char *xml_name; // in XML
    const char *csv_name, *csv_count, *csv_columns;
    const char *note[3]; // on a page, in CSV, in XML; null for none
    void (*show)(void *record, Globals *G);
};

// Sorts the list by the sort key, writes the head of the report and, unless only summaries are wanted, the block of every record.
void OpenSummary(const SummaryFrame &frame, Llist *list, Globals *G);
// "</report>\n" in XML.
void CloseSummary(const Globals *G);
