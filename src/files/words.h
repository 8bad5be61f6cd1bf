// Walking the words of a settings text ("c,h;cpp").
#pragma once

#include <cstring>
#include <string_view>

// True as soon as test(word) holds for a word of text, which is split at any of the separator characters. Words are never
// empty.
template <class Test> bool AnyWord(const char *text, const char *separators, Test test) {
    const char *word = text + strspn(text, separators);
    while (*word) {
        const size_t length = strcspn(word, separators);
        if (test(std::string_view(word, length))) {
            return true;
        }
        word += length;
        word += strspn(word, separators);
    }
    return false;
}
