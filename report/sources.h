// Which sources a run measures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct SourceFile {
    std::string path;  // what to open, from the current directory
    std::string shown; // see ShownPath
    int64_t bytes = 0;
};

struct Sources {
    std::vector<SourceFile> files;    // each once, by shown path
    std::vector<std::string> remarks; // what was passed over and why
};

// Finds the sources in a language of tly's (LanguageOf) at the paths. A file is taken as it is. Of a directory, those that git
// tracks and that are there, in submodules too; all below it if it is in no work tree or there is no git. Symbolic links below a
// directory are passed over: what they lead to counts where it lies. root is taken off the shown paths. Returns false with a
// message in error if a path isn't there or can't be read, or there are no sources at all.
bool FindSources(const std::vector<std::string> &paths, const std::string &root, Sources &found, std::string &error);
