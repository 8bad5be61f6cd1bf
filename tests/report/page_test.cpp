// The page of tly-report: its figures for people, its treemap, the comparisons it reads. page_test.py tests pages as a whole.
#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "page_html.h"
#include "read_compare.h"
#include "treemap.h"

namespace {

bool Overlap(const Rectangle &a, const Rectangle &b) {
    constexpr double kSlack = 1e-6;
    return a.x + a.width > b.x + kSlack && b.x + b.width > a.x + kSlack && a.y + a.height > b.y + kSlack &&
           b.y + b.height > a.y + kSlack;
}

CompareRead Read(const std::string &text, Comparison &comparison, std::string &error) {
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    REQUIRE(in);
    const CompareRead read = ReadComparison(in, "x", comparison, error);
    fclose(in);
    return read;
}

std::string Compared(const std::string &what, const std::string &name = "baseline_differential_metrics") {
    return "<vxtly><command>-X</command><report><name>" + name + "</name>" + what + "</report></vxtly>";
}

const std::string kTotals = "<metrics_newer_work_files><file_count>3</file_count></metrics_newer_work_files>"
                            "<metrics_older_work_files><file_count>2</file_count><loc>9</loc></metrics_older_work_files>";

} // namespace

TEST_CASE("Figures are set for people") {
    CHECK(Count(0) == "0");
    CHECK(Count(999) == "999");
    CHECK(Count(-1000) == "−1,000");
    CHECK(Count(12345678) == "12,345,678");
    CHECK(Fixed(1234.5, 2) == "1,234.50");
    CHECK(Fixed(999.96, 1) == "1,000.0");
    CHECK(Fixed(-0.04, 1) == "0.0");
    CHECK(Share(1, 0) == "–");
    CHECK(Share(1, 3) == "33.3%");
    CHECK(Change(1100, 1000, 0) == "+100 (+10.0%)");
    CHECK(Change(900, 1000, 0) == "−100 (−10.0%)");
    CHECK(Change(5, 0, 0) == "+5");
    CHECK(Change(1.001, 1.002, 2) == "0");
    CHECK(Shown("a<äöü>", 4) == "a&lt;ä…");
    CHECK(Shown("äöü", 3) == "äöü");
    CHECK(Shown("\xE4z", 2) == "\xEF\xBF\xBDz");
}

TEST_CASE("A treemap fills its place without gaps and overlap") {
    std::vector<std::vector<double>> sets = {{7}, {1, 1}, {1e11, 1, 1, 1}, {1e11, 1e-3}, std::vector<double>(50, 3.0), {}};
    for (int i = 1; i < 200; ++i) {
        sets.back().push_back(5000.0 / i);
    }
    for (const std::vector<double> &values : sets) {
        double sum = 0;
        for (const double value : values) {
            sum += value;
        }
        const Rectangle whole{10, 20, 400, 300};
        const std::vector<Rectangle> places = Treemap(values, whole);
        REQUIRE(places.size() == values.size());
        double stretched = 0;
        for (size_t i = 0; i < places.size(); ++i) {
            const Rectangle &r = places[i];
            CHECK(r.x >= whole.x - 1e-6);
            CHECK(r.y >= whole.y - 1e-6);
            CHECK(r.x + r.width <= whole.x + whole.width + 1e-6);
            CHECK(r.y + r.height <= whole.y + whole.height + 1e-6);
            CHECK(std::fabs(r.width * r.height - values[i] / sum * 400 * 300) < 1e-4);
            stretched += std::max(r.width, r.height) / std::min(r.width, r.height);
            for (size_t other = 0; other < i; ++other) {
                CHECK_FALSE(Overlap(r, places[other]));
            }
        }
        CHECK((values.size() < 10 || stretched / static_cast<double>(values.size()) < 1.6)); // squares, not strips
    }
}

TEST_CASE("A comparison of baselines is told from other input, and read whole or not at all") {
    // Elements of the same name stand elsewhere, and count for nothing.
    const std::string good = Compared("<new><loc>77</loc><file>a.c</file></new><total_differentials><new><loc>-5</loc>"
                                      "<notices>4</notices><files>1</files></new><differential_by_code><loc>3</loc>"
                                      "</differential_by_code></total_differentials>" +
                                      kTotals + "<!-- Error: -->");
    Comparison c;
    std::string error;
    REQUIRE(Read(good, c, error) == CompareRead::kRead);
    CHECK(c.by_lines);
    CHECK(c.added[1] == -5);
    CHECK(c.added[11] == 4);
    CHECK(c.changed[1] == 3);
    CHECK_FALSE(c.changed[11].has_value()); // not told isn't 0
    CHECK_FALSE(c.removed[1].has_value());
    CHECK(c.newer.totals[0] == 3);
    CHECK(c.older.totals[1] == 9);
    for (size_t length = 1; length < good.size(); ++length) {
        Comparison cut;
        CHECK(Read(good.substr(0, length), cut, error) != CompareRead::kRead);
    }
    const struct {
        std::string text;
        CompareRead read;
        const char *error;
    } rows[] = {
        {"{}", CompareRead::kOther, ""},
        {"<!DOCTYPE x>" + good, CompareRead::kOther, ""},
        {Compared(kTotals, "Language Metrics"), CompareRead::kOther, ""},
        {"<vxtly><file><name>a.c</name></file>" + good + "</vxtly>", CompareRead::kOther, ""},
        {Compared("<total_differentials/>"), CompareRead::kFailed, "it hasn't all totals."},
        {Compared(kTotals + "\n  Error: Failed to load\n   work file, b\n"), CompareRead::kFailed,
         "Error: Failed to load work file, b"},
        {Compared("<metrics_newer_work_files><loc>1x</loc></metrics_newer_work_files>"), CompareRead::kFailed,
         "\"1x\" is no count."},
        {Compared("= a\n  Error: b" + kTotals), CompareRead::kFailed, "this: Error: b - See"},
        {Compared("- Error: of a source\n  Warning: The older\n" + kTotals), CompareRead::kRead, ""},
    };
    for (const auto &row : rows) {
        CAPTURE(row.text);
        Comparison other;
        error.clear();
        CHECK(Read(row.text, other, error) == row.read);
        CHECK(error.find(row.error) != std::string::npos);
        CHECK(other.remarks.size() == (row.text.find("Warning") == std::string::npos ? 0 : 1));
        CHECK(error.empty() == (row.read != CompareRead::kFailed));
    }
}
