// Areas in proportion to values, as near to squares as may be.
#pragma once

#include <vector>

struct Rectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// Divides whole into one rectangle per value, which fill it without overlap. Values are above 0, the largest first; the first
// rectangle stands at the top left.
std::vector<Rectangle> Treemap(const std::vector<double> &values, const Rectangle &whole);
