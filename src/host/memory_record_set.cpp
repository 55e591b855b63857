#include "host/memory_record_set.h"

namespace t_gencvf {

MemoryRecordSet::MemoryRecordSet(TableDefinition table)
    : MemoryRecordSet(std::make_shared<MemoryTable>(std::move(table))) {}

MemoryRecordSet::MemoryRecordSet(std::shared_ptr<MemoryTable> table)
    : TableRecordSet(table->definition()), records_(std::move(table)) {
    toFirst();
}

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
    for (std::size_t field = 0; field < changes.size(); ++field) {
        if (changes[field]) records_->set(*current_, field, *changes[field]);
    }
}

void MemoryRecordSet::append(const Changes& changes) {
    MemoryTable::Record record;
    for (const auto& change : changes) record.push_back(change.value_or(t_genproc::Null{}));
    records_->append(std::move(record));
}

void MemoryRecordSet::toFirst() {
    if (orderField_) return standAt(records_->orderedBy(*orderField_).begin());
    toEnd();
    if (records_->size() > 0) current_ = 0;
}

void MemoryRecordSet::toNext() {
    if (orderField_) return standAt(records_->place(*orderField_, *current_) + 1);
    if (++*current_ == records_->size()) toEnd();
}

void MemoryRecordSet::orderBy(std::size_t field) {
    orderField_ = field;
    toFirst();
}

bool MemoryRecordSet::find(SeekComparison comparison, const Variant& wanted) {
    standAt(records_->lowerBound(*orderField_, wanted));
    const bool isFound = !atEnd() && (comparison == SeekComparison::GreaterOrEqual ||
                                      !MemoryTable::isLess(wanted, records_->value(*current_, *orderField_)));
    if (!isFound) toEnd();
    return isFound;
}

void MemoryRecordSet::standAt(MemoryTable::Order::const_iterator place) {
    toEnd();
    if (place != records_->orderedBy(*orderField_).end()) current_ = *place;
}

}  // namespace t_gencvf
