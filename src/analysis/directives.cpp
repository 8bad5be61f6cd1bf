// Preprocessor lines. Conditional code isn't evaluated: all branches are scanned as code, and so is the text of a macro.
#include "analysis/directives.h"

#include "analysis/entities.h"
#include "analysis/keyword_actions.h"
#include "analysis/scan.h"
#include "analysis/scopes.h"
#include "files/source_reader.h"
#include "report/state_line.h"
#include "run/char_tests.h"
#include "run/globals.h"

namespace {

bool IsWord(const char *text, const char *word) {
    const size_t length = strlen(word);
    const char *behind = text + length;
    return strncmp(text, word, length) == 0 && (IsSpace(*behind) || OpensComment(behind));
}

} // namespace

bool IsDefine(const char *word) {
    return IsWord(word, "define");
}

bool IsRegion(const char *word) {
    return IsWord(word, "region") || strncmp(word, "region/", 7) == 0;
}

bool EnterMacro(const char *word, Globals *G) {
    const char *name = Ltrim(word + strlen("define"));
    const size_t length = strcspn(name, " \t(\n\r");
    CopyPart(G->mname, name, length);
    ++G->macro_count;
    AddMacro(G->mname, G->file_line_no, G);
    return name[length] == '('; // #define MAX(a, b) ...
}

namespace {

void Define(const char *word, Globals *G) {
    ++G->define_count;
    G->define_flag = 1;
    if (!EnterMacro(word, G)) {
        return;
    }
    G->macro_flag = 1;
    if (G->macro_metrics && G->quality_notices) {
        MacroBegin(G->mname, G);
    } else if (G->macro_metrics) {
        EmitMacro(G->mname, G);
    }
}

} // namespace

// A "#" at the start of a line or behind a blank opens a directive; the scan goes on at its word.
void OnHash(Scan &scan, Globals *G) {
    G->preproc_flag = 1;
    const int hash = scan.index;
    if (hash > 0 && !IsBlankOrTab(scan.line[hash - 1])) { // a##b
        return;
    }
    ++G->preproc_count;
    const char *word = Ltrim(scan.line + hash + 1);
    GoOnBehind(scan, static_cast<int>(word - scan.line) - 1);
    if (scan.index > hash) { // the blanks ahead of its word count for nothing
        LeaveOutWhite(G->source, scan.line + hash + 1, scan.index - hash);
    }
    NoteSpan(scan, hash, scan.index, kPassedOver);
    if ((G->reading & kConditionals) && (G->reading & kBraces)) {
        FollowBranch(word, G);
    }
    if (IsDefine(word)) {
        Define(word, G);
    } else if (IsWord(word, "error")) {
        G->error_flag = 1;
    } else if (IsWord(word, "include")) {
        ++G->include_count;
    } else if (IsRegion(word)) { // "#region Don't touch": its text is prose
        LeaveOutWhite(G->source, scan.line + scan.index + 1, scan.length - scan.index - 1);
        GoOnBehind(scan, scan.length - 1);
    } else if (word[0] == 'i' && word[1] == 'f') { // if, ifdef, ifndef
        G->if_directive = 1;
    }
}

void EndMacroRegion(Globals *G) {
    G->macro_flag = 0;
    if (G->macro_metrics && G->quality_notices) {
        MacroEnd(G->mname, G);
    }
}
