#include "svg_charts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "page_html.h"
#include "utf8.h"

namespace {

constexpr double kCharacter = 6.8; // mean width of one in the texts of a drawing
constexpr int kMostDots = 60;      // more points than these are a line alone

// Rounded to a tenth, so that what ends at a place and what begins there share it.
double Tenth(double value) {
    return std::round(value * 10) / 10;
}

std::string Number(double value) {
    char text[32];
    snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string Attribute(const char *name, double value) {
    return std::string(" ") + name + "=\"" + Number(value) + "\"";
}

void Begin(std::string &out, const DrawingSize &size, const std::string &label) {
    out += std::string("<svg class=\"") + size.css_class + "\" viewBox=\"0 0 " + std::to_string(size.width) + " " +
           std::to_string(size.height) + "\" role=\"img\" aria-label=\"" + Shown(label, 1000) + "\">\n";
}

void AppendText(std::string &out, double x, double y, const char *css_class, const std::string &text) {
    out += "<text" + Attribute("x", x) + Attribute("y", y) + " class=\"" + css_class + "\">" + Shown(text) + "</text>";
}

void AppendRectangle(std::string &out, const Rectangle &r, const char *css_class) {
    out += "<rect" + Attribute("x", r.x) + Attribute("y", r.y) + Attribute("width", r.width) + Attribute("height", r.height) +
           " class=\"" + css_class + "\"/>";
}

void AppendTitle(std::string &out, const std::string &text) {
    out += "<title>" + Shown(text, 1000) + "</title>";
}

// text, cut to what has room.
std::string Fitting(const std::string &text, double room) {
    const auto most = static_cast<size_t>(std::max(room / kCharacter, 0.0));
    size_t characters = 0;
    size_t end = 0;
    size_t cut = 0;
    for (; end < text.size(); ++characters) {
        cut = characters + 1 < most ? end + std::max<size_t>(Utf8Length(std::string_view(text).substr(end)), 1) : cut;
        end += std::max<size_t>(Utf8Length(std::string_view(text).substr(end)), 1);
    }
    return characters <= most ? text : most < 4 ? "" : text.substr(0, cut) + "…";
}

} // namespace

void AppendColumns(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartColumn> &columns) {
    constexpr double kAbove = 20; // for the figure over the highest column
    constexpr double kBelow = 24; // for the labels
    constexpr double kWidest = 90;
    double highest = 0;
    for (const ChartColumn &column : columns) {
        highest = std::max({highest, column.value, column.before});
    }
    const double room = size.height - kAbove - kBelow;
    const double base = size.height - kBelow;
    const double step = std::min(size.width / static_cast<double>(columns.size()), kWidest);
    const double gap = std::min(step * 0.12, 8.0);
    const auto height_of = [&](double value) { return highest > 0 ? room * value / highest : 0.0; };
    Begin(out, size, label);
    for (size_t i = 0; i < columns.size(); ++i) {
        const ChartColumn &column = columns[i];
        const double x = step * static_cast<double>(i) + gap;
        const double width = step - 2 * gap;
        const double height = column.value > 0 ? std::max(height_of(column.value), 1.0) : 0;
        const double before = height_of(column.before);
        out += "<g>";
        AppendTitle(out, column.title);
        AppendRectangle(out, {x, base - height, width, height}, "column");
        if (column.before >= 0) {
            AppendRectangle(out, {x - gap, base - before - 1, step, 2}, "mark");
        }
        AppendText(out, x + width / 2, base - std::max(height, column.before >= 0 ? before : 0) - 5, "value", column.shown);
        AppendText(out, x + width / 2, base + 16, "axis", column.label);
        out += "</g>\n";
    }
    AppendRectangle(out, {0, base, static_cast<double>(size.width), 1}, "base");
    out += "</svg>\n";
}

void AppendLine(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartPoint> &points) {
    constexpr double kMargin = 18; // above and below, for the figures
    constexpr double kSide = 6;
    const auto lowest = std::ranges::min_element(points, {}, &ChartPoint::value);
    const auto highest = std::ranges::max_element(points, {}, &ChartPoint::value);
    const double range = highest->value - lowest->value;
    const double step = points.size() > 1 ? (size.width - 2 * kSide) / static_cast<double>(points.size() - 1) : 0;
    const auto x_of = [&](size_t i) { return points.size() > 1 ? kSide + step * static_cast<double>(i) : size.width / 2.0; };
    const auto y_of = [&](double value) {
        const double part = range > 0 ? (value - lowest->value) / range : 0.5;
        return size.height - kMargin - part * (size.height - 2 * kMargin);
    };
    Begin(out, size, label);
    out += "<polyline class=\"trend\" points=\"";
    for (size_t i = 0; i < points.size(); ++i) {
        out += (i ? " " : "") + Number(x_of(i)) + "," + Number(y_of(points[i].value));
    }
    out += "\"/>\n";
    for (size_t i = 0; i < points.size(); ++i) {
        if (points.size() <= kMostDots || i + 1 == points.size()) {
            out += "<circle class=\"dot\" r=\"3.5\"" + Attribute("cx", x_of(i)) + Attribute("cy", y_of(points[i].value)) + ">";
            AppendTitle(out, points[i].title);
            out += "</circle>";
        }
    }
    // The highest value stands above its point, the lowest below it, both within the drawing.
    for (const auto &end : {highest, lowest}) {
        const double x = x_of(static_cast<size_t>(end - points.begin()));
        const double half = static_cast<double>(end->shown.size()) * kCharacter / 2;
        AppendText(out, std::clamp(x, half, std::max(size.width - half, half)), y_of(end->value) + (end == highest ? -8 : 16),
                   "value", end->shown);
        if (lowest->value == highest->value) {
            break;
        }
    }
    out += "\n</svg>\n";
}

void AppendTiles(std::string &out, const DrawingSize &size, const std::string &label, const std::vector<ChartTile> &tiles) {
    constexpr double kInner = 5; // between the edge of a tile and its text
    std::vector<double> values;
    values.reserve(tiles.size());
    for (const ChartTile &tile : tiles) {
        values.push_back(tile.value);
    }
    const std::vector<Rectangle> places =
        Treemap(values, {0, 0, static_cast<double>(size.width), static_cast<double>(size.height)});
    Begin(out, size, label);
    for (size_t i = 0; i < tiles.size(); ++i) {
        const Rectangle &r = places[i];
        const Rectangle place{Tenth(r.x), Tenth(r.y), Tenth(r.x + r.width) - Tenth(r.x), Tenth(r.y + r.height) - Tenth(r.y)};
        // An svg within an svg cuts off what leaves it.
        out += "<svg" + Attribute("x", place.x) + Attribute("y", place.y) + Attribute("width", place.width) +
               Attribute("height", place.height) + ">";
        AppendTitle(out, tiles[i].title);
        AppendRectangle(out, {0, 0, place.width, place.height}, ("tile t" + std::to_string(tiles[i].tint)).c_str());
        if (const std::string name = Fitting(tiles[i].name, place.width - 2 * kInner); place.height >= 18 && !name.empty()) {
            AppendText(out, kInner, 14, "name", name);
            const std::string detail = Fitting(tiles[i].detail, place.width - 2 * kInner);
            if (place.height >= 34 && detail == tiles[i].detail) {
                AppendText(out, kInner, 29, "axis", detail);
            }
        }
        out += "</svg>\n";
    }
    out += "</svg>\n";
}
