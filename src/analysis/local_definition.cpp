// Tells a class or struct that is defined inside a function from one that is only named there.
//
// The heading is read word by word up to what decides, over as many lines as it takes:
//   struct point {                     a body
//   class Later : public Now {         bases, then a body; so are extends and implements
//   struct MARK point {                a macro is no name
//   struct point *next;                only a type
//   struct point origin = { 0, 0 };    a variable: a second word is its name
//   sizeof(struct point)               only a type
#include "analysis/local_definition.h"

#include <cstring>
#include <string_view>

#include "analysis/entities.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/text.h"

namespace {

enum Finding { kOpen, kNamed, kDefined };

// Behind white space and comments; at the end of the text where the rest of the line is a comment.
const char *SkipSpaceAndComments(const char *p) {
    for (;;) {
        p = SkipSpace(p);
        if (!OpensComment(p)) {
            return p;
        }
        const char *end = p[1] == '*' ? strstr(p + 2, "*/") : nullptr;
        p = end ? end + 2 : p + strlen(p);
    }
}

bool IsNameCharacter(char c) {
    return kWordChars.Has(c) || c == '$' || c < 0; // a name may hold any letter of UTF-8
}

// Behind the partner of the bracket that is open: (packed), [[nodiscard]], <int>. At the end of the text without one.
const char *SkipGroup(LocalHeading &heading, const char *p) {
    for (; *p && heading.depth > 0; ++p) {
        heading.depth += (*p == heading.opener) - (*p == heading.closer);
    }
    return p;
}

const char *EnterGroup(LocalHeading &heading, const char *p, char closer) {
    heading.opener = *p;
    heading.closer = closer;
    heading.depth = 1;
    return SkipGroup(heading, p + 1);
}

// Behind the bases there is a body, or nothing was meant.
Finding ReadBases(const char *p) {
    for (p = SkipSpaceAndComments(p); *p; p = SkipSpaceAndComments(p + 1)) {
        if (*p == '{' || *p == ';') {
            return *p == '{' ? kDefined : kNamed;
        }
    }
    return kOpen;
}

std::string_view WordAt(const char *p) {
    const char *end = p;
    while (IsNameCharacter(*end)) {
        ++end;
    }
    return {p, static_cast<size_t>(end - p)};
}

void TakeMacro(LocalHeading &heading, std::string_view name, const Globals *G) {
    if (!name.empty()) {
        LineText word;
        CopyPart(word, name.data(), name.size());
        heading.behind_macro = is_macro(word, G);
    }
}

// Behind the word at p; name is the one ahead of it on this line. Only where a name follows another it matters whether that was a
// macro.
const char *ReadWord(LocalHeading &heading, const char *p, std::string_view &name, const Globals *G) {
    const std::string_view word = WordAt(p);
    if (word == "final" || word == "extends" || word == "implements" || word == "permits") {
        heading.in_bases = 1;
    } else {
        TakeMacro(heading, name, G);
        heading.names = heading.behind_macro ? 1 : heading.names + 1;
        heading.behind_macro = 0;
        name = word;
    }
    return p + word.size();
}

// Goes on with a heading up to where it is known what it is, or to the end of the line.
Finding Read(LocalHeading &heading, const char *p, const Globals *G) {
    std::string_view name;
    p = SkipGroup(heading, p);
    for (p = SkipSpaceAndComments(p); *p; p = SkipSpaceAndComments(p)) {
        if (heading.in_bases) {
            return ReadBases(p);
        }
        if (*p == '{') {
            return kDefined;
        } else if (p[0] == ':' && p[1] == ':') { // struct Outer::Inner {
            heading.names = 0;
            p += 2;
        } else if (*p == ':') {
            heading.in_bases = 1;
            ++p;
        } else if (*p == '[' && p[1] == '[' && heading.names == 0) {
            p = EnterGroup(heading, p, ']');
        } else if (*p == '<' && heading.names == 1) { // class Box<T> {
            p = EnterGroup(heading, p, '>');
        } else if (*p == '(' && heading.names == 1) { // struct __attribute__((packed)) head {
            heading.names = 0;
            heading.behind_macro = 0;
            name = {};
            p = EnterGroup(heading, p, ')');
        } else if (IsNameCharacter(*p)) {
            p = ReadWord(heading, p, name, G);
            if (heading.names > 1) {
                return kNamed;
            }
        } else {
            return kNamed;
        }
    }
    TakeMacro(heading, name, G);
    return kOpen;
}

// Raises the notice for a definition; a heading that is open is kept for the next line.
void Settle(LocalHeading heading, Finding finding, Globals *G) {
    G->local_heading = finding == kOpen ? heading : LocalHeading{};
    if (finding == kOpen) {
        G->line_wants |= kWantsHead;
    }
    if (finding != kDefined) {
        return;
    }
    if (heading.is_struct) {
        EmitStructWithinFunction(heading.line, G);
    } else {
        EmitClassWithinFunction(heading.line, G);
    }
}

} // namespace

void FindLocalDefinition(int is_struct, const char *rest, Globals *G) {
    // A body of a macro is in no function yet, "enum class" is an enumeration, and C# has no local types: there "where T : class
    // {".
    if (G->function_scope <= 0 || !G->funcname_flag || G->define_flag || G->enum_flag || G->is_cs) {
        return;
    }
    LocalHeading heading{};
    heading.line = G->file_line_no;
    heading.is_struct = is_struct;
    const Finding finding = Read(heading, rest, G);
    Settle(heading, finding, G);
}

void ContinueLocalHeading(const char *line, Globals *G) {
    if (G->c_comment) {
        const char *end = strstr(line, "*/");
        line = end ? end + 2 : line + strlen(line);
    }
    if (G->preproc_flag || G->cpp_comment || *SkipSpaceAndComments(line) == '#') {
        return;
    }
    LocalHeading heading = G->local_heading;
    const Finding finding = Read(heading, line, G);
    Settle(heading, finding, G);
}
