// Cleans and shows the texts of -E. Where literals and comments begin and end is the scanner's business.
#include "analysis/extraction.h"

#include <algorithm>

#include "report/forms.h"
#include "run/globals.h"

namespace {

void Append(ExtractedText &kept, const char *text, int count) {
    const int room = static_cast<int>(sizeof kept.estring) - 1 - kept.esi;
    count = std::clamp(count, 0, room);
    memcpy(kept.estring + kept.esi, text, count);
    kept.esi += count;
}

void ShowExtracted(const char *text, int line_number, const Globals *G) {
    if (*text) {
        PrintOnly(FreeTextMode(G), "  %6d: %s\n", line_number, Shown{text});
    }
}

// "%-5d items" begins with its conversion, not with the 5.
const char *BeginOfConversion(const char *text, const char *first) {
    const char *p = first;
    while (p > text && strchr("-+#*.", p[-1])) {
        --p;
    }
    return p > text && p[-1] == '%' ? p - 1 : first;
}

} // namespace

void ForgetExtracted(Globals *G) {
    G->string_text.esi = 0;
    G->comment_text.esi = 0;
}

void ExtractStringSpan(const char *text, int count, int closed, int line_number, Globals *G) {
    ExtractedText &kept = G->string_text;
    Append(kept, text, count);
    if (closed) {
        kept.estring[kept.esi] = '\0';
        ShowExtracted(ExtractString(kept.estring), line_number, G);
        kept.esi = 0;
    }
}

void ExtractCommentSpan(const char *text, int count, Globals *G) {
    Append(G->comment_text, text, count);
}

void ShowExtractedComment(int line_number, const Globals *G) {
    LineText text;
    CopyPart(text, G->comment_text.estring, G->comment_text.esi);
    ShowExtracted(G->comment_doc_mode ? ExtractComment(text) : ExtractString(text), line_number, G);
}

const char *ExtractString(char *text) {
    size_t length = strlen(text);
    while (length > 0 && !IsLetterOrDigit(text[length - 1])) {
        --length;
    }
    while (length > 1 && text[length - 2] == '\\' && text[length - 1] == 'n') {
        length -= 2;
    }
    text[length] = '\0';

    const char *first = text;
    while (*first && !IsLetterOrDigit(*first)) {
        ++first;
    }
    if (*first == 'n' && first > text && first[-1] == '\\') {
        ++first;
    } else if (*first) {
        first = BeginOfConversion(text, first);
    }
    while (IsBlankOrTab(*first) || *first == '\n') {
        ++first;
    }
    return first;
}

const char *ExtractComment(char *text) {
    Rtrim(text);
    return text;
}
