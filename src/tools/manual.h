// The manual as data: what -hf prints, and what docs/tly.1 is made of (scripts/man_page.py).
//
// A text is lines without their margin, at most 76 characters long. A line at the margin is prose; one that is indented stands as
// it is: an example, a table, a piece of a report. An empty line parts paragraphs.
#pragma once

#include <span>

struct ManualSection {
    const char *title; // centred above it
    const char *text;
};

struct SwitchEntry {
    const char *letters; // the switches that it tells of; the first one opens its text
    const char *heading; // an asterisk in front where it can stand beside other reports
    const char *text;
};

// The sections in their order; the entries of the switches follow the last one.
extern const std::span<const ManualSection> kManualSections;
extern const std::span<const SwitchEntry> kSwitchEntries;
