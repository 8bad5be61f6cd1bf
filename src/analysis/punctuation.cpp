// The handlers of parentheses, braces and ";".
#include "analysis/parse_line.h"
#include "analysis/scan.h"
#include "run/globals.h"

void OnOpenParen(Scan &scan, Globals *G) {
    ++G->open_paren;
    if (SingleChar(scan.line, '(')) {
        ++G->just_paren_count;
        scan.non_effective = 1;
    }
}

// A ")" too many, as conditional code leaves it, doesn't poison the rest of the file: the counts are made even again.
void OnCloseParen(Scan &scan, Globals *G) {
    ++G->close_paren;
    if (G->close_paren > G->open_paren) {
        G->close_paren = G->open_paren;
    }
    if (SingleChar(scan.line, ')')) {
        ++G->just_paren_count;
        scan.non_effective = 1;
    }
}

void OnOpenBrace(Scan &scan, Globals *G) {
    ++G->open_braces;
    if (SingleChar(scan.line, '{')) {
        ++G->just_brace_count;
        scan.non_effective = 1;
    }
}

void OnCloseBrace(Scan &scan, Globals *G) {
    ++G->closebrace_count;
    if (G->closebrace_count > G->open_braces) {
        G->closebrace_count = G->open_braces;
        G->close_paren = G->open_paren;
    }
    if (SingleChar(scan.line, '}')) {
        ++G->just_brace_count;
        scan.non_effective = 1;
    }
}

void OnSemicolon(Scan &scan, Globals *G) {
    ++G->semicolon_count;
    scan.is_logical = 1;
}
