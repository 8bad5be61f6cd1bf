// The list, its records and their order.
#include "bench.h"

#include <deque>
#include <random>
#include <unordered_map>

#include "run/compare.h"
#include "run/name_index.h"

namespace {

struct ListBench : StateBench {
    Llist list{};
    ~ListBench() { LlistDestroy(&list, nullptr); }
};

int SameAddress(const void *key, const LlistNode *node, int) {
    return key == Record<void>(node) ? 0 : 1;
}

// Names from the head; every link is checked on the way.
template <class T> std::string Names(const Llist &list) {
    std::string names;
    int count = 0;
    const LlistNode *last = nullptr;
    for (const LlistNode *node = list.head; node; node = node->next) {
        CHECK(node->prev == last);
        last = node;
        names += names.empty() ? "" : " ";
        names += Record<T>(node)->name;
        ++count;
    }
    CHECK(list.tail == last);
    CHECK(list.count == count);
    return names;
}

} // namespace

TEST_CASE_FIXTURE(ListBench, "list: the chain stays whole through every operation") {
    LlistDestroy(&list, nullptr);
    CHECK(LlistAdd(&list, nullptr, nullptr, G) == nullptr);
    for (const char *name : {"a", "m", "n", "z"}) {
        AddNameNode(name, 0, 0, &list, G);
    }
    LlistRemoveNodeInList(&list, list.head, nullptr);
    LlistRemoveNodeInList(&list, list.tail, nullptr);
    CHECK(Names<NameData>(list) == "m n");
    NameData *kept = Record<NameData>(list.head);
    LlistDetachNode(&list, list.head);
    CHECK(std::string(kept->name) == "m");
    CHECK(Names<NameData>(list) == "n");

    Llist other{};
    LlistConcatenate(&list, &other);
    CHECK(Names<NameData>(list) == "n");
    LlistConcatenate(&other, &list); // an empty list takes the other's nodes
    CHECK(Names<NameData>(list) == "");
    LlistAdd(&list, kept, nullptr, G);
    LlistConcatenate(&list, &other);
    CHECK(Names<NameData>(list) == "m n");
    CHECK(Names<NameData>(other) == "");
}

TEST_CASE_FIXTURE(ListBench, "list: sorting equals inserting one by one, ties included") {
    std::mt19937 random(7);
    for (int round = 0; round < 1500; ++round) {
        G->sort_descending = round % 2;
        const int key = round % 11;
        Llist plain{};
        Llist inserted{};
        for (int i = 0, n = static_cast<int>(random() % 40); i < n; ++i) {
            const std::string name = "f" + std::to_string(random() % 9) + (key == 1 ? "" : "_" + std::to_string(i));
            Metrics metrics{};
            metrics.loc = metrics.eloc = metrics.lloc = metrics.cyclo = metrics.functions = static_cast<int>(random() % 6);
            const int64_t big = static_cast<int64_t>(random() % 4) << 33; // more than an int holds
            AddFileNode(name.c_str(), big, -big, 0, {}, metrics, &plain, 0, G);
            AddFileNode(name.c_str(), big, -big, 0, {}, metrics, &inserted, key, G);
        }
        const FileData *kept = plain.head ? Record<FileData>(plain.head) : nullptr;
        LlistResort_FileData(&plain, key, G);
        REQUIRE(Names<FileData>(plain) == Names<FileData>(inserted));
        CHECK((!kept || LlistSearch(&plain, kept, SameAddress))); // records keep their addresses
        LlistDestroy(&plain, nullptr);
        LlistDestroy(&inserted, nullptr);
    }
}

TEST_CASE("the name index answers as a map of the library does") {
    struct Entry {
        const char *name; // the first field
        std::string text;
    };
    std::mt19937 random(5);
    std::deque<Entry> entries; // keeps addresses
    std::unordered_map<std::string, const Entry *> map;
    NameIndex index{};
    const auto any_name = [&] {
        const auto n = random() % 700;
        return "n" + std::to_string(n == 0 ? 95779 : n == 1 ? 415000 : n); // 95779 and 415000 have one hash
    };
    const auto enter = [&](Entry *entry) {
        entry->name = entry->text.c_str();
        IndexName(&index, entry);
        map.emplace(entry->text, entry); // the first of a name stays the answer
    };
    const auto take_out = [&](const Entry *entry) {
        UnindexName(&index, entry);
        const auto found = map.find(entry->text);
        if (found != map.end() && found->second == entry) {
            map.erase(found);
        }
    };
    bool same = true;
    for (int step = 0; step < 20000 && same; ++step) {
        Entry *old = entries.empty() ? nullptr : &entries[random() % entries.size()];
        switch (old ? random() % 4 : 0) {
        case 0: enter(&entries.emplace_back(Entry{nullptr, any_name()})); break;
        case 1: take_out(old); break;
        case 2: // another name
            take_out(old);
            old->text = any_name();
            enter(old);
            break;
        default: {
            const std::string name = any_name();
            const auto found = map.find(name);
            same = FindIndexed(&index, name.c_str()) == (found == map.end() ? nullptr : found->second);
        }
        }
        same = same && index.count == map.size();
    }
    CHECK(same);
    FreeIndex(&index);
    CHECK(FindIndexed(&index, "n1") == nullptr);
}
