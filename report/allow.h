// What a gate passes over: the single findings that a user has looked at and accepts.
//
// A file of lines. "#" begins a remark. Else a line is one of
//
//   0123456789abcdef why        the notice with this fingerprint; what stands behind is a remark
//   12 src/a.c                  all notices 12 of this file
//   complexity src/a.c          the complexity of this file's functions
//   lines src/a.c               the lines of this file's functions
//
// A path is written as a report shows it.
#pragma once

#include <string>
#include <unordered_map>

#include "model.h"

struct Allowed {
    struct Entry {
        int line;          // in the file
        bool used = false; // something was passed over for it
    };
    std::unordered_map<std::string, Entry> entries; // by the line, without its remark
};

// Returns false with a message of whole sentences in error if the file can't be read or a line is none of the above.
bool ReadAllowed(const std::string &path, Allowed &allowed, std::string &error);

// Whether a notice is passed over; or "complexity" or "lines" of a function of this file. Marks what it is passed over for.
bool IsAllowed(Allowed &allowed, const Model &m, const Notice &notice);
bool IsAllowed(Allowed &allowed, const Model &m, const char *limit, uint32_t file);
