// From the command line to the list of files.
#include <doctest/doctest.h>

#include <dirent.h>
#include <fstream>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "files/file_list.h"
#include "report/mode.h"
#include "run/globals.h"

namespace {

// A directory of its own as working directory, a state record, and what the report says.
struct FilesBench {
    std::unique_ptr<Globals> G = std::make_unique<Globals>();
    char directory[32] = "/tmp/tlyfilesXXXXXX";
    char *shown = nullptr;
    size_t shown_size = 0;
    FILE *report_before = gTLYOUT;
    std::vector<char *> arguments;

    FilesBench() {
        REQUIRE(mkdtemp(directory));
        REQUIRE(chmod(directory, 0755) == 0);
        REQUIRE(chdir(directory) == 0);
        gTLYOUT = open_memstream(&shown, &shown_size);
        G->head_written = 1;
        G->validate_extensions = 1;
        G->progress_interval = 1;
        CopyText(G->extension_list, "c,h,cpp,hpp");
    }
    ~FilesBench() {
        fclose(gTLYOUT);
        gTLYOUT = report_before;
        free(shown);
        LlistDestroy(&G->file_list, FileDataFree);
        LlistDestroy(&G->header_file_list, FileDataFree);
        LlistDestroy(&G->source_file_list, FileDataFree);
        LlistDestroy(&G->dir_metrics_list, NodeDataFree);
        const std::string remove_all = "rm -rf " + std::string(directory);
        CHECK(chdir("/") == 0);
        CHECK(system(remove_all.c_str()) == 0);
    }

    void Make(std::initializer_list<const char *> paths) { // a path with a trailing "/" is a directory
        for (const std::string path : paths) {
            if (path.back() == '/') {
                REQUIRE(mkdir(path.c_str(), 0755) == 0);
            } else {
                std::ofstream(path) << "x\n";
            }
        }
    }
    std::string Walk(const char *extensions, const char *top) {
        G->recursive_mode = 1;
        CopyText(G->extension_list, extensions);
        CopyText(G->top_dir, top);
        return Build();
    }
    std::string ReadList(const std::string &lines) {
        G->file_list_mode = 1;
        G->file_list_stream = tmpfile();
        fputs(lines.c_str(), G->file_list_stream);
        rewind(G->file_list_stream);
        const std::string names = Build();
        fclose(G->file_list_stream);
        return names;
    }
    std::string Arguments(std::initializer_list<const char *> names) {
        for (const char *name : names) {
            arguments.push_back(const_cast<char *>(name));
        }
        G->argc = static_cast<int>(arguments.size());
        G->argv = arguments.data();
        return Build();
    }
    // The names in list order, with ":" between them.
    std::string Build() {
        LlistDestroy(&G->file_list, FileDataFree);
        const int count = BuildFileList(0, G.get());
        std::string names;
        for (const FileData *file : Records<FileData>(G->file_list)) {
            names += names.empty() ? "" : ":";
            names += file->name;
        }
        CHECK(count == G->file_list.count);
        return names;
    }
    std::string Shown() { // and forgets it
        fflush(gTLYOUT);
        const std::string text(shown, shown_size);
        rewind(gTLYOUT);
        return text;
    }
};

// The files below a directory in the order of its entries, told by plain recursion.
std::string ByRecursion(const std::string &directory) {
    std::string names;
    DIR *stream = opendir(directory.c_str());
    while (const dirent *entry = readdir(stream)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names += name.find('.') == std::string::npos ? ByRecursion(directory + "/" + name) : directory + "/" + name + ":";
        }
    }
    closedir(stream);
    return names;
}

} // namespace

TEST_CASE("files: arguments") {
    FilesBench b;
    b.Make({"two words\n.c"});
    CopyText(b.G->output_file_name, "report.txt");
    SUBCASE("headers first, odd names whole, names without an extension passed over") {
        CHECK(b.Arguments({"a.c", "b.h", "two words\n.c", "foo.hpp", "Makefile", "*.c"}) == "b.h:foo.hpp:a.c:two words\n.c:*.c");
        CHECK(b.Shown() == "");
        CHECK(Record<FileData>(LlistGet(&b.G->file_list, 4))->size == 2);
        CHECK(Record<FileData>(LlistGet(&b.G->file_list, 4))->date > 1000000000);
        CHECK(Record<FileData>(LlistGet(&b.G->file_list, 3))->date == 0); // not there: fails when it is opened
        CHECK(Record<FileData>(b.G->file_list.head)->language == -1);
    }
    SUBCASE("a wrong type is told, the parameter of a separated -O is not") {
        CHECK(b.Arguments({"x.txt", "report.txt", "a.c"}) == "a.c");
        CHECK(b.Shown() == "\n  Error: x.txt - Not a valid file type for TLY\n         Valid types: c,h,cpp,hpp\n");
    }
    SUBCASE("case and validation") {
        CHECK(b.Arguments({"A.C"}) == "A.C");
        b.G->names_case_sensitive = 1;
        CHECK(b.Arguments({}) == "");
        b.G->validate_extensions = 0;
        CHECK(b.Arguments({"x.txt"}) == "A.C:x.txt");
    }
    SUBCASE("-Rn sorts headers and sources each by name") {
        b.G->sort_input_by_name = 1;
        CHECK(b.Arguments({"b.c", "z.h", "a.c", "y.h"}) == "y.h:z.h:a.c:b.c");
    }
}

TEST_CASE("files: the pattern filter") {
    FilesBench b;
    b.G->pattern_filter_active = 1;
    CopyText(b.G->pattern_filter, "Test,my dir\t_gen\n");
    struct Case {
        const char *name;
        int with_case, without_case;
    };
    const Case cases[] = {
        {"src/Test/a.c", 1, 1}, {"src/latest.c", 0, 1}, {"my dir/a.c", 1, 1}, {"my/dir.c", 0, 0}, {"a_gen.c", 1, 1}, {"", 0, 0},
    };
    b.G->names_case_sensitive = 1;
    for (const Case &c : cases) {
        CHECK(FilenamePatternMatch(c.name, b.G.get()) == c.with_case);
    }
    b.G->names_case_sensitive = 0;
    CHECK(b.Arguments({"latest.c", "a.c"}) == "a.c"); // BuildFileList lowers the filter
    for (const Case &c : cases) {
        CHECK(FilenamePatternMatch(c.name, b.G.get()) == c.without_case);
    }
    CHECK(FilenamePatternMatch((std::string(100000, 'a') + "TEST").c_str(), b.G.get()) == 1);
    b.G->pattern_filter_active = 0;
    CHECK(FilenamePatternMatch("test.c", b.G.get()) == 0);
}

TEST_CASE("files: a directory walk") {
    FilesBench b;
    b.Make({"src/", "src/b.c", "src/FOO.CPP", "src/sub/", "src/sub/x.c", "src/sub/k.h", "src/sub/dir.c/", "src/no", "src/dot."});
    b.G->sort_input_by_name = 1;
    SUBCASE("names keep the form in which they were reached") {
        CHECK(b.Walk("c,h", "src") == "src/sub/k.h:src/b.c:src/sub/x.c");
        CHECK(b.Walk(".cpp,*.c", "src/") == "src/b.c:src/sub/x.c"); // with case on any setting: no FOO.CPP
        CHECK(b.Walk("CPP", "*.*") == "./src/FOO.CPP");
        CHECK(b.Walk("", "src") == "");
        CHECK(b.Shown() == "");
    }
    SUBCASE("without -Rn a directory's files stand where the directory stands among its neighbours") {
        b.Make({"t/", "t/a.c", "t/m/", "t/m/b.c", "t/m/n/", "t/m/n/c.c", "t/m/n/d.c", "t/m/e.c", "t/z/", "t/z/f.c", "t/g.c"});
        b.G->sort_input_by_name = 0;
        CHECK(b.Walk("c", "t") + ":" == ByRecursion("t"));
    }
    SUBCASE("-Rd stays in the top directory") {
        b.G->no_recursion = 1;
        CHECK(b.Walk("c,h", "src") == "src/b.c");
    }
    SUBCASE("excluded directories are compared as whole paths") {
        b.G->exclude_dirs_active = 1;
        CopyText(b.G->excluded_dirs, "sub, SRC/SUB");
        CHECK(b.Walk("c", "src") == "src/b.c");
        b.G->names_case_sensitive = 1;
        CHECK(b.Walk("c", "src") == "src/b.c:src/sub/x.c");
        CopyText(b.G->excluded_dirs, "src");
        CHECK(b.Walk("c", "src") == "");
    }
    SUBCASE("links: followed, but not into a directory they stand in") {
        REQUIRE(symlink("..", "src/sub/up") == 0);
        REQUIRE(symlink("sub", "src/again") == 0);
        REQUIRE(symlink("nowhere", "src/gone.c") == 0);
        CHECK(b.Walk("c", "src") == "src/again/x.c:src/b.c:src/gone.c:src/sub/x.c");
        CHECK(b.Shown() == "");
    }
    SUBCASE("special files are listed: they fail when they are opened") {
        REQUIRE(mkfifo("src/pipe.c", 0644) == 0);
        CHECK(b.Walk("c", "src/") == "src/b.c:src/pipe.c:src/sub/x.c");
    }
}

TEST_CASE("files: a walk that fails") {
    FilesBench b;
    SUBCASE("no such directory") {
        CHECK(b.Walk("c", "none") == "");
        CHECK(b.Shown() == "  Open Dir Error: none : No such file or directory\n");
    }
    SUBCASE("an unreadable directory ends every walk above it") {
        b.Make({"src/", "src/sub/", "src/sub/shut/"});
        REQUIRE(chmod("src/sub/shut", 0) == 0);
        const bool root = geteuid() == 0;
        REQUIRE((!root || seteuid(65534) == 0));
        const int result = ReadDir("src/", "c", b.G.get());
        REQUIRE((!root || seteuid(0) == 0));
        CHECK(result == 0);
        CHECK(b.G->dir_stack.count == 0);
        CHECK(b.Shown() == "  Open Dir Error: src/sub/shut : Permission denied\n"
                           "  Read Dir Error: src/sub : Permission denied\n"
                           "  Read Dir Error: src/ : Permission denied\n");
    }
    SUBCASE("a path that is too long is told, and the walk goes on") {
        const std::string name(250, 'd');
        for (int i = 0; i < 9; ++i) { // the ninth doesn't fit
            REQUIRE(mkdir(name.c_str(), 0755) == 0);
            REQUIRE(chdir(name.c_str()) == 0);
        }
        REQUIRE(chdir(b.directory) == 0);
        b.Make({"last.c"});
        CHECK(b.Walk("c", ".") == "./last.c");
        CHECK(b.Shown().find("\n  Error: The path is too long and was passed over\n         ./ddd") == 0);
    }
}

TEST_CASE("files: a list of files and directories") {
    FilesBench b;
    b.Make({"my dir/", "my dir/a.c", "my dir/sub/", "my dir/sub/b.h", "src/", "src/c.c", "src/sub/", "src/sub/d.c"});
    setenv("TLYTESTDIR", "src", 1);
    SUBCASE("lines of all kinds") {
        CHECK(b.ReadList("# comment\n\n \t  # too\r\n   x.c  \r\n%TLYTESTDIR%/c.c\nnoext\n-r h my dir/\n-x c src\ny.c") ==
              "my dir/sub/b.h:x.c:src/c.c:src/c.c:y.c");
        CHECK(b.Shown() == "");
        CHECK(b.G->dir_metrics_list.count == 2);
        CHECK(std::string(Record<NodeData>(b.G->dir_metrics_list.head)->name) == "my dir");
    }
    SUBCASE("quoted directories, and lines that are refused") {
        CHECK(b.ReadList("-R c \"my dir\" rest\n-r\"c,h /src\"\n-r c\na.txt\n") == "my dir/a.c");
        CHECK(b.Shown() == "\n  Error: Malformed directory entry line in file.\n"
                           "         Format: -r\"c,h,cpp d:\\proj\\src\"\n         Read  : -r\"c,h /src\"\n\n"
                           "\n  Error: Malformed directory entry line in file.\n"
                           "         Format: -r\"c,h,cpp d:\\proj\\src\"\n         Read  : -r c\n\n"
                           "\n  Error: a.txt - Not a valid file type for TLY\n         Valid types: c,h,cpp,hpp\n");
    }
    SUBCASE("what stands behind the last line end may be no text") {
        CHECK(b.ReadList("a.c\n\tb.c") == "a.c");
    }
    SUBCASE("an unknown variable leaves its line as it stands") {
        unsetenv("TLYTESTNONE");
        CHECK(b.ReadList("%TLYTESTNONE%/a.c\n") == "%TLYTESTNONE%/a.c");
        CHECK(b.Shown() == "  Error: Expanding environment variable from -F file.\n"
                           "         Environment Variable: TLYTESTNONE does not exist\n\n");
    }
    unsetenv("TLYTESTDIR");
}

TEST_CASE("files: environment variables in a line") {
    FilesBench b;
    setenv("TLYA", "aa", 1);
    setenv("TLYB", "%TLYA%", 1);
    setenv("TLYLOOP", "%TLYLOOP%%TLYLOOP%", 1);
    setenv("TLYSELF", "%TLYSELF%", 1);
    setenv("TLYBIG", std::string(2000, 'x').c_str(), 1);
    b.G->list_files_only = 1;
    const std::string big(60, 'y');
    const std::string too_long = "%TLYBIG%" + big + ".c";
    struct Case {
        const char *line, *expanded, *shown;
    };
    const char *no_end = "  Error: Expanding environment variable from -F file.\n         No end of variables in the line: ";
    const char *no_room = "  Error: Expanding environment variable from -F file.\n         The expanded line is too long: ";
    const Case cases[] = {
        {"a%b.c", "a%b.c", ""},
        {"%%a%TLYA%", "%%a%TLYA%", ""},
        {"%TLYA%/x.c", "aa/x.c", "  -F Expanded File Line: aa/x.c\n\n"},
        {"1%TLYA%2%3", "1aa2%3", "  -F Expanded Line: 1aa2%3\n\n"},
        {"%TLYA%/%TLYA%", "aa/aa", "  -F Expanded File Line: aa/aa\n\n"},
        {"%TLYB%.c", "%TLYA%.c", "  -F Expanded File Line: %TLYA%.c\n\n"}, // no pair behind it: the value stands
        {"%TLYA%/%TLYNONE%", "aa/%TLYNONE%", nullptr},
        {"%TLYSELF%%x%\n", "%TLYSELF%%x%\n", no_end},
        {"%TLYLOOP%%x%", "%TLYLOOP%%x%", nullptr},
        {too_long.c_str(), too_long.c_str(), no_room},
    };
    for (const Case &c : cases) {
        CAPTURE(c.line);
        LineText out;
        CHECK(std::string(ExpandEnvarString(c.line, out, b.G.get())) == c.expanded);
        const std::string shown = b.Shown();
        if (c.shown == no_end || c.shown == no_room) {
            CHECK(shown.find(c.shown) == 0);
        } else if (c.shown) {
            CHECK(shown == c.shown);
        }
    }
    for (const char *name : {"TLYA", "TLYB", "TLYLOOP", "TLYSELF", "TLYBIG"}) {
        unsetenv(name);
    }
}
