// A function's life: the candidate opens at its "{", and at its last "}" its figures are the differences of the file's counters.
//
// How the candidate's name and parameters are found is in function_head.cpp and function_params.cpp, what is printed is in
// function_output.cpp.
#include "analysis/function.h"

#include <algorithm>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/parse_line.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "config/languages.h"
#include "notices/raise.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/percent.h"

namespace {

void ShowHead(const Scan &scan, Globals *G) {
    G->func_start_line = G->file_line_no;
    if (G->quality_notices && !G->list_functions) {
        FunctionBegin(G);
        return;
    }
    CopyText(G->func_first_line, scan.line);
    if (G->list_functions || G->template_ident) {
        EmitFunction(G);
    }
}

// The line in hand isn't counted yet, so a function's lines begin with the one of its "{". Comments directly above it are its own.
void TakeSnapshots(Globals *G) {
    G->func_start_loc = G->file_loc;
    G->func_start_comment = G->file_comments - G->comment_pending;
    G->func_start_blank = G->file_blank;
    G->func_start_noneffective = G->just_paren_count + G->just_brace_count;
    G->func_start_white = WhiteSoFar(G);
    G->func_start_chars = G->file_chars;
}

EntityFigures Measure(const Globals *G) {
    EntityFigures f{};
    f.loc = G->file_loc + 1 - G->func_start_loc;
    f.lloc = G->local_semicolon - G->local_for;
    f.blanks = G->file_blank - G->func_start_blank;
    f.eloc = f.loc - (G->just_paren_count + G->just_brace_count - G->func_start_noneffective);
    f.comments = G->file_comments - G->func_start_comment;
    f.lines = G->file_line_no + 1 - G->func_start_line;
    const int total = f.loc + f.blanks + f.comments;
    const int chars = G->file_chars - G->func_start_chars;
    f.white_pct = Percent(WhiteSoFar(G) - G->func_start_white, chars);
    f.blank_pct = Percent(f.blanks, total);
    return f;
}

void AddToSums(const EntityFigures &f, Globals *G) {
    G->func_loc_sum += f.loc;
    G->func_eloc_sum += f.eloc;
    G->func_lloc_sum += f.lloc;
    G->func_comment_sum += f.comments;
    G->params_max = std::max(G->params_max, G->local_params);
    G->returns_max = std::max(G->returns_max, G->local_return);
}

// The lines of a method in its class's body are the class's lines already; "void A::f() {" outside of it brings its own.
void AddToClass(const EntityFigures &f, int cyclo, Globals *G) {
    const bool qualified = strchr(G->funcname, ':') && strstr(G->funcname, "::");
    if (G->class_flag && (qualified || strchr(G->funcname, '.'))) {
        Add_Func2Class({}, cyclo, G->local_params, G->local_return, G);
    } else if (qualified && !G->class_flag) {
        Add_Func2Class(f, cyclo, G->local_params, G->local_return, G);
    }
}

int AddRecord(const EntityFigures &f, int cyclo, Globals *G) {
    FunctionData record{};
    static_cast<LineCounts &>(record) = f;
    record.name = G->funcname;
    record.parameters = G->params;
    record.template_line = G->func_template ? G->func_template_text : nullptr;
    record.file = G->file_name;
    record.line = G->file_line_no;
    record.params = G->local_params;
    record.returns = G->local_return;
    record.cyclo = cyclo;
    record.language = LanguageInHand(G);
    return AddListNode(0, record, &G->function_list, G);
}

// A function more for a class or a namespace.
void AddFunction(ClassData *sum, const LineCounts &lines, int cyclo, int64_t params, int returns) {
    Add(*sum, lines);
    sum->cyclo += cyclo;
    sum->params += params;
    sum->returns += returns;
    ++sum->functions;
}

void ShowTail(const EntityFigures &f, Globals *G) {
    if (G->list_functions || G->show_class_methods) {
        return;
    }
    if (G->quality_notices) {
        FunctionEnd(G);
    } else {
        EmitFunction(G);
    }
    if (!G->function_metrics_implied) {
        ShowFunction(f, G);
    }
}

// A<T>::B becomes A::B.
void DropTypes(char *name) {
    int depth = 0;
    char *out = name;
    for (const char *p = name; *p; ++p) {
        depth += *p == '<';
        if (depth == 0) {
            *out++ = *p;
        }
        depth -= *p == '>' && depth > 0;
    }
    *out = '\0';
}

// A<b::c>::f becomes A<b::c> and A::operator b::c becomes A. True if there was a separator.
bool CutAtSeparator(char *name, const Globals *G) {
    char *cut = G->is_java || G->is_cs ? nullptr : strstr(name, "::operator");
    int depth = 0;
    for (char *p = name + strlen(name); !cut && p-- > name;) {
        depth += (*p == '>') - (*p == '<');
        const bool doubled = *p == ':' && p > name && p[-1] == ':';
        if (depth == 0 && (doubled || (*p == '.' && (G->is_java || G->is_cs)))) {
            cut = p - doubled;
        }
    }
    if (cut) {
        *cut = '\0';
    }
    return cut != nullptr;
}

// A::B::f becomes A::B and A::B becomes A; in Java and C# the separator is ".". A template's arguments are no part of a class's
// name, but for C#. True if there was a separator.
bool CutToClass(char *name, const Globals *G) {
    if (G->reading & kBraces) {
        return CutAtSeparator(name, G);
    }
    char *cut = strrchr(name, G->is_java || G->is_cs ? '.' : ':');
    if (cut) {
        cut -= cut > name && cut[-1] == ':';
        *cut = '\0';
    }
    if (char *angle = G->is_cs ? nullptr : strchr(name, '<')) {
        *angle = '\0';
    }
    if (char *op = strstr(name, "::operator")) {
        *op = '\0';
    }
    return cut != nullptr;
}

// The body at a depth of nesting; null for one that no stack holds.
const ClassBody *BodyAt(int depth, const Globals *G) {
    return depth == G->class_index ? G : depth < kNestingLimit ? &G->class_stack[depth] : nullptr;
}

// The record that a method counts for at a depth of nesting: of an interface by its own name, of a class by the method's, cut to
// it; what the modern reading finds in a class is that class's.
ClassData *OwnerOf(char *name, int depth, const Globals *G) {
    const ClassBody *body = BodyAt(depth, G);
    if (body && body->interface_class) {
        return FindInterface(body->classname, G);
    }
    if (!(G->reading & kBraces)) {
        return FindClass(name, G);
    }
    if (body && G->class_flag) {
        return FindClass(body->classname, G);
    }
    ClassData *specialised = FindClass(name, G);
    DropTypes(name);
    return specialised ? specialised : FindClass(name, G);
}

} // namespace

void OpenFunction(Scan &scan, Globals *G) {
    FormatTemplateLine(G->funcname);
    if (!(G->reading & kBraces)) { // which reads them with the head
        G->local_params = packParams(G);
    }
    if (G->class_flag && G->method_flag) {
        G->method_flag = 0;
        G->method_done = 1;
        ClassMethod(G);
    }
    G->param_list_flag = 0;
    G->param_capture = 0;
    G->virtual_flag = 0;
    ShowHead(scan, G);
    if (G->comment_pending == 0) {
        EmitNoComment(kNoticeBareFunction, "function", G);
    }
    TakeSnapshots(G);
    G->comment_pending = 0;
    G->function_scope = 1;
    G->local_paren = 0;
    G->local_bracket = 0;
    static_cast<FunctionCounters &>(*G) = FunctionCounters{};
    ++G->file_functions;
}

void CloseFunction(Scan &scan, Globals *G) {
    if (G->local_return == 0) { // a function that falls off its end returns there
        G->local_return = 1;
    }
    TidyParams(G); // of a head that no "{" of its own has opened
    const EntityFigures figures = Measure(G);
    NoticesBeforeSums(figures, G);
    AddToSums(figures, G);
    NoticesOfLimits(figures, G);
    const int cyclo = CountComplexity(G);
    AddToClass(figures, cyclo, G);
    if (!G->functions_unlisted && !AddRecord(figures, cyclo, G)) {
        MemoryError(G);
        Abort(scan, G);
        return;
    }
    ++G->function_count;
    ShowTail(figures, G);
    G->func_loc_max = std::max(G->func_loc_max, figures.loc);
    G->func_eloc_max = std::max(G->func_eloc_max, figures.eloc);
    G->func_lloc_max = std::max(G->func_lloc_max, figures.lloc);
    if (G->quality_notices) {
        G->attr_line = G->file_line_no;
    }
    ResetFunction(G);
}

void ResetFunction(Globals *G) {
    static_cast<FunctionHead &>(*G) = FunctionHead{};
    static_cast<BodyWatch &>(*G) = BodyWatch{};
    ClearText(G->func_template_text);
    G->function_scope = 0;
    G->if_directive = 0;
    G->preproc_flag = 0;
    G->error_flag = 0;
    // of the statement that its last "}" ends, what a ";" would clear and the next statement mustn't see
    G->enum_flag = 0;
    G->typedef_flag = 0;
    G->static_flag = 0;
    G->static_pending = 0;
    G->new_flag = 0;
    // the member that it was, and the comments inside it
    G->method_done = 0;
    G->method_flag = 0;
    G->attr_flag = 0;
    G->fall_through = 0;
    G->comment_pending = 0;
}

// A method of a nested class counts for every class around it. Levels that no stack holds have no name to be found by.
void Add_Func2Class(const LineCounts &lines, int cyclo, int params, int returns, Globals *G) {
    LineText name;
    CopyText(name, G->funcname);
    const int nested = std::min(G->class_index, kNestingLimit);
    for (int depth = G->class_index; depth >= G->class_index - nested; --depth) {
        const int separated = CutToClass(name, G);
        ClassData *record = OwnerOf(name, depth, G);
        if (!record && !separated) {
            continue;
        }
        record = record ? record : FindNamespace(name, G); // ns::f is a free function
        record = record ? record : AddClassRecord(name, nullptr, nullptr, G->file_line_no, 0, 0, 0, G);
        if (!record) {
            return;
        }
        AddFunction(record, lines, cyclo, params, returns);
    }
}

void Add_Func2namespace(const NodeData &function, Globals *G) {
    if (G->treat_c_headers_as_cpp || function.language == kCppGroup || function.language == kCsGroup) {
        G->class_lang_seen = 1;
    }
    const char *colon = strchr(function.name, ':');
    if (!colon || strrchr(function.name, ':') != colon + 1) {
        return;
    }
    LineText left;
    CopyPart(left, function.name, colon - function.name);
    if (ClassData *record = FindNamespace(left, G)) {
        LineCounts lines = function;
        lines.blanks = 0; // stay those of the namespace's classes
        AddFunction(record, lines, function.cyclo, function.params, function.returns);
    }
}

void SettleFunctionList(Globals *G) {
    LlistResort_NodeData(&G->function_list, G->sort_key, G);
}
