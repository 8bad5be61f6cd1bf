// Work files and line records: every row that may come from outside, and what is written comes back.
#include "bench.h"

#include <climits>
#include <cmath>
#include <cstring>

#include "analysis/line_code.h"
#include "baseline/line_records.h"
#include "baseline/work_file.h"
#include "run/memory.h"

namespace {

// "name, date, size loc eloc comments blanks lines lloc cyclo notices interface functions, total complexity, line records"
std::string Parsed(const std::string &line) {
    auto record = std::make_unique<WorkRecord>();
    const bool whole = ParseWorkLine(line.c_str(), record.get()) != 0;
    std::string out = (whole ? "" : "cut ") + std::string(record->name) + ", " + std::to_string(record->date) + ",";
    for (const WorkMetric metric : {kWorkSize, kWorkLoc, kWorkEloc, kWorkComments, kWorkBlanks, kWorkLines, kWorkLloc, kWorkCyclo,
                                    kWorkNotices, kWorkInterface, kWorkFunctions}) {
        out += " " + std::to_string(record->metrics.of[metric]);
    }
    return out + ", " + std::to_string(record->metrics.of[kWorkTotalComplexity]) + ", " + record->diff_name;
}

const std::string kNumbers = " 9 1 2 3 4 5 6 7 8 9 10 11 ";
const std::string kParsed = ", 9, 1 2 3 4 5 6 7 8 9 10 11, 18, ";
const std::string kNothing = "cut , 0, 0 0 0 0 0 0 0 0 0 0 0, 0, ";
const std::string kHead = "Tallyline Work File\nDO NOT EDIT - This is a Generated File\n7.10\n1179500000\n"
                          "Ignore Blank Lines: 1\nIgnore White Space: 0\n";

struct WorkBench : StateBench {
    TempDir dir;
    Llist *list = &G->old_work_list;
    int64_t time = -1;
    int blank = -1, white = -1;
    std::string told;

    WorkBench() {
        CopyText(G->version, "7.75");
        G->head_written = 1;
        gTLYOUT = stdout;
    }
    int Load(const std::string &text) {
        WriteText(dir / "work.dat", text);
        return LoadFrom(dir / "work.dat");
    }
    int LoadFrom(const std::string &path) {
        LlistDestroy(list, nullptr);
        int loaded = -1;
        told = Written([&] { loaded = LoadWorkFile(path.c_str(), &time, list, &blank, &white, G); });
        return loaded;
    }
    std::string Names() const {
        std::string names;
        for (const WorkData *file : Records<WorkData>(*list)) {
            names += std::string(file->name) + "|" + file->diff_file + " ";
        }
        return names;
    }
};

struct RecordBench : WorkBench {
    DiffDataList lines{};
    WorkMetrics source{}; // what the work file counts of it
    ~RecordBench() { FreeDiffData(&lines); }
    RecordBench() {
        G->relative_work_files = 1;
        CopyText(G->start_dir, "/proj");
        CopyText(G->work_file_name, (dir / "base.dat").c_str());
    }
    RecordBench(const RecordBench &) = delete;
    void Count(int code, int comments, int blanks) {
        source.of[kWorkLoc] = code;
        source.of[kWorkComments] = comments;
        source.of[kWorkBlanks] = blanks;
        source.of[kWorkLines] = code + comments + blanks;
    }
    void Record(const char *name, std::initializer_list<const char *> texts) const {
        G->file_name = name;
        G->file_line_no = 0;
        WorkDiffDataFileOpen(G);
        for (const char *text : texts) {
            ++G->file_line_no;
            WorkDiffDataLineWrite(G->diff_data_file, 'L', text, G);
        }
        WorkDiffDataFileClose(G);
    }
    int LoadLines(const std::string &name) {
        FreeDiffData(&lines);
        int loaded = -1;
        told = Written([&] { loaded = LoadDiffDataFile(name.c_str(), (dir / "base.dat").c_str(), source, &lines, G); });
        return loaded;
    }
};

} // namespace

TEST_CASE("a record's line is split at the bar that numbers follow") {
    const struct {
        std::string line, expected;
    } cases[] = {
        {"src/main.c|" + kNumbers + "b.dat.dif/src_main_c.dif\n", "src/main.c" + kParsed + "b.dat.dif/src_main_c.dif"},
        {"a.c|" + kNumbers + "\n", "a.c" + kParsed},
        {"a.c| 9 1 2 3 4 5 6 7 8 9 10 11", "cut a.c" + kParsed}, // or in it
        {"my dir/my file.c|" + kNumbers + "a b.dif\r\n", "my dir/my file.c" + kParsed + "a b.dif"},
        {"a|b.c|" + kNumbers + "\n", "a|b.c" + kParsed},
        {"a.c|" + kNumbers + "b.dat.dif/x|y_c.dif\n", "a.c" + kParsed + "b.dat.dif/x|y_c.dif"},
        {"a.c|" + kNumbers + "x| 1 2 3\n", "a.c" + kParsed + "x| 1 2 3"},
        {"module.c@@/main/3|" + kNumbers + "\n", "module.c" + kParsed},
        {"a@@b.c@1@@2|" + kNumbers + "\n", "a@@b.c@1@@2" + kParsed}, // only the first @ is looked at
        {"a.c| -2147483649 2147483648 99999999999999999999 -1 +4 5 6 7 2147483647 9 2147483647 -0\n",
         "a.c, -2147483648, 2147483647 2147483647 -1 4 5 6 7 2147483647 9 2147483647 0, 2147483647, "},
        // cut short or damaged: the name and the numbers up to there
        {"net/a|b.c| 9 1 2", "cut net/a|b.c, 9, 1 2 0 0 0 0 0 0 0 0 0, 0, "},
        {"a.c|", "cut a.c, 0, 0 0 0 0 0 0 0 0 0 0 0, 0, "},
        {"a.c| 9 1 2 3x 4 5 6 7 8 9 10 11\n", "cut a.c, 9, 1 2 3 0 0 0 0 0 0 0 0, 0, "},
        // no records
        {"Makefile|" + kNumbers + "\n", kNothing},
        {".c|" + kNumbers + "\n", kNothing},
        {"|" + kNumbers + "\n", kNothing},
        {"a.c" + kNumbers + "\n", kNothing},
        {"", kNothing},
        {"|", kNothing},
        {std::string(2047, '|'), kNothing},
    };
    for (const auto &row : cases) {
        CAPTURE(row.line);
        CHECK(Parsed(row.line) == row.expected);
    }
}

TEST_CASE("a work file is read as far as it makes sense") {
    WorkBench bench;
    CHECK(bench.Load(kHead) == 1);
    CHECK(bench.told.empty()); // 7.10 is the same whole version
    CHECK(bench.list->count == 0);
    CHECK(bench.time == 1179500000);
    CHECK(bench.blank == 1);
    CHECK(bench.white == 0);

    // by name, the one added last first among equals; empty lines and a control byte at the end are none
    CHECK(bench.Load(kHead + "b.c|" + kNumbers + "\n\r\na.c|" + kNumbers + "1\na.c|" + kNumbers + "2\n\x0b") == 1);
    CHECK(bench.Names() == "a.c|2 a.c|1 b.c| ");
    // a line that is too long is told and left out, one with a NUL ends there
    CHECK(bench.Load(kHead + std::string(2040, 'x') + ".c|" + kNumbers + "\nb.c|" + kNumbers + std::string("\0z|\nc.c|", 8) +
                     kNumbers + "\n") == 1);
    CHECK(bench.Names() == "b.c| c.c| ");
    CHECK(Has(bench.told, "Line 7 of more than 2047 characters is left out"));
    CHECK_FALSE(Has(bench.told, "damaged"));

    // no work file at all
    CHECK(bench.Load("") == 1);
    CHECK(bench.Load(std::string("\x7f") + std::string(5000, '\0') + "\xff\xfe\n\n1e999\n") == 1);
    CHECK(Has(bench.told, "WARNING: Work file version does not match"));
    CHECK(bench.Load("\n\nnan\n-99999999999999999999\nIgnore Blank Lines: 99999999999999999999\n") == 1);
    CHECK(Has(bench.told, "Version: 0.00"));
    for (const std::string &path : {bench.dir / "none", std::string(bench.dir.path), std::string("/dev/zero")}) {
        CHECK(bench.LoadFrom(path) == 0);
    }
}

TEST_CASE("numbers of a record that is written come back") {
    WorkBench bench;
    WorkMetrics metrics{};
    for (int i = 0; i < kWorkMetrics; ++i) {
        metrics.of[i] = i * 10;
    }
    metrics.of[kWorkSize] = INT64_MAX;
    const std::string text = Written([&] { WorkLine(gTLYOUT, "a \nb|.c", 5, metrics, "d\n.dif"); });
    REQUIRE(bench.Load(kHead + text) == 1);
    CHECK(bench.Names() == "a  b|.c|d .dif ");
    metrics.of[kWorkSize] = INT_MAX;
    metrics.of[kWorkTotalComplexity] = metrics.of[kWorkCyclo] + metrics.of[kWorkInterface];
    const WorkMetrics read = MetricsOf(Record<WorkData>(bench.list->head));
    CHECK(std::memcmp(&read, &metrics, sizeof read) == 0);
}

TEST_CASE("line records are found beside their work file and come back") {
    RecordBench bench;
    bench.Record("/proj/src/my file.c", {"int x;\n", "", "\xff\n"});
    CHECK(std::string(bench.G->diff_file_rel) == "base.dat.dif/src_my_file_c.dif");
    CHECK(bench.LoadLines("base.dat.dif/src_my_file_c.dif") == 0); // not in its place before the run ends
    REQUIRE(ExchangeDirectory(&bench.G->diff_beside));

    bench.Count(3, 0, 0);
    REQUIRE(bench.LoadLines("base.dat.dif/src_my_file_c.dif\r\n") == 1);
    REQUIRE(bench.lines.count == 3);
    CHECK(bench.lines.lines[0].code == LineCode("int x;\n", bench.G));
    CHECK(bench.lines.lines[2].line == 3);
    bench.Count(3, 0, 0);
    CHECK(bench.LoadLines(bench.dir / "base.dat.dif/src_my_file_c.dif") == 1);

    // an absolute name may climb, another may not; other files than regular ones aren't read
    CHECK(bench.LoadLines(bench.dir / "x/../base.dat.dif/src_my_file_c.dif") == 0);
    CHECK(bench.LoadLines(bench.dir / "base.dat.dif/../base.dat.dif/src_my_file_c.dif") == 1);
    for (const std::string name :
         {"../../etc/passwd", "base.dat.dif/../base.dat.dif/src_my_file_c.dif", "none", "base.dat.dif", "", "/dev/zero", ".."}) {
        CAPTURE(name);
        CHECK(bench.LoadLines(name) == 0);
        CHECK(Has(bench.told, "  Error: Loading Work Differential File: /"));
    }
}

TEST_CASE("line records of no type and no number are read as they are") {
    RecordBench bench;
    bench.G->diff_debug = 1;
    WriteText(bench.dir / "d.dif", std::string(13, '\xff'));
    CHECK(bench.LoadLines("d.dif") == 1);
    CHECK(Has(bench.told, "  -1    - ? -nan\n"));
    CHECK(std::isnan(bench.lines.lines[0].code));
    bench.G->diff_debug = 0;
    WriteText(bench.dir / "d.dif", std::string(13 * 100000, '\0'));
    CHECK(bench.LoadLines("d.dif") == 1);
    CHECK(bench.lines.count == 100000);
}

TEST_CASE("line records are those that the work file counts") {
    RecordBench bench;
    const auto load = [&bench](const std::string &types) {
        std::string text;
        int32_t line = 0;
        for (const char type : types) {
            char record[13] = {};
            ++line;
            memcpy(record, &line, sizeof line);
            record[4] = static_cast<char>(type == 'c' ? 'C' : type);
            const double code = type == 'C' ? 300 : 0; // 'c' is a comment without a text, as far as its code tells
            memcpy(record + 5, &code, sizeof code);
            text.append(record, sizeof record);
        }
        WriteText(bench.dir / "d.dif", text);
        return bench.LoadLines("d.dif") == 1;
    };
    bench.Count(6, 4, 2);
    CHECK(load("LlNnGgC"));
    CHECK_FALSE(load("LlNnGg"));
    CHECK_FALSE(load("LlNnGC"));
    CHECK(Has(bench.told, "d.dif\n         The file is cut short or damaged: its lines"));
    CHECK_FALSE(load("LlNnGgCC"));
    CHECK_FALSE(load("L????????lNnGgC")); // the source has no line 15
    bench.G->blanks_recorded = 1;
    CHECK(load("LlBNnGgCB"));
    CHECK_FALSE(load("LlBNnGgC"));
    CHECK_FALSE(load("LlBNnGgCBB"));
    CHECK(load("LlBNnGgc")); // the comment may be the second blank line
}

TEST_CASE("a directory takes its place with what a user had put there") {
    TempDir dir;
    const std::string place = dir / "a.dif";
    DirectoryReplacement directory{};
    const auto begin = [&](const std::string &name) {
        REQUIRE(BeginDirectory(place.c_str(), &directory) == 1);
        WriteText(std::string(directory.beside) + "/" + name, name);
    };
    begin("one.dif");
    REQUIRE(ExchangeDirectory(&directory) == 1); // there was none; and back
    REQUIRE(ExchangeDirectory(&directory) == 1);
    CHECK(!std::filesystem::exists(place));
    REQUIRE(ExchangeDirectory(&directory) == 1);

    WriteText(place + "/note.txt", "mine");
    std::filesystem::create_directory(place + "/sub.dif");
    begin("two.dif");
    WriteText(std::string(directory.beside) + "/note.txt", "other");
    CHECK(ExchangeDirectory(&directory) == 1);
    CHECK(RemoveBeside(&directory, ".dif") == 0); // two files of one name: neither is lost
    CHECK(ReadText(place + "/note.txt") == "other");
    CHECK(ReadText(std::string(directory.beside) + "/note.txt") == "mine");
    CHECK(std::filesystem::exists(place + "/sub.dif"));
    CHECK(!std::filesystem::exists(place + "/one.dif"));

    begin("three.dif"); // given up
    CHECK(RemoveBeside(&directory, ".dif") == 1);
    CHECK(!std::filesystem::exists(directory.beside));
    CHECK(BeginDirectory((dir / "no/a.dif").c_str(), &directory) == 0);
}

TEST_CASE("a baseline stays when the run that would replace it is out of memory") {
    const StateBench bench;
    const TempDir dir;
    const std::string place = dir / "a.dat";
    WriteText(place, "earlier");
    for (const bool out : {true, false}) {
        CopyText(bench.G->work_file_name, place.c_str());
        CopyText(bench.G->work_file_path, dir.path);
        bench.G->baseline_failed = 0;
        const std::string text = Written([&] {
            bench.G->head_written = 1;
            bench.G->work_file = CreateWorkFile(bench.G);
            if (out) {
                MemoryError(bench.G);
            }
            CloseWorkFile(bench.G);
        });
        CHECK(Has(text, "  Memory Error: Cannot allocate memory\n") == out);
        CHECK((ReadText(place) == "earlier") == out);
    }
}
