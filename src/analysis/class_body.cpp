// The members of a class, by the access section in hand. In Java and C# each member's own modifier makes the section.
#include "analysis/class.h"

#include <algorithm>

#include "analysis/code_text.h"
#include "notices/raise.h"
#include "report/forms.h"
#include "run/globals.h"

namespace {

struct Section {
    int ClassScope::*access;
    int ClassScope::*methods;
    int ClassScope::*data;
    int data_notice; // 0 for none
    Forms<int, Shown, ShownList> method_line;
    Forms<int, Shown> data_line;
};

// Tested in this order. CSV has no form of its own and shows the plain ones.
// clang-format off
constexpr Section kSections[] = {
    {.access = &ClassScope::access_private,
     .methods = &ClassScope::cls_priv_methods,
     .data = &ClassScope::cls_priv_data,
     .data_notice = 0,
     .method_line = {
         .text = "  Class Method Private  :%6d | %s%s\n",
         .html = "  <i>Class Method Private  :%6d | %s%s</i>\n",
         .csv  = "  Class Method Private  :%6d | %s%s\n",
         .xml  = "<method_private>\n<lineno>%d</lineno>\n<line>%s%s</line>\n</method_private>\n"},
     .data_line = {
         .text = "  Class Data Private    :%6d | %s\n",
         .html = "  <i>Class Data Private    :%6d | %s</i>\n",
         .xml  = "<data_private>\n<lineno>%d</lineno>\n<line>%s</line>\n</data_private>\n"}},
    {.access = &ClassScope::access_protected,
     .methods = &ClassScope::cls_prot_methods,
     .data = &ClassScope::cls_prot_data,
     .data_notice = kNoticeProtectedData,
     .method_line = {
         .text = "  Class Method Protected:%6d | %s%s\n",
         .html = "  <i>Class Method Protected:%6d | %s%s</i>\n",
         .csv  = "  Class Method Protected:%6d | %s%s\n",
         .xml  = "<method_protected>\n<lineno>%d</lineno>\n<line>%s%s</line>\n</method_protected>\n"},
     .data_line = {
         .text = "  Class Data Protected  :%6d | %s\n",
         .html = "  <i>Class Data Protected  :%6d | %s</i>\n",
         .xml  = "<data_protected>\n<lineno>%d</lineno>\n<line>%s</line>\n</data_protected>\n"}},
    {.access = &ClassScope::access_public,
     .methods = &ClassScope::cls_pub_methods,
     .data = &ClassScope::cls_pub_data,
     .data_notice = kNoticePublicData,
     .method_line = {
         .text = "  Class Method Public   :%6d | %s%s\n",
         .html = "  <i>Class Method Public   :%6d | %s%s</i>\n",
         .csv  = "  Class Method Public   :%6d | %s%s\n",
         .xml  = "<method_public>\n<lineno>%d</lineno>\n<line>%s%s</line>\n</method_public>\n"},
     .data_line = {
         .text = "  Class Data Public     :%6d | %s\n",
         .html = "  <i>Class Data Public     :%6d | %s</i>\n",
         .xml  = "<data_public>\n<lineno>%d</lineno>\n<line>%s</line>\n</data_public>\n"}},
};
// clang-format on

// One of the three flags is always set.
const Section &SectionInHand(const Globals *G) {
    return *std::find_if(std::begin(kSections), std::end(kSections) - 1,
                         [G](const Section &section) { return G->*section.access; });
}

// int a, b, c; are three members
void CountData(const Section &section, const char *line, Globals *G) {
    G->*section.data += G->comma_count + 1;
    if (section.data_notice) {
        NoticeAtLine(section.data_notice, G);
    }
    if (G->show_class_methods) {
        LineText shown;
        CopyText(shown, Ltrim(line));
        stripLF(shown);
        PrintAs(FreeTextMode(G), G, section.data_line, G->file_line_no, Shown{shown}); // the source as it is, commas too
    }
}

} // namespace

void ClassMethod(Globals *G) {
    if (G->static_flag || G->dotnet_attr) {
        return;
    }
    const Section &section = SectionInHand(G);
    ++(G->*section.methods);
    if (G->show_class_methods) {
        Print(G, section.method_line, G->file_line_no, Shown{G->funcname}, ShownList{G->params});
    }
}

void ClassAttribute(const char *line, Globals *G) {
    if (G->static_flag || G->dotnet_attr || G->get_flag || G->set_flag) {
        return;
    }
    // a declaration inside a method is no public member: void f() { int i; }
    if (!G->access_public || G->function_scope == 0) {
        CountData(SectionInHand(G), line, G);
    }
    if (G->star_flag) {
        NoticeAtLine(kNoticeClassPointer, G);
    }
}
