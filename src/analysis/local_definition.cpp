// Tells a class or struct that is defined inside a function from one that is only named there.
//
// The heading is read word by word up to what decides:
//   struct point {                     a body
//   struct point                       the body follows
//   class Later : public Now {         bases, then the body; so are extends and implements
//   struct point *next;                only a type
//   struct point origin = { 0, 0 };    a variable: a second word is its name
//   sizeof(struct point)               only a type
#include "analysis/local_definition.h"

#include <cstring>
#include <string_view>

#include "run/globals.h"
#include "run/text.h"

namespace {

// Behind white space and comments; at the end of the text where the rest of the line is a comment.
const char *SkipSpace(const char *p) {
    for (;;) {
        while (IsBlankOrTab(*p) || IsLineEnd(*p)) {
            ++p;
        }
        if (p[0] != '/' || (p[1] != '/' && p[1] != '*')) {
            return p;
        }
        const char *end = p[1] == '*' ? strstr(p + 2, "*/") : nullptr;
        p = end ? end + 2 : p + strlen(p);
    }
}

// Behind the partner of the bracket at p: (packed), [[nodiscard]], <int>. At the end of the text without one.
const char *SkipGroup(const char *p, char opener, char closer) {
    int depth = 0;
    for (; *p; ++p) {
        depth += (*p == opener) - (*p == closer);
        if (depth == 0) {
            return p + 1;
        }
    }
    return p;
}

bool IsWordCharacter(char c) {
    return IsLetterOrDigit(c) || c == '_' || c == '$' || c < 0; // a name may hold any letter of UTF-8
}

// Behind the bases: a body, or a line that leaves it open.
int EndsInBody(const char *p) {
    for (p = SkipSpace(p); *p; p = SkipSpace(p + 1)) {
        if (*p == '{' || *p == ';') {
            return *p == '{';
        }
    }
    return 1;
}

// What stands behind the keyword, up to where it is known what it is.
int OpensBody(const char *p) {
    int names = 0;
    for (p = SkipSpace(p); *p; p = SkipSpace(p)) {
        if (*p == '{') {
            return names <= 1;
        } else if (p[0] == ':' && p[1] == ':') { // struct Outer::Inner {
            names = 0;
            p += 2;
        } else if (*p == ':') {
            return EndsInBody(p + 1);
        } else if (*p == '[' && p[1] == '[' && names == 0) {
            p = SkipGroup(p, '[', ']');
        } else if (*p == '<' && names == 1) { // class Box<T> {
            p = SkipGroup(p, '<', '>');
        } else if (*p == '(' && names == 1) { // struct __attribute__((packed)) head {
            names = 0;
            p = SkipGroup(p, '(', ')');
        } else if (IsWordCharacter(*p)) {
            const char *word = p;
            while (IsWordCharacter(*p)) {
                ++p;
            }
            const std::string_view name(word, p - word);
            if (name == "final" || name == "extends" || name == "implements" || name == "permits") {
                return EndsInBody(p);
            }
            ++names;
        } else {
            return 0;
        }
    }
    return names <= 1;
}

} // namespace

int IsLocalDefinition(const char *rest, const Globals *G) {
    // A body of a macro is in no function yet, "enum class" is an enumeration, and C# has no local types: there "where T : class
    // {".
    if (G->function_scope <= 0 || !G->funcname_flag || G->define_flag || G->enum_flag || G->is_cs) {
        return 0;
    }
    return OpensBody(rest);
}
