// Writing a file beside its place.
#include "run/replacement.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "run/text.h"

namespace {

// A new file beside target, for writing; below 0 when none could be made. Another process, or an old one that was killed, may have
// the first name, and in a container process ids come again soon: so some names are tried.
int OpenBeside(Replacement *file, mode_t mode) {
    FormatText(file->beside, "%s.tmp.0", file->target);
    for (int attempt = 1;; ++attempt) {
        const int descriptor = open(file->beside, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor >= 0 || errno != EEXIST || attempt > 100) {
            return descriptor;
        }
        FormatText(file->beside, "%s.tmp.%d.%d", file->target, static_cast<int>(getpid()), attempt);
    }
}

// Gives the new file the owner and the mode of the one it replaces. Without the owner, no set-id bits.
bool TakeOverMode(int descriptor, const struct stat &old) {
    const bool owned = fchown(descriptor, old.st_uid, old.st_gid) == 0;
    return fchmod(descriptor, old.st_mode & (owned ? 07777U : 0777U)) == 0;
}

// A device, and a file that its owner has made read-only, stay as they are.
bool IsReplaceable(const Replacement &file, const struct stat &old) {
    if (access(file.target, W_OK) != 0) {
        return false;
    }
    errno = EINVAL;
    return S_ISREG(old.st_mode);
}

} // namespace

int LocateTarget(const char *path, std::span<char> target, struct stat *old) {
    if (char *resolved = realpath(path, nullptr)) {
        CopyText(target, resolved);
        free(resolved);
        return stat(target.data(), old) == 0 ? 1 : -1;
    }
    const int error = errno;
    const bool missing = error == ENOENT && lstat(path, old) != 0 && strlen(path) < target.size();
    CopyText(target, path);
    errno = error;
    return missing ? 0 : -1;
}

int BeginReplacement(const char *path, Replacement *out) {
    struct stat old;
    out->stream = nullptr;
    out->kept = 0;
    const int found = LocateTarget(path, out->target, &old);
    const bool exists = found > 0;
    if (found < 0 || (exists && !IsReplaceable(*out, old))) {
        return 0;
    }
    // Until it has the mode of the old file, nobody else may open the new one.
    const int descriptor = OpenBeside(out, exists ? 0600 : 0666);
    if (descriptor < 0) {
        return 0;
    }
    if (!exists || TakeOverMode(descriptor, old)) {
        out->stream = fdopen(descriptor, "wb");
    }
    if (!out->stream) {
        const int error = errno;
        close(descriptor);
        remove(out->beside);
        errno = error;
    }
    return out->stream != nullptr;
}

int CommitReplacement(Replacement *file, int keep) {
    FILE *stream = file->stream;
    file->stream = nullptr;
    bool good = ferror(stream) == 0 && fflush(stream) == 0 && fsync(fileno(stream)) == 0;
    int error = errno;
    if (fclose(stream) != 0 && good) {
        good = false;
        error = errno;
    }
    if (good && rename(file->beside, file->target) == 0) {
        return 1;
    }
    if (good) {
        error = errno;
    }
    file->kept = good && keep;
    if (!file->kept) {
        remove(file->beside);
    }
    errno = error;
    return 0;
}

void AbandonReplacement(Replacement *file) {
    if (file->stream) {
        const int error = errno;
        fclose(file->stream);
        file->stream = nullptr;
        remove(file->beside);
        errno = error;
    }
}
