// Functions: from a "(" to a candidate, from its "{" to its "}", and their figures.
#pragma once

#include <span>

struct Globals;
struct LineCounts;
struct NodeData;
struct Scan;

// Looks for a function name in line in front of col, the index of a "(" (or of the line's last character, when the name stands on
// the line before its parenthesis). Fills funcname and sets the flags of a candidate, or refuses.
void GetFunction(const char *line, int col, Globals *G);
// Trims funcname and judges it; op is the place of "operator" in the line, or null. 1 for an acceptable name.
int ValFunctionName(Globals *G, const char *op);
// Writes the name of an operator with its class, A::operator+, into out; op is the place of "operator" in the line.
void ReadOperatorName(const char *line, const char *op, std::span<char> out);
// The index of the "<" that matches the ">" at index close, or -1.
int OpenAngle(const char *text, int close);
// Appends a line, or the end of one, to the candidate's parameters: its code, with white space as it stands. Returns false, with
// nothing appended, where it doesn't fit. in_comment: the line begins inside a comment.
bool GatherParams(const char *text, int in_comment, Globals *G);
// Joins the white space of what was gathered to single blanks. Ahead of whoever shows parameters that may not be packed.
void TidyParams(Globals *G);
// Packs the parameters that were gathered: initialiser lists, bodies, line ends and spare blanks go, the text ends in ")". Returns
// their number.
int packParams(Globals *G);

// "f(" in a class A is A::f, in Java and C# A.f; a name that is qualified already stays.
void QualifyByClass(Globals *G);
// The same with the namespace around both.
void QualifyFunction(Globals *G);
// The template heading that was gathered becomes the candidate's.
void TakeFunctionTemplate(Globals *G);

// The candidate becomes a function at the "{" in hand.
void OpenFunction(Scan &scan, Globals *G);
// The open function ends at the "}" in hand: figures, notices, record, roll-up, output, resets. When its record can't be made: a
// message, and scan.aborted is set.
void CloseFunction(Scan &scan, Globals *G);
// What a function leaves behind it, also when functions aren't measured.
void ResetFunction(Globals *G);

// The cyclomatic complexity of the function that is ending, by the switches of the settings.
int GetCycloComplexity(const Globals *G);
// Adds the complexity of the function that is ending to the sums and maxima of the file, with notice 28 between. Returns it.
int CountComplexity(Globals *G);

// Identification lines: head and tail in notice mode, and in all other modes; and the block of figures.
void FunctionBegin(Globals *G);
void FunctionEnd(Globals *G);
void EmitFunction(Globals *G);
void ShowFunction(const LineCounts &lines, Globals *G);

// Rolls the figures of the function that is ending up to its class or classes. A memory failure gives a message.
void Add_Func2Class(const LineCounts &lines, int cyclo, int params, int returns, Globals *G);
// The same of a record to the namespace in front of the only "::" of its name; called by the project summary.
void Add_Func2namespace(const NodeData &function, Globals *G);
// The list of functions takes its records in order of closing; with a sort key it is put into that order before its first walk.
void SettleFunctionList(Globals *G);
