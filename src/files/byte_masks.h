// A block of source seen from far away: what its bytes are, 64 of them in one machine word per kind.
//
// Whoever looks for the next byte of a kind asks the words, a bit per byte, instead of the bytes: the next set bit is one
// instruction away, however far it stands. The kinds are those at which a line or the reading of a line can change.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

// Bit 0 is the first of the 64 bytes. A byte is read as signed: one with the high bit set is not visible.
struct alignas(64) ByteMasks {
    uint64_t feed;    // line feeds
    uint64_t tab;     // tabs
    uint64_t visible; // 33 to 127: what isn't white
    uint64_t event;   // what the count of lines looks at in code: " ' / # ; { } and the "f" of "for"
    uint64_t token;   // the first byte of every word, and what is visible and in no word
    uint64_t code;  // of the tokens those that the scanner may react to: what may be keywords, and all others but single operators
    uint64_t blank; // blanks
    uint32_t blanks_ahead, tabs_ahead; // in the masks ahead of this one
};

inline constexpr size_t kMaskBytes = 64;
inline constexpr size_t kBytesBehind = kMaskBytes; // that must be readable behind the last 64 bytes

// For the count of lines feed, visible and event are filled in; for the scanner all but event.
enum class MaskUse { kLines, kCode };

// Fills one record for every 64 bytes begun. Bytes behind count, up to the next 64, are looked at, and so are the byte ahead of the
// first and kBytesBehind more: all of them are to be 0.
using Classifier = void (*)(const char *bytes, size_t count, ByteMasks *masks);

// Three ways to the same masks: for any machine, for any x86-64, and for one with AVX2. Null where the machine can't run it.
struct Classifiers {
    Classifier plain, sse2, avx2;
};
Classifiers AllClassifiers(MaskUse use);
// The fastest of them here.
Classifier BestClassifier(MaskUse use);

// The index of the first set bit of a kind from begin on; end if there is none ahead of end.
inline int NextByte(const ByteMasks *masks, uint64_t ByteMasks::*kind, int begin, int end) {
    if (begin >= end) {
        return end;
    }
    size_t word = static_cast<size_t>(begin) / kMaskBytes;
    uint64_t bits = masks[word].*kind >> (begin % kMaskBytes) << (begin % kMaskBytes);
    while (!bits) {
        ++word;
        if (static_cast<int>(word * kMaskBytes) >= end) {
            return end;
        }
        bits = masks[word].*kind;
    }
    const int found = static_cast<int>(word * kMaskBytes) + std::countr_zero(bits);
    return found < end ? found : end;
}
