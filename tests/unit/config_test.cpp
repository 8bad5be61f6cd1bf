// Settings file, language table and macro file, driven on real files in a directory of their own.
#include "bench.h"

#include <set>
#include <sstream>
#include <sys/stat.h>

#include "config/languages.h"
#include "config/macros.h"
#include "config/settings.h"

namespace {

// A state record as the start of a run leaves it, with its files in an own directory; messages go into a file there.
struct Bench : StateBench {
    TempDir directory;
    FILE *old_out = gTLYOUT;

    Bench() {
        gTLYOUT = fopen(Path("out").c_str(), "w+b");
        REQUIRE(gTLYOUT);
        G->head_written = 1;
        G->ulpi_count = G->ulpi_last = -1;
        CopyText(G->version, "7.75");
        CopyText(G->cfg_file, Path("tly.cfg").c_str());
        CopyText(G->macro_file, Path("tly_macro.cfg").c_str());
        DefaultSettings(G);
    }
    ~Bench() {
        fclose(gTLYOUT);
        gTLYOUT = old_out;
    }

    std::string Path(const char *name) const { return directory / name; }
    void Write(const char *name, const std::string &text) const { WriteText(Path(name), text); }
    std::string Read(const char *name) const { return ReadText(Path(name)); }
    // What was written to the report stream since the last call.
    std::string Output() const {
        fflush(gTLYOUT);
        std::string text = Read("out");
        REQUIRE(ftruncate(fileno(gTLYOUT), 0) == 0);
        rewind(gTLYOUT);
        return text;
    }
    std::string Shown() const {
        return Written([&] { ShowCfg(gTLYOUT, G); });
    }
    // Loads a settings file of this version with these lines.
    int Load(const std::string &lines) {
        Write("tly.cfg", "TLY CFG Version: 7.75\n" + lines);
        return LoadCfg(G);
    }
};

// The value that the display shows for a key.
std::string ValueOf(const std::string &shown, const std::string &key) {
    const size_t at = shown.find("\n" + key + std::string(key.length() < 40 ? 40 - key.length() : 0, ' ') + ": ");
    if (at == std::string::npos) {
        return "(none)";
    }
    const size_t begin = shown.find(": ", at) + 2;
    return shown.substr(begin, shown.find('\n', begin) - begin);
}

} // namespace

TEST_CASE_FIXTURE(Bench, "each key of the settings file stands there once, padded") {
    std::set<std::string> keys;
    std::istringstream lines(Shown());
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != '#' && !line.starts_with("TLY CFG")) {
            INFO(line);
            const size_t colon = line.find(": ");
            CHECK(colon >= 40);
            CHECK(keys.insert(line.substr(0, colon)).second);
        }
    }
}

TEST_CASE("values by type") {
    const std::string long_text(2010, 'x');
    const struct {
        std::string line;
        const char *key;
        std::string value;
    } cases[] = {
        {"Quality Notice 5:", "Quality Notice 5", "Yes"},
        {"Quality Notice 21: true", "Quality Notice 21", "Yes"},
        {"Quality Notice 5: nonsense", "Quality Notice 5", "No"},
        {"QUALITY NOTICE 5 \t:\t No\r", "Quality Notice 5", "No"},
        {"Quality Notice 5 No", "Quality Notice 5", "Yes"},
        {"Quality Notice: No", "Quality Notice 5", "Yes"},
        {"quality notice 25: No", "Treat C headers as C++", "No"},
        {"Maximum Line Length: 0120 characters", "Maximum Line Length", "120"},
        {"Maximum Line Length: 99999999999999999999", "Maximum Line Length", "1000000"},
        {"Printed Line Length: 1", "Printed Line Length", "20"},
        {"A TAB is equivalent to n space: 65", "A TAB is equivalent to n space", "64"},
        {"Maximum depth of scope: 0", "Maximum depth of scope", "7"},
        {"Progress status interval number of files: 0", "Progress status interval number of files", "1"},
        {"Minimum File Whitespace Percent: 7.256", "Minimum File Whitespace Percent", "7.26  "},
        {"Minimum File Whitespace Percent: .5", "Minimum File Whitespace Percent", "10.00 "},
        {"Minimum File Whitespace Percent: 1e999", "Minimum File Whitespace Percent", "999.00"},
        {"Pattern Filter: a\nPattern Filter:", "Pattern Filter", "a"},
        {"Pattern Filter: a\npattern filter: \xe4\x01z", "Pattern Filter", "\xe4?z"},
        {"Local directory names not processed:", "Local directory names not processed", ""},
        {"Work file location path: \rx", "Work file location path", ""},
        {"HTML Text Color: <red>", "HTML Text Color", "#000000"},
        {"HTML Text Color: #1234567890123456789012345", "HTML Text Color", "#1234567890123456789"},
        {"Java File Extensions: .java", "Java File Extensions", "java"},
        {"Java File Extensions: " + std::string(300, 'j'), "Java File Extensions", std::string(254, 'j')},
        {"TLY KEY String:" + long_text, "TLY KEY String", "(none)"}, // too long for the padded form
        {std::string("Quality Notice 5\0: No\nQuality Notice 6: No", 43), "Quality Notice 5", "Yes"},
    };
    for (const auto &c : cases) {
        INFO(c.line);
        Bench bench;
        CHECK(bench.Load(c.line) == 1);
        const std::string shown = bench.Shown();
        CHECK(ValueOf(shown, c.key) == c.value);
        // What is shown is a settings file of the same values.
        Bench second;
        second.Write("tly.cfg", shown);
        CHECK(LoadCfg(second.G) == 1);
        CopyText(second.G->cfg_file, bench.G->cfg_file);
        CopyText(second.G->macro_file, bench.G->macro_file);
        CHECK(second.Shown() == shown);
        CHECK(std::string(second.G->key_string) == bench.G->key_string);
        CHECK(second.G->key_string_set == (*bench.G->key_string != '\0'));
    }
}

TEST_CASE_FIXTURE(Bench, "files that aren't settings files") {
    SUBCASE("a directory or a FIFO is left alone and doesn't block") {
        mkdir(Path("tly.cfg").c_str(), 0700);
        CHECK(LoadCfg(G) == 0);
        rmdir(Path("tly.cfg").c_str());
        REQUIRE(mkfifo(Path("tly.cfg").c_str(), 0600) == 0);
        CHECK(LoadCfg(G) == 0);
        struct stat about;
        CHECK((stat(Path("tly.cfg").c_str(), &about) == 0 && S_ISFIFO(about.st_mode)));
    }
    SUBCASE("no place for the file") {
        CopyText(G->cfg_file, Path("none/tly.cfg").c_str());
        CHECK(LoadCfg(G) == 0);
    }
    SUBCASE("lines longer than a line go on as lines of their own") {
        Load(std::string(2047, 'x') + "Maximum Line Length: 9\nQuality Notice 5: n");
        CHECK(G->max_line_length == 9);
        CHECK(G->notice_enabled[5] == 0);
    }
    SUBCASE("a last piece that begins with a control byte is dropped") {
        Load("Maximum Line Length: 9\n\x1a");
        CHECK(G->max_line_length == 9);
    }
}

TEST_CASE("the file of user defined notices and TLYCFGHOME") {
    const struct {
        const char *home, *value, *file;
    } cases[] = {{"", "", ""},
                 {"", "x", ""},
                 {"", "a/u.cfg", "a/u.cfg"},
                 {"/", "u.cfg", "u.cfg"},
                 {"/h/", "", "/h/tly_udqn.cfg"},
                 {"/h/", "u.cfg", "/h/u.cfg"},
                 {"/h/", "a/u.cfg", ""}};
    for (const auto &c : cases) {
        INFO(c.home << " " << c.value);
        Bench bench;
        CopyText(bench.G->TLYCFGHOME, c.home);
        bench.Write("tly.cfg", std::string("TLY user defined quality notice file: ") + c.value);
        LoadCfg(bench.G); // no version: the file is rewritten
        CHECK(std::string(bench.G->udqn_file) == c.file);
        CHECK(ValueOf(bench.Read("tly.cfg"), "TLY user defined quality notice file") == c.value);
        CHECK(ValueOf(bench.Shown(), "TLY user defined quality notice file") == c.value);
    }
    // a file laid over says nothing that counts: what is displayed is still what leads to the file in use
    Bench bench;
    CopyText(bench.G->TLYCFGHOME, "/h/");
    bench.Load("TLY user defined quality notice file: u.cfg\n");
    bench.Load("TLY user defined quality notice file: a/v.cfg\n");
    CHECK(ValueOf(bench.Shown(), "TLY user defined quality notice file") == "u.cfg");
}

TEST_CASE_FIXTURE(Bench, "the display in HTML, the file in plain text") {
    G->html_mode = 1;
    CopyText(G->start_dir, "/a<b>\nQuality Notice 5: No");
    Load("HTML Text Color: r\"><i\nReport Header HTML Line: <b>&</b>\n");
    const std::string shown = Shown();
    CHECK(ValueOf(shown, "HTML Text Color") == "<font color=\"r&quot;&gt;&lt;i\">r&quot;&gt;&lt;i</font>");
    CHECK(ValueOf(shown, "Report Header HTML Line") == "&lt;b&gt;&amp;&lt;/b&gt;");
    CHECK(Has(shown, "# Current Working Dir.: /a&lt;b&gt;?Quality Notice 5: No\n"));
    Write("tly.cfg", Read("tly.cfg").substr(strlen("TLY CFG Version: 7.75")) + "TLY CFG Version: 1\n");
    LoadCfg(G);
    CHECK(ValueOf(Read("tly.cfg"), "HTML Text Color") == "r\"><i");
}

TEST_CASE("the extension of a name") {
    const std::string cut = std::string(254, 'e');
    const std::string long_name = "a." + std::string(300, 'e');
    const std::string long_version = long_name + "@@/1";
    const struct {
        const char *name, *extension; // null for none
    } cases[] = {{"foo.c", "c"},
                 {"foo", nullptr},
                 {"", nullptr},
                 {"foo.", ""},
                 {".c", "c"},
                 {"path.d/foo", "d/foo"},
                 {"a@b.c", "c"},
                 {"@", nullptr},
                 {"@@", nullptr},
                 {"a@@", nullptr},
                 {".@@", nullptr},
                 {".c@@/1", nullptr},
                 {"a.@@/main/3", ""},
                 {"foo.c@@/main/3", "c"},
                 {"foo@@/main/3", nullptr},
                 {"d.x/foo@@/main/3", nullptr},
                 {"d.x\\foo.h@@3", "h"},
                 {"foo/@@3", nullptr},
                 {"foo.c@@/a@b.d", "d"},
                 {long_name.c_str(), cut.c_str()},
                 {long_version.c_str(), cut.c_str()}};
    Bench bench;
    for (const auto &c : cases) {
        INFO(c.name);
        const char *extension = getExtension(c.name, bench.G);
        REQUIRE((extension != nullptr) == (c.extension != nullptr));
        CHECK(std::string(extension ? extension : "") == (c.extension ? c.extension : ""));
    }
}

TEST_CASE_FIXTURE(Bench, "languages of files") {
    AddBuiltInLanguages(G);
    buildExtensions(G);
    const struct {
        const char *name;
        int case_sensitive, headers_as_cpp, language;
        const char *flags; // c, C++, Java, C#, header, other
    } cases[] = {
        {"foo.C", 0, 1, kC, "100000"},           {"foo.CC", 1, 1, kCpp, "010000"},         {"foo.C", 1, 1, -1, "000000"},
        {"foo.H", 0, 1, kCHeader, "010010"},     {"foo.h", 0, 0, kCHeader, "100010"},      {"foo.H", 1, 1, kCppHeader, "010000"},
        {"foo.java", 0, 1, kJava, "001000"},     {"foo.cs", 0, 1, kCs, "000100"},          {"foo.txt", 0, 1, -1, "000000"},
        {"foo.hpp", 0, 1, kCppHeader, "010000"}, {"Makefile", 0, 1, kCppHeader, "000000"}, // as the file before it
    };
    for (const auto &c : cases) {
        INFO(c.name << c.case_sensitive);
        G->names_case_sensitive = c.case_sensitive;
        G->treat_c_headers_as_cpp = c.headers_as_cpp;
        CHECK(WhichFile(c.name, G, 1) == c.language);
        std::string flags;
        for (const int flag : {G->is_c, G->is_cpp, G->is_java, G->is_cs, G->is_c_header, G->is_other}) {
            flags += flag ? '1' : '0';
        }
        CHECK(flags == c.flags);
    }
    // A settings file that is loaded later changes the table: its lists overwrite the records from the front.
    Load("C++ Header File Extensions: tpp, ipp\nOther File Extensions: txt\n");
    WhichFile("a.txt", G, 1);
    CHECK(G->is_other == 1);
    CHECK(G->other_files == 1);
    CHECK(findUlpi("ipp", G) == kCppHeader);
    CHECK(findUlpi("hh", G) == -1);
    CHECK(findUlpi("hxx", G) == kCppHeader); // behind the new list

    CHECK(valid_ext("CS", "c, cs\tjava", 0, G) == 1);
    CHECK(valid_ext("CS", "c, cs\tjava", 1, G) == 0);
    CHECK(valid_ext("jav", "c,cs,java", 0, G) == 0);
    CHECK(valid_ext("csx", "c,cs,java", 0, G) == 0);
    CHECK(valid_ext("", "c,,cs", 0, G) == 0);
    CHECK(valid_ext(nullptr, "c", 0, G) == 0);
}

TEST_CASE_FIXTURE(Bench, "limits of the language table") {
    std::string list;
    for (int i = 0; i < 83; ++i) {
        list += static_cast<char>('a' + i % 26);
        list += ", "[i % 2];
    }
    CHECK(addUlpi(std::string(100, 'n').c_str(), list.c_str(), G) == 0);
    CHECK(Output() == "\n  Error: Max ULPI extensions reached\n\n  Error: Max ULPI extensions reached\n");
    CHECK(std::string(G->ulpi[0]->name) == std::string(40, 'n'));
    CHECK(parseUlpiExtensions(nullptr, "c", G) == -1);
    CHECK(parseUlpiExtensions(G->ulpi[0], " ,\t", G) == -1);
    const std::string half(200, 'h');
    for (int i = 1; i < 1024; ++i) {
        CHECK(addUlpi("x", (half + "," + half).c_str(), G) == i); // the second is cut with the list
    }
    CHECK(Output().empty());
    CHECK(addUlpi("x", "y", G) == 1023);
    CHECK(Output() == "\n  Error: Max Universal Language PlugIn reached\n");
    buildExtensions(G); // what doesn't fit is dropped whole
}

TEST_CASE_FIXTURE(Bench, "the macro file") {
    Write("tly_macro.cfg", "# comment\n  #indented\n indented\n\r\n\n\xe4high\n\vx\nTWO WORDS \t\r\n__attribute__ \n!\nlast");
    CHECK(LoadMacros(G) == 4);
    std::string names;
    for (const NameData *macro : Records<NameData>(G->macro_list)) {
        names += std::string(macro->name) + "|";
    }
    CHECK(names == "TWO WORDS|__attribute__|!|last|");
    CopyText(G->macro_file, Path("none/tly_macro.cfg").c_str());
    CHECK(LoadMacros(G) == 0);
}
