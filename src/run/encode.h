// Texts encoded for HTML, XML, CSV and links. out is overwritten; a null text is an empty one.
#pragma once

#include <string>

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
