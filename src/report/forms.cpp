// How a text from outside is encoded for each mode, and the writer of checked formats.
#include "report/forms.h"

#include <algorithm>
#include <charconv>

#include "report/names.h"

namespace forms {

// In text mode nothing is encoded, and nothing is copied.
Passed<Shown>::Passed(Mode mode, Shown shown)
    : text(nullptr) {
    switch (mode) {
    case Mode::kHtml: HTML_esc(shown.text, encoded); return;
    case Mode::kCsv: csv_field(shown.text, encoded); return;
    case Mode::kXml: xml_encode(shown.text, encoded); return;
    case Mode::kText: break;
    }
    text = shown.text ? shown.text : "";
}

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
        }
        if (bytes > sizeof text) {
            fwrite_unlocked(piece, 1, bytes, gTLYOUT);
            return;
        }
        memcpy(text + length, piece, bytes);
        length += bytes;
    }
    void Fill(char c, int count) {
        for (; count > 0; --count) {
            Add(&c, 1);
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

void AddPadded(Line &line, const Conversion &how, const char *text, size_t bytes) {
    const int missing = how.width - static_cast<int>(std::min<size_t>(bytes, 1 << 20));
    if (!how.left) {
        line.Fill(' ', missing);
    }
    line.Add(text, bytes);
    if (how.left) {
        line.Fill(' ', missing);
    }
}

void AddNumber(Line &line, Conversion how, long number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    const char *first = digits;
    if (how.zeros && !how.left) { // "%02d": the sign goes ahead of the zeros
        if (number < 0) {
            line.Add(first++, 1);
            --how.width;
        }
        line.Fill('0', how.width - static_cast<int>(end - first));
        how.width = 0;
    }
    AddPadded(line, how, first, end - first);
}

void AddReal(Line &line, const Conversion &how, double real) {
    char text[400]; // the largest double has 309 digits
    const int length = snprintf(text, sizeof text, "%.*f", how.precision < 0 ? 6 : how.precision, real);
    AddPadded(line, how, text, std::min<size_t>(length, sizeof text - 1));
}

void AddText(Line &line, const Conversion &how, const char *text) {
    AddPadded(line, how, text, how.precision < 0 ? strlen(text) : strnlen(text, how.precision));
}

} // namespace

void Write(const char *format, std::span<const Arg> args) {
    Line line;
    size_t next = 0;
    for (const char *p = format; *p;) {
        const char *percent = strchrnul(p, '%');
        line.Add(p, percent - p);
        if (!*percent) {
            break;
        }
        Conversion how;
        p = ReadConversion(percent + 1, how);
        p += *p == 'l';
        if (*p++ == '%') {
            line.Add("%", 1);
            continue;
        }
        const Arg &arg = args[next++];
        const char letter = static_cast<char>(arg.number);
        switch (arg.kind) {
        case 'd': AddNumber(line, how, arg.number); break;
        case 'c': AddPadded(line, how, &letter, 1); break;
        case 'f': AddReal(line, how, arg.real); break;
        default: AddText(line, how, arg.text); break;
        }
    }
    line.Flush();
}

} // namespace forms
