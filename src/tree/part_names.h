// Which class is the first whose name contains a text? Asked for all texts at once, so that the class list is read once.
//
// The texts make a tree of their characters with a link from every state to the longest text end that is also the begin of another
// (Aho and Corasick). A name that runs through it marks all states that it reaches: the first one to mark a state is the answer.
#pragma once

#include <vector>

#include "run/llist.h"

struct ClassData;

struct PartNames {
    struct State {
        const ClassData *first; // the first class whose name contains the text up to here
        int child, sibling;     // 0 for none
        int fail;               // the state of the longest end of this text
        char c;
    };
    std::vector<State> states{State{}};
    int begins[256] = {}; // the children of state 0
};

// Enters a text that isn't empty; returns its number. All texts come before FindParts.
int AddPart(PartNames &parts, const char *text);
// Runs the names of ClassData records through all texts.
void FindParts(PartNames &parts, const Llist &classes);
// The first class whose name contains the text, or null. No text has the number 0.
inline const ClassData *ClassWithPart(const PartNames &parts, int text) {
    return text ? parts.states[static_cast<size_t>(text)].first : nullptr;
}
