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
#pragma once

#include <array>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>

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

namespace forms {

// The conversion letter a type may be printed with: 'd' int, 'l' long (%ld), 'f' double, 's' const char * or Shown, 'c' char.
template <class T> consteval char Kind() {
    if constexpr (std::is_same_v<T, int>) {
        return 'd';
    } else if constexpr (std::is_same_v<T, long>) {
        return 'l';
    } else if constexpr (std::is_same_v<T, double>) {
        return 'f';
    } else if constexpr (std::is_same_v<T, char>) {
        return 'c';
    } else {
        static_assert(std::is_same_v<T, const char *> || std::is_same_v<T, Shown> || std::is_same_v<T, ShownList>);
        return 's';
    }
}

inline void FormatDoesNotMatchItsArguments() {} // not constexpr: reached only by a wrong format, which then doesn't compile

template <class... Args> struct Format {
    const char *text = "";
    Format() = default;
    consteval Format(const char *format)
        : text(format) { // NOLINT: implicit on purpose
        const char kinds[] = {Kind<Args>()..., '\0'};
        int next = 0;
        for (const char *p = format; *p; ++p) {
            if (*p != '%') {
                continue;
            }
            if (*++p == '%') {
                continue;
            }
            while (*p == '-' || *p == '.' || *p == '0' || (*p >= '1' && *p <= '9')) {
                ++p;
            }
            const char found = *p == 'l' && p[1] == 'd' ? *p++ : *p;
            if (found != kinds[next++]) {
                FormatDoesNotMatchItsArguments();
            }
        }
    }
};

// An argument as the writer takes it.
struct Arg {
    char kind; // as Kind tells
    union {
        long number;
        double real;
        const char *text;
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

// Writes a checked format to gTLYOUT. Reports are many short lines of numbers and names: this does for them what fprintf does, at a
// third of its cost.
void Write(const char *format, std::span<const Arg> args);

} // namespace forms

template <class... Args> struct Forms {
    forms::Format<Args...> text{}, html{}, csv{}, xml{};
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
template <class... Args> void PrintAs(Mode mode, const Forms<Args...> &forms, std::type_identity_t<Args>... args) {
    if constexpr (sizeof...(Args) == 0) {
        forms::Write(forms.Of(mode), {});
    } else if (const char *format = forms.Of(mode); *format) {
        const std::tuple<forms::Passed<Args>...> kept{forms::Passed<Args>(mode, args)...};
        const auto list = std::apply([](const auto &...each) { return std::array<forms::Arg, sizeof...(Args)>{each...}; }, kept);
        forms::Write(format, list);
    }
}

// One checked form for every mode, for a text that the modes don't share.
template <class... Args> void PrintOnly(Mode mode, forms::Format<std::type_identity_t<Args>...> format, Args... args) {
    Forms<Args...> same{format, format, format, format};
    PrintAs(mode, same, args...);
}

template <class... Args> void Print(const Globals *G, const Forms<Args...> &forms, std::type_identity_t<Args>... args) {
    PrintAs(OutputMode(G), forms, args...);
}
