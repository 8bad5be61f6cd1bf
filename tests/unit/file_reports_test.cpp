// The upper reports: file lines and blocks, the CSV table, languages, directories, the timer.
#include <doctest/doctest.h>

#include <memory>
#include <string>

#include "config/languages.h"
#include "report/benchmark.h"
#include "report/file_reports.h"
#include "report/forms.h"
#include "report/frame.h"
#include "report/totals.h"
#include "run/compare.h"
#include "run/globals.h"

namespace {

struct Bench {
    std::unique_ptr<Globals> globals = std::make_unique<Globals>();
    Globals *G = globals.get();

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
    ~Bench() {
        LlistDestroy(&G->file_list, FileDataFree);
        LlistDestroy(&G->dir_metrics_list, NodeDataFree);
    }
    void SetMode(Mode mode) {
        G->html_mode = mode == Mode::kHtml;
        G->csv_mode = mode == Mode::kCsv;
        G->xml_mode = mode == Mode::kXml;
    }
    void AddFile(const char *name, int64_t date, int64_t size, int loc) {
        const Metrics metrics{.loc = loc,
                              .eloc = loc,
                              .lloc = 1,
                              .comments = 2,
                              .blanks = 3,
                              .lines = loc + 5,
                              .functions = 0,
                              .params = 0,
                              .returns = 0,
                              .cyclo = 0};
        CHECK(AddFileNode(name, date, size, kC, {loc / 4.0, 0, 0}, metrics, &G->file_list, 0, G));
    }
};

template <class Report> std::string Written(Report report) {
    char *text = nullptr;
    size_t length = 0;
    FILE *before = gTLYOUT;
    gTLYOUT = open_memstream(&text, &length);
    report();
    fclose(gTLYOUT);
    gTLYOUT = before;
    std::string result(text, length);
    free(text);
    return result;
}

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

// Every opened element is closed in its order, and no character stands raw that may not.
bool WellFormed(const std::string &xml) {
    std::string open;
    for (size_t i = 0; i < xml.size(); ++i) {
        if (xml[i] == '&' && xml.find(';', i) == std::string::npos) {
            return false;
        }
        if (xml[i] != '<') {
            continue;
        }
        const size_t end = xml.find('>', i);
        if (end == std::string::npos) {
            return false;
        }
        const std::string tag = xml.substr(i + 1, end - i - 1);
        if (tag[0] != '/') {
            open += "<" + tag;
        } else if (open.size() > tag.size() - 1 && open.ends_with("<" + tag.substr(1))) {
            open.resize(open.size() - tag.size());
        } else {
            return false;
        }
        i = end;
    }
    return open.empty();
}

void AddLanguage(LanguageGroup group, const LanguageSums &sums, Globals *G) {
    G->language_sums[group] = sums;
    G->file_loc += sums.loc;
    G->semicolon_count += sums.lloc;
    G->just_brace_count += sums.loc - sums.eloc;
    G->file_comments += sums.comments;
    G->file_blank += sums.blanks;
    G->file_line_no += sums.lines;
}

} // namespace

TEST_CASE("name line") {
    setenv("TZ", "UTC0", 1);
    Bench bench;
    SUBCASE("forms of a file") {
        CHECK(FileLine("a.c", 86400, 0, bench) ==
              "\n  File: a.c\n  Date: Fri Jan  2 00:00:00 1970                     File Size: 4096 Bytes\n");
        CHECK(FileLine("a.c", 86400, 1, bench) == "\n  Fri Jan  2 00:00:00 1970\n  a.c\n");
        bench.SetMode(Mode::kCsv);
        CHECK(FileLine("a,b.c", 86400, 0, bench) == "\nFile,a b.c\nDate,Fri Jan  2 00:00:00 1970\nSize,4096,Bytes\n");
        CHECK(FileLine("a,b.c", 86400, 1, bench) == "a b.c\n");
        bench.SetMode(Mode::kXml);
        CHECK(FileLine("<a>&.c", 86400, 1, bench) ==
              "<date>Fri Jan  2 00:00:00 1970</date>\n<size_bytes>4096</size_bytes>\n<name>&lt;a&gt;&amp;.c</name>\n");
        bench.SetMode(Mode::kHtml);
        CHECK(FileLine("a&\"b.c", 0, 0, bench) ==
              "\n  <b>File</b>: <b><a href=\"file:///home/me/a%26%22b.c\" target=\"_blank\">a&amp;&quot;b.c</a></b>\n");
        bench.G->relative_html_links = 1;
        CHECK(FileLine("a&.c", 86400, 1, bench) == "\n  <b><font color=\"#000080\">Fri Jan  2 00:00:00 1970</font></b>"
                                                   "\n  <a href=\"a%26.c\" target=\"_blank\"><b>a&amp;.c</b></a>\n");
    }
    SUBCASE("what leaves lines out") {
        for (const Mode mode : {Mode::kText, Mode::kHtml, Mode::kCsv, Mode::kXml}) {
            bench.SetMode(mode);
            bench.G->show_date_size = 0;
            CHECK(Count(FileLine("a.c", 86400, 0, bench), "4096") == 0);
            bench.G->totals_no_file_names = 1;
            CHECK(FileLine("a.c", 86400, 1, bench).empty());
            bench.G->totals_no_file_names = 0;
            CHECK(FileLine(nullptr, 86400, 0, bench).empty());
        }
        bench.G->list_files_only = 1;
        bench.G->show_date_size = 1;
        CHECK(FileLine("a.c", 86400, 0, bench) == "<name>a.c</name>\n");
        CHECK(FileLine("a.c", 86400, 1, bench) == "<name>a.c</name>\n");
    }
    SUBCASE("the date tells a file from a label") {
        CHECK(FileLine("TotalCost.c", 86400, 0, bench).starts_with("\n  File: TotalCost.c\n"));
        CHECK(FileLine("Total All 2 Files", 0, 0, bench) == "\n  Total All 2 Files\n");
        bench.SetMode(Mode::kXml);
        CHECK(FileLine("<Total>.c", 0, 0, bench) == "<name>&lt;Total&gt;.c</name>\n<bytes>4096</bytes>\n");
    }
    SUBCASE("long names") {
        const std::string name(67, 'n');
        CHECK(FileLine(name.c_str(), 0, 0, bench) == "\n  File: " + name.substr(1) + "\n        n\n");
        bench.G->wrap_long_names = 0;
        CHECK(FileLine(name.c_str(), 0, 0, bench) == "\n  File: " + name + "\n");
        bench.G->wrap_long_names = 1;
        bench.SetMode(Mode::kCsv); // a record stays on its line
        CHECK(FileLine(name.c_str(), 0, 0, bench) == "\nFile," + name + "\n");
        const std::string huge(9000, '&');
        for (const Mode mode : {Mode::kText, Mode::kHtml, Mode::kXml}) {
            bench.SetMode(mode);
            CHECK(FileLine(huge.c_str(), INT64_MAX, 1, bench).size() > 2000);
        }
    }
    SUBCASE("a report switch rules off the head and the end") {
        bench.G->report_switch_given = 1;
        CHECK(Written([&] { ShowFileLine("a.c", 0, 0, 0, 0, bench.G); }) == "\n  File: a.c\n  " + std::string(72, '_') + "\n\n");
        const std::string name(60, 'n');
        CHECK(Written([&] { ShowFileEnd(name.c_str(), bench.G); }) ==
              "  " + std::string(72, '_') + "\n  End of File: " + name.substr(1) + "\n               n\n\n");
        bench.SetMode(Mode::kHtml);
        CHECK(Written([&] { ShowFileEnd("a.c", bench.G); }).ends_with("me/a.c\" target=\"_blank\">a.c</a></b>\n\n\n"));
        bench.SetMode(Mode::kCsv);
        CHECK(Written([&] { ShowFileEnd("a.c", bench.G); }) == "File End\n");
        bench.G->totals_only = 1;
        CHECK(Written([&] { ShowFileEnd("a.c", bench.G); }).empty());
    }
}

TEST_CASE("file summary") {
    Bench bench;
    bench.G->totals_files_detail = 1;
    bench.AddFile("b.c", 200, 3, 10);
    bench.AddFile("a.c", 100, 4, 10);
    bench.AddFile("c.c", 300, 3, 11);
    bench.G->c_files = bench.G->project_files = 3;
    const auto summary = [&] { return Written([&] { ShowFileSummary(bench.G); }); };
    SUBCASE("averages are rounded up, sums start afresh") {
        const std::string first = summary();
        CHECK(first.find("\n  Total All 3 Files\n") < first.find("\n  Average per File\n"));
        CHECK(first.find("  LOC 31  ") < first.rfind("  LOC 11  "));
        CHECK(first.find("FP(LOC) 3.0 ", first.find("Average per File")) != std::string::npos); // 7.75 / 3
        CHECK(first.find("File: b.c") < first.find("File: a.c"));
        CHECK(first.ends_with("Other File Count ......:          0  Total File Count ......:          3\n"));
        CHECK(summary() == first);
    }
    SUBCASE("sorted by date") {
        bench.G->sort_active = 1;
        bench.G->sort_key = 9;
        std::string text = summary();
        CHECK(text.find("File: a.c") < text.find("File: b.c"));
        bench.G->sort_descending = 1;
        text = summary();
        CHECK(text.find("File: c.c") < text.find("File: b.c"));
        CHECK(text.find("File: b.c") < text.find("File: a.c"));
    }
    SUBCASE("forms of the closing blocks") {
        bench.SetMode(Mode::kCsv);
        CHECK(summary().find("\nTotal All 3,Files\n") != std::string::npos);
        bench.SetMode(Mode::kHtml);
        CHECK(summary().find("<b><font color=\"#000080\">Average Per File</font></b>  Bytes: 4\n") != std::string::npos);
        bench.SetMode(Mode::kXml);
        const std::string xml = summary();
        CHECK(WellFormed(xml));
        CHECK(Count(xml, "<file>") == 5);
        CHECK(xml.find("</totals>\n<file_counts>\n<c_file_count>3</c_file_count>\n") != std::string::npos);
    }
    SUBCASE("sums beyond an int are clipped, not wrapped") {
        bench.AddFile("huge.c", 1, INT64_C(1) << 40, INT32_MAX - 5);
        CHECK(summary().find("LOC 2147483647") != std::string::npos);
    }
    SUBCASE("no file") {
        LlistDestroy(&bench.G->file_list, FileDataFree);
        const std::string text = summary();
        CHECK(text.find("Total All 0 Files") != std::string::npos);
        CHECK(text.find("Average") == std::string::npos);
    }
}

TEST_CASE("CSV table of files") {
    setenv("TZ", "UTC0", 1);
    Bench bench(Mode::kCsv);
    const auto line = [&](const char *name, int64_t size, int loc, int eloc, int total) {
        return Written([&] { CSV_File_Line(gTLYOUT, name, 0, size, loc, eloc, 2, 3, 4, 5, 0, 1, 2, 3, 4, 0, total, bench.G); });
    };
    CHECK(line("a,b.c", 70, 10, 2, 0) ==
          "File, a b.c,, Thu Jan  1 00:00:00 1970, 70, 10, 2, 2, 3, 4, 5, 1.50, 0, 1, 2, 3, 5, 4, 9, 0\n");
    CHECK(line("c.c", INT64_C(3000000000), 3, -1, 0).find(" 3000000000, 3, -1, 2, 3, 4, 5, 0.00, 0,") != std::string::npos);
    bench.G->csv_file_lines = 1;
    CHECK(line("total", 0, 0, 0, 1) ==
          "Type, Name, , Date, Size, LOC, eLOC, lLOC, Comments, Blanks, Lines, Comment/eLOC, Classes, Functions, Parameters, "
          "Returns, InterComp, CycloComp, Total Complexity, Notices\n"
          "Files, 2\n"
          "File, Total,, , 3000000070, 13, 1, 4, 6, 8, 10, 1.50, 0, 2, 4, 6, 10, 8, 18, 0\n"
          "File, Average,, , 1500000035.00, 6.50, 0.50, 2.00, 3.00, 4.00, 5.00, 0.75, 0.00, 1.00, 2.00, 3.00, 5.00, 4.00, 9.00, "
          "0.00\n"
          "File, Maximum,, , 3000000000, 10, 2, 2, 3, 4, 5, 1.50, 0, 1, 2, 3, 5, 4, 9, 0\n"
          "File, Minimum,, , 70, 3, 0, 2, 3, 4, 5, 0.00, 0, 1, 2, 3, 5, 4, 9, 0\n");
    CHECK(Count(line("total", 0, 0, 0, 1), "\n") == 1); // cleared: just the column line
    bench.G->csv_file_lines = 0;
    bench.G->function_points = bench.G->is_c = 1;
    bench.G->fp_per_language[3 * kCGroup] = 4;
    CHECK(line("a.c", 1, 10, 8, 0).find(" 1, 10/2.5       , 8/0.0       , 2/0.0       , 3,") != std::string::npos);
    CHECK(Count(line("total", 0, 0, 0, 1), "/2.5       ,") == 4);
}

TEST_CASE("languages") {
    Bench bench;
    Globals *G = bench.G;
    G->cs_files = G->java_files = 2;
    AddLanguage(kCsGroup, {30, 20, 10, 5, 0, 35}, G);
    AddLanguage(kJavaGroup, {10, 10, 0, 0, 5, 15}, G);
    for (int &factor : G->fp_per_language) {
        factor = 10;
    }
    G->fp_per_language[3 * kJavaGroup] = 0;
    const auto reports = [&](Mode mode) {
        bench.SetMode(mode);
        return Written([&] {
            ShowLanguageProfile(G);
            ShowLanguageSummary(G);
        });
    };
    SUBCASE("each language in its place") {
        const std::string text = reports(Mode::kText);
        CHECK(text.find("  *.cs        75.0      66.7     100.0         100.0        0.0       70.0\n"
                        "  *.java      25.0      33.3       0.0           0.0      100.0       30.0\n") != std::string::npos);
        CHECK(text.find("\n  Java Source File *.jav*\n  LOC 10 ") < text.find("\n  C# Source File *.cs\n  LOC 30 "));
        CHECK(text.find("C++") == std::string::npos);
        G->function_points = 1;
        CHECK(reports(Mode::kCsv)
                  .find(" ,C# Source File *.cs, , , 30/3.0       ,20/2.0       ,10/1.0       ,5,0,35\n"
                        " ,Java Source File *.java, , , 10/0.0       ,10/1.0       ,0/0.0       ,0,5,15\n"
                        " ,Total All Languages, , ,40/0.0       ,") != std::string::npos);
        CHECK(reports(Mode::kHtml).find("\n  <b>C# Source File <i>*.cs</i></b>\n") != std::string::npos);
    }
    SUBCASE("the total in XML sums the points of the languages") {
        const std::string xml = reports(Mode::kXml);
        CHECK(WellFormed(xml));
        CHECK(xml.ends_with("<extension>Total All Languages</extension>\n<loc>40</loc>\n<eloc>30</eloc>\n<lloc>10</lloc>\n"
                            "<comments>5</comments>\n<blanks>5</blanks>\n<lines>50</lines>\n"
                            "<function_points_loc>3.0</function_points_loc>\n<function_points_eloc>3.0</function_points_eloc>\n"
                            "<function_points_lloc>1.0</function_points_lloc>\n</language>\n</report>\n"));
    }
    SUBCASE("blank lines alone show in the profile only") {
        *static_cast<FileCounters *>(G) = {};
        G->language_sums[kCsGroup] = G->language_sums[kJavaGroup] = {};
        G->language_sums[kOtherGroup].blanks = 1;
        const std::string text = reports(Mode::kText);
        CHECK(text.find("  Other        0.0 ") != std::string::npos);
        CHECK(text.find("Other Source") == std::string::npos);
    }
}

TEST_CASE("totals") {
    Bench bench;
    Globals *G = bench.G;
    SUBCASE("directories") {
        CHECK(AddDirMetricsNode("src", G));
        CHECK(AddDirMetricsNode("a&b,c", G));
        G->report_switch_given = 1;
        const auto directories = [&] { return Written([&] { ShowTotalDirSummary(G); }); };
        CHECK(directories().starts_with("  " + std::string(72, '-') + "\n\n"));
        G->function_metrics = 1;
        const std::string text = directories();
        CHECK(text.starts_with(std::string(23, ' ') + "~~ Project Directory Summary ~~\n\n  Files 0 - a&b,c\n"));
        CHECK(text.find("\n\n  Files 0 - src\n") != std::string::npos);
        CHECK(!text.ends_with("\n\n"));
        bench.SetMode(Mode::kCsv);
        CHECK(directories().starts_with("Files,0,a&b c\n"));
        bench.SetMode(Mode::kXml);
        CHECK(WellFormed(directories()));
        G->report_switch_given = 0;
        CHECK(WellFormed(directories()));
    }
    SUBCASE("all wins over languages, and runs each report once") {
        G->totals_all = G->totals_language = 1;
        const std::string text = Written([&] { ShowTotalReport(G); });
        CHECK(Count(text, "~~ Language Summary ~~") == 1);
        CHECK(text.find("~~ Total Language Profile ~~") < text.find("~~ Language Summary ~~"));
        CHECK(Count(text, "  LOC 0 ") > 0);
    }
    SUBCASE("memory") {
        CHECK(Written([&] { ShowMemorySummary(G); }).empty());
        G->delete_count = 7;
        const std::string text = Written([&] { ShowMemorySummary(G); });
        CHECK(text.ends_with("  Memory new count ......:          0  Memory delete count ...:          7\n"));
        bench.SetMode(Mode::kCsv);
        CHECK(Written([&] { ShowMemorySummary(G); }) == text);
    }
}

TEST_CASE("timer and benchmark") {
    Bench bench;
    Globals *G = bench.G;
    ProcessTimer timer;
    Timer(&timer, kTimerStart, G);
    SUBCASE("days, and CPU time of several cores") {
        timer.start_ticks -= 90061 * timer.ticks_per_second;
        timer.start_times.tms_utime -= 100000 * timer.ticks_per_second;
        Timer(&timer, kTimerStop, G);
        CHECK(timer.elapsed_seconds >= 90061);
        CHECK(timer.wait_seconds == 0);
        timer.elapsed_seconds = 90061;
        CHECK(Written([&] { Timer(&timer, kTimerPrint, G); }).find("                 :   1:01:01:01 Day:Hr:Min:Sec\n") !=
              std::string::npos);
    }
    SUBCASE("a run shorter than a tick") {
        timer.start_ticks += timer.ticks_per_second;
        Timer(&timer, kTimerStop, G);
        CHECK(timer.elapsed_seconds == 0.001);
        CHECK(timer.wait_seconds <= 0.001);
    }
    SUBCASE("rates come from the project, not from the last file") {
        G->file_line_no = 1000;
        const auto report = [&] { return Written([&] { Benchmark(&timer, G); }); };
        CHECK(report().empty());
        G->benchmark_mode = 1;
        CHECK(report().find("Lines Processed/s") == std::string::npos);
        G->total.file_line_no = 1000;
        CHECK(report().find(" Physical Lines Processed/s\n") != std::string::npos);
        bench.SetMode(Mode::kXml);
        CHECK(WellFormed(report()));
    }
}
