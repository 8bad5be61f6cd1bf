// Names and texts made ready to be shown: wrapped, linked, dated.
#pragma once

#include <ctime>
#include <span>
#include <string>
#include <string_view>

#include "run/text.h"

struct Globals;

// Copies a name; when it is longer than width and names are wrapped, a line feed and indent blanks follow every width characters.
void AdjNameLength(const char *name, std::span<char> out, int width, int indent, const Globals *G);

// Where a name is broken.
struct Wrap {
    int width, indent;
};
// Behind a label, "  Class: ", a name fills a page of 74 columns and goes on below its first character.
constexpr Wrap Behind(std::string_view label) {
    const int indent = static_cast<int>(label.size() + std::string_view("  : ").size());
    return {74 - indent, indent};
}
void AdjNameLength(const char *name, std::span<char> out, Wrap wrap, const Globals *G);
// The same without a copy where nothing is broken: name itself, or room.
const char *Wrapped(const char *name, std::span<char> room, Wrap wrap, const Globals *G);
// The name as the mode shows it: broken in room on a page, of text or HTML; as it stands in CSV and XML.
const char *OnPage(const char *name, std::span<char> room, Wrap wrap, const Globals *G);

// The path to show or link, in a static buffer that is valid until the next call of PathFile or HTMLPathFile.
const char *PathFile(const char *name, const Globals *G);
// The link target of a file: PathFile, behind "file://" unless links are relative. The same static buffer.
const char *HTMLPathFile(const char *name, const Globals *G);
// ctime text without its line feed; empty for a null pointer and for a year that no int holds.
std::string get_date(const time_t *when);
// 36 dashes and 36 underscores: every rule of a report is two of them.
inline constexpr const char *kDashes = "------------------------------------";
inline constexpr const char *kUnderscores = "____________________________________";
