// The rules as records: adding, finding, freeing and listing them.
//
// Beside the list stands a hash of the ids: notices are shown by id, and every new rule asks whether its id is taken.
#include <algorithm>
#include <cstdlib>

#include "notices/udqn.h"
#include "report/forms.h"
#include "run/globals.h"

const char *const UdqnContextStr[kUdqnContexts] = {"Unknown", "Line", "Code", "Comment", "String"};

namespace {

// The free slot for an id, or the slot that holds it. The table is never full.
Udqn **FindSlot(int id, const UdqnList *list) {
    size_t at = (static_cast<unsigned>(id) * 2654435761U) & (list->capacity - 1);
    while (list->slots[at] && list->slots[at]->id != id) {
        at = (at + 1) & (list->capacity - 1);
    }
    return &list->slots[at];
}

// Keeps the table half empty at least. False when memory is out.
bool MakeRoom(UdqnList *list) {
    if (static_cast<size_t>(list->count) * 2 < list->capacity) {
        return true;
    }
    const size_t capacity = std::max<size_t>(list->capacity * 2, 64);
    auto **slots = static_cast<Udqn **>(calloc(capacity, sizeof(Udqn *)));
    if (!slots) {
        return false;
    }
    free(list->slots);
    list->slots = slots;
    list->capacity = capacity;
    for (Udqn *record : Records<Udqn>(*list)) {
        Udqn **slot = FindSlot(record->id, list);
        *slot = *slot ? *slot : record; // of several the first answers
    }
    return true;
}

void ShowNumbers(const char *label, const int (&flags)[kUdqnFlagNumbers]) {
    Put("  %-13s: ", label);
    const char *separator = "";
    for (const int flag : flags) {
        if (flag) {
            Put("%s%d", separator, flag);
            separator = ", ";
        }
    }
    Put("\n");
}

} // namespace

bool AddUdqn(Udqn *record, UdqnList *list, Globals *G) {
    if (!MakeRoom(list) || !LlistAdd(list, record, nullptr, G)) {
        return false;
    }
    Udqn **slot = FindSlot(record->id, list);
    *slot = *slot ? *slot : record;
    DropSieves(list);
    return true;
}

void DropUdqn(UdqnRun *ctx) {
    if (ctx->qnp) {
        free_udqn(ctx->qnp);
        FreeRecord(ctx->qnp);
        ctx->qnp = nullptr;
    }
}

void free_udqn(void *record) {
    Udqn *rule = static_cast<Udqn *>(record);
    for (char *&source : rule->sources) {
        free(source);
        source = nullptr;
    }
    for (char **text :
         {&rule->pattern, &rule->compile_result, &rule->message, &rule->summary, &rule->test_string, &rule->test_result}) {
        free(*text);
        *text = nullptr;
    }
    pcre_free(rule->regex);
    rule->regex = nullptr;
}

void ClearUdqn(Globals *G) {
    DropUdqn(G);
    DropSieves(&G->udqn_list);
    LlistDestroy(&G->udqn_list, free_udqn);
    free(G->udqn_list.slots);
    G->udqn_list.slots = nullptr;
    G->udqn_list.capacity = 0;
}

Udqn *get_udqn_ptr(int id, const UdqnList *list) {
    return list && list->capacity ? *FindSlot(id, list) : nullptr;
}

bool search_udqn_id(int id, const UdqnList *list) {
    return get_udqn_ptr(id, list) != nullptr;
}

void UdqnShow(const Udqn *record, Globals *G) {
    const Mode mode = FreeTextMode(G); // a listing for the eye, commas too
    const auto show = [mode](const char *label, const char *text) {
        PrintOnly<const char *, Shown>(mode, "  %-13s: %s\n", label, Shown{text});
    };
    const auto yes = [](int on) { return on ? "Yes" : "No"; };
    Put("\n  #------------------------------------------------------\n");
    Put("  UDQN Id      : %d\n", record->id);
    show("Active", yes(record->active));
    Put("  Sources      : ");
    for (int i = 0; i < kUdqnSources && record->sources[i]; ++i) {
        PrintOnly<Shown>(mode, "%s ", Shown{record->sources[i]});
    }
    Put("\n");
    show("Context", UdqnContextStr[record->context]);
    show("Pattern", record->pattern);
    ShowNumbers("Set Flags", record->set_flags);
    ShowNumbers("Check Flags", record->check_flags);
    ShowNumbers("!Check Flags", record->not_check_flags);
    ShowNumbers("Clear Flags", record->clear_flags);
    show("Emit EOF Flag", yes(record->emit_eof));
    show("Silent Flag", yes(record->silent));
    show("Compile", record->compile_result);
    show("String", record->test_string);
    show("Test", record->test_result);
    Put("  Count        : %d\n", record->count);
    show("Summary", record->summary);
    show("Message", record->message);
    Put("  Formated     : \n           ");
    emit_message(record->message, G);
    Put("\n");
}
