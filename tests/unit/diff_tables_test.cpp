// The tables of the report on two baselines, and the file that chooses their columns.
#include "baseline/diff_tables.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <vector>

#include "baseline/work_file.h"
#include "bench.h"
#include "config/report_cfg.h"

namespace {

constexpr ReportElement kKeys[] = {kElementLoc,       kElementEloc,       kElementLloc,      kElementComments,
                                   kElementBlanks,    kElementLines,      kElementFunctions, kElementCyclo,
                                   kElementInterface, kElementComplexity, kElementNotices,   kElementElocPercent};

struct TableBench : StateBench {
    void Choose(unsigned columns) const { // bit n: column n
        for (unsigned i = 0; i < std::size(kKeys); ++i) {
            G->report_cfg[kKeys[i]] = {.on = (columns >> i & 1) != 0, .plus = 0};
        }
    }
    WorkData Record(int state, int value, float percent) const {
        WorkData record = {};
        record.name = const_cast<char *>("a.c");
        record.returns = state;
        record.percent = percent;
        record.loc = record.eloc = record.lloc = record.comments = record.blanks = record.lines = record.cyclo = value;
        record.notices = record.interface = record.complexity = record.functions = value;
        return record;
    }
    std::string Show(WorkData record) const {
        return Written([&] { DiffDataShow(&record, G); });
    }
};

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    for (size_t at = 0, end; (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
        lines.push_back(text.substr(at, end - at));
    }
    return lines;
}

} // namespace

TEST_CASE("a line of the report configuration is a key, ON and a sign; what it doesn't mention is off") {
    const TableBench bench;
    const TempDir dir;
    const std::string path = dir / "a.cfg";
    WriteText(path, "# LLOC_COUNT ON +\r\n"
                    " \t LOC_COUNT on +\r\n"
                    "ELOC_COUNT OFF +\n"
                    "COMMENT_LINE_COUNT\tON\t++\n"
                    "BLANK_LINE_COUNT yes -\n"
                    "PHYSICAL_LINE_COUNT\n"
                    "function_count ON +\n"
                    "UNKNOWN_DATA_FIELD ON +\n"
                    "(_COUNT ON +\n"
                    "C++_SOURCE_FILE_COUNT ON + # more\n" +
                        std::string(3000, ' ') + "TOTAL_COMPLEXITY ON +\nX" + std::string(2046, 'y') +
                        "INTERFACE_COMPLEXITY ON +\n" +
                        "CYCLOMATIC_COMPLEXITY ON +\nCYCLOMATIC_COMPLEXITY ON -\n\tELOC_PERCENT_DIFF ON +");
    for (ElementChoice &choice : bench.G->report_cfg) {
        choice = {.on = 7, .plus = 7};
    }
    CHECK(LoadReportCfg(path.c_str(), bench.G->report_cfg, bench.G) == 1);
    std::string set;
    for (int i = 0; i < kReportElements; ++i) {
        const ElementChoice &choice = bench.G->report_cfg[i];
        if (choice.on || choice.plus) {
            set += std::string(RepCfgStr[i]) + (choice.on ? " on" : " off") + (choice.plus ? " +\n" : " -\n");
        }
    }
    CHECK(set == "LOC_COUNT on +\nELOC_COUNT off +\nCOMMENT_LINE_COUNT on -\nC++_SOURCE_FILE_COUNT on +\nCYCLOMATIC_COMPLEXITY on "
                 "-\nELOC_PERCENT_DIFF on +\n");
}

TEST_CASE("a made configuration turns on the columns of the report; what can't be read is left alone") {
    const TableBench bench;
    const TempDir dir;
    const std::string path = dir / "new.cfg";
    CHECK(LoadReportCfg(path.c_str(), bench.G->report_cfg, bench.G) == 0);
    CHECK(LoadReportCfg(path.c_str(), bench.G->report_cfg, bench.G) == 1);
    int on = 0;
    for (const ElementChoice &choice : bench.G->report_cfg) {
        on += choice.on;
    }
    for (const ReportElement key : kKeys) {
        CHECK(bench.G->report_cfg[key].on == 1);
    }
    CHECK(on == std::size(kKeys));

    const std::string fifo = dir / "fifo";
    REQUIRE(mkfifo(fifo.c_str(), 0600) == 0);
    std::filesystem::create_symlink("nowhere", dir / "link");
    for (const std::string &name : {fifo, dir / "link", std::string(dir.path), dir / "none/a.cfg", std::string()}) {
        CAPTURE(name);
        bench.G->report_cfg[kElementLoc] = {};
        CHECK(LoadReportCfg(name.c_str(), bench.G->report_cfg, bench.G) == 0);
        CHECK(bench.G->report_cfg[kElementLoc].on == 1);
    }
    CHECK(std::filesystem::is_fifo(fifo));
    CHECK(!std::filesystem::exists(dir / "nowhere"));
}

TEST_CASE("whatever columns are chosen, a figure ends under its head and the CSV fields are as many") {
    const TableBench bench;
    const WorkData record = bench.Record(kStateModified, 1234567, 12345.25F);
    for (unsigned columns = 1; columns < 1U << std::size(kKeys); columns += 14) { // LOC always: its cell is wider than its head
        CAPTURE(columns);
        bench.Choose(columns);
        bench.SetMode(Mode::kText);
        const std::vector<std::string> head = Lines(Written([&] { DiffDataHeader(bench.G, DiffTable::kFiles); }));
        const std::string row = bench.Show(record);
        REQUIRE(head.size() == 2);
        bool aligned = true;
        for (size_t i = 14; i < head[0].size(); ++i) {
            if (head[0][i] == ' ' && head[0][i - 1] != ' ') { // a head ends
                aligned = aligned && row[i] == ' ' && row[i - 1] != ' ';
            }
        }
        REQUIRE(aligned);
        CHECK(head[0].rfind(" File") == row.rfind(" a.c"));
        size_t rule = head[1].size() - 2; // hyphens
        CHECK(head[1].find_first_not_of('-', 2) == std::string::npos);
        CHECK((rule == 72 || rule >= 79));
        CHECK((rule == 72 ||
               rule == head[0].size() + 2 - (columns >> 11 & 1) * 4)); // " File" counts 7, the percent column 5 of its 9
        bench.SetMode(Mode::kCsv);
        const std::string csv = Written([&] { DiffDataHeader(bench.G, DiffTable::kFiles); }), fields = bench.Show(record);
        CHECK(std::count(csv.begin(), csv.end(), ',') == std::count(fields.begin(), fields.end(), ','));
        CHECK(std::count(csv.begin(), csv.end(), '\n') == 1);
    }
}

TEST_CASE("hidden records and -Tw print nothing and count in the profile; a state of its own per line") {
    const TableBench bench;
    bench.Choose(0x801);
    WorkData hidden = bench.Record(kStateNew, 2000000000, 100);
    hidden.hidden = true;
    CHECK(bench.Show(hidden).empty());
    bench.G->totals_work = 1;
    CHECK(bench.Show(bench.Record(kStateNew, 2000000000, 100)).empty());
    CHECK(bench.Show(bench.Record(kStateModified, -5, 10)).empty());
    CHECK(bench.Show(bench.Record(kStateModified, 1, -3)).empty());
    CHECK(bench.Show(bench.Record(99, 1, 0)).empty()); // no state: nowhere shown, nothing overrun
    bench.G->skip_removed = 1;
    CHECK(Has(Written([&] { ShowDiffProfile(bench.G); }), "--\n"
                                                          "  New  4000000000   100.00       2\n"
                                                          "  Mod       -4     3.50       2\n"
                                                          "  Equ        0     0.00       0\n"));
}

TEST_CASE("totals: differences and percents of sums beyond an int; no percent of nothing") {
    const TableBench bench;
    bench.Choose(0x003);
    bench.G->newer_totals.files = 3;
    bench.G->newer_totals.of[kWorkLoc] = 9000000000;
    bench.G->newer_totals.of[kWorkEloc] = 5;
    bench.G->older_totals.files = 2;
    bench.G->older_totals.of[kWorkLoc] = 6000000000;
    bench.G->older_totals.of[kWorkEloc] = -5;
    const std::string text = Written([&] { ShowDiffTotals(bench.G); });
    CHECK(Has(text, "  Files          3\n  LOC      3000000000\n  eLOC          10\n\n"));
    CHECK(text.ends_with("  Files      50.00 %\n  LOC        50.00 %\n  eLOC        0.00 %\n"));
    bench.G->report_cfg[kElementNotices].on = 1;
    CHECK(Written([&] { ShowDiffTotals(bench.G); }).ends_with("  Quality     0.00 %\n\n"));
    bench.SetMode(Mode::kXml);
}

TEST_CASE("productivity: the totals of the differences per unit; no unit, no figure") {
    const TableBench bench;
    bench.Choose(0x811);
    bench.G->diff_totals.of[kWorkLoc] = 1000;
    bench.G->diff_totals.of[kWorkBlanks] = -9;
    CHECK(Written([&] { DiffProfileLine(bench.G, 8); }) == "     125      -1");
    CHECK(Written([&] { DiffProfileLine(bench.G, 0); }) == "       0       0");
}
