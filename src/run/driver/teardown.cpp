#include "run/driver/teardown.h"

#include "config/languages.h"
#include "notices/long_form.h"
#include "notices/udqn.h"
#include "run/globals.h"
#include "tree/class_tree.h"

void FreeGlobals(Globals *G) {
    clearUlpi(G);
    LlistDestroy(&G->dir_stack, nullptr);
    LlistDestroy(&G->file_list, nullptr);
    LlistDestroy(&G->source_file_list, nullptr);
    LlistDestroy(&G->header_file_list, nullptr);
    LlistDestroy(&G->notice_list, nullptr);
    FreeMarkedTexts(G);
    LlistDestroy(&G->tree_list, TreeDataFree);
    LlistDestroy(&G->lost_child_list, TreeDataFree);
    FreeIndex(&G->tree_names);
    FreeIndex(&G->lost_names);
    LlistDestroy(&G->macro_list, nullptr);
    LlistDestroy(&G->class_list, nullptr);
    LlistDestroy(&G->interface_list, nullptr);
    LlistDestroy(&G->function_list, nullptr);
    LlistDestroy(&G->namespace_list, nullptr);
    FreeIndex(&G->class_index_by_name);
    FreeIndex(&G->interface_index_by_name);
    FreeIndex(&G->namespace_index_by_name);
    FreeIndex(&G->macro_index_by_name);
    LlistDestroy(&G->dir_metrics_list, nullptr);
    ClearUdqn(G);
    if (G->diff_data_file) {
        fclose(G->diff_data_file);
    }
    AbandonReplacement(&G->work_beside);
    RemoveBeside(&G->diff_beside, ".dif");
    LlistDestroy(&G->diff_names, nullptr);
    FreeIndex(&G->diff_names_taken);
    LlistDestroy(&G->old_work_list, nullptr);
    LlistDestroy(&G->new_work_list, nullptr);
    LlistDestroy(&G->work_result_list, nullptr);
    LlistDestroy(&G->early_messages, nullptr);
    if (G->file_list_stream) {
        fclose(G->file_list_stream);
    }
    free(G);
}
