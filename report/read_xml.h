// From tly's XML to records, in one pass over a stream of any size: what is kept is the Model.
//
// The XML is what "tly -X -Ta -Tq" writes, or what "tly-report run" makes of several of them:
//
//   <tly-report> <run>the command</run> <slice> <vxtly>...</vxtly> </slice>... <whole> <vxtly>...</vxtly> </whole> </tly-report>
//
// A slice was made of a part of the files. It tells of files, functions, languages and notices. Classes and namespaces are told by
// the whole, which was made of all files, as their parts may lie in several slices; so are the notices that rest on the tree of
// classes (kTreeNotices). Without slices a <vxtly> stands there alone, and tells all.
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
