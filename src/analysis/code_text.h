// Small helpers on source text: the next code character, the next token, comments and blanks taken away.
// A line is NUL terminated and keeps its line end. Texts that are rewritten are rewritten in place.
#pragma once

#include <span>

#include "run/text.h"

// The next code character behind p: blanks, tabs and /* */ comments are skipped. LF ahead of a // comment; LF, CR or NUL at the
// line's end, also inside a comment that doesn't close.
char NextChar(const char *p);
// As NextChar, but where it stands. A // comment is told by the pointer to its first "/".
const char *NextCharAt(const char *p);
// True if ch stands in code from p on, ahead of the line's end, comments stepped over; false too when a comment doesn't close.
bool FindCodeChar(const char *p, char ch);
// True if ch is the only significant character of a line, blanks, ";" and comments behind it aside.
bool SingleChar(const char *line, char ch);
// True for a comment that says that a case falls through on purpose: "fall through", "drop thru", ... length is that of the line;
// the 17 bytes behind it must be readable.
bool SpeaksOfFallingThrough(const char *line, int length);
// True if the text, up to NUL or LF, holds no lower case letter; an empty text counts.
bool IsUpperCase(const char *text);
// The index in front of the blanks and tabs that end at i; -1 at the line's begin.
int OverBlanks(const char *line, int i);
// The next token from index on, ended by a blank, "{", ":", "(", ";", ")", "/" or a line end, after one comment. Null if it doesn't
// begin with a letter, "_" or "~", or at a line end or a //; out is then not to be read as a name. GetNextCodeToken also skips "{"
// and "(" ahead of it and returns it whatever it begins with; GetNextRawToken ends it only at white space.
const char *GetNextToken(const char *line, int index, std::span<char> out);
const char *GetNextCodeToken(const char *line, int index, std::span<char> out);
const char *GetNextRawToken(const char *line, int index, std::span<char> out);
// The index at which GetNextToken begins to copy; index itself where it gives up. The token ends strlen(out) behind it.
int TokenIndex(const char *line, int index);
// The index behind the parentheses that follow the word which ends at index, at the line's end if they don't close on it; index
// itself if none follow.
int BehindArguments(const char *line, int index);
// Splits the text at the delimiters and joins the pieces with one blank.
void StripChars(char *text, const char *delimiters);
// The same at blanks, tabs and line ends, each piece dropped that is a substring of other.
void StripStrings(char *text, const char *other);
// Copies text without line ends, tabs and "{", with a blank behind every ",".
void Strip_nrt(const char *text, std::span<char> out);
// Takes blanks and tabs away, and the words class and typename: "template < class T, typename U >" becomes "template<T,U>"; one
// blank stays behind operator.
void FormatTemplateLine(char *text);
// 1 plus the commas outside < >; 1 for an empty text, 0 for null.
int CountParents(const char *text);
// Takes the first /* */ comment away, an unclosed one not; cuts at the first //. Neither knows strings.
void StripCComment(char *text);
void StripCPPComment(char *text);
// Takes all comments away that don't stand in strings, with the blanks between one and a ")"; one that doesn't close goes up to the
// end. With in_comment the text begins inside a /* */ comment.
void StripComments(char *text, int in_comment);
// Moves the text left over its leading blanks and tabs.
void Lefttrim(char *text);
// Takes a trailing LF or CR LF away.
void stripLF(char *text);
