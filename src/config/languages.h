// The language table: which extensions belong to which language, and what the name of a file says about it.
#pragma once

#include "run/records.h"

struct Globals;

inline constexpr int kMaxExtensions = 81; // slots of a language
inline constexpr int kMaxLanguages = 1024;

// Indices of the built-in languages in ulpi.
enum LanguageIndex { kOther, kC, kCHeader, kCpp, kCppHeader, kJava, kCs };

struct Ulpi {
    int id;                           // the record's index in ulpi
    char name[41];                    // shown name
    char *extensions[kMaxExtensions]; // without the dot; owned; null ends the list unless all slots are used
};

// Creates the seven built-in languages from the extension lists of the settings.
void AddBuiltInLanguages(Globals *G);
// Adds a language with its comma separated extensions. Returns the new index; with a message, the highest index there is when the
// table is full or memory is out.
int addUlpi(const char *name, const char *extensions, Globals *G);
// Overwrites the record's extensions from slot 0 on; slots behind the new list keep what they held. Returns the highest slot
// written, -1 for a null record, a null text or an empty list.
int parseUlpiExtensions(Ulpi *record, const char *extensions, Globals *G);
// Frees all languages.
void clearUlpi(Globals *G);
// Rebuilds extension_list: the extensions of all languages, in table order.
void buildExtensions(Globals *G);
// The extension of a name, without the dot, in G's extension field; version-extended names ("a.c@@/main/3") are understood. Null
// when the name has none.
const char *getExtension(const char *name, Globals *G);
// Sets the language flags for a file name and, with count, counts the file. Returns the language index, -1 for an unknown
// extension.
int WhichFile(const char *name, Globals *G, int count);
// The group of the language flags: of the file in hand. A C header has a second flag, of C or C++, and is a header.
LanguageGroup LanguageInHand(const Globals *G);
// The language index of an extension, or -1.
int findUlpi(const char *extension, const Globals *G);
// True if the extension is in the comma separated list, or if extensions aren't validated at all.
bool valid_ext(const char *extension, const char *list, int case_flag, const Globals *G);
