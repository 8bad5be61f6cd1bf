#include "notice_help.h"

#include <iterator>

namespace {

// clang-format off
constexpr NoticeHelp kHelp[] = {
    {1, "LineLength", "The line is wider than the limit, which is the width of a standard terminal. Break it."},
    {2, "FunctionNameLength", "The function's name is longer than the limit. Long names can be cut by other tools and are hard to tell apart. Shorten it."},
    {3, "Ellipsis", "The parameters end in an ellipsis. The compiler doesn't check the types of what is passed there."},
    {4, "AssignmentInIf", "An assignment stands within the condition of an 'if'. It may be meant as a comparison. Move it ahead of the condition."},
    {5, "AssignmentInWhile", "An assignment stands within the condition of a 'while'. It may be meant as a comparison. Move it ahead of the condition."},
    {6, "PreDecrement", "A pre-decrement stands here. Within a larger expression its effect is easily misread; in a macro it may happen more than once."},
    {7, "PreIncrement", "A pre-increment stands here. Within a larger expression its effect is easily misread; in a macro it may happen more than once."},
    {8, "Realloc", "'realloc' is used. With a size of 0 it frees the memory, and where its result overwrites the only pointer, a failure leaks it."},
    {9, "Goto", "'goto' is used. It hides the flow of logic and makes maintenance hard. Use a loop, a function or an early return."},
    {10, "OldStyleHead", "The function is declared without the types of its parameters, so that calls are not checked. Declare a prototype."},
    {11, "BracketBalance", "There are not as many '[' as ']'. What the compiler accepts may stand in code that is left out by conditional compilation."},
    {12, "ParenthesisBalance", "Parentheses or braces are not balanced. What the compiler accepts may stand in code that is left out by conditional compilation; keep them balanced in every branch, for readers and tools."},
    {13, "SwitchWithoutDefault", "Not every 'switch' of this function has a 'default'. A value that no 'case' expects then passes unnoticed. Add one."},
    {14, "CaseWithoutBreak", "The function has more 'case' and 'default' labels than 'break'. Control may fall through to the next case unintended. Where it is meant, say so in a comment with the words 'fall through'."},
    {15, "FriendClass", "A class is declared a friend. It may use what is private here, which breaks encapsulation."},
    {16, "WhiteSpace", "The share of white space in this function, class, struct or interface is below the limit. Dense code is hard to read."},
    {17, "FunctionComments", "The share of comments in this function is below the limit. Explain what the code can't say."},
    {18, "FunctionLength", "The function has more effective lines of code than the limit. Split it."},
    {19, "FileWhiteSpace", "The share of white space in this file is below the limit. Dense code is hard to read."},
    {20, "FileComments", "The share of comment lines in this file is below the limit. Explain what the code can't say."},
    {21, "KeyString", "The file lacks the text that the settings ask of every file, such as a copyright line."},
    {22, "BodyWithoutBraces", "The body of an 'if', 'else', 'for' or 'while' has no braces. A line that is added later falls outside of it unnoticed. Add braces."},
    {23, "Ternary", "The '?' operator is used. An 'if' and 'else' written out are mostly easier to read."},
    {24, "CppWordInC", "A keyword of C++ is a name in this C file. It can't be compiled as C++. Choose another name."},
    {26, "VoidPointer", "The type 'void *' is used. It keeps the compiler from checking the types of variables and parameters."},
    {27, "ReturnPoints", "The function has more return points than the limit. Each is a way out that a reader and a test have to know."},
    {28, "CyclomaticComplexity", "There are more ways through the function than the limit. Each needs a test. Split it, or simplify its conditions."},
    {29, "ParameterCount", "The function has more parameters than the limit. Calls are easily wrong. Group what belongs together in a type."},
    {30, "Tab", "The line has a tab. Its width depends on the editor and the device, so that the code may not look as intended. Use blanks."},
    {31, "ClassComments", "The share of comments in this class or struct is below the limit. Explain what it is for."},
    {32, "UsingNamespace", "A 'using namespace' stands here. All names of that namespace come in, and may collide with others."},
    {33, "ClassInFunction", "A class or struct is defined within a function. It can't be used or tested anywhere else."},
    {34, "ClassWithPointer", "The class has a pointer among its data. A copy of an object shares what it points to, unless the class has a copy constructor of its own or forbids copies. Check who frees it."},
    {35, "PublicData", "The class has public data. Everyone may change it, which breaks encapsulation. Make it private."},
    {36, "ProtectedData", "The class has protected data. All classes that derive from it may change it. Make it private."},
    {37, "VirtualDestructor", "The class has virtual methods, but no virtual destructor. Deleting an object of a derived class through a pointer to this class destroys it in part. Declare the destructor virtual."},
    {38, "ExceptionHandling", "Exceptions are handled here. They are a jump to another place, and should be part of the design and not imposed on the code."},
    {39, "ClassMethods", "The class or struct has more methods than the limit. It may do several things. Split it."},
    {40, "InheritanceDepth", "The class has more generations of base classes than the limit. Its behaviour is spread over all of them. Have an object of the other class in place of being one."},
    {41, "ChildClasses", "More classes derive from this class directly than the limit. Its children may differ in what a parameter could express."},
    {42, "MultipleInheritance", "The class has several bases. Their members may collide. It should be part of the design, and not an ad hoc solution."},
    {43, "Continue", "'continue' is used. The jump to the head of the loop is easily overlooked in maintenance."},
    {44, "BreakOutsideSwitch", "'break' is used outside of a 'switch'. It interrupts the linear flow of logic."},
    {45, "NewDelete", "The file has not as many 'new' as 'delete'. Memory may leak. Let an object own what is allocated."},
    {46, "BlankLines", "The share of blank lines in this function or class is below the limit. Set its parts apart."},
    {47, "FileBlankLines", "The share of blank lines in this file is below the limit. Set its parts apart."},
    {48, "EmptyFunction", "The function has no more statements than the limit. It may do nothing, or not be finished."},
    {49, "NoParameters", "The function has no parameters. What it works on isn't seen in its calls; explicit parameters make the interface clear."},
    {50, "LiteralAssignment", "A number is assigned as a literal. A named constant tells what it means, and is changed in one place."},
    {51, "FunctionWithoutComment", "No comment stands ahead of this function. Tell its purpose, its parameters and what it returns."},
    {52, "ClassWithoutComment", "No comment stands ahead of this class. Tell its purpose."},
    {53, "StructWithoutComment", "No comment stands ahead of this struct. Tell its purpose."},
    {54, "InterfaceWithoutComment", "No comment stands ahead of this interface. Tell its purpose."},
    {55, "ScopeDepth", "Scopes are nested deeper than the limit. Move the inner ones into a function, or leave early."},
    {56, "SequentialBreaks", "One 'break' follows another without a 'case' between them. The second is never reached."},
    {57, "SkippedLines", "A token of the settings stands here, from which on tly skips the lines. Nothing in them is measured."},
    {58, "SkippedNotices", "A token of the settings stands here, from which on tly raises no notices."},
};
// clang-format on

constexpr bool InOrder() {
    for (size_t i = 1; i < std::size(kHelp); ++i) {
        if (kHelp[i].number <= kHelp[i - 1].number) {
            return false;
        }
    }
    return true;
}
static_assert(InOrder());

} // namespace

const NoticeHelp *FindNoticeHelp(int number) {
    for (const NoticeHelp &row : kHelp) {
        if (row.number == number) {
            return &row;
        }
    }
    return nullptr;
}
