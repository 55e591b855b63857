#include "platform/sqlite/sqlite_record_set.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/sqlite/column_types.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc::sqlite {
namespace {

using t_gencvf::FieldDefinition;
using t_gencvf::FieldType;
using t_gencvf::SeekComparison;
using t_gencvf::TableDefinition;

/// A record's number has three names, any of which a field may bear.
std::string numberName(const TableDefinition& table) {
    for (const char* name : {"rowid", "oid", "_rowid_"}) {
        const auto hasName = [&](const FieldDefinition& field) {
            return text::equalIgnoringCase(field.name, name);
        };
        if (std::ranges::none_of(table.fields, hasName)) return name;
    }
    throw RuntimeError(ErrorNumber::NoSuchTable);
}

std::string fieldNames(const TableDefinition& table) {
    std::string names;
    for (const FieldDefinition& field : table.fields) names += ", " + quoted(field.name);
    return names.substr(2);
}

}  // namespace

SqliteRecordSet::SqliteRecordSet(std::shared_ptr<Connection> connection, TableDefinition definition)
    : TableRecordSet(std::move(definition)),
      connection_(std::move(connection)),
      table_(quoted(table().name)),
      number_(numberName(table())),
      record_(number_ + ", " + fieldNames(table())),
      first_(records("TRUE", number_)) {
    next_.push_back(records(number_ + " > ?", number_));
    toFirst();
}

/// Where each statement runs for one record, it says so, or it might sort all of them for that.
Statement SqliteRecordSet::records(const std::string& condition, const std::string& order) const {
    return {connection_, "SELECT " + record_ + " FROM " + table_ + " WHERE " + condition + " ORDER BY " +
                             order + ", " + number_ + (connection_->isReading() ? "" : " LIMIT 1")};
}

/// Stands on the first record that the statement gives. False: it gives none, and nothing has moved.
bool SqliteRecordSet::goTo(Statement& query, std::span<const Cell> parameters) {
    running_ = nullptr;
    query.start(parameters);
    return goOn(query);
}

bool SqliteRecordSet::goOn(Statement& query) {
    running_ = nullptr;
    const std::optional<Statement::Row> row = query.next();
    if (!row) return false;
    current_ = recordOf(*row);
    if (connection_->isReading()) {
        running_ = &query;
    } else {
        query.end();
    }
    return true;
}

SqliteRecordSet::Record SqliteRecordSet::recordOf(Statement::Row row) const {
    Record record{std::get<std::int64_t>(row[0]), {}, {}};
    if (orderField_) record.key = valueOf(FieldType::Any, row[*orderField_ + 1]);
    record.values.reserve(table().fields.size());
    for (const FieldDefinition& field : table().fields) {
        record.values.push_back(valueOf(field.type, row[record.values.size() + 1]));
    }
    return record;
}

void SqliteRecordSet::toFirst() {
    if (!goTo(first_)) toEnd();
}

void SqliteRecordSet::toNext() {
    if (running_ != nullptr && goOn(*running_)) return;
    const std::array<Cell, 2> current{current_->number, cellOf(current_->key)};
    for (Statement& query : next_) {
        if (goTo(query, std::span(current).first(orderField_ ? 2 : 1))) return;
    }
    toEnd();
}

void SqliteRecordSet::orderBy(std::size_t field) {
    const std::string key = quoted(table().fields[field].name) + " COLLATE BINARY";
    Statement first = records("TRUE", key);
    std::vector<Statement> next, find;
    // Three conditions, each of which an index answers by itself.
    for (const std::string& condition :
         {key + " IS ?2 AND " + number_ + " > ?1", key + " > ?2", "?2 IS NULL AND " + key + " IS NOT NULL"}) {
        next.push_back(records(condition, key));
    }
    for (const char* comparison : {" = ?", " >= ?"}) find.push_back(records(key + comparison, key));
    toEnd();
    first_ = std::move(first);
    next_ = std::move(next);
    find_ = std::move(find);
    orderField_ = field;
    toFirst();
}

bool SqliteRecordSet::find(SeekComparison comparison, const Variant& key) {
    const Cell cell = cellOf(key);
    const bool isFound = goTo(find_[static_cast<std::size_t>(comparison)], {&cell, 1});
    if (!isFound) toEnd();
    return isFound;
}

/// Prepared once, however often it is asked for.
Statement& SqliteRecordSet::writing(const std::string& sql) {
    return writing_.try_emplace(sql, connection_, sql).first->second;
}

void SqliteRecordSet::change(const Changes& changes) {
    std::string settings;
    std::vector<Cell> values;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!changes[i]) continue;
        settings += (settings.empty() ? "" : ", ") + quoted(table().fields[i].name) + " = ?";
        values.push_back(cellOf(*changes[i]));
    }
    if (values.empty()) return;
    values.emplace_back(current_->number);
    Statement& update =
        writing("UPDATE " + table_ + " SET " + settings + " WHERE " + number_ + " = ? RETURNING " + record_);
    std::optional<Record> changed;
    update.run(values, [&](Statement::Row row) { changed = recordOf(row); });
    if (!changed) throw RuntimeError(ErrorNumber::NoCurrentRecord);  // another program may have removed it
    current_ = std::move(changed);
}

void SqliteRecordSet::append(const Changes& changes) {
    std::string names, places;
    std::vector<Cell> values;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!changes[i]) continue;
        names += (names.empty() ? "" : ", ") + quoted(table().fields[i].name);
        places += places.empty() ? "?" : ", ?";
        values.push_back(cellOf(*changes[i]));
    }
    const std::string content = values.empty() ? "DEFAULT VALUES" : '(' + names + ") VALUES (" + places + ')';
    writing("INSERT INTO " + table_ + ' ' + content).run(values);
}

}  // namespace t_genproc::sqlite
