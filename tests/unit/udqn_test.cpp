// User rules: how a line of the rule file is read, when a rule fires, and that a costly pattern ends.
#include <functional>
#include <random>
#include <vector>

#include "analysis/roll_up.h"
#include "bench.h"
#include "notices/raise.h"
#include "notices/udqn.h"

namespace {

struct Rules : StateBench {
    explicit Rules(const char *text) {
        G->head_written = 1;
        G->names_case_sensitive = 1;
        G->file_name = "a.c";
        Read(text);
    }
    void Read(const std::string &text) {
        for (size_t at = 0, end; at < text.size(); at = end + 1) {
            end = std::min(text.find('\n', at), text.size());
            parse_udqn_line(text.substr(at, end - at).c_str(), G, G);
        }
    }
    const Udqn *Get(int id) { return get_udqn_ptr(id, &G->udqn_list); }
    int Count(int id) { return Get(id)->count; }
};

std::string Rule(int id, const char *rest) {
    return "UDQN Begin:\nudqn id: " + std::to_string(id) + "\nactive: on\nsources: c\ncontext: Line\n" + rest + "\nUDQN End:\n";
}

} // namespace

TEST_CASE("rule file: lists have holes and ends, options hold for what follows, stray keys go nowhere") {
    int flags[kUdqnFlagNumbers];
    std::string many;
    for (int i = 1; i <= 70; ++i) {
        many += std::to_string(i) + ",";
    }
    const struct {
        std::string text;
        int count, first, second, last;
    } lists[] = {{"0, 7", 1, 0, 7, 0},
                 {"1999 2000,-1", 1, 1999, 0, 0},
                 {"", 0, 0, 0, 0},
                 {", x ,99999999999999999999", 0, 0, 0, 0},
                 {many, 32, 1, 2, 32}};
    for (const auto &list : lists) {
        CAPTURE(list.text);
        CHECK(parse_flags(list.text.c_str(), flags) == list.count);
        CHECK(flags[0] == list.first);
        CHECK(flags[1] == list.second);
        CHECK(flags[31] == list.last);
    }
    Rules rules("pattern: (\nset flags: 1\nUDQN End:\nnothing\nUDQN Begin:\nmessage: dropped");
    rules.Read("REG_ICASE: on\nREG_NEWLINE: yes\nREG_EXTENDED: on\nREG_NOTBOL: no\n" + Rule(100, "pattern: a : b :\t\r") +
               Rule(101, "sources: c, cpp,h\npattern: (x"));
    CHECK(rules.G->udqn_compile_flags == 3);
    CHECK(rules.G->udqn_exec_flags == 0);
    REQUIRE(rules.G->udqn_list.count == 2);
    CHECK(std::string(rules.Get(100)->pattern) == "a : b :");
    CHECK(std::string(rules.Get(101)->sources[2]) == "h");
    CHECK(std::string(rules.Get(101)->test_result) == "Pattern Compile Error");
    CHECK(Written([&] { rules.Read(Rule(100, "summary: again")); }).starts_with("  Error: Duplicate UDQN Identifier 100\n"));
    CHECK(search_udqn_id(0, &rules.G->udqn_list) == 1);
    CHECK(search_udqn_id(0, nullptr) == 0);
    CHECK(std::string(GetNoticeStr(0, rules.G)) == "again");
    CHECK(std::string(GetNoticeStr(100, rules.G)) == "");
    CHECK(std::string(GetNoticeStr(999, rules.G)) == "Unsupported");
}

TEST_CASE("rules arm each other on a line, within a file only, and the end of a file has rules of its own") {
    Rules rules("");
    rules.Read(Rule(100, "pattern: BEGIN\nset flags: 1 2\nclear flags: 2\nsilent flag: on") +
               Rule(101, "pattern: END\ncheck flags: 1\n!check flags: 2") +
               Rule(102, "pattern: UDQN eof\n!check flags: 1\nemit eof flag: on") + Rule(103, "pattern: END\nsources: cpp"));
    const auto file = [&](const char *name, std::initializer_list<const char *> lines) {
        rules.G->file_name = name;
        for (const char *line : lines) {
            udqn_process(line, 0, rules.G);
        }
        udqn_process("UDQN eof", 1, rules.G);
        ResetState(rules.G);
    };
    file("a.c", {"END", "BEGIN END", "END"});
    CHECK(rules.Count(101) == 2);
    CHECK(rules.Count(102) == 0);
    file("b.c", {"END", "UDQN eof"});
    CHECK(rules.Count(102) == 1);
    CHECK(rules.Count(101) == 2);
    file("c.cpp", {"BEGIN", "END"});
    CHECK(rules.Count(103) == 1);
    CHECK(rules.Count(100) == 0);
    CHECK(udqn_notice_total_count(rules.G) == 4);
    CHECK(Written([&] { udqn_profile(8, rules.G); }) ==
          "  101       2   25.00  \n  102       1   12.50  \n  103       1   12.50  \n");
}

TEST_CASE("what a pattern can't do without") {
    const struct {
        const char *pattern, *texts;
        int some_byte;
    } rows[] = {
        {"\\b(TODO|FIXME)\\b(?!\\s*\\(\\s*\\w)", "TODO FIXME", 1},
        {"^(?!.*\\b(if|while)\\b).*=\\s*([mcz]|re)?alloc\\s*\\([^;]*$", "alloc", 1},
        {"\\b([mun]?sleep|[mun]delay)\\s*\\(", "sleep delay", 1},
        {"(?i)copyRIGHT|licen[cs]e|SPDX", "copyright licen spdx", 1},
        {"[]x\\]]ab{2}c[[:^alpha:]y]", "ab", 1},
        {"(?:ab){0,3}c+?(?>de)f", "de", 1},
        {"abcdefghijklmnopqrstuvwxyz", "abcdefghijklmnop", 1},
        {"\\S *\\t", "\t", 1},
        {"\\S", "", 1},
        {"(ab|)$", "", 0},
        {"(ab|c*)", "", 0},
        {"ab{,3}", "", 0}, // a text or a number of times, as the library's version has it
        {"ab(*ACCEPT)c", "", 0},
        {"\\Qab\\E", "", 0},
        {"(a)\\1bc", "", 0},
        {"(?x) a b", "", 0},
        {"(?<n>ab)", "", 0},
        {"[[.a.]]bc", "", 0},
        {"abc)", "", 0},
    };
    for (const auto &row : rows) {
        CAPTURE(row.pattern);
        const UdqnNeeds needs = NeedsOf(row.pattern, false);
        std::string texts;
        for (int i = 0; i < needs.count; ++i) {
            texts += (i > 0 ? " " : "") + std::string(needs.texts[i]);
        }
        CHECK(texts == row.texts);
        CHECK(needs.some_byte == row.some_byte);
    }
}

// Patterns put together at random; the subjects are made of the same few bytes.
TEST_CASE("the sieves hold back no line that a pattern matches") {
    std::mt19937 random(5);
    const auto pick = [&](std::initializer_list<const char *> from) { return std::string(from.begin()[random() % from.size()]); };
    const std::function<std::string(int)> branch = [&](int depth) {
        std::string text;
        for (size_t atoms = random() % 5; atoms-- > 0;) {
            if (depth < 3 && random() % 4 == 0) {
                text += pick({"(", "(?:", "(?>", "(?=", "(?!", "(?<!a|", "(?i:", "(?-i:"}) + branch(depth + 1) +
                        (random() % 2 ? "|" + branch(depth + 1) : "") + ")";
            } else {
                text += pick({"a", "b", "ab", "aab", "B", "\\(", "[ab]", "[^a\\]]", "[[:alpha:](]", "\\w", "\\s", ".", " ", "^",
                              "$", "\\b"});
            }
            text += pick({"", "", "", "?", "*", "+", "{2}", "{0,1}", "+?", "*+"});
        }
        return text;
    };
    for (int round = 0; round < 60; ++round) {
        Rules rules(round % 2 ? "REG_ICASE: on" : "");
        for (int id = 100; id < 160; ++id) {
            rules.Read(Rule(id, ("pattern: x*" + branch(0) + (random() % 2 ? "|" + branch(0) : "")).c_str()));
        }
        std::vector<int> wanted(60);
        for (int line = 0; line < 60; ++line) {
            std::string text;
            for (size_t bytes = random() % 9; bytes-- > 0;) {
                text += "aabbAB( "[random() % 8];
            }
            udqn_process(text.c_str(), 0, rules.G);
            for (int id = 100; id < 160; ++id) {
                wanted[id - 100] += pcre_match(text.c_str(), get_udqn_ptr(id, &rules.G->udqn_list), rules.G) == 0;
            }
        }
        for (int id = 100; id < 160; ++id) {
            CAPTURE(rules.Get(id)->pattern);
            CHECK(rules.Count(id) == wanted[id - 100]);
        }
    }
}

TEST_CASE("a message longer than its place in HTML is cut in front of an entity") {
    Rules rules("");
    rules.G->html_mode = rules.G->quality_notices = 1;
    rules.Read(Rule(100, ("pattern: x\nmessage: " + std::string(1020, 'm') + "<_LINE_").c_str()));
    const std::string shown = Written([&] { udqn_process("x", 0, rules.G); });
    CHECK(shown.ends_with(" #100: " + std::string(1020, 'm') + "\n"));
}

TEST_CASE("a pattern that backtracks without end is switched off for a file, then for the run, each told once") {
    Rules rules(Rule(100, "pattern: ^(a+)+$").c_str());
    const std::string line = std::string(2000, 'a') + ";";
    const auto shown_in_file = [&](int stopped) {
        rules.G->file_line_no = 0;
        const std::string shown = Written([&] {
            for (int i = 0; i < stopped; ++i) {
                ++rules.G->file_line_no;
                udqn_process(line.c_str(), 0, rules.G);
            }
            udqn_process("aaa", 0, rules.G);
        });
        ResetState(rules.G);
        rules.G->file_name = "a.c";
        return shown;
    };
    CHECK(shown_in_file(9) == "");
    CHECK(rules.Count(100) == 1);
    CHECK(shown_in_file(1000) == "\n  Error: The pattern of UDQN 100 takes too many steps\n"
                                 "         The rule is off for the rest of File: a.c\n         Line: 10\n"
                                 "         The same in other files is not reported again\n\n");
    CHECK(rules.Count(100) == 1);
    CHECK(shown_in_file(11) == "");
    get_udqn_ptr(100, &rules.G->udqn_list)->limit_hits = 992;
    CHECK(shown_in_file(9) == "\n  Error: The pattern of UDQN 100 took too many steps on 1000 lines\n"
                              "         The rule is off for the rest of the run from File: a.c\n         Line: 8\n\n");
    CHECK(shown_in_file(0) == "");
    CHECK(rules.Count(100) == 1);
}
