// Reading the lines of a side file: settings, macros, the list of -F.
//
// Only a regular file is opened, so that a directory, a FIFO or a device in its place is refused at once and never waits. A piece
// is a line, or what of a longer line fits into the buffer; the rest of the line is the next piece. A piece keeps its line end. A
// NUL ends the text of its piece. A byte order mark at the head of the file is passed over.
#pragma once

#include <cstdio>
#include <span>

struct LineReader {
    FILE *file;         // null when nothing is open
    bool begun = false; // a piece has been read
};

// Opens a regular file for reading bytes, to be closed with fclose(). Null, with errno told, for anything else (EISDIR for a
// directory, EINVAL for other special files) or a file that can't be opened.
FILE *OpenRegularFile(const char *path);
// As OpenRegularFile, but takes a pipe or a terminal too: "find ... | tly -F/dev/stdin".
FILE *OpenFileOrStream(const char *path);
// Opens the reader. False, with errno told, as OpenRegularFile; the reader is then closed.
bool OpenLines(LineReader *reader, const char *path);
// Reads the next piece, at most one byte less than the buffer. A last piece without a line end is dropped when its first byte
// is below 12: what an editor or an old system left behind the last line is no text. False, with the buffer emptied,
// when there are no more.
bool NextLine(LineReader *reader, std::span<char> piece);
// Closes the reader; a closed one is left alone.
void CloseLines(LineReader *reader);
