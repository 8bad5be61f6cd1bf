// The modern reading: every rule's sample with the rule and without it, and what no sample holds.
#include "bench.h"

#include "analysis/entities.h"
#include "analysis/parse_line.h"
#include "analysis/reading.h"
#include "analysis/roll_up.h"
#include "analysis/scopes.h"
#include "run/llist.h"

namespace {

struct Bench : StateBench {
    Bench(const std::string &language, unsigned rules) {
        ResetState(G);
        G->is_c = language == "C";
        G->is_cpp = language == "C++";
        G->is_java = language == "Java";
        G->is_cs = language == "C#";
        G->function_metrics = G->object_metrics = G->totals_only = 1;
        G->max_scope_depth = 100;
        G->cyclo_function_call = G->cyclo_if = G->cyclo_inline_if = G->cyclo_and = 1;
        G->reading = rules;
        G->file_name = "bench";
    }
    void Scan(const std::string &text) const {
        const TextSource source(text);
        Written([&] { ScanSource(source.reader.get(), G); });
    }
    // "name:line of its }", with "=complexity" where it isn't 1, joined by blanks.
    std::string Functions() const {
        std::string found;
        for (const FunctionData *node : Records<FunctionData>(G->function_list)) {
            found += (found.empty() ? "" : " ") + std::string(node->name) + ":" + std::to_string(node->line);
            found += node->cyclo > 1 ? "=" + std::to_string(node->cyclo) : "";
        }
        return found;
    }
    template <class T> const T &Only(const Llist &list) const {
        REQUIRE(list.count == 1);
        return *Record<T>(list.head);
    }
};

std::string Functions(const std::string &language, const std::string &text, unsigned rules = kAllRules) {
    const Bench bench(language, rules);
    bench.Scan(text);
    CHECK(ClosedBraces(bench.G) == bench.G->open_braces);
    return bench.Functions();
}

// "data 1 2 3 methods 4 5 6": of the public, protected and private section.
std::string Sections(const ClassData &n) {
    std::string text = "data";
    for (const int count : {n.public_data, n.protected_data, n.private_data}) {
        text += " " + std::to_string(count);
    }
    text += " methods";
    for (const int count : {n.public_methods, n.protected_methods, n.private_methods}) {
        text += " " + std::to_string(count);
    }
    return text;
}

} // namespace

TEST_CASE("every rule of the modern reading changes its sample") {
    unsigned rules = 0;
    for (const ReadingRule &row : ReadingRules()) {
        CAPTURE(row.name);
        CHECK(Functions(row.language, row.sample) == row.with);
        const Bench bench(row.language, kAllRules & ~row.rule);
        bench.Scan(row.sample);
        CHECK(bench.Functions() == row.without);
        CHECK(RulesOf(row.name) == row.rule);
        rules |= row.rule;
    }
    CHECK(rules == kAllRules);
    CHECK(RulesOf("Braces,literals") == (kBraces | kLiterals));
    CHECK(RulesOf("braces,brace") == 0);
    CHECK(RulesOf("") == 0);
}

TEST_CASE("statements outside of functions are judged as a whole") {
    struct {
        const char *language, *text, *functions;
    } cases[] = {
        {"C", "int f(a, b) int a; char *b; {\n}\nM(x) int n;\nstruct s {\n int a;\n};\nint g(void) {\n}\n", "f:2 g:8"},
        {"C", "struct s *f(struct s *p) {\n}\nstruct s v = { { 1 }, g };\nint (*h(int a))(char) {\n}\n", "f:2 h:5"},
        {"C", "#if A\nint f(int a)\n#else\nint f(long a)\n#endif\n{\n}\n#define B(x) { x\nint g(void) {\n}\n", "f:7 g:10"},
        {"C", "#if A\nint f(int a) {\n#else\nint f(long a) {\n#endif\n}\nint g(void) {\n}\n", "f:6 g:8"},
        {"C++", "extern \"C\" {\nint f() { return R\"(}\")\"[1'0]; }\n}\nbool A::operator<(A a) const {\n}\n",
         "f:2 A::operator<:5"},
        {"C++", "struct A {\n union { int a; };\n A() noexcept : b(1), c{2} try {\n } catch (...) {\n }\n int d{3};\n};\n",
         "A::A:4"},
        {"C++",
         "auto f() -> decltype(g(1)) {\n}\nint h = [](int a) { return a; }(1);\nATTR(1, 2) static int k(int a = g({1})) {\n}\n",
         "f:2 k:5"},
        {"Java", "enum E {\n A(1) { void f() { } }, B;\n E(int a) { }\n @interface I { int v() default 1; }\n}\n", "E.E:3"},
        {"Java",
         "record P(int x) {\n P {\n }\n static { g(); }\n void f() throws E { run(new R() { public void run() { } }); }\n}\n",
         "P.P:3 P.f:5"},
        {"C#",
         "class A<T> : B where T : class {\n int P { get { return 1; } } = 2;\n static bool operator ==(A a, A b) { }\n"
         " public A() : base(1) { }\n void I<T>.F() where T : new() { }\n enum E { X = 0 }\n ~A() { }\n}\n",
         "A<T>.operator ==:3 A<T>.A:4 A<T>.I<T>.F:5 A<T>.~A:7"},
        {"C++",
         "union GTY(()) {\n int a;\n} u;\nclass CAT(a, b) {\n int f() { return 1; }\n};\ntemplate <class T> RESULT (T, T)\n"
         "operator >> (T a) { }\nstruct O { int operator()[[nodiscard]](int a) const { } };\n"
         "template <int m, bool ok = m % 2 < m / 2> struct M { int c() { } };\n",
         "CAT::f:5 operator >>:8 O::operator ():9 M::c:10"},
        {"C#",
         "class A {\n int? F(List<int?> a) {\n  int? b = a?.Count;\n  return a?[0] ?? (b as int?);\n }\n"
         " int G() { return x?1:2; }\n int H() { return x ? 1 : y ?.5 : 2; }\n int K() { return x switch { 1 => 2, _ => 3 }; "
         "}\n}\n",
         "A.F:5 A.G:6=2 A.H:7=3 A.K:8"},
        {"C++", "int f() {\n if IF_CONSTEXPR (a) { }\n ifi (b);\n iff(c);\n if\xc6(d);\n}\n",
         "f:6=2"}, // of four words one is an if
        {"Java", "class A {\n void f(Map<?, ? extends T> a) { Class<?> c = x ? y : z; }\n}\n", "A.f:2=2"},
        {"C",
         "struct s f(int a) attr {\n}\nint (g)(int a) {\n}\n[[x]] __extension__ int h(void) {\n}\n"
         "__attribute__((used)) int i(int a) {\n return 'x';\n}\nint (*) (int) {\n}\n",
         "f:2 g:4 h:6 i:9"},
        {"C", "#if A\nint x;\nint f(int a)\n#else\nint f(long a)\n#endif\n{\n}\n#if A\nint g(int a)\n#else\n#endif\n{\n}\n",
         "f:8 g:14"},
        {"C++", "#if A\nnamespace n {\n#else\nnamespace m {\n#endif\nint f() {\n#if A\n }\n#else\n }\n#endif\n}\n#define E } ;\n",
         "n::f:8"},
        {"C++",
         "export template <class T> requires (C<T>) EXP template <class U> int f() { }\nenum class E : int { B };\n{\n}\n"
         "struct X {\n x operator y; int a > (b); };\n"
         "bool my_operator::operator+(A a) { return R\"tooooooooooooolong(}\"; }\nint *::g() __attribute__((x)) { }\n"
         "struct alignas(8) { int e() { } } q;\n",
         "f:1 my_operator::operator+:7 g:8 instance::e:9"},
        {"C#",
         "namespace N.M {\nrecord struct R(int a) {\n void F<T>(T a) { var s = $\"\\\"{new[] { 1 }}\";\n  s = $\"\n; }\n int P => "
         "1;\n"
         " record[] r;\n int G() => 1\n}\nclass B { void H() { } }\n}\n",
         "N.M.R.F<T>:5 N.M.R.G:9 N.M.B.H:10"},
        {"Java",
         "class A implements B {\n @java.lang.Override void f() { s = \"\"\"\n  { \\\"\"\"\n  \"\"\"; }\n record r;\n char c = "
         "'{';\n}\n",
         "A.f:4"},
        {"Java", "class A {\n // \\\n Path file() { }\n}\n", "A.file:3"},
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        CHECK(Functions(c.language, c.text) == c.functions);
    }
}

TEST_CASE("classes and their members by the modern reading") {
    const Bench cpp("C++", kAllRules);
    cpp.Scan("class A : public B<int, C(int)>, private D {\n friend class F;\n void f(std::function<void(int, int)> a, int b);\n"
             "public:\n int a, *b, c[2];\n using E = int;\n int (*p)(int);\n A(std::string a, void (*g)(int, int)) { int local; "
             "}\n};\n");
    const auto &a = cpp.Only<ClassData>(cpp.G->class_list);
    CHECK(a.parents == 2);
    CHECK(Sections(a) == "data 4 0 0 methods 1 0 1");
    CHECK(cpp.Only<FunctionData>(cpp.G->function_list).params == 2);
    CHECK(std::string(cpp.Only<FunctionData>(cpp.G->function_list).parameters) == "(std::string a, void (*g)(int, int))");

    struct {
        const char *language, *text, *sections;
    } cases[] = {
        {"C++",
         "class A final {\npublic:\n struct B FINAL : private C { Map<int, int> m, n; };\n int a;\nprotected slots:\n void f() { "
         "struct L { private: int x; }; }\n"
         " int b;\n friend bool operator==(A, A) { }\n inline friend void h(A);\nQ_SIGNALS:\n void g();\n};\n",
         "data 1 1 0 methods 1 1 0"},
        {"C++",
         "struct A {\n type (*f)(int);\n type (C::*g)(int), h;\n int a : sizeof(int);\n int *MARK((x)) b;\n int c[2] "
         "__aligned(4);\n"
         " Q_DISABLE(A);\n union { int d; char e; };\n union { int i; } u;\n A();\n T F() -> int;\n};\n",
         "data 9 0 0 methods 2 0 0"},
        {"C", "typedef struct {\n BITMAP(x, 3);\n char b __aligned(2);\n} __packed A;\n", "data 2 0 0 methods 0 0 0"},
        {"C#",
         "class A {\n public int a;\n int b { get; private set; }\n int c;\n private protected int d;\n void F() { }\n"
         " protected internal int G() => 1;\n}\n",
         "data 1 1 1 methods 0 1 1"},
        {"Java", "enum A {\n X(1);\n public int a;\n int b;\n A(int a) { }\n}\n", "data 1 0 1 methods 0 0 1"},
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        const Bench bench(c.language, kAllRules);
        bench.Scan(c.text);
        CHECK(Sections(*FindClass("A", bench.G)) == c.sections);
    }
    const Bench names("C++", kAllRules);
    names.Scan("namespace n {\ntemplate <> struct A<b::c> { struct D { void f() { } }; operator b::c() { } };\nstruct A::B { };\n"
               "void i<b::c>() { }\nnamespace { class P { }; }\nstruct H<long double> { };\n}\nvoid Y<T>::Z<T>::x() { }\n");
    std::string classes_of;
    for (const ClassData *node : Records<ClassData>(names.G->class_list)) {
        classes_of += std::string(node->name) + " " + std::to_string(node->functions) + " ";
    }
    CHECK(classes_of == "n::A<b::c> 2 n::A<b::c>::D 1 n::A::B 0 n::P 0 n::H<longdouble> 0 Y::Z 1 ");
    const Bench other("C#", kAllRules);
    other.Scan("class A : I {\n void I.F() { }\n}\n");
    CHECK(other.Only<ClassData>(other.G->class_list).functions == 1);
    const Bench interface("C#", kAllRules);
    interface.Scan("interface I {\n void F();\n int G();\n}\n");
    CHECK(Sections(interface.Only<ClassData>(interface.G->interface_list)) == "data 0 0 0 methods 2 0 0");

    const Bench branch("C", kAllRules);
    branch.Scan("int f( int a\n#if X\n , int b\n#endif\n )\n{\n}\n");
    CHECK(std::string(branch.Only<FunctionData>(branch.G->function_list).parameters) ==
          "(int a , int b) Defined By Compiler Directive");

    const Bench stray("C++", kAllRules);
    stray.Scan("}\nint f() { return 1; }\n");
    CHECK(stray.Functions() == "f:2");
    CHECK(ClosedBraces(stray.G) == 2);
    const Bench open("C++", kAllRules);
    open.Scan("}\nnamespace n {\nint f() {\n");
    CHECK(ClosedBraces(open.G) == 0);
    const Bench deep("C++", kAllRules);
    deep.Scan("int f() {\n" + std::string(300, '{') + "\n" + std::string(300, '}') + "\n}\nint g() { return 1; }\n");
    CHECK(deep.Functions() == "f:4 g:5");
    std::string classes, ends;
    for (int i = 0; i < 300; ++i) {
        classes += "class A {\n";
        ends += "}\n";
    }
    CHECK(Functions("C#", classes + "void F() { }\nint G() => 1;\n" + ends + "class B { void H() { } }\n") == "B.H:603");
}
