#include "run/driver/teardown.h"

#include "config/languages.h"
#include "notices/long_form.h"
#include "notices/udqn.h"
#include "run/globals.h"
#include "tree/class_tree.h"

void FreeGlobals(Globals *G) {
    clearUlpi(G);
    LlistDestroy(&G->dir_stack, NameDataFree);
    LlistDestroy(&G->file_list, FileDataFree);
    LlistDestroy(&G->source_file_list, FileDataFree);
    LlistDestroy(&G->header_file_list, FileDataFree);
    LlistDestroy(&G->notice_list, NameDataFree);
    FreeMarkedTexts(G);
    LlistDestroy(&G->tree_list, TreeDataFree);
    LlistDestroy(&G->lost_child_list, TreeDataFree);
    FreeIndex(&G->tree_names);
    FreeIndex(&G->lost_names);
    LlistDestroy(&G->macro_list, NameDataFree);
    LlistDestroy(&G->class_list, NodeDataFree);
    LlistDestroy(&G->interface_list, NodeDataFree);
    LlistDestroy(&G->function_list, NodeDataFree);
    LlistDestroy(&G->namespace_list, NodeDataFree);
    FreeIndex(&G->class_index_by_name);
    FreeIndex(&G->interface_index_by_name);
    FreeIndex(&G->namespace_index_by_name);
    FreeIndex(&G->macro_index_by_name);
    LlistDestroy(&G->dir_metrics_list, NodeDataFree);
    ClearUdqn(G);
    if (G->diff_data_file) {
        fclose(G->diff_data_file);
    }
    AbandonReplacement(&G->work_beside);
    RemoveBeside(&G->diff_beside, ".dif");
    LlistDestroy(&G->diff_names, NameDataFree);
    FreeIndex(&G->diff_names_taken);
    LlistDestroy(&G->old_work_list, NodeDataFree);
    LlistDestroy(&G->new_work_list, NodeDataFree);
    LlistDestroy(&G->work_result_list, NodeDataFree);
    LlistDestroy(&G->early_messages, [](void *) {});
    if (G->file_list_stream) {
        fclose(G->file_list_stream);
    }
    free(G);
}
