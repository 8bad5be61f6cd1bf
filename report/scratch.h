// Work that needs a place on the disk, and leaves nothing there.
#pragma once

#include <functional>
#include <string>

// Makes a directory in that for temporary files, and has work do what it does in a process of its own, with the directory's path
// (ending in "/"), and its exit status as what work returns. Whatever the end, by an error or by a signal that asks to end, the
// directory is removed and no process is left. Temporary files of others in the process go there too. Returns the exit status, or
// kBad with a message on stderr if the directory can't be made or the work was ended by a signal of its own.
int InScratch(const std::function<int(const std::string &place)> &work);
