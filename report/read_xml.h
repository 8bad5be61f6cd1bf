// From tly's XML to records, in one pass over a stream of any size: what is kept is the Model.
//
// The XML is what "tly -X -Ta -Tq" writes, or what "tly-report run" makes of several of them:
//
//   <tly-report> <run>the command</run> <slice> <vxtly>...</vxtly> </slice>... <tree> <vxtly>...</vxtly> </tree> </tly-report>
//
// A slice gives all but its inheritance tree and the notices that rest on it (kTreeNotices): a class and its base may lie in two
// slices. These are taken from the tree, which was made of all files.
#pragma once

#include <cstdio>
#include <string>

#include "model.h"

// Raised over the inheritance tree of all classes: its depth, and the number of children.
inline constexpr int kTreeNotices[] = {40, 41};

// Adds what stands in a stream to m; name is for messages. root (ending in "/") is taken off the paths that begin with it. The
// records are in the order of the input and FinishModel has yet to be called. The stream isn't closed. Returns false with one
// message of whole sentences in error, and m of no further use, if
//   the stream can't be read, is empty, or no whole XML, or none of tly's; or holds a document type, which tly never writes;
//   tly tells an error in it, such as "Open Dir Error";
//   it has no files, or counts notices and lists another number of them, or was made without -Ta -Tq.
bool ReadXml(std::FILE *in, const std::string &name, const std::string &root, Model &m, std::string &error);
