// The longest common sequence of two runs of lines, 64 elements of the matrix at a time.
//
// Along a row the length falls by 0 or 1 from each column to the next, and it is 0 behind the last: a row is a string of bits, and
// a length is the number of falls from its column on. Column c is bit columns-1-c, and a bit is 0 where the length falls. The row
// above comes from a row V and the matches M of its own line by one addition, whose carries run toward the first column:
//
//   above = (V + (V & M)) | (V & ~M)
//
// The row behind the last has length 0 everywhere: all bits are 1. Memory is a bit per element. When this is too much, every k-th
// row is kept, and the rows between two kept ones are filled again as the walk comes to them: every row is filled twice at most.
#include "baseline/lcs.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "baseline/code_compare.h"
#include "baseline/compare_listing.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

// Where a row is held. Rows run to hist.size(), which is the row behind the last.
uint64_t *Place(const LcsMatrix &m, size_t row) {
    const size_t block = row / m.every, inside = row % m.every;
    return inside ? m.filled.get() + (inside - 1) * m.words : m.kept.get() + block * m.words;
}

void SetMatch(const LcsMatrix &m, uint64_t *match, const LineClass &of) {
    for (int32_t i = of.first; i < of.first + of.count; ++i) {
        const size_t bit = m.pres.size() - 1 - m.columns.positions[i];
        match[bit / 64] |= uint64_t{1} << bit % 64;
    }
}

void ClearMatch(const LcsMatrix &m, const LineClass &of) {
    for (int32_t i = of.first; i < of.first + of.count; ++i) {
        m.match[(m.pres.size() - 1 - m.columns.positions[i]) / 64] = 0;
    }
}

void AddMatches(const uint64_t *below, const uint64_t *match, size_t words, uint64_t *above) {
    bool carry = false;
    for (size_t w = 0; w < words; ++w) {
        const uint64_t bits = below[w], sum = bits + (bits & match[w]), all = sum + carry;
        carry = sum < bits || all < sum;
        above[w] = all | (bits & ~match[w]);
    }
}

void FillRow(const LcsMatrix &m, size_t row) {
    const uint64_t *below = Place(m, row + 1);
    uint64_t *above = Place(m, row);
    const int32_t of = m.class_of[row];
    if (of < 0) {
        memcpy(above, below, m.words * sizeof *above);
    } else if (m.dense_of[of] >= 0) {
        AddMatches(below, m.dense.get() + m.dense_of[of] * m.words, m.words, above);
    } else {
        SetMatch(m, m.match.get(), m.columns.classes[of]);
        AddMatches(below, m.match.get(), m.words, above);
        ClearMatch(m, m.columns.classes[of]);
    }
}

// Fills the rows ahead of a row that is held, or of the row behind the last, down to another.
void FillRows(LcsMatrix *m, size_t from, size_t to) {
    if (from == m->hist.size()) {
        std::fill_n(Place(*m, from), m->words, ~uint64_t{0});
    }
    for (size_t row = from; row-- > to;) {
        FillRow(*m, row);
    }
    m->block = to / m->every;
}

const uint64_t *Row(LcsMatrix *m, size_t row) {
    const size_t block = row / m->every;
    if (row % m->every && block != m->block) {
        FillRows(m, std::min((block + 1) * m->every, m->hist.size()), block * m->every + 1);
    }
    return Place(*m, row);
}

int32_t Fall(LcsMatrix *m, size_t row, size_t column) {
    const size_t bit = m->pres.size() - 1 - column;
    return (Row(m, row)[bit / 64] >> bit % 64 & 1) == 0;
}

int32_t Length(LcsMatrix *m, size_t row, size_t column) {
    if (row >= m->hist.size() || column >= m->pres.size()) {
        return 0;
    }
    const uint64_t *bits = Row(m, row);
    const size_t left = m->pres.size() - column;
    int32_t falls = 0;
    for (size_t w = 0; w < left / 64; ++w) {
        falls += std::popcount(~bits[w]);
    }
    if (left % 64) {
        falls += std::popcount(~bits[left / 64] << (64 - left % 64));
    }
    return falls;
}

// A class with more positions than a row has words is cheaper as a row of bits; there are fewer than 64 such classes.
bool MakeDense(LcsMatrix *m) {
    int32_t count = 0;
    m->dense_of = ArrayOf<int32_t>(m->columns.count, &m->bytes);
    if (!m->dense_of) {
        return false;
    }
    const auto is_dense = [&](int32_t of) { return m->columns.classes[of].count > static_cast<int64_t>(m->words); };
    for (int32_t of = 0; of < m->columns.count; ++of) {
        m->dense_of[of] = is_dense(of) ? count++ : -1;
    }
    m->dense = ArrayOf<uint64_t>(count * m->words, &m->bytes);
    if (!m->dense) {
        return false;
    }
    std::fill_n(m->dense.get(), count * m->words, 0);
    for (int32_t of = 0; of < m->columns.count; ++of) {
        if (m->dense_of[of] >= 0) {
            SetMatch(*m, m->dense.get() + m->dense_of[of] * m->words, m->columns.classes[of]);
        }
    }
    return true;
}

bool MakeRows(LcsMatrix *m, size_t memory) {
    const size_t rows = m->hist.size() + 1;
    m->words = (m->pres.size() + 63) / 64;
    const bool fits = rows * m->words <= memory / sizeof(uint64_t);
    m->every = fits ? 1 : static_cast<size_t>(std::ceil(std::sqrt(static_cast<double>(rows))));
    m->kept = ArrayOf<uint64_t>(((rows - 1) / m->every + 1) * m->words, &m->bytes);
    m->filled = ArrayOf<uint64_t>((m->every - 1) * m->words, &m->bytes);
    m->match = ArrayOf<uint64_t>(m->words, &m->bytes);
    m->class_of = ArrayOf<int32_t>(m->hist.size(), &m->bytes);
    return m->kept && m->filled && m->match && m->class_of;
}

} // namespace

bool lcsDiffData(DiffLines hist, DiffLines pres, size_t memory, LcsMatrix *matrix) {
    LcsMatrix &m = *matrix;
    m.hist = hist;
    m.pres = pres;
    m.bytes = 0.0;
    if (!MakeRows(matrix, memory) || !ClassifyLines(pres, &m.columns, &m.bytes) || !MakeDense(matrix)) {
        return false;
    }
    std::fill_n(m.match.get(), m.words, 0);
    for (size_t row = 0; row < hist.size(); ++row) {
        m.class_of[row] = FindLineClass(m.columns, hist[row]);
    }
    FillRows(matrix, hist.size(), 0);
    return true;
}

// Where two lines differ, the length is that of the longer neighbour. The one below is shorter by 1 at most, so a length above it
// is the right neighbour's, and in the next column both are as they were.
void lcsSequence(LcsMatrix *matrix, DiffListing *listing, Globals *G) {
    const DiffLines hist = matrix->hist, pres = matrix->pres;
    size_t i = 0, j = 0;
    constexpr int32_t kUnknown = -1;
    int32_t length = Length(matrix, 0, 0), below = kUnknown; // at (i, j) and (i+1, j)
    while (i < hist.size() && j < pres.size()) {
        const DiffData &older = hist[i], &newer = pres[j];
        if (SameLine(older, newer)) {
            TakeDiffLine(listing, {older.line, newer.line, '=', older.type}, G);
            ++i;
            ++j;
            --length;
            below = kUnknown;
            continue;
        }
        below = below == kUnknown ? Length(matrix, i + 1, j) : below; // not needed where lines are equal, and those are most
        if (below < length) {
            TakeDiffLine(listing, {older.line, newer.line, '+', newer.type}, G);
            ++j;
        } else { // a tie of the neighbours too: a changed line is removed before it is added
            TakeDiffLine(listing, {older.line, newer.line, '-', older.type}, G);
            ++i;
            below = kUnknown;
        }
    }
    for (; j < pres.size(); ++j) {
        TakeDiffLine(listing, {0, pres[j].line, '+', pres[j].type}, G);
    }
    for (; i < hist.size(); ++i) {
        TakeDiffLine(listing, {hist[i].line, 0, '-', hist[i].type}, G);
    }
}

void show_d2A_lcs(LcsMatrix *matrix) {
    const int rows = static_cast<int>(matrix->hist.size() + 1), columns = static_cast<int>(matrix->pres.size() + 1);
    Put("\nshow_d2IA %d,%d\n", rows, columns);
    for (int row = 0; row < rows; ++row) {
        Put("%-2d| ", row);
        int32_t length = Length(matrix, row, 0);
        for (int column = 0; column < columns; ++column) {
            Put("%-6d ", length);
            if (column + 1 < columns) {
                length -= Fall(matrix, row, column);
            }
        }
        Put("\n");
    }
}
