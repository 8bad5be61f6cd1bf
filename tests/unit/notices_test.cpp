// Quality notices: who raises what, in which form it comes out, and what is remembered.
#include "bench.h"

#include "analysis/rules.h"
#include "notices/raise.h"

namespace {

// A state record at line 7 of a file, all notices on and wanted in their long forms.
struct Bench : StateBench {
    Bench() {
        G->head_written = 1;
        G->file_name = "a.cpp";
        G->file_line_no = 7;
        G->quality_notices = 1;
        G->function_metrics = 1;
        std::fill(std::begin(G->notice_enabled), std::end(G->notice_enabled), 1);
    }
};

// The numbers of the list, in order.
std::string Listed(const Globals *G) {
    std::string numbers;
    for (const NameData *entry : Records<NameData>(G->notice_list)) {
        numbers += std::to_string(entry->number) + " ";
    }
    return numbers;
}

} // namespace

TEST_CASE_FIXTURE(Bench, "what is off or skipped counts nothing") {
    G->notice_enabled[9] = 0;
    G->skip_quality_active = 1;
    Written([&] {
        NoticeAtLine(9, G);
        NoticeAtLine(8, G);
        CountTabNotices(3, G);
        NoticeStray(')', G); // not held back by a skip region
    });
    CHECK(G->notice_count == 1);
    CHECK(G->notice_cnt[12] == 1);
    G->skip_quality_active = 0;
    G->xml_mode = 1;
    CHECK(Has(Written([&] { Notice_MinFuncLloc(1, G); }), "1 is &lt;= to"));
}

TEST_CASE_FIXTURE(Bench, "the switches choose the form") {
    G->notice_short_format = G->totals_only = 1; // all of a -T run go through the short form
    CHECK(!TabNoticesArePrinted(G));
    CHECK(Written([&] { NoticeAtLine(9, G); }) == "");
    G->notices_by_file = 1;
    CHECK(TabNoticesArePrinted(G));
    G->notice_enabled[30] = 0;
    CHECK(!TabNoticesArePrinted(G));
    Written([&] { NoticeAtLine(8, G); }); // remembered only for a summary
    G->totals_notice_summary = 1;
    CHECK(Written([&] { NoticeAtLine(9, G); }) == "  Notice #   9: Line    7, 'goto' keyword identified\n");
    CHECK(Listed(G) == "9 ");
    CHECK(G->notice_cnt[9] == 2);
    CHECK(std::string(GetNoticeStr(101, G)) == "Unsupported");
}

TEST_CASE("assigned literals, on the line of the sign and behind it") {
    const struct {
        int language;
        std::string source;
        int raised;
    } cases[] = {
        // clang-format off
        {kC, "x = 5;\n", 1}, {kC, "x = 0;\n", 0}, {kC, "x = 0.0;\n", 0}, {kC, "x = 100;\n", 1}, {kC, "x = 00;\n", 0},
        {kC, "x = 0x1;\n", 1}, {kC, "x = 0.5;\n", 1}, {kC, "x = 0x0;\n", 0}, {kC, "x = 1e-999;\n", 0}, {kC, "x = a + 5;\n", 0}, {kC, "const int x = 5;\n", 0},
        {kC, "enum E { x = 5, y };\n", 0}, {kC, "x = /* five */5;\n", 1}, {kC, "x = (int) 5;\n", 1}, {kC, "x = (int) y;\n", 0},
        {kC, "const int x = (int) 5;\n", 1}, {kCpp, "class A { virtual int f() = 5; };\n", 0}, {kC, "x = y(5;\n", 0},
        {kCpp, "class A { virtual int f() = (int) 5; };\n", 0}, {kCpp, "x = static_cast<int>(5);\n", 1},
        {kC, "x = static_cast<int>(5);\n", 0}, {kCpp, "x = a > b;\n", 0}, {kC, "x = // five\n\n// five\n5;\n", 1},
        // clang-format on
    };
    for (const auto &c : cases) {
        CAPTURE(c.source);
        std::string split = c.source;
        split.replace(split.find("= ") + 1, 1, "\n");
        for (const std::string &source : {c.source, split}) {
            const SourceBench bench(c.language);
            bench.G->notice_enabled[50] = 1;
            bench.Feed(source);
            CHECK(bench.G->notice_cnt[50] == c.raised);
        }
    }
    const SourceBench bench;
    bench.G->notice_enabled[50] = bench.G->zero_is_literal = 1;
    bench.Feed("x = 0;\n");
    CHECK(bench.G->notice_cnt[50] == 1);
}

TEST_CASE("comments that say that a case goes on") {
    for (const std::string comment : {"// fall through", "/* drop through */", "// we fall thru", "// drop thru"}) {
        for (const char *instead : {"", "s", " "}) { // neither "falls through" nor "fall  through"
            CAPTURE(comment + instead);
            const SourceBench bench(kC);
            bench.G->notice_enabled[14] = 1;
            std::string told = comment;
            bench.Feed("void f() {\nswitch (a) {\ncase 1: " + told.insert(told.find(" thr"), instead) +
                       "\ncase 2: break;\ndefault: ;\n}\n}\n");
            CHECK(bench.G->notice_cnt[14] == (*instead != '\0'));
        }
    }
}

TEST_CASE("bodies without braces") {
    const struct {
        std::string source; // of a function
        int raised;
    } cases[] = {
        // clang-format off
        {"if (a)\nb();\n", 1}, {"if (a) b();\n", 1}, {"if (a) {\n}\n", 0}, {"if (a)\n{\n}\n", 0}, {"if (a)\nwhile (b) {\n}\n", 0},
        {"if (a)\nb(); /* { */\n", 1}, {"if (a\n&& b) {\n}\n", 0}, {"if (a\n&& b)\nc();\n", 1},
        {"do\nif (a)\n{\n}\nwhile (b);\n", 1}, {"do {\n} while (a) ;\n", 0}, {"do b(); while (a);\n", 1},
        {"else\nif (a) {\n}\n", 0}, {"else\nif\n(a) {\n}\n", 0}, {"else\nx = diff; if (a) {\n}\n", 0}, {"else\nx = diff;\n", 1}, {"else if (a) {\n}\n", 0},
        {"else b();\n", 1}, {"else {\n}\n", 0}, {"else\n/* a */ if (a) {\n}\n", 0},
        {"else\n*p = 1; if (a) {\n}\n", 0}, // nothing is tested at a star
        {"for (;;) {\n}\n", 0}, {"for (;;) ;\n", 1}, {"for (;;\n) {\n}\n", 0}, {"while (a)\nb();\n", 1},
        {"while (f(a)\n) {\n}\n", 0}, {"while (f(a))\n{\n}\n", 0}, {"f(a)\n;\n", 0},
        // clang-format on
    };
    for (const auto &c : cases) {
        CAPTURE(c.source);
        const SourceBench bench(kC);
        bench.G->notice_enabled[22] = 1;
        bench.Feed("void f() {\n" + c.source + "}\n");
        CHECK(bench.G->notice_cnt[22] == c.raised);
        CHECK(bench.G->scope_kind == 0);
    }
    const SourceBench bench(kC);
    bench.G->notice_enabled[22] = 1;
    bench.Feed("if (a)\nb();\n"); // at file level nothing is bound
    CHECK(bench.G->notice_cnt[22] == 0);
}

TEST_CASE("guards that belong to a notice") {
    static constexpr int Globals::*kDeclared[][2] = {{&Globals::const_flag, &Globals::ignore_public_const},
                                                     {&Globals::event_flag, &Globals::ignore_public_event},
                                                     {&Globals::delegate_flag, &Globals::ignore_public_delegate}};
    for (const auto &[declared, ignored] : kDeclared) {
        for (int mask = 0; mask < 4; ++mask) {
            Bench bench;
            bench.G->*declared = mask & 1;
            bench.G->*ignored = mask & 2;
            Written([&] { NoticeAtLine(35, bench.G); });
            CHECK(bench.G->notice_count == (mask != 3));
        }
    }
    Bench bench;
    bench.G->error_flag = bench.G->funcname_flag = bench.G->catch_flag = 1;
    CopyText(bench.G->funcname, "~Tree");
    CHECK(Written([&] {
              CPP_Symbol(7, "class", bench.G);
              NoticeAtLine(49, bench.G);
              EmitFriendClassNotice("friend class Tree;\n", 17, bench.G);
          }) == "");
    CHECK(bench.G->notice_cnt[15] == 1);
    CHECK(bench.G->funcname_flag == 0);
}
