// The longest common sequence of two runs of lines: the matrix of lengths, and the walk over it.
//
// lcs(row, column) is the length of the longest common sequence of what is left of the older file from a row on and of the newer
// file from a column on. One bit per element holds the whole matrix: whether lcs(row, column) is greater than its right neighbour.
#pragma once

#include "baseline/line_classes.h"

struct DiffListing;
struct Globals;

inline constexpr size_t kLcsMemory = size_t{32} << 20; // bytes: a matrix above this keeps only some rows

struct LcsMatrix {
    DiffLines hist, pres; // rows and columns; not owned
    LineClasses columns;
    size_t words;                 // of 64 bits in a row
    size_t every;                 // rows from one kept row to the next; 1 when all rows are kept
    size_t block;                 // of the rows between two kept ones: which block is filled
    Array<uint64_t> kept, filled; // rows every * n; the rows between two of these
    Array<uint64_t> match;        // a row's matches; all clear between two rows
    Array<uint64_t> dense;        // matches of the classes with more than a position per word
    Array<int32_t> dense_of;      // per class: which of these, or -1
    Array<int32_t> class_of;      // per row
    double bytes;                 // asked for
};

// Fills the matrix; hist and pres must outlive it. A matrix above memory bytes keeps about every square root of its rows, and the
// walk fills the others again. Returns false when memory is out.
bool lcsDiffData(DiffLines hist, DiffLines pres, size_t memory, LcsMatrix *matrix);
// Walks a filled matrix: counts every line of both runs, and adds it to listing if that is open.
void lcsSequence(LcsMatrix *matrix, DiffListing *listing, Globals *G);
// Prints the lengths, for debugging.
void show_d2A_lcs(LcsMatrix *matrix);
