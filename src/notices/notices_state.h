// What the quality notices remember over the whole run.
#pragma once

#include "run/llist.h"

struct NoticeRun {
    int notice_cnt[59]; // entry n: how often notice n was raised
    Llist notice_list;  // NameData: the notices that were printed or remembered in short form, in order
};
