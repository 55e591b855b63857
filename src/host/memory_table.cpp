#include "host/memory_table.h"

#include <algorithm>
#include <numeric>

namespace t_gencvf {

bool MemoryTable::isLess(const Variant& a, const Variant& b) {
    const auto* textA = std::get_if<std::string>(&a);
    const auto* textB = std::get_if<std::string>(&b);
    if (isNull(a) || isNull(b)) return isNull(a) && !isNull(b);
    if (textA == nullptr && textB == nullptr) return t_genproc::toDouble(a) < t_genproc::toDouble(b);
    if (textA == nullptr || textB == nullptr) return textA == nullptr;
    return *textA < *textB;
}

void MemoryTable::set(std::size_t record, std::size_t field, Variant value) {
    const auto order = orders_.find(field);
    if (order != orders_.end()) order->second.erase(place(field, record));
    records_[record][field] = std::move(value);
    if (order != orders_.end()) order->second.insert(place(field, record), record);
}

void MemoryTable::append(Record record) {
    const std::size_t number = records_.size();
    for (auto& [field, order] : orders_) {  // there is room for each, so that no insertion fails half-way
        if (order.size() == order.capacity()) order.reserve(2 * number + 1);
    }
    records_.push_back(std::move(record));
    for (auto& [field, order] : orders_) order.insert(place(field, number), number);
}

const MemoryTable::Order& MemoryTable::orderedBy(std::size_t field) {
    const auto [order, isNew] = orders_.try_emplace(field, records_.size());
    if (isNew) {
        std::iota(order->second.begin(), order->second.end(), std::size_t{0});
        std::ranges::sort(order->second, [&](std::size_t a, std::size_t b) { return isAhead(field, a, b); });
    }
    return order->second;
}

MemoryTable::Order::const_iterator MemoryTable::place(std::size_t field, std::size_t record) {
    return std::ranges::lower_bound(orderedBy(field), record,
                                    [&](std::size_t a, std::size_t b) { return isAhead(field, a, b); });
}

MemoryTable::Order::const_iterator MemoryTable::lowerBound(std::size_t field, const Variant& value) {
    return std::ranges::lower_bound(
        orderedBy(field), value, isLess,
        [&](std::size_t record) -> const Variant& { return records_[record][field]; });
}

bool MemoryTable::isAhead(std::size_t field, std::size_t a, std::size_t b) const {
    const Variant &keyA = records_[a][field], &keyB = records_[b][field];
    return isLess(keyA, keyB) || (a < b && !isLess(keyB, keyA));
}

}  // namespace t_gencvf
