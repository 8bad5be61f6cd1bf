// The line scanner: what each line is taken for, and what it counts, across lines and languages.
#include <doctest/doctest.h>

#include <memory>
#include <string>

#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "files/source_reader.h"
#include "report/mode.h"
#include "run/globals.h"

#include <unistd.h>

namespace {

struct FreeRecord {
    void operator()(Globals *G) const { free(G); }
};

// A state record on which texts are scanned as files of a language.
struct Bench {
    std::unique_ptr<Globals, FreeRecord> record{static_cast<Globals *>(calloc(1, sizeof(Globals)))};
    Globals *G = record.get();

    Bench() {
        G->is_c = 1;
        G->tab_width = 2;
        G->diff_ignore_blank = 0;
        G->work_deterministic = 1;
        G->file_name = "bench";
        ResetState(G);
    }

    // Feeds the text through a real file, as a run does. Returns one letter per line that ParseLine saw, "." for a line without
    // one.
    std::string Scan(const std::string &text) {
        char path[] = "/tmp/tly_scan_XXXXXX";
        const int fd = mkstemp(path);
        REQUIRE(write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size()));
        close(fd);
        std::string letters;
        auto reader = std::make_unique<SourceReader>();
        REQUIRE(OpenSource(reader.get(), path));
        int length;
        for (Piece piece; (piece = NextPiece(reader.get(), G->line_buffer, &length)) != Piece::kEnd;) {
            if (piece == Piece::kTooLong) {
                letters += '!';
                continue;
            }
            ++G->file_line_no;
            char *shown = nullptr;
            size_t size = 0;
            gTLYOUT = open_memstream(&shown, &size);
            ParseLine(length, G->file_line_no, G);
            fclose(gTLYOUT);
            const char *row = strstr(shown, " |  ");
            letters += row ? row[4] : '.';
            free(shown);
        }
        CloseSource(reader.get());
        unlink(path);
        gTLYOUT = stdout;
        return letters;
    }
};

} // namespace

TEST_CASE("every line gets the letter of what is on it") {
    struct {
        const char *text;
        const char *letters;
    } cases[] = {
        {"int a;\n", "G"},
        {"int f(void)\n{\n}\n", "LNN"},
        {"\n \t\r\n\xc3\xa9\xc3\xa9\n \xc3\xa9\n", "BBBB"}, // bytes with the high bit set are no print
        {"x = a / b;\n/\n", "G."},                          // a lone "/" is nothing at all
        {"/* a */ x = 1; // b\n", "g"},
        {"/* a\n\n b */\n*/ x;\n", "CBCG"}, // the second "*/" closes nothing and is code
        {"/*/ still comment */\ny\n", "CL"},
        {"/* a\nb */ z\n", "Cl"},
        {"/**/\n", "C"},
        {"}\n};\n} // end\n{ /* open\n", "NNnn"},
        {"} else {\n);\n(\n) /* c */ ; // d\n", "LNNn"},
        {"{ x\n}}\n", "LL"},
        {"char *s = \"/* no comment\";\nx\n", "GL"},
        {"'\"' x /* c\n*/\n", "lC"}, // a quote in a character literal opens no string
        {"\"'\" x /* c\n*/\n", "lC"},
        {"\"a\\\\\" /* c\n*/\n", "lC"}, // a run of two backslashes escapes each other
        {"\"a\\\" /* c\nx\n", "LL"},
        {"s = @\"\\\"; // c\n", "g"}, // the whole literal @"\"
        {"// a \\\nb\nc\n", "CCL"},
        {"// a \\ \t\nb \\\n\nc\n", "CCCL"}, // blank, but inside the comment,
        {"// a \\\r\r\nb\n", "CC"},
        {"a *// b;\n", "G"},                  // "*/" in code: its "/" opens no comment
        {"/* a */* b\nc */\n", "CC"},         // "*/*" closes and opens again
        {"\"open\n// text\n\" end\n", "LLL"}, // an even count of quotes on the next line ends the literal there
        {"\"open\nb\" c \"d\ne\n", "LLL"},
        {"\"a \\\n/\n/ // c\n\"\n", "L.LL"},      // in an open string "/" is no code and "//" no comment
        {"it's\n// hidden\n'/* c\n*/\n", "LLlC"}, // a lone ' hides everything up to the next
        {"#region Don't\nx; // c\n#  region it's /* no\nx;\n", "LgLG"},
        {"#regional Don't\nx; // c\n", "LL"},
        {"x\x01;\n\x7f\n\v\n", "GLB"},
        {"int a; // no line end", "g"},
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        CHECK(Bench().Scan(c.text) == c.letters);
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
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        Bench bench;
        bench.Scan(c.text);
        CHECK(bench.G->semicolon_count - bench.G->for_count == c.lloc);
        CHECK(bench.G->open_braces - bench.G->closebrace_count == c.braces);
        CHECK(bench.G->string_count == c.strings);
    }
}

TEST_CASE("allocation words: what stands ahead, what closes, and no C++ in C") {
    const char *text = "p = malloc (1); q = calloc(1); (malloc(2)); alloc x; free(p); !free(q);\n"
                       "new T; f(new T); =new(T) delete[] p; delete p;} new\n";
    Bench c;
    c.Scan(text);
    CHECK(c.G->alloc_count == 2);
    CHECK(c.G->free_count == 1);
    CHECK(c.G->new_count == 0);
    Bench cpp;
    cpp.G->is_c = 0;
    cpp.G->is_cpp = 1;
    cpp.Scan(text);
    CHECK(cpp.G->new_count == 3);
    CHECK(cpp.G->delete_count == 2);
}

TEST_CASE("files of the other language have lines and literals, no constructs") {
    Bench bench;
    bench.G->is_c = 0;
    bench.G->is_other = 1;
    CHECK(bench.Scan("a; { for (;;)\n{\n/* ; */\n\"/*\"\n#region don't\nx // c\n") == "LLCLLL");
    CHECK(bench.G->semicolon_count == 0);
    CHECK(bench.G->open_braces == 0);
    CHECK(bench.G->just_brace_count == 0);
}

TEST_CASE("white space and characters, in every state, without line ends") {
    Bench bench;
    bench.Scan(" a\tb \"c d\t\" // e f\r\n" + std::string(40, ' ') + std::string(20, '\t') + "x\n#region a b c\n");
    CHECK(bench.G->file_white == 6 + 4 + 40 + 40);
    CHECK(bench.G->file_chars == 18 + 61 + 13);
    Bench tabs;
    tabs.G->notice_enabled[30] = 1;
    tabs.Scan("# \tpragma A \"b \\\n\t\t\\\n\t\\\n \"\tc\n"); // only the last tab is a notice: it is no literal's, no "#"'s
    CHECK(tabs.G->file_white == 3 + 4 + 2 + 3);
    CHECK(tabs.G->notice_cnt[30] == 1);
}

TEST_CASE("lines are read as pieces of at most 2047 bytes") {
    const std::string most(2046, 'a');
    CHECK(Bench().Scan(most + "\nb\n") == "LL");
    CHECK(Bench().Scan(most + "a\nb\n") == "!BL"); // its line feed comes as a line of its own
    CHECK(Bench().Scan(most + "abc;\nd\n") == "!GL");
    CHECK(Bench().Scan(most + "a") == "!");
    CHECK(Bench().Scan("\xef\xbb\xbf/* bom */\n\xff\xffint a;\n") == "CG");
    CHECK(Bench().Scan("\xef\xbb\xbf") == "");
    CHECK(Bench().Scan(std::string("a\0; lost\nb;\n", 12)) == "LG"); // a NUL ends its line
    CHECK(Bench().Scan(std::string("\0\nb;\n", 5)) == "BG");
    CHECK(Bench().Scan("a\n\t") == "LB");
    CHECK(Bench().Scan("a\n\v") == "L");
    CHECK(Bench().Scan(std::string("a\n\0b", 4)) == "L");
    CHECK(Bench().Scan("a\n\f") == "LB");
    std::string big;
    for (int i = 0; i < 40000; ++i) {
        big += std::string(i % 37, ' ') + "x;\n"; // lines across the borders of blocks
    }
    CHECK(Bench().Scan(big) == std::string(40000, 'G'));
}

TEST_CASE("behind a file exactly its own state is gone") {
    Bench bench;
    Globals *G = bench.G;
    memset(static_cast<void *>(G), 0x55, sizeof *G);
    const std::string before(reinterpret_cast<const char *>(G), sizeof *G);
    ResetState(G);
    const std::string after(reinterpret_cast<const char *>(G), sizeof *G);
    const size_t begin = reinterpret_cast<char *>(static_cast<PerFile *>(G)) - reinterpret_cast<char *>(G);
    CHECK(before.substr(0, begin) == after.substr(0, begin));
    CHECK(before.substr(begin + sizeof(PerFile)) == after.substr(begin + sizeof(PerFile)));
    CHECK(G->file_loc == 0);
    CHECK(G->string_flag == 0);
    CHECK(G->comment_star_index == -1);
    CHECK(G->fp_lloc == 0.0);
}

TEST_CASE("every counter of a file reaches the project, file by file") {
    Bench bench;
    Globals *G = bench.G;
    for (int file = 1; file <= 3; ++file) {
        memset(static_cast<void *>(static_cast<FileCounters *>(G)), 0, sizeof(FileCounters));
        G->file_loc = 10 * file;
        G->delete_count = file;
        G->skipped_lines = 1;
        G->just_brace_count = 2;
        G->fp_eloc = 0.5;
        G->is_c = file != 2;
        G->is_c_header = file == 3;
        AddTotal(G);
        ResetState(G);
    }
    CHECK(G->language_sums[kCGroup].eloc == 8);
    CHECK(G->language_sums[kOtherGroup].loc == 20);
    CHECK(G->language_sums[kHeaderGroup].loc == 30); // a header, whatever it is read as
    SetTotal(G);
    CHECK(G->file_loc == 60);
    CHECK(G->delete_count == 6);
    CHECK(G->skipped_lines == 3);
    CHECK(G->fp_eloc == doctest::Approx(1.5));
}
