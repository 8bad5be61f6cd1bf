// A text, open as a source is.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

#include "files/source_reader.h"

struct TextSource {
    std::unique_ptr<SourceReader> reader = std::make_unique<SourceReader>();

    explicit TextSource(std::string_view text, MaskUse use = MaskUse::kCode) {
        const int fd = memfd_create("source", 0);
        if (fd < 0 || write(fd, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
            abort();
        }
        if (!OpenSource(reader.get(), ("/proc/self/fd/" + std::to_string(fd)).c_str(), use, 0)) {
            abort();
        }
        close(fd);
    }
    ~TextSource() { CloseSource(reader.get()); }
    TextSource(const TextSource &) = delete;
    TextSource &operator=(const TextSource &) = delete;
};
