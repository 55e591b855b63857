#include "host/memory_record_set.h"

#include <algorithm>

namespace t_gencvf {
namespace {

const std::string* textOf(const Variant& value) { return std::get_if<std::string>(&value); }

/// Null, then numbers, then texts byte by byte.
bool isLess(const Variant& a, const Variant& b) {
    if (isNull(a) || isNull(b)) return isNull(a) && !isNull(b);
    if (textOf(a) == nullptr && textOf(b) == nullptr) return t_genproc::toDouble(a) < t_genproc::toDouble(b);
    if (textOf(a) == nullptr || textOf(b) == nullptr) return textOf(a) == nullptr;
    return *textOf(a) < *textOf(b);
}

}  // namespace

MemoryRecordSet::MemoryRecordSet(TableDefinition table) : TableRecordSet(std::move(table)) {}

MemoryRecordSet MemoryRecordSet::ofRecord(const std::vector<Field>& record) {
    TableDefinition table;
    Changes values;
    for (const Field& field : record) {
        table.fields.push_back({field.name});
        values.emplace_back(fieldValue(FieldType::Any, field.value));
    }
    MemoryRecordSet set(std::move(table));
    set.append(values);
    set.toFirst();
    return set;
}

void MemoryRecordSet::change(const Changes& changes) {
    const std::size_t current = order_[position_];
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (changes[i]) records_[current][i] = *changes[i];
    }
    if (!orderField_ || !changes[*orderField_]) return;
    order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(position_));
    position_ = place(current);
}

void MemoryRecordSet::append(const Changes& changes) {
    Record record;
    for (const auto& change : changes) record.push_back(change.value_or(t_genproc::Null{}));
    records_.push_back(std::move(record));
    const bool wasAtEnd = atEnd();
    const std::size_t position = place(records_.size() - 1);
    if (wasAtEnd || position <= position_) ++position_;
}

void MemoryRecordSet::orderBy(std::size_t field) {
    orderField_ = field;
    std::ranges::sort(order_, [this](std::size_t a, std::size_t b) { return isAhead(a, b); });
    position_ = 0;
}

/// In the order by the indexed field; of records that are equal there, the older one is ahead.
bool MemoryRecordSet::isAhead(std::size_t a, std::size_t b) const {
    if (isLess(key(a), key(b))) return true;
    return a < b && !isLess(key(b), key(a));
}

/// Puts the record where it belongs, and gives its position there.
std::size_t MemoryRecordSet::place(std::size_t record) {
    const auto place =
        !orderField_ ? order_.end()
                     : std::ranges::lower_bound(
                           order_, record, [this](std::size_t a, std::size_t b) { return isAhead(a, b); });
    return static_cast<std::size_t>(order_.insert(place, record) - order_.begin());
}

bool MemoryRecordSet::find(SeekComparison comparison, const Variant& wanted) {
    const auto found = std::ranges::lower_bound(order_, wanted, isLess,
                                                [this](std::size_t i) -> const Variant& { return key(i); });
    const bool matches = found != order_.end() &&
                         (comparison == SeekComparison::GreaterOrEqual || !isLess(wanted, key(*found)));
    position_ = matches ? static_cast<std::size_t>(found - order_.begin()) : order_.size();
    return matches;
}

}  // namespace t_gencvf
