// Commits of a repository, and their sources as files. Neither its work tree nor anything else of it is touched, and no hook runs.
//
// For a process of its own (InScratch): CheckOut changes the environment.
#pragma once

#include <map>
#include <string>
#include <vector>

struct Repository {
    std::string directory;           // git's own, absolute
    std::vector<std::string> within; // the paths that count, from the top, without "/" at the ends; "" is all
};

struct Commit {
    std::string name; // as it was asked for, or the short id
    std::string id;
    std::string date; // when it was committed: "Mon Nov 23 09:30:07 2026"
    std::string iso;  // the same: "2026-11-23T09:30:07+01:00"
    std::string subject;
};

// The sources of one commit after the other. What a next one has as well isn't written again.
struct Tree {
    std::string place;                          // a directory of our own, with "/"; the tree is a directory there
    std::map<std::string, std::string> files{}; // the sources that are there: path from the top, and git's id of the content
    std::string rules{};                        // git's attributes, by which content becomes a file
    size_t links = 0;                           // symbolic links with the name of a source, which aren't there
    std::vector<std::string> submodules{};      // paths; their files aren't there
};

// The directory of the tree, with "/".
std::string RootOf(const Tree &tree);

// Finds the repository that the current directory lies in, which may have no work tree. Paths are files or directories of any
// commit, and needn't be there; the current directory is ".". Returns false with a message in error.
bool OpenRepository(const std::vector<std::string> &paths, Repository &repository, std::string &error);

// name is what git takes for a commit: a tag, a branch, an id. Returns false with a message in error.
bool FindCommit(const Repository &repository, const std::string &name, Commit &commit, std::string &error);

// The last commits of HEAD by their first parents, each every-th; or the last tags that name a commit. Oldest first; fewer than
// count where the history begins. Returns false with a message in error if there are none.
bool LastCommits(const Repository &repository, size_t count, size_t every, std::vector<Commit> &commits, std::string &error);
bool LastTags(const Repository &repository, size_t count, std::vector<Commit> &commits, std::string &error);
// Whether the repository was cloned without its whole history.
bool IsShallow(const Repository &repository);

// Makes tree the sources of the commit below the paths of the repository, with the content that a checkout would give them. From
// then on no program finds a repository by the environment. Returns false with a message in error.
bool CheckOut(const Repository &repository, const Commit &commit, Tree &tree, std::string &error);
