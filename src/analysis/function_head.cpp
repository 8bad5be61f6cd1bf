// Function heads: from a "(" back to the name in front of it.
//
// Nothing is parsed. The text in front of the parenthesis is read backwards as far as a name goes, and a few tests judge it;
// whether the candidate is a definition, a prototype or a call is decided later, at the "{" or ";" behind it. The names of C++
// operators are read forwards from the word operator: see function_operator.cpp.
#include "analysis/function.h"

#include <algorithm>
#include <string_view>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

// A line, and the place that a name is looked for in front of.
struct Head {
    const char *line;
    int length;
    int col;
    const char *op; // "operator" in the line, or null; always null in C
};

// A text that is filled from its end: what is read backwards then stands the right way round.
struct BackwardText {
    LineText text;
    int begin = sizeof(LineText) - 1;
    bool has_types = false; // it holds a ">"
    BackwardText() { text[begin] = '\0'; }
    void Put(char c) {
        if (begin > 0) {
            text[--begin] = c;
        }
    }
};

enum Verdict { kNothing, kSettled, kTryAgain };

Head ReadHead(const char *line, int col, const Globals *G) {
    const int length = static_cast<int>(strlen(line));
    return {line, length, std::clamp(col, 0, length), G->is_c ? nullptr : strstr(line, "operator")};
}

char NextBehindCol(const Head &head) {
    return head.col < head.length ? NextChar(head.line + head.col) : '\0';
}

// int f // the name is in front of this
// (int a)
void MoveInFrontOfComment(Head &head) {
    if (!strchr(head.line + head.col, '/')) { // most lines
        return;
    }
    for (int i = head.col; i > 0; --i) {
        if (head.line[i] == '/' && head.line[i - 1] == '/') {
            head.col = i - 1;
            return;
        }
    }
}

// int (*name(int a))(char b): the name stands behind this parenthesis, in front of the next one. 0 for a cast or a call through a
// pointer, where there is no other one on the line.
int EnterPointerDeclarator(Head &head) {
    ++head.col;
    if (strchr(head.line, '(') == strrchr(head.line, '(')) {
        return 0;
    }
    do {
        ++head.col;
    } while (head.col < head.length && head.line[head.col] != '(' && NextBehindCol(head) != '*');
    head.col = std::min(head.col, head.length);
    return 1;
}

// Copies from a ">" back to the nearest "<", without blanks: f<a, b>( reads f<a,b>. The index in front of it.
int PutTemplatePart(const char *line, int i, BackwardText &name) {
    while (i >= 0) {
        const char c = line[i--];
        if (!IsBlankOrTab(c)) {
            name.Put(c);
        }
        if (c == '<') {
            break;
        }
    }
    return i;
}

// The index in front of the comment whose "/" is at i, and of the blanks ahead of it; -1 when it began on an earlier line.
int OverComment(const char *line, int i) {
    int open = -1;
    for (i -= 3; i >= 0 && !(line[i] == '*' && line[i + 1] == '/'); --i) {
        if (line[i] == '/' && line[i + 1] == '*') {
            open = i;
        }
    }
    return OverBlanks(line, open - 1);
}

// Blanks round "::" are no part of the name: A ::f, A:: f and A :: f read A::f. Returns the index where the reading goes on.
int JoinQualifier(const char *line, int i, BackwardText &name) {
    if (i > 0 && line[i] == ':' && line[i - 1] == ' ') {
        name.Put(':');
        --i;
        while (i >= 0 && line[i] == ' ') {
            --i;
        }
    }
    const int before = i >= 0 && IsBlankOrTab(line[i]) ? OverBlanks(line, i) : 0;
    if (before > 0 && line[before] == ':' && line[before - 1] == ':') {
        name.Put(':');
        name.Put(':');
        return OverBlanks(line, before - 2);
    }
    return i;
}

void ReadBackwards(const char *line, int i, BackwardText &name) {
    constexpr static CharSet kStops(" \t(*&", true);
    while (i >= 0 && !kStops.Has(line[i])) {
        if (line[i] == '>') {
            name.has_types = true;
            i = PutTemplatePart(line, i, name);
        } else if (line[i] == '/' && i > 0 && line[i - 1] == '*') {
            i = OverComment(line, i);
        } else {
            name.Put(line[i]);
            i = JoinQualifier(line, i - 1, name);
        }
    }
}

// The index in front of the letters, digits and "_" that end at i.
int InFrontOfWord(const char *line, int i) {
    while (i >= 0 && kWordChars.Has(line[i])) {
        --i;
    }
    return i;
}

// A name that is one word goes no further: neither a class nor a type stands in front of it.
bool IsWholeName(const char *line, int in_front) {
    if (in_front < 0 || line[in_front] == '(' || line[in_front] == '*' || line[in_front] == '&') {
        return true;
    }
    const int before = OverBlanks(line, in_front);
    return before < in_front && (before < 1 || line[before] != ':' || line[before - 1] != ':');
}

// char*f, read as one word, is f.
void KeepLastWord(char *name) {
    const int length = static_cast<int>(strlen(name));
    for (int i = length - 1; i > 0; --i) {
        const int open = name[i] == '>' ? OpenAngle(name, i) : -1;
        if (open >= 0) {
            i = open;
        } else if (name[i] == '&' || name[i] == '*' || name[i] == ' ') {
            memmove(name, name + i + 1, length - i);
            return;
        }
    }
}

// 0 if nothing is to be recorded.
int ReadName(Head &head, Globals *G) {
    const char *paren = head.op ? strchr(head.line, '(') : nullptr;
    if (head.op && (!paren || head.op < paren)) {
        ReadOperatorName(head.line, head.op, G->funcname);
        return 1;
    }
    MoveInFrontOfComment(head);
    if (NextBehindCol(head) == '*' && !EnterPointerDeclarator(head)) {
        return 0;
    }
    int i = head.col - 1;
    while (i >= 0 && (IsBlankOrTab(head.line[i]) || head.line[i] == ')' || head.line[i] == '\r')) {
        --i;
    }
    const int in_front = InFrontOfWord(head.line, i);
    if (IsWholeName(head.line, in_front)) { // most of them
        const size_t length = std::min<size_t>(i - in_front, sizeof G->funcname - 1);
        memcpy(G->funcname, head.line + in_front + 1, length);
        G->funcname[length] = '\0';
        return 1;
    }
    BackwardText name;
    ReadBackwards(head.line, i, name);
    CopyText(G->funcname, name.text + name.begin);
    if (name.has_types) { // only their text can hold what splits a name
        KeepLastWord(G->funcname);
    }
    return 1;
}

void DropCandidate(Globals *G) {
    G->funcname_flag = 0;
    G->param_list_flag = 0;
    ClearText(G->funcname);
    ClearText(G->params);
}

// unsigned (x), while (x): a word of the language stands in front of the parenthesis.
bool IsWordOfLanguage(const char *name) {
    static constexpr std::string_view kWords[] = {"unsigned", "char",   "short", "int", "long", "float", "double",
                                                  "void",     "signed", "while", "if",  "else", "for"};
    return std::find(std::begin(kWords), std::end(kWords), std::string_view(name)) != std::end(kWords);
}

bool IsRefused(Globals *G) {
    if (!G->assignment_flag && IsWordOfLanguage(G->funcname)) {
        if (G->debug) {
            Message(G,
                    "*** Debug:\n  Warning: Line No. %d\n"
                    "           Function name is a system type - %s\n"
                    "           This may occur if a macro name is equivalent\n"
                    "           to a function name.  Functional analysis has\n"
                    "           been skipped by TLY.\n\n",
                    G->file_line_no, G->funcname);
        }
        return true;
    }
    return G->is_cs && strchr(G->funcname, '[');
}

// int f EXPORT
// (int a): a listed word between name and parenthesis. A word that takes arguments itself hides no name.
int StepOverMacro(Head &head, const Globals *G) {
    const char *found = strstr(head.line, G->funcname);
    const int length = static_cast<int>(strlen(G->funcname));
    if (!found || NextChar(found + length - 1) == '(' || head.col - length <= 0 || G->catch_flag) {
        return 0;
    }
    head.col -= length;
    return 1;
}

void HoldCandidate(const Head &head, Globals *G) {
    if (IsUpperCase(G->funcname)) { // few names
        LineText token;
        const char *first = GetNextToken(head.line, 0, token);
        G->macro_like_name = first && strcmp(first, G->funcname) == 0;
    }
    G->funcname_flag = 1;
    G->param_list_flag = 1;
    G->local_void_param = 0;
    G->local_params = 0;
    G->local_return = 0;
}

Verdict TryHead(Head &head, Globals *G) {
    ClearText(G->funcname);
    ClearText(G->params);
    if (!ReadName(head, G) || !ValFunctionName(G, head.op)) {
        return kNothing;
    }
    if (IsRefused(G)) {
        DropCandidate(G);
        return kSettled;
    }
    if (is_macro(G->funcname, G)) {
        if (StepOverMacro(head, G)) {
            return kTryAgain;
        }
        DropCandidate(G);
        G->func_template = 0;
        ClearText(G->func_template_text);
        return kSettled;
    }
    HoldCandidate(head, G);
    return kSettled;
}

// A name that wouldn't fit with its prefix stays as it is.
void PutInFront(const char *prefix, const char *separator, Globals *G) {
    if (G->reading & kBraces) {
        separator = SeparatorBehind(prefix, G);
    }
    const size_t outer = strlen(prefix);
    const size_t joint = strlen(separator);
    const size_t size = strlen(G->funcname) + 1;
    if (outer + joint + size <= sizeof G->funcname) {
        memmove(G->funcname + outer + joint, G->funcname, size);
        memcpy(G->funcname, prefix, outer);
        memcpy(G->funcname + outer, separator, joint);
    }
}

// f in a class body is ns::A::f, as the class carries its namespace; f elsewhere is ns::f, and ns::f stays.
void QualifyByNamespace(Globals *G) {
    if (!G->namespace_flag || !isfirstchar(*G->namespace_name)) {
        return;
    }
    if (const char *colon = strchr(G->funcname, ':')) {
        const size_t length = colon - G->funcname;
        if (strlen(G->namespace_name) != length || strncmp(G->namespace_name, G->funcname, length) != 0) {
            PutInFront(G->namespace_name, G->is_cs ? "." : "::", G);
        }
        return;
    }
    const int in_class = G->class_flag && isfirstchar(*G->classname);
    PutInFront(in_class ? G->classname : G->namespace_name, G->is_java || G->is_cs ? "." : "::", G);
}

} // namespace

void GetFunction(const char *line, int col, Globals *G) {
    G->macro_like_name = 0;
    G->if_directive = 0;
    if (!line || G->instantiate_colon_flag) { // A::A() : b(1), c(2) {
        return;
    }
    Head head = ReadHead(line, col, G);
    Verdict verdict;
    do {
        verdict = TryHead(head, G);
    } while (verdict == kTryAgain);
    if (verdict == kSettled) {
        QualifyByNamespace(G);
    }
}

void QualifyByClass(Globals *G) {
    const char *separator = G->is_java || G->is_cs ? "." : G->is_cpp ? "::" : nullptr;
    if (separator && !strstr(G->funcname, separator)) {
        PutInFront(G->classname, separator, G);
    }
}

void QualifyFunction(Globals *G) {
    if (!G->class_flag) {
        QualifyByNamespace(G);
    } else if (!G->is_c) { // operator A::B and the I.f of another interface too
        PutInFront(G->classname, SeparatorBehind(G->classname, G), G);
    }
}

int ValFunctionName(Globals *G, const char *op) {
    Rtrim(G->funcname);
    if (op && !G->is_c) {
        return isfirstchar(*G->funcname) || *G->funcname == ':';
    }
    if (*G->funcname == '\0') {
        return 1;
    }
    const char last = G->funcname[strlen(G->funcname) - 1];
    return IsLetterOrDigit(last) || last == '~' || last == '_' || (!G->is_c && (last == ':' || last == '>' || last == '<'));
}
