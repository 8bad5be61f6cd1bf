// The upper reports: file lines and blocks, the CSV table, languages, directories, the timer.
#include "bench.h"

#include "config/languages.h"
#include "report/benchmark.h"
#include "report/file_reports.h"
#include "report/project/totals.h"
#include "run/compare.h"

namespace {

struct Bench : StateBench {
    explicit Bench(Mode mode = Mode::kText) {
        G->file_summary = 1;
        G->show_date_size = 1;
        G->wrap_long_names = 1;
        G->head_written = 1;
        CopyText(G->start_dir, "/home/me");
        CopyText(G->html_header_color, "#000080");
        CopyText(G->html_date_color, "#000080");
        SetMode(mode);
    }
    void AddFile(const char *name, int64_t date, int64_t size, int loc) {
        const Metrics metrics{{loc, loc, 1, 2, 3, loc + 5}, 0, 0, 0, 0};
        CHECK(AddFileNode(name, date, size, kC, {loc / 4.0, 0, 0}, metrics, &G->file_list, 0, G));
    }
};

std::string FileLine(const char *name, int64_t date, int compact, Bench &bench) {
    return Written([&] { ShowFileLine(name, date, 4096, compact, 1, bench.G); });
}

size_t Count(const std::string &text, const char *part) {
    size_t found = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++found;
    }
    return found;
}

void AddLanguage(LanguageGroup group, const LineCounts &sums, Globals *G) {
    G->language_sums[group] = sums;
    G->file_loc += sums.loc;
    G->semicolon_count += sums.lloc;
    G->just_brace_count += sums.loc - sums.eloc;
    G->file_comments += sums.comments;
    G->file_blank += sums.blanks;
    G->file_line_no += sums.lines;
}

} // namespace

TEST_CASE_FIXTURE(Bench, "name line") {
    setenv("TZ", "UTC0", 1);
    SUBCASE("forms of a file") {
        const struct {
            Mode mode;
            const char *name;
            int64_t date;
            int compact;
            const char *line;
        } cases[] = {
            {Mode::kText, "a.c", 86400, 1, "\n  Fri Jan  2 00:00:00 1970\n  a.c\n"},
            {Mode::kCsv, "a,b.c", 86400, 1, "a b.c\n"},
            {Mode::kXml, "<a>&.c", 86400, 1,
             "<date>Fri Jan  2 00:00:00 1970</date>\n<size_bytes>4096</size_bytes>\n<name>&lt;a&gt;&amp;.c</name>\n"},
            // the date tells a file from a label
            {Mode::kText, "TotalCost.c", 86400, 0,
             "\n  File: TotalCost.c\n  Date: Fri Jan  2 00:00:00 1970                     File Size: 4096 Bytes\n"},
            {Mode::kText, "Total All 2 Files", 0, 0, "\n  Total All 2 Files\n"},
            {Mode::kXml, "<Total>.c", 0, 0, "<name>&lt;Total&gt;.c</name>\n<bytes>4096</bytes>\n"},
        };
        for (const auto &c : cases) {
            SetMode(c.mode);
            CHECK(FileLine(c.name, c.date, c.compact, *this) == c.line);
        }
    }
    SUBCASE("what leaves lines out") {
        for (const Mode mode : kModes) {
            SetMode(mode);
            G->show_date_size = 0;
            CHECK(Count(FileLine("a.c", 86400, 0, *this), "4096") == 0);
            G->totals_no_file_names = 1;
            CHECK(FileLine("a.c", 86400, 1, *this).empty());
            G->totals_no_file_names = 0;
        }
        G->list_files_only = G->show_date_size = 1;
        CHECK(FileLine("a.c", 86400, 0, *this) == "<name>a.c</name>\n");
        CHECK(FileLine("a.c", 86400, 1, *this) == "<name>a.c</name>\n");
        CHECK(FileLine(nullptr, 86400, 0, *this).empty());
    }
    SUBCASE("long names") {
        const std::string name(67, 'n');
        CHECK(FileLine(name.c_str(), 0, 0, *this) == "\n  File: " + name.substr(1) + "\n        n\n");
        SetMode(Mode::kCsv); // a record stays on its line
        CHECK(FileLine(name.c_str(), 0, 0, *this) == "\nFile," + name + "\n");
        const std::string huge(9000, '&');
        for (const Mode mode : {Mode::kText, Mode::kHtml, Mode::kXml}) {
            SetMode(mode);
            CHECK(FileLine(huge.c_str(), INT64_MAX, 1, *this).size() > 2000);
        }
        G->report_switch_given = 1;
        SetMode(Mode::kText);
        CHECK(Written([&] { ShowFileEnd(name.c_str() + 7, G); }) ==
              "  " + std::string(72, '_') + "\n  End of File: " + name.substr(8) + "\n               n\n\n");
    }
}

TEST_CASE_FIXTURE(Bench, "file summary") {
    G->totals_files_detail = 1;
    AddFile("b.c", 200, 3, 10);
    AddFile("a.c", 100, 4, 10);
    AddFile("c.c", 300, 3, 11);
    G->c_files = G->project_files = 3;
    const auto summary = [&] { return Written([&] { ShowFileSummary(G); }); };
    SUBCASE("averages are rounded up, sums start afresh") {
        const std::string first = summary();
        CHECK(first.find("  LOC 31  ") < first.rfind("  LOC 11  "));
        CHECK(first.find("FP(LOC) 3.0 ", first.find("Average per File")) != std::string::npos); // 7.75 / 3
        CHECK(first.find("File: b.c") < first.find("File: a.c"));
        CHECK(summary() == first);
    }
    SUBCASE("sorted by date") {
        G->sort_active = 1;
        G->sort_key = 9;
        std::string text = summary();
        CHECK(text.find("File: a.c") < text.find("File: b.c"));
        G->sort_descending = 1;
        text = summary();
        CHECK(text.find("File: c.c") < text.find("File: b.c"));
    }
    SUBCASE("forms of the closing blocks") {
        SetMode(Mode::kCsv);
        CHECK(Has(summary(), "\nTotal All 3,Files\n"));
        SetMode(Mode::kHtml);
        CHECK(Has(summary(), "<b><font color=\"#000080\">Average Per File</font></b>  Bytes: 4\n"));
        SetMode(Mode::kXml);
        CHECK(Has(summary(), "</totals>\n<file_counts>\n<c_file_count>3</c_file_count>\n"));
    }
    SUBCASE("sums beyond an int are clipped, not wrapped") {
        AddFile("huge.c", 1, INT64_C(1) << 40, INT32_MAX - 5);
        CHECK(Has(summary(), "LOC 2147483647"));
    }
}

TEST_CASE_FIXTURE(Bench, "languages") {
    G->cs_files = G->java_files = 2;
    AddLanguage(kCsGroup, {30, 20, 10, 5, 0, 35}, G);
    AddLanguage(kJavaGroup, {10, 10, 0, 0, 5, 15}, G);
    for (int &factor : G->fp_per_language) {
        factor = 10;
    }
    G->fp_per_language[3 * kJavaGroup] = 0;
    const auto reports = [&](Mode mode) {
        SetMode(mode);
        return Written([&] {
            ShowLanguageProfile(G);
            ShowLanguageSummary(G);
        });
    };
    SUBCASE("each language in its place") {
        G->function_points = 1;
        CHECK(Has(reports(Mode::kCsv), " ,C# Source File *.cs, , , 30/3.0       ,20/2.0       ,10/1.0       ,5,0,35\n"
                                       " ,Java Source File *.java, , , 10/0.0       ,10/1.0       ,0/0.0       ,0,5,15\n"
                                       " ,Total All Languages, , ,40/0.0       ,"));
    }
    SUBCASE("the total in XML sums the points of the languages") {
        CHECK(reports(Mode::kXml)
                  .ends_with("<function_points_loc>3.0</function_points_loc>\n"
                             "<function_points_eloc>3.0</function_points_eloc>\n"
                             "<function_points_lloc>1.0</function_points_lloc>\n</language>\n</report>\n"));
    }
    SUBCASE("blank lines alone show in the profile only") {
        *static_cast<FileCounters *>(G) = {};
        G->language_sums[kCsGroup] = G->language_sums[kJavaGroup] = {};
        G->language_sums[kOtherGroup].blanks = 1;
        const std::string text = reports(Mode::kText);
        CHECK(Has(text, "  Other        0.0 "));
        CHECK(!Has(text, "Other Source"));
    }
}

TEST_CASE_FIXTURE(Bench, "totals") {
    SUBCASE("directories") {
        CHECK(AddDirMetricsNode("a&b,c", G));
        G->report_switch_given = 1;
        G->function_metrics = 1;
        CHECK(!Written([&] { ShowTotalDirSummary(G); }).ends_with("\n\n"));
        SetMode(Mode::kCsv);
        CHECK(Written([&] { ShowTotalDirSummary(G); }).starts_with("Files,0,a&b c\n"));
    }
    SUBCASE("all wins over languages, and runs each report once") {
        G->totals_all = G->totals_language = 1;
        const std::string text = Written([&] { ShowTotalReport(G); });
        CHECK(Count(text, "~~ Language Summary ~~") == 1);
        CHECK(text.find("~~ Total Language Profile ~~") < text.find("~~ Language Summary ~~"));
    }
    SUBCASE("memory") {
        CHECK(Written([&] { ShowMemorySummary(G); }).empty());
        G->delete_count = 7;
        CHECK(Has(Written([&] { ShowMemorySummary(G); }),
                  "  Memory new count ......:          0  Memory delete count ...:          7\n"));
    }
}

TEST_CASE_FIXTURE(Bench, "timer and benchmark") {
    ProcessTimer timer;
    Timer(&timer, kTimerStart, G);
    SUBCASE("days, and CPU time of several cores") {
        timer.start_ticks -= 90061 * timer.ticks_per_second;
        timer.start_times.tms_utime -= 100000 * timer.ticks_per_second;
        Timer(&timer, kTimerStop, G);
        CHECK(timer.wait_seconds == 0);
        timer.elapsed_seconds = 90061;
        CHECK(Has(Written([&] { Timer(&timer, kTimerPrint, G); }), "                 :   1:01:01:01 Day:Hr:Min:Sec\n"));
    }
    SUBCASE("rates come from the project, not from the last file") {
        G->file_line_no = 1000;
        G->benchmark_mode = 1;
        const auto report = [&] { return Written([&] { Benchmark(&timer, G); }); };
        CHECK(!Has(report(), "Lines Processed/s"));
        G->total.file_line_no = 1000;
        CHECK(Has(report(), " Physical Lines Processed/s\n"));
    }
}
