// Two versions of a file compared by their longest common sequence. A long file is cut into segments from its end: the last
// max_lcs_file_lines lines of both versions, the ones ahead of these, and at last what is left. A line never matches across a cut.
#include "baseline/code_compare.h"

#include <algorithm>
#include <cstring>

#include "baseline/compare_listing.h"
#include "baseline/lcs.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

// Counts a line of a type under '+', '=' or '-'. A type that is none counts nowhere.
void diffMetric(char operation, char type, Globals *G) {
    int *counts = G->line_counts[operation == '+' ? kLineMod : operation == '=' ? kLineEq : kLineRm];
    switch (type) {
    case 'l': ++counts[kLineC]; [[fallthrough]];
    case 'L': ++counts[kLineL]; break;
    case 'n': ++counts[kLineC]; [[fallthrough]];
    case 'N': ++counts[kLineN]; break;
    case 'g': ++counts[kLineC]; [[fallthrough]];
    case 'G': ++counts[kLineG]; break;
    case 'C': ++counts[kLineC]; break;
    case 'B': ++counts[kLineB]; break;
    default: break;
    }
}

// Tells that a comparison is given up: bytes were asked for and aren't there.
void ComparisonMemoryError(const char *file_name, double bytes, Globals *G) {
    Message(G, "\n  Error: Memory Allocation LCS Array\n         File - %s\n         Size - %.0f bytes\n", file_name, bytes);
}

} // namespace

void TakeDiffLine(DiffListing *listing, const DiffLine &line, Globals *G) {
    diffMetric(line.operation, line.type, G);
    if (listing->nodes) {
        AddDiffLine(listing, line);
    }
}

namespace {

// Reports the lines that both runs begin with, and counts those that both end with: most files of two baselines differ in a few
// places or in none, and what stands around these needs no matrix. The counts are those of a walk over the whole of it. But of
// equal lines that walk may match others, so a listing keeps the ends:
//
//   older  newer
//   x      y         the whole walk:   - x, + y, = }, + }
//   }      }         without the end:  - x, + y, + }, = }
//          }
void TakeEqualEnds(DiffLines *hist, DiffLines *pres, DiffListing *listing, Globals *G) {
    while (!hist->empty() && !pres->empty() && SameLine(hist->front(), pres->front())) {
        TakeDiffLine(listing, {hist->front().line, pres->front().line, '=', hist->front().type}, G);
        *hist = hist->subspan(1);
        *pres = pres->subspan(1);
    }
    while (!listing->nodes && !hist->empty() && !pres->empty() && SameLine(hist->back(), pres->back())) {
        diffMetric('=', hist->back().type, G);
        *hist = hist->first(hist->size() - 1);
        *pres = pres->first(pres->size() - 1);
    }
}

// Compares two runs of lines in one pass.
bool ComparePass(const char *file_name, DiffLines hist, DiffLines pres, DiffListing *listing, Globals *G) {
    if (!G->diff_debug) { // which shows the whole matrix
        TakeEqualEnds(&hist, &pres, listing, G);
    }
    LcsMatrix matrix{};
    if (!lcsDiffData(hist, pres, kLcsMemory, &matrix)) {
        ComparisonMemoryError(file_name, matrix.bytes, G);
        return false;
    }
    if (G->diff_debug) {
        show_d2A_lcs(&matrix);
    }
    lcsSequence(&matrix, listing, G);
    return true;
}

bool CompareSegments(const char *file_name, DiffLines hist, DiffLines pres, DiffListing *listing, Globals *G) {
    const size_t most = std::max(G->max_lcs_file_lines, 1);
    const size_t segments = std::min(hist.size(), pres.size()) / most;
    if (!segments) {
        if (G->diff_debug) {
            Put("**** No Increments \n");
        }
        return ComparePass(file_name, hist, pres, listing, G);
    }
    for (size_t segment = 1; segment <= segments; ++segment) {
        if (G->diff_debug) {
            const auto hs = static_cast<int>(hist.size()) - 1, ps = static_cast<int>(pres.size()) - 1, m = static_cast<int>(most);
            Put("**** Segment: %d\n**** hstart: %d\n**** hstop: %d\n", static_cast<int>(segment), hs, hs - m);
            Put("**** pstart: %d\n**** pstop: %d\n", ps, ps - m);
        }
        if (!ComparePass(file_name, hist.last(most), pres.last(most), listing, G)) {
            return false;
        }
        hist = hist.first(hist.size() - most);
        pres = pres.first(pres.size() - most);
    }
    if (hist.empty() && pres.empty()) {
        return true;
    }
    if (G->diff_debug) {
        Put("**** Remainder\n");
    }
    return ComparePass(file_name, hist, pres, listing, G);
}

} // namespace

int CompareCodeLCS(const char *file_name, const DiffDataList &hist, const DiffDataList &pres, Globals *G) {
    memset(G->line_counts, 0, sizeof G->line_counts);
    if (G->diff_show_details) {
        SetDiffHeader(file_name, G);
    }
    if (G->diff_debug) {
        Put("**** Hlist count %d\n**** Plist count %d\n", hist.count, pres.count);
    }
    const DiffLines older(hist.lines, hist.count), newer(pres.lines, pres.count);
    DiffListing listing{};
    double bytes = 0.0;
    if (G->diff_show_details && !OpenDiffListing(&listing, older.size() + newer.size(), G->sort_descending, &bytes)) {
        ComparisonMemoryError(file_name, bytes, G);
        return 0;
    }
    if (!CompareSegments(file_name, older, newer, &listing, G)) {
        return 0;
    }
    ShowDiffListing(&listing, G);
    if (G->diff_debug) {
        const auto &[mod, eq, rm] = G->line_counts;
        Put("\nMod L%d N%d G%d C%d B%d\n", mod[kLineL], mod[kLineN], mod[kLineG], mod[kLineC], mod[kLineB]);
        Put("Eq  L%d N%d G%d C%d B%d\n", eq[kLineL], eq[kLineN], eq[kLineG], eq[kLineC], eq[kLineB]);
        Put("Rm  L%d N%d G%d C%d B%d\n", rm[kLineL], rm[kLineN], rm[kLineG], rm[kLineC], rm[kLineB]);
    }
    if (G->diff_show_details) {
        CloseDiffListing(G);
        Put("\n");
    }
    return 1;
}
