// Classes, structs and interfaces: headings, members, nesting, figures.
#pragma once

struct Globals;
struct LineCounts;
struct Scan;

// What struct { int a; } v; is called until its name is read.
inline constexpr const char *kUnnamedClass = "instance";

// Reads the name that begins at col into classname, with its namespace and enclosing classes in front.
void GetClassname(const char *line, int col, Globals *G);
// Makes classname of a name as it is written and that of the class or namespace around it, which may be empty.
void NameClass(const char *outer, const char *name, Globals *G);
// What joins a name to that of the scope around it: "::", "." or nothing.
const char *SeparatorBehind(const char *outer, const Globals *G);
// Count one method, and the data members of a statement, in the access section in hand.
void ClassMethod(Globals *G);
void ClassAttribute(const char *line, Globals *G);
// Cleans an inheritance text in place.
void FormatInheritline(char *text, Globals *G);
// True if a "," occurs and no "<" stands in front of the first one.
bool CheckMultipleInheritance(const char *text);

// The "{" in hand opens a struct or class (struct_pending tells), or an interface. When its record can't be made: a message, and
// scan.aborted is set.
void OpenClass(Scan &scan, Globals *G);
void OpenInterface(Scan &scan, Globals *G);
// The open class ends at the "}" in hand.
void CloseClass(Scan &scan, Globals *G);
// Puts the class in hand aside for one inside it. Its end takes it back.
void PushNestedClass(Globals *G);
// Adds the figures of the closing class to its record.
void Add_Class2Class(const LineCounts &lines, Globals *G);

// Output: the head and tail in notice mode, the head in all others, the bases.
void ClassBegin(Globals *G);
void ClassEnd(Globals *G);
void EmitClass(Globals *G);
void EmitInheritanceLine(Globals *G);
