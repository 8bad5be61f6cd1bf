// The handlers of what separates and joins: , : ; = < > [ ] ? .
#include <string_view>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/function.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "analysis/scopes.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/mode.h"

void OnComma(Scan &scan, Globals *G) {
    if (!(G->angle_depth | G->friend_flag | G->enum_flag | G->instantiate_colon_flag | G->inherit_more) &&
        G->open_paren == G->close_paren) {
        ++G->comma_count;
    }
    if (G->param_capture && G->function_metrics && G->param_list_flag && G->angle_depth == 0 &&
        G->open_paren - G->close_paren == 1 && scan.number > G->param_line) {
        CaptureParams(scan, G);
    }
}

void OnColon(Scan &scan, Globals *G) {
    if (scan.line[scan.index + 1] == ':') {
        NoteSpan(scan, scan.index, scan.index + 1, kPassedOver);
        GoOnBehind(scan, scan.index + 1);
        return;
    }
    if (G->funcname_flag && G->function_scope < 1) { // A::A() : b(1) {
        G->instantiate_colon_flag = 1;
    }
    if (G->class_pending && !G->inherit_flag && !G->inherit_more && !(G->is_cs && G->where_flag)) {
        BeginBases(scan.line + scan.index + 1, G);
    }
}

namespace {

// A method declared in its class: "void f(int);" Few ";" end one: inlined, it costs all of them the saving of registers.
[[gnu::noinline]] void EndMethod(const Scan &scan, Globals *G) {
    if (G->friend_flag) {
        G->method_flag = 0;
    } else if (scan.line[scan.index - 1] != '}') {
        packParams(G);
        G->method_flag = 0;
        G->method_done = 1;
        ClassMethod(G);
    }
}

// "int a, b;" in a class body, or a member with an initial value.
void EndAttribute(const Scan &scan, Globals *G) {
    const int member = G->attr_flag ||
                       (G->class_flag && !G->method_flag && !G->method_done && G->function_scope <= 0 && !strstr(scan.line, "{};"));
    if (member && G->attr_line != scan.number) {
        G->attr_flag = 0;
        ClassAttribute(scan.line, G);
    }
}

// Outside classes a ";" keeps the candidate: it may end the declaration of an old style parameter, "int f(a) int a; {"
void EndCandidate(Globals *G) {
    if (G->funcname_flag) {
        G->kr_flag = 1;
    }
    if (G->local_paren < 1 && G->function_metrics && (G->class_flag || !G->kr_flag)) {
        G->funcname_flag = 0;
    }
}

// The statement was a member, where it stands in a class body.
void EndMember(const Scan &scan, Globals *G) {
    if (G->class_flag && G->method_flag) {
        EndMethod(scan, G);
    }
    if ((G->attr_flag | G->class_flag) && !(G->forward_decl_flag | G->enum_flag | G->friend_flag | G->typedef_flag)) {
        EndAttribute(scan, G);
    }
    if (G->method_done && !G->friend_flag && G->function_scope <= 0) {
        G->method_done = 0;
        G->method_flag = 0;
    }
}

// A statement of which more is to be done than to forget it.
[[gnu::noinline]] void LookAtStatement(Scan &scan, Globals *G) {
    if (G->reading & kBraces) {
        EndStatement(scan, G);
        if (G->friend_flag && G->friend_class && G->is_cpp) {
            EmitFriendClassNotice(scan.line, scan.index, G);
        }
        static_cast<StatementState &>(*G) = StatementState{};
        return;
    }
    if (G->class_scope < 1 && G->class_pending && G->class_flag) {
        G->class_pending = 0;
        G->class_flag = 0;
        ClearText(G->classname);
    }
    if (G->struct_flag) {
        G->instantiate_colon_flag = 0;
    }
    if (G->open_braces == G->closebrace_count) {
        G->template_flag = 0;
    }
    if (G->funcname_flag) {
        G->param_list_flag = 0;
        G->param_capture = 0;
    }
    G->static_flag = 0; // a static member counts as any other
    EndMember(scan, G);
    const int friend_class = G->friend_flag && G->friend_class && G->is_cpp;
    static_cast<StatementState &>(*G) = StatementState{};
    G->template_beg_flag = 0;
    G->inherit_more = 0;
    if (G->function_scope <= 0) {
        EndCandidate(G);
    }
    if (friend_class) {
        EmitFriendClassNotice(scan.line, scan.index, G);
    }
}

// In the body of a function, with no member in hand and no heading.
bool IsPlainStatement(const Globals *G) {
    return G->function_scope > 0 && !((G->reading & kBraces) | G->class_flag | G->attr_flag | G->method_done | G->struct_flag |
                                      G->friend_flag | (G->open_braces == G->closebrace_count));
}

} // namespace

void OnSemicolon(Scan &scan, Globals *G) {
    ++G->local_semicolon;
    ++G->semicolon_count;
    scan.is_logical = 1;
    if (!IsPlainStatement(G)) {
        LookAtStatement(scan, G);
        return;
    }
    G->param_list_flag &= !G->funcname_flag;
    G->param_capture &= !G->funcname_flag;
    static_cast<StatementState &>(*G) = StatementState{};
    G->template_beg_flag = 0;
    G->inherit_more = 0;
}

namespace {

bool StandsAhead(const Scan &scan, std::string_view word) {
    return std::string_view(scan.line, scan.index).find(word) != std::string_view::npos;
}

// An "=" outside functions: a member's initial value, or the end of what looked like a head. "operator" and "#define" in front of
// it make it no assignment.
[[gnu::noinline]] void AssignOutsideFunction(const Scan &scan, Globals *G) {
    const bool behind_operator = StandsAhead(scan, "operator");
    const bool behind_define = StandsAhead(scan, "#define");
    const bool may_be_member = !behind_operator && (!behind_define || strstr(scan.line + scan.index, "operator"));
    if (may_be_member && G->class_flag && !G->method_flag && !G->method_done) {
        G->attr_flag = 1;
    }
    if (behind_operator || behind_define) {
        G->assignment_flag = 0;
    }
    if (G->open_paren == G->close_paren) { // int x = f(1);
        G->funcname_flag = 0;
    }
}

// x == y, x != y, x <= y, x >= y; and x => y
bool IsPartOfOperator(char before, char next, const Globals *G) {
    return before == '=' || before == '!' || before == '<' || before == '>' || next == '=' ||
           (next == '>' && (G->reading & kBraces));
}

bool IsOperatorAssign(const char *name) {
    return *name && strchr(name, '=');
}

} // namespace

void OnAssign(Scan &scan, Globals *G) {
    if (IsPartOfOperator(scan.line[scan.index - 1], scan.line[scan.index + 1], G) || (G->template_flag | G->preproc_flag) ||
        IsOperatorAssign(G->funcname)) {
        return;
    }
    G->assignment_flag = 1;
    CheckAssignedLiteral(scan, G);
    if (G->function_scope < 1) {
        AssignOutsideFunction(scan, G);
    }
    if (G->if_flag) {
        NoticeAtLine(kNoticeIfAssignment, G);
    } else if (G->while_flag) {
        NoticeAtLine(kNoticeWhileAssignment, G);
    }
}

// Shifts, comparisons and arrows are no angle brackets.
void OnLess(Scan &scan, Globals *G) {
    const char before = scan.line[scan.index - 1];
    const char next = scan.line[scan.index + 1];
    if (next != '=' && before != '<' && next != '<' && next != '-') {
        ++G->angle_depth;
    }
}

void OnGreater(Scan &scan, Globals *G) {
    const char before = scan.line[scan.index - 1];
    if (before == '-' && !G->template_beg_flag) { // most of them
        return;
    }
    const char next = scan.line[scan.index + 1];
    if (next != '=' && before != '>' && before != '-' && next != '>') {
        --G->angle_depth;
    }
    if (before == '=' && (G->reading & kBraces)) {
        OpenExpression(scan, G);
    }
    if (G->angle_depth <= 0) {
        G->template_beg_flag = 0;
    }
}

namespace {

// [DllImport("x")] at file level leaves no function behind.
bool IsAttributeBracket(const Globals *G) {
    return !G->class_flag && !G->funcname_flag && (G->is_c_header || G->is_cpp || G->is_cs);
}

} // namespace

void OnOpenBracket(Scan &, Globals *G) {
    if (IsAttributeBracket(G)) {
        G->dotnet_attr = 1;
        if (G->debug) {
            Message(G, "*** Debug: Found .net open bracket\n");
        }
    }
    ++G->open_bracket;
    ++G->local_bracket;
}

void OnCloseBracket(Scan &, Globals *G) {
    ++G->close_bracket;
    --G->local_bracket;
    if (IsAttributeBracket(G)) {
        G->dotnet_attr = 0;
        if (G->debug) {
            Message(G, "*** Debug: Found .net close bracket\n");
        }
    }
    if (G->function_scope == 0 && G->open_bracket == G->close_bracket) {
        G->assignment_flag = 0;
    }
}

namespace {

bool IsAmong(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}

// Map<?, ? extends T>
bool IsWildcard(const Scan &scan) {
    const int before = OverBlanks(scan.line, scan.index - 1);
    return before >= 0 && IsAmong(scan.line[before], "<,");
}

// a?.b, a?[0], List<int?> and int? a = 1; but a ? b : c and a?b:c are conditions
bool IsNullable(const Scan &scan, const Globals *G) {
    const char *mark = scan.line + scan.index;
    const char *p = mark + 1;
    if (*p == '[' || (*p == '.' && !IsDigit(p[1]))) {
        return true;
    }
    if (IsBlankOrTab(mark[-1])) {
        return false;
    }
    if (G->function_scope == 0 || IsAmong(*p, ">),;")) {
        return true;
    }
    const char *name = Ltrim(p);
    if (name == p || !isfirstchar(*name)) {
        return false;
    }
    while (IsWordChar(*name)) {
        ++name;
    }
    name = Ltrim(name);
    return IsAmong(*name, "=;,)") && name[1] != '=';
}

} // namespace

void OnQuestion(Scan &scan, Globals *G) {
    if (scan.line[scan.index + 1] == '?') {
        NoteSpan(scan, scan.index, scan.index + 1, kPassedOver);
        GoOnBehind(scan, scan.index + 1);
        return;
    }
    if ((G->reading & kConditions) && ((G->is_java && IsWildcard(scan)) || (G->is_cs && IsNullable(scan, G)))) {
        return;
    }
    ++G->local_inline_if;
    NoticeAtLine(kNoticeTernary, G);
}

// "..." as a parameter, told at its second dot; catch (...) isn't meant
void OnDot(Scan &scan, Globals *G) {
    const char *dot = scan.line + scan.index;
    if (dot[-1] != '.' || dot[1] != '.') {
        return;
    }
    const char before = dot[-2];
    if ((IsBlankOrTab(before) || before == ',' || before == '(') && (IsBlankOrTab(dot[2]) || dot[2] == ')') && G->quality_notices &&
        !G->catch_flag) {
        NoticeAtLine(kNoticeEllipsis, G);
    }
}
