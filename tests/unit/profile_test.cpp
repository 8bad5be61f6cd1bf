// Quality profile: what is summed, what is left out; and which headings are a definition inside a function.
#include "analysis/entities.h"
#include "analysis/local_definition.h"
#include "bench.h"
#include "report/project/quality_profile.h"
#include "run/records.h"

#include <vector>

TEST_CASE("local definitions") {
    struct Case {
        std::vector<const char *> lines; // the first from behind the keyword on
        int expected;                    // a definition; -1 while it may still become one
    };
    const StateBench bench;
    Globals *G = bench.G;
    G->function_scope = 1;
    G->funcname_flag = 1;
    G->file_line_no = 1;
    G->notice_enabled[33] = 1;
    CopyText(G->funcname, "f");
    const auto found = [G](const Case &c) {
        G->notice_cnt[33] = 0;
        FindLocalDefinition(1, c.lines[0], G);
        for (size_t i = 1; i < c.lines.size() && G->local_heading.line; ++i) {
            ContinueLocalHeading(c.lines[i], G);
        }
        return G->local_heading.line ? -1 : G->notice_cnt[33];
    };
    const Case cases[] = {
        {{" a { int x; } b;\n"}, 1},
        {{"{ int x; } b;\n"}, 1},
        {{" a\n"}, -1},
        {{"\n"}, -1},
        {{" a // ; later\n"}, -1},
        {{" a /* ; */ {\n"}, 1},
        {{" A : public B, C<D> {\n"}, 1},
        {{" A extends B<C>\n"}, -1},
        {{" A final {\n"}, 1},
        {{" Box<T<int>> {\n"}, 1},
        {{" __attribute__((packed)) a {\n"}, 1},
        {{" [[nodiscard]] A::B {\n"}, 1},
        {{" a;\n"}, 0},
        {{" a /* { */ b;\n"}, 0},
        {{" a b = { 1 };\n"}, 0},
        {{" a b{1};\n"}, 0},
        {{" a b[2] = {\n"}, 0},
        {{" a b : list) {\n"}, 0},
        {{" a *p = &q; if (p) {\n"}, 0},
        {{" a) > 3) {\n"}, 0},
        {{" A : public B; {\n"}, 0},
        {{" T>(T a) {\n"}, 0},
        {{" a f(int x) {\n"}, 0},
        {{" a\n", "*p = g();\n"}, 0},
        {{" a\n", "b;\n"}, 0},
        {{" a\n", "\n", "#if X\n", "{\n"}, 1},
        {{"\n", "a\n", "= {\n"}, 0},
        {{" pair<int,\n", "long> p;\n"}, 0},
        {{" pair<int,\n", "  vector<long>> {\n"}, 1},
        {{" A\n", ": public B,\n", "  private C, D *\n", "{\n"}, 1},
        {{" a\n", "), 3) {\n"}, 0},
        {{" a\n", ", 3) {\n"}, 0},
        {{" a\n", "(*q)(int); if (q) {\n"}, 0},
        {{" MARK a {\n"}, 0},
    };
    for (const Case &c : cases) {
        CAPTURE(c.lines[0]);
        CAPTURE(c.lines.back());
        CHECK(found(c) == c.expected);
    }
    AddMacro("MARK", 1, G);
    CHECK(found({{" MARK a {\n"}, 1}) == 1);
    CHECK(found({{" MARK\n", "a {\n"}, 1}) == 1);
    CHECK(found({{" MARK(())\n", "MARK {\n"}, 1}) == 1);
    CHECK(found({{" MARK\n", "a b = {\n"}, 0}) == 0);
    int Globals::*const kept_away[] = {&Globals::define_flag, &Globals::enum_flag, &Globals::is_cs};
    for (const auto flag : kept_away) {
        G->*flag = 1;
        CHECK(found({{" a {\n"}, 0}) == 0);
        G->*flag = 0;
    }
    G->function_scope = 0;
    CHECK(found({{" a {\n"}, 0}) == 0);
}

TEST_CASE("profile: sums and bases") {
    const StateBench bench;
    Globals *G = bench.G;
    G->notice_cnt[0] = 9; // belongs to no notice
    CHECK(Has(Written([&] { ShowQualityProfile(G); }), "            0  100.00  Total Quality Notices\n\n"));
    G->notice_cnt[9] = G->notice_cnt[10] = 2147483647;
    CHECK(Has(Written([&] { ShowQualityProfile(G); }), "2147483647  100.00  Total"));
}

TEST_CASE("notice summary: order of names, every mode") {
    const StateBench bench;
    Globals *G = bench.G;
    CHECK(Written([&] { ShowNoticeSummary(G); }).empty());
    G->head_written = G->sort_active = 1;
    for (const char *name : {"d/b&.c", "a,.c", "d/b&.c"}) {
        AddNameNode(name, 7, 22, &G->notice_list, G);
    }
    CHECK(Has(Written([&] { ShowNoticeSummary(G); }),
              "Notices: 3\n  a,.c - Notice #22: Line 7, if, else, for or while not bound by scope\n  d/b&.c - "));
    G->csv_mode = 1;
    CHECK(Has(Written([&] { ShowNoticeSummary(G); }), "\na .c, 22, 7, if, else, for or while not bound by scope\n"));
    G->html_mode = G->notice_vs_format = 1;
    CHECK(Has(Written([&] { ShowNoticeSummary(G); }), "\nd/b&amp;.c(7) : Notice #22 - if, else"));
}
