// Code as a row of tokens, the record Tokens of reading_state.h, and the steps that every walk over such a row takes.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "run/reading_state.h"

struct Globals;

// Makes G->tokens those of the text, which has to outlive them.
const Tokens &Tokenize(std::string_view text, Globals *G);
// The index behind the group that opens at i, or behind the literal that does; the text's length where it doesn't end.
size_t EndOfGroup(std::string_view text, size_t i);
size_t EndOfLiteral(std::string_view text, size_t i);
// A letter, digit, "_" or "$", or a byte of another alphabet.
bool IsNameCharacter(char c);
// The text inside a group; empty for an empty text.
std::string_view Inside(std::string_view group);

template <size_t n> bool IsOneOf(std::string_view word, const std::string_view (&words)[n]) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}
// FOO_1: no lower case letter, and a capital.
bool IsCapitals(std::string_view word);
// A word that may stand for anything in a heading: EXPORT, or one of the macro file. Never without the rule "macros".
bool IsMacroLike(std::string_view word, const Globals *G);

// The index behind the ">" of the "<" at i; i + 1 when it is none of a list.
int BehindAngles(const Tokens &t, int i, const Globals *G);
// The index of the "<" of the ">" at i, or -1.
int OpenOfAngle(const Tokens &t, int i);
// The first token of the qualified name whose last one is at i: A<T>::B::~f, IList<T>.Count, global::a.
int BeginOfName(const Tokens &t, int i, const Globals *G);
