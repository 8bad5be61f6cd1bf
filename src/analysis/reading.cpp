// The table of the modern reading's rules.
#include "analysis/reading.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <strings.h>

namespace {

// clang-format off
constexpr ReadingRule kRules[] = {
    {kBraces, "braces", "a \"}\" ends what its own \"{\" opened, and a statement is judged as a whole", "C#", "", "", "", 0},
    {kLiterals, "literals", "", "C#", "", "", "", 0},
    {kDefaults, "defaults", "", "C#", "", "", "", 0},
    {kBases, "bases", "", "C#", "", "", "", 0},
    {kInitialisers, "initialisers", "", "C#", "", "", "", 0},
    {kPrototypes, "prototypes", "", "C#", "", "", "", 0},
    {kTuples, "tuples", "", "C#", "", "", "", 0},
    {kArrows, "arrows", "", "C#", "", "", "", 0},
    {kAnnotations, "annotations", "", "C#", "", "", "", 0},
    {kMacros, "macros", "", "C#", "", "", "", 0},
    {kConditionals, "conditionals", "", "C#", "", "", "", 0},
    {kTemplates, "templates", "", "C#", "", "", "", 0},
    {kNamespaces, "namespaces", "", "C#", "", "", "", 0},
    {kRecords, "records", "", "C#", "", "", "", 0},
};
// clang-format on

} // namespace

std::span<const ReadingRule> ReadingRules() {
    return kRules;
}

unsigned RulesOf(const char *names) {
    unsigned rules = 0;
    for (std::string_view rest = names; !rest.empty();) {
        const std::string_view name = rest.substr(0, rest.find(','));
        unsigned found = 0;
        for (const ReadingRule &row : kRules) {
            found |= name.size() == strlen(row.name) && strncasecmp(name.data(), row.name, name.size()) == 0 ? row.rule : 0U;
        }
        if (!found) {
            return 0;
        }
        rules |= found;
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return rules;
}
