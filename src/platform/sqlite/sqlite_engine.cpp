#include "platform/sqlite/sqlite_engine.h"

#include <algorithm>

#include "platform/sqlite/column_types.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_record_set.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace sqlite {
namespace {

using t_gencvf::FieldDefinition;
using t_gencvf::IndexDefinition;
using t_gencvf::TableDefinition;

constexpr const char* kTableNames =
    "SELECT name FROM sqlite_schema JOIN pragma_table_list USING (name, type)"
    " WHERE schema = 'main' AND type = 'table' AND NOT wr AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'"
    " ORDER BY sqlite_schema.rowid";
constexpr const char* kFields = "SELECT name, type FROM pragma_table_info(?) ORDER BY cid";
/// Of one field each. The newest has the lowest number.
constexpr const char* kIndexes =
    "SELECT list.name, max(field.name)"
    " FROM pragma_index_list(?) AS list, pragma_index_info(list.name) AS field"
    " GROUP BY list.seq HAVING count(*) = 1 AND max(field.name) IS NOT NULL ORDER BY list.seq DESC";

std::string textOf(const Cell& cell) { return std::string(std::get<std::string_view>(cell)); }

/// The names of indexes are shared by the whole file, so the table's name stands ahead of them.
std::string indexPrefix(const std::string& table) { return table + '.'; }

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

class SqliteDatabase final : public Database {
   public:
    explicit SqliteDatabase(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    std::vector<std::string> tableNames() override {
        std::vector<std::string> names;
        Statement(connection_, kTableNames).run({}, [&](Statement::Row row) {
            names.push_back(textOf(row[0]));
        });
        return names;
    }

    std::unique_ptr<t_gencvf::RecordSet> openTable(std::string_view name) override {
        const std::optional<std::string> table = tableNamed(name);
        if (!table) throw RuntimeError(ErrorNumber::NoSuchTable);
        return std::make_unique<SqliteRecordSet>(connection_, definition(*table));
    }

    void createTable(const TableDefinition& table) override {
        if (tableNamed(table.name)) throw RuntimeError(ErrorNumber::TableAlreadyExists);
        connection_->executeTogether(creation(table));
    }

    // The right to write is taken at once: where another program writes, this fails, and not a step behind
    // it.
    void beginTransaction() override { connection_->execute("BEGIN IMMEDIATE"); }
    void commitTransaction() override { connection_->execute("COMMIT"); }

   private:
    std::optional<std::string> tableNamed(std::string_view name) {
        std::vector<std::string> names = tableNames();
        const auto found = std::ranges::find_if(
            names, [&](const std::string& table) { return text::equalIgnoringCase(table, name); });
        if (found == names.end()) return std::nullopt;
        return std::move(*found);
    }

    TableDefinition definition(const std::string& name) {
        TableDefinition table{name, {}};
        Statement(connection_, kFields).run({name}, [&](Statement::Row row) {
            table.fields.push_back({textOf(row[0]), fieldType(textOf(row[1]))});
        });
        Statement(connection_, kIndexes).run({name}, [&](Statement::Row row) {
            std::string index = textOf(row[0]);
            if (index.starts_with(indexPrefix(name))) index.erase(0, indexPrefix(name).size());
            table.indexes.push_back({index, textOf(row[1])});
        });
        return table;
    }

    std::shared_ptr<Connection> connection_;
};

/// Of a file with one page. Shorter ones, SQLite takes for databases that are still empty.
constexpr std::uint64_t kLeastSize = 512;

class SqliteEngine final : public DatabaseEngine {
   public:
    explicit SqliteEngine(Files& files) : files_(files) {}

    std::unique_ptr<Database> openDatabase(const std::string& fileName) override {
        const Outcome<FileAttributes> found = files_.GetFileAttributesExA(fileName);
        if (found.error == SystemError::FileNotFound || found.value.folder) {
            throw RuntimeError(ErrorNumber::DatabaseFileNotFound);
        }
        if (!found) throw RuntimeError(ErrorNumber::NotAValidPath);
        if (found.value.size < kLeastSize) throw RuntimeError(ErrorNumber::UnrecognizedDatabase);
        return connect(fileName, Opening::Existing);
    }

    std::unique_ptr<Database> createDatabase(const std::string& fileName) override {
        const Outcome<FileAttributes> found = files_.GetFileAttributesExA(fileName);
        if (found) throw RuntimeError(ErrorNumber::DatabaseAlreadyExists);
        if (found.error != SystemError::FileNotFound) throw RuntimeError(ErrorNumber::NotAValidPath);
        return connect(fileName, Opening::New);
    }

   private:
    std::unique_ptr<Database> connect(const std::string& fileName, Opening opening) {
        const Outcome<std::string> path = files_.nativePath(fileName);
        if (!path) throw RuntimeError(ErrorNumber::NotAValidPath);
        return std::make_unique<SqliteDatabase>(std::make_shared<Connection>(path.value, opening));
    }

    Files& files_;
};

}  // namespace
}  // namespace sqlite

std::unique_ptr<DatabaseEngine> sqliteEngine(Files& files) {
    return std::make_unique<sqlite::SqliteEngine>(files);
}

}  // namespace t_genproc
