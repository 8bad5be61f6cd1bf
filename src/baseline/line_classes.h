// The lines of a newer file by what they are compared with: type and code. Lines of one class are equal; a line whose code is no
// number equals nothing, itself included, and is in no class.
#pragma once

#include <cstdint>
#include <span>

#include "baseline/array.h"
#include "baseline/line_records.h"

using DiffLines = std::span<const DiffData>;

inline bool SameLine(const DiffData &a, const DiffData &b) {
    return a.type == b.type && a.code == b.code;
}

struct LineClass {
    int32_t first, count; // in positions
};

struct LineClasses {
    DiffLines lines;          // the file; not owned
    Array<int32_t> positions; // in lines, class by class, ascending inside a class
    Array<LineClass> classes;
    int32_t count; // of classes
};

// Puts the lines into classes and adds the memory that this takes to bytes. Returns false when memory is out.
bool ClassifyLines(DiffLines lines, LineClasses *out, double *bytes);
// The class of the lines that equal a line, or -1.
int32_t FindLineClass(const LineClasses &classes, const DiffData &line);
