// A file written beside its place and put there in one step: whatever fails on the way, the old file or the new one stands whole.
#pragma once

#include <climits>
#include <cstdio>
#include <span>

struct stat;

// Finds where the bytes of path really are: behind a link, the file that it leads to. Fills target, and old with what is there.
// Returns 1; 0 when there is nothing yet; -1 with errno for what can't be replaced, such as a link that leads nowhere.
int LocateTarget(const char *path, std::span<char> target, struct stat *old);

struct Replacement {
    FILE *stream;               // what to write to; null unless begun
    char target[PATH_MAX];      // the file that is replaced: where the bytes are, if the path is a link
    char beside[PATH_MAX + 32]; // where they are written first
    int kept;                   // the new text stands whole in beside, and only there
};

// Creates the file beside path, with the mode and the owner of the one that it will replace, if there is one, and under a name that
// no other process has: no file that is there already is touched. Returns 1; 0 with errno when it can't be done: also for a device,
// a read-only file and a link that leads nowhere. target is set in any case.
int BeginReplacement(const char *path, Replacement *out);
// Writes all out, to the disk, and renames. Returns 1; 0 with errno when the old file still stands: the one beside is gone then,
// unless keep is set and it holds all that was to be written: see kept. Another hard link of the old file keeps the old text.
int CommitReplacement(Replacement *file, int keep);
// Removes what has been written so far; errno stays. Does nothing to one that wasn't begun or is in its place.
void AbandonReplacement(Replacement *file);
