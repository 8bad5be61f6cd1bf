// Keywords: one row per word.
//
// There is no tokeniser. A word is a keyword by what stands in front of its first letter and behind its last: "x = (malloc(4));"
// holds no allocation, as nothing is seen behind "(".
#include <array>

#include "analysis/scan.h"
#include "run/globals.h"

namespace {

// What may stand in front of a keyword, by its first letter, if it isn't the first character of the line.
constexpr const char *AllowedAhead(char first) {
    switch (first) {
    case 'a':
    case 'c':
    case 'd':
    case 'f':
    case 'm':
    case 'n': return first == 'm' ? " \t;)=" : " \t;)={}";
    default: return "";
    }
}

// How a word is closed.
enum Closing : unsigned char {
    kParen, // blanks may follow, then "(", a line end or a comment
    kSet,   // at once one of the row's characters or a comment
};

struct Keyword {
    const char *word;
    Closing closing;
    const char *closers; // of kSet
    int not_in_c;        // in a C file it is a name like any other
    int FileCounters::*counter;
};

// clang-format off
constexpr Keyword kKeywords[] = {
    // word      closing  closers          not in C  counter
    {"alloc",    kParen,  "",              0,        &FileCounters::alloc_count},
    {"calloc",   kParen,  "",              0,        &FileCounters::alloc_count},
    {"delete",   kSet,    " ([\n\t\r",     1,        &FileCounters::delete_count},
    {"for",      kParen,  "",              0,        &FileCounters::for_count},
    {"foreach",  kParen,  "",              0,        &FileCounters::for_count},
    {"free",     kParen,  "",              0,        &FileCounters::free_count},
    {"malloc",   kParen,  "",              0,        &FileCounters::alloc_count},
    {"new",      kSet,    " (\n\t\r",      1,        &FileCounters::new_count},
};
// clang-format on

constexpr int kKeywordCount = sizeof kKeywords / sizeof *kKeywords;

// The first row of every first letter, so that most words cost one look-up.
constexpr std::array<signed char, 128> kFirstRow = [] {
    std::array<signed char, 128> rows{};
    rows.fill(kKeywordCount);
    for (int row = kKeywordCount - 1; row >= 0; --row) {
        rows[kKeywords[row].word[0]] = static_cast<signed char>(row);
    }
    return rows;
}();

int OpensComment(const char *p) {
    return *p == '/' && (p[1] == '/' || p[1] == '*');
}

int IsClosed(const Keyword &keyword, const char *behind) {
    if (keyword.closing == kSet) {
        return (*behind != '\0' && strchr(keyword.closers, *behind)) || OpensComment(behind);
    }
    behind = Ltrim(behind);
    return *behind == '(' || IsLineEnd(*behind) || OpensComment(behind);
}

} // namespace

void OnWord(const Scan &scan, int begin, int end, Globals *G) {
    const char *word = scan.line + begin;
    int row = kFirstRow[static_cast<unsigned char>(*word)];
    if (row == kKeywordCount || (begin > 0 && !strchr(AllowedAhead(*word), word[-1]))) {
        return;
    }
    const size_t length = end - begin;
    for (; row < kKeywordCount && kKeywords[row].word[0] == *word; ++row) {
        const Keyword &keyword = kKeywords[row];
        if (strncmp(keyword.word, word, length) == 0 && keyword.word[length] == '\0') {
            if (!(keyword.not_in_c && G->is_c) && IsClosed(keyword, scan.line + end)) {
                ++(G->*keyword.counter);
            }
            return;
        }
    }
}
