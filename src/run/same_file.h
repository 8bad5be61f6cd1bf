// Whether two names lead to one file, whatever they are called: by device and inode.
#pragma once

struct stat;

bool IsSameFile(const struct stat &a, const struct stat &b);
// False too when one of them isn't there.
bool IsSameFile(const char *a, const char *b);
