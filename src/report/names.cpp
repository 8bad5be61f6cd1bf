// Names and texts made ready to be shown. Encoders write into a std::string, because an encoded text may be six times as long as
// the text it comes from; a null text is an empty one for all of them.
#include "report/names.h"

#include <algorithm>

#include "run/globals.h"

static constexpr size_t kMaxWrapped = 2046; // characters of a wrapped name

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

void AdjNameLength(const char *name, std::span<char> out, int width, int indent, const Globals *G) {
    ClearText(out);
    if (!name) {
        return;
    }
    if (!G->wrap_long_names || width < 1 || strlen(name) <= static_cast<size_t>(width)) {
        CopyText(out, name);
        return;
    }
    const size_t room = std::min(out.size() - 1, kMaxWrapped);
    const auto blanks = static_cast<size_t>(std::max(indent, 0));
    size_t used = 0;
    for (size_t i = 0; name[i] && used < room; ++i) {
        out[used++] = name[i];
        if ((i + 1) % static_cast<size_t>(width) == 0 && used + 1 + blanks <= room) {
            out[used++] = '\n';
            std::fill_n(out.begin() + static_cast<std::ptrdiff_t>(used), blanks, ' ');
            used += blanks;
        }
    }
    out[used] = '\0';
}

static LineText link_text; // the answer of PathFile and HTMLPathFile

static bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// What stands in name behind start_dir and one separator; null when name doesn't hold the directory. "/home/me2" doesn't hold
// "/home/me".
static const char *BehindStartDir(const char *name, const Globals *G) {
    const size_t length = strlen(G->start_dir);
    for (const char *at = name; length > 0 && (at = strstr(at, G->start_dir)); ++at) {
        if (at[length] == '\0') {
            return at + length;
        }
        if (IsSeparator(at[length])) {
            return at + length + 1;
        }
    }
    return nullptr;
}

const char *PathFile(const char *name, const Globals *G) {
    LineText path;
    CopyText(path, name);
    const size_t length = strlen(path);
    if (length > 1 && IsSeparator(path[length - 1])) {
        path[length - 1] = '\0';
    }
    const char *behind = G->relative_html_links ? BehindStartDir(path, G) : nullptr;
    if (path[0] == '/') {
        CopyText(link_text, path);
    } else if (behind) {
        CopyText(link_text, behind);
    } else if ((path[0] && path[1] == ':') || G->relative_html_links) {
        CopyText(link_text, path);
    } else if (path[0] == '.' && IsSeparator(path[1])) {
        FormatText(link_text, "%s%s", G->start_dir, path + 1);
    } else {
        FormatText(link_text, "%s/%s", G->start_dir, path);
    }
    return link_text;
}

const char *HTMLPathFile(const char *name, const Globals *G) {
    PathFile(name, G);
    if (!G->relative_html_links) {
        LineText path;
        CopyText(path, link_text);
        FormatText(link_text, "file://%s", path);
    }
    return link_text;
}

const char *get_date(const time_t *when) {
    static char date[64];
    struct tm parts;
    char text[64];
    // the re-entrant call doesn't look the time zone up again for every file; null too for a year that has no place in an int
    CopyText(date, when && localtime_r(when, &parts) ? asctime_r(&parts, text) : nullptr);
    Rtrim(date);
    return date;
}
