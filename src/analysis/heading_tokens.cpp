// Code as a row of tokens in which whatever stands in parentheses, brackets or braces is one, and the steps over names and lists of
// types that every walk over such a row takes.
#include "analysis/heading_tokens.h"

#include <algorithm>

#include "analysis/entities.h"
#include "run/char_tests.h"
#include "run/globals.h"

using Text = std::string_view;

bool IsNameCharacter(char c) {
    return IsLetterOrDigit(c) || c == '_' || c == '$' || c < 0;
}

size_t EndOfLiteral(Text text, size_t i) {
    const char quote = text[i];
    for (++i; i < text.size() && text[i] != quote; ++i) {
        i += text[i] == '\\';
    }
    return std::min(i + 1, text.size());
}

size_t EndOfGroup(Text text, size_t i) {
    const char open = text[i];
    const char close = open == '(' ? ')' : open == '[' ? ']' : '}';
    int depth = 0;
    while (i < text.size()) {
        if (text[i] == '"' || text[i] == '\'') {
            i = EndOfLiteral(text, i);
            continue;
        }
        depth += (text[i] == open) - (text[i] == close);
        ++i;
        if (depth == 0) {
            break;
        }
    }
    return std::min(i, text.size());
}

Text Inside(Text group) {
    return group.size() > 2 ? group.substr(1, group.size() - 2) : Text{};
}

namespace {

Token ReadToken(Text text, size_t i) {
    const char c = text[i];
    const char next = i + 1 < text.size() ? text[i + 1] : '\0';
    const auto token = [&](char kind, size_t end) { return Token{kind, text.substr(i, end - i)}; };
    if (IsNameCharacter(c)) {
        size_t end = i;
        while (end < text.size() && IsNameCharacter(text[end])) {
            ++end;
        }
        return token('w', end);
    }
    if (c == '"' || c == '\'') {
        return token('"', EndOfLiteral(text, i));
    }
    if (c == '(' || c == '[' || c == '{') {
        return token(c, EndOfGroup(text, i));
    }
    if (c == ':' && next == ':') {
        return token('S', i + 2);
    }
    if (c == '-' && next == '>') {
        return token('R', i + 2);
    }
    if (c == '=' && next == '>') {
        return token('A', i + 2);
    }
    if (next == '=' && (c == '=' || c == '!' || c == '<' || c == '>')) {
        return token('E', i + 2);
    }
    return token(c, i + 1);
}

} // namespace

const Tokens &Tokenize(Text text, Globals *G) {
    Tokens &tokens = G->tokens;
    tokens.count = 0;
    for (size_t i = 0; i < text.size() && tokens.count < kMostTokens;) {
        if (text[i] >= 0 && text[i] <= ' ') {
            ++i;
            continue;
        }
        const Token token = ReadToken(text, i);
        tokens.row[tokens.count++] = token;
        i += token.text.size();
    }
    return tokens;
}

bool IsCapitals(Text word) {
    return std::none_of(word.begin(), word.end(), [](char c) { return c >= 'a' && c <= 'z'; }) &&
           std::any_of(word.begin(), word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

namespace {

bool IsListed(Text word, const Globals *G) {
    LineText copy;
    CopyPart(copy, word.data(), word.size());
    return is_macro(copy, G);
}

} // namespace

bool IsMacroLike(Text word, const Globals *G) {
    return (G->reading & kMacros) && (IsCapitals(word) || word.starts_with("__") || IsListed(word, G));
}

int BehindAngles(const Tokens &t, int i, const Globals *G) {
    int depth = 0;
    for (int k = i; k < t.count; ++k) {
        const char kind = t.KindAt(k);
        depth += (kind == '<') - (kind == '>');
        if (kind == '>' && (depth == 0 || !(G->reading & kTemplates))) {
            return k + 1;
        }
    }
    return i + 1;
}

int OpenOfAngle(const Tokens &t, int i) {
    int depth = 0;
    for (; i >= 0; --i) {
        depth += (t.KindAt(i) == '>') - (t.KindAt(i) == '<');
        if (depth == 0) {
            return i;
        }
    }
    return -1;
}

int BeginOfName(const Tokens &t, int i, const Globals *G) {
    const bool dots = G->is_cs || G->is_java;
    if (t.KindAt(i) == '>') {
        i = OpenOfAngle(t, i) - 1;
    }
    if (i > 0 && t.KindAt(i - 1) == '~') {
        --i;
    }
    while (i > 1 && (t.KindAt(i - 1) == 'S' || (dots && t.KindAt(i - 1) == '.'))) {
        int part = i - 2;
        if (t.KindAt(part) == '>') {
            part = OpenOfAngle(t, part) - 1;
        }
        if (t.KindAt(part) != 'w') {
            return i;
        }
        i = part;
    }
    return i;
}
