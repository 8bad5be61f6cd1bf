// The line records of a baseline: written while the sources are scanned, read when two baselines are compared.
//
// A record is 13 bytes without padding: line number, type letter, line code, in the machine's byte order. While a baseline is made,
// its files stand in a directory beside the one that they will replace.
#include "baseline/line_records.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <span>
#include <sys/stat.h>
#include <unistd.h>

#include "analysis/line_code.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/read_lines.h"

namespace {

constexpr size_t kLineAt = 0, kTypeAt = 4, kCodeAt = 5, kRecordSize = 13;
constexpr size_t kMostMunged = 255, kKeptMunged = 254;
using LongPath = char[2 * PATH_MAX];

// "/proj/src/my file.c" is src_my_file_c, with /proj the working directory.
void MungDataFilename(const char *name, std::span<char> out, const Globals *G) {
    // below the root nothing but its slash goes: it stands in every path
    if (G->relative_work_files && G->start_dir[0] && G->start_dir[1] && strstr(name, G->start_dir)) {
        name += strlen(G->start_dir);
        name += *name == '/' || *name == '\\';
    }
    name += *name == '/';
    const size_t length = strlen(name);
    CopyText(out, length > kMostMunged ? name + length - kKeptMunged : name);
    for (char *p = out.data(); *p; ++p) {
        if (strchr(" ./\\\r\n", *p)) { // a line end has no place in the work file either
            *p = '_';
        }
    }
}

// A name of 254 characters and its ".dif" is more than a file system takes: there the file goes by the end of it.
void FitFileName(char *path) {
    char *slash = strrchr(path, '/');
    char *name = slash ? slash + 1 : path;
    const size_t length = strlen(name);
    if (length > NAME_MAX) {
        memmove(name, name + length - NAME_MAX, NAME_MAX + 1);
    }
}

void TellOfWrite(int error, Globals *G) {
    Message(G, "\n  Write File Error: %s - %s\n", G->diff_file_old, strerror(error));
}

// The names of the directory, and the directory.
void WorkDiffDataPathName(Globals *G) {
    if (G->diff_beside.has_beside) {
        return;
    }
    FormatText(G->diff_data_path, "%s.dif", G->work_file_name);
    FormatText(G->diff_data_rel_path, "%s.dif", FileName(G->work_file_name));
    if (!BeginDirectory(G->diff_data_path, &G->diff_beside)) {
        Message(G,
                "  Directory Create Error: %s\n"
                "                          %s\n"
                "                          Check permission on the parent directory\n",
                G->diff_data_path, strerror(errno));
        EndProcess(G, 1);
    }
}

// The part of a name that is left of it on the disk.
const char *NameOnDisk(const char *munged) {
    constexpr size_t kMost = NAME_MAX - 4; // with ".dif"
    const size_t length = strlen(munged);
    return length > kMost ? munged + length - kMost : munged;
}

bool IsTaken(const char *munged, const Globals *G) {
    return FindIndexed(&G->diff_names_taken, NameOnDisk(munged)) != nullptr;
}

// Enters a name with the number of the last source that bears it; null when memory is out.
NameData *EnterName(const char *name, Globals *G) {
    if (!AddNameNode(name, 0, 1, &G->diff_names, G)) {
        return nullptr;
    }
    auto *const entry = Record<NameData>(G->diff_names.tail);
    return IndexName(&G->diff_names_taken, entry) ? entry : nullptr;
}

// Makes the name one that no other source of this run has: the second a_b_c is a_b_c-2. Returns false when memory is out.
bool TakeName(std::span<char> munged, Globals *G) {
    if (IsTaken(munged.data(), G)) {
        constexpr size_t kMost = 240; // a number has room behind it
        char family[kMost + 2] = "/"; // no name has this byte
        const size_t length = strlen(munged.data());
        AppendText(family, munged.data() + (length > kMost ? length - kMost : 0));
        auto *counter = static_cast<NameData *>(FindIndexed(&G->diff_names_taken, family));
        if (!counter && !(counter = EnterName(family, G))) {
            return false;
        }
        do {
            FormatText(munged, "%s-%d", family + 1, ++counter->number);
        } while (IsTaken(munged.data(), G));
    }
    return EnterName(NameOnDisk(munged.data()), G) != nullptr;
}

// The names of the current source file's records.
void WorkDiffDataFileName(std::span<char> munged, Globals *G) {
    MungDataFilename(G->file_name, munged, G);
    if (!TakeName(munged, G)) {
        MemoryError(G);
    }
    FormatText(G->diff_file_old, "%s/%s.dif", G->diff_data_path, munged.data());
    FormatText(G->diff_file_rel, "%s/%s.dif", G->diff_data_rel_path, munged.data());
    if (!G->work_verbose) {
        return;
    }
    if (!G->diff_head_shown) {
        Message(G, "  Code Differential Mode\n");
        G->diff_head_shown = 1;
    }
    Message(G, "  %s\n", G->diff_file_old);
}

// True when the disk, not this one file, is at fault: then no later file fares better, and the baseline can't become whole.
bool IsDiskFull(int error) {
    return error == ENOSPC || error == EDQUOT || error == EIO;
}

bool Climbs(const char *name) {
    for (const char *p = name; (p = strstr(p, "..")) != nullptr; p += 2) {
        if ((p == name || p[-1] == '/') && (p[2] == '/' || p[2] == '\0')) {
            return true;
        }
    }
    return false;
}

FILE *OpenRecords(char *path) {
    path[strcspn(path, "\r\n")] = '\0';
    FitFileName(path);
    return OpenRegularFile(path);
}

// Leaves the last path that was tried, and errno.
FILE *FindRecords(const char *name, const char *work_file, LongPath &path, const char *directory) {
    const bool absolute = *name == '/';
    const bool refused = *name == '\0' || Climbs(name); // without a name, beside "base.dat" would be base.dat itself
    FILE *file = nullptr;
    if (absolute) {
        CopyText(path, name);
        file = OpenRecords(path);
    }
    if (!file && !refused) {
        const char *slash = strrchr(work_file, '/');
        CopyPart(path, work_file, slash ? static_cast<size_t>(slash + 1 - work_file) : strlen(work_file));
        AppendText(path, name);
        file = OpenRecords(path);
    }
    if (!file && !absolute) {
        const size_t length = strlen(directory);
        FormatText(path, "%s%s%s", directory, length > 0 && directory[length - 1] == '/' ? "" : "/", name);
        errno = ENOENT;
        file = refused ? nullptr : OpenRecords(path);
    } else if (!file) {
        CopyText(path, name);
        file = OpenRecords(path);
    }
    return file;
}

void WorkDiffDataLinePrint(const DiffData &line, Globals *G) {
    if (line.type != ' ') {
        Message(G, "  %-5d - %c %.14f\n", line.line, line.type > ' ' ? line.type : '?', line.code);
    }
}

bool Reserve(DiffDataList *list, int64_t capacity) {
    const auto wanted = static_cast<int>(std::min<int64_t>(capacity, INT_MAX));
    if (wanted <= list->count) {
        errno = EOVERFLOW;
        return false;
    }
    void *lines = realloc(list->lines, static_cast<size_t>(wanted) * sizeof(DiffData));
    if (!lines) {
        return false;
    }
    list->lines = static_cast<DiffData *>(lines);
    list->capacity = wanted;
    return true;
}

DiffData Decode(const char *record) {
    DiffData line{};
    memcpy(&line.line, record + kLineAt, sizeof line.line);
    line.type = record[kTypeAt];
    memcpy(&line.code, record + kCodeAt, sizeof line.code);
    return line;
}

// Reads whole records up to the end, and counts the bytes behind the last one. Returns 0 with errno on failure.
int ReadRecords(FILE *file, DiffDataList *list, size_t *bytes_left) {
    struct stat about;
    if (fstat(fileno(file), &about) == 0 && about.st_size >= static_cast<off_t>(kRecordSize) &&
        !Reserve(list, list->count + about.st_size / static_cast<off_t>(kRecordSize))) {
        return 0;
    }
    char block[kRecordSize * 4096]; // only the last one comes in short
    size_t got;
    while ((got = fread(block, 1, sizeof block, file)) > 0) {
        for (size_t at = 0; at + kRecordSize <= got; at += kRecordSize) {
            const DiffData line = Decode(block + at);
            if (!AddDiffDataNode(line.line, line.type, line.code, list)) {
                return 0;
            }
        }
        *bytes_left = got % kRecordSize;
    }
    return !ferror(file);
}

// Whether a line of comment may be a blank line too: it is when the // comment ahead of it goes on by a backslash.
bool MayBeBlank(const DiffData &comment) {
    constexpr double kHighestCode = 262.5; // of white space: 2047 blanks
    return comment.code <= kHighestCode;
}

// Whether the records can be all lines of a source: each line of code and each comment that the work file counts has one, and where
// blank lines are recorded, each of them too.
bool AreAllLines(std::span<const DiffData> lines, const WorkMetrics &file, const Globals *G) {
    int64_t code = 0, comments = 0, blanks = 0, doubtful = 0;
    for (const DiffData &line : lines) {
        switch (line.type) {
        case 'l':
        case 'n':
        case 'g': ++comments; [[fallthrough]];
        case 'L':
        case 'N':
        case 'G': ++code; break;
        case 'C':
            ++comments;
            doubtful += MayBeBlank(line);
            break;
        case 'B': ++blanks; break;
        default: break;
        }
    }
    const int64_t counted = file.of[kWorkBlanks];
    const bool blanks_fit = !G->blanks_recorded || (blanks <= counted && counted <= blanks + doubtful);
    return code == file.of[kWorkLoc] && comments == file.of[kWorkComments] && blanks_fit &&
           (lines.empty() || lines.back().line <= file.of[kWorkLines]);
}

void ShowRecords(const char *path, const DiffDataList &list, int from, Globals *G) {
    Message(G, "  File Start: %s\n", path);
    for (int i = from; i < list.count; ++i) {
        WorkDiffDataLinePrint(list.lines[i], G);
    }
    Message(G, "  File End:\n");
}

} // namespace

void FreeDiffData(DiffDataList *list) {
    free(list->lines);
    *list = {};
}

int AddDiffDataNode(int32_t line, char type, double code, DiffDataList *list) {
    if (list->count == list->capacity && !Reserve(list, std::max<int64_t>(256, static_cast<int64_t>(list->capacity) * 2))) {
        return 0;
    }
    list->lines[list->count++] = {.code = code, .line = line, .type = type};
    return 1;
}

void WorkDiffDataFileOpen(Globals *G) {
    if (G->baseline_failed) { // it won't be kept
        return;
    }
    WorkDiffDataPathName(G);
    char munged[kMostMunged + 1];
    WorkDiffDataFileName(munged, G);
    G->record_line = [](char letter, const char *text, Globals *g) { WorkDiffDataLineWrite(g->diff_data_file, letter, text, g); };
    LongPath path;
    FormatText(path, "%s/%s.dif", G->diff_beside.beside, munged);
    FitFileName(path);
    G->diff_data_file = fopen(path, "wbe");
    G->diff_file_error = G->diff_data_file ? 0 : errno;
    if (!G->diff_data_file) {
        Message(G, "\n  Create File Error: %s - %s\n", G->diff_file_old, strerror(G->diff_file_error));
        G->baseline_failed |= IsDiskFull(G->diff_file_error) || G->diff_file_error == ENOMEM;
        G->baseline_lacking = 1;
    }
}

void WorkDiffDataFileClose(Globals *G) {
    G->record_line = nullptr;
    if (!G->diff_data_file) {
        return;
    }
    if (fclose(G->diff_data_file) != 0 && !G->diff_file_error) {
        TellOfWrite(errno, G);
        G->baseline_failed = 1;
    }
    G->diff_data_file = nullptr;
}

void WorkDiffDataLineWrite(FILE *stream, char type, const char *line_text, Globals *G) {
    if (!stream) {
        TellOfWrite(G->diff_file_error, G);
        return;
    }
    char record[kRecordSize];
    const int32_t line = G->file_line_no;
    const double code = LineCode(line_text, G);
    memcpy(record + kLineAt, &line, sizeof line);
    record[kTypeAt] = type;
    memcpy(record + kCodeAt, &code, sizeof code);
    if (fwrite_unlocked(record, kRecordSize, 1, stream) != 1 && !G->diff_file_error) {
        G->diff_file_error = errno;
        G->baseline_failed = 1;
        TellOfWrite(errno, G);
    }
}

int LoadDiffDataFile(const char *name, const char *work_file, const WorkMetrics &file, DiffDataList *list, Globals *G) {
    LongPath path = "";
    PathText directory = "";
    if (!getcwd(directory, sizeof directory)) {
        ClearText(directory);
    }
    FILE *stream = FindRecords(name, work_file, path, directory);
    const int before = list->count;
    size_t bytes_left = 0;
    const int loaded = stream && ReadRecords(stream, list, &bytes_left);
    const int error = errno;
    if (stream) {
        fclose(stream);
    }
    if (!stream || (!loaded && error != ENOMEM)) {
        Message(G,
                "  Error: Loading Work Differential File: %s\n"
                "         Check the differential directory associated with the work file\n"
                "         Current Working Directory: %s\n"
                "         Work File: %s\n"
                "         %s\n",
                path, directory, work_file, strerror(error));
        return 0;
    }
    if (!loaded) {
        MemoryError(G);
        return 0;
    }
    if (G->diff_debug) {
        ShowRecords(path, *list, before, G);
    }
    const std::span<const DiffData> lines(list->lines + before, list->count - before);
    if (bytes_left || !AreAllLines(lines, file, G)) {
        Message(G,
                "  Error: Loading Work Differential File: %s\n"
                "         The file is cut short or damaged: %s\n"
                "         Its lines are not compared, its metrics are\n"
                "         Work File: %s\n",
                path, bytes_left ? "its size is no multiple of 13 bytes" : "its lines are not those that the work file counts",
                work_file);
        return 0;
    }
    return 1;
}
