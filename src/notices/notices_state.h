// What the quality notices remember over the whole run.
#pragma once

#include "run/llist.h"

// The long text of a notice as it was last written, made from source for a mode. Null until then.
struct KeptNoticeText {
    const char *source; // static
    int mode;           // a Mode
    char *marked;       // owned
};

struct NoticeRun {
    int notice_cnt[59];              // entry n: how often notice n was raised
    Llist notice_list;               // NameData: the notices that were printed or remembered in short form, in order
    KeptNoticeText marked_texts[59]; // entry n: of notice n
};
