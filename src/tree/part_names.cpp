// Many texts sought in many names at once.
#include "tree/part_names.h"

#include "run/records.h"

namespace {

PartNames::State &At(PartNames &parts, int state) {
    return parts.states[static_cast<size_t>(state)];
}

int Child(PartNames &parts, int state, char c) {
    if (!state) {
        return parts.begins[static_cast<unsigned char>(c)];
    }
    int child = At(parts, state).child;
    while (child && At(parts, child).c != c) {
        child = At(parts, child).sibling;
    }
    return child;
}

int AddChild(PartNames &parts, int state, char c) {
    const int child = static_cast<int>(parts.states.size());
    parts.states.push_back({nullptr, 0, At(parts, state).child, 0, c});
    At(parts, state).child = child;
    if (!state) {
        parts.begins[static_cast<unsigned char>(c)] = child;
    }
    return child;
}

// The state behind one more character: the longest end of what was read that begins a text.
int Step(PartNames &parts, int state, char c) {
    int next = Child(parts, state, c);
    while (!next && state) {
        state = At(parts, state).fail;
        next = Child(parts, state, c);
    }
    return next;
}

void LinkStates(PartNames &parts) {
    std::vector<int> states{0};
    for (size_t i = 0; i < states.size(); ++i) {
        const int state = states[i];
        for (int child = At(parts, state).child; child; child = At(parts, child).sibling) {
            At(parts, child).fail = state ? Step(parts, At(parts, state).fail, At(parts, child).c) : 0;
            states.push_back(child);
        }
    }
}

} // namespace

int AddPart(PartNames &parts, const char *text) {
    int state = 0;
    for (; *text; ++text) {
        const int child = Child(parts, state, *text);
        state = child ? child : AddChild(parts, state, *text);
    }
    return state;
}

void FindParts(PartNames &parts, const Llist &classes) {
    LinkStates(parts);
    for (const ClassData *record : Records<ClassData>(classes)) {
        int state = 0;
        for (const char *c = record->name ? record->name : ""; *c; ++c) {
            state = Step(parts, state, *c);
            for (int end = state; end && !At(parts, end).first; end = At(parts, end).fail) {
                At(parts, end).first = record;
            }
        }
    }
}
