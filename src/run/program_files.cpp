// The environment, the homes of the program's own files, and the safe way to write one.
#include "run/program_files.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "run/globals.h"
#include "run/mode.h"
#include "run/read_lines.h"
#include "run/replacement.h"

namespace {

constexpr const char *kHomeMarker = "tly.cfg"; // the file that makes a directory of PATH the home

// A variable that is set to nothing counts as unset, and so does one that leaves no room for the names of the files: a part of it
// would be another directory.
void LoadHome(PathText &home, const char *variable, Globals *G) {
    constexpr size_t kMost = sizeof home - sizeof "/tly_workdiff.cfg";
    const char *value = getenv(variable);
    if (!value || *value == '\0') {
        return;
    }
    if (strlen(value) > kMost) {
        Message(G,
                "\n  Error: The environment variable %s is too long and is ignored\n         At most %zu characters are possible\n",
                variable, kMost);
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
