// Classes, structs, interfaces and namespaces: which records a source leaves, with which names, bases, members and figures, and the
// lines that they write.
#include "bench.h"

#include "analysis/class.h"
#include "analysis/entities.h"

namespace {

struct Bench : SourceBench {
    explicit Bench(int language = kCpp)
        : SourceBench(language) {
        G->totals_only = 0;
        G->function_metrics_implied = 1;
    }

    // What the scan of a text writes.
    std::string Feed(const std::string &text) const {
        return Written([&] { SourceBench::Feed(text); });
    }

    std::string Names(const Llist &list) const {
        std::string dump;
        for (const NodeData *node : Records<NodeData>(list)) {
            dump += dump.empty() ? node->name : std::string(" ") + node->name;
        }
        return dump;
    }
};

} // namespace

TEST_CASE("a source leaves its classes with their bases, members and lines") {
    struct {
        int language;
        const char *text;
        const char *classes;
    } cases[] = {
        {kCpp, "class A;\nstruct B;\nstruct tag var;\nfriend class F;\n", ""},
        {kCpp, "#define EXPORT\nclass EXPORT Foo : public Bar {\n};\n", "Foo : Bar 1 d000 m000 l2\n"},
        {kCpp, "#define EXP(x)\n#define API\nclass API EXP(1) API Foo {\n};\n", "Foo d000 m000 l2\n"},
        {kCpp, "class // one\n/* two */ A\n  : public B,\n    private C\n{ };\n", "A : B,C 2 d000 m000 l1\n"},
        {kCpp, "class A : public B, // {\n /* two {\n */ C, /* three */ D /*\n { */ {\n};\n", "A : B,C,D 3 d000 m000 l2\n"},
        {kCpp, "#define M(x)\nstruct M(()) A {\n};\nstruct M((1)(2)) M B : A {\n};\nstruct M(1) { int a; } C;\n",
         "struct A d000 m000 l2\nstruct B : A 1 d000 m000 l2\nstruct C d100 m000 l1\n"},
        {kCpp, "#define M\nstruct M A : B {\n};\nstruct M { } C;\nstruct M *f(int a) {\n}\nclass M(()) D {\n};\n",
         "struct A : B 1 d000 m000 l2\nstruct C d000 m000 l1\nD d000 m000 l2\n"},
        {kJava, "interface I<T> {\n default int f() { return 1; }\n interface J { int g(); }\n}\n",
         "I<T> d000 m001 l4\nnested I<T>.J d000 m001 l1\n"},
        {kCpp, "class A : public virtual B, virtual\tprivate C {\n};\n", "A : B,C 2 d000 m000 l2\n"},
        {kCpp, "class A {\n void (*fp)(int);\n int operator=(int);\n static int s;\n int n = 5;\n};\n", "A d002 m002 l6\n"},
        {kCpp, "struct { int a; } v;\ntypedef struct { int a; } T;\nstruct { int a; } w[2];\nstruct { int a; };\n",
         "struct v d100 m000 l1\nstruct T d100 m000 l1\n"
         "struct w d100 m000 l1\nstruct instance d100 m000 l1\n"},
        {kCpp, "namespace n {\nstruct A {\n struct { int k; } u; }; }\n",
         "struct n::A d100 m000 l2\nstruct nested n::A::u d100 m000 l1\n"},
        {kCpp, "namespace n { }\nclass n { int a; };\n", ""}, // no class has a namespace's name
        {kC, "struct P {\n struct Q { int q; } in;\n};\n", "struct P d100 m000 l3\nstruct nested P.Q d100 m000 l1\n"},
    };
    for (const auto &c : cases) {
        CAPTURE(std::string(c.text));
        Bench bench(c.language);
        bench.G->totals_only = 1;
        bench.Feed(c.text);
        CHECK(bench.Classes() == std::string(c.classes));
        CHECK(bench.G->class_flag == 0);
    }
}

TEST_CASE("nesting ends at every brace, deeper than the stack too") {
    for (const int levels : {1, 2, 32, 33, 34, 100}) {
        CAPTURE(levels);
        std::string classes, spaces, ends, around;
        for (int i = 0; i < levels; ++i) {
            around += i + 1 < levels ? "n" + std::to_string(i) + "::" : "";
            classes += "class C" + std::to_string(i) + " {\n";
            spaces += "namespace n" + std::to_string(i) + " {\n";
            ends += i + 1 < levels ? "enum { e };\n}\n" : "class Last { }; }\n"; // in the outermost one again
        }
        Bench bench;
        bench.G->totals_only = 1;
        bench.Feed(classes + ends + spaces + ends + "class After { };\n");
        CHECK(bench.G->class_list.count == levels + 3);
        CHECK(bench.G->namespace_list.count == levels);
        CHECK(FindClass("C0::Last", bench.G)->nesting == 1);
        CHECK(FindClass("n0::Last", bench.G)->nesting == 0);
        CHECK(FindClass("After", bench.G)->nesting == 0);
        CHECK(FindClass("C0", bench.G)->loc == 3 * levels - 1);

        Bench inner; // one scope closed: the one around it has its name back
        inner.G->totals_only = 1;
        inner.Feed(spaces + "}\nclass Behind { };\n");
        CHECK(FindClass((around + "Behind").c_str(), inner.G) != nullptr);
    }
}

TEST_CASE("namespaces and packages") {
    struct {
        int language;
        const char *text, *names, *written;
    } cases[] = {
        {kCpp, "namespace {\n}\n", "", "  Namespace Begin: Anonymous - File Scope\n\n  Namespace End: Anonymous - File Scope\n\n"},
        {kCpp, "namespace a { namespace {\n} }\nnamespace a { }\n", "a a::",
         "  Namespace Begin: a\n\n  Nested Namespace Begin: a::\n\n  Nested Namespace End: a::\n\n  Namespace End: a\n\n"
         "  Namespace Begin: a\n\n  Namespace End: a\n\n"},
        {kCpp, "using namespace std;\n", "", ""},
        {kCs, "namespace a { namespace b { } }\n", "a a.b",
         "  Namespace Begin: a\n\n  Nested Namespace Begin: a.b\n\n  Nested Namespace End: a.b\n\n  Namespace End: a\n\n"},
        {kJava, "package 1;\nnamespace a { }\n", "", ""},
    };
    for (const auto &c : cases) {
        CAPTURE(std::string(c.text));
        Bench bench(c.language);
        CHECK(bench.Feed(c.text) == c.written);
        CHECK(bench.Names(bench.G->namespace_list) == c.names);
    }
}

TEST_CASE_FIXTURE(Bench, "a name seen again is the same record, in whichever file") {
    G->totals_only = 1;
    Feed("// its own comment\ntemplate <class T> class A {\n};\nclass Z {\n};\n#define M 1\n");
    Begin(kCpp);
    G->file_name = "second";
    Feed("\nclass M A : public B {\n};\nstruct { int a; } A;\n");
    CHECK(Names(G->class_list) == "A Z instance"); // the second name is taken: its figures go to the first record
    const ClassData *record = FindClass("A", G);
    CHECK(record == Record<ClassData>(G->class_list.head));
    CHECK(std::string(record->template_line) + " : " + record->inherit_line == "template<T> : B");
    CHECK(std::string(record->file) == "second");
    CHECK(record->line == 2);
    CHECK(record->parents == 1);
    CHECK(record->loc == 5);
    CHECK(record->comments == 1);
    RenameClass(FindClass("instance", G), "renamed", G);
    CHECK(!FindClass("instance", G));
    CHECK(FindClass("renamed", G));
    CHECK(is_macro("M", G));
    CHECK(!is_macro("m", G));
    CHECK(!is_macro("", G));
}

TEST_CASE_FIXTURE(Bench, "a scope that doesn't fit is dropped, the name stays") {
    const std::string longest(2030, 'N'), own(20, 'C');
    G->totals_only = 1;
    Feed("namespace " + longest + " {\nclass " + own + " {\n class In { }; }; }\n");
    CHECK(FindNamespace(longest.c_str(), G));
    CHECK(Names(G->class_list) == own + " " + longest + "::In");
}

TEST_CASE("heads, tails and members in the modes of a report") {
    const char *text = "template<class T> class Long_name : public B<T> {\n  struct In { int a; };\n  void f(int a);\n};\n";
    struct {
        int html, notices;
        const char *written;
    } cases[] = {
        {1, 0,
         "  <b>Template:</b> <b><font color=\"T\">template&lt;T&gt;</font></b>\n"
         "  <b>Inheritance</b>: <b><font color=\"I\">B&lt;T&gt;</font></b>\n"},
        {0, 1, "Class Begin Line: 1 -------------------------\n  Class: Long_name\n  Template: template<T>\n  Inheritance: B<T>\n"},
        {1, 1, "  <b>Nested Struct</b>: <b><font color=\"S\">Long_name::In</font></b>\n"},
        {1, 1, "\n  <b>Nested Struct</b>: <b><font color=\"C\">Long_name::In</font></b>\n"},
        {0, 1, "\n  Class: Long_name\n  Attributes"},
        {0, 1, "Nested Struct End Line: 2"},
        {0, 0, "  Class Data Public     :     2 | struct In { int a; };\n"},
        {0, 0, "  Class Method Private  :     3 | Long_name::f(int a)\n"},
    };
    for (const auto &c : cases) {
        CAPTURE(std::string(c.written));
        Bench bench;
        bench.G->show_class_methods = 1;
        bench.G->html_mode = c.html;
        bench.G->quality_notices = c.notices;
        CopyText(bench.G->html_class_color, "C");
        CopyText(bench.G->html_struct_color, "S");
        CopyText(bench.G->html_template_color, "T");
        CopyText(bench.G->html_inheritance_color, "I");
        CHECK(Has(bench.Feed(text), c.written));
    }
    const Bench bench;
    CHECK(Written([&] { GetClassname("class", 6, bench.G); }) ==
          "  Error: Internal Error, GetClassname... Aborting\n         Line: class\n");
    const Bench java(kJava);
    LineText bases = "implements C extends B";
    FormatInheritline(bases, java.G);
    CHECK(std::string(bases) == "B");
}
