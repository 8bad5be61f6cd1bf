// The project as JSON: docs/json.md tells its shape, ReadJson reads it back.
#pragma once

#include <cstdio>

#include "model.h"

// The version of the shape. A reader refuses a later one.
inline constexpr int kJsonVersion = 1;

// Returns false with errno if the stream refused anything.
bool WriteJson(const Model &m, std::FILE *out);
