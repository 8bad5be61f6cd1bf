// Functions: the name in front of a "(", the parameter text, the figures of a body and where they go, the lines that are printed.
#include "bench.h"

#include "analysis/entities.h"
#include "analysis/function.h"
#include "analysis/roll_up.h"
#include "analysis/scan.h"

namespace {

struct Bench : SourceBench {
    explicit Bench(int language = kCpp)
        : SourceBench(language) {
        G->file_name = "a.cpp";
    }
    // The parenthesis in hand stands behind the "$".
    void Find(std::string line) {
        const size_t mark = line.find('$');
        line.erase(mark, 1);
        GetFunction(line.c_str(), static_cast<int>(mark), G);
    }
    // A function of which only the braces matter: grow changes the file's counters between them.
    template <class Grow> void Run(const char *name, const char *params, Grow grow) {
        Scan scan{};
        scan.line = "{";
        CopyText(G->funcname, name);
        CopyText(G->params, params);
        G->funcname_flag = 1;
        OpenFunction(scan, G);
        grow();
        CloseFunction(scan, G);
    }
};

} // namespace

TEST_CASE("the name in front of a parenthesis") {
    // clang-format off
    struct {
        int language;
        const char *line, *name; // null: no candidate
    } cases[] = {
        {kC, "int f$(void)\n", "f"},                        {kC, "f /* name */ $(int a)\n", "f"},
        {kC, "a&f$(b)\n", "f"},                             {kC, "int f \t\r$\n", "f"}, // its "(" comes on the next line
        {kC, "int $(*name(int a))(char b)\n", "name"},      {kC, "void $( * fp)(int);\n", "fp"},
        {kC, "void $(**fp)(int);\n", "fp"},                 {kC, "y = $(*p);\n", nullptr},
        {kC, "while $(x)\n", nullptr},                      {kC, "f>$(x)\n", nullptr},
        {kC, "operator$(x)\n", "operator"},                 {kCpp, "B A<T, int*>::f$(x)\n", "A<T,int*>::f"},
        {kC, "foo EXPORT $(int a)\n", nullptr},             {kC, "EXPORT foo EXPORT$\n", "foo"},
        {kCpp, "A ::f$(x)\n", "A::f"},                      {kCpp, "void A:: f$(x)\n", "A::f"},
        {kCpp, "A :: ~A$()\n", "A::~A"},                    {kCpp, "f<A<B>, C>$(x)\n", "f<A<B>,C>"},
        {kCpp, "A A::operator ()$(int x)\n", "A::operator ()"},
        {kCpp, "const A &A::operator =$(const A&)\n", "A::operator ="},
        {kCpp, "B<T> A<T, U> ::operator+$(const A&)\n", "A<T,U>::operator+"},
        {kCpp, "void *operator /* c */ new []$(size_t n)\n", "operator new[]"},
        {kCs, "void IFoo.Bar$(int x)\n", "IFoo.Bar"},       {kCs, "a[0]b$(x)\n", nullptr},
        {kC, "X *y->z*w->f$(int a)\n", "w->f"}, // a ">" without "<" brings more words
    };
    // clang-format on
    for (const auto &c : cases) {
        CAPTURE(std::string(c.line));
        Bench bench(c.language);
        AddMacro("EXPORT", 1, bench.G);
        bench.Find(c.line);
        CHECK(bench.G->funcname_flag == (c.name != nullptr));
        CHECK((!c.name || std::string(bench.G->funcname) == c.name));
    }
}

TEST_CASE("a name takes its namespace or its class") {
    struct {
        int language;
        const char *space, *classname, *line, *name;
    } cases[] = {
        {kCpp, "n", "", "f$(", "n::f"},        {kCpp, "n", "", "n::f$(", "n::f"}, {kCpp, "n", "", "A::f$(", "n::A::f"},
        {kCpp, "n", "n::A", "f$(", "n::A::f"}, {kCs, "n", "n.A", "f$(", "n.A.f"}, {kJava, "n.m", "", "f$(", "n.m.f"},
        {kCpp, " x", "A", "f$(", "f"},
    };
    for (const auto &c : cases) {
        CAPTURE(std::string(c.line));
        Bench bench(c.language);
        bench.G->namespace_flag = 1;
        bench.G->class_flag = *c.classname != '\0';
        CopyText(bench.G->namespace_name, c.space);
        CopyText(bench.G->classname, c.classname);
        bench.Find(c.line);
        CHECK(std::string(bench.G->funcname) == c.name);
    }
}

TEST_CASE_FIXTURE(Bench, "what an older candidate leaves") {
    Find("DECLARE_IT$(x)\n");
    CHECK(G->macro_like_name == 1);
    Find("Declare$(x)\n"); // not all upper case
    CHECK(G->macro_like_name == 0);
    Find("int F$(x)\n"); // not the first token
    CHECK(G->macro_like_name == 0);
    Find("x = 5 %$(x)\n"); // a refused name leaves the flags
    CHECK(G->funcname_flag == 1);
    Find("if $(x)\n"); // a word of the language drops them
    CHECK(G->funcname_flag == 0);
    G->instantiate_colon_flag = 1;
    Find("A::A(int a) : b$(a)\n");
    CHECK(G->funcname_flag == 0);
}

TEST_CASE_FIXTURE(Bench, "a file's extremes are those of its largest function") {
    Run("f", "(int a, int b)", [&] {
        G->file_loc = 5, G->local_if = 3;
        G->kr_flag = G->new_flag = 1;
    });
    Run("g", "()", [] {}); // smaller
    CHECK(G->intercmp_max == 7);
    CHECK(G->cyclo_max == 4);
    CHECK(G->func_loc_max == 6);
    CHECK(G->funcname_flag + G->function_scope + G->kr_flag + G->new_flag == 0);
}

TEST_CASE_FIXTURE(Bench, "the class, the enclosing classes or the namespace take a function's figures") {
    const auto line = [&] { ++G->file_loc; };
    AddNamespaceRecord("n", 1, G);
    AddClassRecord("A", nullptr, nullptr, 1, 0, 0, 0, G);
    Run("n::f", "()", line);
    Run("A<T>::operator std::string", "()", line);
    Run("A::operator std::string", "()", line);
    Run("Unseen::f", "()", line);
    CHECK(FindNamespace("n", G)->loc == 2);
    CHECK(FindClass("A", G)->loc == 4);
    CHECK(FindClass("Unseen", G)->functions == 1);
    G->class_flag = G->class_index = 1; // in the body the lines are the class's own already
    Run("A::B::f", "(int a)", line);
    CHECK(FindClass("A::B", G)->params == 1);
    CHECK((FindClass("A", G)->functions == 3 && FindClass("A", G)->loc == 4));
    G->class_index = 1000000000; // levels that no stack holds cost nothing
    Run("A::C", "()", line);
    for (const char *name : {"n::g", "n::A::g", "n:g", "g", "m::g"}) {
        FunctionData function{};
        function.name = const_cast<char *>(name);
        function.loc = 100;
        Add_Func2namespace(function, G);
    }
    CHECK(FindNamespace("n", G)->loc == 102);
}

TEST_CASE("no lines of a function where a table stands for them") {
    Bench bench;
    bench.SetMode(Mode::kCsv);
    bench.G->totals_only = 0;
    CopyText(bench.G->funcname, "f");
    CHECK(Written([&] { EmitFunction(bench.G); }) == "");
}

TEST_CASE_FIXTURE(Bench, "no text of a line leads a reader out of its bounds") {
    const std::string pieces = "(()*&<>::/*/ //operator r\t \r\n,{}a~_[=";
    unsigned seed = 1;
    const auto next = [&seed](size_t limit) { return (seed = seed * 1664525 + 1013904223) / 65536 % limit; };
    for (int round = 0; round < 4000; ++round) {
        std::string line;
        const size_t length = next(round % 50 == 0 ? 2047 : 40);
        while (line.size() < length) {
            line += next(13) == 0 ? "operator" : std::string(1, pieces[next(pieces.size())]);
        }
        line.resize(length);
        const std::unique_ptr<char[]> exact(new char[length + 1]); // its own block, so that a step too far is seen
        memcpy(exact.get(), line.c_str(), length + 1);
        GetFunction(exact.get(), static_cast<int>(next(length + 3)) - 1, G);
        CopyText(G->params, exact.get());
        packParams(G);
        CHECK(G->params[strlen(G->params) - 1] == ')');
    }
}
