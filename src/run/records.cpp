// Constructors and free functions of the list records.
#include "run/records.h"

#include <cstring>

#include "run/compare.h"
#include "run/globals.h"
#include "run/text.h"

namespace {

template <class T> T *NewRecord() {
    return static_cast<T *>(calloc(1, sizeof(T)));
}

// Copies a record's text. A null text stays null and is no failure.
bool StoreText(char **field, const char *text) {
    *field = CopyOnHeap(text);
    return *field || !text;
}

void FreeText(char **field) {
    free(*field);
    *field = nullptr;
}

// Hands a finished record to the list, or frees it with its texts.
int AddOrFree(bool complete, void *record, LlistFree free_texts, Llist *list, LlistCompare compare, Globals *G) {
    if (complete && LlistAdd(list, record, compare, G)) {
        return 1;
    }
    free_texts(record);
    free(record);
    return 0;
}

} // namespace

void Add(LineCounts &sum, const LineCounts &more) {
    sum.loc += more.loc;
    sum.eloc += more.eloc;
    sum.lloc += more.lloc;
    sum.comments += more.comments;
    sum.blanks += more.blanks;
    sum.lines += more.lines;
}

int AddListNode(int sort_key, const NodeData &like, Llist *list, Globals *G) {
    NodeData *node = like.name && list ? NewRecord<NodeData>() : nullptr;
    if (!node) {
        return 0;
    }
    *node = like;
    char **const texts[] = {&node->name, &node->parameters, &node->inherit_line, &node->template_line, &node->diff_file};
    bool complete = true;
    for (char **text : texts) {
        complete = StoreText(text, *text) && complete; // one that has no copy is null, so that only copies are freed
    }
    return AddOrFree(complete, node, NodeDataFree, list, NodeDataComparator(sort_key), G);
}

int AddFileNode(const char *name, int64_t date, int64_t size, int language, const FunctionPointValues &points,
                const Metrics &metrics, Llist *list, int sort_key, Globals *G) {
    FileData *file = name && list ? NewRecord<FileData>() : nullptr;
    if (!file) {
        return 0;
    }
    static_cast<Metrics &>(*file) = metrics;
    static_cast<FunctionPointValues &>(*file) = points;
    file->date = date;
    file->size = size;
    file->language = language;
    return AddOrFree(StoreText(&file->name, name), file, FileDataFree, list, FileDataComparator(sort_key), G);
}

int AddNameNode(const char *name, int line, int number, Llist *list, Globals *G) {
    if (!name || !list) {
        return 0;
    }
    const size_t bytes = strlen(name) + 1;
    NameData *entry = static_cast<NameData *>(malloc(sizeof(NameData) + bytes)); // one piece: notices may come in millions
    if (!entry) {
        return 0;
    }
    *entry = {reinterpret_cast<char *>(entry + 1), line, number};
    memcpy(entry->name, name, bytes);
    return AddOrFree(true, entry, NameDataFree, list, nullptr, G);
}

int AddDirMetricsNode(const char *directory, Globals *G) {
    NodeData entry{};
    entry.name = const_cast<char *>(directory); // copied
    return AddListNode(1, entry, &G->dir_metrics_list, G);
}

void NodeDataFree(void *record) {
    NodeData *node = static_cast<NodeData *>(record);
    FreeText(&node->name);
    FreeText(&node->parameters);
    FreeText(&node->inherit_line);
    FreeText(&node->template_line);
    FreeText(&node->diff_file);
    node->file = nullptr;
}

void NameDataFree(void *record) {
    static_cast<NameData *>(record)->name = nullptr;
}

void FileDataFree(void *record) {
    FreeText(&static_cast<FileData *>(record)->name);
}
