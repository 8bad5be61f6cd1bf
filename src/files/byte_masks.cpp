#include "files/byte_masks.h"

#include "run/char_tests.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

bool IsEvent(char c) {
    return c == '"' || c == '\'' || c == '/' || c == '#' || c == ';' || c == '{' || c == '}';
}

// Operators that mean something only twice in a row, or nothing: most of them are passed over.
bool IsPassed(char before, char c, char next) {
    const bool once = (c == '+' || c == '-' || c == '&' || c == '|') && c != before;
    return once || (c == '.' && c != next) || c == '!' || c == '%';
}

// No keyword begins with another letter, and none stands behind a byte of other kinds. What this lets pass is looked at again.
bool MayBeginKeyword(char c) {
    return (c >= 'a' && c <= 'w') || c == '_';
}
bool MayStandAhead(char c) {
    return c <= ' ' || c == '(' || c == ')' || (c >= ':' && c <= '=') || (c >= '{' && c <= '}');
}

// What the last byte ahead of the 64 in hand was: bit 0 tells of it.
struct Carry {
    uint64_t word, ahead;
};

// The tokens and those of the code, from the bytes of words and others: passed operators, first letters of keywords, and what may
// stand ahead of one.
void FindTokens(ByteMasks &found, uint64_t passed, uint64_t first, uint64_t ahead, Carry &carry) {
    const uint64_t begins = found.word & ~(found.word << 1 | carry.word);
    const uint64_t others = found.visible & ~found.word;
    found.token = begins | others;
    found.code = (begins & first & (ahead << 1 | carry.ahead)) | (others & ~passed);
    carry = {found.word >> (kMaskBytes - 1), ahead >> (kMaskBytes - 1)};
}

void ClassifyPlainly(const char *bytes, size_t count, ByteMasks *masks) {
    Carry carry{0, 1};
    for (size_t begin = 0; begin < count; begin += kMaskBytes) {
        ByteMasks found{};
        uint64_t passed = 0;
        uint64_t first = 0;
        uint64_t ahead = 0;
        for (size_t i = 0; i < kMaskBytes; ++i) {
            const char *p = bytes + begin + i;
            const char c = *p;
            const uint64_t bit = uint64_t{1} << i;
            found.feed |= c == '\n' ? bit : 0;
            found.tab |= c == '\t' ? bit : 0;
            found.visible |= c > ' ' ? bit : 0;
            found.event |= IsEvent(c) || (c == 'f' && p[1] == 'o' && p[2] == 'r') ? bit : 0;
            found.word |= IsWordChar(c) ? bit : 0;
            passed |= IsPassed(p[-1], c, p[1]) ? bit : 0;
            first |= MayBeginKeyword(c) ? bit : 0;
            ahead |= MayStandAhead(c) ? bit : 0;
        }
        FindTokens(found, passed, first, ahead, carry);
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
inline Vector IsIn(Vector v, char first, char last) {
    const Vector above = _mm_sub_epi8(v, _mm_set1_epi8(first));
    return _mm_cmpeq_epi8(_mm_min_epu8(above, _mm_set1_epi8(static_cast<char>(last - first))), above);
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
LANES_TARGET inline Vector IsIn(Vector v, char first, char last) {
    const Vector above = _mm256_sub_epi8(v, _mm256_set1_epi8(first));
    return _mm256_cmpeq_epi8(_mm256_min_epu8(above, _mm256_set1_epi8(static_cast<char>(last - first))), above);
}
LANES_TARGET inline uint32_t Bits(Vector v) {
    return static_cast<uint32_t>(_mm256_movemask_epi8(v));
}
#include "files/byte_masks_lanes.inc"
#undef LANES_TARGET
} // namespace avx2

} // namespace

Classifiers AllClassifiers() {
    return {ClassifyPlainly, sse2::Classify, __builtin_cpu_supports("avx2") ? avx2::Classify : nullptr};
}
#else
Classifiers AllClassifiers() {
    return {ClassifyPlainly, nullptr, nullptr};
}
#endif

Classifier BestClassifier() {
    const Classifiers all = AllClassifiers();
    return all.avx2 ? all.avx2 : all.sse2 ? all.sse2 : all.plain;
}
