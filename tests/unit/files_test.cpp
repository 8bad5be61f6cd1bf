// From the command line to the list of files.
#include "bench.h"

#include <dirent.h>
#include <sys/stat.h>
#include <vector>

#include "files/file_list.h"

namespace {

// A directory of its own as working directory, a state record, and what the report says.
struct FilesBench : StateBench {
    TempDir directory;
    char *shown = nullptr;
    size_t shown_size = 0;
    FILE *report_before = gTLYOUT;
    std::vector<char *> arguments;

    FilesBench() {
        REQUIRE(chmod(directory.path, 0755) == 0);
        REQUIRE(chdir(directory.path) == 0);
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
        CHECK(chdir("/") == 0);
    }

    void Make(std::initializer_list<const char *> paths) { // a path with a trailing "/" is a directory
        for (const std::string path : paths) {
            if (path.back() == '/') {
                REQUIRE(mkdir(path.c_str(), 0755) == 0);
            } else {
                WriteText(path, "x\n");
            }
        }
    }
    std::string Walk(const char *extensions, const char *top) {
        G->recursive_mode = 1;
        CopyText(G->extension_list, extensions);
        CopyText(G->top_dir, top);
        return Build();
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
        LlistDestroy(&G->file_list, nullptr);
        const int count = BuildFileList(0, G);
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

TEST_CASE_FIXTURE(FilesBench, "files: the pattern filter") {
    G->pattern_filter_active = 1;
    CopyText(G->pattern_filter, "Test,my dir\t_gen\n");
    struct Case {
        const char *name;
        int with_case, without_case;
    };
    const Case cases[] = {
        {"src/Test/a.c", 1, 1}, {"src/latest.c", 0, 1}, {"my dir/a.c", 1, 1}, {"my/dir.c", 0, 0}, {"a_gen.c", 1, 1}, {"", 0, 0},
    };
    G->names_case_sensitive = 1;
    for (const Case &c : cases) {
        CHECK(FilenamePatternMatch(c.name, G) == c.with_case);
    }
    G->names_case_sensitive = 0;
    CHECK(Arguments({"latest.c", "a.c"}) == "a.c"); // BuildFileList lowers the filter
    for (const Case &c : cases) {
        CHECK(FilenamePatternMatch(c.name, G) == c.without_case);
    }
    CHECK(FilenamePatternMatch((std::string(100000, 'a') + "TEST").c_str(), G) == 1);
}

TEST_CASE_FIXTURE(FilesBench, "files: a directory walk") {
    SUBCASE("without -Rn a directory's files stand where the directory stands among its neighbours") {
        Make({"t/", "t/a.c", "t/m/", "t/m/b.c", "t/m/n/", "t/m/n/c.c", "t/m/n/d.c", "t/m/e.c", "t/z/", "t/z/f.c", "t/g.c"});
        CHECK(Walk("c", "t") + ":" == ByRecursion("t"));
    }
    SUBCASE("excluded directories are compared as whole paths") {
        Make({"src/", "src/b.c", "src/FOO.CPP", "src/sub/", "src/sub/x.c", "src/sub/k.h", "src/sub/dir.c/", "src/no", "src/dot."});
        G->exclude_dirs_active = G->sort_input_by_name = 1;
        CopyText(G->excluded_dirs, "sub, SRC/SUB");
        CHECK(Walk("c", "src") == "src/b.c");
        G->names_case_sensitive = 1;
        CHECK(Walk("c", "src") == "src/b.c:src/sub/x.c"); // no dir.c
    }
}

TEST_CASE_FIXTURE(FilesBench, "files: a walk that fails") {
    SUBCASE("an unreadable directory ends every walk above it") {
        Make({"src/", "src/sub/", "src/sub/shut/"});
        REQUIRE(chmod("src/sub/shut", 0) == 0);
        const bool root = geteuid() == 0;
        REQUIRE((!root || seteuid(65534) == 0));
        const int result = ReadDir("src/", "c", G);
        REQUIRE((!root || seteuid(0) == 0));
        CHECK(result == 0);
        CHECK(G->dir_stack.count == 0);
        CHECK(Shown() == "  Open Dir Error: src/sub/shut : Permission denied\n"
                         "  Read Dir Error: src/sub : Permission denied\n"
                         "  Read Dir Error: src/ : Permission denied\n");
    }
    SUBCASE("a path that is too long is told, and the walk goes on") {
        const std::string name(250, 'd');
        for (int i = 0; i < 9; ++i) { // the ninth doesn't fit
            REQUIRE(mkdir(name.c_str(), 0755) == 0);
            REQUIRE(chdir(name.c_str()) == 0);
        }
        REQUIRE(chdir(directory.path) == 0);
        Make({"last.c"});
        CHECK(Walk("c", ".") == "./last.c");
        CHECK(Shown().find("\n  Error: The path is too long and was passed over\n         ./ddd") == 0);
    }
}

TEST_CASE_FIXTURE(FilesBench, "files: environment variables in a line") {
    setenv("TLYA", "aa", 1);
    setenv("TLYB", "%TLYA%", 1);
    setenv("TLYLOOP", "%TLYLOOP%%TLYLOOP%", 1);
    setenv("TLYSELF", "%TLYSELF%", 1);
    setenv("TLYBIG", std::string(2000, 'x').c_str(), 1);
    const std::string too_long = "%TLYBIG%" + std::string(60, 'y') + ".c";
    struct Case {
        const char *line, *expanded, *shown;
    };
    const Case cases[] = {
        {"a%b.c", "a%b.c", ""},
        {"%%a%TLYA%", "%%a%TLYA%", ""},
        {"1%TLYA%2%3", "1aa2%3", ""},
        {"%TLYA%/%TLYA%", "aa/aa", ""},
        {"%TLYB%.c", "%TLYA%.c", ""}, // no pair behind it: the value stands
        {"%TLYA%/%TLYNONE%", "aa/%TLYNONE%", "  Error: Expanding environment variable"},
        {"%TLYSELF%%x%\n", "%TLYSELF%%x%\n", "No end of variables in the line: "},
        {"%TLYLOOP%%x%", "%TLYLOOP%%x%", "  Error: Expanding"},
        {too_long.c_str(), too_long.c_str(), "The expanded line is too long: "},
    };
    for (const Case &c : cases) {
        CAPTURE(c.line);
        LineText out;
        CHECK(std::string(ExpandEnvarString(c.line, out, G)) == c.expanded);
        const std::string told = Shown();
        CHECK((*c.shown ? Has(told, c.shown) : told.empty()));
    }
    for (const char *name : {"TLYA", "TLYB", "TLYLOOP", "TLYSELF", "TLYBIG"}) {
        unsetenv(name);
    }
}
