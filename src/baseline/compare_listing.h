// The listing of -ws: which line of which version was removed, added or kept.
#pragma once

#include <cstddef>
#include <cstdint>

#include "baseline/array.h"

struct Globals;

// One line of the listing. A number of 0: the other version had ended before this line.
struct DiffLine {
    int32_t hist_line; // in the older file
    int32_t pres_line; // in the newer file
    char operation;    // '=', '-' (only in the older file) or '+' (only in the newer one)
    char type;         // as LineLetter tells
};

// The lines of a comparison in the order of their numbers. A zeroed one takes no lines.
struct DiffListing {
    struct Node;
    Array<Node> nodes; // a balanced tree: node 0 is the empty tree
    int32_t count, root;
    int descending;
};
// Makes room for a number of lines and adds what that takes to bytes. Returns false when memory is out.
bool OpenDiffListing(DiffListing *listing, size_t lines, int descending, double *bytes);
// Files a line in front of the first one whose number is equal or greater (descending: equal or less), else behind all others. A
// removed line goes by the older number of whatever stands there, all else by the newer number. Its cost is the logarithm of count.
void AddDiffLine(DiffListing *listing, const DiffLine &line);
// Shows the lines in their order.
void ShowDiffListing(const DiffListing *listing, Globals *G);

// The head of a file's listing.
void SetDiffHeader(const char *file_name, Globals *G);
// Ends a file's listing with a rule; tells of two versions without a difference, from the counters, if equal lines aren't shown.
void CloseDiffListing(Globals *G);
