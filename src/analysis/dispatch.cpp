// Everything the scanner reacts to in code, on one screen: the class of every byte, and what each class does.
//
// A line of code is a line with a printable ASCII character outside comments, other than "/": so every class but kPassed and kSlash
// makes the line code.
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

enum CharClass : unsigned char {
    kPassed,     // blanks, control bytes, bytes with the high bit set: nothing
    kTab,        // the same, but it raises a notice
    kSlash,      // may open a comment
    kQuote,      // opens a string
    kApostrophe, // opens a character literal
    kStar,       // remembered: the statement may declare a pointer
    // what follows is code proper: what is waited for since an earlier line is looked for ahead of it
    kOperator, // makes the line code, nothing else
    kWord,     // a letter, digit or "_": the whole run is one step
    kTwice,    // & and |: the second of two counts
    kStep,     // + and -: in front of a name, the second of two is a notice
    kTilde,    // a virtual destructor
    kAt,       // a Java annotation
    kHash,
    kOpenParen,
    kCloseParen,
    kOpenBrace,
    kCloseBrace,
    kOpenBracket,
    kCloseBracket,
    kSemicolon,
    kComma,
    kColon,
    kAssign,
    kLess,
    kGreater,
    kQuestion,
    kDot,
};

using ClassTable = std::array<CharClass, 256>;

// Files of the other language have comments and literals, and no construct.
constexpr ClassTable kLiteralClasses = [] {
    ClassTable classes{};
    for (int c = 33; c < 128; ++c) {
        classes[c] = IsWordChar(static_cast<char>(c)) ? kWord : kOperator;
    }
    classes['/'] = kSlash;
    classes['"'] = kQuote;
    classes['\''] = kApostrophe;
    return classes;
}();

constexpr ClassTable kCodeClasses = [] {
    ClassTable classes = kLiteralClasses;
    classes['*'] = kStar;
    classes['&'] = kTwice;
    classes['|'] = kTwice;
    classes['+'] = kStep;
    classes['-'] = kStep;
    classes['~'] = kTilde;
    classes['@'] = kAt;
    classes['#'] = kHash;
    classes['('] = kOpenParen;
    classes[')'] = kCloseParen;
    classes['{'] = kOpenBrace;
    classes['}'] = kCloseBrace;
    classes['['] = kOpenBracket;
    classes[']'] = kCloseBracket;
    classes[';'] = kSemicolon;
    classes[','] = kComma;
    classes[':'] = kColon;
    classes['='] = kAssign;
    classes['<'] = kLess;
    classes['>'] = kGreater;
    classes['?'] = kQuestion;
    classes['.'] = kDot;
    return classes;
}();

// Where notices print, every tab raises its own in its place; otherwise they are counted behind the line.
constexpr ClassTable WithTabs(ClassTable classes) {
    classes['\t'] = kTab;
    return classes;
}
constexpr ClassTable kLiteralTabClasses = WithTabs(kLiteralClasses);
constexpr ClassTable kCodeTabClasses = WithTabs(kCodeClasses);

const ClassTable &ClassesFor(const Scan &scan, const Globals *G) {
    if (scan.notices_print) {
        return G->is_other ? kLiteralTabClasses : kCodeTabClasses;
    }
    return G->is_other ? kLiteralClasses : kCodeClasses;
}

// Something is waited for since an earlier line: the value of an assignment, or the body of an if.
bool IsWaiting(const Scan &scan, const Globals *G) {
    return G->scope_pending_line > 0 && G->scope_pending_line < scan.number;
}

void CountTwice(const Scan &scan, char c, Globals *G) {
    if (scan.line[scan.index - 1] == c && G->function_scope > 0 && G->funcname_flag) {
        ++(c == '&' ? G->local_and : G->local_or);
    }
}

void NoteStep(const Scan &scan, char c, Globals *G) {
    if (scan.line[scan.index - 1] == c && isfirstchar(scan.line[scan.index + 1])) { // --x
        NoticePreStep(c == '-' ? kNoticePreDecrement : kNoticePreIncrement, G);
    }
}

// The bytes of a line that are looked at in code, one after the other: the set bits of its masks.
struct CodeWalk {
    const ByteMasks *masks;
    uint64_t tabs; // all bits where tabs are looked at too
    size_t word;   // the 64 bytes in hand
    uint64_t bits; // of them, those still to come

    uint64_t Bits() const { return masks[word].code | (masks[word].tab & tabs); }
    // Goes on at a place of the masks.
    void Place(size_t at) {
        word = at / kMaskBytes;
        bits = Bits() >> at % kMaskBytes << at % kMaskBytes;
    }
    // The next place, or one from end on.
    size_t Next(size_t end) {
        while (!bits) {
            if (++word * kMaskBytes >= end) {
                return end;
            }
            bits = Bits();
        }
        const size_t found = word * kMaskBytes + static_cast<size_t>(std::countr_zero(bits));
        bits &= bits - 1;
        return found;
    }
};

} // namespace

// The position and the table are locals, so that the run from event to event stays in registers.
[[gnu::noinline]] void ScanCode(Scan &scan, Globals *G) {
    const ClassTable &classes = ClassesFor(scan, G);
    const char *line = scan.line;
    const size_t origin = scan.origin;
    const size_t end = origin + static_cast<size_t>(scan.length);
    int is_loc = scan.is_loc;
    int waiting = IsWaiting(scan, G) && !G->is_other;
    int behind = -1; // the index behind the opener of a comment or literal
    scan.head_mark = scan.index;
    CodeWalk walk{scan.masks, scan.notices_print ? ~uint64_t{0} : 0, 0, 0};
    walk.Place(origin + static_cast<size_t>(scan.index));
    for (size_t at; behind < 0 && (at = walk.Next(end)) < end;) {
        const int i = static_cast<int>(at - origin);
        const char c = line[i];
        const CharClass found = classes[static_cast<unsigned char>(c)];
        scan.index = i;
        if (waiting && found > kStar) {
            waiting = IsWaiting(scan, G);
            if (waiting) {
                CheckPending(scan, G);
            }
        }
        switch (found) {
        case kPassed: continue;
        case kTab: NoticeAtLine(kNoticeTab, G); continue;
        case kSlash: behind = OpenComment(scan, G) ? i : -1; continue; // the "/" belongs to the comment
        case kOperator: break;
        case kWord:
            if (!G->is_other) {
                OnWord(scan, G);
            }
            break;
        case kStar: G->star_flag |= !scan.c_comment_line; break;
        case kQuote:
            if (OpenString(scan, G)) {
                behind = i + 1 + (G->reading & kLiterals ? OpenLiteral(scan, G) : 0);
                NoteSpan(scan, i, behind, kStringSpan);
            }
            break;
        case kApostrophe:
            if (!((G->reading & kLiterals) && IsDigitSeparator(scan, G)) && OpenCharLiteral(scan, G)) {
                behind = i + 1;
            }
            break;
        case kTwice: CountTwice(scan, c, G); break;
        case kStep: NoteStep(scan, c, G); break;
        case kTilde: G->virtual_dtor |= G->virtual_flag; break;
        case kAt: G->at_flag |= G->is_java; break;
        case kHash: OnHash(scan, G); break;
        case kOpenParen: OnOpenParen(scan, G); break;
        case kCloseParen: OnCloseParen(scan, G); break;
        case kOpenBrace: OnOpenBrace(scan, G); break;
        case kCloseBrace: OnCloseBrace(scan, G); break;
        case kOpenBracket: OnOpenBracket(scan, G); break;
        case kCloseBracket: OnCloseBracket(scan, G); break;
        case kSemicolon: OnSemicolon(scan, G); break;
        case kComma: OnComma(scan, G); break;
        case kColon: OnColon(scan, G); break;
        case kAssign: OnAssign(scan, G); break;
        case kLess: OnLess(scan, G); break;
        case kGreater: OnGreater(scan, G); break;
        case kQuestion: OnQuestion(scan, G); break;
        case kDot: OnDot(scan, G); break;
        }
        is_loc = 1;
        if (scan.aborted) {
            break;
        }
        if (scan.index != i) { // the handler used more up
            walk.Place(origin + static_cast<size_t>(scan.index) + 1);
        }
    }
    const int stop = behind < 0 ? scan.length : behind;
    if ((G->reading & kBraces) && G->function_scope == 0 && !G->is_other) {
        TakeCode(scan, G->string_flag | G->char_flag ? scan.index + 1 : stop, G);
    }
    scan.is_loc = is_loc;
    scan.index = stop;
}
