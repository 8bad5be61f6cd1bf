// Texts that take more than one line: at the head of each line they are carried on, before a character of it is looked at.
#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/function.h"
#include "analysis/local_definition.h"
#include "analysis/scan.h"
#include "run/globals.h"

namespace {

// template <class T,
//           class U>      // and this line too
void CaptureTemplate(const Scan &scan, Globals *G) {
    LineText text;
    CopyText(text, Ltrim(scan.line));
    Rtrim(text);
    char *angle = strrchr(text, '>');
    char *comma = strrchr(text, ',');
    char *slash = strrchr(text, '/');
    if (angle) {
        (comma > angle ? comma : angle)[1] = '\0';
    } else if (slash && OpensComment(slash)) {
        *slash = '\0';
    }
    StripCComment(text);
    StripCPPComment(text);
    AppendText(G->template_line, text);
}

// class A : public B, /* and, for
//    its locks, */ private C {
void CaptureBases(const Scan &scan, Globals *G) {
    LineText text;
    CopyText(text, Ltrim(scan.line));
    StripComments(text, G->c_comment);
    if (char *brace = strchr(text, '{')) {
        brace[1] = '\0';
        Rtrim(G->inherit_line);
        G->inherit_more = 0;
    }
    AppendText(G->inherit_line, text);
}

int TextsAreOpen(const Globals *G) {
    return G->classname_pending | G->param_capture | G->template_beg_flag | G->inherit_more | G->static_pending |
           G->local_heading.line;
}

} // namespace

void BeginBases(const char *text, Globals *G) {
    G->inherit_flag = 1;
    G->inherit_more = 1;
    G->line_wants |= kWantsHead;
    CopyText(G->inherit_line, Ltrim(text));
    StripComments(G->inherit_line, 0);
    if (char *brace = strchr(G->inherit_line, '{')) {
        *brace = '\0';
    }
}

void CaptureParams(const Scan &scan, Globals *G) {
    if (*scan.line != '#' && !G->cpp_comment && GatherParams(scan.line, G->c_comment, G)) {
        G->param_line = scan.number;
    }
}

void CaptureTexts(const Scan &scan, Globals *G) {
    if (!TextsAreOpen(G)) {
        G->line_wants &= ~kWantsHead;
        return;
    }
    if (G->classname_pending && !G->define_flag) {
        GetClassname(scan.line, 0, G);
    }
    if (G->param_capture && G->funcname_flag && !G->is_other) {
        CaptureParams(scan, G);
    }
    if (G->template_beg_flag) {
        CaptureTemplate(scan, G);
    }
    if (G->inherit_flag && G->inherit_more && !G->cpp_comment) {
        CaptureBases(scan, G);
    }
    if (G->local_heading.line) {
        ContinueLocalHeading(scan.line, G);
    }
    if (G->static_pending && NextChar(scan.line) == '{') {
        G->static_flag = 1;
        G->static_pending = 0;
        G->static_brace = G->open_braces - G->closebrace_count;
    }
}
