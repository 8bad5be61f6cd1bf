// The text that -E collects. It begins anew at every line that doesn't follow a continuation.
#pragma once

#include "run/text.h"

struct ExtractedText {
    LineText estring;
    int esi; // its length; the text isn't NUL terminated while it grows
};

struct ExtractionState {
    ExtractedText string_text;  // -Es: the literal in hand, from behind its opening quote
    ExtractedText comment_text; // -Ec, -EC: the comments of the line in hand, with their markers
};
