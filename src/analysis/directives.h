// What the word of a preprocessor line says. The word stands behind the "#" and its blanks, in a NUL terminated line.
#pragma once

struct Globals;

bool IsDefine(const char *word);
// "#region Don't touch": the rest of the line is prose.
bool IsRegion(const char *word);
// Enters the macro that a "define" names, and leaves its name in mname. True if it has parameters.
bool EnterMacro(const char *word, Globals *G);
