// One pass over a line that finds the rules which may match it.
//
// Most rules look for what most lines don't have, and a regular expression takes long to say no. So the texts that patterns need
// (udqn_needs.cpp) are looked for all at once. A sieve holds 64 of them, a bit each, and knows for every byte which of them it is
// the first, the second and the third of: three look-ups a byte, each "and" what the byte ahead has left. A bit that comes through
// is a text of which three bytes stand there, and only then it is compared.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "notices/udqn.h"
#include "run/char_tests.h"
#include "run/globals.h"

namespace {

constexpr int kTextsOfSieve = 64;
constexpr size_t kSieved = 3; // bytes of a text

using Bits = unsigned long;

} // namespace

struct UdqnSieve {
    struct Places {
        Bits first, second, third;
    };
    UdqnSieve *next; // for the same part of a line
    int count;
    Bits one, two;      // ahead of a line: the texts of two bytes or of one, and those of one
    Places places[256]; // by byte
    struct {
        Udqn *rule;
        const char *text;
        size_t sieved; // its bytes that are looked up
    } wanted[kTextsOfSieve];
};

namespace {

// A text shorter than three bytes has any byte in front.
void AddText(UdqnSieve *sieve, Udqn *rule, const char *text) {
    const Bits bit = 1UL << sieve->count;
    const size_t sieved = std::min(strlen(text), kSieved);
    const size_t any = kSieved - sieved;
    sieve->wanted[sieve->count++] = {rule, text, sieved};
    sieve->one |= any >= 1 ? bit : 0;
    sieve->two |= any >= 2 ? bit : 0;
    static constexpr Bits UdqnSieve::Places::*kPlaces[kSieved] = {&UdqnSieve::Places::first, &UdqnSieve::Places::second,
                                                                  &UdqnSieve::Places::third};
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        for (size_t i = 0; i < kSieved; ++i) {
            if (i < any || text[i - any] == (rule->needs.any_case ? ToLower(c) : c)) {
                sieve->places[byte].*kPlaces[i] |= bit;
            }
        }
    }
}

bool StandsAt(const char *at, const Udqn *rule, const char *text) {
    for (; *text; ++text, ++at) {
        if (*text != (rule->needs.any_case ? ToLower(*at) : *at)) {
            return false;
        }
    }
    return true;
}

void Compare(const UdqnSieve &sieve, Bits found, const char *third, long line) {
    for (; found; found &= found - 1) {
        const auto &wanted = sieve.wanted[__builtin_ctzl(found)];
        if (wanted.rule->seen != line && StandsAt(third + 1 - wanted.sieved, wanted.rule, wanted.text)) {
            wanted.rule->seen = line;
        }
    }
}

void Sift(const UdqnSieve &sieve, const char *text, long line) {
    Bits one = sieve.one, two = sieve.two;
    for (const char *p = text; *p; ++p) {
        const UdqnSieve::Places &places = sieve.places[static_cast<unsigned char>(*p)];
        const Bits found = two & places.third;
        two = one & places.second;
        one = places.first;
        if (found) {
            Compare(sieve, found, p, line);
        }
    }
}

} // namespace

void DropSieves(UdqnList *list) {
    for (UdqnSieve *&first : list->sieves) {
        while (first) {
            UdqnSieve *const next = first->next;
            free(first);
            first = next;
        }
    }
    list->sieves_made = 0;
}

void MakeSieves(UdqnList *list) {
    list->sieves_made = 1;
    for (Udqn *rule : Records<Udqn>(*list)) {
        UdqnSieve *&sieve = list->sieves[rule->context];
        rule->sieved = 0;
        if (!rule->regex || rule->needs.count == 0) {
            continue;
        }
        if (!sieve || sieve->count + rule->needs.count > kTextsOfSieve) {
            auto *more = static_cast<UdqnSieve *>(calloc(1, sizeof(UdqnSieve)));
            if (!more) {
                continue;
            }
            more->next = sieve;
            sieve = more;
        }
        for (int i = 0; i < rule->needs.count; ++i) {
            AddText(sieve, rule, rule->needs.texts[i]);
        }
        rule->sieved = 1;
    }
}

bool MayMatch(const Udqn *rule, const char *text, Globals *G) {
    if (!rule->sieved) {
        return *text || !rule->needs.some_byte;
    }
    if (G->udqn_sifted[rule->context] != G->udqn_line) {
        G->udqn_sifted[rule->context] = G->udqn_line;
        for (const UdqnSieve *sieve = G->udqn_list.sieves[rule->context]; sieve; sieve = sieve->next) {
            Sift(*sieve, text, G->udqn_line);
        }
    }
    return rule->seen == G->udqn_line;
}
