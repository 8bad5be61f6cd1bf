#include "output.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "options.h"

namespace {

int Tell(const std::string &path) {
    fprintf(stderr, "tly-report: %s can't be written: %s\n", path.c_str(), strerror(errno));
    return kBad;
}

// A device, a pipe or a link is written as it is: nothing may take its place.
bool IsReplaceable(const char *path) {
    struct stat status;
    return lstat(path, &status) != 0 || S_ISREG(status.st_mode);
}

// What an ordinary new file would get, or what the one had that is replaced.
void TakeOverMode(int file, const char *path) {
    struct stat status;
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(file, stat(path, &status) == 0 ? status.st_mode & 0777U : 0666U & ~mask);
}

int WriteBeside(const std::string &path, const std::function<bool(std::FILE *)> &write) {
    std::string beside = path + ".XXXXXX";
    const int file = mkstemp(beside.data());
    std::FILE *out = file < 0 ? nullptr : fdopen(file, "wb");
    if (!out) {
        return Tell(path);
    }
    TakeOverMode(file, path.c_str());
    const bool written = write(out) && !ferror(out);
    if (fclose(out) == 0 && written && rename(beside.c_str(), path.c_str()) == 0) {
        return kFine;
    }
    const int failure = errno;
    unlink(beside.c_str());
    errno = failure;
    return Tell(path);
}

} // namespace

int WriteOutput(const std::string &path, const std::function<bool(std::FILE *out)> &write) {
    if (path.empty()) {
        return write(stdout) && fflush(stdout) == 0 ? kFine : Tell("standard output");
    }
    if (IsReplaceable(path.c_str())) {
        return WriteBeside(path, write);
    }
    std::FILE *out = fopen(path.c_str(), "wb");
    if (!out) {
        return Tell(path);
    }
    const bool written = write(out);
    return fclose(out) == 0 && written ? kFine : Tell(path);
}
