// The notices of the run summed up: how often each kind came up and how dense they are, and one line for each that is remembered.
#pragma once

struct Globals;

// One row per kind of notice that came up, with the density over the project's lines.
void ShowQualityProfile(Globals *G);
// One line per record of notice_list, re-sorted by name where a sort key was given; nothing when the list is empty.
void ShowNoticeSummary(Globals *G);
