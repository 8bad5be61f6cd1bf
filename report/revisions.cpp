// The files come through an index of our own: git checkout-index writes them as a checkout would, but needs no work tree, and knows
// of no attributes that leave files out as an archive does. Only sources are written, so that no symbolic link leads out of the
// tree.
#include "revisions.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "model.h"
#include "process.h"

namespace {

constexpr const char *kDate = "--date=format:%a %b %e %H:%M:%S %Y";
constexpr const char *kCommit = "--format=%H%x00%h%x00%cd%x00%cI%x00%s";
constexpr size_t kFields = 5; // of a commit, by these

// Settings of the user's that would run a program, or write to the repository.
const std::vector<std::string> kQuiet = {"-c", "core.hooksPath=/dev/null", "-c", "core.fsmonitor=false",
                                         "-c", "core.splitIndex=false",    "-c", "log.showSignature=false"};

bool Git(const Repository &r, const std::vector<std::string> &arguments, std::string &output,
         const std::string &input = "/dev/null") {
    std::vector<std::string> all = {"git", "--git-dir=" + r.directory};
    all.insert(all.end(), kQuiet.begin(), kQuiet.end());
    all.insert(all.end(), arguments.begin(), arguments.end());
    output.clear();
    return Capture(all, output, input);
}

// What git rev-parse tells of the current directory, without the line end.
bool RevParse(const char *what, std::string &told) {
    told.clear();
    if (!Capture({"git", "rev-parse", what}, told) || told.empty()) {
        return false;
    }
    told.pop_back();
    return true;
}

// The texts that end in NUL.
std::vector<std::string> Split(std::string_view list) {
    std::vector<std::string> texts;
    while (!list.empty()) {
        const size_t length = std::min(list.find('\0'), list.size());
        texts.emplace_back(list.substr(0, length));
        list.remove_prefix(std::min(length + 1, list.size()));
    }
    return texts;
}

bool IsBelow(std::string_view path, std::string_view directory) {
    return directory.empty() || path == directory || (path.starts_with(directory) && path[directory.size()] == '/');
}

// path from the top; names alone decide, as what stands there may differ from commit to commit.
bool Resolve(const std::string &path, const std::string &top, const std::string &prefix, std::string &resolved) {
    std::error_code ignored;
    if (path.starts_with('/')) {
        const std::string full = std::filesystem::weakly_canonical(path, ignored).string();
        if (top.empty() || !IsBelow(full, top)) {
            return false;
        }
        resolved = full.substr(std::min(top.size() + 1, full.size()));
    } else {
        resolved = std::filesystem::path(prefix + path).lexically_normal().string();
    }
    while (resolved.ends_with('/')) {
        resolved.pop_back();
    }
    resolved = resolved == "." ? "" : resolved;
    return resolved != ".." && !resolved.starts_with("../");
}

Commit CommitOf(const std::string *fields) {
    return {fields[1], fields[0], fields[2], fields[3], fields[4]};
}

bool Log(const Repository &r, std::vector<std::string> arguments, std::vector<Commit> &commits) {
    std::string output;
    arguments.insert(arguments.begin(), {"log", "-z", "--encoding=UTF-8", kDate, kCommit});
    if (!Git(r, arguments, output)) {
        return false;
    }
    const std::vector<std::string> fields = Split(output);
    for (size_t at = 0; at + kFields <= fields.size(); at += kFields) {
        commits.push_back(CommitOf(&fields[at]));
    }
    return true;
}

// Below the place there is no repository: not one that a hook names in the environment, nor one that the place lies in.
void ForgetRepository(const Tree &tree) {
    unsetenv("GIT_DIR");
    unsetenv("GIT_WORK_TREE");
    setenv("GIT_CEILING_DIRECTORIES", tree.place.substr(0, tree.place.size() - 1).c_str(), 1);
    setenv("GIT_INDEX_FILE", (tree.place + "index").c_str(), 1);
}

// What the index has: "100644 ID 0\tPATH" each.
void TakeEntry(const Repository &r, const std::string &entry, Tree &next) {
    const size_t tab = entry.find('\t');
    const std::string path = tab == std::string::npos ? "" : entry.substr(tab + 1);
    const std::string id = entry.substr(0, tab);
    const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
    if (name == ".gitattributes") {
        next.rules += entry + '\n';
    }
    if (std::ranges::none_of(r.within, [&path](const std::string &within) { return IsBelow(path, within); })) {
        return;
    }
    const bool is_source = LanguageOf(path) != Language::kOther;
    if (entry.starts_with("160000 ")) {
        next.submodules.push_back(path);
    } else if (entry.starts_with("120000 ")) {
        next.links += is_source;
    } else if (is_source) {
        next.files[path] = id.substr(id.find(' ') + 1);
    }
}

// Takes a file away, and the directories that are empty then.
void Remove(const std::string &root, std::string path) {
    unlink((root + path).c_str());
    for (size_t end = path.rfind('/'); end != std::string::npos; end = path.rfind('/')) {
        path.resize(end);
        if (rmdir((root + path).c_str()) != 0) {
            return;
        }
    }
}

// Writes what next has and tree hasn't, and removes the rest.
bool Renew(const Repository &r, const Tree &tree, const Tree &next) {
    const std::string root = RootOf(tree);
    for (const auto &[path, id] : tree.files) {
        const auto kept = next.files.find(path);
        if (kept == next.files.end() || kept->second != id || tree.rules != next.rules) {
            Remove(root, path);
        }
    }
    const std::string list = tree.place + "paths";
    std::FILE *file = fopen(list.c_str(), "wbe");
    bool written = file != nullptr;
    for (const auto &[path, id] : next.files) {
        const auto there = tree.files.find(path);
        if (there == tree.files.end() || there->second != id || tree.rules != next.rules) {
            written = written && fwrite(path.c_str(), 1, path.size() + 1, file) == path.size() + 1;
        }
    }
    std::string output;
    return file && fclose(file) == 0 && written && (mkdir(root.c_str(), 0700) == 0 || access(root.c_str(), W_OK) == 0) &&
           Git(r, {"-C", root, "--work-tree=" + root, "checkout-index", "--force", "-z", "--stdin"}, output, list);
}

} // namespace

std::string RootOf(const Tree &tree) {
    return tree.place + "tree/";
}

bool OpenRepository(const std::vector<std::string> &paths, Repository &repository, std::string &error) {
    std::string top;
    std::string prefix;
    if (!RevParse("--absolute-git-dir", repository.directory)) {
        error = "the current directory is in no repository of git.";
        return false;
    }
    RevParse("--show-toplevel", top);
    RevParse("--show-prefix", prefix);
    for (const std::string &path : paths) {
        if (!Resolve(path, top, prefix, repository.within.emplace_back())) {
            error = path + ": this isn't in the repository of the current directory.";
            return false;
        }
    }
    return true;
}

bool FindCommit(const Repository &repository, const std::string &name, Commit &commit, std::string &error) {
    std::string id;
    std::vector<Commit> found;
    if (!Git(repository, {"rev-parse", "--verify", "--quiet", "--end-of-options", name + "^{commit}"}, id) || id.empty()) {
        error = name + ": git knows no commit of this name here.";
        return false;
    }
    id.pop_back();
    if (!Log(repository, {"--max-count=1", id}, found) || found.size() != 1) {
        error = name + ": git can't read this commit.";
        return false;
    }
    commit = found.front();
    commit.name = name;
    return true;
}

bool LastCommits(const Repository &repository, size_t count, size_t every, std::vector<Commit> &commits, std::string &error) {
    std::vector<Commit> all;
    const size_t most = std::min<size_t>((count - 1) * every + 1, INT_MAX);
    if (!Log(repository, {"--first-parent", "--max-count=" + std::to_string(most), "HEAD"}, all) || all.empty()) {
        error = "there is no commit yet.";
        return false;
    }
    for (size_t i = 0; i < all.size(); i += every) {
        commits.push_back(all[i]);
    }
    std::ranges::reverse(commits);
    return true;
}

bool LastTags(const Repository &repository, size_t count, std::vector<Commit> &commits, std::string &error) {
    std::string list;
    Git(repository, {"for-each-ref", "--sort=version:refname", "--sort=creatordate", "--format=%(refname:short)", "refs/tags"},
        list);
    std::ranges::replace(list, '\n', '\0');
    std::vector<std::string> names = Split(list);
    for (; !names.empty() && commits.size() < count; names.pop_back()) {
        Commit commit;
        if (FindCommit(repository, "refs/tags/" + names.back(), commit, error)) {
            commit.name = names.back();
            commits.push_back(commit);
        }
    }
    std::ranges::reverse(commits);
    error = "there is no tag of a commit.";
    return !commits.empty();
}

bool IsShallow(const Repository &repository) {
    std::string told;
    return Git(repository, {"rev-parse", "--is-shallow-repository"}, told) && told == "true\n";
}

bool CheckOut(const Repository &repository, const Commit &commit, Tree &tree, std::string &error) {
    ForgetRepository(tree);
    std::string list;
    Tree next{tree.place};
    bool done = Git(repository, {"read-tree", "--no-sparse-checkout", commit.id}, list) &&
                Git(repository, {"ls-files", "-z", "--stage"}, list);
    for (const std::string &entry : Split(done ? list : "")) {
        TakeEntry(repository, entry, next);
    }
    done = done && Renew(repository, tree, next);
    if (!done) {
        error = commit.name + ": git can't write its files to " + tree.place + ". Is there room?";
    }
    tree = std::move(next);
    return done;
}
