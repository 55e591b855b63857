#include "platform/sqlite/sqlite_record_set.h"

#include <algorithm>

#include "platform/sqlite/column_types.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc::sqlite {
namespace {

using t_gencvf::FieldDefinition;
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
      first_(firstRecord("TRUE", number_)) {
    next_.push_back(firstRecord(number_ + " > ?", number_));
    toFirst();
}

Statement SqliteRecordSet::firstRecord(const std::string& condition, const std::string& order) const {
    return {connection_, "SELECT " + record_ + " FROM " + table_ + " WHERE " + condition + " ORDER BY " +
                             order + ", " + number_ + " LIMIT 1"};
}

/// Stands on the record that the statement gives. False: it gives none, and nothing has moved.
bool SqliteRecordSet::goTo(Statement& query, std::span<const Cell> parameters) {
    std::optional<std::int64_t> number;
    std::vector<Variant> values;
    query.run(parameters, [&](Statement::Row row) {
        number = std::get<std::int64_t>(row[0]);
        for (const FieldDefinition& field : table().fields) {
            values.push_back(valueOf(field.type, row[values.size() + 1]));
        }
    });
    if (!number) return false;
    current_ = number;
    values_ = std::move(values);
    return true;
}

void SqliteRecordSet::toFirst() {
    if (!goTo(first_)) toEnd();
}

void SqliteRecordSet::toNext() {
    const Cell current = *current_;
    for (Statement& query : next_) {
        if (goTo(query, {&current, 1})) return;
    }
    toEnd();
}

void SqliteRecordSet::orderBy(std::size_t field) {
    const std::string key = quoted(table().fields[field].name) + " COLLATE BINARY";
    const std::string current = "(SELECT " + key + " FROM " + table_ + " WHERE " + number_ + " = ?1)";
    first_ = firstRecord("TRUE", key);
    // Three conditions, each of which an index answers by itself.
    next_.clear();
    next_.push_back(firstRecord(key + " IS " + current + " AND " + number_ + " > ?1", key));
    next_.push_back(firstRecord(key + " > " + current, key));
    next_.push_back(firstRecord(current + " IS NULL AND " + key + " IS NOT NULL", key));
    find_.clear();
    for (const char* comparison : {" = ?", " >= ?"}) find_.push_back(firstRecord(key + comparison, key));
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
    values.emplace_back(*current_);
    Statement& update =
        writing("UPDATE " + table_ + " SET " + settings + " WHERE " + number_ + " = ? RETURNING " + record_);
    // Another program may have removed the record.
    if (!goTo(update, values)) throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void SqliteRecordSet::append(const Changes& changes) {
    std::string places;
    std::vector<Cell> values;
    for (const auto& change : changes) {
        places += places.empty() ? "?" : ", ?";
        values.push_back(change ? cellOf(*change) : Null{});
    }
    writing("INSERT INTO " + table_ + " (" + fieldNames(table()) + ") VALUES (" + places + ")").run(values);
}

}  // namespace t_genproc::sqlite
