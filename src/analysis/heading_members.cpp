// Members of a class: what a statement in its body declares, and how many parameters a list holds.
#include "analysis/heading_walks.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

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

// int GTY((skip)) name; and int a[2] __aligned(4); declare data.
bool IsAttributeMacro(const Tokens &t, const Candidate &found, const Globals *G) {
    int end = found.list + 1;
    while (end < t.count && t.KindAt(end) != 'R') {
        ++end;
    }
    return t.KindAt(found.name - 1) == '[' || HoldsPlainWord(t, found.list + 1, end, G);
}

Member ReadCppMember(const Tokens &t, const Globals *G) {
    Text unused;
    Member member{};
    const int i = BehindPrefix(t, BehindAccess(t, &member.access), &unused, G);
    if (i >= t.count || t.KindAt(i) == '{' || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kNoMembers)) || IsForwardDeclaration(t, i)) {
        return member;
    }
    End end;
    Candidate found = FindCppFunction(t, i, &end, G);
    if (found.is_friend) {
        return member;
    }
    if (found.list >= 0 && !found.is_operator && IsMacroLike(t.At(found.name), G) && t.At(found.name) != OwnName(G)) {
        const bool attribute = IsAttributeMacro(t, found, G);
        if (found.name == i && !attribute && !G->is_c) { // Q_DISABLE_COPY(A);
            return member;
        }
        found.list = attribute ? -1 : found.list;
    }
    found.list = G->is_c ? -1 : found.list; // a struct of C has no methods
    TakeCandidate(found, &member);
    if (!member.is_method) {
        member.data = CountDeclared(t, i, G);
    }
    return member;
}

Member ReadJavaCsMember(const Tokens &t, const Globals *G) {
    Member member{};
    const int i = BehindModifiers(t, 0, G);
    Heading heading{};
    if (i >= t.count || t.KindAt(i) == '=' || (t.KindAt(i) == 'w' && IsOneOf(t.At(i), kNoMembers)) || // int Size { get; } = 1;
        ReadJavaCsClass(t, i, &heading, G)) {
        return member;
    }
    member.access = AccessOf(t, i, G);
    int stop;
    const Candidate found = FindMethod(t, i, &stop, G);
    TakeCandidate(found, &member);
    const bool property = t.KindAt(stop) == 'A' || t.KindAt(t.count - 1) == '{';
    if (!member.is_method && (!property || t.KindAt(stop) == '=')) {
        member.data = CountDeclared(t, i, G);
    }
    return member;
}

} // namespace

Member ReadMember(Text text, Globals *G) {
    const Tokens &t = Tokenize(text, G);
    return G->is_java || G->is_cs ? ReadJavaCsMember(t, G) : ReadCppMember(t, G);
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
