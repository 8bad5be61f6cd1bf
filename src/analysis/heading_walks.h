// The walks over the tokens of a statement outside of functions, one for C and C++ and one for Java and C#, in pieces that heads
// and members share.
#pragma once

#include "analysis/heading.h"
#include "analysis/heading_tokens.h"

// What has been found of a function's head.
struct Candidate {
    int name = -1; // last token of the name, or the word operator
    int list = -1; // its parameters, -1 for no function
    bool is_operator = false;
    bool is_friend = false;
    bool awaits_list = false; // the name stands in a parenthesis of its own: int (name)(int a)
    std::string_view name_text, params;
};

// Words of every language that are no name of a function.
inline constexpr std::string_view kStatementWords[] = {"if",    "else", "for",   "while", "do",   "switch", "case", "return",
                                                       "catch", "try",  "throw", "new",   "goto", "public", "const"};

// The last part of the name of the class in hand, without its types.
std::string_view OwnName(const Globals *G);
// From the word operator at i on: operator+(, operator()(, operator bool(, A::operator new[](. The index of its parameters, or
// behind the last token if there are none.
int ReadOperator(const Tokens &t, int i, Candidate *found, const Globals *G);

// ---- C and C++ --------------------------------------------------------------------------------------------------------------

// What ends the head of a function.
enum class End { kNone, kInitialisers, kAssigned };

// Behind "public:", "private Q_SLOTS:" and whatever stands in front of the last one of them, which gives access.
int BehindAccess(const Tokens &t, Access *access);
// Behind [[attributes]], __attribute__((x)), export and template <...> with what it requires.
int BehindPrefix(const Tokens &t, int i, std::string_view *template_text, const Globals *G);
// Whether one of the tokens from first up to end, not included, is a word but for those that may stand behind a parameter list.
bool HoldsPlainWord(const Tokens &t, int first, int end, const Globals *G);
Candidate FindCppFunction(const Tokens &t, int i, End *end, const Globals *G);
Heading ReadCpp(const Tokens &t, const Globals *G);

// ---- Java and C# ------------------------------------------------------------------------------------------------------------

// Behind annotations, attributes in brackets and modifiers.
int BehindModifiers(const Tokens &t, int i, const Globals *G);
// The section of the member whose modifiers end at end. Without one it is private, in an interface public.
Access AccessOf(const Tokens &t, int end, const Globals *G);
// From class, interface, record, struct or enum on. False if it is no such word, or heads no class.
bool ReadJavaCsClass(const Tokens &t, int i, Heading *heading, const Globals *G);
// The head of a method; stop is the token that it ends at, "=" or "=>" among them.
Candidate FindMethod(const Tokens &t, int i, int *stop, const Globals *G);
Heading ReadJavaCs(const Tokens &t, bool in_constants, const Globals *G);
