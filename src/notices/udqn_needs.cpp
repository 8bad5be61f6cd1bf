// What every text that a pattern matches holds, read from the pattern.
//
//   \b(TODO|FIXME)\b         one of "TODO", "FIXME"
//   =\s*([mc]|re)?alloc\s*\( "alloc", the longest of those it can't do without
//   \S+                      no text, but some byte
//
// A rule whose needs a line doesn't meet can't fire on it, so nothing may be called needed that isn't. Whatever is not read here
// for sure, a recursion, a verb, a blank in a pattern with comments, makes the whole pattern one without needs.
#include <algorithm>
#include <cstring>

#include "notices/udqn.h"
#include "run/char_tests.h"

namespace {

constexpr int kMaxDepth = 40; // of groups

struct Reader {
    const char *at;
    bool any_case;
    bool unsure;
    int depth;
};

enum AtomKind { kByte, kOneOfMany, kGroup, kZeroWidth };

struct Atom {
    AtomKind kind;
    char byte;
    UdqnNeeds needs; // of a group
};

// A row of bytes that stand one behind another in the pattern.
struct Run {
    char text[kNeededBytes + 1];
    int length;
};

size_t Shortest(const UdqnNeeds &needs) {
    size_t shortest = needs.count > 0 ? kNeededBytes : 0;
    for (int i = 0; i < needs.count; ++i) {
        shortest = std::min(shortest, strlen(needs.texts[i]));
    }
    return shortest;
}

// Both are needed: the longer texts tell more.
void Join(UdqnNeeds &needs, const UdqnNeeds &more) {
    const int some_byte = needs.some_byte || more.some_byte;
    if (Shortest(more) > Shortest(needs)) {
        needs = more;
    }
    needs.some_byte = some_byte;
}

// One of both is needed.
void Widen(UdqnNeeds &needs, const UdqnNeeds &other) {
    needs.some_byte = needs.some_byte && other.some_byte;
    if (needs.count == 0 || other.count == 0 || needs.count + other.count > kNeededTexts) {
        needs.count = 0;
        return;
    }
    memcpy(needs.texts[needs.count], other.texts, sizeof other.texts[0] * static_cast<size_t>(other.count));
    needs.count += other.count;
}

void EndRun(UdqnNeeds &needs, Run &run) {
    if (run.length > 0) {
        UdqnNeeds more{};
        more.count = more.some_byte = 1;
        memcpy(more.texts[0], run.text, static_cast<size_t>(run.length));
        Join(needs, more);
    }
    run.length = 0;
}

UdqnNeeds ReadBranches(Reader &reader);

// Behind "\". In a set, "\b" is a byte.
Atom ReadEscape(Reader &reader) {
    const char c = *reader.at;
    if (!c) {
        reader.unsure = true;
        return {kZeroWidth, 0, {}};
    }
    ++reader.at;
    if (!IsLetterOrDigit(c)) {
        return {kByte, c, {}};
    }
    static constexpr char kLetters[] = "tnrf", kBytes[] = "\t\n\r\f";
    if (const char *letter = strchr(kLetters, c)) {
        return {kByte, kBytes[letter - kLetters], {}};
    }
    reader.unsure = !strchr("dDwWsShHvVbBAzZG", c);
    return {strchr("bBAzZG", c) ? kZeroWidth : kOneOfMany, 0, {}};
}

// "[:alpha:]" in a set. Returns what stands behind it, or null.
const char *SkipClass(const char *p) {
    p += strlen("[:");
    p += *p == '^';
    while (IsLetter(*p)) {
        ++p;
    }
    return p[0] == ':' && p[1] == ']' ? p + 2 : nullptr;
}

// Behind "[".
Atom ReadSet(Reader &reader) {
    reader.at += *reader.at == '^';
    for (bool first = true; first || *reader.at != ']'; first = false) {
        const char c = *reader.at;
        const char *next = reader.at + 1;
        if (c == '[' && strchr(":.=", *next)) {
            next = *next == ':' ? SkipClass(reader.at) : nullptr;
        }
        reader.unsure |= !c || !next;
        if (reader.unsure) {
            return {kOneOfMany, 0, {}};
        }
        reader.at = next;
        if (c == '\\') {
            ReadEscape(reader);
        }
    }
    ++reader.at;
    return {kOneOfMany, 0, {}};
}

// Behind "(".
Atom ReadGroup(Reader &reader) {
    AtomKind kind = kGroup;
    if (*reader.at == '?') {
        const char *p = reader.at + 1;
        const bool behind = *p == '<';
        if (p[behind] == '=' || p[behind] == '!') { // what stands around is seen, not taken
            kind = kZeroWidth;
            p += behind + 1;
        } else {
            const char *options = p;
            p += strspn(p, "ims-");
            reader.any_case |= std::find(options, p, 'i') != p;
            if (*p == ')' && p > options) {
                reader.at = p + 1;
                return {kZeroWidth, 0, {}};
            }
            reader.unsure |= *p != ':' && (*p != '>' || p > options);
            p += *p != '\0';
        }
        reader.at = p;
    }
    reader.unsure |= *reader.at == '*' || ++reader.depth > kMaxDepth;
    Atom atom{kind, 0, ReadBranches(reader)};
    --reader.depth;
    reader.unsure |= *reader.at != ')';
    reader.at += *reader.at == ')';
    return atom;
}

Atom ReadAtom(Reader &reader) {
    const char c = *reader.at++;
    switch (c) {
    case '\\': return ReadEscape(reader);
    case '[': return ReadSet(reader);
    case '(': return ReadGroup(reader);
    case '.': return {kOneOfMany, 0, {}};
    case '^':
    case '$': return {kZeroWidth, 0, {}};
    case '*':
    case '+':
    case '?':
    case '{': reader.unsure = true; return {kZeroWidth, 0, {}};
    default: return {kByte, c, {}};
    }
}

bool SkipDigits(const char *&p) {
    const char *const begin = p;
    while (IsDigit(*p)) {
        ++p;
    }
    return p > begin;
}

// How often an atom stands: quantified, and perhaps not at all.
struct Times {
    bool told, maybe_none;
};

Times ReadTimes(Reader &reader) {
    Times times{true, false};
    const char *p = reader.at;
    switch (*p) {
    case '*':
    case '?': times.maybe_none = true; break;
    case '+': break;
    case '{': { // a library newer than ours may take more for one than "{2}", "{2,}" and "{2,5}"
        const bool number = SkipDigits(++p);
        times.maybe_none = reader.at[1] == '0';
        p += *p == ',';
        SkipDigits(p);
        reader.unsure |= !number || *p != '}';
        break;
    }
    default: return {false, false};
    }
    p += *p != '\0';
    reader.at = p + (*p == '?' || *p == '+');
    return times;
}

UdqnNeeds ReadBranch(Reader &reader) {
    UdqnNeeds needs{};
    Run run{};
    while (*reader.at && *reader.at != '|' && *reader.at != ')' && !reader.unsure) {
        const Atom atom = ReadAtom(reader);
        const Times times = ReadTimes(reader);
        const bool byte = atom.kind == kByte && !times.maybe_none;
        if (byte && run.length < kNeededBytes) {
            run.text[run.length++] = atom.byte;
        }
        if (!byte || times.told) {
            EndRun(needs, run);
        }
        if (atom.kind == kGroup && !times.maybe_none) {
            Join(needs, atom.needs);
        }
        needs.some_byte |= atom.kind == kOneOfMany && !times.maybe_none;
    }
    EndRun(needs, run);
    return needs;
}

UdqnNeeds ReadBranches(Reader &reader) {
    UdqnNeeds needs = ReadBranch(reader);
    while (*reader.at == '|' && !reader.unsure) {
        ++reader.at;
        Widen(needs, ReadBranch(reader));
    }
    return needs;
}

} // namespace

UdqnNeeds NeedsOf(const char *pattern, bool any_case) {
    Reader reader{pattern, any_case, false, 0};
    UdqnNeeds needs = ReadBranches(reader);
    if (reader.unsure || *reader.at) {
        return {};
    }
    needs.any_case = reader.any_case;
    for (int i = 0; i < needs.count && needs.any_case; ++i) {
        std::transform(needs.texts[i], needs.texts[i] + kNeededBytes, needs.texts[i], ToLower);
    }
    return needs;
}
