#include "utf8.h"

#include <cstdint>

size_t Utf8Length(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto lead = static_cast<unsigned char>(text[0]);
    const size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length <= 1 || text.size() < length) {
        return length == 1 ? 1 : 0;
    }
    uint32_t code = lead & (0x7FU >> length);
    for (size_t i = 1; i < length; ++i) {
        const auto tail = static_cast<unsigned char>(text[i]);
        if ((tail & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (tail & 0x3FU);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    return overlong || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF ? 0 : length;
}
