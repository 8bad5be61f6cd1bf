// Tests of one byte that several recognisers share; own and constexpr, on signed bytes in the C locale.
#pragma once

#include "run/text.h"

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
