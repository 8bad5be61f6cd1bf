// What the program says about itself.
#pragma once

struct Globals;

// The short syntax of a run without arguments and of -hp; with syntax_pause it waits for a key.
void ShowSyntax(Globals *G);
// The switch list of -hs.
void ShowSwitchList(Globals *G);
// The manual of -hf.
void ShowHelp(Globals *G);
