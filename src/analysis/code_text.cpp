// Helpers on source text, as the recognisers need them: bytes in, bytes out, no state.
//
// Not here: the marks in front of a keyword (keywords.cpp).
#include "analysis/code_text.h"

#include <array>
#include <bit>
#include <cstdint>

namespace {

// p stands on the "/" of a comment that opens; behind it, or at the LF or NUL that it doesn't close ahead of.
const char *BehindComment(const char *p) {
    for (p += 2; *p && *p != '\n'; ++p) {
        if (*p == '*' && p[1] == '/') {
            return p + 2;
        }
    }
    return p;
}

// Where the kinds of tokens differ.
struct TokenKind {
    CharSet skipped; // ahead of the token
    CharSet ends;    // it
    int any_first;   // it may begin with any character
};

constexpr TokenKind kNameToken{CharSet(" \t"), CharSet(" {\t:\r(;)/\n", true), 0};
constexpr TokenKind kCodeToken{CharSet(" \t{("), CharSet(" {\t:\r(;)/\n", true), 1};
constexpr TokenKind kRawToken{CharSet(" \t\r"), CharSet(" \t\r\n", true), 0};

// Index of the token's first character; -1 if the line has none left.
int FindToken(const char *line, int index, const TokenKind &kind) {
    while (kind.skipped.Has(line[index])) {
        ++index;
    }
    if (IsLineEnd(line[index]) || (line[index] == '/' && line[index + 1] == '/')) {
        return -1;
    }
    if (line[index] == '/' && line[index + 1] == '*') {
        const char *close = strstr(line + index + 2, "*/");
        if (close) {
            return static_cast<int>(close + 2 - line);
        }
    }
    return index;
}

const char *ReadToken(const char *line, int index, std::span<char> out, const TokenKind &kind) {
    ClearText(out);
    int end = FindToken(line, index, kind);
    if (end < 0) {
        return nullptr;
    }
    const int begin = end;
    while (!kind.ends.Has(line[end])) {
        ++end;
    }
    CopyPart(out, line + begin, end - begin);
    return kind.any_first || isfirstchar(out[0]) ? out.data() : nullptr;
}

} // namespace

const char *NextCharAt(const char *p) {
    if (*p == '\0') {
        return p;
    }
    for (++p;;) {
        p = Ltrim(p);
        if (p[0] != '/' || p[1] != '*') {
            return p;
        }
        p = BehindComment(p);
    }
}

char NextChar(const char *p) {
    p = NextCharAt(p);
    return p[0] == '/' && p[1] == '/' ? '\n' : *p;
}

bool FindCodeChar(const char *p, char ch) {
    if (!strchr(p, ch)) { // most lines
        return false;
    }
    while (*p && !IsLineEnd(*p)) {
        if (OpensComment(p)) {
            if (p[1] == '/') {
                return false;
            }
            p = BehindComment(p);
        } else if (*p == ch) {
            return true;
        } else {
            ++p;
        }
    }
    return false;
}

int OverBlanks(const char *line, int i) {
    while (i >= 0 && IsBlankOrTab(line[i])) {
        --i;
    }
    return i;
}

namespace {

// What stands behind a line's first character, from its first "/" on: of comments, or no comment.
bool IsOverWithComments(const char *p, const char *line) {
    const char *end = strstr(line, "//");
    if (!end) {
        end = line + strlen(line);
    }
    for (; p < end && !IsLineEnd(*p); ++p) {
        if (*p == '/' && p + 1 < end && p[1] == '*') {
            const char *close = strstr(p + 2, "*/");
            if (!close || close + 2 > end) {
                return true;
            }
            p = close + 1;
        } else if (*p != ' ' && *p != '\t' && *p != ';' && *p != '/') {
            return false;
        }
    }
    return true;
}

using Bytes = unsigned char __attribute__((vector_size(16)));

// Whether one of the 17 bytes at text is an "h" in front of an "r", which few words have.
bool HoldsHr(const char *text) {
    Bytes bytes, next;
    memcpy(&bytes, text, sizeof bytes);
    memcpy(&next, text + 1, sizeof next);
    const auto found = std::bit_cast<std::array<uint64_t, 2>>((bytes == 'h') & (next == 'r'));
    return (found[0] | found[1]) != 0;
}

} // namespace

bool SingleChar(const char *line, char ch) {
    const char *p = Ltrim(line);
    if (*p != ch) {
        return false;
    }
    do {
        ++p;
    } while (*p == ' ' || *p == '\t' || *p == ';');
    return *p == '\0' || IsLineEnd(*p) || (*p == '/' && IsOverWithComments(p, line));
}

bool SpeaksOfFallingThrough(const char *line, int length) {
    int i = 0;
    while (i < length && !HoldsHr(line + i)) {
        i += static_cast<int>(sizeof(Bytes));
    }
    for (const char *p = i < length ? line : ""; (p = strstr(p, " thr")) != nullptr; p += 4) {
        const int verb = p - line >= 4 && (strncmp(p - 4, "fall", 4) == 0 || strncmp(p - 4, "drop", 4) == 0);
        if (verb && (p[4] == 'u' || strncmp(p + 4, "ough", 4) == 0)) {
            return true;
        }
    }
    return false;
}

bool IsUpperCase(const char *text) {
    for (; *text && *text != '\n'; ++text) {
        if (*text >= 'a' && *text <= 'z') {
            return false;
        }
    }
    return true;
}

const char *GetNextToken(const char *line, int index, std::span<char> out) {
    return ReadToken(line, index, out, kNameToken);
}

const char *GetNextCodeToken(const char *line, int index, std::span<char> out) {
    return ReadToken(line, index, out, kCodeToken);
}

const char *GetNextRawToken(const char *line, int index, std::span<char> out) {
    return ReadToken(line, index, out, kRawToken);
}

int TokenIndex(const char *line, int index) {
    const int found = FindToken(line, index, kNameToken);
    return found < 0 ? index : found;
}

int BehindArguments(const char *line, int index) {
    const char *p = Ltrim(line + index);
    if (*p != '(') {
        return index;
    }
    for (int depth = 0; *p && !IsLineEnd(*p); ++p) {
        depth += (*p == '(') - (*p == ')');
        if (depth == 0) {
            ++p;
            break;
        }
    }
    return static_cast<int>(p - line);
}

namespace {

// Joins the pieces between delimiters with one blank, without those that other holds. It never grows: it works in place.
void JoinPieces(char *text, const char *delimiters, const char *other) {
    char *out = text;
    LineText piece;
    for (const char *p = text + strspn(text, delimiters); *p; p += strspn(p, delimiters)) {
        const size_t length = strcspn(p, delimiters);
        if (other) {
            CopyPart(piece, p, length);
        }
        if (!other || !strstr(other, piece)) {
            if (out != text) {
                *out++ = ' ';
            }
            memmove(out, p, length);
            out += length;
        }
        p += length;
    }
    *out = '\0';
}

} // namespace

void StripChars(char *text, const char *delimiters) {
    JoinPieces(text, delimiters, nullptr);
}

void StripStrings(char *text, const char *other) {
    JoinPieces(text, " \t\r\n", other);
}

void Strip_nrt(const char *text, std::span<char> out) {
    static constexpr CharSet kSpecial("\n\r\t{,");
    size_t length = 0;
    for (; *text && length + 1 < out.size(); ++text) {
        if (!kSpecial.Has(*text)) { // most of them
            out[length++] = *text;
            continue;
        }
        if (*text == '\n' || *text == '\r' || *text == '\t' || *text == '{') {
            continue;
        }
        out[length++] = *text;
        if (*text == ',' && length + 1 < out.size()) {
            out[length++] = ' ';
        }
    }
    out[length] = '\0';
}

void FormatTemplateLine(char *text) {
    if (!strchr(text, ' ') && !strchr(text, '\t')) { // only where a blank stands anything goes
        return;
    }
    char *out = text;
    for (const char *p = text; *p;) {
        if (IsBlankOrTab(*p)) {
            ++p;
            continue;
        }
        if (!kWordChars.Has(*p)) {
            *out++ = *p++;
            continue;
        }
        const char *end = p;
        while (kWordChars.Has(*end)) {
            ++end;
        }
        const size_t length = end - p;
        const int blank = IsBlankOrTab(*end);
        const int noise = (length == 5 && memcmp(p, "class", 5) == 0) || (length == 8 && memcmp(p, "typename", 8) == 0);
        const int name = length == 8 && memcmp(p, "operator", 8) == 0;
        if (!(noise && blank)) {
            memmove(out, p, length);
            out += length;
        }
        if (name && blank) { // operator new
            *out++ = ' ';
        }
        p = end;
    }
    *out = '\0';
}

int CountParents(const char *text) {
    if (!text) {
        return 0;
    }
    int parents = 1;
    int depth = 0;
    for (; *text; ++text) {
        depth += *text == '<' ? 1 : *text == '>' && depth > 0 ? -1 : 0;
        parents += *text == ',' && depth == 0;
    }
    return parents;
}

void StripCComment(char *text) {
    char *begin = strstr(text, "/*");
    const char *end = strstr(text, "*/");
    if (begin && end && end >= begin + 2) {
        memmove(begin, end + 2, strlen(end + 2) + 1);
    }
}

void StripCPPComment(char *text) {
    char *begin = strstr(text, "//");
    if (begin) {
        *begin = '\0';
    }
}

namespace {

// Behind the string that opens at p, or the next character: of a string that doesn't close, and of '"'.
const char *BehindString(const char *text, const char *p) {
    const int is_character = p[1] == '\'' && ((p > text && p[-1] == '\'') || (p > text + 1 && p[-1] == '\\' && p[-2] == '\''));
    const char *end = p + 1;
    while (!is_character && *end && *end != '"') {
        end += end[0] == '\\' && end[1] != '\0' ? 2 : 1;
    }
    return *end == '"' ? end + 1 : p + 1;
}

// Behind the "*/" of the comment that p stands in, or at the end.
const char *BehindClose(const char *p) {
    const char *close = strstr(p, "*/");
    return close ? close + 2 : p + strlen(p);
}

} // namespace

void StripComments(char *text, int in_comment) {
    if (!in_comment && !strchr(text, '/')) {
        return;
    }
    char *out = text;
    for (const char *p = in_comment ? BehindClose(text) : text; *p;) {
        if (p[0] == '/' && p[1] == '/') {
            break;
        }
        if (p[0] == '/' && p[1] == '*') {
            p = BehindClose(p + 2);
            while (*p == ')' && out > text && IsBlankOrTab(out[-1])) { // f(int /* a */)
                --out;
            }
            continue;
        }
        const char *end = *p == '"' ? BehindString(text, p) : p + 1;
        while (p < end) {
            *out++ = *p++;
        }
    }
    *out = '\0';
}

void Lefttrim(char *text) {
    const char *begin = Ltrim(text);
    memmove(text, begin, strlen(begin) + 1);
}

void stripLF(char *text) {
    size_t length = strlen(text);
    if (length > 0 && text[length - 1] == '\n') {
        --length;
        length -= length > 0 && text[length - 1] == '\r';
        text[length] = '\0';
    }
}
