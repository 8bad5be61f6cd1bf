// Rules that tell where in the source an entity begins or ends, and the identification of macros.
#pragma once

struct Globals;

// "-------- Class Begin Line: 12 ---------": a rule of 72 characters around the text and the line number.
void ShowStateLine(int line, const char *text, const Globals *G);
// The region of a #define with parameters, with -m: its begin and end in notice mode, or its one line.
void MacroBegin(const char *name, Globals *G);
void MacroEnd(const char *name, Globals *G);
void EmitMacro(const char *name, Globals *G);
