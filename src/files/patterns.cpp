// The pattern filter: words that keep a file out of the list, wherever in its path they stand.
#include <algorithm>

#include "files/file_list.h"
#include "files/words.h"
#include "run/globals.h"

namespace {

constexpr char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

char *ChangeCase(char *text, int upper) {
    for (char *p = text; *p; ++p) {
        *p = upper ? Upper(*p) : ToLower(*p);
    }
    return text;
}

// Words are plain substrings, without wild cards: "test" leaves out "src/latest/a.c". Without case only the name is lowered, as
// BuildFileList has lowered the filter.
bool FilenamePatternMatch(const char *name, const Globals *G) {
    if (!G->pattern_filter_active) {
        return false;
    }
    const std::string_view path(name);
    return AnyWord(G->pattern_filter, ",\t\r\n", [&](std::string_view word) {
        return std::search(path.begin(), path.end(), word.begin(), word.end(), [&](char in_path, char in_word) {
                   return (G->names_case_sensitive ? in_path : ToLower(in_path)) == in_word;
               }) != path.end();
    });
}
