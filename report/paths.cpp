#include "paths.h"

#include <cstdlib>
#include <unistd.h>

std::string ShownPath(std::string_view path, std::string_view root) {
    std::string shown;
    shown.reserve(path.size());
    if (path.starts_with('/')) {
        shown += '/';
    }
    while (!path.empty()) {
        const size_t length = std::min(path.find('/'), path.size());
        const std::string_view part = path.substr(0, length);
        if (!part.empty() && part != ".") {
            if (!shown.empty() && shown.back() != '/') {
                shown += '/';
            }
            shown += part;
        }
        path.remove_prefix(std::min(length + 1, path.size()));
    }
    if (!root.empty() && shown.size() > root.size() && shown.starts_with(root)) {
        shown.erase(0, root.size());
    }
    return shown;
}

std::string CurrentDirectory() {
    char *directory = getcwd(nullptr, 0);
    std::string shown = directory ? directory : "";
    free(directory);
    if (!shown.empty() && shown.back() != '/') {
        shown += '/';
    }
    return shown;
}
