// Big blocks in, lines out. See source_reader.h for the rules.
#include "files/source_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A feed behind the last byte ends every search for one.
void EndFeeds(SourceReader *reader) {
    ByteMasks &last = reader->masks[reader->end / kMaskBytes];
    if (reader->end % kMaskBytes == 0) {
        last = {};
    }
    last.feed |= uint64_t{1} << reader->end % kMaskBytes;
}

void Begin(SourceReader *reader, MaskUse use) {
    static const Classifier lines = BestClassifier(MaskUse::kLines);
    static const Classifier code = BestClassifier(MaskUse::kCode);
    reader->got = 0;
    reader->use = use;
    reader->tabs_are_tokens = 0;
    reader->white = {};
    reader->kept = {};
    *reader->kept_text = '\0';
    reader->classify = use == MaskUse::kLines ? lines : code;
    reader->at_end = 0;
    reader->has_nul = 0;
    reader->failed = 0;
    reader->begin = 0;
    reader->end = 0;
    reader->plain = 0;
    reader->cut = 0;
    reader->behind_cut = '\0';
    EndFeeds(reader);
}

} // namespace

int OpenSource(SourceReader *reader, const char *name, MaskUse use, int modify) {
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
    reader->size = static_cast<size_t>(info.st_size);
    Begin(reader, use);
    return 1;
}

void CloseSource(SourceReader *reader) {
    close(reader->fd);
}

int RewindSource(SourceReader *reader, MaskUse use) {
    if (lseek(reader->fd, 0, SEEK_SET) != 0) {
        reader->failed = errno;
        return 0;
    }
    Begin(reader, use);
    return 1;
}

namespace {

ssize_t ReadSome(int fd, char *bytes, size_t most) {
    ssize_t got;
    do {
        got = read(fd, bytes, most);
    } while (got < 0 && errno == EINTR);
    return got;
}

// Blanks and tabs of the first bytes of the block.
White WhiteOfBlock(const SourceReader *reader, size_t count) {
    if (count == 0) {
        return {0, 0};
    }
    const ByteMasks &last = reader->masks[(count - 1) / kMaskBytes];
    const size_t above = -count % kMaskBytes; // bytes of the last masks that don't count
    return {int64_t{last.blanks_ahead} + std::popcount(last.blank << above),
            int64_t{last.tabs_ahead} + std::popcount(last.tab << above)};
}

// What is asked for of the bytes that leave the block.
void SettleBlock(SourceReader *reader) {
    KeptText(reader);
    if (reader->use == MaskUse::kCode) {
        const White white = WhiteOfBlock(reader, reader->begin);
        reader->white.blanks += white.blanks;
        reader->white.tabs += white.tabs;
    }
}

void MakeTabsTokens(SourceReader *reader) {
    for (size_t i = 0; i <= reader->end / kMaskBytes; ++i) {
        ByteMasks &masks = reader->masks[i];
        masks.token |= masks.tab;
        masks.code |= masks.tab;
    }
}

// Moves what is unread to the front of the block and fills the rest.
void Refill(SourceReader *reader) {
    SettleBlock(reader);
    char *block = reader->Block();
    memmove(block, block + reader->begin, reader->end - reader->begin);
    reader->end -= reader->begin;
    reader->begin = 0;
    const size_t room = SourceReader::kBlock - reader->end;
    const ssize_t got = ReadSome(reader->fd, block + reader->end, room);
    if (got <= 0) {
        reader->at_end = 1;
        reader->failed = got < 0 ? errno : 0;
    } else {
        reader->end += got;
        reader->got += got;
        // behind its size a file that gives less than was asked for has no more; one of size 0 may give it in pieces
        reader->at_end = static_cast<size_t>(got) < room && reader->size > 0 && reader->got >= reader->size;
    }
    memset(block + reader->end, 0, kMaskBytes + kBytesBehind);
    reader->cut = reader->end;
    reader->behind_cut = '\0';
    reader->classify(block, reader->end, reader->masks);
    EndFeeds(reader);
    if (reader->tabs_are_tokens) {
        MakeTabsTokens(reader);
    }
    reader->has_nul = memchr(block, '\0', reader->end) != nullptr;
}

struct RawPiece {
    char *text; // in the block
    size_t bytes;
    bool feed; // it ends in a line feed
};

// The next piece, in the block and still unread.
RawPiece FindPiece(SourceReader *reader) {
    reader->Block()[reader->cut] = reader->behind_cut;
    for (;;) {
        char *text = reader->Block() + reader->begin;
        const int begin = static_cast<int>(reader->begin);
        const size_t most = std::min<size_t>(reader->end - reader->begin, kMaxPiece);
        const int end = begin + static_cast<int>(most);
        const int feed = NextByte(reader->masks, &ByteMasks::feed, begin, end);
        if (feed < end) {
            return {text, static_cast<size_t>(feed - begin + 1), true};
        }
        if (most == kMaxPiece || reader->at_end) {
            return {text, most, false};
        }
        Refill(reader);
    }
}

int WithoutLineEnd(const char *text, int bytes) {
    const int length = bytes - (text[bytes - 1] == '\n'); // an empty line begins behind a NUL
    return length - (text[length - 1] == '\r');
}

int LeadingHighBytes(const char *text) {
    int count = 0;
    while (text[count] < 0) {
        ++count;
    }
    return count;
}

} // namespace

const char *KeptText(SourceReader *reader) {
    const auto [text, length] = reader->kept;
    if (text) {
        memcpy(reader->kept_text, text, length);
        reader->kept_text[length] = '\0';
        reader->kept.text = nullptr;
    }
    return reader->kept_text;
}

White WhiteUpTo(SourceReader *reader, const char *text) {
    const White white = WhiteOfBlock(reader, text - reader->Block());
    return {reader->white.blanks + white.blanks, reader->white.tabs + white.tabs};
}

void LeaveOutWhite(SourceReader *reader, const char *text, size_t count) {
    const White white = CountWhite(text, count);
    reader->white.blanks -= white.blanks;
    reader->white.tabs -= white.tabs;
}

int NextBytes(SourceReader *reader, char *bytes, int *count) {
    const RawPiece piece = FindPiece(reader);
    memcpy(bytes, piece.text, piece.bytes);
    reader->begin += piece.bytes;
    *count = static_cast<int>(piece.bytes);
    return piece.bytes > 0;
}

Piece NextOddPiece(SourceReader *reader, SourceLine *line) {
    const auto [begin, raw_bytes, feed] = FindPiece(reader);
    char *text = begin;
    size_t bytes = raw_bytes;
    reader->begin += bytes;
    reader->cut = reader->begin;
    reader->behind_cut = text[bytes];
    text[bytes] = '\0';
    const bool filled = !feed && bytes == kMaxPiece;
    if (*text < 0) {
        const int skipped = LeadingHighBytes(text);
        bytes -= skipped;
        text += skipped;
    }
    KeptText(reader); // its last byte may be the one ahead
    text[-1] = '\0';
    const size_t length = reader->has_nul ? strlen(text) : bytes;
    const int origin = static_cast<int>(text - reader->Block());
    const int with_end = static_cast<int>(length);
    *line = {text, with_end, WithoutLineEnd(text, with_end), origin, reader->masks};
    const Piece piece = filled                                ? (length < bytes ? Piece::kLine : Piece::kTooLong)
                        : feed || *text == '\t' || *text > 11 ? Piece::kLine
                                                              : Piece::kEnd;
    if (reader->use == MaskUse::kCode) { // only the text of a line counts
        const size_t counted = piece == Piece::kLine ? length : 0;
        LeaveOutWhite(reader, text + counted, bytes - counted);
    }
    reader->plain = feed && !reader->has_nul ? reader->end : 0; // no line feed stands ahead of what follows
    return piece;
}
