#include "platform/sqlite/schema.h"

#include <algorithm>
#include <utility>

#include "platform/sqlite/column_types.h"

namespace t_genproc::sqlite {
namespace {

using t_gencvf::FieldDefinition;
using t_gencvf::FieldType;
using t_gencvf::IndexDefinition;
using t_gencvf::TableDefinition;

std::string textOf(const Cell& cell) { return toText(valueOf(FieldType::Text, cell)); }

/// The names of indexes are shared by the whole file, so the table's name stands ahead of them.
std::string indexPrefix(const std::string& table) { return table + '.'; }

/// A pragma that tells of a table or an index; its function would take ten times as long.
std::string pragma(const std::string& what, const std::string& name) {
    return "PRAGMA main." + what + '(' + quoted(name) + ')';
}

/// Whether it is a table whose records have a number.
bool isNumbered(const std::shared_ptr<Connection>& file, const std::string& name) {
    bool isNumbered = false;
    Statement(file, pragma("table_list", name)).run({}, [&](Statement::Row row) {
        enum { Schema, Name, Type, Columns, WithoutNumber };
        isNumbered = textOf(row[Type]) == "table" && row[WithoutNumber] == Cell(std::int64_t{0});
    });
    return isNumbered;
}

/// The fields of an index; Null for one that is none of the table's.
std::vector<Variant> indexFields(const std::shared_ptr<Connection>& file, const std::string& index) {
    std::vector<Variant> fields;
    Statement(file, pragma("index_info", index)).run({}, [&](Statement::Row row) {
        enum { Position, FieldPosition, Name };
        fields.push_back(valueOf(FieldType::Text, row[Name]));
    });
    return fields;
}

}  // namespace

std::vector<std::string> tableNames(const std::shared_ptr<Connection>& file) {
    std::vector<std::string> names;
    Statement(file,
              "SELECT name FROM sqlite_schema"
              " WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid")
        .run({}, [&](Statement::Row row) {
            std::string name = textOf(row[0]);
            if (isNumbered(file, name)) names.push_back(std::move(name));
        });
    return names;
}

TableDefinition definition(const std::shared_ptr<Connection>& file, const std::string& table) {
    TableDefinition definition{table, {}};
    Statement(file, pragma("table_info", table)).run({}, [&](Statement::Row row) {
        enum { Position, Name, Type };
        definition.fields.push_back({textOf(row[Name]), fieldType(textOf(row[Type]))});
    });
    Statement(file, pragma("index_list", table)).run({}, [&](Statement::Row row) {
        enum { Position, Name };
        std::string name = textOf(row[Name]);
        const std::vector<Variant> fields = indexFields(file, name);
        if (fields.size() != 1 || isNull(fields.front())) return;
        if (name.starts_with(indexPrefix(table))) name.erase(0, indexPrefix(table).size());
        definition.indexes.push_back({name, toText(fields.front())});
    });
    std::ranges::reverse(definition.indexes);  // the newest came first
    return definition;
}

std::string creation(const TableDefinition& table) {
    std::string fields;
    for (const FieldDefinition& field : table.fields) {
        fields +=
            (fields.empty() ? "" : ", ") + quoted(field.name) + ' ' + std::string(declaredType(field.type));
    }
    std::string statements = "CREATE TABLE " + quoted(table.name) + " (" + fields + ')';
    for (const IndexDefinition& index : table.indexes) {
        statements += "; CREATE INDEX " + quoted(indexPrefix(table.name) + index.name) + " ON " +
                      quoted(table.name) + " (" + quoted(index.field) + ')';
    }
    return statements;
}

}  // namespace t_genproc::sqlite
