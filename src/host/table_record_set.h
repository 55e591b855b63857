/// What all record sets have in common: the table's fields, and the edit that is under way.
#pragma once

#include <optional>
#include <utility>

#include "host/record_set.h"

namespace t_gencvf {

class TableRecordSet : public RecordSet {
   public:
    explicit TableRecordSet(TableDefinition table) : table_(std::move(table)) {}

    Variant get(std::string_view field) final;
    void let(std::string_view field, const Variant& value) final;
    void edit() final;
    void addNew() final;
    void update() final;
    void cancelUpdate() final;
    void moveFirst() final;
    void moveNext() final;
    void setIndex(std::string_view name) final;
    bool seek(SeekComparison comparison, const Variant& key) final;

   protected:
    /// One for each field, counted from 0; none where the edit has not set it.
    using Changes = std::vector<std::optional<Variant>>;

    /// Called where there is a current record, except append, toFirst and toEnd.
    virtual Variant readField(std::size_t field) = 0;
    virtual void change(const Changes& changes) = 0;
    virtual void append(const Changes& changes) = 0;
    virtual void toFirst() = 0;
    virtual void toNext() = 0;
    virtual void toEnd() = 0;
    /// Orders by a field and moves to the first record; until the first call, records stand as they were
    /// added.
    virtual void orderBy(std::size_t field) = 0;
    /// Where the records are ordered by a field. `key` is a value of that field's type, not Null.
    virtual bool find(SeekComparison comparison, const Variant& key) = 0;

    const TableDefinition& table() const { return table_; }

   private:
    enum class Edit { None, Current, New };

    std::size_t fieldAt(std::string_view name) const;
    void requireRecord();
    void requireEdit() const;
    void start(Edit edit);

    TableDefinition table_;
    std::optional<std::size_t> indexedField_;
    Edit edit_ = Edit::None;
    Changes changes_;
};

/// `value` as a field of that type holds it. Empty and NaN become Null. Errors 6 and 13.
Variant fieldValue(FieldType type, const Variant& value);

}  // namespace t_gencvf
