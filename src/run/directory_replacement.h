// A directory of generated files made beside its place and exchanged with the one that stands there: whatever fails on the way, the
// old files or the new ones are there whole.
#pragma once

#include <climits>

struct DirectoryReplacement {
    char target[PATH_MAX];      // its place: where the directory is, if the path is a link
    char beside[PATH_MAX + 32]; // the other one of the two
    int has_target, has_beside; // which of them there are; both 0 unless begun
};

// Makes an empty directory beside path, with the mode and the owner of the one that it will replace, or else 0700. Returns 1; 0
// with errno when it can't be done: also for a file or a link that leads nowhere in its place, or a directory that may not be
// written.
int BeginDirectory(const char *path, DirectoryReplacement *out);
// Exchanges the two; a second call takes the first one back. Returns 1, or 0 with errno and nothing changed.
int ExchangeDirectory(DirectoryReplacement *directory);
// Removes the one beside, and of what is in it only files whose name ends in suffix; whatever else a user has put there moves into
// the one in place. Returns 1, also when there is none; 0 with errno when something had to stay.
int RemoveBeside(DirectoryReplacement *directory, const char *suffix);
