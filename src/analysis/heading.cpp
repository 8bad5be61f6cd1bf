// Statements outside of functions: the text becomes a row of tokens, which the walk of its language reads.
#include "analysis/heading.h"

#include "analysis/heading_walks.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

// A word list without anything else: it can be those of old style parameters only.
bool IsPlainList(Text list) {
    const Text inner = Inside(list);
    return inner.find_first_not_of(" \t,_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789") == Text::npos &&
           inner.find_first_not_of(' ') != Text::npos;
}

} // namespace

Text OwnName(const Globals *G) {
    Text name = G->classname;
    name = name.substr(0, name.find('<'));
    return name.substr(name.find_last_of(".:") + 1);
}

Heading ReadHeading(Text text, bool in_constants, Globals *G) {
    if (!G->is_java && !G->is_cs) {
        const size_t semicolon = text.rfind(';'); // of old style parameters
        if (semicolon != Text::npos && text.find_first_not_of(' ', semicolon + 1) != Text::npos) {
            text.remove_prefix(semicolon + 1);
        }
    }
    const Tokens &t = Tokenize(text, G);
    return G->is_java || G->is_cs ? ReadJavaCs(t, in_constants, G) : ReadCpp(t, G);
}

Text ReadFileNamespace(Text text, Globals *G) {
    if (!G->is_cs || !(G->reading & kNamespaces) || text.find("namespace") == Text::npos) {
        return {};
    }
    const Tokens &t = Tokenize(text, G);
    const int i = BehindModifiers(t, 0, G);
    return t.IsWord(i, "namespace") && t.KindAt(i + 1) == 'w' ? t.Between(i + 1, t.count - 1) : Text{};
}

bool IsOldStyleHead(Text text, Globals *G) {
    const size_t close = text.rfind(')');
    if (!G->is_c || close == Text::npos || text.find_first_not_of(' ', close + 1) == Text::npos || text.size() > 2048) {
        return false;
    }
    const Tokens &t = Tokenize(text, G);
    End end;
    const Candidate found = FindCppFunction(t, 0, &end, G);
    return end == End::kNone && found.list >= 0 && found.list + 1 < t.count && t.KindAt(found.list + 1) == 'w' &&
           IsPlainList(found.params);
}
