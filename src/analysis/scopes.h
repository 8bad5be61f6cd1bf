// The scopes of the modern reading: a stack of what each "{" opened, and the text of the statement outside of functions, by which a
// "{" or ";" is judged. All of it only with the rule "braces".
#pragma once

struct Globals;
struct Scan;

// Takes the code of the line up to end, not included, into the text of the statement. Only outside of functions.
void TakeCode(Scan &scan, int end, Globals *G);
// The "{", "}" and ";" in hand, behind what is counted for them.
void OpenScope(Scan &scan, Globals *G);
void CloseScope(Scan &scan, Globals *G);
void EndStatement(Scan &scan, Globals *G);
// The ">" of "=>" in hand may begin the body of a method: int F() => x;
void OpenExpression(Scan &scan, Globals *G);
// A #if, #else, #elif or #endif; word is behind the "#".
void FollowBranch(const char *word, Globals *G);
// What the end of a file tells beside its number of "{": less of them where scopes are open, more where a "}" had no partner.
// Branches of a #if that open or close the same scope are no difference.
int ClosedBraces(const Globals *G);
