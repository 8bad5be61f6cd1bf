// The frame of a report: heads, messages around them, texts from outside in all four modes, and the lines that reports share.
#include "bench.h"

#include <functional>
#include <random>
#include <sys/wait.h>

#include "report/forms.h"
#include "report/frame.h"
#include "report/lines.h"
#include "report/names.h"
#include "report/project/report_head.h"
#include "run/encode.h"

namespace {

// A state record as a run has it behind its settings, in one mode.
struct Desk : StateBench {
    explicit Desk(Mode mode = Mode::kText) {
        SetMode(mode);
        G->wrap_long_names = 1;
        CopyText(G->version, "7.75");
        CopyText(G->html_header_color, "#993300");
        CopyText(G->start_dir, "/home/me");
    }
};

void WriteHead(Globals *G) {
    switch (OutputMode(G)) {
    case Mode::kCsv: CSV_Header(G); break;
    case Mode::kXml: XML_Header(G); break;
    default: ShowHeader(G); break;
    }
}

// Runs a function that ends the process, in a child. Returns what it wrote to the report and its status.
std::pair<std::string, int> Ended(const std::function<void()> &run, const char *path = nullptr) {
    const TempDir dir;
    const std::string name = dir / "report";
    fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        gTLYOUT = fopen(path ? path : name.c_str(), "wb");
        stderr = fopen("/dev/null", "w");
        run();
        _exit(99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {ReadText(name), WEXITSTATUS(status)};
}

const char *const kHostile = "<&\"'--\x01\xFF>,%s";

} // namespace

TEST_CASE("texts from outside can't break a document") {
    const struct {
        const char *text, *html, *xml;
    } rows[] = {
        {"a<b>&\"c'", "a&lt;b&gt;&amp;&quot;c'", "a&lt;b&gt;&amp;&quot;c&apos;"},
        {"\t\n\r\x01\x1F\x7F", "\t\n\r\x01\x1F\x7F", "\t\n\r??\x7F"},
        {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF",
         "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF"},
        {"\xE4", "\xE4", "?"},                                              // Latin-1
        {"\xC0\xAF\xE0\x80\xAF", "\xC0\xAF\xE0\x80\xAF", "?????"},          // overlong "/"
        {"\xED\xA0\x80\xEF\xBF\xBE", "\xED\xA0\x80\xEF\xBF\xBE", "??????"}, // surrogate, U+FFFE
        {"\xF4\x90\x80\x80\xF5", "\xF4\x90\x80\x80\xF5", "?????"},          // above U+10FFFF
        {"x\xE2\x82", "x\xE2\x82", "x??"},                                  // cut off
        {"\xC3<", "\xC3&lt;", "?&lt;"},
        {nullptr, "", ""},
    };
    std::string out;
    for (const auto &row : rows) {
        HTML_esc(row.text, out);
        CHECK(out == row.html);
        xml_encode(row.text, out);
        CHECK(out == row.xml);
    }
    csv_field("f(int a,int b)", out);
    CHECK(out == "f(int a int b)");
    url_encode("file:///a b/c#\"%\xE4.c", out);
    CHECK(out == "file:///a%20b/c%23%22%25%E4.c");
}

// One argument in a format of the conversions that forms have.
TEST_CASE("a form prints what the library's printf prints") {
    std::mt19937 random(11);
    const auto upto = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n + 1)); };
    std::string wanted;
    const auto number = [&] { return static_cast<long>(static_cast<int32_t>(random()) >> upto(31)); };
    const std::string got = Written([&] {
        for (int round = 0; round < 20000; ++round) {
            const std::string text(static_cast<size_t>(upto(1) ? upto(12) : upto(1500)), 's');
            static constexpr double kDivisors[] = {8, -40, 3e3, 1e14, 1e-8, 1e-290};
            const double real = static_cast<double>(number()) / kDivisors[upto(5)];
            const char kind = "dlfsc"[upto(4)];
            const bool whole = kind == 'd' || kind == 'l';
            std::string format = upto(1) ? "%" : "a %% b%";
            format += upto(2) ? "" : "-";
            format += whole && !upto(2) ? "0" : "";
            format += upto(1) ? std::to_string(1 + upto(upto(9) ? 20 : 1200)) : "";
            format += (kind == 'f' || kind == 's') && upto(1) ? "." + std::to_string(upto(9)) : "";
            format += kind == 'l' ? "ld|" : std::string(1, kind) + "|";
            const long value = number();
            const forms::Arg arg = kind == 'd'   ? forms::Arg(static_cast<int>(value))
                                   : kind == 'l' ? forms::Arg(value << upto(31))
                                   : kind == 'f' ? forms::Arg(real)
                                   : kind == 's' ? forms::Arg(text.c_str())
                                                 : forms::Arg(static_cast<char>('!' + upto(90)));
            char shown[4000];
            const char *const f = format.c_str();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
            switch (kind) {
            case 'f': snprintf(shown, sizeof shown, f, arg.real); break;
            case 's': snprintf(shown, sizeof shown, f, arg.text); break;
            case 'l': snprintf(shown, sizeof shown, f, arg.number); break;
            default: snprintf(shown, sizeof shown, f, static_cast<int>(arg.number)); break;
            }
#pragma GCC diagnostic pop
            wanted += shown;
            const forms::CutFormat<1> cut(f);
            forms::Write(f, cut.steps, {}, &arg, nullptr);
        }
    });
    const size_t at = static_cast<size_t>(std::mismatch(got.begin(), got.end(), wanted.begin(), wanted.end()).first - got.begin());
    CHECK(got.substr(at, 60) == wanted.substr(at, 60));
}

TEST_CASE("a date is the library's, whatever its year") {
    std::mt19937_64 random(3);
    for (int bits = 1; bits < 64; ++bits) {
        for (int round = 0; round < 40; ++round) {
            const auto when = static_cast<time_t>(random()) >> (64 - bits);
            struct tm parts;
            char date[64] = "\n";
            CAPTURE(when);
            CHECK(get_date(&when) + "\n" == (localtime_r(&when, &parts) && asctime_r(&parts, date) ? date : "\n"));
        }
    }
}

TEST_CASE("a message waits for the document and is encoded where it lands") {
    const char *const bodies[] = {"early <--> -\ntext head late <-->\n", "early &lt;--&gt; -\n", "early <--> -\nTallyline\n",
                                  "<!--early &lt;-&#45;&gt; -\n-->\n<program>Tallyline</program>\n"};
    for (const Mode mode : kModes) {
        Desk desk(mode);
        desk.G->no_header = desk.G->no_config = desk.G->no_command = 1;
        CHECK(Written([&] { Message(desk.G, "early %s\n", "<--> -"); }) == "");
        const std::string shown = Written([&] {
            WriteHead(desk.G);
            Put("text head ");
            Message(desk.G, "late %s\n", "<-->");
        });
        CHECK(Has(shown, bodies[static_cast<int>(mode)]));
    }
    Desk xml(Mode::kXml);
    xml.G->root_open = 1;
    CHECK(Written([&] {
              Message(xml.G, "---");
              Message(xml.G, "-");
              FlushEarlyMessages(xml.G);
              CloseDocument(xml.G);
              Message(xml.G, "behind");
          }) == "<!---&#45;&#45;-->\n<!--&#45;-->\n</vxtly>\n<!--behind-->\n");
}

TEST_CASE("an early end closes what is open, once, and owns up to a lost report") {
    const auto end = [](Mode mode, bool closed) {
        return Ended([=] {
            const StateBench bench;
            bench.SetMode(mode);
            WriteHead(bench.G);
            if (closed) {
                CloseDocument(bench.G);
            }
            EndProcess(bench.G, 1);
        });
    };
    for (const bool closed : {false, true}) {
        for (const Mode mode : {Mode::kHtml, Mode::kXml}) {
            const auto [text, status] = end(mode, closed);
            const std::string last = mode == Mode::kHtml ? "</html>" : "</vxtly>\n";
            CHECK(text.find(last) == text.size() - last.size());
            CHECK(status == 1);
        }
    }
    const auto full = [] {
        Put("%5000s", "");
        EndProcess(nullptr, 0);
    };
    CHECK(Ended(full, "/dev/full").second == 1);
    CHECK(Ended([] { EndProcess(nullptr, -1); }).second == 255);
}

TEST_CASE("heads under hostile names and titles") {
    const auto head = [](Mode mode, auto &&change) {
        Desk desk(mode);
        Globals *G = desk.G;
        for (std::span<char> text : {std::span<char>(G->cfg_file), {G->report_title}, {G->header_text}, {G->xsl_file}}) {
            CopyText(text, kHostile);
        }
        G->no_command = G->title_set = G->report_header_active = G->xsl_file_set = 1;
        change(G);
        return Written([&] { WriteHead(G); });
    };
    const auto as_is = [](Globals *) {};
    const std::string encoded = "&lt;&amp;&quot;&apos;--??&gt;,%s";
    CHECK(Has(head(Mode::kText, as_is), std::string(kUnderscores) + kUnderscores + "\n\n  Config. File: " + kHostile + "\n\n"));
    CHECK(Has(head(Mode::kHtml, as_is), "Config. File</font></b>: &lt;&amp;&quot;'--\x01\xFF&gt;,%s\n"));
    CHECK(Has(head(Mode::kXml, as_is), "href=\"file:///" + encoded + "\"?>\n<vxtly>\n<banner>" + encoded + "</banner>\n"));
    CHECK(Has(head(Mode::kCsv, as_is), "\n\nConfiguration File,<&\"'--\x01\xFF> %s\n\n" + std::string(kHostile) + "\n"));
    CHECK(Has(head(Mode::kXml, [](Globals *G) { CopyText(G->xsl_file, "c:\\x\\y.xsl"); }), "href=\"file:///c:/x/y.xsl\""));
    CHECK(Has(head(Mode::kXml, [](Globals *G) { CopyText(G->xsl_file, "./x\\y.xsl"); }), "href=\"./x\\y.xsl\""));
    const std::string longest(sizeof(LineText) - 1, '<');
    CHECK(head(Mode::kText, [&](Globals *G) { CopyText(G->report_title, longest.c_str()); }).ends_with("\n\n " + longest + "\n\n"));
    for (const bool background : {false, true}) {
        for (const bool link : {false, true}) {
            const std::string page = head(Mode::kHtml, [=](Globals *G) {
                CopyText(G->html_background_color, background ? "\">" : "");
                CopyText(G->html_link_color, link ? "red" : "");
                CopyText(G->html_text_color, "blue");
                CopyText(G->html_vlink_color, "tan");
            });
            const std::string rest =
                link ? "text=\"blue\" vlink=\"tan\" link=\"red\" alink=\"\"" : "text=\"#000000\" vlink=\"#660099\" ";
            CHECK(Has(page, std::string("<body ") + (background ? "bgcolor=\"&quot;&gt;\" " : "") + rest));
        }
    }
}

TEST_CASE_FIXTURE(Desk, "centring, wrapping, links") {
    const struct { size_t length, blanks; } widths[] = {{0, 38}, {1, 38}, {2, 37}, {73, 2}, {74, 1}, {3000, 1}};
    for (const auto &row : widths) {
        const std::string text(row.length, 'x');
        CHECK(Written([&] { Center(text.c_str()); }) == std::string(row.blanks, ' ') + text + "\n");
    }
    LineText out;
    const auto wrapped = [&](const char *name) {
        AdjNameLength(name, out, 5, 2, G);
        return std::string(out);
    };
    CHECK(wrapped(nullptr).empty());
    CHECK(wrapped("12345") == "12345");
    CHECK(wrapped("123456") == "12345\n  6");
    AdjNameLength(std::string(2000, 'n').c_str(), out, 2, 7, G);
    CHECK(strlen(out) == 2046);
    G->wrap_long_names = 0;
    CHECK(wrapped("123456") == "123456");

    const struct {
        const char *name, *absolute, *relative;
    } links[] = {{"/x/a.c", "file:///x/a.c", "/x/a.c"},
                 {"./a.c", "file:///home/me/a.c", "./a.c"},
                 {"a.c/", "file:///home/me/a.c", "a.c"},
                 {"c:/home/me/a.c", "file://c:/home/me/a.c", "a.c"},
                 {"c:/home/me2/a.c", "file://c:/home/me2/a.c", "c:/home/me2/a.c"},
                 {"c:/home/me", "file://c:/home/me", ""},
                 {"/", "file:///", "/"}};
    for (const auto &row : links) {
        G->relative_html_links = 0;
        CHECK(std::string(HTMLPathFile(row.name, G)) == row.absolute);
        G->relative_html_links = 1;
        CHECK(std::string(HTMLPathFile(row.name, G)) == row.relative);
    }
}

TEST_CASE("sums of a file and of the project") {
    const auto sums = [](Mode mode, int project, int list_functions) {
        Desk desk(mode);
        Globals *G = desk.G;
        G->file_loc = 12, G->just_brace_count = 3, G->just_paren_count = 1;
        G->semicolon_count = 7, G->for_count = 2, G->file_comments = 4, G->file_line_no = 21, G->skipped_lines = 5;
        G->files_processed = 8;
        G->report_switch_given = G->function_points = 1;
        G->list_functions = list_functions;
        return Written([&] { ShowTotalSummary(G, project, 1); });
    };
    CHECK(Has(sums(Mode::kText, 1, 0), "  Average per File, metric/8 files\n"
                                       "  LOC 1        eLOC 1        lLOC 0        Comment 0        Lines        2\n"));
    CHECK(
        sums(Mode::kCsv, 0, 0).starts_with("LOC,12,eLOC,8,lLOC,5,Comment,4,Lines,21\nAvg LOC,1,eLOC,1,lLOC,0,Comment,0,Lines,2\n"));
    CHECK(Has(sums(Mode::kCsv, 1, 1), "Project,Totals\nLOC,12,eLOC,8,lLOC,5,Comment,4,Lines,21,Comment/eLOC,0.50\n\n"));
    CHECK(Has(sums(Mode::kXml, 1, 0), "<comment_per_eloc>0.50</comment_per_eloc>\n<function_point_loc>0.0</function_point_loc>\n"));
    CHECK(sums(Mode::kXml, 0, 0) == "");
    CHECK(sums(Mode::kText, 1, 1) == "");
}

TEST_CASE_FIXTURE(Desk, "function points and notices per line") {
    G->fp_per_language[3] = 128, G->fp_per_language[9 + 1] = 53;
    G->is_java = 1;
    CHECK(GetFP(530, 1, G) == 10.0);
    CHECK(GetFP(530, 3, G) == 0.0);
    G->is_java = 0, G->is_c = 1;
    CHECK(GetFP(64, 0, G) == 0.5);
    G->is_c_header = 1; // ahead of the C that it is too
    CHECK(GetFP(64, 0, G) == 0.0);
    CHECK(Written([&] { FileMethodNotices(2, 3, 60, G); }) ==
          "  Quality      Funcs 2       Notice 3      QN/Func  1.5    QN/KeLOC     50\n");
    CHECK(Has(Written([&] { FileMethodNotices(0, 3, 0, G); }), "QN/Func  0.0    QN/KeLOC      0\n"));
}
