// Both sides are measured by "run", one after the other.
#include "since.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "process.h"
#include "read_project.h"
#include "revisions.h"
#include "run.h"
#include "scratch.h"
#include "tell.h"
#include "text_lines.h"

namespace {

struct Sides {
    const Options &options;
    std::string place;               // a directory of our own, with "/"
    std::string top;                 // of the work tree, with "/"
    std::vector<std::string> within; // options.paths below the top
};

bool Git(const std::string &directory, std::vector<std::string> arguments, std::string &output) {
    arguments.insert(arguments.begin(), {"git", "-C", directory});
    output.clear();
    return Capture(arguments, output);
}

bool FindTop(Sides &s) {
    if (!Git(".", {"rev-parse", "--show-toplevel"}, s.top) || s.top.size() < 2) {
        return Tell("--since: the current directory is in no work tree of git.");
    }
    s.top.back() = '/'; // its line end
    return true;
}

// Paths are resolved, as git tells the top.
bool FindPaths(Sides &s) {
    for (const std::string &path : s.options.paths) {
        char name[PATH_MAX];
        if (!realpath(path.c_str(), name)) {
            return Tell(path + ": " + strerror(errno) + ".");
        }
        const std::string full = std::string(name) + "/";
        if (!full.starts_with(s.top)) {
            return Tell(path + ": this isn't in the work tree of the current directory, " + s.top + ".");
        }
        s.within.push_back(full.substr(s.top.size()));
        if (!s.within.back().empty()) {
            s.within.back().pop_back();
        }
    }
    return true;
}

bool Measure(const Sides &s, const std::string &root, const std::vector<std::string> &within, const char *name, Model &m) {
    Options options = s.options;
    options.output = s.place + name;
    options.paths.clear();
    for (const std::string &path : within) {
        options.paths.push_back(root + path);
    }
    std::string error;
    return RunTly(options) == kFine && (ReadProject({options.output}, root, m, error) || Tell(error));
}

bool MeasureBefore(const Sides &s, Known &before) {
    Repository repository;
    Commit commit;
    Tree tree{s.place};
    std::string error;
    if (!OpenRepository({"."}, repository, error) || !FindCommit(repository, s.options.since, commit, error)) {
        return Tell("--since " + error);
    }
    repository.within = s.within;
    if (!CheckOut(repository, commit, tree, error)) {
        return Tell("--since " + error);
    }
    Model m;
    if (!tree.files.empty() && !Measure(s, RootOf(tree), {""}, "before.xml", m)) {
        return false;
    }
    before = KnownOf(m);
    return true;
}

// The paths of the submodules, with "/".
std::vector<std::string> Submodules(const Sides &s) {
    constexpr std::string_view kMode = "160000 ";
    std::vector<std::string> found;
    std::string list;
    Git(s.top, {"ls-files", "-z", "--stage"}, list);
    for (std::string_view rest = list; !rest.empty();) {
        const std::string_view entry = rest.substr(0, rest.find('\0'));
        if (entry.starts_with(kMode)) {
            found.push_back(std::string(entry.substr(entry.find('\t') + 1)) + "/");
        }
        rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
    }
    return found;
}

// The commit names the commit of a submodule, but hasn't its files: all that is there now would look new.
void LeaveOutSubmodules(const std::vector<std::string> &submodules, const Model &now, Known &before) {
    size_t files = 0;
    for (const FileRow &file : now.files) {
        const std::string_view path = now.texts[file.path];
        if (std::ranges::none_of(submodules, [&](const std::string &submodule) { return path.starts_with(submodule); })) {
            continue;
        }
        ++files;
        for (uint32_t i = file.first_notice; i < file.first_notice + file.notice_count; ++i) {
            before.fingerprints.push_back(now.notices[i].fingerprint);
        }
    }
    if (files > 0) {
        std::ranges::sort(before.fingerprints);
        Tell("submodules aren't compared (" + Counted(files, "source") + "): run it in the submodule.");
    }
}

} // namespace

int CompareSince(const Options &options, const std::function<int(const Model &now, const Known &before)> &report) {
    return InScratch([&](const std::string &place) {
        Sides s{options, place, "", {}};
        Model now;
        Known before;
        if (!FindTop(s) || !FindPaths(s) || !Measure(s, s.top, s.within, "now.xml", now)) {
            return kBad;
        }
        const std::vector<std::string> submodules = Submodules(s);
        if (!MeasureBefore(s, before)) {
            return kBad;
        }
        LeaveOutSubmodules(submodules, now, before);
        return report(now, before);
    });
}
