#include "files/byte_masks.h"

#include <cstring>

#include "run/char_tests.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

bool IsEvent(char c) {
    return c == '"' || c == '\'' || c == '/' || c == '#' || c == ';' || c == '{' || c == '}';
}

// Operators that mean something only twice in a row: most of them are passed over.
bool IsPassed(char before, char c, char next) {
    const bool once = (c == '+' || c == '-' || c == '&' || c == '|') && c != before;
    return once || (c == '.' && c != next);
}

// No keyword stands behind a byte of other kinds. What this lets pass is looked at again.
bool MayStandAhead(char c) {
    return c <= ' ' || c == '(' || c == ')' || (c >= ':' && c <= '=') || (c >= '{' && c <= '}');
}

// What the tokens of 64 bytes are found from.
struct CodeBytes {
    uint64_t white;  // not visible
    uint64_t upper;  // capitals and digits: no keyword begins with one
    uint64_t lower;  // small letters and "_"
    uint64_t passed; // operators that are passed over
    uint64_t ahead;  // what may stand ahead of a keyword
};

// What the last byte ahead of the 64 in hand was: bit 0 tells of it.
struct Carry {
    uint64_t word, ahead;
};

void FindTokens(ByteMasks &found, const CodeBytes &code, Carry &carry) {
    found.visible = ~code.white;
    const uint64_t word = code.upper | code.lower;
    const uint64_t begins = word & ~(word << 1 | carry.word);
    const uint64_t others = found.visible & ~word;
    found.token = begins | others;
    found.code = (begins & code.lower & (code.ahead << 1 | carry.ahead)) | (others & ~code.passed);
    carry = {word >> (kMaskBytes - 1), code.ahead >> (kMaskBytes - 1)};
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
    for (size_t begin = 0; begin < count; begin += kMaskBytes) {
        ByteMasks found{};
        CodeBytes code{};
        for (size_t i = 0; i < kMaskBytes; ++i) {
            const char *p = bytes + begin + i;
            const char c = *p;
            const uint64_t bit = uint64_t{1} << i;
            found.feed |= c == '\n' ? bit : 0;
            found.tab |= c == '\t' ? bit : 0;
            code.white |= c <= ' ' ? bit : 0;
            code.upper |= IsDigit(c) || (c >= 'A' && c <= 'Z') ? bit : 0;
            code.lower |= c == '_' || (c >= 'a' && c <= 'z') ? bit : 0;
            code.passed |= IsPassed(p[-1], c, p[1]) ? bit : 0;
            code.ahead |= MayStandAhead(c) ? bit : 0;
        }
        FindTokens(found, code, carry);
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
inline Vector Below(Vector v, char c) {
    return _mm_cmplt_epi8(v, _mm_set1_epi8(c));
}
inline Vector IsIn(Vector v, char first, char last) {
    const Vector moved = _mm_add_epi8(v, _mm_set1_epi8(static_cast<char>(-128 - first))); // first is the least byte then
    return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(-128 + last - first + 1)));
}
inline uint32_t Bits(Vector v) {
    return static_cast<uint32_t>(_mm_movemask_epi8(v));
}
#include "files/byte_masks_lanes.inc"
#undef LANES_TARGET
} // namespace sse2

namespace avx2 {
#define LANES_TARGET [[gnu::target("avx2")]]
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
LANES_TARGET inline Vector Below(Vector v, char c) {
    return _mm256_cmpgt_epi8(_mm256_set1_epi8(c), v);
}
LANES_TARGET inline Vector IsIn(Vector v, char first, char last) {
    const Vector moved = _mm256_add_epi8(v, _mm256_set1_epi8(static_cast<char>(-128 - first))); // first is the least byte then
    return _mm256_cmpgt_epi8(_mm256_set1_epi8(static_cast<char>(-128 + last - first + 1)), moved);
}
LANES_TARGET inline uint32_t Bits(Vector v) {
    return static_cast<uint32_t>(_mm256_movemask_epi8(v));
}
#include "files/byte_masks_lanes.inc"
#undef LANES_TARGET
} // namespace avx2

} // namespace

Classifiers AllClassifiers(MaskUse use) {
    const bool has_avx2 = __builtin_cpu_supports("avx2");
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
