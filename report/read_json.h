// From a JSON that WriteJson wrote to records, in one pass over a stream of any size.
#pragma once

#include <cstdio>
#include <string>

#include "model.h"

// Adds what stands in a stream to m, fingerprints too; name is for messages. Sums are not read, but found by FinishModel, which has
// yet to be called. Members that aren't known are passed over. The stream isn't closed. Returns false with a message of whole
// sentences in error, and m of no further use, if the stream can't be read or is no whole JSON of tly-report, has a later version,
// has no files, or counts other notices than it lists.
bool ReadJson(std::FILE *in, const std::string &name, Model &m, std::string &error);
