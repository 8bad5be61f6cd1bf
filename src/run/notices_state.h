// What the quality notices remember over the whole run.
#pragma once

#include "run/llist.h"
#include "run/notice_numbers.h"
#include "run/scope_state.h"

// What a long form fills in ahead of its own values: nothing, the line, or the file and the line.
enum HeadValues : char { kNoHead, kHeadLine, kHeadFileLine };

// The long form of a notice as it was last written, made from source for a mode and an order. Null until then.
struct KeptNoticeText {
    const char *source; // static
    int mode;           // a Mode
    int line_first;     // the order of line and number
    HeadValues head;
    char *format; // owned
};

struct NoticeRun {
    char notice_text[kNoticeSlots][80];  // entry n: the answer of GetNoticeStr where it shows a limit; empty until it is asked
    char bare_body_text[kBodyKinds][48]; // entry n: the short text of notice 22 for keyword n; empty until it is asked
    int notice_cnt[kNoticeSlots];        // entry n: how often notice n was raised
    Llist notice_list;                   // NameData: the notices of the notice summary, in order; empty in runs without one
    KeptNoticeText marked_texts[kNoticeSlots]; // entry n: of notice n
};
