// The words that do more than count: heads of classes and templates, statements with a body, initialisers.
#include "analysis/keyword_actions.h"

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/local_definition.h"
#include "analysis/scan.h"
#include "notices/raise.h"
#include "run/globals.h"

namespace {

// The next code character behind the word.
char Behind(const Scan &scan, int end) {
    return NextChar(scan.line + end - 1);
}

// From here on it is looked out for whether the statement's body stands in braces.
void BeginBody(BodyKind kind, const Scan &scan, Globals *G) {
    G->scope_kind = kind;
    G->scope_line = scan.number;
    G->scope_paren = G->local_paren;
}

// do and else have no condition: what follows is the body.
void FindBody(BodyKind kind, const Scan &scan, int end, int has_if, Globals *G) {
    BeginBody(kind, scan, G);
    const char body = Behind(scan, end);
    if (body == '{' || has_if) {
        const int pending = G->scope_pending_line; // of a value: int a[] =
        static_cast<BodyWatch &>(*G) = BodyWatch{};
        G->scope_pending_line = pending;
    } else if (body > ' ') { // else x = 1;
        EmitScopeError(G);
    } else {
        G->scope_pending_line = scan.number;
    }
}

// The line declares only: "class A;". begin leaves out what can't be behind a keyword, wherever the keyword stands.
bool Declares(const Scan &scan, int begin, Globals *G) {
    const bool declares = strchr(scan.line + begin, ';') && !strchr(scan.line + begin, '{');
    G->forward_decl_flag |= declares;
    return declares;
}

// Where the word class or struct begins no definition, even without typedef.
bool DefinesNothing(const Globals *G) {
    return G->define_flag || G->enum_flag || G->template_beg_flag || G->funcname_flag;
}

// Where it may begin one.
bool MayDefine(Globals *G) {
    if (G->typedef_flag || DefinesNothing(G)) {
        return false;
    }
    G->friend_class |= G->friend_flag;
    return !(G->reading & kBraces);
}

} // namespace

// Two in a row with no case between them are a trick.
void OnBreak(Scan &, int, Globals *G) {
    if (G->break_flag == 1) {
        NoticeAtLine(kNoticeBreakBreak, G);
    }
    G->break_flag = 1;
    NoticeAtLine(kNoticeBreak, G);
}

void OnDo(Scan &scan, int end, Globals *G) {
    FindBody(kDo, scan, end, 0, G);
}

void OnElse(Scan &scan, int end, Globals *G) {
    if (G->preproc_flag) { // # else
        return;
    }
    const int has_if = strstr(scan.line + end, "if") != nullptr; // "else if (a)": the if counts by itself
    ++G->else_count;
    G->local_else += !has_if;
    FindBody(kElse, scan, end, has_if, G);
}

void OnFor(Scan &scan, int, Globals *G) {
    G->for_flag = 1;
    BeginBody(kFor, scan, G);
}

void OnForeach(Scan &scan, int, Globals *G) {
    BeginBody(kFor, scan, G);
}

void OnIf(Scan &scan, int, Globals *G) {
    if (G->preproc_flag) { // # if (A)
        return;
    }
    G->if_flag = 1;
    G->break_flag = 0;
    ++G->local_if;
    BeginBody(kIf, scan, G);
    G->scope_pending_line = scan.number;
}

void OnWhile(Scan &scan, int, Globals *G) {
    G->while_flag = 1;
    BeginBody(kWhile, scan, G);
}

void OnGoto(Scan &, int, Globals *G) {
    NoticeAtLine(kNoticeGoto, G);
    G->local_return += G->goto_is_return != 0;
}

// delegate(int a) { return a; } returns from no function of the file
void OnReturn(Scan &, int, Globals *G) {
    if (!G->delegate_flag) {
        ++G->return_count;
        ++G->local_return;
    }
}

// A "}" of the same depth ends it. Without an open one, a break stands outside any switch.
void OnSwitch(Scan &, int, Globals *G) {
    ++G->switch_depth;
    G->switch_scope = G->function_scope;
    if (G->switch_depth <= kNestingLimit) {
        G->switch_stack[G->switch_depth] = G->function_scope;
    }
}

// enum color { RED };      its brace
// void f(enum color c);    only a type
void OnEnum(Scan &scan, int end, Globals *G) {
    G->enum_flag = 2;
    const char *p = scan.line + end;
    p += strcspn(p, "\n\r;),={");
    if (*p == '{') {
        ++G->enum_count;
        G->enum_flag = 1;
    } else if (*p && !IsLineEnd(*p)) {
        G->enum_flag = 0;
    }
}

// class A extends B
void OnExtends(Scan &scan, int, Globals *G) {
    if (G->class_pending && !G->inherit_flag && !G->inherit_more) {
        BeginBases(scan.line + scan.index, G);
    }
}

// int Size { get { return size; } set { size = value; } }
void OnGet(Scan &scan, int end, Globals *G) {
    if (Behind(scan, end) == '{') {
        G->get_flag = 1;
    }
}

void OnSet(Scan &scan, int end, Globals *G) {
    if (Behind(scan, end) == '{') {
        G->set_flag = 1;
    }
}

// static { count = 0; }        an initialiser in Java
// static int table[] = { 1 };  the same, and its brace is no scope
void OnStatic(Scan &scan, int end, Globals *G) {
    if (G->reading & kBraces) {
        return;
    }
    const char *rest = scan.line + end;
    const char next = Behind(scan, end);
    if (next == '{' || (strchr(rest, '=') && !strstr(rest, "=="))) {
        G->static_flag = 1;
        G->static_brace = G->open_braces - G->closebrace_count;
    } else if (IsLineEnd(next)) {
        G->static_flag = 0;
        G->static_pending = 1;
        G->line_wants |= kWantsHead;
    }
}

void OnVirtual(Scan &, int, Globals *G) {
    if (G->class_flag) {
        ++G->virtual_count;
        G->virtual_class = 1;
        G->virtual_flag = 1;
    }
}

// f(void) has a parameter list that says that it is empty
void OnVoid(Scan &scan, int end, Globals *G) {
    if (G->funcname_flag && G->param_list_flag && G->function_scope < 1) {
        G->local_void_param = 1;
    }
    if (Behind(scan, end) == '*') {
        NoticeAtLine(kNoticeVoidStar, G);
    }
}

void OnClass(Scan &scan, int end, Globals *G) {
    FindLocalDefinition(0, scan.line + end, G);
    if (!MayDefine(G) || Declares(scan, 5, G)) {
        return;
    }
    if (G->class_flag && !G->forward_decl_flag) {
        PushNestedClass(G);
    }
    G->class_pending = 1;
    GetClassname(scan.line, end, G);
    if (G->forward_decl_flag) { // class A; class B {
        G->class_pending = 0;
    }
}

void OnInterface(Scan &scan, int end, Globals *G) {
    if (G->template_beg_flag || G->funcname_flag || (G->reading & kBraces) || Declares(scan, 9, G)) {
        return;
    }
    if (G->class_flag) {
        PushNestedClass(G);
    }
    G->interface_flag = 1;
    G->class_pending = 1;
    GetClassname(scan.line, end, G);
}

namespace {

// The index behind the macros ahead of a tag or a "{". One without arguments may itself be the tag of struct MACRO {
int BehindMacros(const char *line, int index, const Globals *G) {
    LineText word;
    while (GetNextToken(line, index, word) && is_macro(word, G)) {
        const int end = TokenIndex(line, index) + static_cast<int>(strlen(word));
        const int behind = BehindArguments(line, end);
        const char next = *Ltrim(line + behind);
        if (!isfirstchar(next) && (next != '{' || behind == end)) {
            break;
        }
        index = behind;
    }
    return index;
}

// struct {               gets its name from the variable behind it
// struct tag : base {    defines tag
// struct MARK(()) tag {  too
// struct tag name        declares a variable
void NameStruct(const Scan &scan, int end, Globals *G) {
    const int begin = BehindMacros(scan.line, end, G);
    LineText tag, next;
    GetNextToken(scan.line, begin, tag);
    const int behind_tag = TokenIndex(scan.line, begin) + static_cast<int>(strlen(tag));
    GetNextRawToken(scan.line, behind_tag, next);
    if (NextChar(scan.line + begin - 1) == '{') {
        GetClassname("instance", 0, G);
    } else if (*next == '\0' || *next == ':' || *next == '{') {
        GetClassname(scan.line, begin, G);
    } else {
        ClearText(G->classname);
        return;
    }
    if (memchr(scan.line + end, '(', begin - end)) {
        G->paren_skip = G->local_paren + 1;
    }
}

} // namespace

void OnStruct(Scan &scan, int end, Globals *G) {
    if (!G->is_java) {
        FindLocalDefinition(1, scan.line + end, G);
    }
    if (DefinesNothing(G) && !G->typedef_flag) { // most of them: tag *p; in a function
        return;
    }
    if (G->local_paren != 0 || strchr(scan.line, '=')) { // f(struct tag *p), struct tag name = {1};
        return;
    }
    G->typedef_flag = 0;
    if (G->static_flag || !MayDefine(G)) {
        return;
    }
    if (Declares(scan, 5, G)) {
        if (G->class_flag) { // a member of its type
            ClassAttribute(scan.line, G);
        }
        return;
    }
    if (G->class_flag) {
        PushNestedClass(G);
    }
    G->struct_pending = 1;
    G->class_pending = 1;
    NameStruct(scan, end, G);
}

// The heading is the line up to the ">" that closes its first "<".
void OnTemplate(Scan &scan, int, Globals *G) {
    G->angle_depth = 0;
    if (G->reading & kBraces) {
        return;
    }
    const char *semicolon = strchr(scan.line, ';');
    const char *brace = strchr(scan.line, '{');
    if (semicolon && (!brace || semicolon < brace)) { // template class Stack<int>; is an instantiation
        --G->template_count;
        return;
    }
    LineText heading;
    CopyText(heading, scan.line);
    int opened = 0;
    int closed = 0;
    char *p = heading;
    for (; *p && !IsLineEnd(*p) && (opened < 1 || opened != closed); ++p) {
        opened += *p == '<';
        closed += *p == '>';
    }
    *p = '\0';
    StripCComment(heading);
    StripCPPComment(heading);
    CopyText(G->template_line, Ltrim(heading));
    G->template_beg_flag = 1;
    G->line_wants |= kWantsHead;
    G->template_flag = 1;
}
