// A class or struct that is defined inside a function.
#pragma once

struct Globals;

// 1 if the text behind the keyword class or struct opens a definition inside the body of a function. Only the line in hand is
// looked at: a heading that it leaves open counts, as its body is still to come.
int IsLocalDefinition(const char *rest, const Globals *G);
