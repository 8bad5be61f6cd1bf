// The rows of the catalogue, and the short texts made of them.
//
// A long text of several values stands with its raiser, where its values are; a row holds the long text only where the line says
// all. Row 25 is no notice: its switch tells how C headers are read. 40 and 41 are raised by the inheritance tree.
#include "notices/catalogue.h"

#include <cstring>
#include <iterator>

#include "notices/raise.h"
#include "notices/udqn.h"
#include "run/globals.h"

namespace {

using S = NoticeSettings;

// clang-format off
constexpr NoticeRow kRows[] = {
//  number, place, traits, limit, short text, long text, the same for HTML
    {0,  kNone, 0, {}, "Unsupported"},
    {kNoticeLineLength, kColon, kLineFirst, {&S::max_line_length}, "Physical line length > %d characters"},
    {kNoticeFunctionName, kColon, kLineFirst | kHtmlNoLine, {&S::max_func_name_len}, "Function name length > %d characters"},
    {kNoticeEllipsis, kComma, 0, {}, "Ellipsis '...' are identified as function parameters",
     "'`...`' ellipsis found for a variable argument list.\n"
     "           The compiler will not check the types of these parameters.\n"},
    {kNoticeIfAssignment, kComma, 0, {}, "Assignment '=' within 'if' statement",
     "'`=`' assignment identified within an '`if`' condition.\n"
     "           This is a logical error or indicates an assignment is within a\n"
     "           testable expression.  Code clarity would be enhanced by moving\n"
     "           any embedded expressions before conditional and testing a\n"
     "           single parameter.\n"},
    {kNoticeWhileAssignment, kComma, 0, {}, "Assignment '=' within 'while' statement",
     "'`=`' assignment identified within an '`while`' condition.\n"
     "           This is a logical error or indicates an assignment is within a\n"
     "           testable expression.  Code clarity would be enhanced by moving any embedded\n"
     "           expressions before conditional and testing a single parameter.\n"},
    {kNoticePreDecrement, kComma, 0, {}, "Pre-decrement operator '--' identified",
     "pre-decrement '`--` operator' identified.\n"
     "           This can be a problematic construct in compound statements.\n"},
    {kNoticePreIncrement, kComma, 0, {}, "Pre-increment operator '++' identified",
     "pre-increment '`++` operator' identified.\n"
     "           This can be a problematic construct in compound statements.\n"},
    {kNoticeRealloc, kComma, 0, {}, "'realloc' function identified",
     "`realloc` has been identified.\n"
     "           A realloc of 0 size will free the pointer.  This may\n"
     "           cause an unanticipated action on a NULL pointer.  realloc\n"
     "           may also cause a hidden memory leak.\n"},
    {kNoticeGoto, kComma, 0, {}, "'goto' keyword identified",
     "'`goto`' keyword identified.  This can cause\n"
     "           maintenance difficulties and propagate hidden logic flow.\n"},
    {kNoticeOldStyleHead, kColon, kLineFirst | kHtmlNoLine, {}, "Non-ANSI function prototype identified",
     "Identified a Non-ANSI function prototype\n"
     "           Function parameters will not be type checked.\n",
     "Identified a `Non-ANSI` function prototype.  Function\n"
     "           parameters will not be type checked.\n"},
    {kNoticeBrackets, kColon, kLineFirst | kHtmlNoLine, {}, "Open and closed brackets '[]' are not equal",
     "Brackets, `[ ]` are not balanced.\n"
     "           The compiler should have caught this error.\n"
     "           This notice may indicate dead code within the\n"
     "           source commented out through a #define construct\n"},
    {kNoticeParentheses, kColon, kLineFirst | kHtmlNoLine, {}, "Open and closed parenthesis '()' are not equal",
     "Parenthesis, `()` are not balanced.\n"
     "           The compiler should have caught this error.\n"
     "           This notice may indicate dead code within the\n"
     "           source commented out through a #define construct\n"},
    {kNoticeNoDefault, kColon, kLineFirst | kHtmlNoLine, {}, "'switch' statement does not have a 'default'",
     "All '`switch`' statements do not have a matching '`default`'\n"
     "           statements.  This could cause unexpected behavior if the\n"
     "           'switch' statement is not met by a 'case' statement.\n"},
    {kNoticeCaseBreak, kNone, kHtmlNoLine, {}, "'case' conditions do not equal 'break'"},
    {kNoticeFriendClass, kComma, 0, {}, "Friend class has been identified"},
    {kNoticeWhite, kNone, kHtmlNoLine, {&S::min_func_white_pct}, "Function/class/struct/interface white space < %.1f%%"},
    {kNoticeFunctionComments, kNone, kHtmlNoLine, {&S::min_func_comment_pct}, "Function comment content less than %.1f%%"},
    {kNoticeFunctionEloc, kNone, kHtmlNoLine, {&S::max_func_eloc}, "Function eLOC > maximum %d eLOC"},
    {kNoticeFileWhite, kNone, kHtmlNoLine, {&S::min_file_white_pct}, "File white space < %.1f%%"},
    {kNoticeFileComments, kNone, kHtmlNoLine, {&S::min_file_comment_pct}, "File comment content < %.1f%%"},
    {kNoticeKeyString, kNone, kHtmlNoLine, {}, "File does not contain key string"},
    {kNoticeBareBody, kColon, kLineFirst, {}, "if, else, for or while not bound by scope"},
    {kNoticeTernary, kComma, 0, {}, "'?' ternary operator identified",
     "The '`?`' operator was identified.  This implied\n"
     "           if-else construct can reduce code readability.\n"},
    {kNoticeCppWord, kColon, kLineFirst, {}, "ANSI C++ keyword identified within C file"},
    {kTreatHeadersAsCpp, kNone, 0, {}, "Treat *.h files for C++ keywords"},
    {kNoticeVoidStar, kColon, kLineFirst, {}, "void * generic type identified",
     "The type '`void *`' has been identified.\n"
     "           This data type is type independent, whereby it\n"
     "           prevents the compiler from checking the types\n"
     "           of variables and parameters.\n"},
    {kNoticeReturns, kColon, kLineFirst | kHtmlNoLine, {&S::max_return_points}, "Number of function return points > %d"},
    {kNoticeCyclo, kColon, kLineFirst | kHtmlNoLine, {&S::max_cyclo}, "Cyclomatic complexity > %d"},
    {kNoticeParameters, kColon, kLineFirst | kHtmlNoLine, {&S::max_interface}, "Number of function parameters > %d"},
    {kNoticeTab, kColon, kLineFirst, {}, "TAB character has been identified",
     "A TAB character has been found.\n"
     "           Tabs embedded into code are device and editor dependent\n"
     "           for their space definition and may not display properly.\n"},
    {kNoticeClassComments, kNone, kHtmlNoLine, {&S::min_class_comment_pct}, "Class/Struct comments are < %.1f%%"},
    {kNoticeUsingNamespace, kColon, kLineFirst, {}, "Using namespace construct identified",
     "The construct '`using namespace`' has\n"
     "           been identified.  This type of design can lead to\n"
     "           spurious name collisions during integration.\n"},
    {kNoticeWithinFunction, kColon, kLineFirst, {}, "Class/Struct definition within a function definition"},
    {kNoticeClassPointer, kColon, kLineFirst, {}, "Class specification contains a pointer to data",
     "A pointer to a data object has been detected\n"
     "           within the specification for a class.  This class must\n"
     "           be inspected to insure proper memory allocation and\n"
     "           de-allocation.  This class must implement a public copy\n"
     "           constructor or a private copy constructor where by the\n"
     "           compiler will enforce no pass-by-value.\n"},
    {kNoticePublicData, kColon, kLineFirst, {}, "Class specification contains public data",
     "Public data has been identified with a class\n"
     "           specification.  This design breaks object encapsulation\n"
     "           allowing free access from other objects and functions.\n"},
    {kNoticeProtectedData, kColon, kLineFirst | kTwoBlanks, {}, "Class specification contains protected data",
     "Protected data has been identified with a class\n"
     "           specification.  This design allows the protected data\n"
     "           to be freely accessed down the inheritance tree.\n"},
    {kNoticeVirtualDestructor, kColon, kLineFirst | kHtmlLoud, {}, "Base Class does not contain a virtual destructor",
     "This class does not appear to contain a\n"
     "           virtual destructor when this class defines a virtual\n"
     "           method.  This condition will cause a incomplete class\n"
     "           destruction of the derived classes from this base class.\n"},
    {kNoticeTry, kColon, kLineFirst, {}, "Exception Handling 'try'- 'catch' has been identified",
     "Exception handling 'try' - 'catch' has been\n"
     "           identified.  Exception handling can be a form indirect logic\n"
     "           control similar to a goto.  The use of exception handling\n"
     "           should be driven by the design and not casually imposed\n"
     "           upon the code.\n"},
    {kNoticeClassMethods, kColon, kLineFirst | kHtmlNoLine, {&S::max_class_methods}, "Number of class/struct methods exceeds specified maximum %d "},
    {kNoticeInheritanceDepth, kFileRow, kLineFirst, {&S::max_inheritance_depth}, "Depth of the Inheritance Tree exceeds the maximum %d "},
    {kNoticeChildren, kFileRow, kLineFirst | kHtmlLoud, {&S::max_derived_children}, "Number of derived classes exceeds the specified maximum %d "},
    {kNoticeMultipleInheritance, kFileRow, kLineFirst | kHtmlLoud, {}, "Multiple inheritance has been identified"},
    {kNoticeContinue, kComma, kLineFirst, {}, "Keyword 'continue' has been identified",
     "The keyword 'continue' has been found.\n"
     "           The use of 'continue' can create code which is difficult\n"
     "           to maintain where the logic flow jumps to the beginning\n"
     "           of the framing control structure.\n"},
    {kNoticeBreak, kComma, kLineFirst, {}, "Keyword 'break' identified outside a 'switch' structure",
     "The keyword 'break' has been identified\n"
     "           outside a 'switch' logic control structure.  The use\n"
     "           of 'break' interrupts the linear logic flow and can create\n"
     "           source code which is difficult to maintain.\n"},
    {kNoticeNewDelete, kFileRow, kLineFirst | kHtmlNoLine | kHtmlLoud, {}, "New and Delete counts are not equal for the file.",
     "           New and delete counts do not match for this file.\n"
     "           This could indicate the potential for a memory leak.\n"},
    {kNoticeBlank, kNone, kHtmlNoLine, {&S::min_func_blank_pct}, "Function/Class Blank Line content less < %.1f%%"},
    {kNoticeFileBlank, kNone, kHtmlNoLine, {&S::min_file_blank_pct}, "File Blank Line content < %.1f%%"},
    {kNoticeFewStatements, kColon, kLineFirst | kHtmlNoLine, {&S::min_func_eloc}, "Function lLOC <= %d, non-operational function"},
    {kNoticeNoParameters, kColon, kLineFirst | kHtmlNoLine, {}, "Function appears to have null or blank parameters",
     "The function has no input parameters or void.\n"
     "           Suggest using explicit parameters for interface clarity.\n",
     "The function contains no input parameters or void.\n"
     "           Suggest using explict parameters for interface clarity.\n"},
    {kNoticeLiteral, kComma, kLineFirst, {}, "Variable assignment to a literal number",
     "A variable has been identified which is\n"
     "           assigned to a literal number.  Symbolic constants should\n"
     "           be used to enhance maintainability.\n"},
    {kNoticeBareFunction, kComma, kLineFirst | kFiveBlanks, {}, "No comment preceding a function block"},
    {kNoticeBareClass, kComma, kLineFirst | kFiveBlanks, {}, "No comment preceding a class block"},
    {kNoticeBareStruct, kComma, kLineFirst | kFiveBlanks, {}, "No comment preceding a struct block"},
    {kNoticeBareInterface, kComma, kLineFirst | kFiveBlanks, {}, "No comment preceding a interface block"},
    {kNoticeScopeDepth, kOwnRow, kLineFirst, {&S::max_scope_depth}, "Scope level exceeds the defined limit of %d"},
    {kNoticeBreakBreak, kComma, kLineFirst, {}, "Sequential breaks identified without case",
     "Sequential 'break' keyword have been\n"
     "           identified without a respective case statement.  This is an\n"
     "           extremely poor programming construct and denotes an attempt to\n"
     "           circumvent TLY break/case quality notice.\n"},
    {kNoticeSkipLines, kComma, 0, {}, "TLY skip lines token match - TLY ignores lines",
     "A TLY skip lines token match.\n"
     "           All lines between the begin and end tokens will be ignored\n"
     "           for TLY processing.\n"},
    {kNoticeSkipNotices, kComma, 0, {}, "TLY skip quality notices token match - Quality Notices ignored",
     "A TLY skip quality notice token match.\n"
     "           All lines between the begin and end tokens will be ignored\n"
     "           for TLY quality notice processing.\n"},
};
// clang-format on

// What the short text shows: 'd' a number, 'f' a percentage, 0 nothing.
constexpr char Shows(const char *text) {
    for (; *text; ++text) {
        if (*text == '%') {
            return text[1] == 'd' ? 'd' : 'f';
        }
    }
    return 0;
}

constexpr bool Fits(const NoticeRow &row) {
    const char wanted = row.limit.count ? 'd' : row.limit.percent ? 'f' : '\0';
    bool plain = true;
    for (const char *p = row.body ? row.body : ""; *p; ++p) {
        plain = plain && *p != '%';
    }
    return Shows(row.text) == wanted && plain;
}

constexpr bool InOrder() {
    for (int n = 0; n <= kNotices; ++n) {
        if (kRows[n].number != n || !Fits(kRows[n])) {
            return false;
        }
    }
    return true;
}
static_assert(std::size(kRows) == kNotices + 1 && InOrder(), "row n is notice n, and shows its limit");

} // namespace

const NoticeRow &Notice(int n) {
    return kRows[n >= 1 && n <= kNotices ? n : 0];
}

const char *GetNoticeStr(int n, Globals *G) {
    if (n < 1 || n > kNotices) {
        if (const Udqn *rule = get_udqn_ptr(n, &G->udqn_list)) {
            return rule->summary ? rule->summary : "";
        }
    }
    const NoticeRow &row = Notice(n);
    const char *hole = strchr(row.text, '%');
    if (!hole) {
        return row.text;
    }
    auto &text = G->notice_text[row.number];
    if (*text) {
        return text;
    }
    const int ahead = static_cast<int>(hole - row.text);
    if (row.limit.count) {
        FormatText(text, "%.*s%d%s", ahead, row.text, G->*row.limit.count, hole + strlen("%d"));
    } else {
        FormatText(text, "%.*s%.1f%%%s", ahead, row.text, static_cast<double>(G->*row.limit.percent), hole + strlen("%.1f%%"));
    }
    return text;
}
