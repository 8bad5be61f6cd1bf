// What a statement outside of functions is, told from its text: the head of a function, a class or a namespace, a declaration of
// members, or nothing that has a name. Used by the modern reading; nothing here changes the state.
#pragma once

#include <string_view>

struct Globals;

enum class HeadKind {
    kBlock,     // static {, int Size {: statements or accessors
    kValue,     // int a[] = {, enum {
    kOpen,      // extern "C" {
    kUnion,     //
    kFunction,  //
    kClass,     //
    kNamespace, //
};

// The section that a statement puts itself, or what follows it, in.
enum class Access { kKept, kPublic, kProtected, kPrivate };

struct Heading {
    HeadKind kind;
    Access access;
    bool is_struct, is_interface;
    bool has_constants;             // an enum of Java
    bool old_style;                 // int f(a) int a; {
    bool is_operator;               // name holds the word operator
    bool is_friend;                 // no method, though it stands in a class
    std::string_view name;          // as it is written; of an operator from the word operator on
    std::string_view params;        // with its parentheses; empty for a body without a list
    std::string_view bases;         // behind ":" or from extends on; empty for none
    std::string_view template_text; // template <...>, the outermost one
};

// The statement in front of a "{". in_constants: among the constants of an enum of Java.
Heading ReadHeading(std::string_view text, bool in_constants, Globals *G);

struct Member {
    Access access;
    bool is_method;
    bool is_operator; // as in a Heading
    int data;         // members that a statement declares
    std::string_view name, params;
};

// The statement in front of a ";" in a class.
Member ReadMember(std::string_view text, Globals *G);
// namespace a.b; and using x = y;: the name of a namespace up to the end of the file, or nothing.
std::string_view ReadFileNamespace(std::string_view text, Globals *G);
// int f(a) int a; goes on behind its ";": the declarations of old style parameters.
bool IsOldStyleHead(std::string_view text, Globals *G);
// The parameters of a list, with its parentheses.
int CountListed(std::string_view params);
