// How much a kind of notice weighs, for formats that ask, and for lists that are cut.
//
// tly itself doesn't weigh. It reads line by line without compiling, so that nothing it finds is surely an error: the gravest is
// what is most likely a fault. What the user wrote a rule for is taken for one.
#pragma once

#include <cstdint>
#include <vector>

#include "model.h"

enum class Severity : uint8_t {
    kFault,  // may well do something else than was meant
    kDesign, // makes the code hard to understand, to test or to change
    kStyle,  // how it is written
};

Severity SeverityOf(int number);

// Indices of m.notices, worst kinds first: by severity, then the rarer kind, so that a list that is cut shows as many kinds as it
// can. Within a kind in the order of the model.
std::vector<uint32_t> WorstFirst(const Model &m);
