// Which words may be keywords, told from their first four letters by four looks into tables.
//
// The keywords stand in eight groups, a bit each. At every place a table tells by the lower half of a byte in which groups it may
// stand there; where no group is left behind the last place, the word is no keyword. Letters with the same lower half are taken for
// one another, and those of a group's words mix: what passes is looked at again.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace sieve {

// Which words share a group decides only how many others pass: these let few of those pass that are frequent in code.
inline constexpr std::string_view kGroups[] = {
    "alloc calloc class exit false malloc switch",
    "catch event interface reinterpret_cast return using",
    "_exit delegate delete dynamic_cast import inline operator throw typedef typeid",
    "abort do free friend goto if or overload this true try void where while",
    "case else extends final namespace package private",
    "and asm get mutable new set wchar_t",
    "const const_cast continue enum for foreach static static_cast struct union",
    "bool break default protected public realloc template virtual",
};
inline constexpr size_t kPlaces = 4;
using Table = std::array<uint8_t, 16>; // groups by the lower half of a byte
inline constexpr char kLowerHalf = 15;

// The byte at the first place is taken for what it is above this one: only small letters and "_" are not negative then.
inline constexpr char kFirst = '_';

// What may stand at a place of a keyword, or behind a short one: right behind it what may close it, then anything.
constexpr std::string_view AtPlace(std::string_view word, size_t place) {
    constexpr std::string_view kClosers = " \t\n\r(/{";
    constexpr std::string_view kEveryLowerHalf = "0123456789:;<=>?";
    return place < word.size() ? word.substr(place, 1) : place == word.size() ? kClosers : kEveryLowerHalf;
}

constexpr std::array<Table, kPlaces> MakeTables() {
    std::array<Table, kPlaces> tables{};
    for (size_t group = 0; group < std::size(kGroups); ++group) {
        const std::string_view words = kGroups[group];
        for (size_t begin = 0; begin < words.size(); begin = std::min(words.find(' ', begin), words.size() - 1) + 1) {
            const std::string_view word = words.substr(begin, words.find(' ', begin) - begin);
            for (size_t place = 0; place < kPlaces; ++place) {
                for (const char c : AtPlace(word, place)) {
                    uint8_t &groups = tables[place][(place == 0 ? c - kFirst : c) & kLowerHalf];
                    groups = static_cast<uint8_t>(groups | 1 << group);
                }
            }
        }
    }
    return tables;
}
inline constexpr std::array<Table, kPlaces> kTables = MakeTables();

constexpr unsigned GroupsOf(const Table &table, char c) {
    return c < 0 ? 0 : table[c & kLowerHalf];
}

} // namespace sieve

// Whether a keyword may begin here. Looks at four bytes. No byte with the high bit set stands in a keyword, or closes a short one;
// but two places behind the letters of "if" there may be one.
constexpr bool MayBeKeyword(const char *word) {
    using namespace sieve;
    const unsigned begin = GroupsOf(kTables[0], static_cast<char>(word[0] - kFirst)) & GroupsOf(kTables[1], word[1]);
    return begin != 0 && (begin & GroupsOf(kTables[2], word[2]) & GroupsOf(kTables[3], word[3] & kLowerHalf)) != 0;
}
