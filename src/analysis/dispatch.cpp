// Everything the scanner reacts to in code, on one screen: the handler of every byte.
//
// A line of code is a line with a printable ASCII character outside comments, other than "/".
#include <algorithm>
#include <array>
#include <bit>

#include "analysis/keywords.h"
#include "analysis/literals.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "analysis/scopes.h"
#include "analysis/spans.h"
#include "notices/raise.h"
#include "run/char_tests.h"
#include "run/globals.h"

namespace {

void OnNothing(Scan &, Globals *) {}

void OnTab(Scan &, Globals *G) {
    NoticeAtLine(kNoticeTab, G);
}

void OnSlash(Scan &scan, Globals *G) {
    if (OpenComment(scan, G)) {
        EndWalk(scan, scan.index); // the "/" belongs to the comment
    }
}

void OnQuote(Scan &scan, Globals *G) {
    if (OpenString(scan, G)) {
        const int stop = scan.index + 1 + (G->reading & kLiterals ? OpenLiteral(scan, G) : 0);
        NoteSpan(scan, scan.index, stop, kStringSpan);
        EndWalk(scan, stop);
    }
}

void OnApostrophe(Scan &scan, Globals *G) {
    if (!((G->reading & kLiterals) && IsDigitSeparator(scan, G)) && OpenCharLiteral(scan, G)) {
        EndWalk(scan, scan.index + 1);
    }
}

// The statement may declare a pointer.
void OnStar(Scan &scan, Globals *G) {
    G->star_flag |= !scan.c_comment_line;
}

// & and |: the second of two counts.
void OnTwice(Scan &scan, Globals *G) {
    if ((G->reading & kConditions) && G->preproc_flag && !G->define_flag) { // #if A && B
        return;
    }
    const char c = scan.line[scan.index];
    if (scan.line[scan.index - 1] == c && G->function_scope > 0 && G->funcname_flag) {
        ++(c == '&' ? G->local_and : G->local_or);
    }
}

// + and -: in front of a name, the second of two is a notice: --x
void OnStep(Scan &scan, Globals *G) {
    const char c = scan.line[scan.index];
    if (scan.line[scan.index - 1] == c && isfirstchar(scan.line[scan.index + 1])) {
        NoticePreStep(c == '-' ? kNoticePreDecrement : kNoticePreIncrement, G);
    }
}

// A virtual destructor.
void OnTilde(Scan &, Globals *G) {
    G->virtual_dtor |= G->virtual_flag;
}

// A Java annotation.
void OnAt(Scan &, Globals *G) {
    G->at_flag |= G->is_java;
}

using Handlers = std::array<Handler *, 128>;

// Files of the other language have comments and literals, and no construct. Where notices print, every tab raises its own in its
// place; otherwise they are counted behind the line.
constexpr Handlers kLiteralHandlers = [] {
    Handlers handlers{};
    for (Handler *&handler : handlers) {
        handler = OnNothing;
    }
    handlers['\t'] = OnTab;
    handlers['/'] = OnSlash;
    handlers['"'] = OnQuote;
    handlers['\''] = OnApostrophe;
    return handlers;
}();

constexpr Handlers kCodeHandlers = [] {
    Handlers handlers = kLiteralHandlers;
    for (int c = 33; c < 128; ++c) {
        if (IsWordChar(static_cast<char>(c))) {
            handlers[c] = OnWord;
        }
    }
    handlers['*'] = OnStar;
    handlers['&'] = OnTwice;
    handlers['|'] = OnTwice;
    handlers['+'] = OnStep;
    handlers['-'] = OnStep;
    handlers['~'] = OnTilde;
    handlers['@'] = OnAt;
    handlers['#'] = OnHash;
    handlers['('] = OnOpenParen;
    handlers[')'] = OnCloseParen;
    handlers['{'] = OnOpenBrace;
    handlers['}'] = OnCloseBrace;
    handlers['['] = OnOpenBracket;
    handlers[']'] = OnCloseBracket;
    handlers[';'] = OnSemicolon;
    handlers[','] = OnComma;
    handlers[':'] = OnColon;
    handlers['='] = OnAssign;
    handlers['<'] = OnLess;
    handlers['>'] = OnGreater;
    handlers['?'] = OnQuestion;
    handlers['.'] = OnDot;
    return handlers;
}();

// Something is waited for since an earlier line: the value of an assignment, or the body of an if.
bool IsWaiting(const Scan &scan, const Globals *G) {
    return G->scope_pending_line > 0 && G->scope_pending_line < scan.number;
}

// Code proper, ahead of which it is looked for.
bool IsProper(char c) {
    return c > ' ' && c != '/' && c != '"' && c != '\'' && c != '*';
}

// Of 64 bytes, those that are looked at in code. Where something is waited for that is every token.
uint64_t BitsAt(int place, const Scan &scan, bool waiting) {
    const ByteMasks &masks = scan.masks[static_cast<unsigned>(place) / kMaskBytes];
    return waiting ? masks.token : masks.code;
}

// Calls the handlers of what is looked at from begin on, until a comment or a literal opens or the line ends. With waiting it ends
// too, behind the byte in hand, where nothing is waited for any more. Returns the index where it ended.
template <bool waiting> int Walk(Scan &scan, int begin, Globals *G) {
    constexpr int kBytes = kMaskBytes;
    for (;;) {
        const int place = scan.origin + begin;
        const int skipped = place & (kBytes - 1); // of the 64 bytes in hand
        int first = begin - skipped;              // index of the first of them
        uint64_t bits = BitsAt(place, scan, waiting) >> skipped << skipped;
        do {
            while (!bits) {
                first += kBytes;
                if (first >= scan.length) {
                    return scan.length;
                }
                bits = BitsAt(scan.origin + first, scan, waiting);
            }
            const int index = first + std::countr_zero(bits);
            if (index >= scan.length) {
                return scan.length;
            }
            bits &= bits - 1;
            scan.index = index;
            const char c = scan.line[index];
            if (waiting && IsProper(c)) {
                CheckPending(scan, G);
            }
            scan.handlers[static_cast<unsigned char>(c)](scan, G);
            if (waiting && !scan.moved && !IsWaiting(scan, G)) {
                return index + 1;
            }
        } while (!scan.moved);
        scan.moved = 0;
        if (scan.stop >= 0) {
            return scan.stop;
        }
        begin = scan.index + 1;
        if (waiting && !IsWaiting(scan, G)) {
            return begin;
        }
    }
}

// Code from begin up to end makes the line a line of code: mostly its first character does.
bool HoldsCode(const char *line, int begin, int end) {
    return begin < end && (MakesCode(line[begin]) || std::any_of(line + begin + 1, line + end, MakesCode));
}

} // namespace

Handler *const *HandlersFor(const Globals *G) {
    return (G->is_other ? kLiteralHandlers : kCodeHandlers).data();
}

void ScanCode(Scan &scan, Globals *G) {
    const int begin = scan.index;
    scan.head_mark = begin;
    int stop = begin;
    bool in_code = true;
    if (IsWaiting(scan, G)) {
        stop = Walk<true>(scan, begin, G);
        in_code = stop < scan.length && IsInCode(*G);
    }
    if (in_code) {
        stop = Walk<false>(scan, stop, G);
    }
    if ((G->reading & kBraces) && G->function_scope == 0 && !G->is_other) {
        TakeCode(scan, G->string_flag | G->char_flag ? scan.index + 1 : stop, G);
    }
    if (!scan.is_loc) {
        scan.is_loc = HoldsCode(scan.line, begin, stop);
    }
    scan.index = stop;
}
