// Namespaces of C++ and C#, and packages of Java: which one is open, its full name, one record per distinct name.
//
// Like classes they nest by a stack of saved scopes, and levels beyond its size are counted and not saved. A Java package has no
// braces: it ends with its file, at the caller's.
#include "analysis/namespaces.h"

#include "analysis/class.h"
#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/scan.h"
#include "notices/raise.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

namespace {

// clang-format off
constexpr const char *kScopeLabels[2][2][2] = {
    // at the end              at the begin
    {{"Namespace End",        "Namespace Begin"},
     {"Nested Namespace End", "Nested Namespace Begin"}},
    {{"Package End",          "Package Begin"},
     {"Nested Package End",   "Nested Package Begin"}},
};
// clang-format on

constexpr Forms<LinkTo, const char *, Shown> kScopeLine{
    .text = "  %s: %s\n",
    .html = "  <b><a href=\"%{href}\" target=\"_blank\">%s</a></b>: <b><font color=\"%{notice}\">%s</font></b>\n",
    .csv = "%s,%s\n",
    .xml = "  %s: %s\n"};

// The scope in hand has its full name: its line, and its record if the name is new. namespace { has a line and no record.
void BeginScope(int *count, Scan &scan, Globals *G) {
    EmitNamespace(G, 1);
    if (!isfirstchar(*G->namespace_name) || FindNamespace(G->namespace_name, G)) {
        return;
    }
    ++*count;
    if (!AddNamespaceRecord(G->namespace_name, G->file_line_no, G)) {
        Abort(scan, G);
    }
}

void PutScopeLine(const char *label, const char *name, const Globals *G) {
    LineText wrapped;
    AdjNameLength(name, wrapped, Behind(label), G);
    Print(G, kScopeLine, LinkTo{G->file_name}, label, Shown{OutputMode(G) == Mode::kCsv ? name : wrapped});
}

// Cuts the name in front of its last "." or "::". 0 when it holds none.
int CutLastPart(char *name) {
    for (size_t i = strlen(name); i-- > 0;) {
        const int doubled = name[i] == ':' && i > 0 && name[i - 1] == ':';
        if (name[i] == '.' || doubled) {
            name[doubled ? i - 1 : i] = '\0';
            return 1;
        }
    }
    return 0;
}

void AddMembers(ClassData *sum, const ClassData *record) {
    Add(*sum, *record);
    sum->cyclo += record->cyclo;
    sum->returns += record->returns;
    sum->params += record->params;
    sum->public_methods += record->public_methods;
    sum->protected_methods += record->protected_methods;
    sum->private_methods += record->private_methods;
    sum->public_data += record->public_data;
    sum->protected_data += record->protected_data;
    sum->private_data += record->private_data;
    sum->functions += record->functions;
}

// Puts the scope in hand aside for one inside it.
void PushNestedNamespace(Globals *G) {
    if (++G->namespace_index <= kNestingLimit) {
        SavedNamespace &saved = G->namespace_stack[G->namespace_index - 1];
        CopyText(saved.namespace_name, G->namespace_name);
        saved.namespace_scope = G->namespace_scope;
    }
    ClearText(G->namespace_name);
    G->namespace_flag = 1;
    G->namespace_scope = 0;
    G->function_scope = 0;
    G->local_paren = 0;
}

void PopNestedNamespace(Globals *G) {
    if (G->namespace_index <= kNestingLimit) {
        const SavedNamespace &saved = G->namespace_stack[G->namespace_index - 1];
        CopyText(G->namespace_name, saved.namespace_name);
        G->namespace_scope = saved.namespace_scope;
    } else { // the scope around it wasn't saved: its name is what is left of this one's, and its own "{" is known to be open
        CutLastPart(G->namespace_name);
        G->namespace_scope = 1;
    }
    G->namespace_flag = 1;
    G->namespacebeg_flag = 0;
    G->struct_flag = 0;
    G->struct_pending = 0;
    G->function_scope = 0;
    G->local_paren = 0;
    --G->namespace_index;
}

} // namespace

void OnNamespace(Scan &scan, int end, Globals *G) {
    if (!G->is_cpp && !G->is_cs) {
        return;
    }
    if (G->using_flag) { // using namespace std;
        NoticeAtLine(kNoticeUsingNamespace, G);
        return;
    }
    if (G->reading & kBraces) {
        return;
    }
    LineText token;
    if (!GetNextToken(scan.line, end, token)) {
        ClearText(token);
    }
    OpenNamespace(token, scan, G);
}

void OpenNamespace(const char *token, Scan &scan, Globals *G) {
    if (G->namespace_flag) {
        LineText full;
        CopyText(full, G->namespace_name);
        PushNestedNamespace(G);
        AppendText(full, G->is_cs ? "." : "::");
        AppendText(full, token);
        CopyText(G->namespace_name, full);
    } else {
        CopyText(G->namespace_name, token);
        G->namespace_flag = 1;
    }
    G->namespacebeg_flag = 1;
    BeginScope(&G->namespace_count, scan, G);
}

void OnPackage(Scan &scan, int end, Globals *G) {
    if (!GetNextToken(scan.line, end, G->namespace_name)) {
        ClearText(G->namespace_name);
        return;
    }
    G->namespacebeg_flag = 1;
    G->namespace_flag = 1;
    BeginScope(&G->package_count, scan, G);
}

void EmitNamespace(Globals *G, int begin) {
    Rtrim(G->namespace_name);
    if (G->totals_only || (!G->object_metrics && !G->comment_doc_mode)) {
        return;
    }
    if (G->comment_doc_mode || (G->quality_notices && G->notice_count > 0)) {
        Put("\n");
    }
    const int unnamed = !G->is_java && !isfirstchar(*G->namespace_name);
    PutScopeLine(kScopeLabels[G->is_java != 0][G->namespace_index > 0][begin != 0],
                 unnamed ? "Anonymous - File Scope" : G->namespace_name, G);
    if (!G->quality_notices && OutputMode(G) != Mode::kCsv) {
        Put("\n");
    }
    if (G->comment_doc_mode) {
        Put("  %s%s\n", kDashes, kDashes);
    }
}

void CloseNamespace(Globals *G) {
    EmitNamespace(G, 0);
    G->namespace_flag = 0;
    G->namespacebeg_flag = 0;
    G->namespace_scope = 0;
    G->function_scope = 0;
    if (G->namespace_index > 0) {
        PopNestedNamespace(G);
    }
}

void Add_Class2namespace(const ClassData *record, int only_count, Globals *G) {
    LineText name;
    CopyText(name, record->name);
    while (CutLastPart(name)) {
        ClassData *found = FindNamespace(name, G);
        if (!found) {
            continue;
        }
        if (strcmp(found->name, "Anonymous") != 0) {
            if (!only_count) {
                AddMembers(found, record);
            }
            ++found->nesting;
        }
        return;
    }
}
