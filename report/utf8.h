// UTF-8 for writers.
#pragma once

#include <cstddef>
#include <string_view>

// How many bytes the character at the start of text has; 0 if no valid one stands there (overlong forms and surrogates are none).
size_t Utf8Length(std::string_view text);
