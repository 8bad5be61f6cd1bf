// The walk of a directory tree.
//
// It keeps what it has still to look at on dir_stack, whose head is the top. A directory is read whole, closed, and its entries put
// on top in their order; so no descriptor stays open, however deep the tree is. Entry: name = path, line = depth below the start,
// number = the type that the directory told.
#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include "config/languages.h"
#include "files/file_list.h"
#include "files/words.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"

namespace {

// A directory on the way down to the entry in hand. Its path is the front of the entry's own path.
struct Level {
    dev_t device;
    ino_t inode;
    size_t length;
};

// A level adds at least two characters ("/x") to the path, so that a path is full before the levels are.
constexpr int kMaxLevels = sizeof(LineText) / 2 + 1;

struct Walk {
    const char *extensions;
    Level levels[kMaxLevels];
};

struct Entry {
    LineText path;
    int depth;
    int type; // DT_...
};

bool IsDirectory(const Entry &entry) {
    if (entry.type != DT_LNK && entry.type != DT_UNKNOWN) {
        return entry.type == DT_DIR;
    }
    struct stat status;
    return stat(entry.path, &status) == 0 && S_ISDIR(status.st_mode);
}

// The whole path is compared, as the walk has built it: "cvs" doesn't exclude "src/cvs".
bool IsExcluded(const char *directory, const Globals *G) {
    return G->exclude_dirs_active && AnyWord(G->excluded_dirs, " \t,", [&](std::string_view word) {
               return word.size() == strlen(directory) &&
                      (G->names_case_sensitive ? strncmp(word.data(), directory, word.size())
                                               : strncasecmp(word.data(), directory, word.size())) == 0;
           });
}

// Every walk of the directories above depth ends too.
int FailLevelsAbove(const Walk &walk, const Entry &entry, int depth, int error, Globals *G) {
    while (--depth >= 0) {
        Message(G, "  Read Dir Error: %.*s : %s\n", static_cast<int>(walk.levels[depth].length), entry.path, strerror(error));
    }
    return 0;
}

// A link that leads back to a directory it stands in must not be followed.
bool IsOwnAncestor(const Walk &walk, const struct stat &status, int depth) {
    return std::any_of(walk.levels, walk.levels + depth,
                       [&](const Level &level) { return level.device == status.st_dev && level.inode == status.st_ino; });
}

// Adds one name found in a directory to entries. A path that is too long is told and left out. Returns 0 when memory is out.
int AddEntry(const Entry &directory, const char *name, int type, Llist *entries, Globals *G) {
    LineText path;
    CopyText(path, directory.path);
    const size_t length = strlen(path);
    const bool has_slash = length > 0 && path[length - 1] == '/';
    if ((!has_slash && !AppendChar(path, '/')) || !AppendText(path, name)) {
        Message(G, "\n  Error: The path is too long and was passed over\n         %s/%s\n", directory.path, name);
        return 1;
    }
    return AddNameNode(path, directory.depth + 1, type, entries, G);
}

// Reads the names of an open directory. Returns 0, with a message, when it can't be read to its end.
int ReadEntries(DIR *stream, const Walk &walk, const Entry &directory, Llist *entries, Globals *G) {
    for (;;) {
        errno = 0;
        const dirent *found = readdir(stream);
        if (!found) {
            return errno == 0 ? 1 : FailLevelsAbove(walk, directory, directory.depth + 1, errno, G);
        }
        if (strcmp(found->d_name, ".") == 0 || strcmp(found->d_name, "..") == 0) {
            continue;
        }
        if (!AddEntry(directory, found->d_name, found->d_type, entries, G)) {
            MemoryError(G);
            return FailLevelsAbove(walk, directory, directory.depth, ENOMEM, G);
        }
    }
}

// Puts the entries of a directory on top of the stack. Returns 0 after an error that ends the walk.
int EnterDirectory(Walk *walk, const Entry &directory, Globals *G) {
    if (IsExcluded(directory.path, G)) {
        return 1;
    }
    DIR *stream = opendir(*directory.path ? directory.path : "/");
    struct stat status;
    if (!stream || fstat(dirfd(stream), &status) != 0) {
        const int error = errno;
        if (stream) {
            closedir(stream);
        }
        Message(G, "  Open Dir Error: %s : %s\n", directory.path, strerror(error));
        return FailLevelsAbove(*walk, directory, directory.depth, error, G);
    }
    int result = 1;
    if (!IsOwnAncestor(*walk, status, directory.depth)) {
        walk->levels[directory.depth] = {status.st_dev, status.st_ino, strlen(directory.path)};
        Llist entries{};
        result = ReadEntries(stream, *walk, directory, &entries, G);
        LlistConcatenate(&entries, &G->dir_stack);
        LlistConcatenate(&G->dir_stack, &entries);
    }
    closedir(stream);
    return result;
}

void ShowWalkProgress(Globals *G) {
    if (!G->show_progress) {
        return;
    }
    const int interval = std::max(G->progress_interval, 1);
    if (++G->progress_count == 1) {
        fprintf(stderr, "  Building File List - Status(.) %d files\n  ", interval);
    } else if (G->progress_count % interval == 0) {
        fprintf(stderr, ".");
    } else if (G->progress_count / 64 >= interval) {
        G->progress_total += G->progress_count;
        fprintf(stderr, "(%6d)\n  ", G->progress_total);
        G->progress_count = 1;
    }
}

// The extension must equal a word with its case, whatever the settings say about names. Returns 0 after a failure that ends the
// walk.
int ListWalkedFile(const Walk &walk, const Entry &file, Globals *G) {
    if (FilenamePatternMatch(file.path, G)) {
        return 1;
    }
    const char *extension = getExtension(file.path, G);
    if (!extension || !AnyWord(walk.extensions, " .,*\t\r\n", [&](std::string_view word) { return word == extension; })) {
        return 1;
    }
    if (!AddSourceFile(file.path, extension, G)) {
        return FailLevelsAbove(walk, file, file.depth - 1, ENOMEM, G);
    }
    ShowWalkProgress(G);
    return 1;
}

// Takes the top of the stack.
void PopEntry(Entry *entry, Globals *G) {
    LlistNode *top = G->dir_stack.head;
    const NameData *stored = Record<NameData>(top);
    CopyText(entry->path, stored->name);
    entry->depth = stored->line;
    entry->type = stored->number;
    LlistRemoveNodeInList(&G->dir_stack, top, nullptr);
}

} // namespace

int ReadDir(const char *directory, const char *extensions, Globals *G) {
    if (!AddNameNode(directory, 0, DT_DIR, &G->dir_stack, G)) {
        MemoryError(G);
        return 0;
    }
    Walk walk{extensions, {}};
    int result = 1;
    while (result && G->dir_stack.head) {
        Entry entry;
        PopEntry(&entry, G);
        if (!IsDirectory(entry)) {
            result = ListWalkedFile(walk, entry, G);
        } else if (entry.depth == 0 || !G->no_recursion) {
            result = EnterDirectory(&walk, entry, G);
        }
    }
    LlistDestroy(&G->dir_stack, nullptr);
    return result;
}
