// The parameter text of a function: from the lines that were gathered to "(int a, char *b)", and how many parameters it holds.
#include "analysis/function.h"

#include "run/globals.h"

namespace {

bool IsOperator(const char *name) {
    return strcmp(name, "operator") == 0 || strstr(name, "::operator") != nullptr;
}

// 0 if there is no ch in the text.
int EndBehindLast(char *text, char ch) {
    char *last = strrchr(text, ch);
    if (last) {
        last[1] = '\0';
    }
    return last != nullptr;
}

// A::A(int a) : b(a) { c(); keeps (int a). The parentheses of "operator ()" come ahead of the parameters, so there only a body is
// cut.
void CutBehindList(char *text, int is_operator) {
    char *brace = strchr(text, '{');
    const char *paren = strchr(text, ')');
    char *colon = strchr(text, ':');
    const bool body = brace && paren && paren < brace;
    if (body) {
        *brace = '\0';
    }
    if (is_operator && !body) {
        EndBehindLast(text, ')');
    }
    if (!is_operator && colon && paren && paren < colon) {
        *colon = '\0';
    }
}

// ( int a,  int b ) becomes (int a, int b): a ")" behind a blank ends the text.
void CopyPacked(const char *text, std::span<char> out) {
    static constexpr CharSet kSpecial(" \t\n\r)", true);
    size_t used = 0;
    for (; *text && used + 1 < out.size(); ++text) {
        if (!kSpecial.Has(*text)) { // most of them
            out[used++] = *text;
            continue;
        }
        const char before = used > 0 ? out[used - 1] : '\0';
        if (*text == '\t' || *text == '\n' || *text == '\r' || (*text == ' ' && (before == ' ' || before == '('))) {
            continue;
        }
        if (*text == ')' && before == ' ') {
            out[used - 1] = ')';
            break;
        }
        out[used++] = *text;
    }
    out[used] = '\0';
}

} // namespace

void packParams(std::span<char> params, const char *name, const Globals *G) {
    LineText packed;
    CutBehindList(params.data(), IsOperator(name));
    CopyPacked(params.data(), packed);
    if (!EndBehindLast(packed, ')')) {
        AppendChar(packed, ')');
    }
    if (G->kr_flag) { // int main(argc, argv) int argc; char **argv; {
        AppendText(packed, " Non-ANSI Parameter Construct");
    }
    if (G->if_directive) {
        AppendText(packed, " Defined By Compiler Directive");
    }
    CopyText(params, packed);
}

int countParams(const char *params) {
    if (strcmp(params, "(void)") == 0 || strcmp(params, "()") == 0) {
        return 0;
    }
    int count = 1;
    int depth = 0;
    for (; (params = strpbrk(params, "<>,")) != nullptr; ++params) {
        depth += *params == '<' ? 1 : *params == '>' ? -1 : 0;
        count += *params == ',' && depth <= 0;
    }
    return count;
}
