// The environment, the homes of the program's own files, and the safe way to write one.
#include "run/program_files.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "run/globals.h"
#include "run/mode.h"
#include "run/read_lines.h"
#include "run/replacement.h"

namespace {

constexpr const char *kHomeMarker = "tly.cfg"; // the file that makes a directory of PATH the home
constexpr const char *kNowhere = "/dev/null/"; // no file can be below it
constexpr size_t kLongestHome = sizeof(PathText) - sizeof "/tly_workdiff.cfg";

// A variable that is set to nothing counts as unset, and so does one that leaves no room for the names of the files: a part of it
// would be another directory.
void LoadHome(PathText &home, const char *variable, Globals *G) {
    const char *value = getenv(variable);
    if (!value || *value == '\0') {
        return;
    }
    if (strlen(value) > kLongestHome) {
        Message(G,
                "\n  Error: The environment variable %s is too long and is ignored\n         At most %zu characters are possible\n",
                variable, kLongestHome);
        return;
    }
    CopyText(home, value);
    EndWithSlash(home);
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

// The directory of a user's settings, mostly ~/.config, with a trailing "/", by the rules of the desktop: a path that isn't
// absolute is passed over. Returns false if there is none.
bool FindConfigBase(PathText &base) {
    constexpr std::pair<const char *, const char *> kBases[] = {{"XDG_CONFIG_HOME", ""}, {"HOME", "/.config"}};
    for (const auto &[variable, below] : kBases) {
        const char *value = getenv(variable);
        if (value && *value == '/' && strlen(value) + strlen(below) + strlen("//tly/") <= kLongestHome) {
            FormatText(base, "%s%s", value, below);
            EndWithSlash(base);
            return true;
        }
    }
    return false;
}

// Makes the directory home in base, and base where it is missing too, but nothing above: what isn't there may be meant to be
// missing. Returns 0 if a file can be written into it, else the error.
int MakeConfigHome(const char *base, const char *home) {
    constexpr mode_t kOwnersOnly = 0700;
    if (access(home, F_OK) != 0) {
        mkdir(base, kOwnersOnly);
        if (mkdir(home, kOwnersOnly) != 0 && errno != EEXIST) { // of several programs at once one makes it
            return errno;
        }
    }
    return access(home, W_OK | X_OK) == 0 ? 0 : errno;
}

} // namespace

void LoadEnv(Globals *G) {
    LoadHome(G->TLYHOME, "TLYHOME", G);
    LoadHome(G->TLYCFGHOME, "TLYCFGHOME", G);
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

void UseConfigHome(Globals *G) {
    if (strlen(G->TLYHOME) > 1 || strlen(G->TLYCFGHOME) > 1) {
        return;
    }
    PathText base, settings;
    if (!FindConfigBase(base)) {
        CopyText(G->TLYHOME, kNowhere);
        fputs("tly: no settings are read or kept: neither XDG_CONFIG_HOME nor HOME is the full path of a directory.\n", stderr);
        return;
    }
    FormatText(G->TLYHOME, "%stly/", base);
    FormatText(settings, "%stly.cfg", G->TLYHOME);
    if (access(settings, F_OK) != 0) {
        if (const int error = MakeConfigHome(base, G->TLYHOME)) {
            fprintf(stderr, "tly: no settings can be kept in %s: %s. The built-in ones hold.\n", G->TLYHOME, strerror(error));
        }
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
    Replacement file;
    if (!BeginReplacement(path, &file)) {
        return 0;
    }
    write(file.stream, G);
    return CommitReplacement(&file, 0);
}

// Until the end or the first failure of either side.
static long CopyBytes(FILE *to, FILE *from) {
    char block[64 * 1024];
    long copied = 0;
    for (size_t got; (got = fread(block, 1, sizeof block, from)) > 0; copied += static_cast<long>(got)) {
        if (fwrite(block, 1, got, to) != got) {
            return -1;
        }
    }
    return ferror(from) ? -1 : copied;
}

// A copy that wasn't there before is for its owner and the group.
static void NarrowMode(FILE *copy) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(fileno(copy), 0660 & ~mask);
}

long FileCopy(const char *dest, const char *source, Globals *G) {
    FILE *from = OpenRegularFile(source);
    if (!from) {
        Message(G, "\n  Error: Failed to open the file %s\n  %s", source, strerror(errno));
        return -1;
    }
    const bool fresh = access(dest, F_OK) != 0;
    Replacement to;
    long copied = -1;
    if (BeginReplacement(dest, &to)) {
        if (fresh) {
            NarrowMode(to.stream);
        }
        copied = CopyBytes(to.stream, from);
        if (copied >= 0 && !CommitReplacement(&to, 0)) {
            copied = -1;
        }
    }
    if (copied < 0) {
        Message(G, "\n  Error: Failed to create/open the file %s\n         %s\n", dest, strerror(errno));
        AbandonReplacement(&to);
    }
    fclose(from);
    return copied;
}
