// Encoders write into a std::string, because an encoded text may be six times as long as the text it comes from.
#include "run/encode.h"

#include <algorithm>
#include <cstring>

#include "run/text.h"

void HTML_esc(const char *text, std::string &out) {
    out.clear();
    for (const char *p = text ? text : ""; *p; ++p) {
        switch (*p) {
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '&': out += "&amp;"; break;
        case '"': out += "&quot;"; break;
        default: out += *p; break;
        }
    }
}

static bool IsTail(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Bytes of the UTF-8 character at p if XML may hold it, else 0: no overlong form, no surrogate, no U+FFFE, U+FFFF, nothing above
// U+10FFFF. The NUL behind the text is no tail byte, so nothing behind it is read.
static int Utf8Bytes(const unsigned char *p) {
    if (p[0] < 0x80) {
        return p[0] >= ' ' || p[0] == '\t' || p[0] == '\n' || p[0] == '\r' ? 1 : 0;
    }
    if (p[0] >= 0xC2 && p[0] <= 0xDF) {
        return IsTail(p[1]) ? 2 : 0;
    }
    if (p[0] >= 0xE0 && p[0] <= 0xEF) {
        if (!IsTail(p[1]) || !IsTail(p[2])) {
            return 0;
        }
        const int code = ((p[0] & 0x0F) << 12) | ((p[1] & 0x3F) << 6) | (p[2] & 0x3F);
        return code < 0x800 || (code >= 0xD800 && code <= 0xDFFF) || code >= 0xFFFE ? 0 : 3;
    }
    if (p[0] >= 0xF0 && p[0] <= 0xF4) {
        if (!IsTail(p[1]) || !IsTail(p[2]) || !IsTail(p[3])) {
            return 0;
        }
        const int top = ((p[0] & 0x07) << 6) | (p[1] & 0x3F); // the code without its last 12 bits
        return top < 0x10 || top > 0x10F ? 0 : 4;
    }
    return 0;
}

void xml_encode(const char *text, std::string &out) {
    out.clear();
    for (const char *p = text ? text : ""; *p;) {
        const int bytes = Utf8Bytes(reinterpret_cast<const unsigned char *>(p));
        switch (*p) {
        case '"': out += "&quot;"; break;
        case '&': out += "&amp;"; break;
        case '\'': out += "&apos;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        default:
            if (bytes > 0) {
                out.append(p, static_cast<size_t>(bytes));
            } else {
                out += '?';
            }
            break;
        }
        p += std::max(bytes, 1);
    }
}

void xml_tag_encode(const char *text, std::string &out) {
    out.clear();
    for (const char *p = text ? text : ""; *p; ++p) {
        const bool upper = *p >= 'A' && *p <= 'Z';
        out += strchr(" \"&'/<>", *p) ? '_' : upper ? static_cast<char>(*p - 'A' + 'a') : *p;
    }
}

void csv_field(const char *text, std::string &out, char comma) {
    out = text ? text : "";
    std::replace(out.begin(), out.end(), ',', comma);
    std::replace_if(out.begin(), out.end(), IsLineEnd, ' ');
}

void url_encode(const char *text, std::string &out) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    out.clear();
    for (const char *p = text ? text : ""; *p; ++p) {
        if (IsLetterOrDigit(*p) || strchr("/:._-~!$()*+=@", *p)) {
            out += *p;
        } else {
            const auto byte = static_cast<unsigned char>(*p);
            out += '%';
            out += kHex[byte >> 4];
            out += kHex[byte & 15];
        }
    }
}
