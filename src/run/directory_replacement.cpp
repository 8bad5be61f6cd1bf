// Making a directory beside its place.
#include "run/directory_replacement.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "run/replacement.h"
#include "run/text.h"

namespace {

int MakeBeside(DirectoryReplacement *directory) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        FormatText(directory->beside, "%s.tmp.%d.%d", directory->target, static_cast<int>(getpid()), attempt);
        if (mkdir(directory->beside, 0700) == 0) {
            return 1;
        }
        if (errno != EEXIST) {
            return 0;
        }
    }
    return 0;
}

// False with errno for what can't be replaced.
bool FindTarget(const char *path, DirectoryReplacement *directory, struct stat *old) {
    const int found = LocateTarget(path, directory->target, old);
    directory->has_target = found > 0;
    if (found <= 0) {
        return found == 0;
    }
    errno = ENOTDIR;
    return S_ISDIR(old->st_mode) && access(directory->target, W_OK | X_OK) == 0;
}

// For file systems that can't exchange two names in one step.
int ExchangeInSteps(const DirectoryReplacement *directory) {
    char aside[sizeof directory->beside + 8];
    FormatText(aside, "%s.old", directory->beside);
    if (rename(directory->target, aside) != 0) {
        return 0;
    }
    if (rename(directory->beside, directory->target) != 0) {
        const int error = errno;
        rename(aside, directory->target); // NOLINT: there is nothing more to try
        errno = error;
        return 0;
    }
    rename(aside, directory->beside); // NOLINT: what is in it is kept either way
    return 1;
}

bool EndsWith(const char *name, const char *suffix) {
    const size_t length = strlen(name);
    const size_t tail = strlen(suffix);
    return length >= tail && strcmp(name + length - tail, suffix) == 0;
}

// Without overwriting what has the same name there.
int MoveEntry(int from, const char *name, int to) {
    if (to < 0) {
        return 0;
    }
    if (renameat2(from, name, to, name, RENAME_NOREPLACE) == 0) {
        return 1;
    }
    struct stat there;
    const bool unknown = errno == EINVAL || errno == ENOSYS;
    return unknown && fstatat(to, name, &there, AT_SYMLINK_NOFOLLOW) != 0 && renameat(from, name, to, name) == 0;
}

void EmptyOut(DIR *stream, int to, const char *suffix) {
    const int from = dirfd(stream);
    while (const dirent *entry = readdir(stream)) { // NOLINT: one thread
        const char *name = entry->d_name;
        struct stat about;
        if (strcmp(name, ".") == 0 || strcmp(name, "..") == 0 || fstatat(from, name, &about, AT_SYMLINK_NOFOLLOW) != 0) {
            continue;
        }
        if (S_ISREG(about.st_mode) && EndsWith(name, suffix)) {
            unlinkat(from, name, 0);
        } else {
            MoveEntry(from, name, to);
        }
    }
}

} // namespace

int BeginDirectory(const char *path, DirectoryReplacement *out) {
    struct stat old;
    out->has_target = out->has_beside = 0;
    if (!FindTarget(path, out, &old) || !MakeBeside(out)) {
        return 0;
    }
    out->has_beside = 1;
    if (out->has_target) {
        const bool owned = chown(out->beside, old.st_uid, old.st_gid) == 0;
        chmod(out->beside, (old.st_mode & (owned ? 07777U : 0777U)) | 0700U);
    }
    return 1;
}

int ExchangeDirectory(DirectoryReplacement *directory) {
    if (directory->has_target && directory->has_beside) {
        if (renameat2(AT_FDCWD, directory->beside, AT_FDCWD, directory->target, RENAME_EXCHANGE) == 0) {
            return 1;
        }
        return (errno == EINVAL || errno == ENOSYS) && ExchangeInSteps(directory);
    }
    const char *from = directory->has_beside ? directory->beside : directory->target;
    const char *to = directory->has_beside ? directory->target : directory->beside;
    if (rename(from, to) != 0) {
        return 0;
    }
    directory->has_target = !directory->has_target;
    directory->has_beside = !directory->has_beside;
    return 1;
}

int RemoveBeside(DirectoryReplacement *directory, const char *suffix) {
    if (!directory->has_beside) {
        return 1;
    }
    directory->has_beside = 0;
    DIR *stream = opendir(directory->beside);
    if (!stream) {
        return 0;
    }
    const int to = directory->has_target ? open(directory->target, O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
    int gone = 0;
    // a file system may pass over names while others go: look twice
    for (int pass = 0; pass < 2 && !gone; ++pass) {
        rewinddir(stream);
        EmptyOut(stream, to, suffix);
        gone = rmdir(directory->beside) == 0;
    }
    const int error = errno;
    closedir(stream);
    if (to >= 0) {
        close(to);
    }
    errno = error;
    return gone;
}
