// Statements of C and C++ outside of functions: one walk from the left over the tokens finds the head of a namespace, of a class or
// of a function.
#include "analysis/code_text.h"
#include "analysis/heading_walks.h"
#include "run/char_tests.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

constexpr Text kCppTypeWords[] = {"unsigned", "signed", "char",  "short",   "int",    "long",  "float", "double", "void",
                                  "bool",     "auto",   "const", "typedef", "struct", "class", "enum",  "union"};
constexpr Text kSignalWords[] = {"signals", "Q_SIGNALS"};
constexpr Text kSlotWords[] = {"slots", "Q_SLOTS"};
constexpr Text kCppStatementWords[] = {"sizeof", "delete", "operator", "static_assert", "_Static_assert"};
// A parenthesis behind one of these is no parameter list, and a function may have them behind its own.
constexpr Text kAttributeWords[] = {"noexcept",      "throw",  "decltype",   "alignas",  "explicit",    "requires",
                                    "__attribute__", "typeof", "__declspec", "_Alignas", "asm",         "__asm__",
                                    "__typeof__",    "__asm",  "_Pragma",    "__pragma", "__attribute", "using"};
constexpr Text kSuffixWords[] = {"const", "volatile", "override", "final", "try", "mutable", "sealed", "abstract"};

// namespace a::b {, inline namespace v1 {, namespace std VISIBLE(default) {
bool ReadCppNamespace(const Tokens &t, int i, Heading *heading, const Globals *G) {
    int word = i;
    while ((t.KindAt(word) == 'w' && !t.IsWord(word, "namespace")) || (word > i && t.KindAt(word) == '(')) {
        ++word;
    }
    if (word >= t.count || t.KindAt(word) != 'w') {
        return false;
    }
    for (; i < word; ++i) {
        if (t.KindAt(i) == 'w' && !t.IsWord(i, "inline") && !IsMacroLike(t.At(i), G)) {
            return false;
        }
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

// public, private slots, signals; kKept for any other word.
Access AccessAt(const Tokens &t, int i) {
    i -= i > 0 && IsOneOf(t.At(i), kSlotWords);
    return t.IsWord(i, "public") || IsOneOf(t.At(i), kSignalWords) ? Access::kPublic
           : t.IsWord(i, "protected")                              ? Access::kProtected
           : t.IsWord(i, "private")                                ? Access::kPrivate
                                                                   : Access::kKept;
}

bool IsClassWord(const Tokens &t, int i, const Globals *G) {
    return t.IsWord(i, "struct") || t.IsWord(i, "union") || t.IsWord(i, "enum") || (t.IsWord(i, "class") && !G->is_c);
}

// The parenthesis at i may stand in front of a class: MARK(()), alignas(8).
bool IsPassedOver(const Tokens &t, int i, const Globals *G) {
    return i > 0 && (IsOneOf(t.At(i - 1), kAttributeWords) || IsMacroLike(t.At(i - 1), G));
}

// The word in front of the name of a class, its index; -1 for none. "struct s *f(" and "struct s v =" name only a type.
int FindClassWord(const Tokens &t, int i, const Globals *G) {
    int word = i;
    while (word < t.count && !IsClassWord(t, word, G)) {
        word = t.KindAt(word) == '<' ? BehindAngles(t, word, G) : word + 1;
    }
    for (; i < word && word < t.count; ++i) {
        const char kind = t.KindAt(i);
        if (kind == '<') {
            i = BehindAngles(t, i, G) - 1;
        } else if (kind == '=' || kind == ':' || kind == 'S' || (kind == '(' && !IsPassedOver(t, i, G))) {
            return -1;
        }
    }
    return word < t.count ? word : -1;
}

// What has been read of a class's name: its first and its last token.
struct NameSpan {
    int first = -1, last = -1;
};

// The word at k behind struct or class, with the parenthesis of a macro or an attribute. The index behind; -1 if this heads no
// class.
int TakeClassWord(const Tokens &t, int k, NameSpan *name, const Globals *G) {
    const Text word = t.At(k);
    if (IsOneOf(word, kSuffixWords)) {
        return k + 1;
    }
    const bool named = name->first >= 0;
    if (t.KindAt(k + 1) != '(') {
        const bool joined = named && t.KindAt(k - 1) == 'S';
        if (joined || !named || !IsCapitals(word) || IsMacroLike(t.At(name->first), G)) { // not the FINAL of class A FINAL {
            *name = {joined ? name->first : k, k};
        }
        return k + 1;
    }
    const bool attribute = IsOneOf(word, kAttributeWords);
    const bool macro = IsMacroLike(word, G);
    const bool at_end = k + 2 >= t.count || t.KindAt(k + 2) == ':';
    const bool passed = attribute || macro || (!named && (G->reading & kMacros));
    if (!passed || (at_end && (named || !(attribute || macro))) || t.KindAt(k + 2) == '(') { // struct s f(int a) attr {
        return -1;
    }
    if (at_end && macro && !Inside(t.At(k + 1)).starts_with('(')) { // class CAT(a, b) {, but not union GTY(()) {
        *name = {k, k};
    }
    return k + 2;
}

// From the word struct or class on. False when it only names a type.
bool ReadCppClass(const Tokens &t, int i, Heading *heading, const Globals *G) {
    const Text word = t.At(i);
    NameSpan name;
    int k = i + 1;
    while (k < t.count && t.KindAt(k) != ':') {
        const char kind = t.KindAt(k);
        if (kind == 'w') {
            k = TakeClassWord(t, k, &name, G);
            if (k < 0) {
                return false;
            }
        } else if (kind == '<' && name.first >= 0) {
            k = BehindAngles(t, k, G);
            name.last = k - 1;
        } else if (kind == 'S' || kind == '[') {
            ++k;
        } else {
            return false;
        }
    }
    if (word == "enum") {
        heading->kind = HeadKind::kValue;
        return true;
    }
    heading->kind = word == "union" ? HeadKind::kUnion : HeadKind::kClass;
    heading->is_struct = word != "class";
    heading->name = name.first < 0 ? Text{} : t.Between(name.first, name.last);
    heading->bases = k + 1 < t.count ? t.Between(k + 1, t.count - 1) : Text{};
    return true;
}

bool IsTypeOrStatementWord(Text word) {
    return IsOneOf(word, kCppTypeWords) || IsOneOf(word, kStatementWords);
}

bool IsNoFunction(Text name) {
    return IsTypeOrStatementWord(name) || IsOneOf(name, kCppStatementWords);
}

// [[nodiscard]]
bool IsAttribute(const Tokens &t, int i) {
    return t.KindAt(i) == '[' && t.At(i).starts_with("[[");
}

// The last token up to i that is no attribute.
int BeforeAttributes(const Tokens &t, int i) {
    while (IsAttribute(t, i)) {
        --i;
    }
    return i;
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
    while (end < inner.size() && (IsNameCharacter(inner[end]) || inner[end] == ':' || inner[end] == '~')) {
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

// (*name), (&name) and (A::*name).
bool IsPointer(Text group) {
    const Text inner = Inside(group);
    const size_t first = inner.find_first_not_of(' ');
    return first != Text::npos && (Text{"*&^"}.find(inner[first]) != Text::npos || inner.find("::*") != Text::npos);
}

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

// The parenthesis at i of a head: a parameter list, or what stands in front of one or behind it.
void TakeParenthesis(const Tokens &t, int i, Candidate *found, const Globals *G) {
    const int name = BeforeAttributes(t, i - 1);
    const char before = t.KindAt(name);
    const int word = before == '>' ? OpenOfAngle(t, name) - 1 : name;
    const bool named = t.KindAt(word) == 'w';
    const bool behind_list = found->list >= 0;
    if (found->awaits_list) { // (name)(int a)
        found->params = t.At(i);
        found->list = i;
        found->awaits_list = false;
        return;
    }
    if (before == 'w' && IsOneOf(t.At(name), kAttributeWords)) {
        return;
    }
    const bool is_type = !named || IsTypeOrStatementWord(t.At(word));
    const bool followed = t.KindAt(i + 1) == '(';
    Candidate nested;
    if (!behind_list && (is_type || followed) && ReadInner(t.At(i), &nested) &&
        (nested.params.empty() ? followed && is_type : true)) {
        nested.name = name;
        nested.list = i;
        nested.awaits_list = nested.params.empty();
        nested.is_friend = found->is_friend;
        *found = nested;
        return;
    }
    if (followed && IsPointer(t.At(i))) { // type (*name)(int);
        return;
    }
    if (named && (!is_type || IsOneOf(t.At(word), kStatementWords)) && (!behind_list || IsBetter(t, i, *found, G))) {
        found->name = word;
        found->list = i;
        found->name_text = t.Between(BeginOfName(t, name, G), name);
        found->params = t.At(i);
    }
}

// The index behind the ">" of the "<" at i. Where a comparison is among the types, behind the first ">" ahead of a word.
int BehindTypes(const Tokens &t, int i, const Globals *G) {
    int behind = BehindAngles(t, i, G);
    if (behind == i + 1) {
        while (behind < t.count && (t.KindAt(behind - 1) != '>' || t.KindAt(behind) != 'w')) {
            ++behind;
        }
    }
    return behind;
}

} // namespace

int BehindAccess(const Tokens &t, Access *access) {
    int begin = 0;
    for (int i = 0; i + 1 < t.count; ++i) {
        const Access found = t.KindAt(i + 1) == ':' ? AccessAt(t, i) : Access::kKept;
        if (found != Access::kKept) {
            *access = found;
            begin = i + 2;
        }
    }
    return begin;
}

int BehindPrefix(const Tokens &t, int i, Text *template_text, const Globals *G) {
    for (;;) {
        if (t.KindAt(i) == '[' || t.IsWord(i, "export") || t.IsWord(i, "__extension__")) {
            ++i;
        } else if ((t.IsWord(i, "__attribute__") || t.IsWord(i, "__declspec") || t.IsWord(i, "alignas")) &&
                   t.KindAt(i + 1) == '(') {
            i += 2;
        } else if (t.IsWord(i, "template") && t.KindAt(i + 1) == '<') {
            const int behind = BehindTypes(t, i + 1, G);
            *template_text = t.Between(i, behind - 1);
            i = behind;
        } else if (t.IsWord(i, "requires") && t.KindAt(i + 1) == '(') {
            i += 2;
        } else if (t.KindAt(i) == 'w' && t.IsWord(i + (t.KindAt(i + 1) == '(' ? 2 : 1), "template") && IsMacroLike(t.At(i), G)) {
            i += t.KindAt(i + 1) == '(' ? 2 : 1;
        } else {
            return i;
        }
    }
}

bool HoldsPlainWord(const Tokens &t, int first, int end, const Globals *G) {
    for (int i = first; i < end; ++i) {
        if (t.KindAt(i) == 'w' && !IsOneOf(t.At(i), kSuffixWords) && !IsOneOf(t.At(i), kAttributeWords) &&
            !IsMacroLike(t.At(i), G)) {
            return true;
        }
    }
    return false;
}

int ReadOperator(const Tokens &t, int i, Candidate *found, const Globals *G) {
    int list = i + 1;
    if (t.KindAt(list) == '(') { // operator()(int a), operator()[[nodiscard]](int a)
        do {
            ++list;
        } while (IsAttribute(t, list));
        list = t.KindAt(list) == '(' ? list : i + 1;
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
    found->name_text = t.Between(BeginOfName(t, i, G), BeforeAttributes(t, list - 1));
    found->params = t.At(list);
    return list;
}

Candidate FindCppFunction(const Tokens &t, int i, End *end, const Globals *G) {
    Candidate found;
    *end = End::kNone;
    for (; i < t.count; ++i) {
        const char kind = t.KindAt(i);
        const bool behind_list = found.list >= 0;
        if (kind == '<') {
            i = BehindAngles(t, i, G) - 1;
        } else if (kind == '=') {
            *end = End::kAssigned;
            break;
        } else if (kind == ':' && !behind_list) { // int a : sizeof(b);
            break;
        } else if (kind == ':' && !G->is_c) {
            *end = End::kInitialisers;
            break;
        } else if (behind_list && (kind == 'R' || t.IsWord(i, "requires"))) {
            break;
        } else if (t.IsWord(i, "operator") && !G->is_c &&
                   (!behind_list || HoldsPlainWord(t, found.list + 1, i, G) || IsMacroLike(t.At(found.name), G))) {
            i = ReadOperator(t, i, &found, G);
        } else if (kind == '(') {
            TakeParenthesis(t, i, &found, G);
        } else if (t.IsWord(i, "friend")) {
            found.is_friend = true;
        }
    }
    return found;
}

Heading ReadCpp(const Tokens &t, const Globals *G) {
    Heading heading{};
    heading.kind = HeadKind::kValue;
    int i = BehindPrefix(t, BehindAccess(t, &heading.access), &heading.template_text, G);
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
    if (!found.is_operator && IsNoFunction(t.At(found.name)) && found.name_text == t.At(found.name)) {
        heading.kind = HeadKind::kBlock;
        return heading;
    }
    heading.kind = HeadKind::kFunction;
    heading.name = found.name_text;
    heading.params = found.params;
    heading.is_operator = found.is_operator;
    heading.is_friend = found.is_friend;
    heading.old_style = G->is_c && t.KindAt(t.count - 1) == ';';
    return heading;
}
