// Two versions of a file compared by linear lookahead: one walk over both, which looks for each older line in what is left of the
// newer file and decides on the spot. It can miss lines that the longest common sequence finds:
//
//   older a, newer x y a: "a" is more than one line ahead, and no second line tells that it only moved down: it is taken for
//   removed
#include <algorithm>
#include <cstring>

#include "baseline/code_compare.h"
#include "baseline/compare_listing.h"
#include "baseline/line_classes.h"
#include "report/forms.h"
#include "run/globals.h"

namespace {

constexpr int32_t kFarthest = 100; // lines ahead: farther than this, the order of two lines tells nothing

constexpr Forms<> kTitle{.text = "\n  Linear Lookahead Differential\n",
                         .html = "\n  <b>Linear Lookahead Differential</b>\n",
                         .csv = "Linear Lookahead Differential\n",
                         .xml = "\n  Linear Lookahead Differential\n"};

struct Lookahead {
    DiffLines hist, pres;
    size_t h, p; // the lines in hand
    LineClasses ahead;
};

// The first position from p on where the newer file has an older line, or -1.
int32_t find_code_node(const Lookahead &look, const DiffData &line) {
    const int32_t of = FindLineClass(look.ahead, line);
    if (of < 0) {
        return -1;
    }
    const int32_t *begin = look.ahead.positions.get() + look.ahead.classes[of].first, *end = begin + look.ahead.classes[of].count;
    const int32_t *found = std::lower_bound(begin, end, static_cast<int32_t>(look.p));
    return found == end ? -1 : *found;
}

// How far that is from p; 0 also when there is none.
int32_t find_code_ahead(const Lookahead &look, const DiffData &line) {
    const int32_t found = find_code_node(look, line);
    return found < 0 ? 0 : found - static_cast<int32_t>(look.p);
}

void Report(const DiffLine &line, Globals *G) {
    DiffDetailShow(line, G);
    diffMetric(line.operation, line.type, G);
}

// Whether the lines ahead of the older line's match were added. Otherwise the older line was removed, or has changed places.
int32_t LinesAdded(const Lookahead &look) {
    const int32_t distance = find_code_ahead(look, look.hist[look.h]);
    if (!distance) {
        return 0;
    }
    const int32_t second = look.h + 1 < look.hist.size() ? find_code_ahead(look, look.hist[look.h + 1]) : 0;
    const bool added = second ? second > distance && second <= kFarthest : distance == 1;
    return added ? distance : 0;
}

// Reports a number of added lines from p on, and moves p behind them.
void advance_to_code_node(int32_t count, int32_t hist_line, Lookahead *look, Globals *G) {
    for (; count > 0; --count) {
        const DiffData &newer = look->pres[look->p++];
        Report({hist_line, newer.line, '+', newer.type}, G);
    }
}

void Walk(Lookahead *look, Globals *G) {
    while (look->h < look->hist.size() && look->p < look->pres.size()) {
        const DiffData &older = look->hist[look->h], &newer = look->pres[look->p];
        if (SameLine(older, newer)) {
            Report({older.line, newer.line, '=', older.type}, G);
            ++look->h;
            ++look->p;
        } else if (const int32_t added = LinesAdded(*look)) {
            advance_to_code_node(added, older.line, look, G);
        } else {
            Report({older.line, newer.line, '-', older.type}, G);
            ++look->h;
        }
    }
    advance_to_code_node(static_cast<int32_t>(look->pres.size() - look->p), 0, look, G);
    for (; look->h < look->hist.size(); ++look->h) {
        const DiffData &older = look->hist[look->h];
        Report({older.line, 0, '-', older.type}, G);
    }
}

} // namespace

int CompareCodeLinearLookahead(const char *file_name, const DiffDataList &hist, const DiffDataList &pres, Globals *G) {
    G->diff_algorithm = 2;
    memset(G->line_counts, 0, sizeof G->line_counts);
    if (G->diff_show_details) {
        Print(G, kTitle);
        SetDiffHeader(file_name, G);
    }
    Lookahead look{DiffLines(hist.lines, hist.count), DiffLines(pres.lines, pres.count), 0, 0, {}};
    double bytes = 0.0;
    if (!ClassifyLines(look.pres, &look.ahead, &bytes)) {
        ComparisonMemoryError(file_name, bytes, G);
        return 0;
    }
    Walk(&look, G);
    if (G->diff_debug) {
        const auto &[mod, eq, rm] = G->line_counts;
        Put("  Mod L%d N%d G%d C%d B%d |", mod[kLineL], mod[kLineN], mod[kLineG], mod[kLineC], mod[kLineB]);
        Put(" Eq L%d N%d G%d C%d B%d |", eq[kLineL], eq[kLineN], eq[kLineG], eq[kLineC], eq[kLineB]);
        Put(" Rm L%d N%d G%d C%d B%d\n", rm[kLineL], rm[kLineN], rm[kLineG], rm[kLineC], rm[kLineB]);
    }
    if (G->diff_show_details) {
        CloseDiffListing(G);
    }
    return 1;
}
