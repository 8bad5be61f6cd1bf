// What ends where: at ";", "{", "}" and ")" the scanner forgets what belonged to the statement, the head or the body. Each row is a
// source on which one thing that outlives its end gives other functions, classes, figures or notices.
#include "bench.h"

#include "run/compare.h"

namespace {

struct Row {
    int language;
    const char *source, *left; // functions, classes and interfaces, then notices
};

// The notices that statements raise; those of whole functions and classes would fill every row.
constexpr int kNoticesOfStatements[] = {4, 5, 10, 11, 14, 15, 22, 32, 33, 34, 35, 36, 37, 44, 50, 56};

std::string Left(const Row &row, bool recorded) {
    const SourceBench bench(row.language);
    if (!recorded) {
        bench.G->record_line = nullptr;
    }
    for (const int n : kNoticesOfStatements) {
        bench.G->notice_enabled[n] = 1;
    }
    bench.G->quality_notices = 1;
    bench.G->ignore_public_const = bench.G->ignore_public_event = bench.G->ignore_public_delegate = 1;
    bench.Feed(row.source);
    std::string left = bench.Functions() + bench.Classes();
    for (const int n : kNoticesOfStatements) {
        for (int i = 0; i < bench.G->notice_cnt[n]; ++i) {
            left += "#" + std::to_string(n);
        }
    }
    return left;
}

void CheckRows(std::span<const Row> rows) {
    for (const Row &row : rows) {
        CAPTURE(std::string(row.source));
        CHECK(Left(row, true) == row.left);
        CHECK(Left(row, false) == row.left); // where nothing is wanted of most lines
    }
}

// clang-format off
constexpr Row kSemicolon[] = {
    // a candidate: a declaration of old style parameters keeps it, a declaration in a class doesn't
    {kC, "int f(a, b)\n int a;\n{\n}\n", "f(a, b) Non-ANSI Parameter Construct l2\n#10"},
    // nothing is gathered behind it
    {kC, "int f(int n; int a[n],\n int b)\n{\n}\n", "f(int n; int a[n],) Non-ANSI Parameter Construct l2\n#10"},
    {kC, "void f(int a({ x; }),\n int b)\n{\n}\n", "f(int a({ x; }) l2\n"},
    {kCpp, "class A {\n void f() const;\n struct B { int c; };\n};\n", "A d001 m001 l4\nstruct nested A::B d100 m000 l1\n"},
    // a member: method or data, with its commas
    {kCpp, "class A {\n bool operator<(A);\n int a, b;\n int c;\n};\n", "A d003 m001 l5\n"},
    {kCpp, "class A {\n bool f(); int a;\n int b;\n};\n", "A d002 m001 l4\n"},
    {kCpp, "class A {\n int operator()(int); int a;\n};\n", "A d001 m001 l3\n"},
    {kCpp, "class A {\n friend class B;\n void f();\n friend void g();\n};\n", "A d000 m001 l5\n#15"},
    {kCpp, "union U {\n friend class B;\n};\n", "#15"},
    {kCpp, "class A {\n class B;\n int a;\n};\n", "A d001 m000 l4\n"},
    {kCpp, "class A {\n typedef int T;\n enum E { e };\n int a;\n};\n", "A d001 m000 l5\n"},
    {kCpp, "class A {\npublic:\n int *a;\n int b;\n const int c;\n int d;\n};\n", "A d400 m000 l7\n#34#35#35#35"},
    {kCs, "class A {\n public event B b;\n public int c;\n public delegate void D();\n public int d;\n}\n",
     "A d300 m100 l6\n#35#35"},
    {kCs, "class A {\n static int a; int b;\n}\n", "A d002 m000 l3\n"},
    // what keeps a "(" from being a head
    {kC, "int a = b;\nint f() {\n}\n", "f() l2\n"},
    {kC, "int x = g(1);\nint f() {\n}\n", "f() l2\n"},
    {kC, "int x = g(1) + 1;\nAPI(1) int y = 2;\nint f() {\n}\n", "f() l2\n#50"},
    {kC, "typedef int T;\nint f() {\n}\n", "f() l2\n"},
    {kJava, "class A {\n static int a = c;\n int f() {\n }\n @B int b; int g() {\n }\n}\n", "A.f() l2\nA.g() l2\nA d002 m002 l7\n"},
    {kCpp, "struct A {\n A(int a) :\n b(a);\n void g() {\n }\n};\n", "A::g() l2\nstruct A d000 m200 l6\n"},
    // what makes a "{" no scope
    {kCpp, "int f() {\n p = new T;\n if (p) {\n }\n return 1;\n}\n", "f() l6\n"},
    {kCpp, "int f() {\n int a[] = { 1 };\n if (a) {\n }\n return 1;\n}\n", "f() l6\n"},
    {kC, "enum E { e };\nint f() {\n if (1) {\n }\n}\n", "f() l4\n"},
    // a head that isn't one
    {kCpp, "template <class T>\nT x;\nint f() {\n}\n", "f() l2\n"},
    {kCpp, "template <bool b = 1 < 2>\nclass A;\nclass B {\n};\n", "B d000 m000 l2\n"},
    {kCpp, "enum E { e };\nclass A {\n};\n", "A d000 m000 l2\n"},
    {kCpp, "using namespace a;\nnamespace b {\n int f() {\n }\n}\n", "b::f() l2\n#32"},
    {kC, "struct A\n a;\nint f() {\n}\n", "f() l2\n"},
    {kC, "struct A\n a : 3;\nint b;\nstruct C {\n};\n", "struct C : 3 1 d000 m000 l2\n"},
    // the values and the conditions of the next statement
    {kCpp, "class A {\n virtual void f() = 0;\n int a = 5;\n const int b = 5;\n int c = 5;\n};\n", "A d003 m001 l6\n#37#50#50"},
};

constexpr Row kOpenBrace[] = {
    {kCpp, "int f(int a = b) {\n}\n", "f(int a = b) l2\n"}, // a default argument ends
    {kC, "int a[] = {\n 1\n};\nint f() {\n}\n", "f() l2\n"},
    {kCs, "class A<T> where T : B {\n void f() {\n }\n}\n", "A<T>.f() l2\nA<T> d000 m001 l4\n"},
    {kC, "void f() {\n if (a)\n {\n  b();\n }\n c();\n}\n", "f() l7\n"}, // its body has braces
    {kCpp, "void f() {\n if (g([] { a = b; }))\n {\n }\n}\n", "f() l5\n"}, // no assignment in the condition
    {kCpp, "struct A {\n virtual void f() {\n  a = 5;\n }\n};\n", "A::f() l3\nstruct A d000 m100 l5\n#37#50"},
    {kCpp, "template <class T> class A {\n void f() {\n }\n};\n", "A::f() l2\nA template<T> d000 m001 l4\n"},
    {kCpp, "class A :\n public B\n{\n int a;\n};\nclass C {\n};\n", "A : B 1 d001 m000 l3\nC d000 m000 l2\n"},
    {kC, "int f(int a[) {\n}\n", "f(int a[) l2\n"}, // a bracket of its head is none of its body
    {kC, "int f(int a) {\n int b[;\n}\n", "f(int a) l3\n#11"},
    {kC, "void f(int a)\n __attribute__((noreturn))\n{\n}\n", "f(int a) l2\n"},
    {kC, "enum E\n{\n e\n};\nint f() {\n}\n", "f() l2\n"},
    // a linkage block stays at file level
    {kCpp, "extern \"C\" {\nint a;\nint f() {\n}\n}\n", "f() l2\n"},
    {kCpp, "extern \"C\"\n{\nint f() {\n}\n}\n", "f() l2\n"},
    {kCpp, "#ifdef __cplusplus\n/* all of it */\n{\n#endif\nint f() {\n}\n}\n", "f() l2\n"},
};

constexpr Row kCloseBrace[] = {
    // a depth below 0, at the end of the line
    {kCpp, "extern \"C\" {\n}\nvoid f(int a)\n throw(x)\n{\n}\n", "f(int a) l2\n"},
    {kC, "void f() {\n switch (a) {\n case 1: { break; }\n break;\n }\n break;\n}\n", "f() l7\n#44"},
    {kCs, "class A {\n int B { get { return 1; } }\n int c;\n int D { set { c = d; } }\n int d;\n}\n", "A d002 m000 l6\n"},
    {kCs, "class A {\n int B\n {\n  get {\n   struct C c;\n  }\n  set {\n   struct C d;\n  }\n }\n}\n", "A d000 m000 l11\n"},
    {kCpp, "class A {\npublic:\n int a {\n  struct B b;\n }\n};\n", "A d000 m000 l6\n"}, // no member, but in a private section
    {kCpp, "class A {\n int a {\n  struct B b;\n }\n};\n", "A d001 m000 l5\n"},
    {kCpp, "class A {\n void f() { }\n int a;\n};\n", "A::f() l1\nA d001 m001 l4\n"},
    {kCpp, "enum E { e }\nclass A {\n};\n", "A d000 m000 l2\n"},
    {kC, "typedef enum { e } E\nint f() {\n}\n", "f() l2\n"},
    {kC, "struct A { int a; }\nint f() {\n}\nstruct B { int b; } c;\n", "f() l2\nstruct A d100 m000 l1\nstruct B d100 m000 l1\n"},
    {kJava, "class A {\n static {\n  a(1);\n }\n int f() {\n }\n}\n", "A.f() l2\nA d000 m001 l7\n"},
    {kCs, "class A {\n static\n {\n  struct B b;\n }\n static {\n  struct B b;\n }\n}\n", "A d000 m000 l9\n"},
    {kJava, "class A {\n static { if (a) { } }\n int f() {\n }\n}\n", "A.f() l2\nA d000 m001 l5\n"},
    {kJava, "class A {\n static\n {\n  a(1);\n }\n int f() {\n }\n}\n", "A.f() l2\nA d000 m001 l8\n"},
    // a function: what was seen of it, and of its head, is no part of the next one
    {kC, "int f(a) int a; {\n}\nint g(b) {\n}\n", "f(a) Non-ANSI Parameter Construct l2\ng(b) l2\n#10"},
    {kC, "#if A\nint f()\n#endif\n{\n}\nint g() {\n}\n", "f() l2\ng() l2\n"},
    {kC, "int f()\n#if A\n{\n#endif\n}\nint g() {\n}\n", "f() Defined By Compiler Directive l3\ng() l2\n"},
    {kC, "void f() {\n /* fall through */\n}\nvoid g() {\n switch (a) {\n case 1:\n default: ;\n }\n}\n", "f() l2\ng() l6\n#14"},
    {kCpp, "void f() {\n new T { 1 } }\nvoid g() {\n if (a) {\n }\n}\n", "f() l2\ng() l4\n"},
    {kCpp, "A::A() : b(1) {\n}\nvoid g() {\n}\n", "A::A() l2\ng() l2\nA d000 m000 l2\n"},
    {kC, "void f() {\n if (a) }\nvoid g() {\n b();\n}\n", "f() l2\ng() l3\n"},
    {kCs, "class A {\n [X(a = b)]\n void f() {\n }\n void g() {\n }\n}\n", "A.f() l2\nA.g() l2\nA d000 m001 l7\n"},
    // a class: what was seen of it is no part of the one around it, nor of the next one
    {kCpp, "class A : B {\n int a;\n void f();\n};\nclass C {\n};\n", "A : B 1 d001 m001 l4\nC d000 m000 l2\n"},
    {kCpp, "class A : B {\n class C {\n public:\n  int c;\n };\n int a;\n};\n",
     "A : B 1 d002 m000 l7\nnested A::C d100 m000 l4\n#35"},
    {kCpp, "struct A {\n class B { int b; };\n int a;\n};\n", "struct A d200 m000 l4\nstruct nested A::B d001 m000 l1\n"},
    {kJava, "class A {\n class B { int b = c[0] }\n void f();\n}\n", "A d000 m001 l4\nnested A.B d000 m000 l1\n"},
    {kCs, "class A {\n class B { virtual int b { } }\n int a = 5;\n}\n", "A d001 m000 l4\nnested A.B d000 m000 l1\n#37#50"},
    {kCpp, "class A {\n virtual void f();\n};\nclass B {\n};\n", "A d000 m001 l3\nB d000 m000 l2\n#37"},
    {kCpp, "class A {\n virtual ~A();\n};\nclass B {\n virtual void f();\n};\n", "A d000 m001 l3\nB d000 m001 l3\n#37"},
    {kJava, "interface A {\n int f();\n}\nclass B {\n int g();\n}\n", "B d000 m001 l3\nA d000 m001 l3\n"},
    {kCpp, "namespace a {\nint f() {\n}\n}\nint g() {\n}\n", "a::f() l2\ng() l2\n"},
    {kCpp, "namespace a { namespace b {\n}\nint f() {\n} }\n", "a::f() l2\n"},
    // one too many is forgotten
    {kC, "}\n)\nint f() {\n if (a) {\n }\n}\n", "f() l4\n"},
};

constexpr Row kCloseParen[] = {
    {kJava, "class A {\n @Foo(1) void f() {\n }\n}\n", "A.f() l2\nA d000 m001 l4\n"},
    {kCpp, "void f() {\n}\ncatch (int) { }\nint g() {\n}\n", "f() l2\ng() l2\n"},
    {kC, "void f(int a, enum\n E b)\n{\n {\n }\n}\n", "f(int a, enum E b) l4\n"},
    // forgotten at the second parenthesis
    {kCpp, "class A {\n int a = ( class B { int b; };\n );\n DECLARE(x) (y) {\n }\n};\n",
     "A::x(y) l2\nA d002 m001 l6\nnested A::B d001 m000 l1\n"},
    {kC, "int f();\nint g() {\n}\n", "g() l2\n"}, // a prototype
    {kC, "int f(int a)\n;\nint g() {\n}\n", "f(int a) Non-ANSI Parameter Construct l2\n#10"}, // none that it can see
    {kC, "void f() {\n if (a) b = c;\n while (a) b = c;\n}\n", "f() l4\n#22#22"},
    {kC, "void f() {\n if (a = b) {\n }\n while (a = b) {\n  c();\n }\n for (;; a = b) {\n  c();\n }\n c();\n}\n", "f() l11\n#4#5"},
    {kC, "void f() {\n if (g(a) = b) {\n }\n c();\n}\n", "f() l5\n#4"}, // the outermost one ends it
    {kCpp, "#define API(x)\nclass API(1) A {\n void f();\n};\n", "A d000 m001 l3\n"},
    {kC, "int f(int a,\n int b\n)\n{\n}\n", "f(int a, int b) l2\n"},
};

// Texts that go on over lines, up to their ends.
constexpr Row kHeads[] = {
    {kCpp, "template <class T,\n class U> class A {\n};\n", "A template<T,U> d000 m000 l2\n"},
    {kCpp, "template <class T, // one {\n class U // two >\n >\nclass A {\n};\n", "A template<T,U> d000 m000 l2\n"},
    {kCpp, "template <\n class T, /* one\n two */ class U\n >\nclass A {\n};\n", "A template<T,two*/U> d000 m000 l2\n"},
    {kCpp, "template <class T,\n class U> U f(T t) {\n}\n", "f(T t) template<T,U> l2\n"},
    {kCpp, "template <class T>\nT f(T t) {\n}\ntemplate class A<T>;\nint g() {\n}\n", "f(T t) template<T> l2\ng() l2\n"},
    {kCpp, "class /* one\n*/\nA {\n};\n", "A d000 m000 l2\n"},
    {kCpp, "class A :\n public B { int a;\n int b;\n};\n", "A : B 1 d002 m000 l3\n"},
    {kCpp, "class\nA\n{\n};\nclass // b\nB {\n};\n", "A d000 m000 l2\nB d000 m000 l2\n"},
    {kCpp, "class A; class B {\n};\n", "B d000 m000 l2\n"},
    {kCpp, "class A {\n class B\n ;\n int a;\n};\n", "A d000 m000 l0\n"},
    {kCpp, "class A {\n int a {\n  class B\n  (1);\n }\n};\n", "A d000 m000 l0\n"},
    {kCs, "void f() {\n interface I {\n }\n}\ninterface J;\ninterface K {\n}\n", "f() l4\nK d000 m000 l2\n"},
    {kCpp, "#define API(x)\nnamespace a API (1) {\nint f() {\n}\n}\n", "a::f() l2\n"},
    {kCpp, "namespace n {\n}\nclass A { class B {\n void n::f() {\n }\n}; };\n",
     "n::f() l2\nA d001 m000 l4\nnested A::B d000 m001 l4\n"},
    {kCpp, "class A {\n friend struct B;\n struct C c;\n};\n", "A d002 m000 l4\n#15"},
    {kJava, "class A {\n void f() static {\n }\n}\n", "A.f() l2\nA d000 m000 l4\n"},
    {kCs, "[x\nclass A {\n int a;\n}\n", "A d000 m000 l3\n"},
    {kCs, "[Import(\"x\")]\nint f(int a) {\n}\n", "f(int a) l2\n"},
};
// clang-format on

} // namespace

TEST_CASE("what ends at a semicolon") {
    CheckRows(kSemicolon);
}

TEST_CASE("what ends at an opening brace") {
    CheckRows(kOpenBrace);
}

TEST_CASE("what ends at a closing brace") {
    CheckRows(kCloseBrace);
}

TEST_CASE("what ends at a closing parenthesis") {
    CheckRows(kCloseParen);
}

TEST_CASE("texts over lines, up to their ends") {
    CheckRows(kHeads);
    // Parameters that don't fit are left away, line by line.
    const std::string first = "(" + std::string(1500, 'a') + ",", head = "int f" + first + "\n";
    const std::string more = head + std::string(1000, 'b') + ", c\n)\n{\n}\n", most = head + std::string(544, 'b') + "\n)\n{\n}\n";
    CHECK(Left({kC, more.c_str(), ""}, true) == "f" + first + ") l2\n");
    CHECK(Left({kC, most.c_str(), ""}, true) == "f" + first + std::string(544, 'b') + ") l2\n");
}
