// The environment, the homes of the program's own files, and the safe way to write one.
#include "run/program_files.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "report/mode.h"
#include "run/globals.h"

namespace {

constexpr const char *kHomeMarker = "tly.cfg"; // the file that makes a directory of PATH the home

// A variable that is set to nothing counts as unset.
void LoadHome(std::span<char> home, const char *variable) {
    const char *value = getenv(variable);
    if (!value || *value == '\0') {
        return;
    }
    CopyText(home, value);
    if (home[strlen(home.data()) - 1] != '/') {
        AppendChar(home, '/');
    }
}

// The first directory of PATH that holds the marker, with a trailing "/"; empty when there is none.
void FindHome(std::span<char> home, const Globals *G) {
    constexpr const char *kSeparators = ":;\t\r\n";
    const char *p = G->SYSTEMPATH ? G->SYSTEMPATH : "";
    while (*(p += strspn(p, kSeparators)) != '\0') {
        const size_t length = strcspn(p, kSeparators);
        PathText candidate;
        CopyPart(candidate, p, length);
        p += length;
        if (length < sizeof candidate && AppendChar(candidate, '/')) {
            CopyText(home, candidate);
            if (AppendText(candidate, kHomeMarker) && access(candidate, R_OK) == 0) {
                return;
            }
        }
    }
    ClearText(home);
}

// A new file beside path, for writing; below 0 when none could be made. An old one of a process that was killed may be in the
// way, and in a container process ids come again soon: so a few names are tried.
int OpenBeside(const std::string &path, std::string &name) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = path + ".tmp." + std::to_string(getpid()) + "." + std::to_string(attempt);
        const int descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
    return -1;
}

// Gives the new file the owner and the mode of the one it replaces. Without the owner, no set-id bits.
bool TakeOverMode(int descriptor, const struct stat &old) {
    const bool owned = fchown(descriptor, old.st_uid, old.st_gid) == 0;
    return fchmod(descriptor, old.st_mode & (owned ? 07777U : 0777U)) == 0;
}

// Where the bytes of path really are: a link keeps pointing. False for what can't be replaced: a device, a file that its owner has
// made read-only, a link that leads nowhere.
bool FindTarget(const char *path, std::string &target, struct stat &old, bool &exists) {
    if (char *resolved = realpath(path, nullptr)) {
        target = resolved;
        free(resolved);
        exists = true;
        return stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode) && access(target.c_str(), W_OK) == 0;
    }
    const bool missing = errno == ENOENT && lstat(path, &old) != 0;
    exists = false;
    target = path;
    return missing;
}

} // namespace

void LoadEnv(Globals *G) {
    LoadHome(G->TLYHOME, "TLYHOME");
    LoadHome(G->TLYCFGHOME, "TLYCFGHOME");
    G->SYSTEMPATH = getenv("PATH");
    if (getenv("TLYDEBUG")) {
        G->debug = 1;
        Message(G, "*** Debug: Global Data Size = %d\n", static_cast<int>(sizeof *G));
    }
    if (getenv("TLYCLASSMF")) {
        G->show_class_methods = 1;
        Message(G, "\n  Showing Class Methods and Functions\n");
    }
}

void SetProgramPath(Globals *G) {
    const char *program = G->argc > 0 && G->argv[0] ? G->argv[0] : "";
    const char *slash = strrchr(program, '/');
    if (*G->PROGPATH == '\0' && slash) {
        const size_t length = static_cast<size_t>(slash - program) + 1;
        if (length < sizeof G->PROGPATH) { // a part of a path would be another directory
            CopyPart(G->PROGPATH, program, length);
        }
    }
    if (*G->TLYHOME == '\0') {
        CopyText(G->TLYHOME, G->PROGPATH);
    }
}

void GetProgFile(std::span<char> dest, const char *name, Globals *G) {
    if (strchr(name, '/')) {
        return;
    }
    PathText path; // name may be dest itself
    if (strlen(G->TLYCFGHOME) > 1) {
        CopyText(path, G->TLYCFGHOME);
    } else {
        if (strlen(G->TLYHOME) > 1) {
            CopyText(path, G->TLYHOME);
        } else {
            FindHome(path, G);
        }
        if (char *slash = strrchr(path, '/')) {
            slash[1] = '\0';
        } else {
            CopyText(path, "./");
        }
    }
    AppendText(path, name);
    CopyText(dest, path);
}

int WriteProgramFile(const char *path, void (*write)(FILE *stream, Globals *G), Globals *G) {
    std::string target, beside;
    struct stat old;
    bool exists;
    if (!FindTarget(path, target, old, exists)) {
        return 0;
    }
    const int descriptor = OpenBeside(target, beside);
    if (descriptor < 0) {
        return 0;
    }
    bool good = !exists || TakeOverMode(descriptor, old);
    FILE *stream = good ? fdopen(descriptor, "wb") : nullptr;
    if (stream) {
        write(stream, G);
        good = ferror(stream) == 0 && fflush(stream) == 0 && fsync(descriptor) == 0;
        good = fclose(stream) == 0 && good;
    } else {
        close(descriptor);
        good = false;
    }
    if (!good || rename(beside.c_str(), target.c_str()) != 0) {
        remove(beside.c_str());
        return 0;
    }
    return 1;
}
