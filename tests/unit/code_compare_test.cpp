// Line comparison: the longest common sequence against a full matrix with a plain list.
#include "bench.h"

#include <climits>
#include <cmath>
#include <random>
#include <vector>

#include "baseline/code_compare.h"
#include "baseline/compare_listing.h"
#include "baseline/lcs.h"

using Lines = std::vector<DiffData>;

static DiffDataList ListOf(Lines &lines) {
    return {lines.data(), static_cast<int>(lines.size()), static_cast<int>(lines.size())};
}

// A line per letter, numbered 10, 20, 30 ...; the letter is its code and its type is 'L'.
static Lines Letters(const char *letters) {
    Lines lines;
    for (; *letters; ++letters) {
        lines.push_back({static_cast<double>(*letters), 10 * static_cast<int>(lines.size() + 1), 'L'});
    }
    return lines;
}

// A comparison done the plain way.
struct Plain {
    std::vector<DiffLine> listing;
    int counts[kLineOperations][kLineKinds] = {};
    int descending = 0;

    void Report(const DiffLine &line) {
        const size_t kind = std::string("LNGCB").find(static_cast<char>(toupper(line.type)));
        int *of = counts[std::string("+=-").find(line.operation)];
        if (kind != std::string::npos && line.type != 'c' && line.type != 'b') {
            ++of[kind];
            of[kLineC] += line.type >= 'a';
        }
        auto at = listing.begin();
        const auto stands_behind = [&](const DiffLine &there) {
            const int64_t key = line.operation == '-' ? line.hist_line : line.pres_line;
            const int64_t other = line.operation == '-' ? there.hist_line : there.pres_line;
            return descending ? other <= key : other >= key;
        };
        while (at != listing.end() && !stands_behind(*at)) {
            ++at;
        }
        listing.insert(at, line);
    }

    void Pass(DiffLines hist, DiffLines pres) {
        const size_t rows = hist.size(), columns = pres.size();
        std::vector<std::vector<int>> lcs(rows + 1, std::vector<int>(columns + 1, 0));
        for (size_t r = rows; r-- > 0;) {
            for (size_t c = columns; c-- > 0;) {
                const bool equal = hist[r].type == pres[c].type && hist[r].code == pres[c].code;
                lcs[r][c] = equal ? lcs[r + 1][c + 1] + 1 : std::max(lcs[r + 1][c], lcs[r][c + 1]);
            }
        }
        size_t i = 0, j = 0;
        while (i < rows && j < columns) {
            if (hist[i].type == pres[j].type && hist[i].code == pres[j].code) {
                Report({hist[i].line, pres[j].line, '=', hist[i].type});
                ++i, ++j;
            } else if (lcs[i + 1][j] < lcs[i][j + 1]) {
                Report({hist[i].line, pres[j].line, '+', pres[j].type});
                ++j;
            } else {
                Report({hist[i].line, pres[j].line, '-', hist[i].type});
                ++i;
            }
        }
        for (; j < columns; ++j) {
            Report({0, pres[j].line, '+', pres[j].type});
        }
        for (; i < rows; ++i) {
            Report({hist[i].line, 0, '-', hist[i].type});
        }
    }

    void Compare(DiffLines hist, DiffLines pres, size_t most) {
        while (hist.size() >= most && pres.size() >= most) {
            Pass(hist.last(most), pres.last(most));
            hist = hist.first(hist.size() - most);
            pres = pres.first(pres.size() - most);
        }
        Pass(hist, pres);
    }

    std::string Text() const {
        std::string text;
        for (const DiffLine &line : listing) {
            const std::string hist = line.operation == '+' ? "" : std::to_string(line.hist_line);
            const std::string pres = line.operation == '-' ? "" : std::to_string(line.pres_line);
            char shown[80];
            FormatText(shown, "  %11s     %c     %c     %-11s\n", hist.c_str(), line.operation, line.type, pres.c_str());
            text += shown;
        }
        return text;
    }
};

struct CompareBench : StateBench {
    CompareBench() {
        G->diff_show_details = G->show_equal_lines = G->show_removed_lines = G->show_added_lines = 1;
        G->max_lcs_file_lines = 7000;
    }

    void CheckAgainst(const Plain &plain, const std::string &text) const {
        CHECK(text == plain.Text());
        CHECK(memcmp(G->line_counts, plain.counts, sizeof plain.counts) == 0);
    }

    // The body of a listing, one line after the other, without its padding.
    std::string Squeezed(const std::string &text) const {
        std::string squeezed;
        for (const char c : text.substr(text.rfind("Line Number\n") + 12)) {
            if (c != ' ' || (!squeezed.empty() && squeezed.back() != ' ' && squeezed.back() != '\n')) {
                squeezed += c;
            }
        }
        return squeezed.substr(0, squeezed.find("---"));
    }
};

static Lines RandomLines(std::mt19937 &random, size_t count, int codes, bool wild) {
    static const double kOdd[] = {NAN, -0.0, 0.0, INFINITY};
    Lines lines;
    int32_t number = 0;
    for (size_t i = 0; i < count; ++i) {
        number += 1 + static_cast<int>(random() % 3);
        const int32_t shown = !wild          ? number
                              : random() % 8 ? static_cast<int32_t>(random() % 9) - 4
                              : random() % 2 ? INT_MIN
                                             : INT_MAX;
        const auto pick = static_cast<unsigned>(random() % codes);
        const double code = wild && random() % 4 == 0 ? kOdd[random() % 4] : 1.0 + pick / 3.0;
        lines.push_back({code, shown, random() % 8 ? "LlNnGgCBx\xff"[pick % 10] : 'L'});
    }
    return lines;
}

TEST_CASE("counters and listing are those of the full matrix") {
    const CompareBench bench;
    std::mt19937 random(7);
    for (int round = 0; round < 4000; ++round) {
        const bool wild = round % 4 == 0;
        const int codes = 1 + static_cast<int>(random() % 10);
        Lines hist = RandomLines(random, random() % 16, codes, wild), pres = RandomLines(random, random() % 16, codes, wild);
        if (round % 3 == 0) { // a version of the other one: equal at its ends
            pres = hist;
            const Lines other = RandomLines(random, random() % 3, codes, wild);
            const auto at = pres.begin() + static_cast<long>(random() % (pres.size() + 1));
            pres.erase(at, at + static_cast<long>(random() % (static_cast<size_t>(pres.end() - at) + 1)));
            pres.insert(pres.begin() + static_cast<long>(random() % (pres.size() + 1)), other.begin(), other.end());
        }
        bench.G->max_lcs_file_lines = 1 + static_cast<int>(random() % 17);
        bench.G->sort_descending = round & 1;
        Plain plain;
        plain.descending = round & 1;
        plain.Compare(hist, pres, bench.G->max_lcs_file_lines);
        const std::string text = Written([&] { REQUIRE(CompareCodeLCS("f", ListOf(hist), ListOf(pres), bench.G) == 1); });
        const size_t begin = text.rfind("Line Number\n") + 12;
        bench.CheckAgainst(plain, text.substr(begin, text.rfind("  ---") - begin));
        bench.G->diff_show_details = 0;
        plain.listing.clear(); // without one the counters are the same
        bench.CheckAgainst(plain, Written([&] { CompareCodeLCS("f", ListOf(hist), ListOf(pres), bench.G); }));
        bench.G->diff_show_details = 1;
    }
}

TEST_CASE("rows of many words, and a matrix that keeps only some of its rows") {
    const CompareBench bench;
    std::mt19937 random(11);
    for (int round = 0; round < 60; ++round) {
        const int kCodes[] = {1 + round % 2, 60, 2000}; // classes of many lines, of a few, and lines without a match
        const int codes = kCodes[round % 3];
        const Lines hist = RandomLines(random, random() % 300, codes, false),
                    pres = RandomLines(random, random() % 300, codes, false);
        Plain plain;
        plain.Pass(hist, pres);
        for (const size_t memory : {size_t{0}, kLcsMemory}) {
            LcsMatrix matrix{};
            DiffListing listing;
            memset(bench.G->line_counts, 0, sizeof bench.G->line_counts);
            REQUIRE(lcsDiffData(hist, pres, memory, &matrix));
            CHECK((matrix.every > 1) == (memory == 0 && !hist.empty() && !pres.empty()));
            REQUIRE(OpenDiffListing(&listing, hist.size() + pres.size(), 0, &matrix.bytes));
            bench.CheckAgainst(plain, Written([&] {
                                   lcsSequence(&matrix, &listing, bench.G);
                                   ShowDiffListing(&listing, bench.G);
                               }));
        }
    }
}

TEST_CASE("a long listing comes out in the order of insertion, whatever order its lines arrive in") {
    const CompareBench bench;
    std::mt19937 random(13);
    for (const int order : {0, 1, 2}) {
        DiffListing listing;
        double bytes = 0.0;
        REQUIRE(OpenDiffListing(&listing, 1500, 0, &bytes));
        Plain plain;
        for (int i = 0; i < 1500; ++i) {
            const int number = order == 0 ? i : order == 1 ? -i : static_cast<int>(random() % 1000);
            const DiffLine line{number, number - static_cast<int>(random() % 5), "=+-"[random() % 3], 'L'};
            plain.Report(line);
            AddDiffLine(&listing, line);
        }
        CHECK(Written([&] { ShowDiffListing(&listing, bench.G); }) == plain.Text());
    }
}

TEST_CASE("the listing in its modes") {
    const CompareBench bench;
    CopyText(bench.G->html_equal_code_diff_color, "g\"n");
    Lines hist = Letters("ab"), pres = Letters("ac");
    pres[1].type = '<';
    const auto compare = [&](Mode mode) {
        bench.SetMode(mode);
        return Written([&] { CompareCodeLCS("a<,b", ListOf(hist), ListOf(pres), bench.G); });
    };
    const std::string rule = "  ------------------------------------\n\n";
    const std::string columns = "  Older                       Newer\n  ----------------------------------------\n"
                                "  Line Number    Diff  Type   Line Number\n";
    CHECK(compare(Mode::kText) == "  File: a<,b\n" + columns +
                                      "           10     =     L     10         \n"
                                      "                  +     <     20         \n"
                                      "           20     -     L                \n" +
                                      rule);
    CHECK(compare(Mode::kCsv)
              .starts_with("File: a< b\nOlder, , ,Newer\nLine Number,Diff,Type,Line Number\n"
                           "         10,=,L,10         \n"));
    CHECK(Has(compare(Mode::kHtml), "  <b>Line Number    Diff  Type   Line Number</b>\n"
                                    "<b><font color=\"g&quot;n\">           10     =     L     10         \n</font></b>"
                                    "<b><font color=\"\">                  +     &lt;     20         \n</font></b>"));
    CHECK(Has(compare(Mode::kXml), "\n                  +     &lt;     20         \n"));

    // Hidden lines, and no difference.
    pres = hist;
    bench.G->show_removed_lines = bench.G->show_added_lines = 0;
    CHECK_FALSE(Has(compare(Mode::kText), "Equivalent"));
    bench.G->show_equal_lines = 0;
    CHECK(compare(Mode::kText) == "  File: a<,b\n" + columns + "       *** File is Equivalent ***\n" + rule);
    pres[0].type = 'l';
    CHECK(compare(Mode::kText) == "  File: a<,b\n" + columns + rule);
    bench.G->diff_show_details = 0;
    CHECK(compare(Mode::kText).empty());
}

TEST_CASE("debug output") {
    const CompareBench bench;
    bench.G->diff_show_details = 0;
    bench.G->diff_debug = 1;
    bench.G->max_lcs_file_lines = 2;
    Lines hist = Letters("xab"), pres = Letters("ba");
    const auto compare = [&] { return Written([&] { CompareCodeLCS("f", ListOf(hist), ListOf(pres), bench.G); }); };
    const std::string counts = "\nMod L1 N0 G0 C0 B0\nEq  L1 N0 G0 C0 B0\nRm  L";
    CHECK(compare() == "**** Hlist count 3\n**** Plist count 2\n**** Segment: 1\n**** hstart: 2\n**** hstop: 0\n"
                       "**** pstart: 1\n**** pstop: -1\n"
                       "\nshow_d2IA 3,3\n0 | 1      1      0      \n1 | 1      0      0      \n2 | 0      0      0      \n"
                       "**** Remainder\n\nshow_d2IA 2,1\n0 | 0      \n1 | 0      \n" +
                           counts + "2 N0 G0 C0 B0\n");
    hist = Letters("a");
    CHECK(compare() == "**** Hlist count 1\n**** Plist count 2\n**** No Increments \n"
                       "\nshow_d2IA 2,3\n0 | 1      1      0      \n1 | 0      0      0      \n" +
                           counts + "0 N0 G0 C0 B0\n");
}
