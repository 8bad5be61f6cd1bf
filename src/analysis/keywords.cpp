// Keywords: one row per word and way of closing it.
//
// There is no tokeniser. A word is a keyword by what stands in front of its first letter and behind its last: "x = (malloc(4));"
// holds no allocation, as nothing is seen behind "(". Most words only count, and what they count stands in their row; what the
// others do is in keyword_actions.cpp.
#include "analysis/keywords.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

#include "analysis/keyword_actions.h"
#include "analysis/namespaces.h"
#include "analysis/scan.h"
#include "files/word_sieve.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/text.h"

namespace {

// What may stand in front of a keyword, by its first letter, if that isn't the first character of the line.
struct Ahead {
    const char *letters, *allowed;
};
constexpr Ahead kAhead[] = {
    {"acdfginprstu", " \t;)={}"}, {"b", " \t;{}"},  {"e", " \t;)=}"}, {"m", " \t;)="}, {"o", " \t:;)=("},
    {"v", " \t;:()={}"},          {"w", " \t;){}"}, {"_", " \t;"},
};

// What closes a word.
enum Closing : unsigned char {
    kSet,    // at once a character of the row's closers; "#" among them stands for a comment that opens
    kTermin, // behind blanks and tabs the row's closer, a line end or a comment: if (a), if at the line's end
    kName,   // the word begins a longer one too, but for one that goes on with "_": static, not static_cast
    kOpName, // a blank, a line end or what follows operator directly: operator+, and "operatornew"
};

// The languages in which a row acts. A C file complains about a word of C++ (kAnsi), and does nothing else unless kC is there too.
enum LanguageBit : unsigned char { kC = 1, kCpp = 2, kJava = 4, kCs = 8, kUnknown = 16, kNotC = 30, kAll = 31, kAnsi = 32 };

using Action = void (*)(Scan &, int, Globals *);

template <auto Flag> void Set(Scan &, int, Globals *G) {
    G->*Flag = 1;
}

template <auto Flag> void Clear(Scan &, int, Globals *G) {
    G->*Flag = 0;
}

template <int n> void Notice(Scan &, int, Globals *G) {
    NoticeAtLine(n, G);
}

template <int is_public, int is_protected, int is_private> void Access(Scan &, int, Globals *G) {
    if (G->reading & kBraces) { // told by the whole statement
        return;
    }
    G->access_public = is_public;
    G->access_protected = is_protected;
    G->access_private = is_private;
}

struct Row {
    std::string_view word;
    Closing closing;
    std::string_view closers;
    unsigned char languages;
    int FileCounters::*file_counter;
    int FunctionCounters::*function_counter;
    Action action;
};

using File = FileCounters;
using Fn = FunctionCounters;
using Head = FunctionState;
using Scope = ScopeState;

// Rows of one first letter stand together. The first row whose closing and languages fit is the word's.
// clang-format off
constexpr Row kTable[] = {
    // word              closing  closers         languages       file counter           function counter    action
    {"_exit",            kTermin, "(",            kAll,           &File::_exit_count,    &Fn::local_return,  nullptr},
    {"abort",            kTermin, "(",            kAll,           &File::abort_count,    &Fn::local_return,  nullptr},
    {"alloc",            kTermin, "(",            kAll,           &File::alloc_count,    nullptr,            nullptr},
    {"and",              kSet,    " (\n\t\r#",    kAll,           nullptr,               &Fn::local_and,     nullptr},
    {"asm",              kSet,    " \n\t{\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"bool",             kSet,    " \n\t\r#",     kAnsi,          nullptr,               nullptr,            nullptr},
    {"break",            kSet,    " \t;#",        kAll,           &File::break_count,    &Fn::local_break,   OnBreak},
    {"break",            kTermin, ";",            kAll,           &File::break_count,    &Fn::local_break,   Notice<kNoticeBreak>},
    {"calloc",           kTermin, "(",            kAll,           &File::alloc_count,    nullptr,            nullptr},
    {"case",             kSet,    " \n:\t\r(#",   kAll,           &File::case_count,     &Fn::local_case,    Clear<&Scope::break_flag>},
    {"catch",            kSet,    " (\n\t\r#",    kAnsi|kNotC,    nullptr,               nullptr,            Set<&Scope::catch_flag>},
    {"class",            kSet,    " \n\t\r#",     kAnsi|kNotC,    nullptr,               nullptr,            OnClass},
    {"const",            kSet,    " \n\t(\r#",    kAll,           &File::const_count,    nullptr,            Set<&Scope::const_flag>},
    {"const_cast",       kSet,    " <\n\t\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"continue",         kSet,    " ;\t#",        kAll,           nullptr,               nullptr,            Notice<kNoticeContinue>},
    {"default",          kSet,    " :\t#",        kAll,           &File::default_count,  &Fn::local_default, Clear<&Scope::break_flag>},
    {"default",          kTermin, ":",            kAll,           &File::default_count,  &Fn::local_default, nullptr},
    {"delegate",         kSet,    " ([\n\t\r/",   kCs,            nullptr,               nullptr,            Set<&Scope::delegate_flag>},
    {"delete",           kSet,    " ([\n\t\r#",   kAnsi|kNotC,    &File::delete_count,   nullptr,            nullptr},
    {"do",               kSet,    " \n\t\r#",     kAll,           &File::do_count,       nullptr,            OnDo},
    {"dynamic_cast",     kSet,    " \n\t<\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"else",             kSet,    " \n\t\r{#",    kAll,           nullptr,               nullptr,            OnElse},
    {"enum",             kSet,    " \t\n{\r#",    kAll,           nullptr,               nullptr,            OnEnum},
    {"event",            kSet,    " \n\t\r#",     kCs,            nullptr,               nullptr,            Set<&Scope::event_flag>},
    {"exit",             kTermin, "(",            kAll,           &File::exit_count,     &Fn::local_return,  nullptr},
    {"extends",          kSet,    " (\n#",        kJava,          nullptr,               nullptr,            OnExtends},
    {"false",            kSet,    " (\n\t;)\r#",  kAnsi,          nullptr,               nullptr,            nullptr},
    {"final",            kSet,    " \n\t\r#",     kJava,          nullptr,               nullptr,            Set<&Scope::const_flag>},
    {"for",              kTermin, "(",            kAll,           &File::for_count,      &Fn::local_for,     OnFor},
    {"foreach",          kTermin, "(",            kAll,           &File::for_count,      &Fn::local_for,     OnForeach},
    {"free",             kTermin, "(",            kAll,           &File::free_count,     nullptr,            nullptr},
    {"friend",           kSet,    " \t\n\r#",     kAnsi|kNotC,    &File::friend_count,   nullptr,            Set<&Scope::friend_flag>},
    {"get",              kSet,    " \t{#",        kAll,           nullptr,               nullptr,            OnGet},
    {"goto",             kSet,    " \n\t\r#",     kAll,           &File::goto_count,     &Fn::local_goto,    OnGoto},
    {"if",               kTermin, "(",            kAll,           &File::if_count,       nullptr,            OnIf},
    {"import",           kSet,    " \n\t\r#",     kJava,          &File::import_count,   nullptr,            nullptr},
    {"inline",           kSet,    " ([\n\t;)\r#", kAll,           &File::inline_count,   nullptr,            Set<&Head::inline_flag>},
    {"interface",        kSet,    " \n\t\r#",     kJava|kCs,      nullptr,               nullptr,            OnInterface},
    {"malloc",           kTermin, "(",            kAll,           &File::alloc_count,    nullptr,            nullptr},
    {"mutable",          kSet,    " \n\t\r#",     kAnsi,          nullptr,               nullptr,            nullptr},
    {"namespace",        kSet,    " \n\t\r#",     kAnsi|kCpp|kCs, nullptr,               nullptr,            OnNamespace},
    {"new",              kSet,    " (\n\t\r#",    kAnsi|kC,       nullptr,               nullptr,            Set<&Scope::new_flag>},
    {"new",              kSet,    " (\n\t\r#",    kNotC,          &File::new_count,      nullptr,            Set<&Scope::new_flag>},
    {"operator",         kOpName, "",             kAnsi,          nullptr,               nullptr,            nullptr},
    {"or",               kSet,    " (\n\t\r#",    kAll,           nullptr,               &Fn::local_or,      nullptr},
    {"overload",         kSet,    " (\n\t\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"package",          kSet,    " \t\r\n#",     kJava,          nullptr,               nullptr,            OnPackage},
    {"private",          kSet,    " :\n\t\r#",    kAnsi|kNotC,    nullptr,               nullptr,            Access<0, 0, 1>},
    {"protected",        kSet,    " :\n\t\r#",    kAnsi|kNotC,    nullptr,               nullptr,            Access<0, 1, 0>},
    {"public",           kSet,    " :\n\t\r#",    kAnsi|kNotC,    nullptr,               nullptr,            Access<1, 0, 0>},
    {"realloc",          kSet,    "( \t#",        kAll,           nullptr,               nullptr,            Notice<kNoticeRealloc>},
    {"reinterpret_cast", kSet,    " <\n\t\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"return",           kSet,    " \t;#",        kAll,           nullptr,               nullptr,            OnReturn},
    {"return",           kTermin, "(",            kAll,           &File::return_count,   &Fn::local_return,  nullptr},
    {"set",              kSet,    " \t{#",        kCs,            nullptr,               nullptr,            OnSet},
    {"static",           kName,   "",             kAll,           nullptr,               nullptr,            OnStatic},
    {"static_cast",      kSet,    " <\n\t\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"struct",           kSet,    "{ \n\t\r#",    kAll,           nullptr,               nullptr,            OnStruct},
    {"switch",           kSet,    " \t\n\r#",     kAll,           &File::switch_count,   &Fn::local_switch,  OnSwitch},
    {"switch",           kTermin, "(",            kAll,           &File::switch_count,   &Fn::local_switch,  OnSwitch},
    {"template",         kSet,    " \n\r<#",      kAnsi,          nullptr,               nullptr,            nullptr},
    {"template",         kTermin, "<",            kNotC,          &File::template_count, nullptr,            OnTemplate},
    {"this",             kSet,    " \r;\n\t)#",   kAnsi,          nullptr,               nullptr,            nullptr},
    {"throw",            kSet,    " \n\t#",       kAnsi|kC,       nullptr,               &Fn::local_return,  nullptr},
    {"true",             kSet,    " ;\n\t\r#",    kAnsi,          nullptr,               nullptr,            nullptr},
    {"try",              kSet,    " {\n\t\r#",    kAnsi|kNotC,    nullptr,               nullptr,            Notice<kNoticeTry>},
    {"typedef",          kSet,    " \n\t\r#",     kAll,           &File::typedef_count,  nullptr,            Set<&Scope::typedef_flag>},
    {"typeid",           kSet,    " (\n\t#",      kAnsi,          nullptr,               nullptr,            nullptr},
    {"union",            kTermin, "{",            kAll,           &File::union_count,    nullptr,            nullptr},
    {"using",            kSet,    " \n\t#",       kAnsi|kCpp|kCs, &File::using_count,    nullptr,            Set<&Scope::using_flag>},
    {"virtual",          kSet,    " (\n\t#",      kAnsi|kNotC,    nullptr,               nullptr,            OnVirtual},
    {"void",             kSet,    " (\n\t;)*#",   kAll,           nullptr,               nullptr,            OnVoid},
    {"wchar_t",          kSet,    " (\n\t#",      kAnsi,          nullptr,               nullptr,            nullptr},
    {"where",            kSet,    " \t\r\n",      kCs,            nullptr,               nullptr,            Set<&Scope::where_flag>},
    {"while",            kTermin, "(",            kAll,           &File::while_count,    &Fn::local_while,   OnWhile},
};
// clang-format on

// The first bytes of a word as one number, the first byte lowest on any machine.
constexpr size_t kHeadBytes = 8;
constexpr uint64_t HeadOf(std::string_view word) {
    uint64_t head = 0;
    for (size_t i = 0; i < word.size(); ++i) {
        head |= uint64_t{static_cast<unsigned char>(word[i])} << 8 * i;
    }
    return head;
}
uint64_t HeadOf(const char *word) {
    uint64_t head;
    memcpy(&head, word, sizeof head);
    return std::endian::native == std::endian::little ? head : __builtin_bswap64(head);
}

// Up to eight bytes of a word, and which of the eight there are: one comparison tells most other words apart.
struct WordPart {
    uint64_t bytes, mask;

    constexpr explicit WordPart(std::string_view part)
        : bytes(HeadOf(part)),
          mask(part.empty() ? 0 : ~uint64_t{0} >> 8 * (kHeadBytes - part.size())) {}
    bool IsIn(uint64_t head) const { return ((head ^ bytes) & mask) == 0; }
};

// A row, made ready for the scanner.
struct alignas(128) Keyword {
    WordPart head, tail;      // its first eight letters, and those behind them: mostly none
    uint64_t closers[4] = {}; // a bit per byte that closes it
    bool comment;             // one that opens closes it too
    bool behind_blanks;       // blanks and tabs may stand ahead of what closes it
    unsigned char languages;
    unsigned char size;
    int FileCounters::*file_counter;
    int FunctionCounters::*function_counter;
    Action action;
    const char *word;

    constexpr explicit Keyword(const Row &row)
        : head(row.word.substr(0, kHeadBytes)),
          tail(row.word.substr(std::min(kHeadBytes, row.word.size()))),
          comment(row.closing == kTermin || row.closers.find('#') != std::string_view::npos),
          behind_blanks(row.closing == kTermin),
          languages(row.languages),
          size(static_cast<unsigned char>(row.word.size())),
          file_counter(row.file_counter),
          function_counter(row.function_counter),
          action(row.action),
          word(row.word.data()) {
        for (const char c : row.closers) {
            AddCloser(c, c != '#');
        }
        for (const char c : {'\n', '\r'}) {
            AddCloser(c, row.closing == kTermin);
        }
        for (int i = 0; i < 256 && (row.closing == kName || row.closing == kOpName); ++i) {
            const char c = static_cast<char>(i);
            AddCloser(c, row.closing == kName ? c != '_' : IsSpace(c) || is_operator(c));
        }
    }
    constexpr void AddCloser(char c, bool closes) {
        closers[static_cast<unsigned char>(c) / 64] |= static_cast<uint64_t>(closes) << (c & 63);
    }
    constexpr bool HasCloser(char c) const { return closers[static_cast<unsigned char>(c) / 64] >> (c & 63) & 1; }
    // Whether the word, which ends at p, is closed there.
    bool IsClosed(const char *p) const {
        if (behind_blanks) {
            p = Ltrim(p);
        }
        return HasCloser(*p) || (comment && OpensComment(p));
    }
};

constexpr size_t kKeywordCount = std::size(kTable);
static_assert(kKeywordCount < 256);
template <size_t... rows> constexpr std::array<Keyword, sizeof...(rows)> MakeKeywords(std::index_sequence<rows...>) {
    return {Keyword(kTable[rows])...};
}
constexpr auto kKeywords = MakeKeywords(std::make_index_sequence<kKeywordCount>());
static_assert(std::ranges::all_of(kKeywords, [](const Keyword &keyword) { return keyword.size <= 2 * kHeadBytes; }));

// The masks of a block leave out words that the sieve holds back: no keyword may be among them, whatever closes it.
constexpr bool PassesSieve(const Keyword &keyword) {
    if (keyword.size >= sieve::kPlaces) {
        return MayBeKeyword(keyword.word);
    }
    for (int i = 0; i < 256; ++i) {
        const char closer = static_cast<char>(i);
        const bool closes =
            keyword.HasCloser(closer) || (keyword.comment && closer == '/') || (keyword.behind_blanks && IsBlankOrTab(closer));
        for (int behind = 0; closes && behind < 32; ++behind) { // every lower half, with the high bit too
            std::array<char, sieve::kPlaces + 1> text{};
            char *p = std::copy_n(keyword.word, keyword.size, text.begin());
            *p++ = closer;
            *p = static_cast<char>(behind < 16 ? behind : behind | 128);
            if (!MayBeKeyword(text.data())) {
                return false;
            }
        }
    }
    return true;
}
static_assert(std::ranges::all_of(kKeywords, PassesSieve));

// Bit of a letter: the small letters have 1 to 26, "_" has 31.
constexpr int LetterBit(char letter) {
    return letter & 31;
}

// The keywords of a first letter, by its bit, and of a second letter. Where both are those of one, a word is looked at.
struct Rows {
    unsigned char begin, end;
};
using RowsOfSecond = std::array<Rows, 32>;

void RowsOfTwoLettersStandTogether() {} // not constexpr: reached only by a wrong table, which then doesn't compile

constexpr std::array<RowsOfSecond, 32> kRows = [] {
    std::array<RowsOfSecond, 32> all{};
    for (size_t row = 0; row < kKeywordCount; ++row) {
        const std::string_view word = kTable[row].word;
        Rows &rows = all[LetterBit(word[0])][LetterBit(word[1])];
        if (rows.end == 0) {
            rows.begin = static_cast<unsigned char>(row);
        } else if (rows.end != row) {
            RowsOfTwoLettersStandTogether();
        }
        rows.end = static_cast<unsigned char>(row + 1);
    }
    return all;
}();

// For every character the first letters that it may stand in front of; NUL or a line feed stands in front of the line.
constexpr std::array<uint32_t, 256> kMayFollow = [] {
    std::array<uint32_t, 256> letters{};
    letters[0] = ~0U;
    letters['\n'] = ~0U;
    for (const Ahead &ahead : kAhead) {
        for (const char *letter = ahead.letters; *letter; ++letter) {
            for (const char *c = ahead.allowed; *c; ++c) {
                letters[static_cast<unsigned char>(*c)] |= 1U << LetterBit(*letter);
            }
        }
    }
    return letters;
}();

// The bits of a row that acts or complains in the file in hand.
unsigned LanguageOf(const Globals *G) {
    return G->is_c ? kC | kAnsi : G->is_cpp ? kCpp : G->is_java ? kJava : G->is_cs ? kCs : kUnknown;
}

// if constexpr (a), if IF_CONSTEXPR (a): what stands between the word, which ends at p, and its condition, doesn't matter.
bool IsClosedBehindMacro(const Keyword &keyword, const char *p, const Globals *G) {
    if (!(G->reading & kConditions) || !G->is_cpp || keyword.head.bytes != HeadOf(std::string_view("if")) || !IsBlankOrTab(*p)) {
        return false;
    }
    p = Ltrim(p);
    while (IsWordChar(*p)) {
        ++p;
    }
    return *Ltrim(p) == '(';
}

// What the keyword, which ends at end, counts and does.
void TakeKeyword(const Keyword &keyword, const char *end, Scan &scan, Globals *G) {
    if (keyword.file_counter) {
        ++(G->*keyword.file_counter);
    }
    if (keyword.function_counter) {
        ++(G->*keyword.function_counter);
    }
    if (keyword.action) {
        keyword.action(scan, static_cast<int>(end - scan.line), G);
    }
}

[[gnu::noinline]] void ComplainOf(const Keyword &keyword, const char *end, Scan &scan, Globals *G) {
    CPP_Symbol(scan.number, keyword.word, G);
    if (keyword.languages & kC) {
        TakeKeyword(keyword, end, scan, G);
    }
}

void TryKeyword(const Keyword &keyword, const Keyword *last, Scan &scan, Globals *G);

// The word in hand is the first of some keywords that it fits: the first one that has its head is tried, then those behind it.
void TryKeywords(const Keyword *keyword, const Keyword *last, Scan &scan, Globals *G) {
    const uint64_t head = HeadOf(scan.line + scan.index);
    for (; keyword < last; ++keyword) {
        if (keyword->head.IsIn(head)) {
            return TryKeyword(*keyword, last, scan, G);
        }
    }
}

// A keyword that isn't closed as it is mostly.
[[gnu::noinline]] void TryOtherwise(const Keyword &keyword, const Keyword *last, Scan &scan, Globals *G) {
    const char *end = scan.line + scan.index + keyword.size;
    if (IsClosedBehindMacro(keyword, end, G)) {
        return TakeKeyword(keyword, end, scan, G);
    }
    return TryKeywords(&keyword + 1, last, scan, G);
}

// Whatever it calls is the last that it does, so that it has nothing to save.
[[gnu::noinline]] void TryKeyword(const Keyword &keyword, const Keyword *last, Scan &scan, Globals *G) {
    const char *word = scan.line + scan.index;
    const char *end = word + keyword.size;
    const unsigned acting = LanguageOf(G) & keyword.languages;
    if (!acting || !keyword.tail.IsIn(HeadOf(word + kHeadBytes)) || !keyword.IsClosed(end)) {
        return TryOtherwise(keyword, last, scan, G);
    }
    if (acting & kAnsi) {
        return ComplainOf(keyword, end, scan, G);
    }
    return TakeKeyword(keyword, end, scan, G);
}

struct Range {
    const Keyword *begin, *end;
};
Range KeywordsOf(const char *word) {
    const Rows &rows = kRows[LetterBit(word[0])][LetterBit(word[1])];
    return {kKeywords.data() + rows.begin, kKeywords.data() + rows.end};
}

bool MayFollow(const char *word) {
    return kMayFollow[static_cast<unsigned char>(word[-1])] >> LetterBit(*word) & 1;
}

} // namespace

void CountLoop(const char *line, int index, Globals *G) {
    const char *word = line + index;
    if (!MayFollow(word)) {
        return;
    }
    const uint64_t head = HeadOf(word);
    const auto [begin, end] = KeywordsOf(word);
    for (const Keyword *keyword = begin; keyword < end; ++keyword) {
        if (keyword->file_counter == &File::for_count && keyword->head.IsIn(head) && keyword->IsClosed(word + keyword->size)) {
            ++G->for_count;
            return;
        }
    }
}

void OnWord(Scan &scan, Globals *G) {
    const char *word = scan.line + scan.index;
    if (MayFollow(word)) {
        const auto [begin, end] = KeywordsOf(word);
        TryKeywords(begin, end, scan, G);
    }
}
