// The names of C++ operators: the word operator, what follows it up to the parenthesis, and the class in front of it.
#include "analysis/code_text.h"
#include "analysis/function.h"

namespace {

// The index of the first character of the class whose last one is at i: the A of "const A &A::operator=", and of
// "B<T> A<T, U>::operator+".
int BeginOfClass(const char *line, int i) {
    const int open = i >= 0 && line[i] == '>' ? OpenAngle(line, i) : -1;
    const char *stops = " \t&*";
    if (open >= 0) {
        i = OverBlanks(line, open - 1);
        stops = " \t";
    }
    while (i >= 0 && !strchr(stops, line[i])) {
        --i;
    }
    return i + 1;
}

// The class prefix without blanks and without its "::"; empty for an operator of no class.
void ReadOperatorClass(const char *line, const char *op, std::span<char> out) {
    ClearText(out);
    const int colon = OverBlanks(line, static_cast<int>(op - line) - 1);
    if (colon < 1 || line[colon] != ':' || line[colon - 1] != ':') {
        return;
    }
    const int last = OverBlanks(line, colon - 2);
    size_t used = 0;
    for (int i = BeginOfClass(line, last); i <= last && used + 1 < out.size(); ++i) {
        if (!IsBlankOrTab(line[i])) {
            out[used++] = line[i];
        }
    }
    out[used] = '\0';
}

// From "operator" up to the "(", without comments and with one blank at most: operator new[], operator ().
void ReadOperator(const char *op, std::span<char> out) {
    size_t used = 0;
    bool blank = false;
    for (const char *p = op; *p && *p != '(' && *p != '\n' && used + 5 < out.size(); ++p) {
        if (p[0] == '/' && p[1] == '*') {
            const char *close = strstr(p + 2, "*/");
            if (!close) {
                break;
            }
            p = close + 1;
        } else if (IsBlankOrTab(*p)) {
            if (!blank) {
                out[used++] = ' ';
            }
            blank = true;
        } else if (*p == 'r' && p - op >= 2 && p[-2] == 't' && p[-1] == 'o' && NextChar(p) == '(') {
            for (const char *call = "r ()"; *call; ++call) {
                out[used++] = *call;
            }
            break;
        } else {
            out[used++] = *p;
        }
    }
    out[used] = '\0';
}

} // namespace

int OpenAngle(const char *text, int close) {
    int depth = 0;
    for (int i = close; i >= 0; --i) {
        depth += text[i] == '>' ? 1 : text[i] == '<' ? -1 : 0;
        if (depth == 0) {
            return i;
        }
    }
    return -1;
}

void ReadOperatorName(const char *line, const char *op, std::span<char> out) {
    LineText name;
    ReadOperator(op, name);
    ReadOperatorClass(line, op, out);
    if (!*out.data() || !AppendText(out, "::") || !AppendText(out, name)) {
        CopyText(out, name);
    }
}
