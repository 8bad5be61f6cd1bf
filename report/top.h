// The functions that stand out.
#pragma once

#include <cstdio>
#include <vector>

#include "model.h"

// What functions are ranked by.
enum class Rank : uint8_t { kComplexity, kLines, kParameters, kNotices };
inline constexpr const char *kRankNames[] = {"complexity", "lines", "parameters", "notices"};

// Indices of m.functions with the `most` highest figures above 0, highest first, equals in the order of the model. figures gets the
// figure of every function: cyclomatic complexity, physical lines, parameters or the notices that lie in it.
std::vector<uint32_t> TopFunctions(const Model &m, Rank rank, size_t most, std::vector<int64_t> &figures);

// A table for people: figure, place of the function's "{", name. Returns false with errno if the stream refused anything.
bool WriteTop(const Model &m, Rank rank, size_t most, std::FILE *out);
