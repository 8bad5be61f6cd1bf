// How a text from outside is encoded for each mode, and the writer of checked formats.
#include "report/forms.h"

#include <algorithm>
#include <charconv>

#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

namespace forms {

// In text mode nothing is encoded, and nothing is copied.
Passed<Shown>::Passed(Mode mode, const char *shown, char csv_comma)
    : text(nullptr) {
    switch (mode) {
    case Mode::kHtml: HTML_esc(shown, encoded); return;
    case Mode::kCsv: csv_field(shown, encoded, csv_comma); return;
    case Mode::kXml: xml_encode(shown, encoded); return;
    case Mode::kText: break;
    }
    text = shown ? shown : "";
}

Passed<Shown>::Passed(Mode mode, Shown shown)
    : Passed(mode, shown.text, ' ') {}

namespace {

// One line on its way to gTLYOUT.
struct Line {
    char text[1024];
    size_t length = 0;

    void Flush() {
        fwrite_unlocked(text, 1, length, gTLYOUT);
        length = 0;
    }
    void Add(const char *piece, size_t bytes) {
        if (bytes > sizeof text - length) {
            Flush();
            if (bytes > sizeof text) {
                fwrite_unlocked(piece, 1, bytes, gTLYOUT);
                return;
            }
        }
        memcpy(text + length, piece, bytes);
        length += bytes;
    }
    void AddChar(char c) {
        if (length == sizeof text) {
            Flush();
        }
        text[length++] = c;
    }
    void Fill(char c, int count) {
        for (; count > 0; --count) {
            AddChar(c);
        }
    }
};

// What stands between "%" and its letter.
struct Conversion {
    int left = 0, zeros = 0, width = 0, precision = -1;
};

const char *ReadNumber(const char *p, int &number) {
    for (number = 0; *p >= '0' && *p <= '9'; ++p) {
        number = 10 * number + (*p - '0');
    }
    return p;
}

const char *ReadConversion(const char *p, Conversion &how) {
    for (; *p == '-' || *p == '0'; ++p) {
        (*p == '-' ? how.left : how.zeros) = 1;
    }
    p = ReadNumber(p, how.width);
    return *p == '.' ? ReadNumber(p + 1, how.precision) : p;
}

// The text of one argument: a number's digits stand in room.
struct Piece {
    const char *text;
    size_t bytes;
};

Piece NumberPiece(Line &line, Conversion &how, long number, std::span<char> room) {
    const char *end = std::to_chars(room.data(), room.data() + room.size(), number).ptr;
    const char *first = room.data();
    if (how.zeros && !how.left) { // "%02d": the sign goes ahead of the zeros
        if (number < 0) {
            line.AddChar(*first++);
            --how.width;
        }
        line.Fill('0', how.width - static_cast<int>(end - first));
        how.width = 0;
    }
    return {first, static_cast<size_t>(end - first)};
}

Piece RealPiece(const Conversion &how, double real, std::span<char> room) {
    const int length = snprintf(room.data(), room.size(), "%.*f", how.precision < 0 ? 6 : how.precision, real);
    return {room.data(), std::min<size_t>(length, room.size() - 1)};
}

[[gnu::always_inline]] inline void AddArgument(Line &line, Conversion &how, const Arg &arg) {
    char room[400]; // the largest double has 309 digits
    Piece piece{room, 1};
    switch (arg.kind) {
    case 'd': piece = NumberPiece(line, how, arg.number, room); break;
    case 'c': room[0] = static_cast<char>(arg.number); break;
    case 'f': piece = RealPiece(how, arg.real, room); break;
    default: piece = {arg.text, how.precision < 0 ? strlen(arg.text) : strnlen(arg.text, how.precision)}; break;
    }
    const int missing = how.width - static_cast<int>(std::min<size_t>(piece.bytes, 1 << 20));
    if (missing > 0 && !how.left) {
        line.Fill(' ', missing);
    }
    line.Add(piece.text, piece.bytes);
    if (missing > 0 && how.left) {
        line.Fill(' ', missing);
    }
}

// Behind "%": "{function}", "{color}", "{href}". Returns what stands behind it.
[[gnu::noinline]] const char *AddNamed(Line &line, const char *brace, std::span<const Arg> named, const Globals *G) {
    const char *end = strchrnul(brace, '}');
    const std::string_view name(brace + 1, end);
    std::string shown;
    const bool link = name == "href";
    if (link || name == "color") {
        const char wanted = link ? 'L' : 'C';
        const Arg &arg = *std::find_if(named.begin(), named.end(), [wanted](const Arg &each) { return each.kind == wanted; });
        if (link) {
            std::string address;
            url_encode(HTMLPathFile(arg.text, G), address);
            HTML_esc(address.c_str(), shown);
        } else {
            HTML_esc(G->*arg.color, shown);
        }
    } else if (const int color = FindColor(name); color >= 0) {
        HTML_esc(G->*kColors[color].field, shown);
    }
    line.Add(shown.data(), shown.size());
    return end + 1;
}

} // namespace

void Write(const char *format, std::span<const Arg> named, const Arg *values, const Globals *G) {
    Line line;
    for (const char *p = format;;) {
        const char *percent = strchrnul(p, '%');
        line.Add(p, percent - p);
        if (!*percent) {
            break;
        }
        Conversion how;
        p = percent + 1;
        if (*p != 's' && *p != 'd') { // most are bare
            if (*p == '{') {
                p = AddNamed(line, p, named, G);
                continue;
            }
            p = ReadConversion(p, how);
            p += *p == 'l';
            if (*p == '%') {
                line.AddChar(*p++);
                continue;
            }
        }
        ++p;
        AddArgument(line, how, *values++);
    }
    line.Flush();
}

} // namespace forms
