// The lists of what the source holds, each with its index by name. They last for the whole run.
#pragma once

#include <cstdint>

#include "run/llist.h"
#include "run/name_index.h"

struct EntityLists {
    Llist function_list;  // FunctionData, in order of closing until a report sorts it
    Llist class_list;     // ClassData: classes and structs
    Llist interface_list; // ClassData: interfaces
    Llist namespace_list; // ClassData: namespaces and packages
    NameIndex class_index_by_name, interface_index_by_name, namespace_index_by_name;
    // Of macro_list up to macro_indexed, null for none of it; the rest is entered when a word is looked for.
    mutable NameIndex macro_index_by_name;
    mutable const LlistNode *macro_indexed;
    mutable uint64_t macro_starts[64]; // a bit for the first two bytes of each macro that was entered, see StartBit
    mutable int macros_lost;           // memory was out for one of them: told at the end of the source
};
