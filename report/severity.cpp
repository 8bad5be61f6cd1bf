#include "severity.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr int kFirstOwnRule = 100; // of the user's
constexpr int kFaults[] = {4, 5, 8, 10, 11, 12, 13, 14, 37, 45, 56};
constexpr int kDesigns[] = {3, 9, 15, 18, 22, 24, 26, 27, 28, 29, 32, 33, 34, 35, 36, 38, 39, 40, 41, 42, 48, 55, 57, 58};

} // namespace

Severity SeverityOf(int number) {
    if (number >= kFirstOwnRule || std::ranges::binary_search(kFaults, number)) {
        return Severity::kFault;
    }
    return std::ranges::binary_search(kDesigns, number) ? Severity::kDesign : Severity::kStyle;
}

std::vector<uint32_t> WorstFirst(const Model &m) {
    std::vector<const NoticeKind *> kinds;
    for (const NoticeKind &kind : m.kinds) {
        kinds.push_back(&kind);
    }
    std::ranges::stable_sort(kinds, [](const NoticeKind *a, const NoticeKind *b) {
        const Severity left = SeverityOf(a->number);
        const Severity right = SeverityOf(b->number);
        return left != right ? left < right : a->count < b->count;
    });
    std::unordered_map<int, uint32_t> place; // of the next notice of a kind
    uint32_t start = 0;
    for (const NoticeKind *kind : kinds) {
        place[kind->number] = start;
        start += static_cast<uint32_t>(kind->count);
    }
    std::vector<uint32_t> order(m.notices.size());
    for (uint32_t i = 0; i < m.notices.size(); ++i) {
        order[place[m.notices[i].number]++] = i;
    }
    return order;
}
