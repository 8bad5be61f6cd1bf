#include "analysis/line_counts.h"

#include "analysis/directives.h"
#include "analysis/entities.h"
#include "analysis/keywords.h"
#include "analysis/parse_line.h"
#include "analysis/scan.h"
#include "analysis/spans.h"
#include "files/source_reader.h"
#include "run/globals.h"

namespace {

// The line in hand, and whether the scanner has to look at it.
struct CountedLine : Scan {
    bool uncertain;
};

int Next(const CountedLine &line, uint64_t ByteMasks::*kind, int begin) {
    return NextByte(line.masks, kind, line.origin + begin, line.origin + line.length) - line.origin;
}

// A brace, and whether it is alone on its line. More "}" than "{" are made even again, as conditional code leaves them.
void CountBrace(const CountedLine &line, char brace, Globals *G) {
    if (brace == '{') {
        ++G->open_braces;
    } else if (++G->closebrace_count > G->open_braces) {
        G->closebrace_count = G->open_braces;
    }
    G->just_brace_count += IsJust(line, brace);
}

// A "#" at the start of a line or behind a blank opens a directive.
void CountDirective(CountedLine &line, Globals *G) {
    const char *hash = line.line + line.index;
    if (line.index > 0 && !IsBlankOrTab(hash[-1])) {
        return;
    }
    const char *word = Ltrim(hash + 1);
    line.index = static_cast<int>(word - line.line) - 1;
    if (IsRegion(word)) {
        line.index = line.length - 1;
    } else if (IsDefine(word)) {
        EnterMacro(word, G);
    }
}

void CountConstruct(CountedLine &line, char c, Globals *G) {
    switch (c) {
    case ';': ++G->semicolon_count; break;
    case '#': CountDirective(line, G); break;
    case 'f': CountLoop(line.line, line.index, G); break;
    default: CountBrace(line, c, G); break;
    }
}

// Goes through code from event to event, until a comment or a literal opens or the line ends.
void CountCode(CountedLine &line, Globals *G) {
    while (line.index < line.length) {
        const int event = Next(line, &ByteMasks::event, line.index);
        line.is_loc |=
            event > line.index && (line.index == line.first_nonblank || Next(line, &ByteMasks::visible, line.index) < event);
        line.index = event;
        if (event == line.length) {
            return;
        }
        const char c = line.line[event];
        if (c == '/') {
            if (OpenComment(line, G)) {
                return;
            }
            ++line.index;
            continue;
        }
        line.is_loc = 1;
        if ((c == '"' && OpenString(line, G)) || (c == '\'' && OpenCharLiteral(line, G))) {
            ++line.index;
            return;
        }
        if (!G->is_other && c != '"' && c != '\'') {
            CountConstruct(line, c, G);
        }
        ++line.index;
    }
}

void CountLiteralSpan(CountedLine &line, Globals *G) {
    const int begin = line.index;
    if (G->string_flag) {
        ScanString(line, G);
    } else {
        ScanCharLiteral(line, G);
    }
    CountLiteral(line, begin);
    ++line.index;
}

void WalkLine(CountedLine &line, Globals *G) {
    while (line.index < line.length) {
        if (G->c_comment) {
            ScanBlockComment(line, G);
            ++line.index; // the "/" of a "*/" is looked at as code
        } else if (G->cpp_comment) {
            return;
        } else if (G->string_flag | G->char_flag) {
            CountLiteralSpan(line, G);
        } else {
            CountCode(line, G);
        }
    }
}

// A parenthesis further on is taken for alone too where the line begins with one inside of a comment.
bool HasLoneParen(const CountedLine &line, const Globals *G) {
    const char c = line.line[line.first_nonblank];
    return (c == '(' || c == ')') && !G->is_other && IsJust(line, c);
}

void CountLine(CountedLine &line, Globals *G) {
    line.c_comment_line = G->c_comment;
    line.first_nonblank = Next(line, &ByteMasks::visible, 0);
    line.index = line.first_nonblank;
    line.blank = line.index == line.length;
    line.uncertain = HasLoneParen(line, G);
    WalkLine(line, G);
    G->file_blank += line.blank;
    G->file_loc += line.is_loc;
    G->file_comments += (line.c_comment_line && !line.blank) || G->cpp_comment;
    G->continuation = GoesOn(line.line, line.length, G);
    if (!G->continuation) {
        EndSpans(G);
    }
}

// Every line of a source, until one is uncertain. True if none is.
bool CountAll(SourceReader *reader, Globals *G) {
    SourceLine source;
    Piece piece;
    while ((piece = NextPiece(reader, &source)) == Piece::kLine) {
        ++G->file_line_no;
        CountedLine line{};
        line.line = source.text;
        line.number = G->file_line_no;
        line.length = source.length;
        line.masks = source.masks;
        line.origin = source.origin;
        CountLine(line, G);
        if (line.uncertain) {
            return false;
        }
    }
    return piece == Piece::kEnd;
}

} // namespace

bool CountLines(SourceReader *reader, Globals *G) {
    const FileCounters counters = *G;
    const int macros = G->macro_list.count;
    if (CountAll(reader, G) || !RewindSource(reader, MaskUse::kCode)) {
        return true;
    }
    ForgetMacros(macros, G);
    static_cast<FileCounters &>(*G) = counters;
    static_cast<LineState &>(*G) = LineState{};
    G->comment_star_index = -1;
    return false;
}
