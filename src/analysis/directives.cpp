// Preprocessor lines. Conditional code isn't evaluated: all branches are scanned as code.
#include "analysis/scan.h"
#include "run/text.h"

namespace {

int IsWord(const char *text, const char *word, const char *closers) {
    const size_t length = strlen(word);
    return strncmp(text, word, length) == 0 && text[length] != '\0' && strchr(closers, text[length]) != nullptr;
}

} // namespace

// A "#" at the start of a line or behind a blank opens a directive; the scan goes on at its word.
void OnHash(Scan &scan, Globals *) {
    const char before = scan.line[scan.index - 1];
    if (scan.index > 0 && !IsBlankOrTab(before)) {
        return;
    }
    const int hash = scan.index;
    const char *word = Ltrim(scan.line + hash + 1);
    scan.index = static_cast<int>(word - scan.line) - 1;
    NoteSpan(scan, hash, scan.index, kPassedOver);
    if (IsWord(word, "region", " \n\t\r/")) { // "#region Don't touch": its text is prose
        scan.white_end = scan.index;
        scan.index = scan.length - 1;
    }
}
