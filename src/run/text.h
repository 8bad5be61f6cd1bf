// Fixed texts: plain char arrays whose bound comes from their type, and five verbs on them.
//
// An array converts to std::span by itself, so no call states a size. Every verb keeps the text NUL terminated inside its array.
// Cut and drop are different verbs because they are different rules: a copy is cut to fit, an append that doesn't fit is dropped
// whole. Byte tests are here too: they read a byte as signed, in the C locale, so that a byte with the high bit set is negative and
// is no letter, no printable character and no white space.
#pragma once

#include <cstddef>
#include <span>

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
// A private copy on the heap, freed with free(); null for a null text or when memory is out.
char *CopyOnHeap(const char *text);

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsLetterOrDigit(char c) {
    return IsLetter(c) || IsDigit(c);
}
constexpr bool IsBlankOrTab(char c) {
    return c == ' ' || c == '\t';
}
constexpr bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}
