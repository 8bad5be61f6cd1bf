// A function's life: the candidate opens at its "{", and at its last "}" its figures are the differences of the file's counters.
//
// How the candidate's name and parameters are found is in function_head.cpp and function_params.cpp, what is printed is in
// function_output.cpp.
#include "analysis/function.h"

#include <algorithm>
#include <cerrno>

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/parse_line.h"
#include "analysis/scan.h"
#include "notices/raise.h"
#include "report/mode.h"
#include "run/compare.h"
#include "run/globals.h"

namespace {

void ShowHead(const Scan &scan, Globals *G) {
    if (!G->function_metrics && !G->list_functions && !G->template_ident) {
        return;
    }
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

FunctionFigures Measure(const Globals *G) {
    FunctionFigures f{};
    f.loc = G->file_loc + 1 - G->func_start_loc;
    f.lloc = G->local_semicolon - G->local_for;
    f.blanks = G->file_blank - G->func_start_blank;
    f.eloc = f.loc - (G->just_paren_count + G->just_brace_count - G->func_start_noneffective);
    f.comments = G->file_comments - G->func_start_comment;
    f.span = G->file_line_no + 1 - G->func_start_line;
    const int total = f.loc + f.blanks + f.comments;
    const int chars = G->file_chars - G->func_start_chars;
    if (chars > 0) {
        f.white_pct = static_cast<float>(WhiteSoFar(G) - G->func_start_white) / static_cast<float>(chars) * 100.0F;
    }
    if (f.blanks > 0) {
        f.blank_pct = static_cast<float>(f.blanks) / static_cast<float>(total) * 100.0F;
    }
    if (total == 0) {
        f.loc = 1;
    }
    return f;
}

void AddToSums(const FunctionFigures &f, Globals *G) {
    G->func_loc_sum += f.loc;
    G->func_eloc_sum += f.eloc;
    G->func_lloc_sum += f.lloc;
    G->func_comment_sum += f.comments;
    G->params_max = std::max(G->params_max, G->local_params);
    G->returns_max = std::max(G->returns_max, G->local_return);
}

// The lines of a method in its class's body are the class's lines already; "void A::f() {" outside of it brings its own.
void AddToClass(const FunctionFigures &f, int cyclo, Globals *G) {
    const bool qualified = strstr(G->funcname, "::") != nullptr;
    if (G->class_flag && (qualified || strchr(G->funcname, '.'))) {
        Add_Func2Class(0, 0, 0, 0, 0, 0, cyclo, G->local_params, G->local_return, G);
    } else if (qualified && !G->class_flag) {
        Add_Func2Class(f.loc, f.eloc, f.lloc, f.comments, f.blanks, f.span, cyclo, G->local_params, G->local_return, G);
    }
}

int AddRecord(const FunctionFigures &f, int cyclo, Globals *G) {
    return AddListNode(0, G->funcname, G->params, nullptr, G->func_template ? G->func_template_text : nullptr, G->file_name,
                       G->file_line_no, 0, G->local_params, f.loc, f.eloc, f.lloc, f.comments, f.blanks, f.span, cyclo,
                       G->local_return, 0, 0, 0, 0, 0, 0, 0, 0, 0, nullptr, &G->function_list, G, 0.0F);
}

void ShowTail(const FunctionFigures &f, Globals *G) {
    if (G->list_functions || G->show_class_methods) {
        return;
    }
    if (G->quality_notices) {
        FunctionEnd(G);
    } else {
        EmitFunction(G);
    }
    if (!G->function_metrics_implied) {
        ShowFunction(f.loc, f.eloc, f.lloc, f.comments, f.span, G);
    }
}

// A::B::f becomes A::B and A::B becomes A; in Java and C# the separator is ".". A template's arguments are no part of a class's
// name, but for C#. 1 if there was a separator.
int CutToClass(char *name, const Globals *G) {
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
    return depth == G->class_index ? G : depth < kNestingLimit ? &G->class_stack[depth].body : nullptr;
}

// The record that a method counts for at a depth of nesting: of an interface by its own name, of a class by the method's, cut to
// it.
NodeData *OwnerOf(const char *name, int depth, const Globals *G) {
    const ClassBody *body = BodyAt(depth, G);
    return body && body->interface_class ? FindInterface(body->classname, G) : FindClass(name, G);
}

} // namespace

void OpenFunction(Scan &scan, Globals *G) {
    FormatTemplateLine(G->funcname);
    packParams(G->params, G->funcname, G);
    G->local_params = countParams(G->params);
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
        EmitNoComment(51, "function", G);
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
    const FunctionFigures figures = Measure(G);
    NoticesBeforeSums(figures, G);
    AddToSums(figures, G);
    NoticesOfLimits(figures, G);
    const int cyclo = CountComplexity(G);
    G->func_end_line = G->file_line_no;
    AddToClass(figures, cyclo, G);
    if (!AddRecord(figures, cyclo, G)) {
        Message(G, "  Memory Error: %s\n", strerror(errno));
        scan.aborted = 1;
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
    G->enum_flag = 0;
    G->typedef_flag = 0;
    G->static_flag = 0;
    G->static_pending = 0;
    G->preproc_flag = 0;
    G->error_flag = 0;
    G->kr_flag = 0;
    G->function_scope = 0;
    G->funcname_flag = 0;
    G->if_directive = 0;
    G->scope_kind = 0;
    G->scope_pending_line = 0;
    G->new_flag = 0;
    G->scope_paren = 0;
    G->instantiate_colon_flag = 0;
    G->fall_through = 0;
    G->comment_pending = 0;
    G->method_done = 0;
    G->method_flag = 0;
    G->attr_flag = 0;
    G->func_template = 0;
    ClearText(G->func_template_text);
}

// A method of a nested class counts for every class around it. Levels that no stack holds have no name to be found by.
void Add_Func2Class(int loc, int eloc, int lloc, int comments, int blanks, int span, int cyclo, int params, int returns,
                    Globals *G) {
    LineText name;
    CopyText(name, G->funcname);
    const int nested = std::min(G->class_index, kNestingLimit);
    for (int depth = G->class_index; depth >= G->class_index - nested; --depth) {
        const int separated = CutToClass(name, G);
        NodeData *record = OwnerOf(name, depth, G);
        if (!record && !separated) {
            continue;
        }
        record = record ? record : FindNamespace(name, G); // ns::f is a free function
        record = record ? record : AddClassRecord(name, nullptr, nullptr, G->file_line_no, 0, 0, 0, G);
        if (!record) {
            return;
        }
        record->loc += loc;
        record->eloc += eloc;
        record->lloc += lloc;
        record->comments += comments;
        record->blanks += blanks;
        record->lines += span;
        record->cyclo += cyclo;
        record->params += params;
        record->returns += returns;
        record->percent += 1.0F;
    }
}

void Add_Func2namespace(const char *name, int loc, int lloc, int eloc, int comments, int span, int cyclo, int64_t params,
                        int returns, Globals *G) {
    if (G->treat_c_headers_as_cpp || G->is_cpp || G->is_cs) {
        G->class_lang_seen = 1;
    }
    const char *colon = strchr(name, ':');
    if (!colon || strrchr(name, ':') != colon + 1) {
        return;
    }
    LineText left;
    CopyPart(left, name, colon - name);
    NodeData *record = FindNamespace(left, G);
    if (!record) {
        return;
    }
    record->loc += loc;
    record->lloc += lloc;
    record->eloc += eloc;
    record->comments += comments;
    record->lines += span;
    record->cyclo += cyclo;
    record->params += params;
    record->returns += returns;
    record->percent += 1.0F;
}

void SettleFunctionList(Globals *G) {
    LlistResort_NodeData(&G->function_list, G->sort_key, G);
}
