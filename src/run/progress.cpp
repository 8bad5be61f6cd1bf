// Progress on stderr, while files are processed.
#include "run/progress.h"

#include "run/globals.h"

void ShowFileProgress(const char *name, Globals *G) {
    if (G->progress_by_name) {
        fprintf(stderr, "  + %s\n", name);
        return;
    }
    static int counter;
    static int processed;
    ++counter;
    if (counter % G->progress_interval == 0) {
        fputc('.', stderr);
    }
    if (counter == 65L * G->progress_interval) {
        processed += counter;
        fprintf(stderr, "(%4.1f%%)\n  ", 100.0 * processed / G->file_list.count);
        counter = 1; // not 0: from here on a percentage comes every 65 intervals less one file
    }
}
