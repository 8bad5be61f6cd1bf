// Tests of one byte of a text: own and constexpr, in the C locale. A byte is read as signed, so that one with the high bit set is
// negative and is no letter, no printable character and no white space.
#pragma once

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsLetterOrDigit(char c) {
    return IsLetter(c) || IsDigit(c);
}
constexpr bool IsBlankOrTab(char c) {
    return c == ' ' || c == '\t';
}
constexpr bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}
constexpr bool IsSpace(char c) {
    return IsBlankOrTab(c) || IsLineEnd(c);
}
constexpr char ToLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
// A character that a name goes on with.
constexpr bool IsWordChar(char c) {
    return IsLetterOrDigit(c) || c == '_';
}
// A character that can start a name.
constexpr bool isfirstchar(char c) {
    return IsLetter(c) || c == '_' || c == '~';
}
// A "/" followed by "/" or "*".
constexpr bool OpensComment(const char *p) {
    return p[0] == '/' && (p[1] == '/' || p[1] == '*');
}
// A character that may follow "operator" directly.
constexpr bool is_operator(char c) {
    for (const char *p = "!%&(*+,-/<=>[^dn|~"; *p; ++p) {
        if (*p == c) {
            return true;
        }
    }
    return false;
}

// A set of bytes made of a text: one look-up for a loop over a line. NUL is in it only where it is asked for.
struct CharSet {
    bool has[256] = {};
    constexpr explicit CharSet(const char *bytes, bool with_nul = false) {
        for (const char *p = bytes; *p; ++p) {
            has[static_cast<unsigned char>(*p)] = true;
        }
        has[0] = with_nul;
    }
    constexpr bool Has(char c) const { return has[static_cast<unsigned char>(c)]; }
};

// What IsWordChar tells, in one look-up.
inline constexpr CharSet kWordChars("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_");
