// What each of tly's own notices means, for rules and tool tips. The XML tells a kind's one line, with the limit in force; the
// reason stands here. Kinds of the user's own, from 100, have their one line only.
#pragma once

struct NoticeHelp {
    int number;
    const char *name; // "LineLength": the same in every version
    const char *help; // whole sentences: what was found, why it matters, what to do
};

// Null for a number that isn't tly's own.
const NoticeHelp *FindNoticeHelp(int number);
