// The long forms of a notice: how a head is composed, and how a text becomes HTML.
//
// A text is written once. `Marked` words and values are bold in HTML; only a text whose wording differs there is written twice.
//
//   constexpr LongText<int, int> kLimit{"%d exceeds the limit of `%d`.\n"};
//   WriteLong(27, G->file_line_no, G, kLimit, value, G->max_return_points);
#pragma once

#include "report/forms.h"
#include "run/notices_state.h"

struct Globals;

template <class... Args> struct LongText {
    forms::Format<Args...> text;
    forms::Format<Args...> html{}; // empty: as text
};

struct LongFormat {
    const char *format; // valid until the notice takes another text
    HeadValues head;
};

// The format of a whole long form: "\n    Notice #12: Line %d: " or what stands for it in the mode and in the order of the
// settings, then the text with its marks made bold, or taken away; in XML encoded, which leaves % as it is. It is made once and
// kept in G until the notice takes another text: text must live as long as G. In HTML the head is written at once, as it names
// colours.
LongFormat BeginLong(int n, int line, const char *text, const char *html, Mode mode, Globals *G);
// The file that a head names.
Shown NoticeFile(const Globals *G);
// A long form without values; html may be null. WriteRowText takes the text of the notice's row.
void WriteText(int n, int line, const char *text, const char *html, Globals *G);
void WriteRowText(int n, int line, Globals *G);

template <class... Args> void PrintUnchecked(Mode mode, const char *format, Args... args) {
    forms::Pass<Args...>(mode, nullptr, forms::CutFormat<sizeof...(Args)>(format), args...);
}

template <class... Args>
void WriteLong(int n, int line, Globals *G, const LongText<Args...> &body, std::type_identity_t<Args>... args) {
    const Mode mode = OutputMode(G);
    const LongFormat whole = BeginLong(n, line, body.text.text, body.html.text, mode, G);
    switch (whole.head) {
    case kNoHead: PrintUnchecked<Args...>(mode, whole.format, args...); break;
    case kHeadLine: PrintUnchecked<int, Args...>(mode, whole.format, line, args...); break;
    case kHeadFileLine: PrintUnchecked<Shown, int, Args...>(mode, whole.format, NoticeFile(G), line, args...); break;
    }
}

// Frees the texts that BeginLong keeps.
void FreeMarkedTexts(Globals *G);

// The steps of Raise, for raisers that depart from them. CountNotice: is n on, is there no skip region; counts it, or returns 0.
int CountNotice(int n, Globals *G);
// 1 if notices are printed where they come up.
int PrintsInPlace(const Globals *G);
// Prints the short form where one is wanted. Returns 1 when the caller is to write its long form; never without in_place.
// line is that of the notice where it isn't the one in hand.
int PrintNotice(int n, int in_place, Globals *G);
int PrintNotice(int n, int in_place, int line, Globals *G);
