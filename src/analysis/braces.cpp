// "{" and "}": where entities begin and end. What is done there for a function, a class or a namespace is in their own rooms; here
// are the steps that every brace takes and the order of the tests.
#include "analysis/class.h"
#include "analysis/function.h"
#include "analysis/namespaces.h"
#include "analysis/scan.h"
#include "analysis/scopes.h"
#include "files/source_reader.h"
#include "notices/raise.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

[[gnu::cold]] void DebugState(const char *head, int closing, Globals *G) {
    Message(G, "%s*** funcname          = %s ***\n", head, G->funcname);
    if (closing) {
        Message(G, "*** funcname_flag     = %d ***\n*** assignment_flag   = %d ***\n", G->funcname_flag, G->assignment_flag);
    }
    Message(G,
            "*** namespace         = %s ***\n*** using_flag        = %d ***\n*** namespacebeg_flag = %d ***\n"
            "*** namespace_flag    = %d ***\n*** namespace_scope   = %d ***\n*** using_count       = %d ***\n"
            "*** namespace_count   = %d ***\n*** closebrace_count  = %d ***\n*** function_scope       = %d ***\n",
            G->namespace_name, G->using_flag, G->namespacebeg_flag, G->namespace_flag, G->namespace_scope, G->using_count,
            G->namespace_count, G->closebrace_count, G->function_scope);
}

bool HoldsExternC(const char *line) {
    return strchr(line, '"') && strstr(line, "extern \"C\""); // few lines have a quote
}

// extern "C" {, or a brace behind #ifdef __cplusplus: the code inside stays at file level.
bool IsLinkageBlock(const Scan &scan, const Globals *G) {
    if (G->function_scope > 0) {
        return false;
    }
    const char *line_before = KeptText(G->source);
    return strstr(line_before, "__cplusplus") || HoldsExternC(scan.line) || HoldsExternC(line_before);
}

void OpenBlock(Globals *G) {
    if (G->new_flag || G->enum_flag) {
        return;
    }
    ++G->function_scope;
    if (G->function_scope > G->max_scope_depth) {
        EmitScopeNotice(G);
    }
}

void NoteJustBrace(Scan &scan, char brace, Globals *G) {
    if (IsJust(scan, brace)) {
        ++G->just_brace_count;
        scan.non_effective = 1;
    }
}

[[gnu::cold]] void DebugOpenClass(const char *kind, const char *scope, const Scan &scan, Globals *G) {
    if (G->debug) {
        Message(G, "*** Debug: Opening %s %s at } - Line %d\n*** %s Scope = %d\n*** G->class_index = %d\n\n", kind, G->classname,
                scan.number, scope, G->class_scope, G->class_index);
    }
}

// The first case that fits.
void Open(Scan &scan, Globals *G) {
    const int no_class_open = G->class_scope <= 0;
    if (no_class_open && G->struct_pending && G->class_pending) {
        DebugOpenClass("Struct", "Struct", scan, G);
        OpenClass(scan, G);
    } else if (no_class_open && !G->interface_flag && G->class_pending) {
        DebugOpenClass("Class", "Class", scan, G);
        OpenClass(scan, G);
    } else if (no_class_open && G->interface_flag && (G->is_java || G->is_cs)) {
        DebugOpenClass("Interface", "class", scan, G);
        OpenInterface(scan, G);
    } else if (IsLinkageBlock(scan, G)) {
        G->function_scope = 0;
    } else if (G->assignment_flag) { // int a[] = {
        return;
    } else if (G->funcname_flag && G->local_paren <= 0 && G->function_scope <= 0) {
        if (G->debug) {
            Message(G, "*** Debug: Enter begin function check\n");
        }
        OpenFunction(scan, G);
    } else {
        OpenBlock(G);
    }
}

} // namespace

void OnOpenBrace(Scan &scan, Globals *G) {
    ++G->open_braces;
    if (G->local_paren >= 1) {
        G->if_flag = 0;
        G->while_flag = 0;
        G->for_flag = 0;
    }
    if (G->namespace_flag) {
        ++G->namespace_scope;
    }
    G->where_flag = 0;
    // a default argument has ended; behind an initialiser's "=" without a head the flag stays: .read = f, stands inside
    if (G->function_scope < 1 && G->open_paren == G->close_paren && (G->funcname_flag | G->class_pending | G->interface_flag)) {
        G->assignment_flag = 0;
    }
    if (G->reading & kBraces) {
        OpenScope(scan, G);
    } else {
        Open(scan, G);
    }
    if (scan.aborted) {
        return;
    }
    if (G->scope_kind != kNoBody) {
        static_cast<BodyWatch &>(*G) = BodyWatch{};
    }
    if (G->enum_flag == 2) {
        ++G->enum_count;
        G->enum_flag = 1;
    }
    if (G->class_flag) {
        ++G->class_scope;
    }
    NoteJustBrace(scan, '{', G);
    if (G->debug) {
        DebugState("*** Debug: open { ***\n", 0, G);
    }
}

void EndSwitch(Globals *G) {
    --G->switch_depth;
    if (G->switch_depth <= kNestingLimit) {
        G->switch_scope = G->switch_stack[G->switch_depth];
    }
}

namespace {

// A "}" too many, as conditional code leaves it: the counts are made even again.
[[gnu::cold]] void RepairBraces(Globals *G) {
    NoticeStray('}', G);
    G->function_scope = 0;
    G->local_paren = 0;
    G->closebrace_count = G->open_braces;
    G->close_paren = G->open_paren;
}

void EndStatic(Globals *G) {
    G->static_flag = 0;
    G->static_pending = 0;
    if ((G->is_java || G->is_cs) && G->class_flag && !G->funcname_flag) {
        G->comment_start_line = 0;
        G->c_comment = 0;
        G->comment_pending = 0;
    }
}

// What ends at this brace: a function, then a class, then a namespace, each by its own test.
void Close(Scan &scan, Globals *G) {
    if (G->function_scope <= 0 && G->local_paren <= 0 && G->funcname_flag && !G->assignment_flag) {
        if (G->debug) {
            Message(G, "*** Debug: Closing Function: %s at }\n", G->funcname);
        }
        CloseFunction(scan, G);
        if (scan.aborted) {
            return;
        }
    }
    if (G->class_flag && G->class_scope <= 0 && !G->assignment_flag) {
        if (G->debug) {
            Message(G, "*** Debug: Closing Class %s at } - Line %d\n*** G->class_index = %d\n\n", G->classname, scan.number,
                    G->class_index);
        }
        CloseClass(scan, G);
    }
    if (G->namespace_flag && G->namespace_scope <= 0 && (G->is_cpp || G->is_cs)) {
        CloseNamespace(G);
    }
}

} // namespace

void OnCloseBrace(Scan &scan, Globals *G) {
    ++G->closebrace_count;
    G->break_flag = 0;
    if (G->reading & kBraces) {
        NoteJustBrace(scan, '}', G);
        CloseScope(scan, G);
        return;
    }
    if (!(G->assignment_flag | G->enum_flag)) {
        LeaveBlock(G);
    }
    if (G->closebrace_count > G->open_braces) {
        RepairBraces(G);
    }
    if (G->debug) {
        DebugState("*** Debug: close } ***\n", 1, G);
    }
    if (G->class_flag) {
        --G->class_scope;
    }
    if (G->namespace_flag) {
        --G->namespace_scope;
    }
    if (G->function_scope <= 0) {
        G->set_flag = 0;
        G->get_flag = 0;
        if (G->method_done) {
            G->method_done = 0;
            G->method_flag = 0;
        }
    }
    NoteJustBrace(scan, '}', G);
    if (G->function_scope == 0 && scan.line[scan.index + 1] != ';' && (G->enum_flag | G->struct_flag | G->typedef_flag)) {
        G->enum_flag = 0;
        G->struct_flag = 0;
        G->typedef_flag = 0;
    }
    if (G->static_flag && G->static_brace == G->open_braces - G->closebrace_count) {
        EndStatic(G);
    }
    if (G->switch_depth > 0 && G->switch_scope == G->function_scope) {
        EndSwitch(G);
    }
    Close(scan, G);
}
