// The line scanner: what each line is taken for, and what it counts, across lines and languages.
#include "bench.h"

#include <climits>

#include "analysis/line_code.h"

namespace {

struct Bench : SourceBench {
    Bench()
        : SourceBench(kC) {}
};

} // namespace

TEST_CASE("every line gets the letter of what is on it") {
    struct {
        const char *text;
        const char *letters;
    } cases[] = {{"int f(void)\n{\n}\n", "LNN"},
                 {"/* a\nb */ z\n", "Cl"},
                 {"/**/\n", "C"},
                 {"} else {\n);\n(\n) /* c */ ; // d\n", "LNNn"},
                 {"{ x\n}}\n\v{\n", "LLL"},
                 {"\"'\" x /* c\n*/\n", "lC"},
                 {"// a \\\nb\nc\n", "CCL"},
                 {"// a \\ \t\nb \\\n\nc\n", "CCCL"}, // blank, but inside the comment,
                 {"// a \\\r\r\nb\n", "CC"},
                 {"\"open\n// text\n\" end\n", "LLL"}, // an even count of quotes on the next line ends the literal there
                 {"\"open\nb\" c \"d\ne\n", "LLL"},
                 {"\"a \\\n/\n/ // c\n\"\n", "L.LL"}, // in an open string "/" is no code and "//" no comment
                 {"x\x01;\n\x7f\n\v\n", "GLB"},
                 {"int a; // no line end", "g"}};
    for (const auto &c : cases) {
        CAPTURE(c.text);
        CHECK(Bench().Feed(c.text) == c.letters);
    }
}

TEST_CASE("statements and keywords count only as code") {
    struct {
        const char *text;
        int lloc, braces, strings;
    } cases[] = {
        {"for (;;) x();\n", 2, 0, 0},
        {"foreach (a) b; ;for(;;);\n", 3, 0, 0},
        {"xfor (;;); (for (;;)); for_ (;); forx(;);\n", 10, 0, 0}, // not behind a letter or "(", not part of a longer name
        {"\";{\" ';' /* ;{ */ // ;\n;\n", 1, 0, 1},
        {"for // c\n(;;);\nfor /* c */ (;;);\nfor\n(;;);", 6, 0, 0},
        {"{ { }\n", 0, 1, 0},
        {"} } {\n", 0, 1, 0}, // a "}" too many is forgotten
        {"\"a\" \"b\\\"c\" \"d\n", 0, 0, 2},
        {"@\"\\\"; \"@\"\\\";\n", 2, 0, 3}, // the backslash of @"\" escapes nothing
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        Bench bench;
        bench.Feed(c.text);
        CHECK(bench.G->semicolon_count - bench.G->for_count == c.lloc);
        CHECK(bench.G->open_braces - bench.G->closebrace_count == c.braces);
        CHECK(bench.G->string_count == c.strings);
    }
}

TEST_CASE_FIXTURE(Bench, "files of the other language have lines and literals, no constructs") {
    Begin(kOther);
    CHECK(Feed("a; { for (;;)\n{\n/* ; */\n\"/*\"\n#region don't\nx // c\n") == "LLCLLL");
    CHECK(G->semicolon_count + G->open_braces + G->just_brace_count == 0);
}

TEST_CASE_FIXTURE(Bench, "white space and characters, in every state, without line ends") {
    Feed(" a\tb \"c d\t\" // e f\r\n" + std::string(40, ' ') + std::string(20, '\t') + "x\n#region a b c\n");
    CHECK(G->file_white == 6 + 4 + 40 + 40);
    CHECK(G->file_chars == 18 + 61 + 13);
    Bench tabs;
    tabs.G->notice_enabled[30] = 1;
    tabs.Feed("# \tpragma A \"b \\\n\t\t\\\n\t\\\n \"\tc\n"); // only the last tab is a notice: it is no literal's, no "#"'s
    CHECK(tabs.G->file_white == 3 + 4 + 2 + 3);
    CHECK(tabs.G->notice_cnt[30] == 1);
    tabs.Feed("\"a\tb\"\tc\n");
    CHECK(tabs.G->notice_cnt[30] == 2);
    tabs.G->notices_by_file = 1; // they print, each in its place
    Written([&] { tabs.Feed("x;\ty;\nz =\n\ta;\n"); });
    CHECK(tabs.G->notice_cnt[30] == 4);
    Bench others; // what is no line, or no longer one, has no white space
    const std::string odd = "a b" + std::string("\0 c \t\n", 6) + std::string(2500, ' ') + "x\n \n\x01  ";
    CHECK(Has(Written([&] { CHECK(others.Feed(odd) == "LLB"); }), "Text line 1 length greater than 2048 characters"));
    CHECK(others.G->file_white == 1 + (2500 - kMaxPiece) + 1);
    Written([&] { others.Feed(std::string(kMaxPiece - 1, 'x') + "\\\"a\";\n"); }); // a piece is no part of the next one
    CHECK(others.G->string_count == 1);
    others.Feed("int fun\n(int a)\n{\n}\n" + std::string(1, '\0') + "\n"); // among them a line that is still asked for
    CHECK(others.Functions() == "fun(int a) l2\n");
    for (const int blanks : {62, 63, 64, 127, 128}) { // up to the border of 64 bytes, and over it
        Bench border;
        border.Feed("\t" + std::string(blanks - 1, ' ') + "\n");
        CHECK(border.G->file_white == 2 + blanks - 1);
    }
    const Bench last; // a class asks for the white ahead of the last blank, which no line feed follows
    last.Feed("struct f ");
    CHECK(last.G->file_white == 2);
}

TEST_CASE_FIXTURE(Bench, "blank lines and comments end what a line of code ends, and raise its notices") {
    G->record_line = nullptr; // so that nothing is wanted of them
    Feed("#define A \\\n\nvoid f(int a)\n{\n}\n#define B \\\n// c\nvoid g(int a)\n{\n}\n#define C /* \\\n\n */ void h(int "
         "a)\n{\n}\n");
    CHECK(Functions() == "f(int a) l2\ng(int a) l2\nh(int a) l2\n");
    CHECK(G->continuation_count == 3);
    Feed("/* a\nb \\\n c */\n// d \\\nx\n");
    CHECK(G->continuation_count == 3 + 2);
    G->notice_enabled[1] = 1;
    G->max_line_length = 20;
    Feed("/*\n" + std::string(30, 'x') + "\n*/\n// " + std::string(30, 'x') + "\n" + std::string(30, ' ') + "\n");
    CHECK(G->notice_cnt[1] == 3);
}

TEST_CASE("lines across the borders of blocks") {
    std::string big;
    for (int i = 0; i < 40000; ++i) {
        big += std::string(i % 37, ' ') + "x;\n";
    }
    const Bench bench;
    CHECK(bench.Feed(big) == std::string(40000, 'G'));
    CHECK(bench.G->file_white == std::count(big.begin(), big.end(), ' '));

    // a name is the last line of a block, its "(" the first character of the next one
    std::string heads;
    while (heads.size() < 3 * SourceReader::kBlock) {
        heads += "int f\n(int a)\n{\n}\n";
        heads += std::string(SourceReader::kBlock - (heads.size() + 6) % SourceReader::kBlock, '\n');
    }
    const Bench functions;
    functions.Feed(heads);
    CHECK(functions.Functions() == "f(int a) l2\nf(int a) l2\nf(int a) l2\nf(int a) l2\n");
}

TEST_CASE("behind a file exactly its own state is gone") {
    const std::unique_ptr<Globals, void (*)(void *)> record(static_cast<Globals *>(malloc(sizeof(Globals))), free);
    Globals *G = record.get();
    memset(static_cast<void *>(G), 0x55, sizeof *G);
    G->udqn_chosen = 0; // rules keep a state of their own, which goes where one has run
    const std::string before(reinterpret_cast<const char *>(G), sizeof *G);
    ResetState(G);
    std::string after(reinterpret_cast<const char *>(G), sizeof *G);
    for (const char *text : {G->funcname, G->params, G->func_template_text, G->func_first_line, G->template_line}) {
        CHECK(*text == '\0');
        after[text - reinterpret_cast<const char *>(G)] = 0x55;
    }
    const size_t begin = reinterpret_cast<char *>(static_cast<PerFile *>(G)) - reinterpret_cast<char *>(G);
    CHECK(before.substr(0, begin) == after.substr(0, begin));
    CHECK(before.substr(begin + sizeof(PerFile)) == after.substr(begin + sizeof(PerFile)));
    CHECK(G->file_loc == 0);
    CHECK(G->string_flag == 0);
    CHECK(G->comment_star_index == -1);
    CHECK(G->fp_lloc == 0.0);
}

TEST_CASE_FIXTURE(Bench, "a project may hold more characters than an int counts") {
    G->file_chars = INT_MAX - 2;
    Feed("int a;\n");
    CHECK(G->file_chars == INT_MAX);
    AddTotal(G);
    G->file_chars = 1;
    AddTotal(G);
    CHECK(G->total.file_chars == INT_MAX);
}

TEST_CASE_FIXTURE(Bench, "the code of a line: which bytes count, each divided by its place") {
    const std::pair<const char *, double> codes[] = {
        {"\x1f!\n", 33}, {"\v!", 11 + 33.0 / 2}, {"\x80!", 33}, {" !", 32 + 33.0 / 2}, {"", 0}};
    for (const auto &[line, code] : codes) {
        CHECK(LineCode(line, G) == code);
    }
    G->diff_ignore_white = 1;
    CHECK(LineCode(" !\t", G) == 33);
}
