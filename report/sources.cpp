#include "sources.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>

#include "model.h"
#include "paths.h"
#include "process.h"

namespace {

struct Passed {
    size_t links = 0;
    size_t gone = 0; // tracked by git, but not there
};

std::string Within(const std::string &directory, std::string_view name) {
    std::string path = directory == "." ? "" : directory;
    path += path.empty() || path.back() == '/' ? "" : "/";
    return path += name;
}

bool IsSource(std::string_view path) {
    return LanguageOf(path) != Language::kOther;
}

// A file below a directory, if it is a source. What is there but no regular file can't be measured.
void TakeFile(const std::string &path, const std::string &root, Sources &found, Passed &passed) {
    struct stat status;
    if (!IsSource(path)) {
        return;
    }
    if (lstat(path.c_str(), &status) != 0) {
        ++passed.gone;
    } else if (S_ISLNK(status.st_mode)) {
        ++passed.links;
    } else if (S_ISREG(status.st_mode)) {
        found.files.push_back({path, ShownPath(path, root), status.st_size});
    }
}

// False if the directory is in no work tree of git.
bool TakeTracked(const std::string &directory, const std::string &root, Sources &found, Passed &passed) {
    std::string list;
    if (!Capture({"git", "-C", directory, "ls-files", "-z", "--cached", "--recurse-submodules"}, list)) {
        return false;
    }
    // A file with a conflict stands there several times; FindSources takes it once.
    for (std::string_view rest = list; !rest.empty();) {
        const size_t length = std::min(rest.find('\0'), rest.size());
        TakeFile(Within(directory, rest.substr(0, length)), root, found, passed);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return true;
}

bool ReadDirectory(const std::string &directory, const std::string &root, Sources &found, Passed &passed,
                   std::vector<std::string> &waiting, std::string &error) {
    DIR *dir = opendir(directory.c_str());
    if (!dir) {
        error = directory + ": " + strerror(errno) + ".";
        return false;
    }
    while (const dirent *entry = readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == ".." || name == ".git") {
            continue;
        }
        const std::string path = Within(directory, name);
        struct stat status;
        if (lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            waiting.push_back(path);
        } else {
            TakeFile(path, root, found, passed);
        }
    }
    closedir(dir);
    return true;
}

bool TakeBelow(const std::string &directory, const std::string &root, Sources &found, Passed &passed, std::string &error) {
    std::vector<std::string> waiting{directory};
    while (!waiting.empty()) {
        const std::string next = std::move(waiting.back());
        waiting.pop_back();
        if (!ReadDirectory(next, root, found, passed, waiting, error)) {
            return false;
        }
    }
    return true;
}

bool TakePath(const std::string &path, const std::string &root, Sources &found, Passed &passed, std::string &error) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        error = path + ": " + strerror(errno) + ".";
        return false;
    }
    if (S_ISDIR(status.st_mode)) {
        return TakeTracked(path, root, found, passed) || TakeBelow(path, root, found, passed, error);
    }
    if (!S_ISREG(status.st_mode) || !IsSource(path)) {
        error = path + ": this is no source of C, C++, C# or Java by its name.";
        return false;
    }
    found.files.push_back({path, ShownPath(path, root), status.st_size});
    return true;
}

void Tell(size_t count, const char *one, const char *more, Sources &found) {
    if (count > 0) {
        found.remarks.push_back(std::to_string(count) + (count == 1 ? one : more));
    }
}

} // namespace

bool FindSources(const std::vector<std::string> &paths, const std::string &root, Sources &found, std::string &error) {
    Passed passed;
    for (const std::string &path : paths) {
        if (!TakePath(path, root, found, passed, error)) {
            return false;
        }
    }
    if (found.files.empty()) {
        error = paths.front() + ": there are no sources of C, C++, C# or Java here, or git tracks none. Name another directory.";
        return false;
    }
    std::ranges::stable_sort(found.files, {}, &SourceFile::shown);
    const auto same = [](const SourceFile &a, const SourceFile &b) { return a.shown == b.shown; };
    found.files.erase(std::unique(found.files.begin(), found.files.end(), same), found.files.end());
    Tell(passed.links, " symbolic link was passed over.", " symbolic links were passed over.", found);
    Tell(passed.gone, " source that git tracks isn't there.", " sources that git tracks aren't there.", found);
    return true;
}
