// The list of all kinds of notices, for -hn.
#pragma once

struct Globals;

// Writes the report head and one line per kind of notice: its number, whether it is on, its short text.
void ShowNotices(Globals *G);
