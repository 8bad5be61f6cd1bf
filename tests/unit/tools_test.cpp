// How an extracted text is cleaned, and where a listed page has its number.
#include "bench.h"

#include "analysis/extraction.h"
#include "tools/listing.h"

TEST_CASE("an extracted text is cut to what can be read") {
    const struct {
        const char *text, *cleaned;
    } cases[] = {
        {R"(Error: %d\n")", "Error: %d"},
        {R"(%d\n")", "%d"},
        {R"(-- %-5.2f of)", "%-5.2f of"},
        {R"(50-60%)", "50-60"},
        {R"(\n")", ""},
        {R"(a\n\n")", "a"},
        {R"(a.\n")", "a."},
        {R"(\n  name")", "name"},
        {R"(\n%s")", "%s"},
        {R"(\tname")", "tname"},
        {R"(n\n)", "n"},
        {R"(name)", "name"},
        {"/* \xC3\xA9t\xC3\xA9 */", "t"},
        {"// set x", "set x"},
        {"...", ""},
        {"", ""},
    };
    for (const auto &row : cases) {
        CAPTURE(row.text);
        CHECK(std::string(ExtractString(std::string(row.text).data())) == row.cleaned);
    }
    char comment[] = " * x \t\r\n";
    CHECK(std::string(ExtractComment(comment)) == " * x");
}

TEST_CASE("the page number ends at the right margin") {
    const StateBench bench;
    Globals *G = bench.G;
    G->print_line_length = 40;
    G->print_left_margin = 3;
    SetBars(G);
    const auto head = [&](const char *name, int page) { return Written([&] { SetHeaderLine(name, page, G); }); };
    CHECK(Has(head("/no/a.c", 9), "File: /no/a.c" + std::string(20, ' ') + "Page: 9\n"));
    CHECK(Has(head("/no/a.c", 123), "File: /no/a.c" + std::string(18, ' ') + "Page: 123\n"));
    const std::string wide(60, 'n');
    CHECK(Has(head(wide.c_str(), 1), "File: " + wide + "Page: 1\n"));
}
