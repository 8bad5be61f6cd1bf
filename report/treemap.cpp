// Rows are laid along the shorter side of what is free. A value joins the row in hand as long as that makes the worst of its
// rectangles more like a square; else the row is placed, and the next one begins in what is left.
#include "treemap.h"

#include <algorithm>
#include <cstddef>

namespace {

// How far the worst rectangle of a row is from a square, 1 for none: sum is the area of the row, largest and smallest are of it.
double Worst(double sum, double largest, double smallest, double side) {
    const double depth = sum / side;
    return std::max(largest / (depth * depth), depth * depth / smallest);
}

struct Row {
    size_t first;
    size_t end;
    double sum;
};

// As many values as make the best row along side, from first on. Values are areas.
Row NextRow(const std::vector<double> &areas, size_t first, double side) {
    Row row{first, first + 1, areas[first]};
    double worst = Worst(row.sum, areas[first], areas[first], side);
    for (; row.end < areas.size(); ++row.end) {
        const double next = Worst(row.sum + areas[row.end], areas[first], areas[row.end], side);
        if (next > worst) {
            break;
        }
        worst = next;
        row.sum += areas[row.end];
    }
    return row;
}

// Places a row at the left or the top of free, and takes it off.
void Place(const std::vector<double> &areas, const Row &row, Rectangle &free, std::vector<Rectangle> &placed) {
    const bool at_left = free.width >= free.height;
    const bool is_last = row.end == areas.size();
    double &whole_depth = at_left ? free.width : free.height;
    const double side = at_left ? free.height : free.width;
    const double depth = is_last ? whole_depth : std::min(row.sum / side, whole_depth);
    double along = 0;
    for (size_t i = row.first; i < row.end; ++i) {
        const double length = i + 1 == row.end ? side - along : side * areas[i] / row.sum;
        placed.push_back(at_left ? Rectangle{free.x, free.y + along, depth, length}
                                 : Rectangle{free.x + along, free.y, length, depth});
        along += length;
    }
    (at_left ? free.x : free.y) += depth;
    whole_depth -= depth;
}

} // namespace

std::vector<Rectangle> Treemap(const std::vector<double> &values, const Rectangle &whole) {
    double sum = 0;
    for (const double value : values) {
        sum += value;
    }
    std::vector<double> areas;
    areas.reserve(values.size());
    for (const double value : values) {
        areas.push_back(value / sum * whole.width * whole.height);
    }
    std::vector<Rectangle> placed;
    Rectangle free = whole;
    while (placed.size() < areas.size()) {
        Place(areas, NextRow(areas, placed.size(), std::min(free.width, free.height)), free, placed);
    }
    return placed;
}
