// The analysis blocks of the summaries: figures in two columns on a page, as elements in XML.
#pragma once

#include <span>

#include "report/figures.h"

struct Globals;

// A line of two columns. The labels are without what stands around them in each mode; a null right label leaves the column out.
struct ColumnRow {
    const char *left;
    Figure left_figure;
    const char *right;
    Figure right_figure;
};

// One cell of a page: two blanks, prefix and label, the value with up to 2 decimals. The left column has no line feed.
void LeftColumn(const char *prefix, const char *label, double value, int decimals, const Globals *G);
void RightColumn(const char *prefix, const char *label, double value, int decimals, const Globals *G);
// Rows of a page, text or HTML; prefix is put in front of every label: "Avg ". Function points show a decimal in whole numbers too.
void ShowColumns(std::span<const ColumnRow> rows, const char *prefix, const Figures &figures, int decimals, const Globals *G);
// The broken rule between two blocks of rows.
void ShowSeparator();
// The same figures as XML elements: the sums, averages, maxima and minima.
enum ElementSet { kFunctionElements, kClassElements, kNamespaceElements }; // each holds those in front of it
void ShowElements(const Summary &summary, ElementSet set);
