// Reads a source file in big blocks and hands it out line by line, by the rules of fgets into a buffer of 2048 bytes.
#pragma once

#include <cstddef>

// Bytes of a piece at most.
inline constexpr int kMaxPiece = 2047;

struct SourceReader {
    int fd;
    int at_end;   // nothing more to read from fd
    int has_nul;  // the block in hand holds a NUL byte
    int failed;   // errno of a read that failed; the file ends there
    size_t begin; // unread bytes of the block: from here
    size_t end;   // up to here
    char block[256 * 1024];
};

enum class Piece { kLine, kTooLong, kEnd };

// Opens a regular file; with modify only if it may be written to. Returns 0 and sets errno for anything else; a pipe or device is
// not waited for.
int OpenSource(SourceReader *reader, const char *name, int modify);
void CloseSource(SourceReader *reader);
// Reads the next piece into bytes as it stands, NULs too: up to and with the next line feed, at most kMaxPiece bytes. Returns 0 at
// the end of the file; *count is the number of bytes.
int NextBytes(SourceReader *reader, char *bytes, int *count);
// Reads the next piece into line, which holds kMaxPiece bytes and 17 more: up to and with the next line feed, or kMaxPiece bytes of
// a line that is longer (kTooLong). Leading bytes with the high bit set are left away; a NUL ends the text of the piece. *length is
// the length of the text; the byte behind it and the next 16 are NUL. A last piece without a line feed whose first byte, read as
// signed, is at most 11 and no tab counts as the end.
Piece NextPiece(SourceReader *reader, char *line, int *length);
