// The figures of a commit.
#pragma once

#include <string>

#include "model.h"
#include "options.h"
#include "revisions.h"

// Fills m with the figures of a tree, paths relative to its root; without files if it has none. With listed also every notice and
// its fingerprint, else only how many there are of a kind. Returns false with a message in error, or told on stderr if that is
// empty.
bool MeasureTree(const Options &options, const Tree &tree, bool listed, Model &m, std::string &error);
