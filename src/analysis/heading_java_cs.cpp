// Statements of Java and C# outside of functions: one walk from the left over the tokens, behind modifiers and annotations.
#include <algorithm>

#include "analysis/heading_walks.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

constexpr Text kModifiers[] = {"public",       "private", "protected", "internal", "static",    "final",   "abstract",
                               "sealed",       "partial", "readonly",  "unsafe",   "new",       "virtual", "override",
                               "async",        "extern",  "volatile",  "const",    "transient", "native",  "strictfp",
                               "synchronized", "default", "required",  "file",     "non",       "global",  "ref"};

bool HoldsParenthesis(const Tokens &t, int i) {
    return std::any_of(t.row + i, t.row + t.count, [](const Token &token) { return token.kind == '('; });
}

// Bases without the arguments that a primary constructor hands on, up to the word that ends them.
int EndOfBases(const Tokens &t, int i, const Globals *G) {
    const Text last = G->is_cs ? "where" : "permits";
    while (i < t.count && !t.IsWord(i, last)) {
        ++i;
    }
    return i;
}

// The name in front of the parenthesis at i, its first token; -1 for none.
int MethodName(const Tokens &t, int i, const Globals *G) {
    int last = i - 1;
    if (t.KindAt(last) == '>') {
        last = OpenOfAngle(t, last) - 1;
    }
    if (t.KindAt(last) != 'w' || IsDigit(t.At(last)[0])) {
        return -1;
    }
    return BeginOfName(t, i - 1, G);
}

constexpr Text kCsStatementWords[] = {"foreach", "using",  "lock",    "fixed",      "checked", "unchecked", "when",
                                      "nameof",  "typeof", "default", "await",      "yield",   "get",       "set",
                                      "add",     "remove", "init",    "stackalloc", "is",      "as",        "in"};
constexpr Text kJavaStatementWords[] = {"synchronized", "assert", "instanceof", "yield"};

bool IsNoFunction(Text name, const Globals *G) {
    return IsOneOf(name, kStatementWords) ||
           (G->is_java ? IsOneOf(name, kJavaStatementWords) : (G->reading & kTuples) && IsOneOf(name, kCsStatementWords));
}

} // namespace

int BehindModifiers(const Tokens &t, int i, const Globals *G) {
    for (;;) {
        if (t.KindAt(i) == '@' && t.KindAt(i + 1) == 'w' && t.At(i + 1) != "interface") {
            i += 2;
            while (t.KindAt(i) == '.' && t.KindAt(i + 1) == 'w') {
                i += 2;
            }
            if (t.KindAt(i) == '(' && !(G->reading & kAnnotations)) {
                return i - 1;
            }
            i += t.KindAt(i) == '(';
        } else if ((t.KindAt(i) == '[' && G->is_cs) || t.KindAt(i) == '-' || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kModifiers))) {
            ++i;
        } else {
            return i;
        }
    }
}

Access AccessOf(const Tokens &t, int end, const Globals *G) {
    Access access = G->interface_class ? Access::kPublic : Access::kPrivate;
    for (int i = 0; i < end; ++i) {
        if (t.IsWord(i, "protected")) { // private protected, protected internal
            return Access::kProtected;
        }
        access = t.IsWord(i, "public") ? Access::kPublic : t.IsWord(i, "private") ? Access::kPrivate : access;
    }
    return access;
}

bool ReadJavaCsClass(const Tokens &t, int i, Heading *heading, const Globals *G) {
    const Text word = t.KindAt(i) == '@' ? Text{"interface"} : t.At(i);
    i += t.KindAt(i) == '@' ? 1 : 0;
    const bool record = word == "record" && (G->reading & kRecords);
    if (!record && word != "class" && word != "interface" && word != "struct" && word != "enum") {
        return false;
    }
    ++i;
    if (record && (t.IsWord(i, "class") || t.IsWord(i, "struct"))) {
        heading->is_struct = t.IsWord(i, "struct");
        ++i;
    }
    if (t.KindAt(i) != 'w') {
        return false;
    }
    int last = i;
    if (t.KindAt(i + 1) == '<') {
        last = BehindAngles(t, i + 1, G) - 1;
    }
    const bool has_list = t.KindAt(last + 1) == '(';
    if (record && G->is_java && !has_list) {
        return false; // record r = ...
    }
    const int behind = last + (has_list ? 2 : 1);
    if (!(G->reading & kBases) && HoldsParenthesis(t, i)) {
        return false;
    }
    if (word == "enum" && G->is_cs) {
        heading->kind = HeadKind::kBlock;
        return true;
    }
    heading->kind = HeadKind::kClass;
    heading->is_struct |= word == "struct";
    heading->is_interface = word == "interface";
    heading->has_constants = word == "enum";
    heading->name = t.Between(i, last);
    int begin = behind;
    while (begin < t.count && !(G->is_cs ? t.KindAt(begin) == ':' || t.IsWord(begin, "where") : t.IsWord(begin, "extends"))) {
        ++begin;
    }
    begin += G->is_cs && t.KindAt(begin) == ':';
    const int end = EndOfBases(t, begin, G);
    if (begin < end) {
        heading->bases = t.Between(begin, end - 1);
    }
    return true;
}

Candidate FindMethod(const Tokens &t, int i, int *stop, const Globals *G) {
    Candidate found;
    const int begin = i;
    for (; i < t.count; ++i) {
        const char kind = t.KindAt(i);
        if (kind == '<' && ((G->reading & kTuples) || G->is_java)) {
            i = BehindAngles(t, i, G) - 1;
        } else if (kind == '=' || kind == 'A') {
            break;
        } else if (t.IsWord(i, "operator") && G->is_cs) {
            i = ReadOperator(t, i, &found, G);
            found.name_text = found.list >= 0 ? t.Between(found.name, found.list - 1) : Text{};
            break;
        } else if (kind == '(') { // a word ahead of begin is a modifier: public (int, int) F(
            const int first = MethodName(t, i, G);
            const int word = t.KindAt(i - 1) == '>' ? OpenOfAngle(t, i - 1) - 1 : i - 1;
            if (first >= 0 && word >= begin) {
                found.name = word;
                found.list = i;
                found.name_text = t.Between(first, i - 1);
                found.params = t.At(i);
                break;
            }
            if (!(G->reading & kTuples)) {
                break;
            }
        }
    }
    *stop = i;
    for (; *stop < t.count && t.KindAt(*stop) != '=' && t.KindAt(*stop) != 'A'; ++*stop) {
    }
    return found;
}

Heading ReadJavaCs(const Tokens &t, bool in_constants, const Globals *G) {
    Heading heading{};
    heading.kind = HeadKind::kBlock;
    if (in_constants) { // A { void f() { } }, a class without a name
        return heading;
    }
    const int i = BehindModifiers(t, 0, G);
    if (G->is_cs && t.IsWord(i, "namespace") && t.KindAt(i + 1) == 'w') {
        heading.kind = HeadKind::kNamespace;
        heading.name = t.Between(i + 1, t.count - 1);
        return heading;
    }
    if (i >= t.count || ReadJavaCsClass(t, i, &heading, G)) {
        return heading;
    }
    heading.access = AccessOf(t, i, G);
    int stop;
    const Candidate found = FindMethod(t, i, &stop, G);
    if (stop < t.count) {
        heading.kind = HeadKind::kValue;
        return heading;
    }
    if (found.list >= 0 && (found.is_operator || !IsNoFunction(t.At(found.name), G))) {
        heading.kind = HeadKind::kFunction;
        heading.name = found.name_text;
        heading.params = found.params;
        heading.is_operator = found.is_operator;
    } else if (found.list < 0 && G->is_java && t.count == i + 1 && (G->reading & kRecords) && t.At(i) == OwnName(G)) {
        heading.kind = HeadKind::kFunction; // record Point(int x) { Point {
        heading.name = t.At(i);
    }
    return heading;
}
