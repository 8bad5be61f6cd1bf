// What a notice is recognised by when its line has moved.
//
// A fingerprint is the 64-bit hash of the file's path, the notice's number, the text of its source line without white space, and
// how many notices of this number on an equal line stand above it in the file. Where the source can't be read the line number
// stands in for the text, and the file's Source says so.
#pragma once

#include "model.h"

// Gives every notice its fingerprint. Reads each source that has notices once, line by line, by the path in FileRow.opened. m is as
// FinishModel left it. Counts the sources that couldn't be read in m.unread_sources.
void TakeFingerprints(Model &m);
