// The verbs on fixed texts. See text.h for their rules.
#include "run/text.h"

#include <algorithm>
#include <cstdarg>

void CopyPart(std::span<char> dst, const char *src, size_t count) {
    const size_t length = src ? strnlen(src, std::min(count, dst.size() - 1)) : 0;
    if (length > 0) {
        memmove(dst.data(), src, length);
    }
    dst[length] = '\0';
}

void CopyText(std::span<char> dst, const char *src) {
    CopyPart(dst, src, dst.size());
}

bool AppendText(std::span<char> dst, const char *src) {
    const size_t used = strnlen(dst.data(), dst.size());
    const size_t more = strlen(src);
    if (used + more >= dst.size()) {
        return false;
    }
    memcpy(dst.data() + used, src, more + 1);
    return true;
}

bool AppendChar(std::span<char> dst, char c) {
    const char text[2] = {c, '\0'};
    return AppendText(dst, text);
}

void ClearText(std::span<char> dst) {
    dst[0] = '\0';
}

int FormatText(std::span<char> dst, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const int wanted = vsnprintf(dst.data(), dst.size(), fmt, args);
    va_end(args);
    return std::clamp(wanted, 0, static_cast<int>(dst.size()) - 1);
}

void Rtrim(char *text) {
    size_t length = strlen(text);
    while (length > 0 && IsSpace(text[length - 1])) {
        --length;
    }
    text[length] = '\0';
}

const char *Ltrim(const char *text) {
    while (IsBlankOrTab(*text)) {
        ++text;
    }
    return text;
}

const char *SkipSpace(const char *text) {
    while (IsSpace(*text)) {
        ++text;
    }
    return text;
}

const char *FileName(const char *path) {
    const char *slash = strrchr(path, '/');
    return slash ? slash + 1 : path;
}

void EndWithSlash(std::span<char> path) {
    const size_t length = strlen(path.data());
    if (length > 0 && path[length - 1] != '/') {
        AppendChar(path, '/');
    }
}

char *CopyOnHeap(const char *text) {
    return text ? strdup(text) : nullptr;
}
