// The heading of a class: its name, qualified by what stands around it, and its bases.
//
// What a heading's keyword decides is in keyword_actions.cpp; the lines that go on from an earlier one are taken up in
// captures.cpp.
#include <algorithm>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/parse_line.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

constexpr const char *kHeadingNoise = "{}; \n\r";

int SkipBlanks(const char *line, int index) {
    return static_cast<int>(Ltrim(line + index) - line);
}

// Where the name begins at or behind index; -1 when it can only stand on the next line.
int BeginOfName(const char *line, int index) {
    index = SkipBlanks(line, index);
    if (line[index] == '/' && line[index + 1] == '*') { // class /* exported */ Foo
        const char *close = strstr(line + index + 2, "*/");
        if (!close) {
            return -1;
        }
        index = SkipBlanks(line, static_cast<int>(close + 2 - line));
    }
    return isfirstchar(line[index]) ? index : -1;
}

// The index behind the name. Blanks between "<" and ">" belong to it: class Stack<int *, 4> : Base
int EndOfName(const char *line, int index) {
    constexpr static CharSet kEnds(" \t({};:\n\r", true);
    while (!kEnds.Has(line[index])) {
        if (line[index] == '<') {
            index += static_cast<int>(strcspn(line + index, ">\r\n"));
            index += line[index] == '>';
        } else {
            ++index;
        }
    }
    return index;
}

const char *BehindLast(const char *name, char separator) {
    const char *last = strrchr(name, separator);
    return last ? last + 1 : nullptr;
}

// Puts the own names of the enclosing classes in front, the outermost first.
void AppendEnclosing(int in_namespace, Globals *G) {
    const int stored = std::min(G->class_index, kNestingLimit);
    for (int i = 0; i < stored; ++i) {
        const char *outer = G->class_stack[i].classname;
        const char *colon = BehindLast(outer, ':');
        const char *dot = BehindLast(outer, '.');
        if (in_namespace ? colon != nullptr : G->is_cpp) {
            AppendText(G->classname, colon ? colon : outer);
            AppendText(G->classname, "::");
        } else if (!in_namespace || dot) {
            AppendText(G->classname, dot ? dot : outer);
            AppendText(G->classname, ".");
        }
    }
}

void QualifyName(const char *name, Globals *G) {
    const int in_namespace = G->namespace_flag && isfirstchar(*G->namespace_name) && !strstr(name, "::") && !strchr(name, '.');
    if (in_namespace) {
        CopyText(G->classname, G->namespace_name);
        AppendText(G->classname, G->is_java || G->is_cs ? "." : "::");
    }
    AppendEnclosing(in_namespace, G);
    if (!AppendText(G->classname, name)) { // a name without its scopes is better than scopes without a name
        CopyText(G->classname, name);
    }
}

// What TidyName takes away stands in few names.
bool IsTidy(const char *name) {
    static constexpr CharSet kUntidy("/{}; \t\n\r", true);
    while (!kUntidy.Has(*name)) {
        ++name;
    }
    return *name == '\0';
}

void TidyName(Globals *G) {
    G->class_start_white = WhiteSoFar(G);
    G->class_start_chars = G->file_chars;
    if (IsTidy(G->classname)) {
        return;
    }
    StripCComment(G->classname);
    StripCPPComment(G->classname);
    StripChars(G->classname, kHeadingNoise);
    FormatTemplateLine(G->classname);
    Lefttrim(G->classname);
    Rtrim(G->classname);
}

} // namespace

const char *SeparatorBehind(const char *outer, const Globals *G) {
    const size_t length = strlen(outer);
    const bool unnamed = length > 1 && outer[length - 1] == ':'; // a namespace without a name in a: a::
    return length == 0 || unnamed ? "" : G->is_java || G->is_cs ? "." : "::";
}

void NameClass(const char *outer, const char *name, Globals *G) {
    CopyText(G->classname, outer);
    if (!AppendText(G->classname, SeparatorBehind(outer, G)) || !AppendText(G->classname, name)) {
        CopyText(G->classname, name);
    }
    G->classname_pending = 0;
    TidyName(G);
}

void GetClassname(const char *line, int col, Globals *G) {
    ClearText(G->classname);
    if (!line || G->template_beg_flag) {
        return;
    }
    if (col < 0 || static_cast<size_t>(col) > strlen(line)) {
        Message(G, "  Error: Internal Error, GetClassname... Aborting\n         Line: %s\n", line);
        return;
    }
    LineText name;
    for (int index = col;;) {
        const int begin = BeginOfName(line, index);
        G->classname_pending = begin < 0;
        if (begin < 0) {
            G->line_wants |= kWantsHead;
            return;
        }
        const int end = EndOfName(line, begin);
        if (line[end] == ';') {
            G->forward_decl_flag = 1;
        }
        CopyPart(name, line + begin, static_cast<size_t>(end - begin));
        if (!is_macro(name, G)) {
            break;
        }
        index = BehindArguments(line, end);
        if (index > end) { // class EXPORT(x) Foo: its parentheses begin no function
            G->paren_skip = G->local_paren + 1;
        }
    }
    QualifyName(name, G);
    TidyName(G);
}

void FormatInheritline(char *text, Globals *G) {
    if (*text == '\0') { // most classes have no bases
        return;
    }
    char *implements = G->is_java ? strstr(text, "implements") : nullptr;
    if (implements) { // the interfaces are no base classes, on whichever side of extends they stand
        const char *extends = strstr(text, "extends");
        if (extends && extends > implements) {
            memmove(text, extends, strlen(extends) + 1);
        } else {
            *implements = '\0';
        }
    }
    if (char *where = G->is_cs ? strstr(text, "where") : nullptr) { // class A<T> : B where T : new()
        *where = '\0';
    }
    StripStrings(text, "public private protected virtual extends");
    StripChars(text, kHeadingNoise);
    FormatTemplateLine(text);
    Lefttrim(text);
    Rtrim(text);
}

bool CheckMultipleInheritance(const char *text) {
    return text[strcspn(text, ",<")] == ',';
}
