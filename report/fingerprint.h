// What a notice is recognised by when its line has moved.
//
// A fingerprint is the 64-bit hash of the file's path, the notice's number, the text of its source line without white space, and
// how many notices with this number and text stand above it in the file. A notice without a line (Notice.has_line) has an empty
// text. Where the source can't be read, or is no longer as long as it was when tly measured it, the line number stands in for the
// text, and FileRow.by_line says so.
#pragma once

#include "model.h"

// Gives every notice that has none its fingerprint. Reads each source that has notices once, in pieces, by the path in
// FileRow.opened, which starts in root (ending in "/") unless it is absolute. m is as FinishModel left it. Tells sources that
// couldn't be read in m.remarks.
void TakeFingerprints(Model &m, const std::string &root);
