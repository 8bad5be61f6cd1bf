// The notices of the inheritance tree. They come up when all files are done, so each names its own file and line.
#include "notices/raise.h"

#include "notices/long_form.h"
#include "run/globals.h"

namespace {

constexpr LongText<int> kDepth{"           The depth of the inheritance tree is greater than the specified\n"
                               "           maximum value, `%d`.  This condition can be attributed to mixing\n"
                               "           the Is-A and Has-A relationships and can make maintenance\n"
                               "           very difficult.\n\n"};

constexpr LongText<int> kChildren{"           The number of direct child classes derived from the parent\n"
                                  "           exceed the specified maximum, `%d`. This condition may indicated\n"
                                  "           that the base class could be parameterized to accomplish the\n"
                                  "           variability of the children. This creates an obscure design\n"
                                  "           with difficult maintenance\n\n"};

// The place of the class stands in for the file and the line in hand.
void RaiseAt(int n, const char *file, int line, const LongText<int> &text, int limit, Globals *G) {
    const char *const file_in_hand = G->file_name;
    const int line_in_hand = G->file_line_no;
    G->file_name = file;
    G->file_line_no = line;
    if (Raise(n, G)) {
        WriteLong(n, line, G, text, limit);
    }
    G->file_name = file_in_hand;
    G->file_line_no = line_in_hand;
}

} // namespace

void EmitInheritanceDepthNotice(const char *file, int line, Globals *G) {
    RaiseAt(kNoticeInheritanceDepth, file, line, kDepth, G->max_inheritance_depth, G);
}

void EmitNumberOfChildrenNotice(const char *file, int line, Globals *G) {
    RaiseAt(kNoticeChildren, file, line, kChildren, G->max_derived_children, G);
}
