// The lists of source files and directories. They last for the whole run.
#pragma once

#include <cstdint>
#include <cstdio>
#include <sys/stat.h>

#include "run/llist.h"

struct FileLists {
    Llist dir_stack;        // NameData: entries that a directory walk has still to look at
    Llist file_list;        // FileData: headers first, then all other sources
    Llist source_file_list; // FileData, until they join file_list
    Llist header_file_list;
    Llist dir_metrics_list; // NodeData: the directories of a -F list with their sums
    Llist macro_list;       // NameData: words that the recognisers treat as noise
    struct stat report;     // the file that the report goes to; zeros when it goes elsewhere
    int lines_only;         // the report holds nothing but lines
    FILE *file_list_stream; // the open list of -F
    int progress_count;     // files a walk has listed since its latest progress line
    int progress_total;     // files told by the progress lines of the walk
};

struct CurrentFile {
    const char *file_name; // of the file in hand; null between files
    int64_t file_size;     // bytes, of the latest file looked at
    int64_t file_date;     // seconds
    int files_processed;   // files opened and read so far
    int64_t total_size;    // bytes of all processed files
};
