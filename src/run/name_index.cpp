// Open addressing with linear steps over a table that is at most three quarters full: 12 bytes a slot, and no node per record. A
// name's home is its hash's part of the table, so that a table of any size will do: one that grows by half takes 16 to 24 bytes for
// a name, and its names move in the order of their slots.
#include "run/name_index.h"

#include <utility>

namespace {

const char *NameOf(const void *record) {
    return *static_cast<char *const *>(record);
}

// Never 0, which marks a free slot. A product's upper bits, which decide about the home, hang on all bits of its factors.
uint32_t HashName(const char *name) {
    uint64_t hash = 0;
    for (; *name; ++name) {
        hash = (hash ^ static_cast<unsigned char>(*name)) * 0x9e3779b97f4a7c15u;
    }
    const auto upper = static_cast<uint32_t>(hash >> 32);
    return upper ? upper : 1;
}

size_t Home(const NameIndex *index, uint32_t hash) {
    return (hash * index->capacity) >> 32;
}

size_t Behind(const NameIndex *index, size_t slot) {
    return slot + 1 == index->capacity ? 0 : slot + 1;
}

// The slot that holds the name, or the free one where it belongs.
size_t SlotOf(const NameIndex *index, const char *name, uint32_t hash) {
    size_t slot = Home(index, hash);
    while (index->hashes[slot] && !(index->hashes[slot] == hash && strcmp(NameOf(index->slots[slot]), name) == 0)) {
        slot = Behind(index, slot);
    }
    return slot;
}

int Grow(NameIndex *index) {
    NameIndex larger{};
    larger.capacity = index->capacity ? index->capacity + index->capacity / 2 : 64;
    larger.count = index->count;
    larger.slots = static_cast<void **>(malloc(larger.capacity * sizeof *larger.slots));
    larger.hashes = static_cast<uint32_t *>(calloc(larger.capacity, sizeof *larger.hashes));
    if (!larger.slots || !larger.hashes) {
        FreeIndex(&larger);
        return 0;
    }
    for (size_t i = 0; i < index->capacity; ++i) {
        if (index->hashes[i]) {
            const size_t slot = SlotOf(&larger, NameOf(index->slots[i]), index->hashes[i]);
            larger.slots[slot] = index->slots[i];
            larger.hashes[slot] = index->hashes[i];
        }
    }
    std::swap(*index, larger);
    FreeIndex(&larger);
    return 1;
}

} // namespace

int IndexName(NameIndex *index, void *record) {
    if (index->count * 4 >= index->capacity * 3 && !Grow(index)) {
        return 0;
    }
    const uint32_t hash = HashName(NameOf(record));
    const size_t slot = SlotOf(index, NameOf(record), hash);
    if (!index->hashes[slot]) {
        index->slots[slot] = record;
        index->hashes[slot] = hash;
        ++index->count;
    }
    return 1;
}

void *FindIndexed(const NameIndex *index, const char *name) {
    if (!index->capacity || !name) {
        return nullptr;
    }
    const size_t slot = SlotOf(index, name, HashName(name));
    return index->hashes[slot] ? index->slots[slot] : nullptr;
}

void UnindexName(NameIndex *index, const void *record) {
    if (FindIndexed(index, NameOf(record)) != record) {
        return;
    }
    size_t hole = SlotOf(index, NameOf(record), HashName(NameOf(record)));
    const auto steps = [index](size_t from, size_t to) { return to >= from ? to - from : to + index->capacity - from; };
    // whoever was pushed past the hole moves up, so that no look-up ends too early
    for (size_t next = Behind(index, hole); index->hashes[next]; next = Behind(index, next)) {
        if (steps(Home(index, index->hashes[next]), next) >= steps(hole, next)) {
            index->slots[hole] = index->slots[next];
            index->hashes[hole] = index->hashes[next];
            hole = next;
        }
    }
    index->hashes[hole] = 0;
    --index->count;
}

void FreeIndex(NameIndex *index) {
    free(index->slots);
    free(index->hashes);
    *index = NameIndex{};
}
