// Quality notices: raising, counting, printing, remembering.
//
// Every raiser is its own guards, Raise(), and one long text. A notice that is off or stands in a quality skip region counts
// nothing.
#pragma once

#include "run/notice_numbers.h"

struct Globals;

// The steps that all notices share: is n on, is there no skip region; count it; print it in the short form where one is wanted.
// Returns 1 when the caller is to write its long form.
int Raise(int n, Globals *G);
// Prints the short form of a notice, where short forms are wanted, and remembers it.
void EmitNotice(const char *file, int line, int n, Globals *G);
// Appends a notice to notice_list in a run that ends with the summary of notices. There may be millions, so no other run does.
void RememberNotice(const char *file, int line, int n, Globals *G);
// The short text of a notice, with the limits that the settings had when it was first asked for; "Unsupported" for a number that
// nothing explains.
const char *GetNoticeStr(int n, Globals *G);

// A notice whose only value is the line in hand: 3, 4, 5, 8 to 13, 23, 26, 30, 32, 34 to 38, 43, 44, 49, 56, 57, 58. Guards that
// belong to the notice (44: no switch open; 34: no struct, no assignment; 35, 36: ...; 49: no destructor) are tested here.
void NoticeAtLine(int n, Globals *G);
// Counts tabs for notice 30 without printing: count of them on this line. Only where TabNoticesArePrinted is false.
void CountTabNotices(int count, Globals *G);
// True if a notice 30 prints or is remembered; false if it only counts, or is off.
bool TabNoticesArePrinted(const Globals *G);

void EmitLineLengthNotice(int length, Globals *G);         // 1
void EmitFunctionNameNotice(const char *name, Globals *G); // 2: the name without its class part; tested and wrapped here
void NoticePreStep(int n, Globals *G);                     // 6 and 7, with their macro forms
void EmitCaseBreakNotice(Globals *G);                      // 14, from the function's counters
void NoticeStray(char closer, Globals *G);                 // 12, second shape: a ")" or "}" without a partner
void EmitScopeError(Globals *G);                           // 22; ends by clearing what was waited for
void CPP_Symbol(int line, const char *word, Globals *G);   // 24
void NoticeContent(int n, const char *kind, float measured, float limit,
                   Globals *G);                                          // 16, 17, 31, 46: kind "Function", "Class", "Struct"
void NoticeFuncEloc(Globals *G);                                         // 18
void NoticeFilePercent(int n, float measured, float limit, Globals *G);  // 19, 20, 47
void NoticeKeyString(Globals *G);                                        // 21
void Notice_Return_Limit(int value, Globals *G);                         // 27
void Notice_Logical_Limit(int value, Globals *G);                        // 28
void Notice_Interface_Limit(int value, Globals *G);                      // 29
void Notice_MinFuncLloc(int value, Globals *G);                          // 48
void EmitStructWithinFunction(int line, Globals *G);                     // 33: a struct, whatever stands around it
void EmitClassWithinFunction(int line, Globals *G);                      // 33: a class, or a member of a struct
void EmitClassFunctionNotice(const char *word, Globals *G);              // 39: "struct" or "class"
void EmitInheritanceDepthNotice(const char *file, int line, Globals *G); // 40
void EmitNumberOfChildrenNotice(const char *file, int line, Globals *G); // 41
void EmitMultipleInheritanceNotice(const char *classname, Globals *G);   // 42
void EmitNewDelNotice(Globals *G);                                       // 45
void EmitNoComment(int n, const char *word, Globals *G);                 // 51 to 54
void EmitScopeNotice(Globals *G);                                        // 55
