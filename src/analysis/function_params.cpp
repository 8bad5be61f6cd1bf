// The parameter text of a function: from the lines that were gathered to "(int a, char *b)", and how many parameters it holds.
#include "analysis/function.h"

#include "analysis/code_text.h"
#include "run/globals.h"

namespace {

bool IsOperator(const char *name) {
    return strcmp(name, "operator") == 0 || strstr(name, "::operator") != nullptr;
}

// A text that is packed in place: up to out it is, and what is still to be read stands behind.
struct Packing {
    char *out;
    const char *name;    // of the function
    char *end = nullptr; // behind the last ")"
    int count = 1;       // of parameters: one more than there are "," outside of < >
    int count_to_end = 1;
    int depth = 0;                     // "<" minus ">"
    bool brace = false, colon = false; // one was met
};

void Put(Packing &packing, char c) {
    *packing.out++ = c;
    if (c == ',') {
        packing.count += packing.depth <= 0;
    } else if (c == ')') {
        packing.end = packing.out;
        packing.count_to_end = packing.count;
    } else {
        packing.depth += (c == '<') - (c == '>');
    }
}

// True for the first "{" or ":" of the text, if the list stands ahead of it. The parentheses of "operator ()" come ahead of its
// parameters, so there a ":" ends nothing.
bool EndsList(Packing &packing, char c) {
    bool &met = c == '{' ? packing.brace : packing.colon;
    const bool first = !met;
    met = true;
    return first && packing.end && (c == '{' || !IsOperator(packing.name));
}

// What is put for white space in front of next. True if the text ends there.
bool PutWhite(Packing &packing, char next) {
    if (packing.out[-1] != '(' && next != '\0') {
        Put(packing, next == ')' ? ')' : ' ');
        return next == ')';
    }
    return next == '\0';
}

// A(int a) : b(a) { c(); keeps (int a), and ( int a,  int b ) is (int a, int b): a ")" behind a blank ends the text wherever it
// stands. Returns the number of parameters.
int Pack(std::span<char> params, const char *name) {
    static constexpr CharSet kSpecial(" \t\n\r){:<>,", true);
    Packing packing{.out = params.data(), .name = name};
    for (const char *p = SkipSpace(params.data());; ++p) {
        const char *begin = p;
        while (!kSpecial.Has(*p)) { // most of them
            ++p;
        }
        if (packing.out != begin) { // up to the first that is left out nothing moves
            memmove(packing.out, begin, p - begin);
        }
        packing.out += p - begin;
        if (*p == '\0') {
            break;
        }
        if (IsSpace(*p)) {
            p = p[1] > ' ' ? p : SkipSpace(p) - 1; // mostly it is one blank
            if (PutWhite(packing, p[1])) {
                break;
            }
        } else if ((*p == '{' || *p == ':') && EndsList(packing, *p)) {
            break;
        } else {
            Put(packing, *p);
        }
    }
    if (packing.end) {
        *packing.end = '\0';
        return packing.count_to_end;
    }
    *packing.out = '\0';
    AppendChar(params, ')');
    return packing.count;
}

} // namespace

bool GatherParams(const char *text, int in_comment, Globals *G) {
    LineText code;
    if (in_comment || strchr(text, '/')) { // elsewhere stands no comment
        CopyText(code, text);
        StripComments(code, in_comment);
        text = code;
    }
    size_t used = strlen(G->params);
    const size_t more = strlen(text);
    if (used + more >= sizeof G->params) {
        TidyParams(G); // which may make room
        used = strlen(G->params);
        if (used + more >= sizeof G->params) {
            return false;
        }
    }
    memcpy(G->params + used, text, more);
    used += more;
    while (used > 0 && IsSpace(G->params[used - 1])) { // the next line joins as it stands: "(int" and "a)" are "(inta)"
        --used;
    }
    G->params[used] = '\0';
    G->params_loose = 1;
    return true;
}

void TidyParams(Globals *G) {
    if (G->params_loose) {
        StripChars(G->params, " \t\r\n");
        G->params_loose = 0;
    }
}

int packParams(Globals *G) {
    const int count = Pack(G->params, G->funcname);
    G->params_loose = 0;
    if (G->kr_flag) { // int main(argc, argv) int argc; char **argv; {
        AppendText(G->params, " Non-ANSI Parameter Construct");
    }
    if (G->if_directive) {
        AppendText(G->params, " Defined By Compiler Directive");
    }
    return strcmp(G->params, "()") == 0 || strcmp(G->params, "(void)") == 0 ? 0 : count;
}
