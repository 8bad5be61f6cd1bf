// The flags and balances of the code stage: what has been seen of the statement, the head and the block in hand. A flag is 0 or 1
// unless told otherwise. All of it is cleared behind every file; most of it survives from line to line.
#pragma once

#include "run/text.h"

inline constexpr int kNestingLimit = 32; // levels that a nesting stack stores; deeper ones only count

// A class or struct heading inside a function that its line left open: what it is stands on a later one.
struct LocalHeading {
    int line;            // of the keyword; 0 while none is open
    int is_struct;       // the keyword is struct
    int names;           // read so far, qualifiers left out: a second one is that of a variable
    int behind_macro;    // the last one is a macro and no name when another follows
    int in_bases;        // behind its ":"
    int depth;           // of the group that the line ended in: (, [ or <
    char opener, closer; // of that group
};

// The statement in hand: what its ";" clears.
struct StatementState {
    int angle_depth; // "<" minus ">"
    int comma_count; // commas at parenthesis balance

    int assignment_flag; // an "=" was seen
    int typedef_flag;
    int enum_flag; // 2: enum seen, brace to come; 1: inside its braces
    int new_flag;  // its "{" is no scope
    int friend_flag, friend_class;
    int virtual_flag;
    int const_flag;                // const, in Java final
    int event_flag, delegate_flag; // C#
    int static_flag;               // inside a static initialiser
    int at_flag;                   // Java "@" on this line: the next parenthesis is no function
    int using_flag;
    int star_flag;         // a "*" was seen
    int forward_decl_flag; // class or struct declaration that ends in ";"
};

// The preprocessor line in hand: what the end of a line clears that doesn't go on behind a backslash.
struct DirectiveState {
    int preproc_flag;
    int define_flag; // a #define
    int error_flag;  // a #error
};

enum BodyKind { kNoBody, kDo, kElse, kFor, kIf, kWhile, kBodyKinds };
inline constexpr const char *kBodyWords[kBodyKinds] = {" ", "do", "else", "for", "if", "while"};

// The body of a statement, looked out for until it is known whether it stands in braces.
struct BodyWatch {
    int scope_kind;         // a BodyKind
    int scope_line;         // line of the keyword
    int scope_paren;        // local_paren at the keyword
    int scope_pending_line; // line behind which the body is looked for; 0 while its condition is open
};

struct ScopeState : StatementState, DirectiveState, BodyWatch {
    int function_scope; // brace depth inside a function, 0 outside; blocks inside a method too
    int local_paren;    // open parentheses now
    int local_bracket;  // open brackets now

    int if_directive;                  // #if, #ifdef or #ifndef since the last function head
    int macro_flag;                    // this #define has parameters: its lines are a macro region
    int if_flag, for_flag, while_flag; // the condition of that keyword is open
    int catch_flag;                    // a catch ( head is open
    int where_flag;                    // C# generic constraint
    int static_brace;                  // brace level of the static initialiser
    int static_pending;                // its "{" may be on the next line
    int paren_skip;                    // local_paren inside the arguments of a macro in a heading; 0 elsewhere
    int dotnet_attr;                   // inside [ ] at file level of a header, C++ or C# file
    int get_flag, set_flag;            // a C# accessor body
    int break_flag;                    // a break came last
    LocalHeading local_heading;

    int switch_depth;                    // open switches
    int switch_scope;                    // function_scope of the innermost one
    int switch_stack[kNestingLimit + 1]; // scopes of the open switches, from index 1
};
