// Everything the scanner reacts to in code, on one screen: the class of every byte, and what each class does.
//
// A line of code is a line with a printable ASCII character outside comments, other than "/": so every class but kPassed and kSlash
// makes the line code.
#include <array>

#include "analysis/scan.h"
#include "run/globals.h"

namespace {

enum CharClass : unsigned char {
    kPassed,     // blanks, control bytes, bytes with the high bit set: nothing
    kOperator,   // makes the line code, nothing else
    kWord,       // a letter, digit or "_": the whole run is one step
    kSlash,      // may open a comment
    kQuote,      // opens a string
    kApostrophe, // opens a character literal
    kHash,
    kOpenParen,
    kCloseParen,
    kOpenBrace,
    kCloseBrace,
    kSemicolon,
};

constexpr bool IsWordChar(int c) {
    return IsLetterOrDigit(static_cast<char>(c)) || c == '_';
}

using ClassTable = std::array<CharClass, 256>;

// Files of the other language have comments and literals, and no construct.
constexpr ClassTable kLiteralClasses = [] {
    ClassTable classes{};
    for (int c = 33; c < 128; ++c) {
        classes[c] = IsWordChar(c) ? kWord : kOperator;
    }
    classes['/'] = kSlash;
    classes['"'] = kQuote;
    classes['\''] = kApostrophe;
    return classes;
}();

constexpr ClassTable kCodeClasses = [] {
    ClassTable classes = kLiteralClasses;
    classes['#'] = kHash;
    classes['('] = kOpenParen;
    classes[')'] = kCloseParen;
    classes['{'] = kOpenBrace;
    classes['}'] = kCloseBrace;
    classes[';'] = kSemicolon;
    return classes;
}();

int EndOfWord(const char *line, int index) {
    do {
        ++index;
    } while (kLiteralClasses[static_cast<unsigned char>(line[index])] == kWord);
    return index;
}

// 1 if a comment opens here.
int OnSlash(Scan &scan, Globals *G) {
    const char next = scan.line[scan.index + 1];
    if (next == '*') {
        G->c_comment = 1;
        G->comment_star_index = scan.index + 1;
        G->comment_start_line = scan.number;
        scan.c_comment_line = 1;
        return 1;
    }
    if (next == '/' && scan.line[scan.index - 1] != '*') { // the "/" that ends a comment opens none
        G->cpp_comment = 1;
        return 1;
    }
    return 0;
}

void Call(void (*handler)(Scan &, Globals *), Scan &scan, int &index, Globals *G) {
    scan.index = index;
    handler(scan, G);
    index = scan.index;
}

} // namespace

// The position and the table are locals, so that the run through plain characters stays in registers.
void ScanCode(Scan &scan, Globals *G) {
    const ClassTable &classes = G->is_other ? kLiteralClasses : kCodeClasses;
    const char *line = scan.line;
    const int length = scan.length;
    int is_loc = scan.is_loc;
    int i = scan.index;
    int leave = 0;
    for (; i < length && !leave; ++i) {
        switch (classes[static_cast<unsigned char>(line[i])]) {
        case kPassed: continue;
        case kOperator: break;
        case kWord: {
            const int end = EndOfWord(line, i);
            if (!G->is_other) {
                OnWord(scan, i, end, G);
            }
            i = end - 1;
            break;
        }
        case kSlash:
            scan.index = i;
            if (OnSlash(scan, G)) {
                leave = 1;
                --i; // the "/" belongs to the comment
            }
            continue;
        case kQuote:
            scan.index = i;
            if (!IsEscaped(scan)) {
                ++G->quote_count;
                G->string_flag = 1;
                leave = 1;
                NoteSpan(scan, i, i + 1, kStringSpan);
            } else if (EndsBackslashLiteral(scan)) {
                ++G->string_count;
            }
            break;
        case kApostrophe:
            scan.index = i;
            G->char_flag = !IsEscaped(scan);
            leave = G->char_flag;
            break;
        case kHash: Call(OnHash, scan, i, G); break;
        case kOpenParen: Call(OnOpenParen, scan, i, G); break;
        case kCloseParen: Call(OnCloseParen, scan, i, G); break;
        case kOpenBrace: Call(OnOpenBrace, scan, i, G); break;
        case kCloseBrace: Call(OnCloseBrace, scan, i, G); break;
        case kSemicolon: Call(OnSemicolon, scan, i, G); break;
        }
        is_loc = 1;
    }
    scan.is_loc = is_loc;
    scan.index = i;
}
