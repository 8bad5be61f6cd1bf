// Blanks and tabs of a line, 16 bytes at a time.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

struct White {
    int blanks, tabs;
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

} // namespace white

// Of the first bytes of a line. Up to 15 more must be readable; a line has at most 16 times 255 bytes.
inline White CountWhite(const char *line, int count) {
    white::Bytes blanks{};
    white::Bytes tabs{};
    white::Bytes chunk;
    int i = 0;
    for (; count - i >= 16; i += 16) {
        memcpy(&chunk, line + i, sizeof chunk);
        blanks -= (white::Bytes)(chunk == ' ');
        tabs -= (white::Bytes)(chunk == '\t');
    }
    white::Bytes mask;
    memcpy(&chunk, line + i, sizeof chunk);
    memcpy(&mask, white::kLetPass.data() + 16 - (count - i), sizeof mask);
    chunk &= mask;
    blanks -= (white::Bytes)(chunk == ' ');
    tabs -= (white::Bytes)(chunk == '\t');
    return {white::SumOfBytes(blanks), white::SumOfBytes(tabs)};
}
