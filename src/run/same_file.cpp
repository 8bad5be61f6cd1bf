#include "run/same_file.h"

#include <sys/stat.h>

bool IsSameFile(const struct stat &a, const struct stat &b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool IsSameFile(const char *a, const char *b) {
    struct stat one, other;
    return stat(a, &one) == 0 && stat(b, &other) == 0 && IsSameFile(one, other);
}
