// Arrays of a comparison, which may be large: a lack of memory for one of them is no end of the run.
#pragma once

#include <cstdlib>
#include <memory>

struct FreeArray {
    void operator()(void *elements) const { free(elements); }
};
template <class T> using Array = std::unique_ptr<T[], FreeArray>;

// Of a number of elements that aren't set; null when memory is out. Adds its size to bytes.
template <class T> Array<T> ArrayOf(size_t count, double *bytes) {
    *bytes += static_cast<double>(count) * sizeof(T);
    return Array<T>(static_cast<T *>(reallocarray(nullptr, count, sizeof(T))));
}
