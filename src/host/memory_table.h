/// The records of a table in memory, which any number of record sets share.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "host/record_set.h"

namespace t_gencvf {

class MemoryTable {
   public:
    explicit MemoryTable(TableDefinition definition) : definition_(std::move(definition)) {}

    const TableDefinition& definition() const { return definition_; }

    /// Records are numbered from 0 on, as they were added; a record has a value for each field.
    using Record = std::vector<Variant>;
    std::size_t size() const { return records_.size(); }
    const Variant& value(std::size_t record, std::size_t field) const { return records_[record][field]; }
    void set(std::size_t record, std::size_t field, Variant value);
    void append(Record record);

    /// The records' numbers, ordered by a field; of records that are equal there, the older one is ahead.
    using Order = std::vector<std::size_t>;
    const Order& orderedBy(std::size_t field);
    /// Where a record stands there, and where the first one does whose value is not less.
    Order::const_iterator place(std::size_t field, std::size_t record);
    Order::const_iterator lowerBound(std::size_t field, const Variant& value);
    /// Null, then numbers, then texts byte by byte.
    static bool isLess(const Variant& a, const Variant& b);

   private:
    bool isAhead(std::size_t field, std::size_t a, std::size_t b) const;

    TableDefinition definition_;
    std::vector<Record> records_;
    std::map<std::size_t, Order> orders_;  // by the field; made when they are first asked for
};

}  // namespace t_gencvf
