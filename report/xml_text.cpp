#include "xml_text.h"

#include "utf8.h"

void AppendXml(std::string &out, std::string_view text) {
    for (size_t i = 0; i < text.size();) {
        const size_t length = Utf8Length(text.substr(i));
        const std::string_view character = text.substr(i, length);
        switch (text[i]) {
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '&': out += "&amp;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&apos;"; break;
        case '\n': out += "&#10;"; break;
        case '\r': out += "&#13;"; break;
        case '\t': out += "&#9;"; break;
        default:
            // U+FFFE and U+FFFF are characters of UTF-8, but none of XML.
            if (length == 0 || static_cast<unsigned char>(text[i]) < ' ' || character == "\xEF\xBF\xBE" ||
                character == "\xEF\xBF\xBF") {
                out += "\xEF\xBF\xBD";
            } else {
                out += character;
            }
        }
        i += length ? length : 1;
    }
}
