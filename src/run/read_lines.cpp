// Reading the lines of a side file. See read_lines.h for the rules.
#include "run/read_lines.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr const char *kByteOrderMark = "\xef\xbb\xbf"; // of UTF-8

// Opens a file for reading; a pipe or a terminal only where streams are taken.
static FILE *Open(const char *path, bool streams) {
    // Without O_NONBLOCK the opening of a FIFO would wait for its writer.
    const int fd = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return nullptr;
    }
    int error = 0;
    struct stat about = {};
    if (fstat(fd, &about) != 0) {
        error = errno;
    } else if (streams && (S_ISFIFO(about.st_mode) || S_ISCHR(about.st_mode))) {
        fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK); // from here on it waits for what its writer has to say
        return fdopen(fd, "rb");
    } else if (!S_ISREG(about.st_mode)) {
        error = S_ISDIR(about.st_mode) ? EISDIR : EINVAL;
    } else if (FILE *file = fdopen(fd, "rb")) {
        return file;
    } else {
        error = errno;
    }
    close(fd);
    errno = error;
    return nullptr;
}

FILE *OpenRegularFile(const char *path) {
    return Open(path, false);
}

FILE *OpenFileOrStream(const char *path) {
    return Open(path, true);
}

bool OpenLines(LineReader *reader, const char *path) {
    *reader = {OpenRegularFile(path)};
    return reader->file != nullptr;
}

bool NextLine(LineReader *reader, std::span<char> piece) {
    if (!reader->file || !fgets(piece.data(), static_cast<int>(piece.size()), reader->file)) {
        piece[0] = '\0';
        return false;
    }
    if (!reader->begun && strncmp(piece.data(), kByteOrderMark, strlen(kByteOrderMark)) == 0) {
        const char *text = piece.data() + strlen(kByteOrderMark);
        memmove(piece.data(), text, strlen(text) + 1);
    }
    reader->begun = true;
    if (feof(reader->file) && static_cast<unsigned char>(piece[0]) < 12) {
        piece[0] = '\0';
        return false;
    }
    return true;
}

void CloseLines(LineReader *reader) {
    if (reader->file) {
        fclose(reader->file);
        reader->file = nullptr;
    }
}
