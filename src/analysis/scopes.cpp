// What each brace opens is noted, so that its partner ends just that. Outside of functions the code is gathered as one text per
// statement, and heading.h tells from it what a "{" opens; inside of them every brace is a block.
#include "analysis/scopes.h"

#include <algorithm>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/function.h"
#include "analysis/heading.h"
#include "analysis/namespaces.h"
#include "analysis/scan.h"
#include "notices/raise.h"
#include "run/globals.h"

namespace {

using Text = std::string_view;

// ---- The statement ----------------------------------------------------------------------------------------------------------

void NewStatement(Globals *G) {
    G->head_length = 0;
    ++G->head_statement;
}

void Put(char c, Globals *G) {
    const bool blank = c == ' ';
    const int length = G->head_length;
    if (length < kHeadLimit && !(blank && (length == 0 || G->head_text[length - 1] == ' '))) {
        if (length == 0) {
            G->if_directive = 0; // those ahead of the statement don't concern it
        }
        G->head_text[G->head_length++] = c;
    }
}

Text Statement(const Globals *G) {
    return {G->head_text, static_cast<size_t>(G->head_length)};
}

// ---- The stack --------------------------------------------------------------------------------------------------------------

BraceLevel *Top(Globals *G) {
    return G->brace_depth > 0 && G->brace_depth <= kBraceLimit ? &G->brace_levels[G->brace_depth - 1] : nullptr;
}

bool IsTop(ScopeKind kind, Globals *G) {
    const BraceLevel *top = Top(G);
    return top && top->kind == kind;
}

void Push(ScopeKind kind, bool constants, int local_paren, Globals *G) {
    if (G->brace_depth < kBraceLimit) {
        G->brace_levels[G->brace_depth] = {kind, constants, local_paren};
    }
    ++G->brace_depth;
}

// ---- Functions, classes, namespaces -----------------------------------------------------------------------------------------

// ( int a,  int b ) becomes (int a, int b).
void CopyList(Text list, std::span<char> out) {
    if (list.find("( ") == Text::npos && list.find(" )") == Text::npos) {
        CopyPart(out, list.data(), list.size());
        return;
    }
    size_t used = 0;
    for (size_t i = 0; i < list.size() && used + 1 < out.size(); ++i) {
        const char next = i + 1 < list.size() ? list[i + 1] : '\0';
        if (list[i] == ' ' && ((used > 0 && out[used - 1] == '(') || next == ')')) {
            continue;
        }
        out[used++] = list[i];
    }
    out[used] = '\0';
}

// A word of the text that is known to be there.
const char *WordIn(const char *text, const char *word) {
    const size_t length = strlen(word);
    const char *found = strstr(text, word);
    while (found && found > text && (IsLetterOrDigit(found[-1]) || found[-1] == '_')) {
        found = strstr(found + length, word);
    }
    return found ? found : text;
}

void TakeName(Text name, bool is_operator, Globals *G) {
    LineText text;
    CopyPart(text, name.data(), name.size());
    if (is_operator) {
        ReadOperatorName(text, WordIn(text, "operator"), G->funcname);
    } else {
        CopyText(G->funcname, text);
    }
    Rtrim(G->funcname);
    QualifyFunction(G);
}

void TakeParams(const Heading &heading, Globals *G) {
    CopyList(heading.params, G->params);
    G->local_params = CountListed(heading.params);
    G->local_void_param = strcmp(G->params, "(void)") == 0;
    if (heading.old_style) {
        G->kr_flag = 1;
        AppendText(G->params, " Non-ANSI Parameter Construct");
    }
    if (G->if_directive) {
        AppendText(G->params, " Defined By Compiler Directive");
    }
}

void TakeTemplate(Text text, Globals *G) {
    if (!text.empty()) {
        CopyPart(G->template_line, text.data(), text.size());
        G->template_flag = 1;
    }
}

void TakeAccess(Access access, Globals *G) {
    if (access != Access::kKept) {
        G->access_public = access == Access::kPublic;
        G->access_protected = access == Access::kProtected;
        G->access_private = access == Access::kPrivate;
    }
}

void BeginFunction(const Heading &heading, Scan &scan, Globals *G) {
    TakeName(heading.name, heading.is_operator, G);
    TakeParams(heading, G);
    G->funcname_flag = 1;
    G->method_flag = G->class_flag && !heading.is_friend;
    TakeTemplate(heading.template_text, G);
    if (G->template_flag) {
        TakeFunctionTemplate(G);
    }
    OpenFunction(scan, G);
}

// The class or namespace around it is part of a class's name.
const char *OuterName(const Globals *G) {
    return G->class_flag ? G->classname : G->namespace_flag && isfirstchar(*G->namespace_name) ? G->namespace_name : "";
}

void BeginClass(const Heading &heading, Scan &scan, Globals *G) {
    LineText outer;
    CopyText(outer, OuterName(G));
    if (G->class_flag) {
        PushNestedClass(G);
    }
    LineText name;
    CopyPart(name, heading.name.data(), heading.name.size());
    if (G->is_java) { // its methods are looked up without the types
        name[strcspn(name, "<")] = '\0';
    }
    G->class_pending = 1;
    G->interface_flag = heading.is_interface;
    G->struct_flag = 0;
    G->struct_pending = heading.is_struct;
    NameClass(outer, *name ? name : kUnnamedClass, G);
    if (!heading.bases.empty()) {
        G->inherit_flag = 1;
        CopyPart(G->inherit_line, heading.bases.data(), heading.bases.size());
    }
    TakeTemplate(heading.template_text, G);
    if (heading.is_interface) {
        FormatInheritline(G->inherit_line, G);
        OpenInterface(scan, G);
    } else {
        OpenClass(scan, G);
    }
}

// What the "{" behind the statement opens.
void Judge(Scan &scan, int local_paren, Globals *G) {
    const BraceLevel *top = Top(G);
    const Heading heading = ReadHeading(Statement(G), top && top->constants, G);
    TakeAccess(heading.access, G);
    switch (heading.kind) {
    case HeadKind::kFunction:
        if (!G->function_metrics && !G->list_functions) {
            break;
        }
        Push(kFunctionScope, false, local_paren, G);
        BeginFunction(heading, scan, G);
        return;
    case HeadKind::kClass:
        Push(kClassScope, heading.has_constants, local_paren, G);
        BeginClass(heading, scan, G);
        return;
    case HeadKind::kNamespace: {
        LineText name;
        CopyPart(name, heading.name.data(), heading.name.size());
        FormatTemplateLine(name); // a :: b
        Push(kNamespaceScope, false, local_paren, G);
        OpenNamespace(name, scan, G);
        G->namespacebeg_flag = 0;
        return;
    }
    case HeadKind::kOpen: Push(kOpenScope, false, local_paren, G); return;
    case HeadKind::kUnion: Push(kUnionScope, false, local_paren, G); return;
    case HeadKind::kValue:
        Push(kValueScope, false, local_paren, G);
        ++G->function_scope;
        return;
    case HeadKind::kBlock: break;
    }
    Push(kBlockScope, false, local_paren, G);
    ++G->function_scope;
}

void OpenBlock(int local_paren, Globals *G) {
    Push(local_paren > 0 ? kValueScope : kBlockScope, false, local_paren, G);
    ++G->function_scope;
    if (G->function_scope > G->max_scope_depth) {
        EmitScopeNotice(G);
    }
}

// The innermost scope ends.
void Pop(Scan &scan, Globals *G) {
    const BraceLevel *top = Top(G);
    const ScopeKind kind = top ? top->kind : kBlockScope;
    const int local_paren = top ? top->local_paren : 0;
    --G->brace_depth;
    if (kind == kBlockScope || kind == kValueScope || kind == kFunctionScope || kind == kExpressionBody) {
        LeaveBlock(G);
    }
    if (G->switch_depth > 0 && G->switch_scope == G->function_scope) {
        EndSwitch(G);
    }
    switch (kind) {
    case kFunctionScope:
    case kExpressionBody: CloseFunction(scan, G); break;
    case kClassScope: CloseClass(scan, G); break;
    case kNamespaceScope: CloseNamespace(G); break;
    case kBlockScope:
    case kValueScope:
    case kOpenScope:
    case kUnionScope: break;
    }
    G->local_paren = local_paren;
    if (G->function_scope > 0) {
        return;
    }
    scan.head_mark = scan.index + 1;
    if (kind != kValueScope) {
        NewStatement(G);
    }
    if (kind == kValueScope || kind == kUnionScope) {
        Put('{', G);
        Put('}', G);
    }
}

// A declaration in a class: a method, or data.
void CountMember(const Scan &scan, Globals *G) {
    const Member member = ReadMember(Statement(G), G);
    TakeAccess(member.access, G);
    if (member.is_method) {
        TakeName(member.name, member.is_operator, G);
        CopyList(member.params, G->params);
        ClassMethod(G);
        ClearText(G->funcname);
    } else if (member.data > 0) {
        G->comma_count = member.data - 1;
        ClassAttribute(scan.line, G);
    }
}

// The ";" of a statement outside of functions. True if it goes on behind it.
bool EndDeclaration(Scan &scan, Globals *G) {
    const Text text = Statement(G);
    BraceLevel *top = Top(G);
    if (text.starts_with("template") && G->template_count > 0) { // defines none
        --G->template_count;
    }
    if (top && top->constants) {
        top->constants = false;
    } else if (top && G->class_flag && (top->kind == kClassScope || top->kind == kOpenScope || top->kind == kUnionScope)) {
        CountMember(scan, G);
    } else if (const Text name = ReadFileNamespace(text, G); !name.empty()) {
        LineText copy;
        CopyPart(copy, name.data(), name.size());
        G->file_namespace = 1;
        OpenNamespace(copy, scan, G);
    } else if (!G->is_java && !G->is_cs && IsOldStyleHead(text, G)) {
        Put(';', G);
        return true;
    }
    return false;
}

} // namespace

// Put for a run of code, with every run of white space as one blank.
static void PutCode(const char *code, const char *end, Globals *G) {
    while (code < end && G->head_length == 0) {
        Put(*code > ' ' || *code < 0 ? *code : ' ', G);
        ++code;
    }
    char *const begin = G->head_text;
    char *out = begin + G->head_length;
    const char *const limit = begin + kHeadLimit;
    for (; code < end && out < limit; ++code) {
        const char c = *code >= 0 && *code < ' ' ? ' ' : *code;
        *out = c;
        out += c != ' ' || out[-1] != ' ';
    }
    G->head_length = static_cast<int>(out - begin);
}

void TakeCode(Scan &scan, int end, Globals *G) {
    if (!G->preproc_flag) {
        const int mark = scan.head_mark;
        const bool behind_comment = scan.line[mark] == '/' && scan.line[mark - 1] == '*'; // whose "/" is looked at as code
        PutCode(scan.line + mark + behind_comment, scan.line + end, G);
        if (G->string_flag | G->char_flag) { // of a literal only extern "C" is looked at
            const char quote = scan.line[end - 1];
            if (scan.line[end] == 'C' && scan.line[end + 1] == quote) {
                Put('C', G);
            }
            Put(quote, G);
        } else if (end >= scan.length || scan.line[end] == '/') {
            Put(' ', G);
        }
    }
    scan.head_mark = std::max(scan.head_mark, end);
}

void OpenScope(Scan &scan, Globals *G) {
    if (G->preproc_flag) { // of a macro
        return;
    }
    const int outside = G->function_scope == 0;
    if (outside) {
        TakeCode(scan, scan.index, G);
    }
    const int local_paren = G->local_paren;
    G->catch_flag = 0;
    if (G->brace_skew > 0) { // an earlier branch of the #if has opened it
        --G->brace_skew;
        if (outside) {
            NewStatement(G);
            scan.head_mark = scan.index + 1;
        }
        return;
    }
    G->local_paren = 0;
    if (!outside || G->brace_depth >= kBraceLimit) { // what no level holds is a block
        OpenBlock(local_paren, G);
        return;
    }
    if (local_paren > 0) {
        Push(kValueScope, false, local_paren, G);
        ++G->function_scope;
    } else {
        Judge(scan, local_paren, G);
    }
    if (!IsTop(kValueScope, G)) {
        NewStatement(G);
    }
    scan.head_mark = scan.index + 1;
}

void CloseScope(Scan &scan, Globals *G) {
    if (G->preproc_flag) {
        return;
    }
    G->enum_flag = 0;
    G->get_flag = 0;
    G->set_flag = 0;
    if (G->brace_skew < 0) { // an earlier branch of the #if has closed it
        ++G->brace_skew;
        return;
    }
    while (IsTop(kExpressionBody, G)) {
        Pop(scan, G);
    }
    if (G->brace_depth == 0) {
        ++G->stray_braces;
        NoticeStray('}', G);
        G->local_paren = 0;
        NewStatement(G);
        scan.head_mark = scan.index + 1;
        return;
    }
    Pop(scan, G);
}

void EndStatement(Scan &scan, Globals *G) {
    if (G->preproc_flag) {
        return;
    }
    if (IsTop(kExpressionBody, G) && G->local_paren <= 0) {
        Pop(scan, G);
        return;
    }
    if (G->function_scope > 0) {
        return;
    }
    TakeCode(scan, scan.index, G);
    if (!EndDeclaration(scan, G)) {
        NewStatement(G);
    }
    G->inline_flag = 0;
    G->local_paren = 0;
    scan.head_mark = scan.index + 1;
}

void OpenExpression(Scan &scan, Globals *G) {
    if (!G->is_cs || !(G->reading & kRecords) || !G->class_flag || G->function_scope > 0 || G->local_paren > 0 || G->preproc_flag ||
        G->brace_depth >= kBraceLimit || !(G->function_metrics | G->list_functions)) {
        return;
    }
    TakeCode(scan, scan.index - 1, G);
    const BraceLevel *top = Top(G);
    const Heading heading = ReadHeading(Statement(G), top && top->constants, G);
    if (heading.kind != HeadKind::kFunction) {
        return;
    }
    TakeAccess(heading.access, G);
    Push(kExpressionBody, false, 0, G);
    BeginFunction(heading, scan, G);
    NewStatement(G);
}

// ---- Branches of a #if ------------------------------------------------------------------------------------------------------

namespace {

void BeginBranch(Globals *G) {
    if (G->branch_depth < kBranchLimit) {
        G->branches[G->branch_depth] = {.virtual_depth = G->brace_depth - G->brace_skew,
                                        .outer_skew = G->brace_skew,
                                        .local_paren = G->local_paren,
                                        .statement = G->head_statement,
                                        .head_length = G->head_length};
    }
    ++G->branch_depth;
}

// The other branch begins with what was open at the #if.
void NextBranch(Globals *G) {
    OpenBranch &branch = G->branches[G->branch_depth - 1];
    if (G->brace_depth - G->brace_skew == branch.virtual_depth) {
        G->local_paren = branch.local_paren;
    }
    G->brace_skew = G->brace_depth - branch.virtual_depth;
    if (G->function_scope > 0) {
        return;
    }
    if (G->head_statement != branch.statement) { // begun since
        branch.statement = G->head_statement;
        branch.head_length = 0;
    }
    const int more = G->head_length - branch.head_length;
    if (more > 0 && G->other_length == 0) {
        memcpy(G->other_text, G->head_text + branch.head_length, static_cast<size_t>(more));
        G->other_length = more;
    }
    G->head_length = std::min(G->head_length, branch.head_length);
}

// An unfinished statement of the first branch holds where no other one has its own.
void EndBranch(Globals *G) {
    const OpenBranch &branch = G->branches[G->branch_depth - 1];
    G->brace_skew = std::clamp(G->brace_skew, std::min(0, branch.outer_skew), std::max(0, branch.outer_skew));
    const bool untouched = G->head_statement == branch.statement && G->head_length == branch.head_length;
    if (untouched && G->function_scope == 0) {
        for (int i = 0; i < G->other_length; ++i) {
            Put(G->other_text[i], G);
        }
    }
    G->other_length = 0;
}

} // namespace

void FollowBranch(const char *word, Globals *G) {
    if (strncmp(word, "if", 2) == 0) {
        BeginBranch(G);
        return;
    }
    const bool other = strncmp(word, "el", 2) == 0;
    if ((!other && strncmp(word, "endif", 5) != 0) || G->branch_depth == 0) {
        return;
    }
    if (G->branch_depth <= kBranchLimit) {
        if (other) {
            NextBranch(G);
        } else {
            EndBranch(G);
        }
    }
    G->branch_depth -= !other;
}

int ClosedBraces(const Globals *G) {
    return G->brace_depth > 0 ? G->open_braces - G->brace_depth : G->open_braces + G->stray_braces;
}
