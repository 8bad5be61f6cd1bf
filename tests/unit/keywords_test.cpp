// Keywords, directives and the helpers on source text: what a line counts, sets and complains about, word by word.
#include "bench.h"

#include "analysis/code_text.h"
#include "analysis/keywords.h"
#include "report/state_line.h"

namespace {

struct Bench : SourceBench {
    explicit Bench(int language = kCpp)
        : SourceBench(language) {
        std::fill(std::begin(G->notice_enabled), std::end(G->notice_enabled), 1);
        for (const int n : {30, 51, 52, 53, 54}) { // no keyword's
            G->notice_enabled[n] = 0;
        }
        G->max_line_length = 100;
    }

    // Every counter, flag and notice that isn't 0.
    std::string Dump() const {
        std::string out;
        const auto show = [&](const char *name, int value) {
            if (value) {
                out += out.empty() ? "" : " ";
                out += name;
                out += value == 1 ? "" : ":" + std::to_string(value);
            }
        };
#define SHOW(field) show(#field, G->field)
        // clang-format off
        SHOW(do_count), SHOW(while_count), SHOW(switch_count), SHOW(default_count), SHOW(case_count), SHOW(break_count), SHOW(if_count),
        SHOW(else_count), SHOW(for_count), SHOW(goto_count), SHOW(return_count), SHOW(exit_count), SHOW(_exit_count), SHOW(abort_count),
        SHOW(union_count), SHOW(template_count), SHOW(friend_count), SHOW(alloc_count), SHOW(free_count), SHOW(new_count),
        SHOW(delete_count), SHOW(typedef_count), SHOW(const_count), SHOW(enum_count), SHOW(using_count), SHOW(inline_count),
        SHOW(virtual_count), SHOW(preproc_count), SHOW(define_count), SHOW(include_count), SHOW(import_count), SHOW(macro_count),
        SHOW(local_while), SHOW(local_for), SHOW(local_switch), SHOW(local_default), SHOW(local_case), SHOW(local_break), SHOW(local_if),
        SHOW(local_else), SHOW(local_goto), SHOW(local_or), SHOW(local_and), SHOW(local_return), SHOW(if_flag), SHOW(for_flag),
        SHOW(while_flag), SHOW(new_flag), SHOW(catch_flag), SHOW(const_flag), SHOW(enum_flag), SHOW(static_flag), SHOW(static_pending),
        SHOW(get_flag), SHOW(set_flag), SHOW(using_flag), SHOW(where_flag), SHOW(friend_flag), SHOW(friend_class), SHOW(delegate_flag),
        SHOW(event_flag), SHOW(break_flag), SHOW(typedef_flag), SHOW(class_pending), SHOW(struct_pending), SHOW(interface_flag),
        SHOW(forward_decl_flag), SHOW(virtual_flag), SHOW(template_flag), SHOW(preproc_flag), SHOW(define_flag), SHOW(error_flag),
        SHOW(if_directive), SHOW(macro_flag), SHOW(inline_flag), SHOW(local_void_param), SHOW(scope_kind), SHOW(scope_pending_line),
        SHOW(access_public);
        // clang-format on
#undef SHOW
        for (int n = 0; n < 59; ++n) {
            show(("#" + std::to_string(n)).c_str(), G->notice_cnt[n]);
        }
        return out;
    }
};

std::string Result(int language, const std::string &text) {
    Bench bench(language);
    bench.Feed(text + "\n");
    return bench.Dump();
}

} // namespace

TEST_CASE("a word is a keyword by what stands around it") {
    struct {
        int language;
        const char *text, *dump;
    } cases[] = {
        {kC, "free(p); x = malloc (4)", "alloc_count free_count"},
        {kC, "x = (malloc(4)); !free(p), notfree(q) free;", ""}, // nothing is seen behind "(" and "!"
        {kC, "{ exit (1);{abort(); _exit\t(2) (_exit(2)", "exit_count _exit_count abort_count local_return:3"},
        {kC, "realloc(p, 2); union{", "union_count #8"},
        {kC, "case'a': case(1):case 2:", "case_count local_case"},
        {kC, "goto end;", "goto_count local_goto #9"},
        {kC, "x and y or z", "local_or local_and"},
        {kC, "return", "return_count local_return"},
        {kC, "void* p; void *q; (void**)", "#26:3"},
        {kC, "new class", "new_flag #24:2"},
        {kC, "throw", "local_return #24"},
        {kC, "throw; operatornum = operator1", "#24"},
        {kC, "template\t<", ""},
        {kC, "static_cast<int>(a)", "#24"},
        {kC, "reinterpret_call <int>(a); continuf ;", ""}, // all of a word counts, not its head
        {kCpp, "throw 1; mutable int a; operator+", ""},
        {kCpp, "new T; {new(T);(new T)", "new_count:2"},
        {kCpp, "=new(T) delete[] p; delete p;} new", "new_count:2 delete_count:2 new_flag"},
        {kNone, "using namespace a; where", ""},
        {kCpp, "using a", "using_count using_flag"},
        {kJava, "import a.b; using a; final int x", "import_count const_flag"},
        {kCs, "event A b delegate(int a) where\t", "where_flag delegate_flag event_flag"},
        {kCs, "where/**/ set{ get /* a */ {", "get_flag set_flag"},
        {kCpp, "set { getter {", ""},
        {kCs, "delegate { return a, return(b)", "return_count local_return delegate_flag"},
        {kCpp, "public: private :", ""},
        {kCpp, "inline( catch(", "inline_count catch_flag inline_flag"},
        {kCpp, "foreach (a) for", "for_count:2 local_for:2 for_flag scope_kind:3 scope_pending_line"},
        {kCpp, "virtual void f()", ""}, // outside a class
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        CHECK(Result(c.language, c.text) == c.dump);
    }
}

TEST_CASE("statements with a body, initialisers and switches") {
    struct {
        const char *text, *dump;
    } cases[] = {
        {"if(x) ;if // c", "if_count:2 local_if:2 if_flag scope_kind:4 scope_pending_line"},
        {"} else if (a)", "if_count else_count local_if scope_kind:4 scope_pending_line"},
        {"else { x", "else_count local_else"},
        {"else y = diff", "else_count"},
        {"do{ do /* a", "do_count scope_kind scope_pending_line"},
        {"else // b", "else_count local_else scope_kind:2 scope_pending_line"},
        {"break; break ;", "break_count:2 local_break:2 break_flag #44:2 #56"},
        {"break", "break_count local_break #44"},
        {"break;default:break", "default_count break_count local_default local_break #44"}, // no break behind ":"
        {"{ switch(a) {default", "switch_count default_count local_switch local_default"},
        {"enum /* a */ color { RED", "enum_count enum_flag"},
        {"enum color c;", ""},
        {"enum color", "enum_flag:2"},
        {"static int a[] = {", "static_flag"},
        {"static int a == b", ""},
        {"static", "static_pending"},
        {"static /* a */{", "static_flag"},
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        CHECK(Result(kCpp, c.text) == c.dump);
    }
    Bench deep;
    for (int i = 0; i < 40; ++i) {
        deep.Feed("switch (a)\n");
    }
    CHECK(deep.G->switch_depth == 40);
}

TEST_CASE("heads of structs and templates") {
    struct {
        int language;
        const char *text, *dump, *classname;
    } cases[] = {
        {kC, "struct {", "access_public", "instance"},
        {kC, "struct tag : base", "class_pending struct_pending", "tag"},
        {kC, "struct tag name", "class_pending struct_pending", ""},
        {kC, "typedef struct a", "typedef_count class_pending struct_pending", "a"},
        {kCs, "interface I", "class_pending interface_flag", "I"},
        {kCpp, "template <class T> class A;", "", ""}, // an instantiation is no template
    };
    for (const auto &c : cases) {
        CAPTURE(c.text);
        Bench bench(c.language);
        bench.Feed(std::string(c.text) + "\n");
        CHECK(bench.Dump() == c.dump);
        CHECK(bench.G->classname == std::string(c.classname));
    }
}

TEST_CASE("directives") {
    CHECK(Result(kC, "#include <a> \\") == "preproc_count include_count preproc_flag");
    CHECK(Result(kC, " #  if (a) # else x \\") == "if_count preproc_count:2 preproc_flag if_directive");
    CHECK(Result(kC, "a##b #errors \\") == "preproc_count preproc_flag");
    CHECK(Result(kC, "#region if (a) \\") == "preproc_count preproc_flag");
    CHECK(Result(kC, "# \\") == "preproc_count preproc_flag");
    const std::string shown = Written([] {
        Bench bench;
        bench.G->totals_only = 0;
        bench.G->macro_metrics = 1;
        bench.Feed("#define A\t1\n");
        bench.Feed("# define MAX<>(a) \\\n\n");
        bench.G->html_mode = bench.G->quality_notices = 1;
        CopyText(bench.G->html_macro_color, "#1");
        bench.Feed("#define F(x) x\n");
        CHECK(bench.Dump() == "preproc_count:3 define_count:3 macro_count:3");
        ShowStateLine(123456, "Nested Interface Begin", nullptr);
    });
    CHECK(shown == "  Macro: MAX<>\n\n"
                   "\n  -------------------------- Macro Begin Line: 4 -------------------------\n"
                   "  <b>Macro</b>: <b><font color=\"#1\">F</font></b>\n\n"
                   "<b><font color=\"\">                         ~~ Macro Quality Notices ~~\n</font></b>"
                   "\n  <b>Macro</b>: <b><font color=\"#1\">F</font></b>\n"
                   "  --------------------------- Macro End Line: 4 --------------------------\n"
                   "\n  ------------------ Nested Interface Begin Line: 123456 -----------------\n");
}

TEST_CASE("helpers on source text") {
    CHECK(NextChar("a /* b */ \t{") == '{');
    CHECK(NextChar("a // b") == '\n');
    CHECK(NextChar("") == '\0');
    CHECK(NextChar("a {// b") == '{');
    CHECK(NextChar("a / b") == '/');
    CHECK(NextChar("a /* b \r\n") == '\n');
    CHECK(FindCodeChar(" /* { */ // {\n", '{') == 0);
    CHECK(FindCodeChar(" /* { */ {\n", '{') == 1);
    CHECK(FindCodeChar("/* {", '{') == 0);
    struct {
        const char *line, *name, *code, *raw; // "-" for null
    } tokens[] = {
        {" \tab:c d\n", "ab", "ab", "ab:c"},
        {"({5;\n", "-", "5", "-"},
        {"// a\n", "-", "-", "-"},
        {"/* a */b c", "b", "b", "b"},
        {"/**/b", "b", "b", "b"},
        {"\r a\n", "-", "-", "a"},
        {"", "-", "", "-"},
    };
    for (const auto &t : tokens) {
        CAPTURE(t.line);
        LineText out;
        const auto shown = [](const char *token) { return std::string(token ? token : "-"); };
        CHECK(shown(GetNextToken(t.line, 0, out)) == t.name);
        CHECK(shown(GetNextCodeToken(t.line, 0, out)) == t.code);
        CHECK(shown(GetNextRawToken(t.line, 0, out)) == t.raw);
    }
    struct {
        void (*rewrite)(char *text);
        const char *text, *result;
    } rewrites[] = {
        {FormatTemplateLine, "template < class T, typename U, subclass V >", "template<T,U,subclassV>"},
        {FormatTemplateLine, "operator  new class<class>", "operator newclass<class>"},
        {StripCComment, "a /* b */ c /* d */", "a  c /* d */"},
        {StripCComment, "a */ /* b", "a */ /* b"},
        {StripCComment, "/*/ b", "/*/ b"},
        {[](char *text) { StripComments(text, 0); }, "a /* // */b/*/ c */, d /**/ // e", "a b, d  "},
        {[](char *text) { StripComments(text, 0); }, "(int /* a */ /* b */), \"/*\\\"//\", '\"', '\\\"' /* c",
         "(int), \"/*\\\"//\", '\"', '\\\"' "},
        {[](char *text) { StripComments(text, 0); }, "'\"' /* a */, \" /* b */", "'\"' , \" "}, // no string closes
        {[](char *text) { StripComments(text, 1); }, "a /* b */ c", " c"},
        {[](char *text) { StripComments(text, 1); }, "a // b", ""},
        {[](char *text) { StripChars(text, " \t,"); }, " \ta,, b ", "a b"},
        {[](char *text) { StripStrings(text, "public private"); }, "public A  vat B\n", "A B"},
        {[](char *text) { Strip_nrt(std::string(text).c_str(), std::span(text, 8)); }, "a,\t{b,c\nd", "a, b, c"},
    };
    for (const auto &r : rewrites) {
        CAPTURE(r.text);
        LineText text;
        CopyText(text, r.text);
        r.rewrite(text);
        CHECK(text == std::string(r.result));
    }
    CHECK(CountParents("A<int, B<C, D>>, E") == 2);
    CHECK(CountParents(nullptr) == 0);
}
