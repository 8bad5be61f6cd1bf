// The table of the modern reading's rules.
#include "analysis/reading.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <strings.h>

namespace {

// clang-format off
constexpr ReadingRule kRules[] = {
    {kBraces, "braces", "a } ends what its { opened; what a { opens or a ; declares is told from its whole statement", "C#",
     "class A {\n"
     "    void F() { G(x => { y(x); }); if (z) { H(); } }\n"
     "    int[] v = new[] { f(1), 2 };\n"
     "    static int H(int a, int b = 1) { switch (r = g()) { } }\n"
     "}\n"
     "class B { void F() { } }\n",
     "A.F:2=2 A.H:4 B.F:6", "A.B.F:6", 26697, 41484},
    {kLiterals, "literals", "@\"...\", $\"{x}\", \"\"\"...\"\"\", R\"x(...)x\" and 1'000 are read to their end, others to their line's", "C#",
     "class A {\n"
     "    string s = @\"C:\\\";\n"
     "    string t = $\"{d[\"{\"]}\";\n"
     "    void F() { }\n"
     "    string u = \"\"\"\n"
     "        { \"a\": \"\n"
     "        \"\"\";\n"
     "    void G() { }\n"
     "}\n",
     "A.F:4 A.G:8", "", 77, 92},
    {kBases, "bases", "parentheses in the heading of a class of Java or C# begin no function", "C#",
     "class A(int x) : B(x), I<(int, int)> {\n"
     "    void F() { }\n"
     "}\n",
     "A.F:2", "A:3", 461, 474},
    {kInitialisers, "initialisers", "the braces of a constructor's initialisers aren't its body", "C++",
     "struct A {\n"
     "    A()\n"
     "        : a{1},\n"
     "          b{2}\n"
     "    {\n"
     "        f();\n"
     "    }\n"
     "};\n",
     "A::A:7", "A::A:3", 63, 96},
    {kTuples, "tuples", "the parentheses of a tuple are a type; foreach, using, lock name no function", "C#",
     "class A {\n"
     "    public (int, string) F() { return (1, \"\"); }\n"
     "    Task<(int, int)> G(int a) { foreach (var x in y) { } }\n"
     "}\n",
     "A.F:2 A.G:3", "", 106, 121},
    {kAnnotations, "annotations", "the arguments of an annotation are no parameters", "Java",
     "class A {\n"
     "    @Deprecated(since = \"9\") void f() { }\n"
     "    @Override public void g() { }\n"
     "}\n",
     "A.f:2 A.g:3", "A.Deprecated:2 A.g:3", 13638, 14871},
    {kMacros, "macros", "a word in capitals, one that begins with __ and a listed one may be a macro, with its arguments", "C++",
     "struct MARK(()) S {\n"
     "    int f() { return 1; }\n"
     "};\n"
     "void g() REQUIRES(mu) {\n"
     "}\n"
     "BEGIN_STD namespace n {\n"
     "int h() { return 2; }\n"
     "}\n",
     "S::f:2 g:5 n::h:7", "MARK:3 g:5", 2650, 4386},
    {kConditionals, "conditionals", "each branch of a #if begins with what was open at it", "C++",
     "int f(int a)\n"
     "{\n"
     "#ifdef X\n"
     "    if (a) {\n"
     "#else\n"
     "    if (!a) {\n"
     "#endif\n"
     "        g();\n"
     "    }\n"
     "}\n"
     "int h() { return 1; }\n",
     "f:10=3 h:11", "", 246, 384},
    {kTemplates, "templates", "every > of a list of types counts", "C++",
     "template <class T, class = If<A<T>>>\n"
     "int f(T t) { return 1; }\n"
     "template <> struct A<B<int(int)>, C> {\n"
     "    int g() { return 2; }\n"
     "};\n",
     "f:2 A<B<int(int)>,C>::g:4", "f:2", 2432, 3846},
    {kNamespaces, "namespaces", "a namespace has its full name, and namespace N; lasts to the end of the file", "C#",
     "namespace N.M;\n"
     "class A {\n"
     "    void F() { }\n"
     "}\n",
     "N.M.A.F:3", "A.F:3", 437, 675},
    {kRecords, "records", "a record is a class; int F() => x; is a function", "C#",
     "record Point(int X) {\n"
     "    int F() => X;\n"
     "    int G() { return 1; }\n"
     "}\n",
     "Point.F:2 Point.G:3", "Point:4", 57, 76},
    {kConditions, "conditions", "if constexpr counts, the && of a #if and the ? of int? and a?.b don't", "C++",
     "int f() {\n"
     "#if A && B && C\n"
     "    if constexpr (a) { g(); }\n"
     "#endif\n"
     "}\n",
     "f:5=2", "f:5=3", 0, 2954},
};
// clang-format on

} // namespace

std::span<const ReadingRule> ReadingRules() {
    return kRules;
}

unsigned RulesOf(const char *names) {
    unsigned rules = 0;
    for (std::string_view rest = names; !rest.empty();) {
        const std::string_view name = rest.substr(0, rest.find(','));
        unsigned found = 0;
        for (const ReadingRule &row : kRules) {
            found |= name.size() == strlen(row.name) && strncasecmp(name.data(), row.name, name.size()) == 0 ? row.rule : 0U;
        }
        if (!found) {
            return 0;
        }
        rules |= found;
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return rules;
}
