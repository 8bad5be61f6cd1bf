// Big blocks in, lines out. See source_reader.h for the rules.
#include "files/source_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int OpenSource(SourceReader *reader, const char *name, int modify) {
    reader->fd = open(name, (modify ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (reader->fd < 0) {
        return 0;
    }
    struct stat info;
    if (fstat(reader->fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        close(reader->fd);
        errno = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        return 0;
    }
    reader->at_end = 0;
    reader->has_nul = 0;
    reader->failed = 0;
    reader->begin = 0;
    reader->end = 0;
    return 1;
}

void CloseSource(SourceReader *reader) {
    close(reader->fd);
}

namespace {

// Moves what is unread to the front of the block and fills the rest.
void Refill(SourceReader *reader) {
    memmove(reader->block, reader->block + reader->begin, reader->end - reader->begin);
    reader->end -= reader->begin;
    reader->begin = 0;
    ssize_t got;
    do {
        got = read(reader->fd, reader->block + reader->end, sizeof reader->block - reader->end);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) {
        reader->at_end = 1;
        reader->failed = got < 0 ? errno : 0;
    } else {
        reader->end += got;
    }
    reader->has_nul = memchr(reader->block, '\0', reader->end) != nullptr;
}

struct RawPiece {
    const char *text; // in the block
    size_t bytes;
    bool feed; // it ends in a line feed
};

// The next piece, in the block and still unread. Every line of every file comes through here.
[[gnu::always_inline]] inline RawPiece FindPiece(SourceReader *reader) {
    for (;;) {
        const char *text = reader->block + reader->begin;
        const size_t most = std::min<size_t>(reader->end - reader->begin, kMaxPiece);
        const void *feed = memchr(text, '\n', most);
        if (feed) {
            return {text, static_cast<size_t>(static_cast<const char *>(feed) - text + 1), true};
        }
        if (most == kMaxPiece || reader->at_end) {
            return {text, most, false};
        }
        Refill(reader);
    }
}

int LeadingHighBytes(const char *text) {
    int count = 0;
    while (text[count] < 0) {
        ++count;
    }
    return count;
}

} // namespace

int NextBytes(SourceReader *reader, char *bytes, int *count) {
    const RawPiece piece = FindPiece(reader);
    memcpy(bytes, piece.text, piece.bytes);
    reader->begin += piece.bytes;
    *count = static_cast<int>(piece.bytes);
    return piece.bytes > 0;
}

Piece NextPiece(SourceReader *reader, char *line, int *length) {
    const auto [text, raw_bytes, feed] = FindPiece(reader);
    size_t bytes = raw_bytes;
    memcpy(line, text, bytes);
    reader->begin += bytes;
    memset(line + bytes, 0, 17);
    const bool filled = !feed && bytes == kMaxPiece;
    if (*line < 0) {
        const int skipped = LeadingHighBytes(line);
        bytes -= skipped;
        memmove(line, line + skipped, bytes + 17);
    }
    const size_t text_length = reader->has_nul ? strlen(line) : bytes;
    const bool holds_nul = text_length < bytes;
    if (holds_nul) {
        memset(line + text_length, 0, 17);
    }
    *length = static_cast<int>(text_length);
    if (filled) {
        return holds_nul ? Piece::kLine : Piece::kTooLong;
    }
    return feed || *line == '\t' || *line > 11 ? Piece::kLine : Piece::kEnd;
}
