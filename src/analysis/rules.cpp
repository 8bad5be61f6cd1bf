// What decides about a notice where more than one flag is looked at: bodies without braces, assigned numbers, and the closing
// figures of functions and classes.
#include "analysis/rules.h"

#include <cstdlib>
#include <cstring>

#include "analysis/code_text.h"
#include "analysis/function.h"
#include "analysis/scan.h"
#include "notices/long_form.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/percent.h"

namespace {

constexpr LongText<Shown> kFriendClass{"friend class '`%s`' identified.\n"
                                       "           This is a problematic construct as it breaks encapsulation.\n"};

// The number that stands in text is 0.
bool IsZero(const char *text) {
    const char *number = Ltrim(text);
    const char *end = number;
    bool zero = true;
    for (; IsDigit(*end); ++end) {
        zero = zero && *end == '0';
    }
    if (end > number && !IsWordChar(*end) && *end != '.') { // most of them: digits alone
        return zero;
    }
    LineText token;
    GetNextCodeToken(text, 0, token);
    return strtod(token, nullptr) == 0.0;
}

// Notice 50: text behind the "=".
void EmitNumericAssignment(const char *text, Globals *G) {
    if (G->zero_is_literal != 1 && IsZero(text)) {
        return;
    }
    if (Raise(kNoticeLiteral, G)) {
        WriteRowText(kNoticeLiteral, G->file_line_no, G);
    }
}

// A number at text, or behind a cast: x = 5;  x = (int) 5;  x = static_cast<int>(5);  first is the first code character of text.
void TestLiteral(const char *text, char first, Globals *G) {
    if (G->enum_flag || G->virtual_flag) { // enum { A = 1 }  and  virtual void f() = 0  assign nothing
        return;
    }
    if (IsDigit(first) && !G->const_flag) {
        EmitNumericAssignment(text, G);
        return;
    }
    const char *cast_end = nullptr;
    if (first == '(') {
        cast_end = strchr(text, ')');
    } else if (first != '\0' && G->is_cpp) {
        const char *angle = strchr(text, '>');
        cast_end = angle ? strchr(angle, '(') : nullptr;
    }
    if (cast_end && IsDigit(NextChar(cast_end))) {
        EmitNumericAssignment(cast_end + 1, G);
    }
}

// An if, or a word that ends in it, as in "else" and "if (b)" on two lines.
bool HoldsIf(const char *line) {
    for (const char *p = line; (p = strstr(p, "if")) != nullptr; p += 2) {
        if (p[2] == '(' || IsSpace(p[2])) {
            return true;
        }
    }
    return false;
}

// 0 if a character for which the check ran stands in front of index for sure: what it told of the whole line still holds. It
// doesn't run for comments, literals and "*".
bool MayBeFirstCode(const Scan &scan) {
    int i = scan.index - 1;
    while (i >= 0 && IsBlankOrTab(scan.line[i])) {
        --i;
    }
    return i < 0 || scan.line[i] <= ' ' || strchr("/*\"'", scan.line[i]) != nullptr;
}

// The name without its class: behind the last ":" of Tree::Walk, behind the last "." of Tree.Walk, in C# without its <T>.
void NoticeOfName(Globals *G) {
    const char *separator = nullptr;
    if (G->is_cpp) {
        separator = strrchr(G->funcname, ':');
    } else if (G->is_java || G->is_cs) {
        separator = strrchr(G->funcname, '.');
    }
    const char *name = separator ? separator + 1 : G->funcname;
    LineText bare;
    if (G->is_cs && strchr(name, '<')) {
        CopyPart(bare, name, strcspn(name, "<"));
        name = bare;
    }
    EmitFunctionNameNotice(name, G);
}

void NoticesOfSwitches(Globals *G) {
    if (G->local_switch > G->local_default) {
        NoticeAtLine(kNoticeNoDefault, G);
    }
    if (G->debug) {
        Message(G, "*** Debug: local_default         = %d\n", G->local_default);
        Message(G, "*** local_break           = %d\n", G->local_break);
        Message(G, "*** fall_through          = %d\n", G->fall_through);
        Message(G, "*** local_case            = %d\n", G->local_case);
    }
    const int labels = G->local_case + (G->default_in_case_break ? G->local_default : 0);
    if (labels > G->local_break + G->fall_through) {
        EmitCaseBreakNotice(G);
    }
}

// 17 of a function, 31 of a class.
void NoticeOfComments(int n, const char *kind, const EntityFigures &figures, float limit, Globals *G) {
    const int lines = figures.loc + figures.comments;
    if (lines > 0 && Percent(figures.comments, lines) < limit) {
        NoticeContent(n, kind, Percent(figures.comments, lines), limit, G);
    }
}

void NoticeBelow(int n, const char *kind, float measured, float limit, Globals *G) {
    if (measured < limit) {
        NoticeContent(n, kind, measured, limit, G);
    }
}

} // namespace

void CheckPending(Scan &scan, Globals *G) {
    const char *code = scan.line + scan.index;
    // x =  and its value on this line
    if (G->assignment_flag && !G->virtual_flag && !G->enum_flag) {
        TestLiteral(code, *code, G);
        G->scope_pending_line = 0;
        return;
    }
    if (G->scope_kind == kNoBody) {
        return;
    }
    if (G->scope_kind == kElse && MayBeFirstCode(scan) && HoldsIf(scan.line)) {
        G->scope_kind = kNoBody;
        G->scope_pending_line = 0;
        return;
    }
    if (G->function_scope > 0 && G->open_paren == G->close_paren && !FindCodeChar(code, '{')) {
        EmitScopeError(G);
    }
}

void CheckAssignedLiteral(const Scan &scan, Globals *G) {
    const char *sign = scan.line + scan.index;
    const char next = NextChar(sign);
    if (IsLineEnd(next)) {
        G->scope_pending_line = scan.number;
    } else {
        TestLiteral(sign + 1, next, G);
    }
}

void CheckBodyBehindParen(const Scan &scan, Globals *G) {
    if (G->scope_kind == kNoBody || G->scope_pending_line != 0) {
        return;
    }
    const char next = NextChar(scan.line + scan.index);
    if (next == '{' || (next == ';' && G->scope_kind == kWhile)) { // do { } while (a);
        G->scope_kind = kNoBody;
    } else if (G->local_paren == G->scope_paren) {
        G->scope_pending_line = scan.number;
    }
}

void NoticesBeforeSums(const EntityFigures &figures, Globals *G) {
    NoticeOfName(G);
    if (G->kr_flag) {
        NoticeAtLine(kNoticeOldStyleHead, G);
    }
    if (G->local_bracket != 0) {
        NoticeAtLine(kNoticeBrackets, G);
    }
    if (G->local_paren != 0) {
        NoticeAtLine(kNoticeParentheses, G);
    }
    NoticesOfSwitches(G);
    if (figures.loc > G->min_func_loc_content) {
        NoticeOfComments(kNoticeFunctionComments, "Function", figures, G->min_func_comment_pct, G);
        NoticeBelow(kNoticeBlank, "Function", figures.blank_pct, G->min_func_blank_pct, G);
        NoticeBelow(kNoticeWhite, "Function", figures.white_pct, G->min_func_white_pct, G);
    }
    if (figures.eloc > G->max_func_eloc) {
        NoticeFuncEloc(G);
    }
}

void NoticesOfLimits(const EntityFigures &figures, Globals *G) {
    if (G->local_return > G->max_return_points) {
        Notice_Return_Limit(G->local_return, G);
    }
    if (G->local_params > G->max_interface) {
        Notice_Interface_Limit(G->local_params, G);
    }
    if (G->local_params <= 0 && !G->local_void_param) {
        NoticeAtLine(kNoticeNoParameters, G);
    }
    if (figures.lloc <= G->min_func_eloc) {
        Notice_MinFuncLloc(figures.lloc, G);
    }
}

void NoticesOfClass(const EntityFigures &figures, Globals *G) {
    const char *kind = G->struct_flag ? "Struct" : "Class";
    if (figures.loc > G->min_class_loc_content) {
        NoticeOfComments(kNoticeClassComments, kind, figures, G->min_class_comment_pct, G);
        NoticeBelow(kNoticeWhite, kind, figures.white_pct, G->min_func_white_pct, G);
        NoticeBelow(kNoticeBlank, kind, figures.blank_pct, G->min_func_blank_pct, G);
    }
    if (G->virtual_class && !G->virtual_dtor) {
        NoticeAtLine(kNoticeVirtualDestructor, G);
    }
    if (G->cls_pub_methods + G->cls_prot_methods + G->cls_priv_methods > G->max_class_methods) {
        EmitClassFunctionNotice(G->struct_flag ? "struct" : "class", G);
    }
}

// friend class Tree;  the recogniser of function names reads the name, which then is no candidate
void EmitFriendClassNotice(const char *line, int index, Globals *G) {
    if (CountNotice(kNoticeFriendClass, G)) {
        const int in_place = PrintsInPlace(G) && !G->catch_flag;
        if (in_place) {
            GetFunction(line, index, G);
        }
        if (PrintNotice(kNoticeFriendClass, in_place, G)) {
            WriteLong(kNoticeFriendClass, G->file_line_no, G, kFriendClass, Shown{G->funcname});
        }
    }
    G->funcname_flag = 0;
}
