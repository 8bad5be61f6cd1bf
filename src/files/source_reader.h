// Reads a source file in big blocks and hands it out line by line, by the rules of fgets into a buffer of 2048 bytes.
//
// A line is not copied: it is a view into the block, with a NUL for the byte behind it, which is put back when the next one is
// asked for. What the bytes are is known beside them, 64 at a time (byte_masks.h).
#pragma once

#include <cstddef>

#include "files/byte_masks.h"
#include "files/white_space.h"

// Bytes of a piece at most.
inline constexpr int kMaxPiece = 2047;

// A line of the block that is still asked for when the next ones are read.
struct KeptLine {
    const char *text; // null where none is kept, or where it stands in kept_text
    int length;
};

struct SourceReader {
    static constexpr size_t kBlock = 64 * 1024;
    static constexpr size_t kFront = kMaskBytes; // ahead of the block

    int fd;
    int at_end;   // nothing more to read from fd
    int has_nul;  // the block in hand holds a NUL byte
    int failed;   // errno of a read that failed; the file ends there
    size_t size;  // of the file, as it was opened; 0 where it isn't told
    size_t got;   // bytes read
    size_t begin; // unread bytes of the block: from here
    size_t end;   // up to here
    size_t plain; // a line feed ahead of here ends a line that is a view as it stands; 0 where the next one isn't
    size_t cut;   // where a NUL stands for behind_cut, the byte behind the line in hand
    char behind_cut;
    MaskUse use;                              // what the masks are for
    int tabs_are_tokens;                      // the masks token and code hold the tabs too; set behind OpenSource, if at all
    White white;                              // of the bytes ahead of the block, but for those left out
    KeptLine kept;                            // the line asked for with KeepLine
    Classifier classify;                      // fills the masks; what for is the caller's choice at OpenSource and RewindSource
    ByteMasks masks[kBlock / kMaskBytes + 2]; // of the block, for the bytes up to end
    char kept_text[kMaxPiece + 1];
    char room[kFront + kBlock + kMaskBytes + kBytesBehind];

    char *Block() { return room + kFront; }
};

// A line in hand, until the next one is asked for. The byte behind it is NUL, the one ahead of it NUL or a line feed.
struct SourceLine {
    const char *text;       // with its line end, NUL terminated
    int bytes;              // of the text
    int length;             // of the text without its line end
    int origin;             // of its first byte in the masks
    const ByteMasks *masks; // of the block that it stands in
};

enum class Piece { kLine, kTooLong, kEnd };

// Opens a regular file, whose lines are for the use told; with modify only if it may be written to. Returns 0 and sets errno for
// anything else; a pipe or device is not waited for.
int OpenSource(SourceReader *reader, const char *name, MaskUse use, int modify);
void CloseSource(SourceReader *reader);
// Begins again at the first byte, for another use. Returns 0 if the file can't be read from there.
int RewindSource(SourceReader *reader, MaskUse use);

// Keeps the line in hand until another one is kept.
inline void KeepLine(SourceReader *reader, const SourceLine &line) {
    reader->kept = {line.text, line.bytes};
}
// The line kept last, as it stands in the file; empty where none was kept. It stays until another one is kept.
const char *KeptText(SourceReader *reader);

// Blanks and tabs of the source up to a byte of the line in hand, without those left out. For a source that is read for its code.
White WhiteUpTo(SourceReader *reader, const char *text);
// The white of a piece of the line in hand counts for nothing.
void LeaveOutWhite(SourceReader *reader, const char *text, size_t count);

// Reads the next piece into bytes as it stands, NULs too: up to and with the next line feed, at most kMaxPiece bytes. Returns 0 at
// the end of the file; *count is the number of bytes.
int NextBytes(SourceReader *reader, char *bytes, int *count);
// Hands out the next piece: up to and with the next line feed, or kMaxPiece bytes of a line that is longer (kTooLong). Leading
// bytes with the high bit set are left away; a NUL ends the text of the piece. A last piece without a line feed whose first byte,
// read as signed, is at most 11 and no tab counts as the end.
inline Piece NextPiece(SourceReader *reader, SourceLine *line);

// A piece that is the last one, has no line feed, begins with high bytes, may hold a NUL, or is still to be read.
Piece NextOddPiece(SourceReader *reader, SourceLine *line);

// Every line of every file comes through here.
inline Piece NextPiece(SourceReader *reader, SourceLine *line) {
    char *block = reader->Block();
    block[reader->cut] = reader->behind_cut;
    const size_t begin = reader->begin;
    const ByteMasks *masks = reader->masks + begin / kMaskBytes;
    size_t feed = begin; // of the next line feed
    if (uint64_t feeds = masks->feed >> begin % kMaskBytes) {
        feed += static_cast<size_t>(std::countr_zero(feeds));
    } else {
        do {
            feeds = (++masks)->feed;
        } while (!feeds);
        feed = static_cast<size_t>(masks - reader->masks) * kMaskBytes + static_cast<size_t>(std::countr_zero(feeds));
    }
    char *text = block + begin;
    if (feed >= reader->plain || feed - begin >= kMaxPiece || *text < 0) {
        SourceLine odd; // so that the other lines need no place in memory
        const Piece piece = NextOddPiece(reader, &odd);
        *line = odd;
        return piece;
    }
    const size_t behind = feed + 1;
    reader->begin = behind;
    reader->cut = behind;
    reader->behind_cut = block[behind];
    block[behind] = '\0';
    const int length = static_cast<int>(feed - begin);
    *line = {text, length + 1, length - (text[length - 1] == '\r'), static_cast<int>(begin), reader->masks};
    return Piece::kLine;
}
