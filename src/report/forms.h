// The four forms of a report line, under one another, checked by the compiler.
//
//   constexpr Forms<int, Shown> kFiles{
//       .text = "  Files %d - %s\n",
//       .html = "  <b>Files</b> %d - %s\n",
//       .csv = "Files,%d,%s\n",
//       .xml = "<file_count>%d</file_count>\n<name>%s</name>\n"};
//   Print(G, kFiles, count, Shown{name});
//
// An empty form prints nothing. A form may use fewer arguments than it is given, from the front.
//
// The HTML form also names what the other forms have no use for, and what stands there is looked up while it is printed:
//   %{function}  a colour of the settings, by its name in colors.h
//   %{color}     the colour that was passed as a Color
//   %{href}      the address of the file that was passed as a LinkTo
// A Color and a LinkTo stand ahead of the values.
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "report/colors.h"
#include "run/mode.h"

struct Globals;

// Text from outside: encoded for the mode when it is printed. Null shows as empty.
struct Shown {
    const char *text;
};

// A list from outside, of parameters or base classes: as Shown, but in CSV its commas become ";".
struct ShownList {
    const char *text;
};

// A colour for the "%{color}" of an HTML form. No conversion takes it.
struct Color {
    ColorText HtmlSettings::*field;
};

// A file for the "%{href}" of an HTML form. No conversion takes it.
struct LinkTo {
    const char *file;
};

namespace forms {

// The conversion letter a type may be printed with: 'd' int, 'l' long (%ld), 'f' double, 's' const char * or Shown, 'c' char. Of a
// type that no conversion takes: '{'.
template <class T> consteval char Kind() {
    if constexpr (std::is_same_v<T, int>) {
        return 'd';
    } else if constexpr (std::is_same_v<T, long>) {
        return 'l';
    } else if constexpr (std::is_same_v<T, double>) {
        return 'f';
    } else if constexpr (std::is_same_v<T, char>) {
        return 'c';
    } else if constexpr (std::is_same_v<T, Color> || std::is_same_v<T, LinkTo>) {
        return '{';
    } else {
        static_assert(std::is_same_v<T, const char *> || std::is_same_v<T, Shown> || std::is_same_v<T, ShownList>);
        return 's';
    }
}

inline constexpr size_t kShortBytes = 16;
inline constexpr int kWidest = 1200; // columns of a value

// A form is cut where its values stand when it is compiled: a step is the bytes ahead of a value and how the value is shown. The
// last step has no value.
struct Step {
    unsigned short begin, bytes; // of the format
    char text[kShortBytes];      // those bytes, if there are no more
    bool marked;                 // "%%" or "%{name}" stands in these bytes
    char kind;                   // of the value, as Kind tells; NUL: none
    bool left, zeros;            // "-"; "0" without "-"
    bool odd;                    // neither a text as it is nor a whole number without zeros
    signed char precision;       // -1: none
    short width;                 // 0: none
};

// Reads digits from format at i on.
constexpr int ReadNumber(std::string_view format, size_t &i) {
    int number = 0;
    for (; i < format.size() && format[i] >= '0' && format[i] <= '9'; ++i) {
        number = 10 * number + (format[i] - '0');
    }
    return number;
}

// Ends the bytes of a step.
constexpr void EndBytes(std::string_view format, size_t begin, size_t end, Step &step) {
    step.begin = static_cast<unsigned short>(begin);
    step.bytes = static_cast<unsigned short>(end - begin);
    format.copy(step.text, std::min(end - begin, kShortBytes), begin);
}

// Reads what stands behind "%". Returns where it ends.
constexpr size_t ReadConversion(std::string_view format, size_t i, Step &step) {
    for (; format[i] == '-' || format[i] == '0'; ++i) {
        (format[i] == '-' ? step.left : step.zeros) = true;
    }
    step.width = static_cast<short>(ReadNumber(format, i));
    step.precision = -1;
    if (format[i] == '.') {
        step.precision = static_cast<signed char>(ReadNumber(format, ++i));
    }
    const bool wide = format[i] == 'l';
    i += wide;
    step.kind = wide && format[i] == 'd' ? 'l' : format[i];
    step.zeros = step.zeros && !step.left;
    step.odd = step.zeros || step.kind == 'f' || step.kind == 'c' || (step.kind == 's' && step.precision >= 0);
    return i + 1;
}

// Cuts a format. Returns how many values it has; those that steps have no room for are left out.
constexpr size_t Cut(std::string_view format, std::span<Step> steps) {
    size_t values = 0, begin = 0;
    Step step{};
    for (size_t i = 0; i < format.size() && values < steps.size();) {
        if (format[i] != '%') {
            ++i;
        } else if (format[i + 1] == '%' || format[i + 1] == '{') {
            step.marked = true;
            i += 2;
        } else {
            EndBytes(format, begin, i, step);
            begin = i = ReadConversion(format, i + 1, step);
            steps[values++] = step;
            step = {};
        }
    }
    if (values < steps.size()) {
        EndBytes(format, begin, format.size(), step);
        steps[values] = step;
    }
    return values;
}

// A format with room for the steps of so many values. An empty one prints nothing.
template <size_t values> struct CutFormat {
    const char *text = "";
    Step steps[values + 1]{};
    constexpr CutFormat() = default;
    constexpr explicit CutFormat(const char *format)
        : text(format) {
        Cut(format, steps);
    }
};

inline void FormatDoesNotMatchItsArguments() {} // not constexpr: reached only by a wrong format, which then doesn't compile

// What a "%{name}" asks for.
template <class... Args> consteval bool Answers(std::string_view name) {
    if (name == "color") {
        return (std::is_same_v<Args, Color> || ...);
    }
    if (name == "href") {
        return (std::is_same_v<Args, LinkTo> || ...);
    }
    return FindColor(name) >= 0;
}

// The names that stand in the bytes of a step.
template <class... Args> consteval void CheckNames(std::string_view bytes, bool html) {
    for (size_t i = bytes.find('%'); i != bytes.npos; i = bytes.find('%', i + 2)) {
        if (bytes[i + 1] == '{' && (!html || !Answers<Args...>(bytes.substr(i + 2, bytes.find('}', i) - i - 2)))) {
            FormatDoesNotMatchItsArguments();
        }
    }
}

template <class... Args> consteval void Check(const CutFormat<sizeof...(Args)> &cut, bool html) {
    const char kinds[] = {Kind<Args>()..., '\0'};
    const char *next = kinds;
    while (*next == '{') {
        ++next;
    }
    const std::string_view format = cut.text;
    for (const Step &step : cut.steps) {
        CheckNames<Args...>(format.substr(step.begin, step.bytes), html);
        if (!step.kind) {
            return;
        }
        const bool whole = step.kind == 'd' || step.kind == 'l';
        if (*next != step.kind || step.width > kWidest || (step.zeros && !whole) ||
            (step.precision >= 0 && step.kind != 'f' && step.kind != 's')) {
            FormatDoesNotMatchItsArguments();
        }
        ++next;
    }
    FormatDoesNotMatchItsArguments(); // more values than arguments
}

// clang up to 14 breaks off at a temporary of this size that a consteval constructor makes. There a form is cut where it is used,
// and what checks it is the other compiler.
#if defined(__clang__) && __clang_major__ < 15
#define FORMS_CUT constexpr
#define FORMS_CHECK(html)
#else
#define FORMS_CUT consteval
#define FORMS_CHECK(html) Check<Args...>(*this, html)
#endif

template <class... Args> struct Format : CutFormat<sizeof...(Args)> {
    Format() = default;
    FORMS_CUT Format(const char *format) // NOLINT: implicit on purpose
        : CutFormat<sizeof...(Args)>(format) {
        FORMS_CHECK(false);
    }
};

template <class... Args> struct HtmlFormat : CutFormat<sizeof...(Args)> {
    HtmlFormat() = default;
    FORMS_CUT HtmlFormat(const char *format) // NOLINT: implicit on purpose
        : CutFormat<sizeof...(Args)>(format) {
        FORMS_CHECK(true);
    }
};

// An argument as the writer takes it.
struct Arg {
    char kind; // as Kind tells; of what no conversion takes: 'C' a colour, 'L' a file to link to
    union {
        long number;
        double real;
        const char *text;
        ColorText HtmlSettings::*color;
    };
    Arg(int n)
        : kind('d'),
          number(n) {}
    Arg(long n)
        : kind('d'),
          number(n) {}
    Arg(char c)
        : kind('c'),
          number(c) {}
    Arg(double d)
        : kind('f'),
          real(d) {}
    Arg(const char *t)
        : kind('s'),
          text(t ? t : "") {}
    Arg(Color c)
        : kind('C'),
          color(c.field) {}
    Arg(LinkTo link)
        : kind('L'),
          text(link.file) {}
};

// Keeps an argument while it is written: a text from outside as its encoded form, everything else as it is.
template <class T> struct Passed {
    T value;
    Passed(Mode, T v)
        : value(v) {}
    operator Arg() const { return value; }
};
template <> struct Passed<Shown> {
    std::string encoded;
    const char *text;
    Passed(Mode mode, Shown shown);
    const char *get() const { return text ? text : encoded.c_str(); }
    operator Arg() const { return get(); }

  protected:
    Passed(Mode mode, const char *shown, char csv_comma);
};
template <> struct Passed<ShownList> : Passed<Shown> {
    Passed(Mode mode, ShownList list)
        : Passed<Shown>(mode, list.text, ';') {}
};

// The arguments that no conversion takes.
template <class... Args> inline constexpr size_t kNamed = ((Kind<Args>() == '{') + ... + 0);

// Writes a format to gTLYOUT by its steps. named are its arguments up to the values. G may be null for one without names. It does
// what fprintf does for the conversions that Check knows, and is made for reports: many short lines of names, whole numbers and
// numbers with up to two decimals.
void Write(const char *format, const Step *steps, std::span<const Arg> named, const Arg *values, const Globals *G);

template <class... Args> void Pass(Mode mode, const Globals *G, const CutFormat<sizeof...(Args)> &cut, Args... args) {
    if constexpr (sizeof...(Args) == 0) {
        Write(cut.text, cut.steps, {}, nullptr, G);
    } else if (*cut.text) {
        const std::tuple<Passed<Args>...> kept{Passed<Args>(mode, args)...};
        const auto list = std::apply([](const auto &...each) { return std::array<Arg, sizeof...(Args)>{each...}; }, kept);
        Write(cut.text, cut.steps, std::span(list).first(kNamed<Args...>), list.data() + kNamed<Args...>, G);
    }
}

} // namespace forms

template <class... Args> struct Forms {
    forms::Format<Args...> text{};
    forms::HtmlFormat<Args...> html{};
    forms::Format<Args...> csv{}, xml{};
    constexpr const forms::CutFormat<sizeof...(Args)> &Of(Mode mode) const {
        switch (mode) {
        case Mode::kHtml: return html;
        case Mode::kCsv: return csv;
        case Mode::kXml: return xml;
        case Mode::kText: break;
        }
        return text;
    }
};

// Writes the form of the mode to gTLYOUT.
template <class... Args> void Print(const Globals *G, const Forms<Args...> &forms, std::type_identity_t<Args>... args) {
    const Mode mode = OutputMode(G);
    forms::Pass<Args...>(mode, G, forms.Of(mode), args...);
}

// The same where the mode isn't that of the run.
template <class... Args>
void PrintAs(Mode mode, const Globals *G, const Forms<Args...> &forms, std::type_identity_t<Args>... args) {
    forms::Pass<Args...>(mode, G, forms.Of(mode), args...);
}

// One checked form for every mode, for a text that the modes don't share.
template <class... Args> void PrintOnly(Mode mode, const forms::Format<std::type_identity_t<Args>...> &format, Args... args) {
    forms::Pass<Args...>(mode, nullptr, format, args...);
}

// One form that HTML alone has: G's mode is HTML.
template <class... Args>
void PrintHtml(const Globals *G, const forms::HtmlFormat<std::type_identity_t<Args>...> &format, Args... args) {
    forms::Pass<Args...>(Mode::kHtml, G, format, args...);
}
