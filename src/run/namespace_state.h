// Namespaces and packages: the open scope and those around it. Cleared behind every file but for the stack.
#pragma once

#include "run/scope_state.h"
#include "run/text.h"

// One record of the namespace stack.
struct SavedNamespace {
    LineText namespace_name;
    int namespace_scope;
};

struct NamespaceState {
    int namespace_flag;    // a namespace or package is open
    int namespacebeg_flag; // its "{" has not been passed
    int namespace_scope;   // braces open in it
    int namespace_index;   // nesting depth, 0 at the first level
};

struct NamespaceRun {
    LineText namespace_name; // full name of the current scope; means something while namespace_flag is set
    SavedNamespace namespace_stack[kNestingLimit];
};
