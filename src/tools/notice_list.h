// The list of all kinds of notices, for -hn, and that of the keys of the user's own, for -xUDQNKEYS.
#pragma once

struct Globals;

// Writes the report head and one line per kind of notice: its number, whether it is on, its short text.
void ShowNotices(Globals *G);
// Writes the keys of a file of user defined notices, with what each takes and does. docs/tly_udqn.5 is made of it.
void ShowRuleKeys(Globals *G);
