// Figures of the page as inline SVG. Each has a label for those who don't see it, and titles on its shapes. Colours are classes of
// the page's style.
#pragma once

#include <string>
#include <vector>

#include "treemap.h"

// The size of a drawing in units of its own, about a pixel each.
struct DrawingSize {
    int width;
    int height;
    const char *css_class; // "wide" and "narrow" drawings of one figure: only one of them is shown
};

struct ChartColumn {
    std::string label; // below it
    std::string brief; // in its place where there is less room
    double value;
    double before;     // a line across it; below 0: none
    std::string shown; // above it
    std::string title; // in words
};

// Columns from a base line at 0. label is plain text, as all texts here.
void AppendColumns(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartColumn> &columns);

struct ChartPoint {
    double value;
    std::string shown;
    std::string title;
};

// A line through the points, one step each, between its lowest and its highest value.
void AppendLine(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartPoint> &points);

struct ChartTile {
    double value;
    int tint; // 1 to 4
    std::string name;
    std::string detail; // a second line
    std::string title;
};

// A treemap. The largest value stands first.
void AppendTiles(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartTile> &tiles);
