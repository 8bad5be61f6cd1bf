// Everything the scanner reacts to in code, on one screen: the class of every byte, and what each class does.
//
// A line of code is a line with a printable ASCII character outside comments, other than "/": so every class but kPassed and kSlash
// makes the line code.
#include <array>

#include "analysis/keywords.h"
#include "analysis/literals.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "analysis/scopes.h"
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

int EndOfWord(const char *line, int index) {
    do {
        ++index;
    } while (kLiteralClasses[static_cast<unsigned char>(line[index])] == kWord);
    return index;
}

// True if a comment opens here.
bool OnSlash(Scan &scan, Globals *G) {
    const char next = scan.line[scan.index + 1];
    if (next == '*') {
        G->c_comment = 1;
        G->comment_star_index = scan.index + 1;
        G->comment_start_line = scan.number;
        scan.c_comment_line = 1;
        return true;
    }
    if (next == '/' && scan.line[scan.index - 1] != '*') { // the "/" that ends a comment opens none
        G->cpp_comment = 1;
        return true;
    }
    return false;
}

// Where the handler gave up, so does the line.
void Call(void (*handler)(Scan &, Globals *), Scan &scan, int &index, Globals *G) {
    handler(scan, G);
    index = scan.aborted ? scan.length : scan.index;
}

// Something is waited for since an earlier line: the value of an assignment, or the body of an if.
bool IsWaiting(const Scan &scan, const Globals *G) {
    return G->scope_pending_line > 0 && G->scope_pending_line < scan.number;
}

void CountTwice(const Scan &scan, char c, Globals *G) {
    if ((G->reading & kConditions) && G->preproc_flag && !G->define_flag) { // #if A && B
        return;
    }
    if (scan.line[scan.index - 1] == c && G->function_scope > 0 && G->funcname_flag) {
        ++(c == '&' ? G->local_and : G->local_or);
    }
}

void NoteStep(const Scan &scan, char c, Globals *G) {
    if (scan.line[scan.index - 1] == c && isfirstchar(scan.line[scan.index + 1])) { // --x
        NoticePreStep(c == '-' ? kNoticePreDecrement : kNoticePreIncrement, G);
    }
}

} // namespace

// The position and the table are locals, so that the run through plain characters stays in registers.
[[gnu::noinline]] void ScanCode(Scan &scan, Globals *G) {
    const ClassTable &classes = ClassesFor(scan, G);
    const char *line = scan.line;
    int end = scan.length; // 0 once a comment or a literal opens
    int is_loc = scan.is_loc;
    int i = scan.index;
    scan.head_mark = i;
    int waiting = IsWaiting(scan, G) && !G->is_other;
    for (; i < end; ++i) {
        const char c = line[i];
        const CharClass found = classes[static_cast<unsigned char>(c)];
        if (found == kPassed) {
            continue;
        }
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
        case kOperator: break;
        case kWord: {
            const int behind = EndOfWord(line, i);
            if (!G->is_other) {
                OnWord(scan, behind, G);
            }
            i = scan.aborted ? end : behind - 1;
            break;
        }
        case kSlash:
            if (OnSlash(scan, G)) {
                end = 0;
                --i; // the "/" belongs to the comment
            }
            continue;
        case kStar: G->star_flag |= !scan.c_comment_line; break;
        case kQuote:
            if (!IsEscaped(scan)) {
                ++G->quote_count;
                G->string_flag = 1;
                end = 0;
                i += G->reading & kLiterals ? OpenLiteral(scan, G) : 0;
                NoteSpan(scan, scan.index, i + 1, kStringSpan);
            } else if (EndsBackslashLiteral(scan)) {
                ++G->string_count;
            }
            break;
        case kApostrophe:
            if ((G->reading & kLiterals) && IsDigitSeparator(scan, G)) {
                break;
            }
            G->char_flag = !IsEscaped(scan);
            end = G->char_flag ? 0 : end;
            break;
        case kTwice: CountTwice(scan, c, G); break;
        case kStep: NoteStep(scan, c, G); break;
        case kTilde: G->virtual_dtor |= G->virtual_flag; break;
        case kAt: G->at_flag |= G->is_java; break;
        case kHash: Call(OnHash, scan, i, G); break;
        case kOpenParen: Call(OnOpenParen, scan, i, G); break;
        case kCloseParen: Call(OnCloseParen, scan, i, G); break;
        case kOpenBrace: Call(OnOpenBrace, scan, i, G); break;
        case kCloseBrace: Call(OnCloseBrace, scan, i, G); break;
        case kOpenBracket: Call(OnOpenBracket, scan, i, G); break;
        case kCloseBracket: Call(OnCloseBracket, scan, i, G); break;
        case kSemicolon: Call(OnSemicolon, scan, i, G); break;
        case kComma: Call(OnComma, scan, i, G); break;
        case kColon: Call(OnColon, scan, i, G); break;
        case kAssign: Call(OnAssign, scan, i, G); break;
        case kLess: Call(OnLess, scan, i, G); break;
        case kGreater: Call(OnGreater, scan, i, G); break;
        case kQuestion: Call(OnQuestion, scan, i, G); break;
        case kDot: Call(OnDot, scan, i, G); break;
        }
        is_loc = 1;
    }
    if ((G->reading & kBraces) && G->function_scope == 0 && !G->is_other) {
        TakeCode(scan, G->string_flag | G->char_flag ? scan.index + 1 : i, G);
    }
    scan.is_loc = is_loc;
    scan.index = i;
}
