// The regular expressions of the user's rules, through PCRE2's POSIX interface. No other file sees PCRE.
//
// A pattern like (a+)+$ can take longer than anybody waits. The interface has no limit of its own that can be set, but a pattern
// may state one: so ours stands in front of every pattern. A pattern can only lower it.
#include <algorithm>
#include <cstring>
#include <pcre2posix.h>
#include <string>

#include "notices/udqn.h"
#include "run/text.h"

static_assert(REG_ICASE == 1 && REG_NEWLINE == 2 && REG_NOSUB == 32 && REG_EXTENDED == 0 && REG_NOTBOL == 4 && REG_NOTEOL == 8,
              "the options of a rule file are passed on as bits");

// Steps of one match, and KiB that it may use.
static constexpr const char *kLimits = "(*LIMIT_MATCH=100000)(*LIMIT_HEAP=65536)";

struct UdqnRegex {
    regex_t compiled;
};

UdqnRegex *pcre_compile(const char *pattern, int flags, std::span<char> result) {
    auto *regex = static_cast<UdqnRegex *>(calloc(1, sizeof(UdqnRegex)));
    if (!regex) {
        CopyText(result, "Out of memory");
        return nullptr;
    }
    const std::string limited = std::string(kLimits) + pattern;
    const int code = regcomp(&regex->compiled, limited.c_str(), flags);
    if (code == 0) {
        CopyText(result, "Successful Pattern Compile");
        return regex;
    }
    // "missing closing parenthesis at offset 3": counted from where the user's pattern begins
    regex->compiled.re_erroffset -= std::min(regex->compiled.re_erroffset, strlen(kLimits));
    regerror(code, &regex->compiled, result.data(), result.size());
    free(regex);
    return nullptr;
}

UdqnMatch pcre_exec(const UdqnRegex *regex, const char *text, int flags) {
    regmatch_t match = {-1, -1};
    const int code = regexec(&regex->compiled, text, 1, &match, flags);
    // The interface has no code of its own for the limits: REG_ESPACE is that of steps, REG_ASSERT that of memory.
    return {code, code == REG_ESPACE || code == REG_ASSERT, code == 0 ? match.rm_so : -1, code == 0 ? match.rm_eo : -1};
}

void pcre_free(UdqnRegex *regex) {
    if (regex) {
        regfree(&regex->compiled);
        free(regex);
    }
}
