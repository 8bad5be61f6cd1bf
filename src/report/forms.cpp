// How a text from outside is encoded for each mode, and the writer of checked formats.
#include "report/forms.h"

#include <algorithm>
#include <bit>
#include <cmath>

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

// One line on its way to gTLYOUT. Behind its end there is always room for a short piece, so that one is copied whole, with what
// happens to stand behind it, and only then the line grows by its length.
struct Line {
    static constexpr size_t kCapacity = 1024, kShort = 32;
    char text[kCapacity + kShort];
    size_t length = 0;

    void Flush() {
        fwrite_unlocked(text, 1, length, gTLYOUT);
        length = 0;
    }
    [[gnu::noinline]] void AddLong(std::string_view piece) {
        Flush();
        if (piece.size() > kCapacity) {
            fwrite_unlocked(piece.data(), 1, piece.size(), gTLYOUT);
        } else {
            Add(piece);
        }
    }
    [[gnu::always_inline]] void Add(std::string_view piece) {
        if (piece.size() > kCapacity - length) {
            AddLong(piece);
            return;
        }
        memcpy(text + length, piece.data(), piece.size());
        length += piece.size();
    }
    // The first bytes of size that can be read.
    template <size_t size> [[gnu::always_inline]] void AddShort(const char *piece, size_t bytes) {
        static_assert(size <= kShort);
        memcpy(text + length, piece, size);
        length += bytes;
        if (length > kCapacity) {
            Flush();
        }
    }
    [[gnu::always_inline]] void AddBlanks(int count) {
        static constexpr char kBlanks[] = "                ";
        constexpr int kAtOnce = sizeof kBlanks - 1;
        for (; count > 0; count -= kAtOnce) {
            AddShort<kAtOnce>(kBlanks, std::min(count, kAtOnce));
        }
    }
};

// Room for a value, which is written from its end.
template <size_t size, size_t behind = 0> struct Room {
    char bytes[size + behind];
    char *first = bytes + size;

    void Put(char c) { *--first = c; }
    void PutDigits(unsigned long number, int at_least) {
        for (; number > 0 || at_least > 0; number /= 10, --at_least) {
            Put(static_cast<char>('0' + number % 10));
        }
    }
    void PutWhole(long number, int at_least) {
        const auto value = static_cast<unsigned long>(number);
        PutDigits(number < 0 ? -value : value, at_least);
        if (number < 0) {
            Put('-');
        }
    }
    std::string_view Text() const { return {first, static_cast<size_t>(bytes + size - first)}; }
};
constexpr size_t kWholeBytes = 24; // 19 digits and a sign
using WholeRoom = Room<kWholeBytes, kWholeBytes>;
using OddRoom = Room<kWidest + 100>; // a double has up to 309 digits, "%02d" may be as wide as its form says

// A double is a whole number times a power of two, so that value * 10^decimals is whole too, up to bits that fall off: rounding is
// exact, halves go to the even neighbour. Returns false for what has no place in 64 bits.
bool PutFixed(OddRoom &room, double value, int decimals) {
    static constexpr unsigned long kTens[] = {1, 10, 100};
    const double size = std::fabs(value);
    if (decimals >= static_cast<int>(std::size(kTens)) || !(size < 0x1p52)) {
        return false;
    }
    constexpr unsigned long kTop = 1UL << 52; // the highest bit of the whole number, which a double leaves out
    const auto bits = std::bit_cast<unsigned long>(size);
    const unsigned long digits = ((bits % kTop) | kTop) * kTens[decimals];
    const int off = 1075 - static_cast<int>(bits / kTop);
    unsigned long number = 0;
    if (off < 64) {
        const unsigned long half = 1UL << (off - 1), rest = digits & (2 * half - 1);
        number = digits >> off;
        number += rest > half || (rest == half && number % 2 != 0);
    }
    if (decimals > 0) {
        room.PutDigits(number % kTens[decimals], decimals);
        room.Put('.');
    }
    room.PutDigits(number / kTens[decimals], 1);
    if (std::signbit(value)) {
        room.Put('-');
    }
    return true;
}

std::string_view RealText(OddRoom &room, const Step &step, double real) {
    const int decimals = step.precision < 0 ? 6 : step.precision;
    if (PutFixed(room, real, decimals)) {
        return room.Text();
    }
    const int length = snprintf(room.bytes, sizeof room.bytes, "%.*f", decimals, real);
    return {room.bytes, std::min<size_t>(length, sizeof room.bytes - 1)};
}

// add brings the value's bytes.
template <class Adder> [[gnu::always_inline]] inline void AddPadded(Line &line, const Step &step, size_t bytes, const Adder &add) {
    const int missing = step.width - static_cast<int>(std::min<size_t>(bytes, step.width));
    if (missing > 0 && !step.left) {
        line.AddBlanks(missing);
    }
    add();
    if (missing > 0 && step.left) {
        line.AddBlanks(missing);
    }
}

[[gnu::always_inline]] inline void AddText(Line &line, const Step &step, std::string_view text) {
    AddPadded(line, step, text.size(), [&] { line.Add(text); });
}

[[gnu::noinline]] void AddOddValue(Line &line, const Step &step, const Arg &arg) {
    OddRoom room;
    switch (step.kind) {
    case 's': AddText(line, step, {arg.text, strnlen(arg.text, step.precision)}); return;
    case 'f': AddText(line, step, RealText(room, step, arg.real)); return;
    case 'c': room.Put(static_cast<char>(arg.number)); break;
    default: room.PutWhole(arg.number, std::max(1, step.width - (arg.number < 0))); break;
    }
    AddText(line, step, room.Text());
}

// Most values are whole numbers and texts as they are.
[[gnu::always_inline]] inline void AddValue(Line &line, const Step &step, const Arg &arg) {
    if (step.odd) {
        AddOddValue(line, step, arg);
    } else if (step.kind == 's') {
        AddText(line, step, arg.text);
    } else {
        WholeRoom room;
        room.PutWhole(arg.number, 1);
        const size_t bytes = room.Text().size();
        AddPadded(line, step, bytes, [&] { line.AddShort<kWholeBytes>(room.first, bytes); });
    }
}

// Of "%{function}", "%{color}", "%{href}" the name.
void AddNamed(Line &line, std::string_view name, std::span<const Arg> named, const Globals *G) {
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
    line.Add(shown);
}

// Bytes of a form with "%%" or "%{name}" among them.
void AddMarked(Line &line, std::string_view bytes, std::span<const Arg> named, const Globals *G) {
    while (!bytes.empty()) {
        const size_t plain = std::min(bytes.find('%'), bytes.size());
        line.Add(bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.starts_with("%%")) {
            line.Add("%");
            bytes.remove_prefix(2);
        } else if (!bytes.empty()) {
            const size_t end = bytes.find('}');
            AddNamed(line, bytes.substr(2, end - 2), named, G);
            bytes.remove_prefix(end + 1);
        }
    }
}

} // namespace

void Write(const char *format, const Step *steps, std::span<const Arg> named, const Arg *values, const Globals *G) {
    Line line;
    for (const Step *step = steps;; ++step) {
        if (step->marked) {
            AddMarked(line, {format + step->begin, step->bytes}, named, G);
        } else if (step->bytes <= kShortBytes) {
            line.AddShort<kShortBytes>(step->text, step->bytes);
        } else {
            line.Add({format + step->begin, step->bytes});
        }
        if (!step->kind) {
            break;
        }
        AddValue(line, *step, *values++);
    }
    line.Flush();
}

} // namespace forms
