// "(" and ")": where a function's head is recognised, and where its parameter list ends.
#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/function.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "files/source_reader.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

// namespace std VISIBLE(default) {
bool IsBehindMacro(const Scan &scan, const Globals *G) {
    int end = scan.index;
    while (IsBlankOrTab(scan.line[end - 1])) {
        --end;
    }
    int begin = end;
    while (IsWordChar(scan.line[begin - 1])) {
        --begin;
    }
    LineText word;
    CopyPart(word, scan.line + begin, end - begin);
    return is_macro(word, G);
}

void ForgetCandidate(Globals *G) {
    G->funcname_flag = 0;
    G->macro_like_name = 0;
    G->param_list_flag = 0;
    G->func_template = 0;
    ClearText(G->funcname);
    ClearText(G->params);
    ClearText(G->func_template_text);
}

// In a class body a parenthesis may begin a method. 0 if it is none of the class's own.
void NoteMethod(Globals *G) {
    if (G->class_pending && !G->assignment_flag) {
        G->function_scope = 0;
    } else if (G->function_scope > 0) {
        return;
    }
    if (G->local_bracket < 1 && !G->attr_flag && !G->assignment_flag) {
        G->method_flag = 1;
    }
}

[[gnu::cold]] void DebugOpenParen(const Scan &scan, Globals *G) {
    Message(G,
            "*** Debug:\n*** Line: %s*** Char Parse (\n"
            "*** G->instantiate_colon_flag = %d\n"
            "*** G->function_scope            = %d\n"
            "*** G->funcname_flag          = %d\n"
            "*** G->preproc_flag           = %d\n"
            "*** G->assignment_flag        = %d\n"
            "*** G->typedef_flag           = %d\n"
            "*** G->define_flag            = %d\n"
            "*** G->template_beg_flag      = %d\n\n",
            scan.line, G->instantiate_colon_flag, G->function_scope, G->funcname_flag, G->preproc_flag, G->assignment_flag,
            G->typedef_flag, G->define_flag, G->template_beg_flag);
}

void BeginParams(const Scan &scan, const char *text, Globals *G) {
    ClearText(G->params);
    GatherParams(text, 0, G);
    G->param_capture = 1;
    G->line_wants |= kWantsHead;
    G->param_line = scan.number;
}

// A head may begin at this "(": the candidate's name stands in front of it, or, where it is the line's first character, on the line
// before.
void LookForHead(const Scan &scan, Globals *G) {
    if (G->struct_pending || G->class_pending) { // "struct tag f(" declares
        G->struct_pending = 0;
        G->class_pending = 0;
        G->struct_flag = 0;
        ClearText(G->classname);
    }
    if (G->function_metrics && !G->catch_flag) {
        if (scan.index == scan.first_nonblank && NextChar(scan.line + scan.index) != '*') {
            if (const char *line_before = KeptText(G->source); *line_before) {
                GetFunction(line_before, static_cast<int>(strlen(line_before)) - 1, G);
            }
            BeginParams(scan, scan.line, G);
        } else {
            GetFunction(scan.line, scan.index, G);
            BeginParams(scan, scan.line + scan.index, G);
        }
    }
    if (G->class_flag) {
        QualifyByClass(G);
    }
}

} // namespace

void TakeFunctionTemplate(Globals *G) {
    G->func_template = 1;
    ++G->template_func_count;
    Strip_nrt(G->template_line, G->func_template_text);
    FormatTemplateLine(G->func_template_text);
    ClearText(G->template_line);
    G->template_flag = 0;
}

namespace {

// A "(" that may begin a function's head, or stands alone on its line.
[[gnu::noinline]] void LookAtOpenParen(Scan &scan, Globals *G) {
    if (G->dotnet_attr || G->paren_skip) {
        return;
    }
    const int in_heading = G->namespacebeg_flag && G->namespace_scope <= 0;
    if (in_heading && IsBehindMacro(scan, G)) {
        G->paren_skip = G->local_paren;
        return;
    }
    if (IsJust(scan, '(')) {
        ++G->just_paren_count;
        scan.non_effective = 1;
    }
    if (G->reading & kBraces) {
        return;
    }
    if (G->macro_like_name && G->function_scope < 1 && G->local_paren <= 0) { // DECLARE_IT(x) (y)
        ForgetCandidate(G);
    }
    if (G->class_flag) {
        NoteMethod(G);
    }
    if (G->namespace_flag && G->namespacebeg_flag && !G->class_flag) {
        G->namespacebeg_flag = 0;
        G->function_scope = 0;
    }
    if (G->debug) {
        DebugOpenParen(scan, G);
    }
    if (G->function_scope > 0 || G->open_bracket != G->close_bracket || G->funcname_flag) {
        return;
    }
    if (!(G->preproc_flag | G->assignment_flag | G->typedef_flag | G->define_flag | G->template_beg_flag | G->static_flag |
          G->where_flag | G->at_flag)) {
        LookForHead(scan, G);
    }
    if (G->template_flag) {
        TakeFunctionTemplate(G);
    }
}

// In the body of a function a parenthesis is one of a pair and no more, unless it stands alone on its line.
bool IsPlain(const Scan &scan, char paren, const Globals *G) {
    return G->function_scope > 0 && scan.line[scan.first_nonblank] != paren && !(G->dotnet_attr | G->paren_skip | G->debug);
}

} // namespace

void OnOpenParen(Scan &scan, Globals *G) {
    ++G->open_paren;
    ++G->local_paren;
    if (!IsPlain(scan, '(', G) || (G->class_pending | G->namespacebeg_flag)) {
        LookAtOpenParen(scan, G);
    }
}

namespace {

// A ")" on a line of its own still belongs to the parameters.
void EndParams(const Scan &scan, int just_paren, Globals *G) {
    if (!G->param_capture || G->local_paren != 0 || G->function_scope != 0) {
        return;
    }
    if (!just_paren) {
        G->param_capture = 0;
    } else if (G->function_metrics && scan.number > G->param_line) {
        CaptureParams(scan, G);
        G->param_capture = 0;
    }
}

// "int f(int a);" was a prototype, "f(1);" a call or a macro at file level.
void EndHead(const Scan &scan, Globals *G) {
    if (!G->funcname_flag) {
        return;
    }
    if (G->open_paren == G->close_paren) {
        G->param_list_flag = 0;
    }
    if (NextChar(scan.line + scan.index) == ';') {
        G->param_list_flag = 0;
        G->funcname_flag = 0;
    }
}

void EndCondition(Globals *G) {
    if (G->if_flag | G->for_flag | G->while_flag) {
        G->if_flag = 0;
        G->for_flag = 0;
        G->while_flag = 0;
        G->assignment_flag = 0;
    }
}

// A ")" that may end a parameter list, has no partner, or stands alone on its line.
[[gnu::noinline]] void LookAtCloseParen(Scan &scan, Globals *G) {
    if (G->close_paren > G->open_paren) { // as conditional code leaves it: the rest of the file is not to suffer
        NoticeStray(')', G);
        G->local_paren = 0;
        G->close_paren = G->open_paren;
    }
    if (G->dotnet_attr) {
        return;
    }
    if (G->paren_skip) {
        G->paren_skip = G->local_paren < G->paren_skip ? 0 : G->paren_skip;
        return;
    }
    const int just_paren = IsJust(scan, ')');
    if (just_paren) {
        ++G->just_paren_count;
        scan.non_effective = 1;
    }
    EndParams(scan, just_paren, G);
    G->catch_flag = 0;
    if (G->function_scope == 0) {
        G->enum_flag = 0;
    }
    if (G->function_scope <= 0) {
        EndHead(scan, G);
    }
    if (G->local_paren == 0) {
        EndCondition(G);
    }
    CheckBodyBehindParen(scan, G);
}

} // namespace

void OnCloseParen(Scan &scan, Globals *G) {
    ++G->close_paren;
    --G->local_paren;
    G->at_flag = 0;
    if (!IsPlain(scan, ')', G) || G->close_paren > G->open_paren) {
        LookAtCloseParen(scan, G);
        return;
    }
    G->catch_flag = 0;
    if (G->local_paren == 0) {
        EndCondition(G);
    }
    CheckBodyBehindParen(scan, G);
}
