// The rewriters of tabs and line ends: a text in any pieces gives what it gives as a whole, and what the rules say line by line.
#include "bench.h"

#include <random>

#include "tools/decharacter.h"

namespace {

constexpr int kWidth = 3;

// The rules once more, line by line over a whole text, as plainly as they can be put.
std::string Plain(const std::string &text, char what) {
    std::string out;
    bool in_string = false;
    for (size_t begin = 0, next; begin < text.size(); begin = next) {
        next = text.find('\n', begin);
        next = next == std::string::npos ? text.size() : next + 1;
        std::string line = text.substr(begin, next - begin);
        if (what == 'u' && line.ends_with("\r\n")) {
            line.replace(line.size() - 2, 2, "\n");
        } else if (what == 'd' && line.ends_with('\n') && !Has(line, "\r")) {
            line.insert(line.size() - 1, "\r");
        }
        for (size_t i = 0; what == 't' && i < line.size(); ++i) {
            const bool escaped = i > 0 && line[i - 1] == '\\' && (i < 2 || line[i - 2] != '\\');
            in_string ^= line[i] == '"' && !escaped;
            out += line[i] == '\t' && !in_string ? std::string(kWidth, ' ') : std::string(1, line[i]);
        }
        out += what == 't' ? "" : line;
    }
    return out;
}

} // namespace

TEST_CASE("pieces give what the whole text gives") {
    std::mt19937 random(1);
    const std::string bytes("\t\"\\\r\na\0", 7);
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 24, ' ');
        for (char &c : text) {
            c = bytes[random() % bytes.size()];
        }
        std::string detabbed, unix_ends, dos_ends;
        TabWalk tabs{};
        LineEndWalk unix_walk{}, dos_walk{};
        for (size_t at = 0, size; at < text.size(); at += size) {
            size = random() % 4;
            const std::string_view piece = std::string_view(text).substr(at, size);
            Detab_line(piece, &detabbed, kWidth, &tabs);
            RemoveReturns(piece, &unix_ends, &unix_walk);
            AddReturns(piece, &dos_ends, &dos_walk);
        }
        unix_ends += unix_walk.held_cr ? "\r" : "";
        CAPTURE(text);
        REQUIRE(detabbed == Plain(text, 't'));
        REQUIRE(unix_ends == Plain(text, 'u'));
        REQUIRE(dos_ends == Plain(text, 'd'));
        REQUIRE(detabbed.size() == text.size() + (kWidth - 1) * tabs.tabs_replaced);
        REQUIRE(unix_ends.size() == text.size() - unix_walk.changed);
        REQUIRE(dos_ends.size() == text.size() + dos_walk.changed);
    }
    std::string out;
    TabWalk walk{};
    Detab_line("a\tb\t", &out, 0, &walk);
    CHECK(out == "ab");
}
