#include "model.h"

#include <algorithm>
#include <strings.h>

namespace {

struct Extension {
    const char *text;
    Language language;
};

constexpr Extension kExtensions[] = {
    {"c", Language::kC},       {"h", Language::kCHeader},    {"cc", Language::kCpp},        {"cpp", Language::kCpp},
    {"cxx", Language::kCpp},   {"hh", Language::kCppHeader}, {"hxx", Language::kCppHeader}, {"hpp", Language::kCppHeader},
    {"java", Language::kJava}, {"cs", Language::kCSharp},
};

} // namespace

Language LanguageOf(std::string_view path) {
    const std::string extension(path.substr(std::min(path.rfind('.'), path.size() - 1) + 1));
    for (const Extension &row : kExtensions) {
        if (strcasecmp(extension.c_str(), row.text) == 0) {
            return row.language;
        }
    }
    return Language::kOther;
}
