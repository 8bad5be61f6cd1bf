// How a command comes to its Model.
#pragma once

#include <string>
#include <vector>

#include "model.h"

// Reads inputs, each an XML of tly's, one of "tly-report run", or a JSON of "tly-report json", told apart by their first byte; "-"
// is standard input. Several are one project, see join.h. root is the directory where tly ran, the current one if it is empty:
// relative paths start there, and paths below it are shown relative to it. Takes the fingerprints of what comes from an XML; a JSON
// has them. Returns false with a message of whole sentences in error.
bool ReadProject(const std::vector<std::string> &inputs, const std::string &root, Model &m, std::string &error);

// The same without the fingerprints of an XML, and so without a look at the sources.
bool ReadFigures(const std::vector<std::string> &inputs, const std::string &root, Model &m, std::string &error);
