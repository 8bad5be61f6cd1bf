// Memory that runs out while a source is scanned: the record in hand isn't made, a message says so, and the scan goes on behind the
// line.
#include "bench.h"

#include <cerrno>

namespace {

int ahead = -1; // allocations up to the one that fails; below 0 none does

bool Fails() {
    const bool fails = ahead >= 0 && ahead-- == 0;
    errno = fails ? ENOMEM : errno;
    return fails;
}

} // namespace

// The linker hands the program's allocations on to these.
extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
char *__real_strdup(const char *text);
void *__wrap_malloc(size_t size);
void *__wrap_calloc(size_t count, size_t size);
char *__wrap_strdup(const char *text);

void *__wrap_malloc(size_t size) {
    return Fails() ? nullptr : __real_malloc(size);
}

void *__wrap_calloc(size_t count, size_t size) {
    return Fails() ? nullptr : __real_calloc(count, size);
}

char *__wrap_strdup(const char *text) {
    return Fails() ? nullptr : __real_strdup(text);
}
}

TEST_CASE("each allocation of a scan fails once") {
    const struct {
        int language;
        int lines; // of code that are counted behind a failure; 0 where it depends
        std::string source;
    } cases[] = {
        {kCpp, 1, "class A : public B {\n};\n"},
        {kCpp, 1, "namespace n {\n}\n"},
        {kJava, 1, "interface I {\n}\n"},
        {kC, 2, "#define A 1\nint a;\n"},
        {kC, 1, "void f(int a) {\n}\n"},
        {kCpp, 0,
         "namespace n {\ntemplate <class T>\nclass A : public B {\n void f(int a) {\n }\n};\n}\nvoid n::A::g() {\n}\nvoid C::h() "
         "{\n}\n"
         "template <class T>\nclass C : public D {\n};\nstruct {\n int a;\n} named;\n"},
    };
    for (const auto &c : cases) {
        for (int n = 0;; ++n) {
            CAPTURE(n);
            const SourceBench bench(c.language);
            ahead = n;
            const std::string written = Written([&] { bench.Feed(c.source); });
            const bool failed = ahead < 0;
            ahead = -1;
            CHECK(failed == written.ends_with("  Memory Error: Cannot allocate memory\n"));
            CHECK((failed || written.empty()));
            CHECK((!failed || c.lines == 0 || bench.G->file_loc == c.lines)); // the rest of the line is given up
            bench.Begin(kCpp);
            bench.Feed("class Later {\n};\n"); // the lists are whole
            CHECK(Has(bench.Classes(), "Later d000 m000 l2\n"));
            if (!failed) {
                break;
            }
        }
    }
}
