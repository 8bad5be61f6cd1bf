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

template <class... Args> consteval void Check(std::string_view format, bool html) {
    const char kinds[] = {Kind<Args>()..., '\0'};
    const char *next = kinds;
    while (*next == '{') {
        ++next;
    }
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%' || format[++i] == '%') {
            continue;
        }
        if (format[i] == '{') {
            const size_t end = format.find('}', i);
            if (!html || !Answers<Args...>(format.substr(i + 1, end - i - 1))) {
                FormatDoesNotMatchItsArguments();
            }
            i = end;
            continue;
        }
        const size_t flags = i;
        while (format[i] == '-' || format[i] == '.' || (format[i] >= '0' && format[i] <= '9')) {
            ++i;
        }
        const std::string_view how = format.substr(flags, i - flags);
        const bool zeros = how.starts_with('0') || how.starts_with("-0");
        const bool precise = how.find('.') != how.npos;
        i += format[i] == 'l';
        const bool whole = format[i] == 'd';
        if (*next != (format[i - 1] == 'l' && whole ? 'l' : format[i]) || (zeros && !whole) ||
            (precise && format[i] != 'f' && format[i] != 's')) {
            FormatDoesNotMatchItsArguments();
        }
        ++next;
    }
}

template <class... Args> struct Format {
    const char *text = "";
    Format() = default;
    consteval Format(const char *format)
        : text(format) { // NOLINT: implicit on purpose
        Check<Args...>(format, false);
    }
};

template <class... Args> struct HtmlFormat {
    const char *text = "";
    HtmlFormat() = default;
    consteval HtmlFormat(const char *format)
        : text(format) { // NOLINT: implicit on purpose
        Check<Args...>(format, true);
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

// Writes a checked format to gTLYOUT. named are its arguments up to the values. G may be null for one without names. It does what
// fprintf does for the conversions that Check knows. Reports are many short lines of numbers and names: through fprintf a run of
// -fa -o takes 8 % more instructions, one of -fa -o -n 18 % (5 MB of C, 2.5 and 51 MB of report).
void Write(const char *format, std::span<const Arg> named, const Arg *values, const Globals *G);

template <class... Args> void Pass(Mode mode, const Globals *G, const char *format, Args... args) {
    if constexpr (sizeof...(Args) == 0) {
        Write(format, {}, nullptr, G);
    } else if (*format) {
        const std::tuple<Passed<Args>...> kept{Passed<Args>(mode, args)...};
        const auto list = std::apply([](const auto &...each) { return std::array<Arg, sizeof...(Args)>{each...}; }, kept);
        Write(format, std::span(list).first(kNamed<Args...>), list.data() + kNamed<Args...>, G);
    }
}

} // namespace forms

template <class... Args> struct Forms {
    forms::Format<Args...> text{};
    forms::HtmlFormat<Args...> html{};
    forms::Format<Args...> csv{}, xml{};
    constexpr const char *Of(Mode mode) const {
        switch (mode) {
        case Mode::kHtml: return html.text;
        case Mode::kCsv: return csv.text;
        case Mode::kXml: return xml.text;
        case Mode::kText: break;
        }
        return text.text;
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
template <class... Args> void PrintOnly(Mode mode, forms::Format<std::type_identity_t<Args>...> format, Args... args) {
    forms::Pass<Args...>(mode, nullptr, format.text, args...);
}

// One form that HTML alone has: G's mode is HTML.
template <class... Args> void PrintHtml(const Globals *G, forms::HtmlFormat<std::type_identity_t<Args>...> format, Args... args) {
    forms::Pass<Args...>(Mode::kHtml, G, format.text, args...);
}
