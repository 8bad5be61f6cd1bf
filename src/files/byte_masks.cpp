#include "files/byte_masks.h"

#include "run/char_tests.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

bool IsEvent(char c) {
    return c == '"' || c == '\'' || c == '/' || c == '#' || c == ';' || c == '{' || c == '}';
}

// The bytes of code, once the others are known. in_word: the last byte ahead of the 64 was in a word; the answer is the same for
// the next 64.
uint64_t FindCode(ByteMasks &found, uint64_t in_word) {
    found.code = found.visible & ~(found.word & (found.word << 1 | in_word));
    return found.word >> (kMaskBytes - 1);
}

void ClassifyPlainly(const char *bytes, size_t count, ByteMasks *masks) {
    uint64_t in_word = 0;
    for (size_t begin = 0; begin < count; begin += kMaskBytes) {
        ByteMasks found{};
        for (size_t i = 0; i < kMaskBytes; ++i) {
            const char *p = bytes + begin + i;
            const char c = *p;
            const uint64_t bit = uint64_t{1} << i;
            found.feed |= c == '\n' ? bit : 0;
            found.tab |= c == '\t' ? bit : 0;
            found.visible |= c > ' ' ? bit : 0;
            found.event |= IsEvent(c) || (c == 'f' && p[1] == 'o' && p[2] == 'r') ? bit : 0;
            found.word |= IsWordChar(c) ? bit : 0;
        }
        in_word = FindCode(found, in_word);
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
