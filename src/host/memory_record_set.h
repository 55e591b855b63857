/// Record sets that live in memory, for hosts without a database and for tests.
///
///     auto transformation = MemoryRecordSet::ofRecord({{"TransType", 1}, {"MP_DX", -127.8}});
#pragma once

#include "host/table_record_set.h"

namespace t_gencvf {

class MemoryRecordSet : public TableRecordSet {
   public:
    /// An empty table.
    explicit MemoryRecordSet(TableDefinition table);

    struct Field {
        std::string name;
        Variant value;
    };
    /// A table of one record, whose fields take any value; the record set stands on it.
    static MemoryRecordSet ofRecord(const std::vector<Field>& record);

    bool atEnd() override { return position_ == order_.size(); }

   private:
    using Record = std::vector<Variant>;

    Variant readField(std::size_t field) override { return records_[order_[position_]][field]; }
    void change(const Changes& changes) override;
    void append(const Changes& changes) override;
    void toFirst() override { position_ = 0; }
    void toNext() override { ++position_; }
    void toEnd() override { position_ = order_.size(); }
    void orderBy(std::size_t field) override;
    bool find(SeekComparison comparison, const Variant& wanted) override;

    const Variant& key(std::size_t record) const { return records_[record][*orderField_]; }
    bool isAhead(std::size_t a, std::size_t b) const;
    std::size_t place(std::size_t record);

    std::vector<Record> records_;
    std::optional<std::size_t> orderField_;
    std::vector<std::size_t> order_;  // positions in records_
    std::size_t position_ = 0;        // in order_
};

}  // namespace t_gencvf
