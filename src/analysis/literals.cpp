// Literals that end in a way of their own. The scanner knows strings that end at the next quote without a backslash; here are those
// of C#, of Java's text blocks and of C++'s raw strings, and the holes of interpolated ones, in which code and literals stand.
#include "analysis/literals.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "analysis/scan.h"
#include "run/globals.h"

namespace {

enum LiteralKind {
    kPlainLiteral, // ends at a quote without a backslash: the scanner's own
    kInterpolated, // $"a {b} c": the same, but for the quotes in its holes
    kVerbatim,     // @"a \ ""b""": ends at a quote that isn't doubled
    kQuoted,       // """ ... """: ends at as many quotes as it began with
    kTextBlock,    // the same in Java, where a backslash hides a quote
    kDelimited,    // R"x( ... )x"
};

bool IsWordCharacter(char c) {
    return IsLetterOrDigit(c) || c == '_';
}

int RunOf(char c, const char *text) {
    int run = 0;
    while (text[run] == c) {
        ++run;
    }
    return run;
}

// u8R"x(, LR"(: the word that ends in front of the quote is a raw string's prefix.
bool IsRawPrefix(const char *line, int quote) {
    int begin = quote;
    while (IsWordCharacter(line[begin - 1])) {
        --begin;
    }
    const std::string_view word(line + begin, static_cast<size_t>(quote - begin));
    return word == "R" || word == "u8R" || word == "LR" || word == "uR" || word == "UR";
}

int OpenRaw(const char *behind, Globals *G) {
    const size_t length = strcspn(behind, "( )\\\t\r\n");
    if (length > 16 || behind[length] != '(') {
        return 0;
    }
    G->literal_kind = kDelimited;
    FormatText(G->raw_delimiter, ")%.*s", static_cast<int>(length), behind);
    return static_cast<int>(length) + 1;
}

int OpenQuoted(int quotes, LiteralKind kind, Globals *G) {
    G->literal_kind = kind;
    G->literal_quotes = quotes;
    return quotes - 1;
}

// The part of a literal of C# in front of its quote: $, @, $@, @$, $$.
int OpenCsLiteral(const Scan &scan, Globals *G) {
    const char *quote = scan.line + scan.index;
    int dollars = 0;
    bool verbatim = false;
    for (const char *p = quote - 1; *p == '$' || *p == '@'; --p) {
        dollars += *p == '$';
        verbatim |= *p == '@';
    }
    G->hole_dollars = dollars;
    const int quotes = RunOf('"', quote);
    if (quotes >= 3 && !verbatim) {
        return OpenQuoted(quotes, kQuoted, G);
    }
    G->literal_kind = verbatim ? kVerbatim : dollars > 0 ? kInterpolated : kPlainLiteral;
    return 0;
}

// The character of a hole in hand; its literals may hold braces.
void TakeHole(const char *p, Globals *G) {
    if (G->hole_quote) {
        if (*p == G->hole_quote) {
            G->hole_quote = '\0';
        }
    } else if (*p == '"' || *p == '\'') {
        G->hole_quote = *p;
    } else if (*p == '{') {
        ++G->hole_depth;
    } else if (*p == '}') {
        --G->hole_depth;
    }
}

// "{{" stands for a brace, "{" opens a hole; with $$ two of them do. The characters that are used up.
int TakeBrace(const char *p, Globals *G) {
    const int braces = RunOf('{', p);
    const int needed = std::max(1, G->hole_dollars);
    const bool opens = G->literal_kind == kQuoted ? braces >= needed : braces % 2 == 1;
    G->hole_depth = opens ? 1 : 0;
    return braces;
}

bool EndsHere(const char *line, const char *p, int *used, const Globals *G) {
    *used = 1;
    switch (G->literal_kind) {
    case kPlainLiteral:
    case kInterpolated: return true;
    case kVerbatim: *used = p[1] == '"' ? 2 : 1; return *used == 1;
    case kQuoted:
    case kTextBlock: {
        const int quotes = RunOf('"', p);
        *used = quotes;
        return quotes >= G->literal_quotes;
    }
    default: { // kDelimited
        const auto length = static_cast<ptrdiff_t>(strlen(G->raw_delimiter));
        return p - line >= length && memcmp(p - length, G->raw_delimiter, static_cast<size_t>(length)) == 0;
    }
    }
}

} // namespace

int OpenLiteral(const Scan &scan, Globals *G) {
    const char *quote = scan.line + scan.index;
    G->literal_kind = kPlainLiteral;
    G->hole_dollars = 0;
    G->hole_depth = 0;
    G->hole_quote = '\0';
    if (G->is_cs) {
        return OpenCsLiteral(scan, G);
    }
    if (G->is_java && quote[1] == '"' && quote[2] == '"') {
        return OpenQuoted(3, kTextBlock, G);
    }
    if (G->is_cpp && quote[-1] == 'R' && IsRawPrefix(scan.line, scan.index)) {
        return OpenRaw(quote + 1, G);
    }
    return 0;
}

int ScanOwnLiteral(Scan &scan, Globals *G) {
    const bool escapes = G->literal_kind == kInterpolated || G->literal_kind == kTextBlock;
    for (int i = scan.index, used = 1; i < scan.length; i += used, used = 1) {
        const char *p = scan.line + i;
        if (*p == '\\' && (escapes || G->hole_quote)) {
            used = 2;
        } else if (G->hole_depth > 0) {
            TakeHole(p, G);
        } else if (*p == '{' && G->hole_dollars > 0) {
            used = TakeBrace(p, G);
        } else if (*p == '"' && EndsHere(scan.line, p, &used, G)) {
            scan.index = i + used - 1;
            G->literal_kind = kPlainLiteral;
            return 1;
        }
    }
    scan.index = scan.length;
    return 0;
}

bool IsDigitSeparator(const Scan &scan, const Globals *G) {
    const char *p = scan.line + scan.index;
    if (!(G->is_c || G->is_cpp) || !IsLetterOrDigit(p[1]) || !IsLetterOrDigit(p[-1])) {
        return false;
    }
    while (IsWordCharacter(p[-1]) || p[-1] == '\'') {
        --p;
    }
    return IsDigit(*p);
}

void EndLineOfLiteral(Globals *G) {
    if (G->literal_kind == kInterpolated && G->hole_depth == 0) {
        G->literal_kind = kPlainLiteral;
    }
    G->string_flag = G->literal_kind != kPlainLiteral;
    G->char_flag = 0;
}
