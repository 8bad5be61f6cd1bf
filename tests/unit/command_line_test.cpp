// The command line and the program's own files. Most wrong command lines end the process, so every command line runs in a child
// process, in a directory of its own, and answers with its status and all that it wrote.
#include "bench.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <vector>

#include "config/languages.h"
#include "report/project/report_head.h"
#include "run/driver/command_line.h"
#include "run/driver/switches.h"
#include "run/driver/tly.h"
#include "run/program_files.h"

namespace {

constexpr int kReturned = 100; // status of a child whose command line let the run go on

struct Outcome {
    int status;
    std::string text;
};

using Words = std::vector<std::string>;
using Look = void (*)(int first_file, Globals *G);

StateBench NewBench() {
    StateBench bench;
    InitGlobals(bench.G);
    AddBuiltInLanguages(bench.G);
    bench.G->no_page_breaks = 0;
    return bench;
}

[[noreturn]] void RunChild(const Words &words, Look look) {
    const StateBench bench = NewBench();
    Globals *G = bench.G;
    static std::vector<char *> argv;
    static Words kept;
    kept = words;
    kept.insert(kept.begin(), "tly");
    for (std::string &word : kept) {
        argv.push_back(word.data());
    }
    G->argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    G->argv = argv.data();
    CopyText(G->prog_name, "tly");
    const int first_file = SetUpParams(G->argc, G->argv, G);
    FlushEarlyMessages(G);
    if (look) {
        look(first_file, G);
    }
    fflush(nullptr);
    _exit(kReturned);
}

Outcome Run(const Words &words, Look look = nullptr, const char *directory = "/tmp") {
    const TempDir place;
    const std::string name = place / "answer";
    const int answer = open(name.c_str(), O_CREAT | O_WRONLY, 0600);
    REQUIRE(answer >= 0);
    fflush(nullptr);
    const pid_t child = fork();
    REQUIRE(child >= 0);
    if (child == 0) {
        const int nowhere = open("/dev/null", O_RDWR);
        if (chdir(directory) != 0 || dup2(answer, 1) < 0 || dup2(nowhere, 0) < 0 || dup2(nowhere, 2) < 0) {
            _exit(101);
        }
        gTLYOUT = stdout;
        RunChild(words, look);
    }
    int status = 0;
    waitpid(child, &status, 0);
    close(answer);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadText(name)};
}

struct LookCase {
    Words words;
    const char *expected; // what look wrote, all of it
};

void CheckLooks(const std::vector<LookCase> &cases, Look look) {
    for (const LookCase &one : cases) {
        const Outcome outcome = Run(one.words, look);
        CAPTURE(one.words[0]);
        CHECK(outcome.status == kReturned);
        CHECK(outcome.text == one.expected);
    }
}

} // namespace

TEST_CASE("switches that look at others depend on their order") {
    CheckLooks({{{"-C", "-s"}, "1 0"}, {{"-s", "-C"}, "0 0"}, {{"-C", "-fa"}, "1 1"}, {{"-fa", "-A"}, "0 0"}},
               [](int, Globals *G) { printf("%d %d", G->csv_file_lines, G->csv_function_lines); });
    CheckLooks({{{"-Ns", "-Tp"}, "0 1"}, {{"-Tp", "-Nv"}, "1 0"}, {{"-Tq"}, "1 1"}, {{"-Nv", "-Tq"}, "1 0"}},
               [](int, Globals *G) { printf("%d %d", G->notices_by_file, G->notice_short_format); });
    CheckLooks({{{"-Flist", "-rc src"}, "0 1"}, {{"-rc src", "-Flist"}, "1 0"}},
               [](int, Globals *G) { printf("%d %d", G->file_list_mode, G->recursive_mode); });
    CheckLooks({{{"-wCreate .", "-wD"}, "0 0"}, {{"-wD", "-we"}, "0 1"}},
               [](int, Globals *G) { printf("%d %d", G->work_file_create, G->totals_no_file_names); });
    CheckLooks({{{"-xnowrap", "-xUdqnShow", "-xNOHEADER", "-xNOCOMMAND"}, "0 1 1 1 0 0"}, {{"-xfoo"}, "1 0 0 0 0 1"}},
               [](int, Globals *G) {
                   printf("%d %d %d %d %d %d", G->wrap_long_names, G->udqn_show, G->no_header, G->no_command, G->no_config,
                          G->report_switch_given);
               });
}

TEST_CASE("the parameter of -r is extensions, a blank and a directory") {
    const auto look = [](int, Globals *G) { printf("%s|%s", G->extension_list, G->top_dir); };
    CheckLooks({{{"-rh,cpp /my proj\nx"}, "h,cpp|/my proj"},
                {{"-rcpp ."}, "cpp|/tmp"},
                {{"-rcpp *.*"}, "cpp|/tmp"},
                {{"-rcpp /"}, "cpp|/tmp"},
                {{"-r src"}, "|src"},
                {{"-r", "c ./src"}, "c|./src"}},
               look);
    for (const char *wrong : {"-r*.c /tmp", "-r /tmp", "-rcpp", "-rcpp ", "-r*.c *", "-r\n"}) {
        CAPTURE(wrong);
        const Outcome outcome = Run({wrong}, look);
        CHECK(outcome.status == 1);
        CHECK(outcome.text.starts_with("\n  Error: In the specified parameter: -r\n"));
    }
}

TEST_CASE("names of work files and side files") {
    const auto look = [](int, Globals *G) { printf("%s|%s|%s", G->top_dir, G->work_file_name, G->work_file_path); };
    CheckLooks({{{"-wCreate /a/b/", "-wFile dat one.dat"}, "/a/b|one.dat|."},
                {{"-wFile dat /x/y z.dat", "-wCREATE ."}, ".|/x/y z.dat|/x"},
                {{"-wFile\tDAT  /one.dat\n"}, "|/one.dat|/"}},
               look);
    CheckLooks({{{"-wFile cfg /dev/null", "-xFile CSV a.cfg b", "-uFile xsl  my style.xsl"}, "/dev/null|a.cfg 2|my style.xsl 1"}},
               [](int, Globals *G) {
                   printf("%s|%s %d|%s %d", G->diff_cfg_file, G->csv_report_file, G->report_file_type, G->xsl_file,
                          G->xsl_file_set);
               });
}

TEST_CASE("a wrong switch ends the process with its own message and status") {
    const std::string syntax = "         Command line syntax is not correct\n", check = "         Check command line syntax\n";
    const std::string help = "         Use -hs for help text\n";
    struct ErrorCase {
        Words words;
        int status;
        std::string end; // how the output ends
    };
    const ErrorCase cases[] = {
        {{"-?"}, 1, "\n  Error: Command line parse error, invalid option.\n         Use -hs to show program help syntax.\n"},
        {{"-L"}, 1, "\n  Error: Command line parse error, invalid option.\n         Use -hs to show program help syntax.\n"},
        {{"-Dx"}, 1, "\n  Error: Invalid or missing parameter for -D option\n" + help},
        {{"-ES"}, 1, "\n  Error: Invalid parameter for -E option\n" + help},
        {{"-f", "x.c"}, 1, "         -fp for function points derived from LOC metrics\n         Use -hs for program syntax\n"},
        {{"-N", ""}, 1, "\n  Error: Invalid or missing parameter for -N option\n" + help},
        {{"-Rx"}, 1, "\n  Error: Invalid parameter for -R option\n" + help},
        {{"-Tz"}, 1, "\n  Error: Invalid or missing parameter for -T option\n" + help},
        {{"-q"}, 1, "\n  -q Query setup mode is now supported in the tly.cfg file.\n"},
        {{"-W"}, 1, "\n  -W Work Diff mode is now supported under the -wx option\n"},
        {{"-ux"}, 1, "\n  Error: Invalid or missing parameter for -u option\n" + help},
        {{"-uFile foo bar"}, 0, "\n  Error: -u \"File [cfg | xsl] [path\\filename]\"\n" + syntax},
        {{"-uFile xsl \n"}, 0, "\n  Error: -w \"File xsl\" file name not parsed\n" + check},
        {{"-wz"}, 1, "\n  Error: Invalid or missing parameter for -w option\n" + help},
        {{"-wc"}, 1, "         Current Directory Example: -w \"Create .\"\n"},
        {{"-wcreate"}, 1, "\n  Error: No baseline directory specififed for the\n         -w \"Create dir\" option.\n"},
        {{"-wCreate /"}, 1, "\n  Error: No baseline directory specififed for the\n         -w \"Create dir\" option.\n"},
        {{"-wfile"}, 0, "\n  Error: -w \"File [dat|cfg] [path\\filename]\"\n" + syntax},
        {{"-wFile dat"}, 0, "\n  Error: -w \"File dat\" file name not parsed\n" + check},
        {{"-wFile cfg"}, 0, "\n  Error: -w \"File cfg\" file name not parsed\n" + check},
        {{"-wFile cfg /no/such"}, 0, "\n  Error: File name [/no/such] not found\n"},
        {{"-wW"}, 0, "         longer supported.  Use the -wx switch to perform\n         baseline differentials\n\n"},
        {{"-wx one two"}, 1, "         Example -w\"x work file old, work file new\"\n" + help},
        {{"-xFile txt a"}, 1, "\n  Error: Invalid report file type\n"},
        {{"-xFile csv"}, 1, "\n  Error: -x \"File csv\" file name not parsed\n" + check},
        {{"-xold,new"}, 1, "\n  Error: Invalid parameter for -x option\n" + help},
        {{"-x", " old"}, 1, "\n  -x Work Diff extraction mode is now supported under the -wx option\n"},
        {{"-H", "-Tz"}, 1, help + "</pre></body></html>"},
        {{"-Tz", "-H"}, 1, help},
    };
    for (const ErrorCase &one : cases) {
        const Outcome outcome = Run(one.words);
        CAPTURE(one.words.back());
        CAPTURE(outcome.text);
        CHECK(outcome.status == one.status);
        CHECK(outcome.text.ends_with(one.end));
    }
    CHECK(Has(Run({"-uFile foo"}).text, "Tallyline (TM) for C, C++, C# and Java")); // -u errors stand behind a head
}

TEST_CASE("a parameter that its field can't hold is refused") {
    const std::string path(1024, 'p'), text(2048, 't');
    for (const std::string &word :
         {"-S" + text, "-O" + path, "-F" + path, "-r" + text + " d", "-rc " + text, "-uFile xsl " + path, "-wFile dat " + path,
          "-wFile cfg " + path, "-wCreate " + text, "-wx a," + path, "-wx " + path + ",b", "-xFile csv " + path}) {
        CAPTURE(word.substr(0, 12));
        const Outcome outcome = Run({word});
        CHECK(outcome.status == 1);
        CHECK(Has(outcome.text, std::string("\n  Error: The parameter of the ") + word.substr(0, 2) + " option is too long\n"));
    }
    CHECK(Run({"-S" + text.substr(1), "-F" + path.substr(1), "-rc " + text.substr(1)}).status == kReturned);
}

TEST_CASE("-O takes the report and spares what the run reads") {
    TempDir dir;
    for (const char *name : {"a.c", "list", "old.txt", "note"}) {
        WriteText(dir / name, "kept");
    }
    CHECK(symlink("a.c", (dir / "link").c_str()) == 0);
    const auto put = [](int, Globals *) { Put("report"); };
    const std::vector<Words> refused = {{"-O./a.c"}, {"-Onote", "-c", "note"}, {"-O", "link", "a.c"}, {"-Olist", "-cFlist"}};
    for (const Words &words : refused) {
        CAPTURE(words[0]);
        CHECK(Run(words, put, dir.path).status == 1);
    }
    for (const char *name : {"a.c", "list", "note"}) {
        CHECK(ReadText(dir / name) == "kept");
    }
    CHECK(Run({"-S", "old.txt", "-O", "old.txt", "a.c"}, put, dir.path).text == "\n  TLY using output file: old.txt\n");
    CHECK(ReadText(dir / "old.txt") == "report");
    CHECK(Run({"-Onew.c", "-Olast"}, put, dir.path).status == kReturned);
    CHECK(ReadText(dir / "new.c").empty());
    CHECK(ReadText(dir / "last") == "report");
    CHECK(Run({"-H", "-O/no/dir/x"}, put, dir.path).text ==
          "\n  Error: Could not open output file\n         Filename: /no/dir/x\n         No such file or directory\n\n"
          "</pre></body></html>");
}

TEST_CASE("the stored command line is wrapped, then escaped") {
    const auto show = [](const Words &words, size_t length) {
        static std::string text;
        text = std::string(length - 2, 'x') + "<&";
        const auto look = [](int, Globals *G) {
            CopyText(G->command_line, text.c_str());
            ShowCmdLine(G);
        };
        return Run(words, look).text;
    };
    const std::string x(57, 'x'), next = "\n                ";
    CHECK(show({"-c"}, 58) == x.substr(1) + "<& ");
    CHECK(show({"-H"}, 59) == x + "&lt;" + next + "&amp; ");
    CHECK(show({"-C"}, 59) == x + "<&");
    CHECK(show({"-X"}, 59) == "<command>" + x + "&lt;&amp;</command>\n");
    CHECK(show({"-c"}, 4000).size() == 2046 + 1);
}

TEST_CASE("the switch list knows every switch") {
    const Outcome help = Run({"-hs"});
    CHECK(help.status == 0);
    const auto lists = [&help](const std::string &name) {
        size_t at = 0;
        while ((at = help.text.find("          -" + name, at)) != std::string::npos && IsLetter(help.text[at + 11 + name.size()])) {
            ++at;
        }
        return at != std::string::npos;
    };
    for (const char *p = kSwitchLetters; *p; ++p) {
        CAPTURE(*p);
        CHECK((*p == ':' || lists(std::string(1, *p))));
    }
    CHECK(Has(Run({"-H", "-hs"}).text, "-switch[&quot;compound option&quot;]"));
}

TEST_CASE("-hp gives the short syntax, to the screen alone") {
    CHECK(Run({}).status == 0);
    CHECK(Run({"-hp"}).text.ends_with("          -hf Help manual full text\n\n  Press Enter Key To Continue ...\n"));
    CHECK(Run({"-O/dev/null", "-hp"}).text == "\n  TLY using output file: /dev/null\n");
}

namespace {

std::string ProgFile(const char *name, const char *cfg_home, const char *home, const char *program, const char *path) {
    const StateBench bench = NewBench();
    Globals *G = bench.G;
    const std::pair<const char *, const char *> variables[] = {{"TLYCFGHOME", cfg_home}, {"TLYHOME", home}, {"PATH", path}};
    const std::string old_path = getenv("PATH");
    for (const auto &[variable, value] : variables) {
        setenv(variable, value, 1);
    }
    std::string argument = program;
    char *argv[] = {argument.data(), nullptr};
    G->argc = 1;
    G->argv = argv;
    LoadEnv(G);
    SetProgramPath(G);
    PathText found = "as it was";
    GetProgFile(found, name, G);
    setenv("PATH", old_path.c_str(), 1);
    unsetenv("TLYHOME");
    unsetenv("TLYCFGHOME");
    return found;
}

} // namespace

TEST_CASE("homes of the program's files") {
    TempDir dir;
    WriteText(dir / "tly.cfg", "");
    const std::string path = "/no/such;;" + std::string(2000, 'p') + ":" + dir.path;
    const std::string longest(1023, 'h');
    CHECK(ProgFile("a.cfg", "/cfg", "/home", "/bin/tly", path.c_str()) == "/cfg/a.cfg");
    CHECK(ProgFile("a.cfg", "/", "/home/", "/bin/tly", path.c_str()) == "/home/a.cfg");
    CHECK(ProgFile("a.cfg", "", "", "/bin/tly", path.c_str()) == "/bin/a.cfg");
    CHECK(ProgFile("a.cfg", "", "", "tly", path.c_str()) == dir / "a.cfg");
    CHECK(ProgFile("a.cfg", "", "", "tly", "/no/such") == "./a.cfg");
    CHECK(ProgFile("b/a.cfg", "/cfg", "", "tly", "") == "as it was");
    CHECK(ProgFile("a.cfg", "", longest.c_str(), "tly", "").size() < sizeof(PathText));
    CHECK(ProgFile("a.cfg", "", "", ("/" + longest + "/tly").c_str(), "") == "./a.cfg");
}

TEST_CASE("a program file is replaced whole or not at all") {
    TempDir dir;
    const std::string file = dir / "tly.cfg", link = dir / "link", dead = dir / "dead";
    const auto write = [](FILE *stream, Globals *) { fputs("new", stream); };
    const auto fail = [](FILE *stream, Globals *) {
        fputs("half", stream);
        close(fileno(stream)); // as on a disk that is full: the bytes can't leave
    };
    WriteText(file, "old");
    CHECK(WriteProgramFile(file.c_str(), fail, nullptr) == 0);
    CHECK(ReadText(file) == "old");
    CHECK(chmod(file.c_str(), 0640) == 0);
    CHECK(symlink("tly.cfg", link.c_str()) == 0);
    CHECK(WriteProgramFile(link.c_str(), write, nullptr) == 1);
    struct stat found;
    CHECK((lstat(link.c_str(), &found) == 0 && S_ISLNK(found.st_mode)));
    CHECK((stat(file.c_str(), &found) == 0 && (found.st_mode & 0777) == 0640));
    CHECK(ReadText(file) == "new");
    CHECK(symlink("nothing", dead.c_str()) == 0);
    CHECK(mkfifo((dir / "pipe").c_str(), 0600) == 0);
    for (const std::string &path : {dir / "pipe", std::string(dir.path), dead, dir / "no/such"}) {
        CHECK(WriteProgramFile(path.c_str(), write, nullptr) == 0);
    }
    const std::string count = "test $(ls -A " + std::string(dir.path) + " | wc -l) = 4";
    CHECK(system(count.c_str()) == 0); // no temporary stays
}
