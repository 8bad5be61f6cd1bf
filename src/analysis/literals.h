// Literals that end in a way of their own: @"a \", """ over lines """, R"x( " )x", $"{f("a")}". Asked for by the rule "literals".
#pragma once

struct Globals;
struct Scan;

// A quote that opens a literal is in hand, at index. Notes how it will end; the number of characters behind it that belong to its
// opening.
int OpenLiteral(const Scan &scan, Globals *G);
// Moves scan.index to the last character of the literal, or to the line's end when it goes on. 1 if it ends on this line. Only
// while literal_kind is set, which its end clears.
int ScanOwnLiteral(Scan &scan, Globals *G);
// 1'000'000: the apostrophe at index separates digits.
bool IsDigitSeparator(const Scan &scan, const Globals *G);
// Behind a line's last character: a literal that can't go on has ended.
void EndLineOfLiteral(Globals *G);
