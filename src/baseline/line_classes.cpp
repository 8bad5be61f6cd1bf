// Line classes: the positions of a file's lines sorted by type and code, and where each class begins.
#include "baseline/line_classes.h"

#include <algorithm>
#include <cmath>

// 0.0 and -0.0 are one code: neither is less.
static bool StandsAhead(const DiffData &a, const DiffData &b) {
    return a.type != b.type ? a.type < b.type : a.code < b.code;
}

bool ClassifyLines(DiffLines lines, LineClasses *out, double *bytes) {
    out->lines = lines;
    out->count = 0;
    out->positions = ArrayOf<int32_t>(lines.size(), bytes);
    out->classes = ArrayOf<LineClass>(lines.size(), bytes);
    if (!out->positions || !out->classes) {
        return false;
    }
    int32_t *positions = out->positions.get();
    int32_t filled = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!std::isnan(lines[i].code)) {
            positions[filled++] = static_cast<int32_t>(i);
        }
    }
    std::sort(positions, positions + filled,
              [&](int32_t a, int32_t b) { return StandsAhead(lines[a], lines[b]) || (a < b && !StandsAhead(lines[b], lines[a])); });
    for (int32_t i = 0; i < filled; ++i) {
        if (i == 0 || StandsAhead(lines[positions[i - 1]], lines[positions[i]])) {
            out->classes[out->count++] = {i, 0};
        }
        ++out->classes[out->count - 1].count;
    }
    return true;
}

int32_t FindLineClass(const LineClasses &classes, const DiffData &line) {
    const LineClass *begin = classes.classes.get(), *end = begin + classes.count;
    const LineClass *found = std::lower_bound(begin, end, line, [&](const LineClass &a, const DiffData &b) {
        return StandsAhead(classes.lines[classes.positions[a.first]], b);
    });
    const bool equal = found != end && SameLine(classes.lines[classes.positions[found->first]], line);
    return equal ? static_cast<int32_t>(found - begin) : -1;
}
