// Text for XML and HTML.
#pragma once

#include <string>
#include <string_view>

// Appends text, good between tags and within quotes of either sort. What XML can't hold (control bytes, bytes that aren't UTF-8,
// U+FFFE) becomes U+FFFD; line ends and tabs become references, which survive in attributes too.
void AppendXml(std::string &out, std::string_view text);
