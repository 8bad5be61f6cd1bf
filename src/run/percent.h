// A share in percent, in single precision: what is shown has one decimal, and limits are compared with what is shown.
#pragma once

#include <cstdint>

// 0 where there is no whole.
inline float Percent(int64_t part, int64_t whole) {
    return whole > 0 ? static_cast<float>(part) / static_cast<float>(whole) * 100.0F : 0.0F;
}
