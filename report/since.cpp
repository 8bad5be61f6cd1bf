// Both sides are measured by "run", one after the other. The commit's files come through an index of our own: git checkout-index
// writes them as a checkout would, but runs no hooks, and knows of no attributes that leave files out as an archive does.
#include "since.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "process.h"
#include "read_project.h"
#include "run.h"
#include "scratch.h"
#include "sources.h"
#include "text_lines.h"

namespace {

struct Sides {
    const Options &options;
    std::string place;               // a directory of our own, with "/"
    std::string top;                 // of the work tree, with "/"
    std::vector<std::string> within; // options.paths below the top
};

bool Tell(const std::string &what) {
    fprintf(stderr, "tly-report: %s\n", what.c_str());
    return false;
}

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

// Fills tree with the files of the commit.
bool CheckOut(const Sides &s, const std::string &tree) {
    const std::string index = s.place + "index";
    std::string commit;
    std::string output;
    if (!Git(s.top, {"rev-parse", "--verify", "--quiet", "--end-of-options", s.options.since + "^{commit}"}, commit)) {
        return Tell("--since " + s.options.since + ": git knows no commit of this name here.");
    }
    commit.pop_back();
    setenv("GIT_INDEX_FILE", index.c_str(), 1);
    if (mkdir(tree.c_str(), 0700) != 0 || !Git(s.top, {"read-tree", "--no-sparse-checkout", commit}, output) ||
        !Git(s.top, {"checkout-index", "--all", "--prefix=" + tree}, output)) {
        return Tell("--since " + s.options.since + ": git can't write its files to " + tree + ". Is there room?");
    }
    return true;
}

// Below tree there is no repository: not the one that a hook names in the environment, nor one that the place lies in.
void ForgetRepository(const Sides &s) {
    unsetenv("GIT_DIR");
    setenv("GIT_CEILING_DIRECTORIES", s.place.substr(0, s.place.size() - 1).c_str(), 1);
}

bool MeasureBefore(const Sides &s, Known &before) {
    const std::string tree = s.place + "tree/";
    if (!CheckOut(s, tree)) {
        return false;
    }
    ForgetRepository(s);
    std::vector<std::string> there; // a path may be newer than the commit
    for (const std::string &path : s.within) {
        Sources found;
        std::string none;
        if (FindSources({tree + path}, tree, found, none)) {
            there.push_back(path);
        }
    }
    Model m;
    if (!there.empty() && !Measure(s, tree, there, "before.xml", m)) {
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
