// Names and texts made ready to be shown: escaped, wrapped, linked, dated.
#pragma once

#include <ctime>
#include <span>
#include <string>

#include "run/text.h"

struct Globals;

// The HTML form of a text: < > & " escaped. out is overwritten.
void HTML_esc(const char *text, std::string &out);
// The XML form of a text, always well-formed: " & ' < > escaped; control bytes other than tab and line ends, and bytes that aren't
// UTF-8, become "?".
void xml_encode(const char *text, std::string &out);
// The XML element name of a label: lower case, with "_" for blanks, quotes, "&", "/" and angle brackets.
void xml_tag_encode(const char *text, std::string &out);
// The text for a CSV field: line ends become blanks, and commas too, or what is given in their place.
void csv_field(const char *text, std::string &out, char comma = ' ');
// A link target made safe for an href: bytes that a URL can't hold as they are become %XX.
void url_encode(const char *text, std::string &out);
// Copies a name; when it is longer than width and names are wrapped, a line feed and indent blanks follow every width characters.
void AdjNameLength(const char *name, std::span<char> out, int width, int indent, const Globals *G);
// The path to show or link, in a static buffer that is valid until the next call of PathFile or HTMLPathFile.
const char *PathFile(const char *name, const Globals *G);
// The link target of a file: PathFile, behind "file://" unless links are relative. The same static buffer.
const char *HTMLPathFile(const char *name, const Globals *G);
// ctime text without its line feed, in a static buffer.
const char *get_date(const time_t *when);
// 36 dashes and 36 underscores: every rule of a report is two of them.
inline constexpr const char *kDashes = "------------------------------------";
inline constexpr const char *kUnderscores = "____________________________________";
