// What the command line's handlers share; nobody else includes this.
//
// A switch is a row of the table in command_line.cpp: its letter, the flags it always sets, and a handler for what depends on its
// parameter. Handlers whose sub-letters only set flags are tables themselves.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

struct Globals;

using Flag = int Globals::*;

struct FlagRow {
    char letter;
    Flag flags[5]; // set to 1; a null ends the list early
};

// Sets all flags up to the first null.
void SetFlags(std::span<const Flag> flags, Globals *G);
// Sets the flags of the letter's row. False when no row has the letter.
bool SetRowFlags(std::span<const FlagRow> rows, char letter, Globals *G);

// The letter in an argument like "-cFlist.txt" or "-cF" that takes what follows as its parameter; null when none does.
const char *LetterWithParameter(const char *argument);
// Writes a message and ends the process: the end of every wrong switch.
[[noreturn, gnu::format(printf, 3, 4)]] void EndWithError(Globals *G, int status, const char *fmt, ...);
// Copies length bytes of a switch's parameter. One that doesn't fit its field ends the process: half a path is another path.
void StoreParameter(std::span<char> field, const char *text, size_t length, char letter, Globals *G);
// True for an existing file that the run measures or may measure: a source by its extension, a file argument, the list of -F. The
// shell hands such names to a switch that writes when a parameter is forgotten: "-O *.c".
bool IsSourceOrInput(const char *path, Globals *G);
// The two names of "old.dat, new.dat", without the blanks around them. False without a comma.
bool SplitBaselines(const char *names, std::string_view *older, std::string_view *newer);
// The number at the start of a text, 0 when there is none, clipped to low..high.
int ClippedNumber(const char *text, int low, int high);

// A parameter like "File CFG my.cfg".
struct FileForm {
    char first[16];   // cut: only compared
    char type[16];    // the second word; cut too; empty when there is none
    const char *name; // all behind it, inside the parameter
    size_t length;    // of the name, up to a line end
};
FileForm SplitFileForm(const char *parameter);

// The handlers. The parameter is empty for a switch that takes none.
void SwitchAnalysis(const char *parameter, Globals *G);     // -f
void SwitchDecharacter(const char *parameter, Globals *G);  // -D
void SwitchExtract(const char *parameter, Globals *G);      // -E
void SwitchReadOptions(const char *parameter, Globals *G);  // -R
void SwitchNoticeForm(const char *parameter, Globals *G);   // -N
void SwitchTotals(const char *parameter, Globals *G);       // -T
void SwitchSort(const char *parameter, Globals *G);         // -k
void SwitchFileSummary(const char *parameter, Globals *G);  // -s
void SwitchTopMargin(const char *parameter, Globals *G);    // -B
void SwitchLineLength(const char *parameter, Globals *G);   // -L
void SwitchLeftMargin(const char *parameter, Globals *G);   // -M
void SwitchPageLength(const char *parameter, Globals *G);   // -P
void SwitchTitle(const char *parameter, Globals *G);        // -S
void SwitchHelp(const char *parameter, Globals *G);         // -h
void SwitchShowSettings(const char *parameter, Globals *G); // -y
void SwitchFileList(const char *parameter, Globals *G);     // -F
void SwitchOutputFile(const char *parameter, Globals *G);   // -O
void SwitchRecursive(const char *parameter, Globals *G);    // -r
void SwitchUserFile(const char *parameter, Globals *G);     // -u
void SwitchWork(const char *parameter, Globals *G);         // -w
void SwitchExtended(const char *parameter, Globals *G);     // -x

// The option string of getopt: a colon marks a switch that needs a parameter.
inline constexpr const char *kSwitchLetters = "AabB:cCD:dE:ef:F:h:Hik:lmnN:opM:O:P:L:S:qr:R:sT:u:vw:x:XWxy";
