// tly-report: what a list that is cut keeps, what an earlier report is trusted for, and figures as people read them.
#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

#include "allow.h"
#include "formats.h"
#include "join.h"
#include "known.h"
#include "text_lines.h"
#include "write_json.h"

namespace {

template <class Write> std::string Written(Write write) {
    char *text = nullptr;
    size_t length = 0;
    std::FILE *out = open_memstream(&text, &length);
    CHECK(write(out));
    fclose(out);
    const std::string written(text, length);
    free(text);
    return written;
}

std::string Sarif(const Model &m, size_t most) {
    return Written([&](std::FILE *out) { return WriteSarif(m, most, out); });
}

bool Reads(const std::string &text, Known &known) {
    std::string error;
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    const bool read = ReadKnown(in, "old", known, error);
    fclose(in);
    CHECK(read == error.empty());
    return read;
}

// One file, with a notice per line of these numbers.
void Fill(Model &m, std::initializer_list<int> numbers) {
    FileRow file;
    file.path = m.texts.Intern("a.c");
    m.files.push_back(file);
    Notice notice;
    notice.text = m.texts.Intern("text");
    notice.line = 0;
    for (const int number : numbers) {
        notice.number = number;
        notice.fingerprint = ++notice.line * 3U;
        m.notices.push_back(notice);
    }
    std::string error;
    REQUIRE(FinishModel(m, false, error));
}

} // namespace

TEST_CASE("A SARIF that is cut has the worst kinds, says so, and is not compared with") {
    Model m;
    Fill(m, {30, 9, 22, 12, 30, 22, 100, 12, 1});
    const int all[] = {100, 12, 12, 9, 22, 22, 1, 30, 30};
    for (const size_t most : {4U, 9U, 20U}) {
        const auto run = nlohmann::json::parse(Sarif(m, most), nullptr, false)["runs"][0];
        REQUIRE(run["results"].size() == std::min<size_t>(most, 9));
        for (size_t i = 0; i < run["results"].size(); ++i) {
            CHECK(run["results"][i]["ruleId"] == "TLY" + std::to_string(all[i]));
        }
        CHECK(run["properties"]["noticesLeftOut"] == 9 - run["results"].size());
        CHECK(run["invocations"][0]["toolExecutionNotifications"].size() == (most < 9 ? 1 : 0));
        CHECK(run["tool"]["driver"]["rules"].size() == 58); // 57 of tly's own and one of the user's
        Known known;
        CHECK(Reads(Sarif(m, most), known) == (most >= 9));
    }
}

TEST_CASE("An earlier report is whole, or refused") {
    Model m;
    Fill(m, {9, 30, 30});
    m.files[0].by_line = true;
    const std::string forms[] = {Written([&](std::FILE *out) { return WriteJson(m, out); }), Sarif(m, 9),
                                 Written([&](std::FILE *out) { return WriteGitlab(m, out); })};
    for (const std::string &form : forms) {
        for (size_t length = 1; length + 1 < form.size(); length += form.size() > 4000 ? 97 : 1) {
            Known cut;
            CHECK_FALSE(Reads(form.substr(0, length), cut));
        }
        Known known;
        REQUIRE(Reads(form, known));
        CHECK(known.fingerprints == std::vector<uint64_t>{3, 6, 9});
        CHECK(known.by_line == (form[0] == '{'));
        const Fresh fresh = FindFresh(m, known);
        CHECK((fresh.notices.empty() && fresh.gone == 0));
        known.fingerprints = {1, 2, 4, 9};
        CHECK(FindFresh(m, known).notices == std::vector<uint32_t>{0, 1});
        CHECK(FindFresh(m, known).gone == 3);
    }
    for (const char *other :
         {"{}", "[1", "3", "{\"version\": 2}", "{\"version\": \"2.1.0\", \"runs\": []}", "[{\"fingerprint\": \"x\"}]", "<vxtly/>",
          "{\"version\": 1, \"totals\": {\"notices\": {\"count\": 1}}}"}) {
        Known known;
        CHECK_FALSE(Reads(other, known));
    }
    Known none;
    CHECK((Reads("[\n]\n", none) && none.fingerprints.empty()));
}

TEST_CASE("Text for people stays on its line and drives no terminal") {
    const char *const rows[][2] = {{"a b\\c", "a b\\c"},
                                   {"\n\t\x1b[m\x7f", "\\x0a\\x09\\x1b[m\\x7f"},
                                   {"\xC2\x9B", "\\x9b"},
                                   {"\xC2\xA0\xC3\xA4", "\xC2\xA0\xC3\xA4"},
                                   {"\xE2\x80\xAE\xE2\x81\xA6", "\\u202e\\u2066"},
                                   {"\xE2\x80\xA8", "\\u2028"},
                                   {"\xFF\xE2\x82", "\\xff\\xe2\\x82"},
                                   {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"}};
    for (const auto &row : rows) {
        std::string shown;
        AppendShown(shown, row[0]);
        CHECK(shown == row[1]);
    }
}

TEST_CASE("A badge's figure is short, and no more than is there") {
    const std::pair<int64_t, const char *> rows[] = {{0, "0"},          {999, "999"},        {1000, "1.0k"},
                                                     {1999, "1.9k"},    {99'999, "99.9k"},   {100'000, "100k"},
                                                     {999'999, "999k"}, {1'234'567, "1.2M"}, {12'000'000'000, "12.0G"}};
    for (const auto &[loc, message] : rows) {
        Model m;
        m.total.loc = loc;
        const std::string badge = Written([&](std::FILE *out) { return WriteBadge(m, Badge::kLines, false, out); });
        CHECK(nlohmann::json::parse(badge, nullptr, false)["message"] == message);
    }
}
