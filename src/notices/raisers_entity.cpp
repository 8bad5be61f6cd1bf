// The notices of functions and classes as a whole.
#include "notices/raise.h"

#include <cstring>

#include "notices/long_form.h"
#include "report/names.h"
#include "run/globals.h"

namespace {

constexpr LongText<Shown, int, int> kFunctionName{"The function name:\n"
                                                  "           `%s`\n"
                                                  "           of `%d` characters is greater than %d characters in length.\n"
                                                  "           This can be a portability and/or maintenance issue.\n"};

constexpr LongText<int, int, int, int, int, int> kLabelsAndBreaks{
    "All '`case/default`' conditions do not have a matching\n"
    "           '`break`', or '`fall through`' comments.\n"
    "           case : `%-4d`  default: `%-4d`               Total `%-4d`\n"
    "           break: `%-4d`  fall through comment: `%-4d`  Total `%-4d`\n"
    "           This condition can occur when sequential case statements are used.\n"
    "           Check this function to insure no erroneous behavior will occur\n"
    "           by an unexpected fall through to the next case statement.\n"
    "           You may indicate to TLY that a 'case' statement is designed\n"
    "           to fall through by using a comment with these words\n"};

constexpr LongText<int, int, int, int, int> kCasesAndBreaks{
    "All '`case/default`' conditions do not have a matching\n"
    "           '`break`', or '`fall through`' comments.\n"
    "           case : `%-4d`                              Total `%-4d`\n"
    "           break: `%-4d`  fall through comment: `%-4d`  Total `%-4d`\n"
    "           This condition can occur when sequential case statements are used.\n"
    "           Check this function to insure no erroneous behavior will occur\n"
    "           by an unexpected fall through to the next case statement.\n"
    "           You may indicate to TLY that a 'case' statement is designed\n"
    "           to fall through by using a comment with these words\n"};

constexpr LongText<const char *, double, double> kWhite{"%s white space, `%.1f%%` is less than `%.1f%%`.\n"};
constexpr LongText<const char *, double, double> kComments{"%s comments, `%.1f%%` are less than `%.1f%%`.\n"};
constexpr LongText<const char *, double, double> kBlankLines{"%s blank line percent, `%.1f%%` is less than `%.1f%%`.\n"};

constexpr LongText<int> kFunctionEloc{"Effective Lines of Code, `eLOC`, in this function\n"
                                      "           exceed the specified standard of `%d` lines.\n"};

constexpr LongText<int, int> kReturns{"The number of function return points\n"
                                      "           `%d` exceeds the specified limit of `%d`.\n"};
constexpr LongText<int, int> kCyclo{"The function cyclomatic complexity of\n"
                                    "           `%d` exceeds the specified limit of `%d`.\n"};
constexpr LongText<int, int> kParameters{"The number of function input parameters,\n"
                                         "           `%d` exceeds the specified limit of `%d`.\n"};
constexpr LongText<int, int> kFewStatements{"The number of logical lines of code or statements\n"
                                            "           `%d` is <= to the specified minimum of `%d`.  This could\n"
                                            "           indicate a null function with no operational purpose.\n",
                                            "The number of logical lines of code or statements\n"
                                            "           `%d` is &lt;= to the specified minimum of `%d`.  This could\n"
                                            "           indicate a null function with no operational purpose.\n"};

constexpr LongText<const char *, int> kMethods{"The Number of %s methods exceeds the specified\n"
                                               "           maximum of %d methods (public, protected and private).\n",
                                               "The number of %s methods exceeds the specified\n"
                                               "           maximum of %d methods (public, protected and private).\n"};

constexpr LongText<const char *, const char *> kWithinFunction{"A %s definition has been identified\n"
                                                               "           within a function definition.  This design is not\n"
                                                               "           advised.  Move the %s outside the function.\n"};

constexpr LongText<Shown> kMultipleInheritance{"           Class multiple inheritance has been identified for class `%s`.\n"
                                               "           Multiple inheritance should be driven by the design and\n"
                                               "           never imposed as an ad-hoc solution in implementation.\n"
                                               "           Unexpected object behavior may result and maintenance may\n"
                                               "           be difficult.\n"};

constexpr LongText<const char *> kNoComment{"A %s has been identified which does not\n"
                                            "           have a preceding comment.  Comments that detail the purpose,\n"
                                            "           algorithms, and parameter/return definitions are suggested.\n"};

void RaiseLimit(int n, const LongText<int, int> &text, int value, int limit, Globals *G) {
    if (Raise(n, G)) {
        WriteLong(n, G->file_line_no, G, text, value, limit);
    }
}

void RaiseWithinFunction(const char *word, int line, Globals *G) {
    if (CountNotice(kNoticeWithinFunction, G) && PrintNotice(kNoticeWithinFunction, PrintsInPlace(G), line, G)) {
        WriteLong(kNoticeWithinFunction, line, G, kWithinFunction, word, word);
    }
}

} // namespace

void EmitFunctionNameNotice(const char *name, Globals *G) {
    const int length = static_cast<int>(strlen(name));
    if (length <= G->max_func_name_len || !Raise(kNoticeFunctionName, G)) {
        return;
    }
    LineText wrapped;
    AdjNameLength(name, wrapped, 62, 12, G);
    WriteLong(kNoticeFunctionName, G->file_line_no, G, kFunctionName, Shown{wrapped}, length, G->max_func_name_len);
}

void EmitCaseBreakNotice(Globals *G) {
    if (!Raise(kNoticeCaseBreak, G)) {
        return;
    }
    const int cases = G->local_case;
    const int ends = G->local_break + G->fall_through;
    if (G->default_in_case_break) {
        WriteLong(kNoticeCaseBreak, G->file_line_no, G, kLabelsAndBreaks, cases, G->local_default, cases + G->local_default,
                  G->local_break, G->fall_through, ends);
    } else {
        WriteLong(kNoticeCaseBreak, G->file_line_no, G, kCasesAndBreaks, cases, cases, G->local_break, G->fall_through, ends);
    }
}

void NoticeContent(int n, const char *kind, float measured, float limit, Globals *G) {
    if (Raise(n, G)) {
        const auto &text = n == kNoticeWhite ? kWhite : n == kNoticeBlank ? kBlankLines : kComments;
        WriteLong(n, G->file_line_no, G, text, kind, static_cast<double>(measured), static_cast<double>(limit));
    }
}

void NoticeFuncEloc(Globals *G) {
    if (Raise(kNoticeFunctionEloc, G)) {
        WriteLong(kNoticeFunctionEloc, G->file_line_no, G, kFunctionEloc, G->max_func_eloc);
    }
}

void Notice_Return_Limit(int value, Globals *G) {
    RaiseLimit(kNoticeReturns, kReturns, value, G->max_return_points, G);
}

void Notice_Logical_Limit(int value, Globals *G) {
    RaiseLimit(kNoticeCyclo, kCyclo, value, G->max_cyclo, G);
}

void Notice_Interface_Limit(int value, Globals *G) {
    RaiseLimit(kNoticeParameters, kParameters, value, G->max_interface, G);
}

void Notice_MinFuncLloc(int value, Globals *G) {
    RaiseLimit(kNoticeFewStatements, kFewStatements, value, G->min_func_eloc, G);
}

void EmitStructWithinFunction(int line, Globals *G) {
    RaiseWithinFunction("struct", line, G);
}

void EmitClassWithinFunction(int line, Globals *G) {
    RaiseWithinFunction(G->struct_flag ? "struct" : "class", line, G);
}

void EmitClassFunctionNotice(const char *word, Globals *G) {
    if (Raise(kNoticeClassMethods, G)) {
        WriteLong(kNoticeClassMethods, G->file_line_no, G, kMethods, word, G->max_class_methods);
    }
}

void EmitMultipleInheritanceNotice(const char *classname, Globals *G) {
    if (Raise(kNoticeMultipleInheritance, G)) {
        WriteLong(kNoticeMultipleInheritance, G->file_line_no, G, kMultipleInheritance, Shown{classname});
    }
}

void EmitNoComment(int n, const char *word, Globals *G) {
    if (Raise(n, G)) {
        WriteLong(n, G->file_line_no, G, kNoComment, word);
    }
}
