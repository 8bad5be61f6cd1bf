// The end of the state record.
#include "run/globals.h"

#include "config/languages.h"

void FreeGlobals(Globals *G) {
    clearUlpi(G);
    LlistDestroy(&G->dir_stack, NameDataFree);
    LlistDestroy(&G->file_list, FileDataFree);
    LlistDestroy(&G->source_file_list, FileDataFree);
    LlistDestroy(&G->header_file_list, FileDataFree);
    LlistDestroy(&G->macro_list, NameDataFree);
    LlistDestroy(&G->dir_metrics_list, NodeDataFree);
    LlistDestroy(&G->early_messages, [](void *) {});
    if (G->file_list_stream) {
        fclose(G->file_list_stream);
    }
    free(G);
}
