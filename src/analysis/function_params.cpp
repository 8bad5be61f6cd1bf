// The parameter text of a function: from the lines that were gathered to "(int a, char *b)", and how many parameters it holds.
#include "analysis/function.h"

#include "analysis/code_text.h"
#include "run/globals.h"

namespace {

bool IsOperator(const char *name) {
    return strcmp(name, "operator") == 0 || strstr(name, "::operator") != nullptr;
}

// Packs the text in place: A(int a) : b(a) { c(); keeps (int a), and ( int a,  int b ) is (int a, int b). The parentheses of "operator
// ()" come ahead of its parameters, so there a ":" ends nothing. A ")" behind a blank ends the text wherever it stands. Returns the
// number of parameters: one more than there are "," outside of < >.
int Pack(std::span<char> params, const char *name) {
    static constexpr CharSet kSpecial(" \t\n\r){:<>,", true);
    char *out = params.data();
    char *end = nullptr; // behind the last ")"
    int count = 1;
    int count_to_end = 1;
    int depth = 0;
    bool first_brace = true;
    bool first_colon = true;
    for (const char *p = SkipSpace(out);; ++p) {
        const char *begin = p;
        while (!kSpecial.Has(*p)) { // most of them
            ++p;
        }
        if (out != begin) { // up to the first that is left out nothing moves
            memmove(out, begin, p - begin);
        }
        out += p - begin;
        const char c = *p;
        if (c <= ' ') { // white space, or the end
            if (c == '\0') {
                break;
            }
            p = p[1] > ' ' ? p : SkipSpace(p) - 1; // mostly it is one blank
            if (p[1] == '\0') {
                break;
            }
            if (out[-1] != '(' && p[1] == ')') {
                *out++ = ')';
                end = out;
                count_to_end = count;
                break;
            }
            if (out[-1] != '(') {
                *out++ = ' ';
            }
            continue;
        }
        if (c == '{' || c == ':') {
            bool &first = c == '{' ? first_brace : first_colon;
            if (first && end && (c == '{' || !IsOperator(name))) {
                break;
            }
            first = false;
        }
        *out++ = c;
        if (c == ',') {
            count += depth <= 0;
        } else if (c == ')') {
            end = out;
            count_to_end = count;
        } else {
            depth += (c == '<') - (c == '>');
        }
    }
    *(end ? end : out) = '\0';
    if (!end) {
        AppendChar(params, ')');
        return count;
    }
    return count_to_end;
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
