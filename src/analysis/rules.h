// What decides about a notice where the line in hand or more than one flag is looked at.
#pragma once

#include "run/records.h"

struct Globals;
struct Scan;

// The checks that run ahead of the line or of a character.
// At each code character of a line on which something is waited for since an earlier line (scope_pending_line): the value of an
// assignment, or the body of a do, else, for, if or while.
void CheckPending(Scan &scan, Globals *G);
// At a lone "=": a literal number behind it.
void CheckAssignedLiteral(const Scan &scan, Globals *G);
// At ")": has the body of a for, if or while its brace.
void CheckBodyBehindParen(const Scan &scan, Globals *G);
// The notices of a function's end and of a class's end, in their order.
struct EntityFigures : LineCounts {
    float white_pct, blank_pct;
};
void NoticesBeforeSums(const EntityFigures &figures, Globals *G); // 2, 10 to 14, 17, 46, 16, 18
void NoticesOfLimits(const EntityFigures &figures, Globals *G);   // 27, 29, 49, 48
void NoticesOfClass(const EntityFigures &figures, Globals *G);    // 31, 16, 46, 37, 39
// 15, friend class Tree;  at the ";" in hand; clears funcname_flag.
void EmitFriendClassNotice(const char *line, int index, Globals *G);
