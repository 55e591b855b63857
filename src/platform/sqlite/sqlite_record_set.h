/// A record set over a table of a database file. It keeps a copy of the current record rather than a reading
/// statement, so that standing on a record never keeps another program from writing.
#pragma once

#include <map>

#include "host/table_record_set.h"
#include "platform/sqlite/connection.h"

namespace t_genproc::sqlite {

class SqliteRecordSet final : public t_gencvf::TableRecordSet {
   public:
    SqliteRecordSet(std::shared_ptr<Connection> connection, t_gencvf::TableDefinition definition);

    bool atEnd() override { return !current_; }

   private:
    Variant readField(std::size_t field) override { return values_[field]; }
    void change(const Changes& changes) override;
    void append(const Changes& changes) override;
    void toFirst() override;
    void toNext() override;
    void toEnd() override { current_.reset(); }
    void orderBy(std::size_t field) override;
    bool find(t_gencvf::SeekComparison comparison, const Variant& key) override;

    Statement firstRecord(const std::string& condition, const std::string& order) const;
    Statement& writing(const std::string& sql);
    bool goTo(Statement& query, std::span<const Cell> parameters = {});

    std::shared_ptr<Connection> connection_;
    std::string table_, number_,
        record_;  // as SQL has them: the table, its record's number, that and all fields
    Statement first_;
    std::vector<Statement> next_;  // the first that gives a record counts
    std::vector<Statement> find_;  // for each SeekComparison
    std::map<std::string, Statement> writing_;

    std::optional<std::size_t> orderField_;
    std::optional<std::int64_t> current_;
    Variant key_;                  // what the current record is ordered by, as the file holds it
    std::vector<Variant> values_;  // of the current record
};

}  // namespace t_genproc::sqlite
