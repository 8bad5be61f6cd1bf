// A class from its "{" to its "}": its record, its figures, and the classes around it.
//
// A class is a record in a list, no node of a syntax tree. The only structure is a stack of saved bodies: a nested class puts the
// one in hand aside, starts with an empty body, and gives the saved one back when it ends. Levels beyond the stack's size are
// counted, so that each ends at its own brace; the body that they interrupt isn't kept.
#include "analysis/class.h"

#include "analysis/code_text.h"
#include "analysis/entities.h"
#include "analysis/parse_line.h"
#include "analysis/rules.h"
#include "analysis/scan.h"
#include "config/languages.h"
#include "notices/raise.h"
#include "report/entity_lines.h"
#include "report/lines.h"
#include "report/state_line.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/mode.h"
#include "run/percent.h"

namespace {

void SetSection(int ClassScope::*access, Globals *G) {
    G->access_public = 0;
    G->access_protected = 0;
    G->access_private = 0;
    G->*access = 1;
}

void TakeSnapshots(Globals *G) {
    G->class_start_line = G->file_line_no;
    G->class_start_loc = G->file_loc;
    G->class_start_lloc = LogicalLines(*G);
    G->class_start_comment = G->file_comments - G->comment_pending; // the comment above the class is its own
    G->class_start_blank = G->file_blank;
    G->class_start_noneffective = G->just_paren_count + G->just_brace_count;
}

void TakeTemplate(Globals *G) {
    ++G->template_class_count;
    Strip_nrt(Ltrim(G->template_line), G->class_template);
    FormatTemplateLine(G->class_template);
    ClearText(G->template_line);
    G->template_done = 1;
    G->template_flag = 0;
}

int UpdateClassRecord(ClassData *record, const char *inherit, const char *template_text, Globals *G) {
    ClassData seen = *record;
    if (inherit) {
        seen.inherit_line = const_cast<char *>(inherit); // texts are copied
        seen.parents = static_cast<uint16_t>(CountParents(inherit));
    }
    if (template_text) {
        seen.template_line = const_cast<char *>(template_text);
    }
    seen.file = G->file_name;
    seen.language = LanguageInHand(G);
    seen.line = G->file_line_no;
    seen.nesting = G->class_index;
    seen.is_struct = G->struct_flag != 0;
    if (inherit || template_text) {
        return ReplaceClass(record, seen, G) != nullptr;
    }
    *record = seen;
    return 1;
}

// A record may be there already: of a method defined ahead of its class, or of the same name in an earlier file.
int RecordClass(Globals *G) {
    if (FindNamespace(G->classname, G)) {
        return 1;
    }
    const char *inherit = G->inherit_flag ? G->inherit_line : nullptr;
    const char *template_text = G->template_done ? G->class_template : nullptr;
    if (ClassData *known = FindClass(G->classname, G)) {
        if (G->debug) {
            Message(G, "*** Debug: Open Class, Already in classlist so Appending Class %s\n", G->classname);
        }
        return UpdateClassRecord(known, inherit, template_text, G);
    }
    if (G->debug) {
        Message(G, "*** Debug: Open Class, Not in NS and CL so Adding Class %s\n", G->classname);
    }
    ++G->class_count;
    return AddClassRecord(G->classname, inherit, template_text, G->file_line_no, G->class_index, CountParents(inherit),
                          G->struct_flag, G) != nullptr;
}

// What stands behind the record of every kind: the head in notice mode, and the comment that should precede it.
void AnnounceClass(int notice, const char *word, Globals *G) {
    if (G->quality_notices && G->object_metrics && !G->classname_pending) {
        ClassBegin(G);
        EmitInheritanceLine(G);
    }
    if (G->comment_pending == 0) {
        EmitNoComment(notice, word, G);
    }
    G->comment_pending = 0;
}

// The attributes of } __packed T; and } __attribute__((packed)) v; are no names. The index behind them.
int BehindAttributes(const char *line, int index, const Globals *G) {
    LineText word;
    while ((G->reading & kMacros) && GetNextToken(line, index, word) && strncmp(word, "__", 2) == 0) {
        index = BehindArguments(line, TokenIndex(line, index) + static_cast<int>(strlen(word)));
    }
    return index;
}

// The text behind the "}" names an unnamed struct: typedef struct { int a; } T; or struct { int a; } v[10];
void NameStruct(const Scan &scan, Globals *G) {
    LineText token;
    if (!G->struct_flag || !strstr(G->classname, kUnnamedClass) ||
        !GetNextCodeToken(scan.line, BehindAttributes(scan.line, scan.index + 1, G), token) || *token <= ' ') {
        return;
    }
    LineText old_name;
    CopyText(old_name, G->classname);
    char *colon = strrchr(G->classname, ':');
    if (colon && (G->class_index > 0 || G->namespace_flag)) {
        colon[1] = '\0';
        CopyText(old_name, G->classname);
        AppendText(old_name, kUnnamedClass);
        AppendText(G->classname, token);
    } else {
        CopyText(G->classname, token);
    }
    if (char *bracket = strchr(G->classname, '[')) {
        *bracket = '\0';
    }
    ClassData *record = FindClass(G->classname, G) ? nullptr : FindClass(old_name, G);
    if (record) {
        RenameClass(record, G->classname, G);
    }
}

EntityFigures MeasureClass(const Globals *G) {
    EntityFigures figures{};
    figures.loc = G->file_loc + 1 - G->class_start_loc; // 1 for the line of the "}", which isn't counted yet
    figures.eloc = figures.loc - (G->just_paren_count + G->just_brace_count - G->class_start_noneffective);
    figures.lloc = LogicalLines(*G) - G->class_start_lloc;
    figures.comments = G->file_comments - G->class_start_comment;
    figures.blanks = G->file_blank - G->class_start_blank;
    figures.lines = G->file_line_no - G->class_start_line;
    if (figures.lines == 0) {
        figures.lines = 1;
    }
    if (figures.blanks <= 0) { // both percentages are 0 then
        return figures;
    }
    figures.blank_pct = Percent(figures.blanks, figures.lines);
    figures.white_pct = Percent(WhiteSoFar(G) - G->class_start_white, G->file_chars - G->class_start_chars);
    return figures;
}

void Widen(int loc, int *max, int *min) {
    if (*max == 0 && *min == 0) {
        *max = loc;
        *min = loc;
    } else if (loc > *max) {
        *max = loc;
    } else if (loc <= *min) {
        *min = loc;
    }
}

void ShowFigures(const EntityFigures &figures, Globals *G) {
    DataLine(G->cls_pub_data, G->cls_prot_data, G->cls_priv_data, G);
    MethodLine(G->cls_pub_methods, G->cls_prot_methods, G->cls_priv_methods, G);
    LOCLine(figures.loc, figures.eloc, figures.lloc, figures.comments, figures.lines, G);
    FPLOCLine(LanguageInHand(G), figures.loc, figures.eloc, figures.lloc, G);
}

void ReportClass(const EntityFigures &figures, Globals *G) {
    EmitClass(G);
    EmitInheritanceLine(G);
    if (G->totals_only) {
        return;
    }
    ShowFigures(figures, G);
    if (OutputMode(G) != Mode::kCsv) {
        Put("\n");
    }
}

void ReportClassWithNotices(const EntityFigures &figures, Globals *G) {
    NoticesOfClass(figures, G);
    if (G->totals_only) {
        return;
    }
    ClassEnd(G);
    ShowFigures(figures, G);
    if (G->class_index > 0) {
        ShowStateLine(G->file_line_no, G->struct_flag ? "Nested Struct End" : "Nested Class End", G);
    } else {
        ShowStateLine(G->file_line_no, G->struct_flag ? "Struct End" : "Class End", G);
    }
}

// Behind a class that nothing encloses. Its name, template and extremes stay.
void LeaveClasses(Globals *G) {
    static_cast<ClassScope &>(*G) = ClassScope{};
    static_cast<ClassHead &>(*G) = ClassHead{};
    G->access_private = 1;
    G->class_flag = 0;
    G->attr_flag = 0;
    G->method_flag = 0;
    G->function_scope = 0;
}

// The class around the one that has ended is in hand again.
void PopNestedClass(Globals *G) {
    if (G->class_index <= kNestingLimit) {
        const int max = G->class_loc_max_file;
        const int min = G->class_loc_min_file;
        static_cast<ClassBody &>(*G) = G->class_stack[G->class_index - 1];
        G->line_wants |= kWantsHead;
        G->class_loc_max_file += max;
        G->class_loc_min_file += min;
    } else { // the body around it wasn't saved; only its own "{" is known to be open
        ClearText(G->classname);
        G->class_scope = 1;
    }
    G->class_flag = 1;
    G->class_pending = 0;
    G->function_scope = 0;
    G->local_paren = 0;
    G->attr_flag = 0;
    G->method_flag = 0;
    G->virtual_flag = 0;
    --G->class_index;
}

} // namespace

void OpenClass(Scan &scan, Globals *G) {
    const int is_struct = G->struct_pending;
    G->inherit_more = 0;
    G->struct_pending = 0;
    G->class_pending = 0;
    G->function_scope = 0;
    if (is_struct && !*G->classname) {
        G->classname_pending = 0;
        GetClassname(kUnnamedClass, 0, G);
    }
    if (G->template_flag) {
        TakeTemplate(G);
    }
    G->class_flag = 1;
    if (is_struct) {
        ++G->struct_count;
        G->struct_flag = 1;
        SetSection(&ClassScope::access_public, G);
    } else {
        SetSection(&ClassScope::access_private, G);
    }
    TakeSnapshots(G);
    FormatInheritline(G->inherit_line, G);
    if (!RecordClass(G)) {
        Abort(scan, G);
        return;
    }
    if (is_struct) {
        AnnounceClass(kNoticeBareStruct, "struct", G);
    } else {
        AnnounceClass(kNoticeBareClass, "class", G);
    }
}

void OpenInterface(Scan &scan, Globals *G) {
    G->interface_flag = 0;
    G->class_pending = 0;
    G->inherit_more = 0;
    G->function_scope = 0;
    G->interface_class = 1;
    G->class_flag = 1;
    SetSection(&ClassScope::access_private, G);
    TakeSnapshots(G);
    if (!FindInterface(G->classname, G)) {
        ++G->interface_count;
        if (!AddInterfaceRecord(G->classname, G->file_line_no, G->class_index, G)) {
            Abort(scan, G);
            return;
        }
    }
    AnnounceClass(kNoticeBareInterface, "interface", G);
}

void CloseClass(Scan &scan, Globals *G) {
    NameStruct(scan, G);
    const EntityFigures figures = MeasureClass(G);
    Widen(figures.loc, &G->class_loc_max, &G->class_loc_min);
    Widen(figures.loc, &G->class_loc_max_file, &G->class_loc_min_file);
    if (G->object_metrics) {
        if (G->quality_notices) {
            ReportClassWithNotices(figures, G);
        } else {
            ReportClass(figures, G);
        }
        Add_Class2Class(figures, G);
    }
    if (G->class_index > 0) {
        PopNestedClass(G);
    } else {
        LeaveClasses(G);
    }
}

void PushNestedClass(Globals *G) {
    if (++G->class_index <= kNestingLimit) {
        G->class_nested_flag = 1;
        G->class_stack[G->class_index - 1] = *G;
    }
    const int struct_flag = G->struct_flag; // a class inside a struct is told as a struct
    const int struct_pending = G->struct_pending;
    static_cast<ClassBody &>(*G) = ClassBody{};
    G->struct_flag = struct_flag;
    G->struct_pending = struct_pending;
    G->access_private = 1;
    G->class_flag = 1;
    G->class_pending = 1;
    G->method_flag = 0;
    G->attr_flag = 0;
    G->func_template = 0;
    G->function_scope = 0;
    G->local_paren = 0;
}

void Add_Class2Class(const LineCounts &lines, Globals *G) {
    ClassData *record = G->interface_class               ? FindInterface(G->classname, G)
                        : FindNamespace(G->classname, G) ? nullptr
                                                         : FindClass(G->classname, G);
    if (!record) {
        return;
    }
    Add(*record, lines);
    record->public_data += G->cls_pub_data;
    record->protected_data += G->cls_prot_data;
    record->private_data += G->cls_priv_data;
    record->public_methods += G->cls_pub_methods;
    record->protected_methods += G->cls_prot_methods;
    record->private_methods += G->cls_priv_methods;
    if (G->class_index > 0) {
        record->nesting = 1;
    }
}
