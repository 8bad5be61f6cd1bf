#include "queue.h"

// Puts an order behind those that are as urgent.
bool Queue::Add(const Order &order, int limit)
{
    if (count_ >= limit && !order.urgent) return false;
    for (auto *at = last_; at; at = at->before) {
        switch (at->urgency) {
        case kNow: if (order.urgent) continue; // fall through
        case kToday: Link(order, at); return true;
        }
    }
    while (first_ = first_->before) {}
    return Link(order, nullptr);
}
