// The catalogue of the built-in quality notices: one row per number.
#pragma once

#include "run/config_state.h"

inline constexpr int kNotices = kNoticeSlots - 1;

// What a long form shows of the notice's place, between its number and its text.
enum NoticePlace : char {
    kNone,    // nothing: the notice is about a whole function, class or file
    kComma,   // "Line 12, "
    kColon,   // "Line 12: "
    kOwnRow,  // "Line 12", the text on the next row
    kFileRow, // "File a.cpp: Line 12", the text on the next row
};

enum NoticeTrait {
    kLineFirst = 1,   // has a line-first form
    kHtmlNoLine = 2,  // shows no line in HTML
    kHtmlLoud = 4,    // is a NOTICE in HTML
    kTwoBlanks = 8,   // one more blank behind "Line 12:", where the notice comes first
    kFiveBlanks = 16, // its line-first form opens with five blanks
};

// The setting that a short text shows; none for most notices.
struct NoticeLimit {
    int NoticeSettings::*count = nullptr;
    float NoticeSettings::*percent = nullptr;
    constexpr NoticeLimit() = default;
    constexpr NoticeLimit(int NoticeSettings::*c)
        : count(c) {}
    constexpr NoticeLimit(float NoticeSettings::*p)
        : percent(p) {}
};

struct NoticeRow {
    int number;
    NoticePlace place;
    int traits;
    NoticeLimit limit;
    const char *text;           // short text; %d or %.1f%% stands for the limit
    const char *body = nullptr; // long text behind the head, `marked` where HTML is bold; null where a raiser writes it
    const char *html = nullptr; // the same for HTML where the wording differs; else null
};

// The row of a notice, 1 to 58. Row 0 is for a number that nothing explains.
const NoticeRow &Notice(int n);
