// The modern reading: which of its rules are on, and what it keeps of the scopes and of the statement in hand.
#pragma once

#include <string_view>

#include "run/text.h"

// One bit per rule, in the order of the table in analysis/reading.h.
enum ReadingBit : unsigned {
    kBraces = 1U << 0,
    kLiterals = 1U << 1,
    kBases = 1U << 2,
    kInitialisers = 1U << 3,
    kTuples = 1U << 4,
    kAnnotations = 1U << 5,
    kMacros = 1U << 6,
    kConditionals = 1U << 7,
    kTemplates = 1U << 8,
    kNamespaces = 1U << 9,
    kRecords = 1U << 10,
    kConditions = 1U << 11,
};
inline constexpr unsigned kAllRules = (1U << 12) - 1;

struct ReadingRun {
    unsigned reading;      // the rules that are on: 0 for the default reading
    unsigned switch_rules; // the same, as -xMODERN chose them
};

inline constexpr int kBraceLimit = 256;  // levels that the brace stack holds; deeper ones only count
inline constexpr int kBranchLimit = 64;  // nested #if that are followed; deeper ones aren't
inline constexpr int kHeadLimit = 16384; // characters of a statement outside of functions; what is behind them isn't read

enum ScopeKind : unsigned char {
    kBlockScope,     // of statements, or of what is no scope of its own
    kValueScope,     // an initialiser, or a lambda inside a statement: the statement goes on behind it
    kFunctionScope,  //
    kExpressionBody, // int F() => x; has no brace and ends at its ";"
    kClassScope,     //
    kOpenScope,      // extern "C" {: what is inside belongs to the scope around it
    kUnionScope,     // the same, and what stands behind it up to the ";" is no further member: union { int a; char b; } u;
    kNamespaceScope, //
};

struct BraceLevel {
    ScopeKind kind;
    bool constants;  // inside the constants of an enum of Java
    int local_paren; // around it
};

// A #if that is followed: what was open at it, to begin its other branches with the same.
struct OpenBranch {
    int virtual_depth; // brace_depth less brace_skew at the #if
    int outer_skew;    // brace_skew there
    int local_paren;
    int statement;   // number of the statement in hand
    int head_length; // its length
};

// What a token is: 'w' a word or number, '"' a literal, '(' '[' '{' what stands inside them, 'S' "::", 'A' "=>", 'R' "->", 'E' an
// operator with "=" in it that assigns nothing; any other character is itself.
struct Token {
    char kind;
    std::string_view text;
};

inline constexpr int kMostTokens = 1024; // of a statement; what is behind them isn't read

struct Tokens {
    Token row[kMostTokens];
    int count;
    char KindAt(int i) const { return i >= 0 && i < count ? row[i].kind : '\0'; }
    std::string_view At(int i) const { return i >= 0 && i < count ? row[i].text : std::string_view{}; }
    bool IsWord(int i, std::string_view word) const { return KindAt(i) == 'w' && row[i].text == word; }
    // The text from one token up to another, both included.
    std::string_view Between(int first, int last) const {
        const char *begin = row[first].text.data();
        return {begin, static_cast<size_t>(row[last].text.data() + row[last].text.size() - begin)};
    }
};

// Of which only what lies below the depths means anything.
struct ReadingStacks {
    BraceLevel brace_levels[kBraceLimit];
    OpenBranch branches[kBranchLimit];
    char head_text[kHeadLimit + 8];  // the statement in hand, without comments and line ends
    char other_text[kHeadLimit + 8]; // what an earlier branch of the #if in hand made of it
    Tokens tokens;                   // of the text that is judged
};

// Cleared behind every file.
struct ReadingState {
    int brace_depth;        // open braces, those beyond the stack's size included
    int brace_skew;         // braces that an earlier branch of a #if opened and this one hasn't; below 0: that it has closed
    int stray_braces;       // "}" without a partner
    int branch_depth;       // open #if
    int head_length;        // characters in head_text
    int other_length;       // characters in other_text
    int head_statement;     // number of the statement in hand
    int file_namespace;     // namespace N; is open up to the end of the file
    int literal_kind;       // a LiteralKind while one is open that ends in a way of its own
    int literal_quotes;     // of """ that close it
    int hole_depth;         // braces open in the hole of an interpolated literal; 0 outside
    int hole_dollars;       // "{" that open a hole; 0 for a literal without holes
    char raw_delimiter[18]; // )name" of R"name(
    char hole_quote;        // of the literal inside a hole, 0 outside
};
