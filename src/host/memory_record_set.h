/// Record sets that live in memory, for hosts without a database and for tests.
///
///     auto transformation = MemoryRecordSet::ofRecord({{"TransType", 1}, {"MP_DX", -127.8}});
#pragma once

#include <memory>

#include "host/memory_table.h"
#include "host/table_record_set.h"

namespace t_gencvf {

class MemoryRecordSet : public TableRecordSet {
   public:
    /// Over a table of its own, which is empty.
    explicit MemoryRecordSet(TableDefinition table);
    /// Over one that others may change at any time.
    explicit MemoryRecordSet(std::shared_ptr<MemoryTable> table);

    struct Field {
        std::string name;
        Variant value;
    };
    /// A table of one record, whose fields take any value; the record set stands on it.
    static MemoryRecordSet ofRecord(const std::vector<Field>& record);

    bool atEnd() override { return !current_; }

   private:
    Variant readField(std::size_t field) override { return records_->value(*current_, field); }
    void change(const Changes& changes) override;
    void append(const Changes& changes) override;
    void toFirst() override;
    void toNext() override;
    void toEnd() override { current_.reset(); }
    void orderBy(std::size_t field) override;
    bool find(SeekComparison comparison, const Variant& wanted) override;

    void standAt(MemoryTable::Order::const_iterator place);

    std::shared_ptr<MemoryTable> records_;
    std::optional<std::size_t> orderField_;
    std::optional<std::size_t> current_;
};

}  // namespace t_gencvf
