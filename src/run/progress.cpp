// Progress on stderr, while files are processed.
#include "run/progress.h"

#include "run/globals.h"

void BeginProgress(int files, const Globals *G) {
    if (!G->show_progress) {
        return;
    }
    if (G->progress_by_name) {
        fprintf(stderr, "  Processing %d Files - Status By File Name\n", files);
    } else {
        fprintf(stderr, "  Processing %d Files - Status(.) %d Files\n  ", files, G->progress_interval);
    }
}

// A run goes through files or through pairs of them, and once.
void CountProgress(int files, Globals *G) {
    auto &[counter, processed] = G->progress;
    ++counter;
    if (counter % G->progress_interval == 0) {
        fputc('.', stderr);
    }
    if (counter == 65L * G->progress_interval) {
        processed += counter;
        fprintf(stderr, "(%4.1f%%)\n  ", 100.0 * processed / files);
        counter = 1; // not 0: from here on a percentage comes every 65 intervals less one file
    }
}
