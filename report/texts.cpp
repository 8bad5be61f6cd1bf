#include "texts.h"

#include <algorithm>
#include <cstring>
#include <xxhash.h>

namespace {
constexpr size_t kBlock = 64 * 1024;
} // namespace

Texts::Texts()
    : texts_{""},
      slots_(1024) {}

void Texts::Grow() {
    std::vector<TextId> slots(slots_.size() * 2);
    for (TextId id = 1; id < texts_.size(); ++id) {
        size_t slot = XXH3_64bits(texts_[id].data(), texts_[id].size()) & (slots.size() - 1);
        while (slots[slot]) {
            slot = (slot + 1) & (slots.size() - 1);
        }
        slots[slot] = id;
    }
    slots_ = std::move(slots);
}

TextId Texts::Intern(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    if (texts_.size() * 2 > slots_.size()) {
        Grow();
    }
    size_t slot = XXH3_64bits(text.data(), text.size()) & (slots_.size() - 1);
    for (; slots_[slot]; slot = (slot + 1) & (slots_.size() - 1)) {
        if (texts_[slots_[slot]] == text) {
            return slots_[slot];
        }
    }
    if (room_ < text.size() + 1) {
        room_ = std::max(kBlock, text.size() + 1);
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
        free_ = blocks_.back().get();
    }
    memcpy(free_, text.data(), text.size());
    free_[text.size()] = '\0';
    slots_[slot] = static_cast<TextId>(texts_.size());
    texts_.emplace_back(free_, text.size());
    free_ += text.size() + 1;
    room_ -= text.size() + 1;
    return slots_[slot];
}
