// Fixed texts: plain char arrays whose bound comes from their type, and five verbs on them.
//
// An array converts to std::span by itself, so no call states a size. Every verb keeps the text NUL terminated inside its array.
// Cut and drop are different verbs because they are different rules: a copy is cut to fit, an append that doesn't fit is dropped
// whole.
#pragma once

#include <cstddef>
#include <span>

#include "run/char_tests.h"

using LineText = char[2048]; // a source line, a name, a title
using PathText = char[1024]; // a path of the program's own files

// Copies src, cut to fit. A null src counts as empty.
void CopyText(std::span<char> dst, const char *src);
// Copies at most count bytes of src, cut to fit.
void CopyPart(std::span<char> dst, const char *src, size_t count);
// Appends src if all of it fits; otherwise changes nothing and returns false.
bool AppendText(std::span<char> dst, const char *src);
// Appends one character if it fits; otherwise changes nothing and returns false.
bool AppendChar(std::span<char> dst, char c);
// Makes dst the empty text.
void ClearText(std::span<char> dst);
// printf into dst, cut to fit. Returns the length of the text that is now there.
[[gnu::format(printf, 2, 3)]] int FormatText(std::span<char> dst, const char *fmt, ...);

// Cuts trailing blanks, tabs, LF and CR, in place.
void Rtrim(char *text);
// Returns text behind its leading blanks and tabs.
const char *Ltrim(const char *text);
// Returns text behind its leading blanks, tabs and line ends.
const char *SkipSpace(const char *text);
// The last part of a path: what stands behind its last "/".
const char *FileName(const char *path);
// Ends a path with a "/", unless it ends in one or is empty; one that doesn't fit is dropped.
void EndWithSlash(std::span<char> path);
// A private copy on the heap, freed with free(); null for a null text or when memory is out.
char *CopyOnHeap(const char *text);
