#include "qualified_name.h"

namespace {

bool IsOperatorName(std::string_view name) {
    constexpr std::string_view kWord = "operator";
    if (!name.starts_with(kWord) || name.size() == kWord.size()) {
        return false;
    }
    const char next = name[kWord.size()];
    return !(next == '_' || (next >= '0' && next <= '9') || (next >= 'A' && next <= 'Z') || (next >= 'a' && next <= 'z'));
}

} // namespace

std::string_view ScopeOf(std::string_view name) {
    size_t end = 0;
    int depth = 0;
    for (size_t i = 0; i < name.size(); ++i) {
        if (depth == 0 && IsOperatorName(name.substr(i))) {
            break;
        }
        depth += name[i] == '<' || name[i] == '(' ? 1 : name[i] == '>' || name[i] == ')' ? -1 : 0;
        if (depth == 0 && i > 0 && (name[i] == '.' || name.substr(i).starts_with("::"))) {
            end = i;
            i += name[i] == ':' ? 1 : 0;
        }
    }
    return name.substr(0, end);
}
