// The list of files of a run: from arguments, a directory walk or a list file.
#pragma once

#include <span>
#include <sys/stat.h>

struct Globals;

// Gathers all files into file_list, headers first. first_argument is the index in argv of the first file argument. Returns their
// number. With list_files_only, outside XML, it prints the names and ends the process.
int BuildFileList(int first_argument, Globals *G);
// Walks a directory tree and lists the files with one of the given extensions (separated by blanks, dots, commas or stars). Returns
// 0 after an unreadable directory, which ends the walk.
int ReadDir(const char *directory, const char *extensions, Globals *G);
// Lists one file with its date and size, among the headers when its extension starts with "h" or "H". The file that the report goes
// to is left out. Returns 0, with a message, when memory is out.
int AddSourceFile(const char *name, const char *extension, Globals *G);
// Replaces the environment variables of a -F line ("%NAME%"). Returns out, or line itself when nothing was replaced. An unknown
// variable gives a message and ends the replacing; one that never ends or doesn't fit gives a message and line itself.
const char *ExpandEnvarString(const char *line, std::span<char> out, Globals *G);
// True when the pattern filter leaves the name out.
bool FilenamePatternMatch(const char *name, const Globals *G);
// Converts to upper or lower case in place and returns the text.
char *ChangeCase(char *text, int upper);
// Stores a file's modification time and size in G; 0 for both where status is null: the file isn't there.
void SetFileDateSize(const struct stat *status, Globals *G);
