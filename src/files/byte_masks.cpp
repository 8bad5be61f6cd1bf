#include "files/byte_masks.h"

#include <array>
#include <cstring>

#include "files/word_sieve.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

bool IsEvent(char c) {
    return c == '"' || c == '\'' || c == '/' || c == '#' || c == ';' || c == '{' || c == '}';
}

// The kinds of a byte that the tokens are found from, as bits of one byte. Each is the bytes whose upper half is one of some and
// whose lower half is one of some, so that two looks into tables of 16 tell all of them. Their order makes one comparison enough:
// what is passed over is negative, what is in a word is above kAhead, and what may stand ahead of a keyword is above 0. There the
// bytes of words don't matter: no word begins behind one.
struct Kind {
    int8_t bit;
    const char *upper, *lower;
};
constexpr int8_t kOnce = -128; // only something when it is doubled, or nothing to the scanner at all
constexpr int8_t kAhead = 3;
// clang-format off
constexpr Kind kKinds[] = {
    {kOnce, "2",  "1456bde"}, // ! $ % & + - .
    {0x40,  "3",  "0123456789"},
    {0x20,  "46", "123456789abcdef"}, // letters
    {0x10,  "57", "0123456789a"},
    {0x08,  "5",  "f"},    // _
    {0x02,  "23", "89"},   // ( )
    {0x01,  "37", "abcd"}, // : ; < = { | }
};
// clang-format on

using HalfTable = std::array<int8_t, 16>;
constexpr HalfTable TableOf(const char *Kind::*half) {
    HalfTable table{};
    for (const Kind &kind : kKinds) {
        for (const char *digit = kind.*half; *digit; ++digit) {
            table[*digit <= '9' ? *digit - '0' : *digit - 'a' + 10] |= kind.bit;
        }
    }
    return table;
}
constexpr HalfTable kUpperHalf = TableOf(&Kind::upper);
constexpr HalfTable kLowerHalf = TableOf(&Kind::lower);

constexpr std::array<int8_t, 256> kKindsOf = [] {
    std::array<int8_t, 256> kinds{};
    for (size_t c = 0; c < kinds.size(); ++c) {
        kinds[c] = kUpperHalf[c >> 4] & kLowerHalf[c & 15];
    }
    return kinds;
}();

// What the tokens of 64 bytes are found from.
struct CodeBytes {
    uint64_t visible; // 33 to 127
    uint64_t word;    // letters, digits and "_"
    uint64_t ahead;   // visible, and a keyword may stand behind it; or in a word
    uint64_t passed;  // passed over
};

// What the last byte ahead of the 64 in hand was: bit 0 tells of it.
struct Carry {
    uint64_t word, ahead;
};

// Fills visible, token and, but for the words, code. Returns the words that may be keywords by what stands ahead of them.
inline uint64_t FindTokens(ByteMasks &found, const CodeBytes &code, Carry &carry) {
    const uint64_t ahead = ~code.visible | code.ahead;
    const uint64_t begins = code.word & ~(code.word << 1 | carry.word);
    const uint64_t words = begins & (ahead << 1 | carry.ahead);
    const uint64_t others = code.visible & ~code.word;
    found.visible = code.visible;
    found.token = begins | others;
    found.code = others & ~code.passed;
    carry = {code.word >> (kMaskBytes - 1), ahead >> (kMaskBytes - 1)};
    return words;
}

// Of the words that begin at set bits those that may be keywords.
uint64_t Sieve(uint64_t words, const char *bytes) {
    uint64_t likely = 0;
    for (; words; words &= words - 1) {
        likely |= MayBeKeyword(bytes + std::countr_zero(words)) ? words & -words : 0;
    }
    return likely;
}

// White space is counted on from masks to masks.
inline void CountAhead(ByteMasks &masks, uint32_t &blanks, uint32_t &tabs) {
    masks.blanks_ahead = blanks;
    masks.tabs_ahead = tabs;
    blanks += static_cast<uint32_t>(std::popcount(masks.blank));
    tabs += static_cast<uint32_t>(std::popcount(masks.tab));
}

void ClassifyLines(const char *bytes, size_t count, ByteMasks *masks) {
    for (size_t begin = 0; begin < count; begin += kMaskBytes, ++masks) {
        *masks = {};
        for (size_t i = 0; i < kMaskBytes; ++i) {
            const char *p = bytes + begin + i;
            const uint64_t bit = uint64_t{1} << i;
            masks->feed |= *p == '\n' ? bit : 0;
            masks->visible |= *p > ' ' ? bit : 0;
            masks->event |= IsEvent(*p) || memcmp(p, "for", 3) == 0 ? bit : 0;
        }
    }
}

void ClassifyCode(const char *bytes, size_t count, ByteMasks *masks) {
    Carry carry{0, 1};
    uint32_t blanks = 0;
    uint32_t tabs = 0;
    for (size_t begin = 0; begin < count; begin += kMaskBytes) {
        ByteMasks found{};
        CodeBytes code{};
        for (size_t i = 0; i < kMaskBytes; ++i) {
            const char *p = bytes + begin + i;
            const char c = *p;
            const int8_t kinds = kKindsOf[static_cast<unsigned char>(c)];
            const uint64_t bit = uint64_t{1} << i;
            found.feed |= c == '\n' ? bit : 0;
            found.tab |= c == '\t' ? bit : 0;
            found.blank |= c == ' ' ? bit : 0;
            code.visible |= c > ' ' ? bit : 0;
            code.word |= kinds > kAhead ? bit : 0;
            code.ahead |= kinds > 0 ? bit : 0;
            code.passed |= kinds < 0 && c != p[-1] ? bit : 0;
        }
        CountAhead(found, blanks, tabs);
        const uint64_t words = FindTokens(found, code, carry);
        found.code |= Sieve(words, bytes + begin);
        *masks++ = found;
    }
}

} // namespace

#ifdef __SSE2__
namespace {

namespace sse2 {
#define LANES_TARGET
using Vector = __m128i;
inline Vector Load(const char *p) {
    return _mm_loadu_si128(reinterpret_cast<const Vector *>(p));
}
inline Vector Is(Vector v, char c) {
    return _mm_cmpeq_epi8(v, _mm_set1_epi8(c));
}
inline Vector Same(Vector a, Vector b) {
    return _mm_cmpeq_epi8(a, b);
}
inline Vector AndNot(Vector not_these, Vector these) {
    return _mm_andnot_si128(not_these, these);
}
inline Vector Above(Vector v, char c) {
    return _mm_cmpgt_epi8(v, _mm_set1_epi8(c));
}
inline uint32_t Bits(Vector v) {
    return static_cast<uint32_t>(_mm_movemask_epi8(v));
}
inline Vector IsIn(Vector v, char first, char last) {
    const Vector moved = _mm_add_epi8(v, _mm_set1_epi8(static_cast<char>(-128 - first))); // first is the least byte then
    return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(-128 + last - first + 1)));
}
// As in kKinds, without its tables.
inline Vector KindsOf(const char *p) {
    const Vector v = Load(p);
    const Vector word = IsIn(v | _mm_set1_epi8('a' - 'A'), 'a', 'z') | IsIn(v, '0', '9') | Is(v, '_');
    const Vector ahead = IsIn(v, '(', ')') | IsIn(v, ':', '=') | IsIn(v, '{', '}');
    const Vector once = Is(v, '!') | IsIn(v, '$', '&') | Is(v, '+') | IsIn(v, '-', '.');
    return (word & _mm_set1_epi8(kAhead + 1)) | (ahead & _mm_set1_epi8(kAhead)) | (once & _mm_set1_epi8(kOnce));
}
inline uint64_t Likely(uint64_t words, const char *bytes) {
    return Sieve(words, bytes);
}
#include "files/byte_masks_lanes.inc"
#undef LANES_TARGET
} // namespace sse2

namespace avx2 {
#define LANES_TARGET [[gnu::target("avx2,popcnt")]]
using Vector = __m256i;
LANES_TARGET inline Vector Load(const char *p) {
    return _mm256_loadu_si256(reinterpret_cast<const Vector *>(p));
}
LANES_TARGET inline Vector Is(Vector v, char c) {
    return _mm256_cmpeq_epi8(v, _mm256_set1_epi8(c));
}
LANES_TARGET inline Vector Same(Vector a, Vector b) {
    return _mm256_cmpeq_epi8(a, b);
}
LANES_TARGET inline Vector AndNot(Vector not_these, Vector these) {
    return _mm256_andnot_si256(not_these, these);
}
LANES_TARGET inline Vector Above(Vector v, char c) {
    return _mm256_cmpgt_epi8(v, _mm256_set1_epi8(c));
}
LANES_TARGET inline uint32_t Bits(Vector v) {
    return static_cast<uint32_t>(_mm256_movemask_epi8(v));
}
// Entries of a table by the lower halves of bytes; 0 for those with the high bit set.
LANES_TARGET inline Vector Look(const auto &table, Vector v) {
    const __m128i entries = _mm_loadu_si128(reinterpret_cast<const __m128i *>(table.data()));
    return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(entries), v);
}
LANES_TARGET inline Vector KindsOf(const char *p) {
    const Vector v = Load(p);
    const Vector upper = _mm256_srli_epi16(v, 4) & _mm256_set1_epi8(0x0f);
    return Look(kUpperHalf, upper) & Look(kLowerHalf, v);
}
LANES_TARGET inline uint64_t Likely(uint64_t words, const char *bytes) {
    uint64_t none = 0;
    for (size_t i = 0; i < kMaskBytes; i += sizeof(Vector)) {
        const char *p = bytes + i;
        const Vector first = _mm256_sub_epi8(Load(p), _mm256_set1_epi8(sieve::kFirst));
        const Vector groups = Look(sieve::kTables[0], first) & Look(sieve::kTables[1], Load(p + 1)) &
                              Look(sieve::kTables[2], Load(p + 2)) &
                              Look(sieve::kTables[3], Load(p + 3) & _mm256_set1_epi8(sieve::kLowerHalf));
        none |= static_cast<uint64_t>(Bits(Is(groups, 0))) << i;
    }
    return words & ~none;
}
#include "files/byte_masks_lanes.inc"
#undef LANES_TARGET
} // namespace avx2

} // namespace

Classifiers AllClassifiers(MaskUse use) {
    const bool has_avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt");
    return use == MaskUse::kLines ? Classifiers{ClassifyLines, sse2::ClassifyLines, has_avx2 ? avx2::ClassifyLines : nullptr}
                                  : Classifiers{ClassifyCode, sse2::ClassifyCode, has_avx2 ? avx2::ClassifyCode : nullptr};
}
#else
Classifiers AllClassifiers(MaskUse use) {
    return {use == MaskUse::kLines ? ClassifyLines : ClassifyCode, nullptr, nullptr};
}
#endif

Classifier BestClassifier(MaskUse use) {
    const Classifiers all = AllClassifiers(use);
    return all.avx2 ? all.avx2 : all.sse2 ? all.sse2 : all.plain;
}
