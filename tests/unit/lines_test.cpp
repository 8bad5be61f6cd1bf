// What the masks say of a block, and the short way to the lines of a source.
#include "bench.h"

#include <algorithm>
#include <bit>
#include <random>

#include "line_ways.h"

namespace {

// Bytes at which something begins or ends, each as likely as the others, so that short texts hold every neighbourhood.
constexpr std::string_view kBytes = "\n\n\r\t  aforz09_/*\"'\\#;{}()[]<>=:?.,&|+-!%~@$^`\x01\x7f\x80\xff";
// Words that may be keywords and some that can't.
constexpr std::string_view kWords[] = {"if",  "do ",    "for(", "static_cast", "_exit", "return", "reset", "int",
                                       "If(", "RETURN", "get{", "d\xef",       "iff",   "x",      "case",  "9else"};

std::string RandomText(std::mt19937 &random, size_t count) {
    std::string text;
    while (text.size() < count) {
        text += random() % 8 ? std::string(1, kBytes[random() % kBytes.size()]) : kWords[random() % std::size(kWords)];
    }
    return text.substr(0, count);
}

std::vector<ByteMasks> Masks(Classifier classify, const std::string &block, size_t count) {
    std::vector<ByteMasks> masks(count / kMaskBytes + 2);
    classify(block.data() + 1, count, masks.data());
    return masks;
}

bool IsSame(const ByteMasks &a, const ByteMasks &b) {
    return a.feed == b.feed && a.tab == b.tab && a.visible == b.visible && a.event == b.event && a.token == b.token &&
           a.code == b.code && a.blank == b.blank && a.blanks_ahead == b.blanks_ahead && a.tabs_ahead == b.tabs_ahead;
}

} // namespace

TEST_CASE("every classifier finds the same bytes") {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const size_t count = random() % 300;
        std::string block = '\0' + RandomText(random, count) + std::string(kMaskBytes + kBytesBehind, '\0');
        for (const MaskUse use : {MaskUse::kLines, MaskUse::kCode}) {
            const Classifiers all = AllClassifiers(use);
            const std::vector<ByteMasks> plain = Masks(all.plain, block, count);
            for (const Classifier other : {all.sse2, all.avx2}) {
                if (other) {
                    const std::vector<ByteMasks> masks = Masks(other, block, count);
                    CHECK(std::equal(masks.begin(), masks.end(), plain.begin(), IsSame));
                }
            }
        }
    }
}

TEST_CASE("the bytes that the scanner looks at") {
    // no keyword behind ">", "-" or ".", none in capitals, and no word whose letters no keyword begins with; "--" and "..." are
    // looked at where they are doubled
    const std::string text = "x->if(Do, a--b) ...if FOR for1 int do( i\xc6 !$%x\n";
    const TextLine source(text);
    std::string looked_at;
    for (int i = 0; i < static_cast<int>(text.size()); ++i) {
        const ByteMasks &masks = source.masks[(source.line.origin + i) / kMaskBytes];
        const int bit = (source.line.origin + i) % static_cast<int>(kMaskBytes);
        looked_at += masks.code >> bit & 1 ? text[i] : ' ';
    }
    const TextLine wide(std::string(60, ' ') + "over_the_border;");
    CHECK(std::popcount(wide.masks[0].token) + std::popcount(wide.masks[1].token) == 2);
    CHECK(looked_at == "  >  (  ,   - )  ..       f        d (         ");
}

TEST_CASE("both ways to the lines of a source agree") {
    SourceBench bench;
    std::mt19937 random(11);
    constexpr const char *kPieces[] = {"//",
                                       "/*",
                                       "*/",
                                       "*/*",
                                       "/*/",
                                       "\\\n",
                                       "\n",
                                       "\n",
                                       " ",
                                       "\t",
                                       "for (",
                                       "for",
                                       "foreach(",
                                       "if (",
                                       ";",
                                       "{",
                                       "}",
                                       "(",
                                       ")",
                                       "{\n",
                                       "}\n",
                                       ")\n",
                                       "#region x",
                                       "#define A(b) ;",
                                       "# define B",
                                       "\n#",
                                       "\"",
                                       "'",
                                       "\\\"",
                                       "@\"\\\"",
                                       "\xef\xbb\xbf",
                                       "\r\n",
                                       "x",
                                       "y = 1",
                                       "} // z",
                                       "[",
                                       "]",
                                       "\x01"};
    LineWays ways;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (size_t pieces = random() % 40; pieces > 0; --pieces) {
            text += kPieces[random() % std::size(kPieces)];
        }
        if (round % 50 == 0) { // lines and states over the end of a block, and one that is too long
            text += std::string(round % 100 ? 2100 : 2000, 'w') + "\n" + std::string(70000 - random() % 3000, '\n') + text;
        }
        constexpr int kLanguages[] = {kC, kCpp, kJava, kCs, kOther};
        bench.Begin(kLanguages[random() % std::size(kLanguages)]);
        bench.G->record_line = nullptr;
        bench.G->function_metrics = 0;
        std::string difference;
        Written([&] { difference = ways.Differ(text.data(), text.size(), bench.G); });
        CHECK_MESSAGE(difference == "", text);
    }
    CHECK(ways.counted > 4000); // of 6000: most are no business of the scanner's
}
