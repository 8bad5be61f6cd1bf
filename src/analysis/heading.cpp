// Reads statements outside of functions. A text becomes a row of tokens in which whatever stands in parentheses, brackets or braces
// is one; then the row is walked from its left, with one walk for C and C++ and one for Java and C#.
#include "analysis/heading.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "run/char_tests.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

// What a token is: 'w' a word or number, '"' a literal, '(' '[' '{' what stands inside them, 'S' "::", 'A' "=>", 'R' "->", 'E' an
// operator with "=" in it that assigns nothing; any other character is itself.
struct Token {
    char kind;
    Text text;
};

constexpr int kMostTokens = 1024;

struct Tokens {
    std::array<Token, kMostTokens> row;
    int count = 0;
    Text all;
    char KindAt(int i) const { return i >= 0 && i < count ? row[i].kind : '\0'; }
    Text At(int i) const { return i >= 0 && i < count ? row[i].text : Text{}; }
    bool IsWord(int i, Text word) const { return KindAt(i) == 'w' && row[i].text == word; }
    // The text from one token up to another, both included.
    Text Between(int first, int last) const {
        const char *begin = row[first].text.data();
        return {begin, static_cast<size_t>(row[last].text.data() + row[last].text.size() - begin)};
    }
};

bool IsWordCharacter(char c) {
    return IsLetterOrDigit(c) || c == '_' || c == '$' || c < 0;
}

size_t EndOfLiteral(Text text, size_t i) {
    const char quote = text[i];
    for (++i; i < text.size() && text[i] != quote; ++i) {
        i += text[i] == '\\';
    }
    return std::min(i + 1, text.size());
}

size_t EndOfGroup(Text text, size_t i) {
    const char open = text[i];
    const char close = open == '(' ? ')' : open == '[' ? ']' : '}';
    int depth = 0;
    while (i < text.size()) {
        if (text[i] == '"' || text[i] == '\'') {
            i = EndOfLiteral(text, i);
            continue;
        }
        depth += (text[i] == open) - (text[i] == close);
        ++i;
        if (depth == 0) {
            break;
        }
    }
    return std::min(i, text.size());
}

// The text inside a group; empty for an empty text.
Text Inside(Text group) {
    return group.size() > 2 ? group.substr(1, group.size() - 2) : Text{};
}

Token ReadToken(Text text, size_t i) {
    const char c = text[i];
    const char next = i + 1 < text.size() ? text[i + 1] : '\0';
    const auto token = [&](char kind, size_t end) { return Token{kind, text.substr(i, end - i)}; };
    if (IsWordCharacter(c)) {
        size_t end = i;
        while (end < text.size() && IsWordCharacter(text[end])) {
            ++end;
        }
        return token('w', end);
    }
    if (c == '"' || c == '\'') {
        return token('"', EndOfLiteral(text, i));
    }
    if (c == '(' || c == '[' || c == '{') {
        return token(c, EndOfGroup(text, i));
    }
    if (c == ':' && next == ':') {
        return token('S', i + 2);
    }
    if (c == '-' && next == '>') {
        return token('R', i + 2);
    }
    if (c == '=' && next == '>') {
        return token('A', i + 2);
    }
    if (next == '=' && (c == '=' || c == '!' || c == '<' || c == '>')) {
        return token('E', i + 2);
    }
    return token(c, i + 1);
}

void Tokenize(Text text, Tokens &tokens) {
    tokens.all = text;
    for (size_t i = 0; i < text.size() && tokens.count < kMostTokens;) {
        if (text[i] >= 0 && text[i] <= ' ') {
            ++i;
            continue;
        }
        const Token token = ReadToken(text, i);
        tokens.row[tokens.count++] = token;
        i += token.text.size();
    }
}

template <size_t n> bool IsOneOf(Text word, const Text (&words)[n]) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

// FOO_1: no lower case letter, and a capital.
bool IsCapitals(Text word) {
    return std::none_of(word.begin(), word.end(), [](char c) { return c >= 'a' && c <= 'z'; }) &&
           std::any_of(word.begin(), word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

bool IsListed(Text word, const Globals *G) {
    LineText copy;
    CopyPart(copy, word.data(), word.size());
    return is_macro(copy, G);
}

// A word that may stand for anything in a heading: EXPORT, or one of the macro file.
bool IsMacroLike(Text word, const Globals *G) {
    return (G->reading & kMacros) && (IsCapitals(word) || word.starts_with("__") || IsListed(word, G));
}

// The index behind the ">" of the "<" at i; i + 1 when it is none of a list.
int BehindAngles(const Tokens &t, int i, const Globals *G) {
    int depth = 0;
    for (int k = i; k < t.count; ++k) {
        const char kind = t.KindAt(k);
        depth += (kind == '<') - (kind == '>');
        if (kind == '>' && (depth == 0 || !(G->reading & kTemplates))) {
            return k + 1;
        }
        if (kind == 'E' && t.At(k) == ">=") { // template <class T = A<int>>= is nobody's
            break;
        }
    }
    return i + 1;
}

// The index of the "<" of the ">" at i, or -1.
int OpenOfAngle(const Tokens &t, int i) {
    int depth = 0;
    for (; i >= 0; --i) {
        depth += (t.KindAt(i) == '>') - (t.KindAt(i) == '<');
        if (depth == 0) {
            return i;
        }
    }
    return -1;
}

// The first token of the qualified name whose last one is at i: A<T>::B::~f, IList<T>.Count, global::a.
int BeginOfName(const Tokens &t, int i, const Globals *G) {
    const bool dots = G->is_cs || G->is_java;
    if (t.KindAt(i) == '>') {
        i = OpenOfAngle(t, i) - 1;
    }
    if (i > 0 && t.KindAt(i - 1) == '~') {
        --i;
    }
    while (i > 1 && (t.KindAt(i - 1) == 'S' || (dots && t.KindAt(i - 1) == '.'))) {
        int part = i - 2;
        if (t.KindAt(part) == '>') {
            part = OpenOfAngle(t, part) - 1;
        }
        if (t.KindAt(part) != 'w') {
            return t.KindAt(i - 1) == 'S' ? i : i - 1;
        }
        i = part;
    }
    return i;
}

constexpr Text kStatementWords[] = {"if",    "else", "for",   "while", "do",   "switch", "case", "return",
                                    "catch", "try",  "throw", "new",   "goto", "public", "const"};
constexpr Text kCppStatementWords[] = {"sizeof", "delete", "operator", "static_assert", "_Static_assert"};
constexpr Text kCppTypeWords[] = {"unsigned", "signed", "char",  "short",   "int",    "long",  "float", "double", "void",
                                  "bool",     "auto",   "const", "typedef", "struct", "class", "enum",  "union"};
// A parenthesis behind one of these is no parameter list, and a function may have them behind its own.
constexpr Text kAttributeWords[] = {"noexcept",      "throw",  "decltype",   "alignas",  "explicit",    "requires",
                                    "__attribute__", "typeof", "__declspec", "_Alignas", "asm",         "__asm__",
                                    "__typeof__",    "__asm",  "_Pragma",    "__pragma", "__attribute", "using"};
constexpr Text kSuffixWords[] = {"const", "volatile", "override", "final", "try", "mutable", "sealed", "abstract"};
constexpr Text kCsStatementWords[] = {"foreach", "using",  "lock",    "fixed",      "checked", "unchecked", "when",
                                      "nameof",  "typeof", "default", "await",      "yield",   "get",       "set",
                                      "add",     "remove", "init",    "stackalloc", "is",      "as",        "in"};
constexpr Text kJavaStatementWords[] = {"synchronized", "assert", "instanceof", "yield"};

bool IsNoFunction(Text name, const Globals *G) {
    if (IsOneOf(name, kStatementWords)) {
        return true;
    }
    if (G->is_cs) {
        return (G->reading & kTuples) && IsOneOf(name, kCsStatementWords);
    }
    return G->is_java ? IsOneOf(name, kJavaStatementWords) : IsOneOf(name, kCppTypeWords) || IsOneOf(name, kCppStatementWords);
}

// ---- C and C++ --------------------------------------------------------------------------------------------------------------

constexpr Text kAccessWords[] = {"public", "protected", "private", "signals", "slots", "Q_SIGNALS", "Q_SLOTS"};

// Behind "public:", "private Q_SLOTS:" and whatever stands in front of the last one of them.
int BehindAccess(const Tokens &t) {
    int begin = 0;
    for (int i = 0; i + 1 < t.count; ++i) {
        if (t.KindAt(i) == 'w' && t.KindAt(i + 1) == ':' && IsOneOf(t.At(i), kAccessWords)) {
            begin = i + 2;
        }
    }
    return begin;
}

// Behind [[attributes]], __attribute__((x)), export and template <...> with what it requires.
int BehindPrefix(const Tokens &t, int i, Text *template_text, const Globals *G) {
    for (;;) {
        if (t.KindAt(i) == '[' || t.IsWord(i, "export") || t.IsWord(i, "__extension__")) {
            ++i;
        } else if ((t.IsWord(i, "__attribute__") || t.IsWord(i, "__declspec") || t.IsWord(i, "alignas")) &&
                   t.KindAt(i + 1) == '(') {
            i += 2;
        } else if (t.IsWord(i, "template") && t.KindAt(i + 1) == '<') {
            const int behind = BehindAngles(t, i + 1, G);
            *template_text = t.Between(i, behind - 1);
            i = behind;
        } else if (t.IsWord(i, "requires") && t.KindAt(i + 1) == '(') {
            i += 2;
        } else if (t.KindAt(i) == 'w' && IsMacroLike(t.At(i), G) && t.IsWord(i + (t.KindAt(i + 1) == '(' ? 2 : 1), "template")) {
            i += t.KindAt(i + 1) == '(' ? 2 : 1;
        } else {
            return i;
        }
    }
}

// namespace a::b {, inline namespace v1 {, namespace std VISIBLE(default) {
bool ReadCppNamespace(const Tokens &t, int i, Heading *heading, const Globals *G) {
    while (t.IsWord(i, "inline") || (t.KindAt(i) == 'w' && IsMacroLike(t.At(i), G)) || (i > 0 && t.KindAt(i) == '(')) {
        ++i;
    }
    if (!t.IsWord(i, "namespace")) {
        return false;
    }
    int first = -1, last = -1;
    for (++i; i < t.count && t.KindAt(i) != '='; ++i) {
        const bool joined = first >= 0 && t.KindAt(i - 1) == 'S';
        const bool is_name = t.KindAt(i) == 'w' && !t.IsWord(i, "__attribute__") && !t.IsWord(i, "inline") &&
                             t.KindAt(i + 1) != '(' && (first < 0 || joined);
        if (is_name) {
            first = first < 0 ? i : first;
            last = i;
        }
    }
    const bool whole = (G->reading & kNamespaces) != 0;
    heading->kind = HeadKind::kNamespace;
    heading->name = first < 0 ? Text{} : whole ? t.Between(first, last) : t.At(first);
    return true;
}

// The word in front of the name of a class, its index; -1 for none. "struct s *f(" and "struct s v =" name only a type.
int FindClassWord(const Tokens &t, int i, const Globals *G) {
    for (; i < t.count; ++i) {
        const char kind = t.KindAt(i);
        if (kind == '<') {
            i = BehindAngles(t, i, G) - 1;
        } else if (kind == '=' || kind == '(' || kind == ':' || kind == 'S') {
            const bool macro = kind == '(' && i > 0 && IsMacroLike(t.At(i - 1), G);
            const bool attribute = kind == '(' && i > 0 && IsOneOf(t.At(i - 1), kAttributeWords);
            if (!macro && !attribute) {
                return -1;
            }
        } else if (kind == 'w') {
            const Text word = t.At(i);
            if (word == "struct" || word == "union" || word == "enum" || (word == "class" && !G->is_c)) {
                return i;
            }
        }
    }
    return -1;
}

// The text of the bases: without what their own parentheses hold.
Text TextBehind(const Tokens &t, int i) {
    return i < t.count ? t.Between(i, t.count - 1) : Text{};
}

// From the word struct or class on. False when it only names a type.
bool ReadCppClass(const Tokens &t, int i, Heading *heading, const Globals *G) {
    const Text word = t.At(i);
    int first = -1, last = -1;
    int k = i + 1;
    for (; k < t.count && t.KindAt(k) != ':'; ++k) {
        const char kind = t.KindAt(k);
        if (kind == 'w') {
            if (IsOneOf(t.At(k), kSuffixWords)) {
                continue;
            }
            const bool joined = t.KindAt(k - 1) == 'S' && first >= 0;
            if (t.KindAt(k + 1) == '(') { // a macro's or an attribute's
                const bool passed = IsOneOf(t.At(k), kAttributeWords) || (G->reading & kMacros);
                if (!passed || k + 2 >= t.count || t.KindAt(k + 2) == '(') {
                    return false;
                }
                if (first >= 0 && !IsMacroLike(t.At(k), G) && !IsOneOf(t.At(k), kAttributeWords)) {
                    return false; // struct s f(int a) attr {
                }
                ++k;
                continue;
            }
            if (first >= 0 && !joined && IsCapitals(t.At(k)) && !IsMacroLike(t.At(first), G)) {
                continue; // class A FINAL {
            }
            first = joined ? first : k;
            last = k;
        } else if (kind == '<' && first >= 0) {
            k = BehindAngles(t, k, G) - 1;
            last = k;
        } else if (kind == '(' && !(G->reading & kBases)) {
            return false;
        } else if (kind != 'S' && kind != '[') {
            return false;
        }
    }
    const int bases = k + 1;
    if (bases < t.count && !(G->reading & kBases)) {
        for (int b = bases; b < t.count; ++b) {
            if (t.KindAt(b) == '(') {
                return false;
            }
        }
    }
    if (word == "enum") {
        heading->kind = HeadKind::kValue;
        return true;
    }
    heading->kind = word == "union" ? HeadKind::kOpen : HeadKind::kClass;
    heading->is_struct = word != "class";
    heading->name = first < 0 ? Text{} : t.Between(first, last);
    heading->bases = TextBehind(t, bases);
    return true;
}

// What has been found of a function's head.
struct Candidate {
    int name = -1; // last token of the name, or the word operator
    int list = -1; // its parameters
    bool is_operator = false;
    Text name_text, params;
};

bool IsTypeOrStatementWord(Text word) {
    return IsOneOf(word, kCppTypeWords) || IsOneOf(word, kStatementWords);
}

// The tokens between a list and a later word say that the later one has the name: ATTR(x) static int f(
bool HoldsPlainWord(const Tokens &t, int first, int end, const Globals *G) {
    for (int i = first; i < end; ++i) {
        if (t.KindAt(i) == 'w' && !IsOneOf(t.At(i), kSuffixWords) && !IsOneOf(t.At(i), kAttributeWords) &&
            !IsMacroLike(t.At(i), G)) {
            return true;
        }
    }
    return false;
}

// (*name(int a)) and (name): the name inside a parenthesis. False for (*name), a pointer.
bool ReadInner(Text group, Candidate *found) {
    Text inner = Inside(group);
    const size_t star = inner.find_first_not_of(" \t*&");
    if (star == Text::npos) {
        return false;
    }
    const bool pointer = inner.find_first_of("*&") < star;
    inner.remove_prefix(star);
    size_t end = 0;
    while (end < inner.size() && (IsWordCharacter(inner[end]) || inner[end] == ':' || inner[end] == '~')) {
        ++end;
    }
    const size_t next = inner.find_first_not_of(" \t", end);
    if (end == 0 || !isfirstchar(inner[0]) || (pointer != (next != Text::npos && inner[next] == '('))) {
        return false;
    }
    if (!pointer && next != Text::npos) {
        return false;
    }
    found->name_text = inner.substr(0, end);
    found->params = pointer ? inner.substr(next, EndOfGroup(inner, next) - next) : Text{};
    return true;
}

// operator+(, operator()(, operator bool(, A::operator new[](
int ReadOperator(const Tokens &t, int i, Candidate *found, const Globals *G) {
    int list = i + 1;
    if (t.KindAt(list) == '(' && t.KindAt(list + 1) == '(') {
        ++list;
    }
    while (list < t.count && t.KindAt(list) != '(') {
        ++list;
    }
    if (list >= t.count) {
        return t.count;
    }
    found->name = i;
    found->list = list;
    found->is_operator = true;
    found->name_text = t.Between(BeginOfName(t, i, G), list - 1);
    found->params = t.At(list);
    return list;
}

enum class End { kNone, kInitialisers, kAssigned };

// Whether the parenthesis at i, behind the candidate so far, is the better one.
bool IsBetter(const Tokens &t, int i, const Candidate &found, const Globals *G) {
    const int name = i - 1;
    if (IsMacroLike(t.At(name), G) && !HoldsPlainWord(t, found.list + 1, name, G)) {
        return false; // void f() REQUIRES(mu) {
    }
    const int between = BeginOfName(t, name, G);
    if (between == found.list + 1) { // MACRO(x) Name(
        return IsMacroLike(t.At(found.name), G) && !IsMacroLike(t.At(name), G);
    }
    return HoldsPlainWord(t, found.list + 1, between, G) || IsMacroLike(t.At(found.name), G);
}

Candidate FindCppFunction(const Tokens &t, int i, End *end, const Globals *G) {
    Candidate found;
    bool inner = false;
    *end = End::kNone;
    for (; i < t.count; ++i) {
        const char kind = t.KindAt(i);
        const bool behind_list = found.list >= 0;
        if (kind == '<') {
            i = BehindAngles(t, i, G) - 1;
        } else if (kind == '=') {
            *end = End::kAssigned;
            break;
        } else if (kind == ':' && behind_list && !G->is_c) {
            *end = End::kInitialisers;
            break;
        } else if (kind == 'R' && behind_list) {
            break;
        } else if (t.IsWord(i, "operator") && !G->is_c && !behind_list) {
            i = ReadOperator(t, i, &found, G);
        } else if (t.IsWord(i, "operator") && !G->is_c && HoldsPlainWord(t, found.list + 1, i, G)) {
            i = ReadOperator(t, i, &found, G);
        } else if (t.IsWord(i, "requires") && behind_list) {
            break;
        } else if (kind == '(') {
            const int name = i - 1;
            const char before = t.KindAt(name);
            const bool named = before == 'w' || (before == '>' && t.KindAt(OpenOfAngle(t, name) - 1) == 'w');
            const int word = before == '>' ? OpenOfAngle(t, name) - 1 : name;
            if (inner) { // (name)(int a)
                found.params = t.At(i);
                found.list = i;
                inner = false;
                continue;
            }
            if (before == 'w' && IsOneOf(t.At(name), kAttributeWords)) {
                continue;
            }
            const bool type = !named || IsTypeOrStatementWord(t.At(word)) || t.KindAt(i + 1) == '(';
            Candidate nested;
            if (type && !behind_list && ReadInner(t.At(i), &nested) && (!nested.params.empty() || t.KindAt(i + 1) == '(') &&
                (!named || IsTypeOrStatementWord(t.At(word)) || !nested.params.empty())) {
                nested.name = name;
                nested.list = i;
                found = nested;
                inner = nested.params.empty();
                continue;
            }
            if (!named || (IsTypeOrStatementWord(t.At(word)) && !IsOneOf(t.At(word), kStatementWords))) {
                continue;
            }
            if (!behind_list || IsBetter(t, i, found, G)) {
                const int begin = BeginOfName(t, name, G);
                found.name = word;
                found.list = i;
                found.name_text = t.Between(begin, name);
                found.params = t.At(i);
            }
        }
    }
    return found;
}

// A word list without anything else: it can be those of old style parameters only.
bool IsPlainList(Text list) {
    const Text inner = Inside(list);
    return inner.find_first_not_of(" \t,_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789") == Text::npos &&
           inner.find_first_not_of(' ') != Text::npos;
}

Heading ReadCpp(const Tokens &t, const Globals *G) {
    Heading heading{};
    heading.kind = HeadKind::kValue;
    int i = BehindPrefix(t, BehindAccess(t), &heading.template_text, G);
    if (i >= t.count) {
        heading.kind = HeadKind::kBlock;
        return heading;
    }
    if (t.IsWord(i, "extern") && t.KindAt(i + 1) == '"') {
        i = BehindPrefix(t, i + 2, &heading.template_text, G);
        if (i >= t.count) {
            heading.kind = HeadKind::kOpen;
            return heading;
        }
    }
    if (!G->is_c && ReadCppNamespace(t, i, &heading, G)) {
        return heading;
    }
    const int class_word = FindClassWord(t, i, G);
    if (class_word >= 0 && ReadCppClass(t, class_word, &heading, G)) {
        return heading;
    }
    End end;
    const Candidate found = FindCppFunction(t, i, &end, G);
    const bool in_initialisers = (G->reading & kInitialisers) && end == End::kInitialisers && !t.IsWord(t.count - 1, "try") &&
                                 (t.KindAt(t.count - 1) == 'w' || t.KindAt(t.count - 1) == '>');
    if (end == End::kAssigned || in_initialisers) {
        return heading;
    }
    if (found.list < 0) {
        const bool macro = t.count == i + 1 && t.KindAt(i) == 'w' && IsCapitals(t.At(i)); // BEGIN_NAMESPACE {
        heading.kind = macro ? HeadKind::kOpen : t.KindAt(i) == '(' ? HeadKind::kBlock : HeadKind::kValue;
        return heading;
    }
    if (!found.is_operator && IsNoFunction(t.At(found.name), G) && found.name_text == t.At(found.name)) {
        heading.kind = HeadKind::kBlock;
        return heading;
    }
    heading.kind = HeadKind::kFunction;
    heading.name = found.name_text;
    heading.params = found.params;
    heading.is_operator = found.is_operator;
    heading.old_style = G->is_c && t.KindAt(t.count - 1) == ';';
    return heading;
}

// ---- Java and C# ------------------------------------------------------------------------------------------------------------

constexpr Text kModifiers[] = {"public",       "private", "protected", "internal", "static",    "final",   "abstract",
                               "sealed",       "partial", "readonly",  "unsafe",   "new",       "virtual", "override",
                               "async",        "extern",  "volatile",  "const",    "transient", "native",  "strictfp",
                               "synchronized", "default", "required",  "file",     "non",       "global",  "ref"};

// Behind annotations, attributes in brackets and modifiers.
int BehindModifiers(const Tokens &t, int i, const Globals *G) {
    for (;;) {
        if (t.KindAt(i) == '@' && t.KindAt(i + 1) == 'w' && t.At(i + 1) != "interface") {
            i += 2;
            while (t.KindAt(i) == '.' && t.KindAt(i + 1) == 'w') {
                i += 2;
            }
            if (t.KindAt(i) == '(' && (G->reading & kAnnotations)) {
                ++i;
            }
        } else if ((t.KindAt(i) == '[' && G->is_cs) || t.KindAt(i) == '-' || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kModifiers))) {
            ++i;
        } else {
            return i;
        }
    }
}

// Bases without the arguments that a primary constructor hands on, up to the word that ends them.
int EndOfBases(const Tokens &t, int i, const Globals *G) {
    const Text last = G->is_cs ? "where" : "permits";
    while (i < t.count && !t.IsWord(i, last)) {
        ++i;
    }
    return i;
}

// From class, interface, record, struct or enum on.
bool ReadManagedClass(const Tokens &t, int i, Heading *heading, const Globals *G) {
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
    if (!(G->reading & kBases)) {
        for (int k = i; k < t.count; ++k) {
            if (t.KindAt(k) == '(') {
                return false;
            }
        }
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

// The name in front of the parenthesis at i, its first token; -1 for none.
int ManagedName(const Tokens &t, int i, const Globals *G) {
    int last = i - 1;
    if (t.KindAt(last) == '>') {
        last = OpenOfAngle(t, last) - 1;
    }
    if (t.KindAt(last) != 'w' || IsDigit(t.At(last)[0])) {
        return -1;
    }
    return BeginOfName(t, i - 1, G);
}

// The head of a method; stop is the token that it ends at, "=" or "=>" among them.
Candidate FindMethod(const Tokens &t, int i, int *stop, const Globals *G) {
    Candidate found;
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
        } else if (kind == '(') {
            const int first = ManagedName(t, i, G);
            const int word = t.KindAt(i - 1) == '>' ? OpenOfAngle(t, i - 1) - 1 : i - 1;
            if (first >= 0 && !(t.IsWord(i - 1, "async")) && !IsOneOf(t.At(word), kModifiers)) {
                found.name = word;
                found.list = i;
                found.name_text = t.Between(first, i - 1);
                found.params = t.At(i);
                if (t.KindAt(first - 1) == '~') {
                    found.name_text = t.Between(first - 1, i - 1);
                }
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

Text OwnName(const char *qualified) {
    Text name = qualified;
    name = name.substr(0, name.find('<'));
    return name.substr(name.find_last_of('.') + 1);
}

Heading ReadManaged(const Tokens &t, bool in_constants, const Globals *G) {
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
    if (i >= t.count || ReadManagedClass(t, i, &heading, G)) {
        return heading;
    }
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
    } else if (found.list < 0 && G->is_java && t.count == i + 1 && (G->reading & kRecords) && t.At(i) == OwnName(G->classname)) {
        heading.kind = HeadKind::kFunction; // record Point(int x) { Point {
        heading.name = t.At(i);
    }
    return heading;
}

// ---- Members ----------------------------------------------------------------------------------------------------------------

// int a, b[2], *c; are three.
int CountDeclared(const Tokens &t, int i, const Globals *G) {
    int count = 1;
    for (; i < t.count; ++i) {
        if (t.KindAt(i) == '<') {
            i = BehindAngles(t, i, G) - 1;
        }
        count += t.KindAt(i) == ',';
    }
    return count;
}

constexpr Text kNoMembers[] = {"friend",   "using",   "typedef", "static_assert", "_Static_assert", "template",
                               "delegate", "package", "import",  "return",        "namespace"};

// class A; and struct B; declare nothing but a type; struct B b; does.
bool IsForwardDeclaration(const Tokens &t, int i) {
    const Text word = t.At(i);
    return t.KindAt(i) == 'w' && (word == "class" || word == "struct" || word == "union" || word == "enum") &&
           (t.count <= i + 2 || (word == "enum" && t.KindAt(t.count - 1) == '{'));
}

void TakeCandidate(const Candidate &found, Member *member) {
    member->is_method = found.list >= 0;
    member->is_operator = found.is_operator;
    member->name = found.name_text;
    member->params = found.params;
}

Member ReadCppMember(const Tokens &t, const Globals *G) {
    Text unused;
    Member member{};
    const int begin = BehindAccess(t);
    const int i = BehindPrefix(t, begin, &unused, G);
    if (i >= t.count || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kNoMembers)) || IsForwardDeclaration(t, i)) {
        return member;
    }
    End end;
    const Candidate found = FindCppFunction(t, i, &end, G);
    TakeCandidate(found, &member);
    if (!member.is_method) {
        member.data = CountDeclared(t, i, G);
    }
    return member;
}

Member ReadManagedMember(const Tokens &t, const Globals *G) {
    Member member{};
    const int i = BehindModifiers(t, 0, G);
    Heading heading{};
    if (i >= t.count || t.KindAt(i) == '=' || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kNoMembers)) || // int Size { get; } = 1;
        ReadManagedClass(t, i, &heading, G)) {
        return member;
    }
    int stop;
    const Candidate found = FindMethod(t, i, &stop, G);
    TakeCandidate(found, &member);
    const bool property = t.KindAt(stop) == 'A' || t.KindAt(t.count - 1) == '{';
    if (!member.is_method && (!property || t.KindAt(stop) == '=')) {
        member.data = CountDeclared(t, i, G);
    }
    return member;
}

Tokens scratch; // the tokens of the text in hand

const Tokens &Read(Text text) {
    scratch.count = 0;
    Tokenize(text, scratch);
    return scratch;
}

} // namespace

Heading ReadHeading(Text text, bool in_constants, const Globals *G) {
    if (!G->is_java && !G->is_cs) {
        const size_t semicolon = text.rfind(';'); // of old style parameters
        if (semicolon != Text::npos && text.find_first_not_of(' ', semicolon + 1) != Text::npos) {
            text.remove_prefix(semicolon + 1);
        }
    }
    const Tokens &t = Read(text);
    return G->is_java || G->is_cs ? ReadManaged(t, in_constants, G) : ReadCpp(t, G);
}

Member ReadMember(Text text, const Globals *G) {
    const Tokens &t = Read(text);
    return G->is_java || G->is_cs ? ReadManagedMember(t, G) : ReadCppMember(t, G);
}

Text ReadFileNamespace(Text text, const Globals *G) {
    if (!G->is_cs || !(G->reading & kNamespaces) || text.find("namespace") == Text::npos) {
        return {};
    }
    const Tokens &t = Read(text);
    const int i = BehindModifiers(t, 0, G);
    return t.IsWord(i, "namespace") && t.KindAt(i + 1) == 'w' ? t.Between(i + 1, t.count - 1) : Text{};
}

bool IsOldStyleHead(Text text, const Globals *G) {
    const size_t close = text.rfind(')');
    if (!G->is_c || close == Text::npos || text.find_first_not_of(' ', close + 1) == Text::npos || text.size() > 2048) {
        return false;
    }
    const Tokens &t = Read(text);
    End end;
    const Candidate found = FindCppFunction(t, 0, &end, G);
    return end == End::kNone && found.list >= 0 && found.list + 1 < t.count && t.KindAt(found.list + 1) == 'w' &&
           IsPlainList(found.params);
}

int CountListed(Text params) {
    const Text inner = Inside(params);
    if (inner.find_first_not_of(" \t") == Text::npos || inner == "void") {
        return 0;
    }
    int count = 1;
    int depth = 0;
    for (size_t i = 0; i < inner.size(); ++i) {
        const char c = inner[i];
        if (c == '(' || c == '[' || c == '{') {
            i = EndOfGroup(inner, i) - 1;
        } else if (c == '"' || c == '\'') {
            i = EndOfLiteral(inner, i) - 1;
        } else {
            depth += (c == '<') - (c == '>' && depth > 0 && (i == 0 || (inner[i - 1] != '-' && inner[i - 1] != '=')));
            count += c == ',' && depth <= 0;
        }
    }
    return count;
}
