#include "host/memory_record_set.h"

#include <algorithm>
#include <numeric>

namespace t_gencvf {
namespace {

TableDefinition tableOf(const std::vector<MemoryRecordSet::Field>& record) {
    TableDefinition table;
    for (const MemoryRecordSet::Field& field : record) table.fields.push_back({field.name});
    return table;
}

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

MemoryRecordSet::MemoryRecordSet(const std::vector<Field>& record) : TableRecordSet(tableOf(record)) {
    Record& values = records_.emplace_back();
    for (const Field& field : record) values.push_back(field.value);
    order_ = {0};
}

void MemoryRecordSet::change(const Changes& changes) {
    Record& record = records_[order_[position_]];
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (changes[i]) record[i] = *changes[i];
    }
    arrange();
}

void MemoryRecordSet::append(const Changes& changes) {
    Record& record = records_.emplace_back();
    for (const auto& change : changes) record.push_back(change.value_or(t_genproc::Null{}));
    arrange();
}

void MemoryRecordSet::orderBy(std::size_t field) {
    orderField_ = field;
    arrange();
    position_ = 0;
}

const Variant& MemoryRecordSet::key(std::size_t record) const { return records_[record][*orderField_]; }

/// Puts the records into their order, and keeps the current one.
void MemoryRecordSet::arrange() {
    const std::size_t current = atEnd() ? records_.size() : order_[position_];
    order_.resize(records_.size());
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    if (orderField_)
        std::ranges::stable_sort(order_, isLess, [this](std::size_t i) -> const Variant& { return key(i); });
    position_ = static_cast<std::size_t>(std::ranges::find(order_, current) - order_.begin());
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
