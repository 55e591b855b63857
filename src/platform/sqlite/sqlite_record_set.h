/// A record set over a table of a database file. It keeps a copy of the current record rather than a reading
/// statement, so that standing on a record never keeps another program from writing. Where the connection
/// keeps it from that anyway, the statement goes on with each move.
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
    Variant readField(std::size_t field) override { return current_->values[field]; }
    void change(const Changes& changes) override;
    void append(const Changes& changes) override;
    void toFirst() override;
    void toNext() override;
    void toEnd() override {
        current_.reset();
        running_ = nullptr;
    }
    void orderBy(std::size_t field) override;
    bool find(t_gencvf::SeekComparison comparison, const Variant& key) override;

    Statement records(const std::string& condition, const std::string& order) const;
    Statement& writing(const std::string& sql);
    bool goTo(Statement& query, std::span<const Cell> parameters = {});
    bool goOn(Statement& query);

    struct Record {
        std::int64_t number;
        Variant key;  // what it is ordered by, as the file holds it
        std::vector<Variant> values;
    };
    Record recordOf(Statement::Row row) const;

    std::shared_ptr<Connection> connection_;
    // As SQL has them: the table, the number of its records, that and all fields.
    std::string table_, number_, record_;
    Statement first_;
    std::vector<Statement> next_;   // the first that gives a record counts
    std::vector<Statement> find_;   // for each SeekComparison
    Statement* running_ = nullptr;  // gives the records after the current one, the nearest ones at least
    std::map<std::string, Statement> writing_;

    std::optional<std::size_t> orderField_;
    std::optional<Record> current_;
};

}  // namespace t_genproc::sqlite
