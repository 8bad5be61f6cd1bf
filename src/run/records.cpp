// Constructors of the list records.
#include "run/records.h"

#include "run/compare.h"
#include "run/globals.h"

namespace {

template <class T, size_t kTexts>
int AddCopy(const T &like, char *T::*const (&texts)[kTexts], Llist *list, LlistCompare compare, const Globals *G) {
    return like.name && list && LlistAdd(list, CopyRecord(like, texts), compare, G);
}

constexpr char *NodeData::*kNodeTexts[] = {&NodeData::name};
constexpr char *FunctionData::*kFunctionTexts[] = {&FunctionData::name, &FunctionData::parameters, &FunctionData::template_line};
constexpr char *ClassData::*kClassTexts[] = {&ClassData::name, &ClassData::inherit_line, &ClassData::template_line};
constexpr char *WorkData::*kWorkTexts[] = {&WorkData::name, &WorkData::diff_file};
constexpr char *FileData::*kFileTexts[] = {&FileData::name};
constexpr char *NameData::*kNameTexts[] = {&NameData::name};

} // namespace

void Add(LineCounts &sum, const LineCounts &more) {
    sum.loc += more.loc;
    sum.eloc += more.eloc;
    sum.lloc += more.lloc;
    sum.comments += more.comments;
    sum.blanks += more.blanks;
    sum.lines += more.lines;
}

ClassData *CopyClass(const ClassData &like) {
    return CopyRecord(like, kClassTexts);
}

int AddListNode(int sort_key, const NodeData &like, Llist *list, Globals *G) {
    return AddCopy(like, kNodeTexts, list, NodeDataComparator(sort_key), G);
}

int AddListNode(int sort_key, const FunctionData &like, Llist *list, Globals *G) {
    return AddCopy(like, kFunctionTexts, list, NodeDataComparator(sort_key), G);
}

int AddListNode(int sort_key, const ClassData &like, Llist *list, Globals *G) {
    return AddCopy(like, kClassTexts, list, NodeDataComparator(sort_key), G);
}

int AddListNode(int sort_key, const WorkData &like, Llist *list, Globals *G) {
    return AddCopy(like, kWorkTexts, list, NodeDataComparator(sort_key), G);
}

int AddFileNode(const char *name, int64_t date, int64_t size, int language, const FunctionPointValues &points,
                const Metrics &metrics, Llist *list, int sort_key, Globals *G) {
    FileData file{};
    file.name = const_cast<char *>(name); // copied
    static_cast<Metrics &>(file) = metrics;
    static_cast<FunctionPointValues &>(file) = points;
    file.date = date;
    file.size = size;
    file.language = language;
    return AddCopy(file, kFileTexts, list, FileDataComparator(sort_key), G);
}

int AddNameNode(const char *name, int line, int number, Llist *list, Globals *G) {
    return AddCopy(NameData{{const_cast<char *>(name)}, line, number}, kNameTexts, list, nullptr, G);
}

int AddDirMetricsNode(const char *directory, Globals *G) {
    NodeData entry{};
    entry.name = const_cast<char *>(directory); // copied
    return AddListNode(1, entry, &G->dir_metrics_list, G);
}
