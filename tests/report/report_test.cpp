// tly-report: texts, paths, the two readers, functions of notices, fingerprints.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <unistd.h>

#include "fingerprint.h"
#include "join.h"
#include "json_text.h"
#include "notice_help.h"
#include "paths.h"
#include "read_json.h"
#include "read_xml.h"
#include "utf8.h"
#include "write_json.h"
#include "xml_text.h"

namespace {

const std::string kCounts = "<returns>1</returns><interface_complexity>1</interface_complexity>"
                            "<cyclomatic_complexity>1</cyclomatic_complexity><total_complexity>2</total_complexity>";

std::string LineCounts(int lines) {
    const std::string n = std::to_string(lines);
    return "<loc>1</loc><eloc>1</eloc><lloc>1</lloc><comments>0</comments><lines>" + n + "</lines>";
}

std::string File(const std::string &name, int bytes = 9) {
    return "<file><size_bytes>" + std::to_string(bytes) + "</size_bytes><name>" + name + "</name>" + LineCounts(9) + "</file>";
}

std::string Function(const std::string &name, int end, int lines) {
    return "<function><name>" + name + "</name><parameters>()</parameters><file>a.c</file><line>" + std::to_string(end) +
           "</line><parameters>0</parameters>" + kCounts + LineCounts(lines) + "</function>";
}

std::string Raised(int line, int number = 9) {
    return "<notice><file>a.c</file><type>" + std::to_string(number) + "</type><line>" + std::to_string(line) +
           "</line><description>&lt;goto&gt;</description></notice>";
}

// notices: how many there are in what.
std::string Document(int notices, const std::string &what) {
    return "<vxtly><version>7.75</version>" + what + "<report><total_notices>" + std::to_string(notices) +
           "</total_notices></report><report><language><extension>C</extension>" + LineCounts(9) + "</language></report></vxtly>";
}

std::string Report(const std::string &what) {
    return "<report>" + what + "</report>";
}

template <class Read> std::string ReadText(const std::string &text, Model &m, Read read) {
    std::string error;
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    const bool good = in && read(in, m, error) && FinishModel(m, false, error);
    if (in) {
        fclose(in);
    }
    CHECK(good == error.empty());
    return error;
}

std::string FromXml(const std::string &text, Model &m) {
    return ReadText(text, m, [](std::FILE *in, Model &to, std::string &error) { return ReadXml(in, "x", "/root/", to, error); });
}

std::string FromJson(const std::string &text, Model &m) {
    return ReadText(text, m, [](std::FILE *in, Model &to, std::string &error) { return ReadJson(in, "x", to, error); });
}

std::string ToJson(const Model &m) {
    char *text = nullptr;
    size_t length = 0;
    std::FILE *out = open_memstream(&text, &length);
    CHECK(WriteJson(m, out));
    fclose(out);
    const std::string json(text, length);
    free(text);
    return json;
}

} // namespace

TEST_CASE("A text has one number and one place") {
    Texts texts;
    CHECK(texts.Intern("") == 0);
    const char *first = texts[texts.Intern("0")].data();
    for (int i = 0; i < 100000; ++i) {
        CHECK(texts.Intern(std::to_string(i)) == static_cast<TextId>(i + 1));
    }
    const std::string big(200000, 'x'); // more than a block
    const TextId id = texts.Intern(big);
    CHECK(texts[id] == big);
    CHECK(texts.Intern("99999") == 100000);
    CHECK(texts.Intern(big) == id);
    CHECK(texts[1].data() == first);
}

TEST_CASE("Paths are shown one way") {
    const char *const rows[][2] = {{"a.c", "a.c"},
                                   {"./a.c", "a.c"},
                                   {"a/.//b.c", "a/b.c"},
                                   {"/root/a/b.c", "a/b.c"},
                                   {"/rootless/a.c", "/rootless/a.c"},
                                   {"//root/a.c", "a.c"},
                                   {"../a.c", "../a.c"},
                                   {"/root/", "/root"}};
    for (const auto &row : rows) {
        CHECK(ShownPath(row[0], "/root/") == row[1]);
    }
}

TEST_CASE("Any bytes make text that parsers take") {
    const char *const kinds[] = {"\xC3\xA4",     "\xE2\x82\xAC",     "\xF0\x9F\x98\x80", "\xC0\x80",
                                 "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82",         "\xEF\xBF\xBF"};
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
        bytes += 'x';
    }
    for (const char *kind : kinds) {
        bytes += kind;
    }
    std::string json;
    AppendJson(json, bytes);
    const auto value = nlohmann::json::parse(json, nullptr, false);
    REQUIRE(value.is_string());
    CHECK(value.get<std::string>().starts_with("\x01x\x02x"));
    std::string xml;
    AppendXml(xml, bytes);
    Model m;
    CHECK(FromXml(Document(0, "<title>" + xml + "</title>" + File("a.c")), m) == "");
    CHECK(m.texts[m.title].find("\xF0\x9F\x98\x80\xEF\xBF\xBD") != std::string::npos);
    CHECK(m.texts[m.title].find("\rx") != std::string::npos);
    const size_t lengths[] = {2, 3, 4, 0, 0, 0, 0, 3};
    for (size_t i = 0; i < std::size(kinds); ++i) {
        CHECK(Utf8Length(kinds[i]) == lengths[i]);
    }
}

TEST_CASE("A document that is cut anywhere is refused, and a JSON says all of it") {
    const std::string tree =
        Report("<inheritance_tree><class><name>A</name><depth>0</depth><children>1</children></class></inheritance_tree>");
    const std::string rows =
        Report(Function("A::f", 5, 3)) + tree + Report("<notice_count>2</notice_count>" + Raised(4) + Raised(0, 41));
    const std::string slice = Document(2, File("/root/./a&lt;.c") + File("a.c") + rows);
    const std::string whole = "<tly-report><run>run</run><slice>" + slice + "</slice><whole><vxtly>" + tree +
                              Report("<notice_count>1</notice_count>" + Raised(2, 41)) + "</vxtly></whole></tly-report>";
    for (size_t length = 1; length < whole.size(); ++length) {
        Model cut;
        CHECK(FromXml(whole.substr(0, length), cut) != "");
    }
    Model m;
    REQUIRE(FromXml(whole, m) == "");
    CHECK(m.tree.size() == 1);
    REQUIRE(m.notices.size() == 2); // the slice's notice of the tree is the whole's
    CHECK(m.notices[0].number == 41);
    CHECK(m.notices[0].line == 2);
    CHECK(m.texts[m.notices[1].text] == "<goto>");
    CHECK(m.texts[m.files[1].path] == "a<.c");
    m.notices[0].fingerprint = UINT64_MAX;
    const std::string json = ToJson(m);
    Model again;
    CHECK(FromJson(json, again) == "");
    CHECK(ToJson(again) == json);
    CHECK(again.notices[0].fingerprint == UINT64_MAX);
    for (size_t length = 1; length + 2 < json.size(); ++length) {
        Model cut;
        CHECK(FromJson(json.substr(0, length), cut) != "");
    }
}

TEST_CASE("A notice lies in the innermost function that holds its line") {
    const std::string functions = Function("outer", 20, 19) + Function("first", 2, 1) + Function("inner", 8, 4) +
                                  Function("next", 12, 3) + Function("last", 30, 1);
    const int lines[] = {1, 2, 4, 5, 8, 9, 10, 12, 13, 20, 21, 30, 31};
    const char *const names[] = {"", "first", "outer", "inner", "inner", "outer", "next", "next", "outer", "outer", "", "last", ""};
    std::string notices;
    for (const int line : lines) {
        notices += Raised(line);
    }
    Model m;
    REQUIRE(FromXml(Document(13, File("a.c") + Report(functions) + Report(notices)), m) == "");
    for (size_t i = 0; i < std::size(lines); ++i) {
        const uint32_t function = m.notices[i].function;
        CAPTURE(lines[i]);
        CHECK((function == kNone ? "" : m.texts[m.functions[function].name]) == names[i]);
    }
}

TEST_CASE("What several inputs know of one class becomes one row") {
    const auto members = [](int n) {
        const std::string count = std::to_string(n);
        const std::string each = "<public>" + count + "</public><protected>0</protected><private>0</private>";
        return "<attributes>" + each + "</attributes><methods>" + each + "</methods><parameters>0</parameters>" + kCounts;
    };
    const std::string methods = "<class><name>A</name>" + members(0) + LineCounts(7) + "</class>";
    const std::string definition =
        "<struct><name>A</name><inheritance>B,\n               C</inheritance>" + members(2) + LineCounts(3) + "</struct>";
    const std::string others = "<interface><name>A</name>" + members(1) + LineCounts(1) +
                               "</interface><nested_class><name>A::I</name>" + members(1) + LineCounts(2) + "</nested_class>";
    Model m;
    std::string error;
    for (const char *name : {"a.c", "b.c"}) {
        std::string text = Document(0, File(name) + Report(*name == 'a' ? methods : definition + others));
        std::FILE *in = fmemopen(text.data(), text.size(), "rb");
        CHECK(ReadXml(in, name, "", m, error));
        fclose(in);
    }
    REQUIRE(FinishModel(m, true, error));
    REQUIRE(m.classes.size() == 3);
    CHECK(m.classes[0].kind == ClassKind::kStruct);
    CHECK(m.texts[m.classes[0].bases] == "B,C");
    CHECK(m.classes[0].methods.publics == 2);
    CHECK(m.classes[0].lines.lines == 10);
    CHECK(m.classes[1].kind == ClassKind::kInterface);
    CHECK(m.class_sums.lines.lines == 11); // the nested one is a part of another
    CHECK(m.class_sums.sum.returns == 3);
    CHECK(m.languages.size() == 1);
    CHECK(m.languages[0].lines.lines == 18);
}

TEST_CASE("A function's scope is its name without the last part") {
    const char *const rows[][2] = {{"f", ""},
                                   {"N::A::f", "N::A"},
                                   {"p.q.C.m", "p.q.C"},
                                   {"A&lt;B::C&gt;::f", "A<B::C>"},
                                   {"A::operator&lt;", "A"},
                                   {"A::operator N::B", "A"},
                                   {"operators::f", "operators"},
                                   {"A::~A", "A"}};
    for (const auto &row : rows) {
        Model m;
        REQUIRE(FromXml(Document(0, File("a.c") + Report(Function(row[0], 5, 3))), m) == "");
        CHECK(m.texts[m.functions[0].scope] == row[1]);
    }
}

TEST_CASE("A fingerprint is the line's text without white space") {
    char place[] = "/tmp/report_test.XXXXXX";
    REQUIRE(mkdtemp(place));
    const std::string root = std::string(place) + "/";
    const auto prints = [&](const std::string &text, const std::string &notices, int count) {
        std::FILE *source = fopen((root + "a.c").c_str(), "wb");
        fwrite(text.data(), 1, text.size(), source);
        fclose(source);
        Model m;
        CHECK(FromXml(Document(count, File("a.c", static_cast<int>(text.size())) + Report(notices)), m) == "");
        TakeFingerprints(m, root);
        CHECK(m.remarks.empty());
        std::vector<uint64_t> all;
        for (const Notice &notice : m.notices) {
            all.push_back(notice.fingerprint);
        }
        return all;
    };
    const auto plain = prints("a\ngoto x;\ngoto x;\n", Raised(2) + Raised(3), 2);
    CHECK(plain[0] != plain[1]);
    CHECK(prints("a\r\n\t goto\vx;  \r\ngoto  x;", Raised(2) + Raised(3), 2) == plain);
    const std::string far = "//" + std::string(65533, 'x') + "\n"; // the line after it begins a piece, or lies across two
    for (const size_t pad : {0U, 1U, 3U}) {
        CHECK(prints(far.substr(pad) + "goto x;\n\n\n\n\ngoto x;\n", Raised(2) + Raised(7), 2) == plain);
    }
    const std::string nul("go\0to x;\n", 9);
    CHECK(prints(nul + "goto x;\n", Raised(2), 1)[0] == plain[0]);
    CHECK(prints(nul, Raised(1), 1)[0] != plain[0]);
    CHECK(prints("goto x;\n", Raised(1, 10), 1)[0] != plain[0]);
    // A class without a line.
    CHECK(prints("a\n", Raised(0, 41), 1) == prints("b\n", Raised(0, 41), 1));
    CHECK(prints("a\n", Raised(1, 41), 1) != prints("b\n", Raised(1, 41), 1));
    unlink((root + "a.c").c_str());
    rmdir(place);
}

TEST_CASE("All notices of tly's own have help") {
    int known = 0;
    for (int number = -1; number < 200; ++number) {
        known += FindNoticeHelp(number) ? 1 : 0;
    }
    CHECK(known == 57); // 25 is no notice
}

TEST_CASE("Languages go by the extension") {
    CHECK(LanguageOf("a.H") == Language::kCHeader);
    CHECK(LanguageOf("a.b/c.hpp") == Language::kCppHeader);
    for (const char *none : {"", "c", "a.", "a.cs/b", "a.txt", ".", "a.c "}) {
        CHECK(LanguageOf(none) == Language::kOther);
    }
}
