// Blanks and tabs of a text, 16 bytes at a time.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

struct White {
    int64_t blanks, tabs;
};

namespace white {

using Bytes = unsigned char __attribute__((vector_size(16)));

inline int SumOfBytes(Bytes bytes) {
#ifdef __SSE2__ // one instruction for all 16
    const auto sums = std::bit_cast<std::array<uint64_t, 2>>(_mm_sad_epu8(std::bit_cast<__m128i>(bytes), _mm_setzero_si128()));
    return static_cast<int>(sums[0] + sums[1]);
#else
    const auto halves = std::bit_cast<std::array<uint64_t, 2>>(bytes);
    constexpr uint64_t kEven = 0x00ff00ff00ff00ffu;
    const uint64_t pairs = (halves[0] & kEven) + ((halves[0] >> 8) & kEven) + (halves[1] & kEven) + ((halves[1] >> 8) & kEven);
    return static_cast<int>((pairs * 0x0001000100010001u) >> 48);
#endif
}

// From 16 - n on, n bytes that let pass, then 16 that don't.
inline constexpr std::array<unsigned char, 32> kLetPass = [] {
    std::array<unsigned char, 32> bytes{};
    for (int i = 0; i < 16; ++i) {
        bytes[i] = 0xff;
    }
    return bytes;
}();

// Of at most kMost bytes: more are too many for the sums of bytes.
inline constexpr size_t kMost = 16 * 255;
inline White Count(const char *text, size_t count) {
    Bytes blanks{};
    Bytes tabs{};
    Bytes chunk;
    size_t i = 0;
    for (; i + sizeof chunk <= count; i += sizeof chunk) {
        memcpy(&chunk, text + i, sizeof chunk);
        blanks -= (Bytes)(chunk == ' ');
        tabs -= (Bytes)(chunk == '\t');
    }
    Bytes mask;
    memcpy(&chunk, text + i, sizeof chunk);
    memcpy(&mask, kLetPass.data() + sizeof mask - (count - i), sizeof mask);
    chunk &= mask;
    blanks -= (Bytes)(chunk == ' ');
    tabs -= (Bytes)(chunk == '\t');
    return {SumOfBytes(blanks), SumOfBytes(tabs)};
}

} // namespace white

// Of the first bytes of a text. Up to 15 more must be readable.
inline White CountWhite(const char *text, size_t count) {
    White sum{};
    for (size_t begin = 0; begin < count; begin += white::kMost) {
        const White part = white::Count(text + begin, std::min(count - begin, white::kMost));
        sum.blanks += part.blanks;
        sum.tabs += part.tabs;
    }
    return sum;
}
