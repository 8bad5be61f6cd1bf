// Tabs and carriage returns of a source, and the way to replace a source without ever losing one.
#include "tools/decharacter.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/source_reader.h"
#include "report/file_reports.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/replacement.h"
#include "run/same_file.h"

namespace {

// The byte that stands back bytes, 1 or 2, in front of line[i], in the piece before too.
char Before(std::string_view line, size_t i, size_t back, const TabWalk *walk) {
    return i >= back ? line[i - back] : walk->before[2 + i - back];
}

bool EndsOrBeginsString(std::string_view line, size_t i, const TabWalk *walk) {
    return Before(line, i, 1, walk) != '\\' || Before(line, i, 2, walk) == '\\';
}

} // namespace

void Detab_line(std::string_view line, std::string *out, int tab_width, TabWalk *walk) {
    const size_t blanks = std::max(tab_width, 0);
    size_t begin = 0; // of what isn't handed on yet
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') {
            walk->in_string ^= EndsOrBeginsString(line, i, walk);
        } else if (line[i] == '\t' && !walk->in_string) {
            out->append(line, begin, i - begin);
            out->append(blanks, ' ');
            begin = i + 1;
            ++walk->tabs_replaced;
        }
    }
    out->append(line, begin);
    if (!line.empty()) {
        walk->before[0] = Before(line, line.size(), 2, walk);
        walk->before[1] = line.back();
    }
}

void RemoveReturns(std::string_view text, std::string *out, LineEndWalk *walk) {
    if (walk->held_cr && !text.empty()) {
        walk->held_cr = false;
        if (text.front() == '\n') {
            ++walk->changed;
        } else {
            out->push_back('\r');
        }
    }
    size_t begin = 0; // of what isn't handed on yet
    for (size_t i = text.find('\r'); i != std::string_view::npos; i = text.find('\r', i + 1)) {
        walk->held_cr = i + 1 == text.size();
        if (walk->held_cr || text[i + 1] == '\n') {
            out->append(text, begin, i - begin);
            begin = i + 1;
            walk->changed += walk->held_cr ? 0 : 1;
        }
    }
    out->append(text, begin);
}

void AddReturns(std::string_view text, std::string *out, LineEndWalk *walk) {
    size_t begin = 0; // of what isn't handed on yet
    size_t line = 0;
    for (size_t i = text.find('\n'); i != std::string_view::npos; i = text.find('\n', line)) {
        if (!walk->has_cr && !memchr(text.data() + line, '\r', i - line)) {
            out->append(text, begin, i - begin);
            out->push_back('\r');
            begin = i;
            ++walk->changed;
        }
        walk->has_cr = false;
        line = i + 1;
    }
    walk->has_cr |= text.find('\r', line) != std::string_view::npos;
    out->append(text, begin);
}

namespace {

// One walk through a source.
struct Rewriting {
    TabWalk tabs;
    LineEndWalk ends;
    int64_t lines;
    std::string detabbed; // the piece in hand, without its tabs
    std::string turned;   // and with other line ends
    bool Changed() const { return tabs.tabs_replaced > 0 || ends.changed > 0; }
};

std::string_view Rewritten(std::string_view piece, Rewriting *work, const Globals *G) {
    if (G->decharacter_tabs) {
        work->detabbed.clear();
        Detab_line(piece, &work->detabbed, G->tab_width, &work->tabs);
        piece = work->detabbed;
    }
    if (G->decharacter_unix || G->decharacter_dos) {
        work->turned.clear();
        (G->decharacter_unix ? RemoveReturns : AddReturns)(piece, &work->turned, &work->ends);
        piece = work->turned;
    }
    return piece;
}

// Walks through the source from its beginning and writes the new text to out. With a null out nothing is written, and the walk ends
// where it is clear that there is something to change. Returns 0 with errno when reading or writing fails.
int Walk(SourceReader *source, FILE *out, Rewriting *work, const Globals *G) {
    off_t place = 0;
    bool open_line = false;
    while (out || !work->Changed()) {
        const ssize_t got = pread(source->fd, source->Block(), SourceReader::kBlock, place);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return 0;
        }
        if (got == 0) {
            break;
        }
        place += got;
        const std::string_view piece(source->Block(), got);
        work->lines += std::count(piece.begin(), piece.end(), '\n');
        open_line = piece.back() != '\n';
        const std::string_view text = Rewritten(piece, work, G);
        if (out && fwrite(text.data(), 1, text.size(), out) != text.size()) {
            return 0;
        }
    }
    work->lines += open_line ? 1 : 0;
    return !out || !work->ends.held_cr || putc('\r', out) != EOF;
}

// Whether the file at path still is the source that was opened, as it was then: an editor may have saved it meanwhile.
bool IsStill(const char *path, const struct stat &source) {
    struct stat now;
    return stat(path, &now) == 0 && IsSameFile(now, source) && now.st_size == source.st_size &&
           now.st_mtim.tv_sec == source.st_mtim.tv_sec && now.st_mtim.tv_nsec == source.st_mtim.tv_nsec;
}

// A source doesn't change hands by being rewritten.
bool HasOwner(FILE *stream, const struct stat &source) {
    struct stat made;
    if (fstat(fileno(stream), &made) != 0) {
        return false;
    }
    errno = EPERM;
    return made.st_uid == source.st_uid && made.st_gid == source.st_gid;
}

// The file beside the source as the user would call it: in the directory that he named, unless a link leads out of it.
std::string BesideName(const char *name, const char *beside) {
    struct stat status;
    if (lstat(name, &status) == 0 && S_ISLNK(status.st_mode)) {
        return beside;
    }
    return std::string(name, FileName(name) - name) + FileName(beside);
}

int FailToUpdate(const char *name, Globals *G) {
    Message(G, "\n  Error: Failure to update source file.\n         %s\n         %s\n\n", name, strerror(errno));
    return 0;
}

// Where the text of an earlier run may have been left.
std::string TemporaryName(const char *name) {
    char *resolved = realpath(name, nullptr);
    std::string temporary = std::string(resolved ? resolved : name) + ".tmp";
    free(resolved);
    return temporary;
}

bool Stands(const std::string &path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// Opens the file that an earlier run left, to be appended to; *stale is -1 where there is none. Returns 0 with errno when what
// stands there is no file, or can't be opened.
int OpenStale(const std::string &path, int *stale) {
    *stale = open(path.c_str(), O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (*stale < 0) {
        return errno == ENOENT;
    }
    struct stat status;
    if (fstat(*stale, &status) == 0 && S_ISREG(status.st_mode)) {
        return 1;
    }
    close(*stale);
    *stale = -1;
    errno = EINVAL;
    return 0;
}

int CopyAll(int from, FILE *to, SourceReader *source) {
    ssize_t got;
    while ((got = read(from, source->Block(), SourceReader::kBlock)) != 0) {
        if (got < 0 ? errno != EINTR : fwrite(source->Block(), 1, got, to) != static_cast<size_t>(got)) {
            return 0;
        }
    }
    return 1;
}

// Puts the new text in the place of the source. What fails behind its last byte leaves it whole in "NAME.tmp".
int PutInPlace(Replacement *file, const char *name, const char *temporary, Globals *G) {
    if (CommitReplacement(file, 1)) {
        return 1;
    }
    if (!file->kept) { // an incomplete text is no help to anybody
        return FailToUpdate(name, G);
    }
    const int error = errno;
    const char *holds = rename(file->beside, temporary) == 0 ? temporary : file->beside;
    Message(G, "\n  Error: Failure to update source file.\n         Modified source in file: %s\n         %s\n\n",
            BesideName(name, holds).c_str(), strerror(error));
    return 0;
}

// Writes the stale text, if there is one, and the new one. Returns 0 with errno.
int PutTogether(SourceReader *source, int stale, Replacement *file, const struct stat &status, Rewriting *work, const Globals *G) {
    if ((stale >= 0 && !CopyAll(stale, file->stream, source)) || !Walk(source, file->stream, work, G)) {
        return 0;
    }
    errno = EBUSY;
    return IsStill(file->target, status);
}

// Writes the new text and puts it in the place of the source. "NAME.tmp" is the temporary file, and a stale one is appended to: its
// text goes ahead of the new one, so that nothing that an earlier run left there is lost. All of it is put together in a file of
// another name, as a process that is killed must not leave half a text where the next run would append to it.
int Update(SourceReader *source, const char *name, const struct stat &status, Rewriting *work, Globals *G) {
    const std::string temporary = TemporaryName(name);
    Replacement file;
    int stale = -1;
    int done = 0;
    if (!BeginReplacement(name, &file) || !OpenStale(temporary, &stale) || !HasOwner(file.stream, status)) {
        const int error = errno;
        AbandonReplacement(&file);
        Message(G, "\n  Error: Cannot open the specified file: %s\n  %s\n\n", BesideName(name, temporary.c_str()).c_str(),
                strerror(error));
    } else if (!PutTogether(source, stale, &file, status, work, G)) {
        AbandonReplacement(&file);
        FailToUpdate(name, G);
    } else {
        done = PutInPlace(&file, name, temporary.c_str(), G);
    }
    if (stale >= 0) {
        close(stale);
        if (done) {
            remove(temporary.c_str());
        }
    }
    return done;
}

void ShowIntent(const Globals *G) {
    if (G->decharacter_tabs) {
        Put("  Removing Tabs '\\t' from file\n");
    }
    if (G->decharacter_unix) {
        Put("  Removing Carriage Returns '\\r' from file\n");
    }
    if (G->decharacter_dos) {
        Put("  Adding Carriage Returns '\\r' to file\n");
    }
}

int Rewrite(SourceReader *source, const char *name, Globals *G) {
    struct stat status {};
    const bool known = fstat(source->fd, &status) == 0;
    const int error = errno;
    G->file_size = status.st_size;
    G->file_date = status.st_mtime;
    G->total_size += G->file_size;
    ShowFileLine(name, G->file_date, G->file_size, G->totals_only, 0, G);
    if (G->decharacter_unix && G->decharacter_dos) {
        Message(G, "  Error: Cannot De-Dos and Make Dos at the same time\n");
        return 0;
    }
    ShowIntent(G);
    if (!known) {
        errno = error;
        return FailToUpdate(name, G);
    }
    Rewriting work{};
    if (!Walk(source, nullptr, &work, G)) {
        return FailToUpdate(name, G);
    }
    if (work.Changed() || Stands(TemporaryName(name))) {
        work = {};
        if (!Update(source, name, status, &work, G)) {
            return 0;
        }
    }
    Put("  Complete - Lines = %ld", long{work.lines});
    if (G->decharacter_tabs) {
        Put(", Tabs Replaced = %ld", long{work.tabs.tabs_replaced});
    }
    Put("\n");
    return 1;
}

} // namespace

int DeFile(SourceReader *source, const char *name, Globals *G) {
    const int done = Rewrite(source, name, G);
    CloseSource(source);
    return done;
}
