#include "platform/sqlite/sqlite_engine.h"

#include <algorithm>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/sqlite_record_set.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace sqlite {
namespace {

class SqliteDatabase final : public Database {
   public:
    explicit SqliteDatabase(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    std::vector<std::string> tableNames() override { return sqlite::tableNames(connection_); }

    std::unique_ptr<t_gencvf::RecordSet> openTable(std::string_view name) override {
        const std::optional<std::string> table = tableNamed(name);
        if (!table) throw RuntimeError(ErrorNumber::NoSuchTable);
        return std::make_unique<SqliteRecordSet>(connection_, definition(connection_, *table));
    }

    void createTable(const t_gencvf::TableDefinition& table) override {
        if (tableNamed(table.name)) throw RuntimeError(ErrorNumber::TableAlreadyExists);
        connection_->executeTogether(creation(table));
    }

    // The right to write is taken at once: where another program writes, this fails, and not a step behind
    // it.
    void beginTransaction() override { connection_->execute("BEGIN IMMEDIATE"); }
    void commitTransaction() override {
        if (connection_->isReading()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        connection_->execute("COMMIT");
    }
    void beginReading() override { connection_->beginReading(); }

   private:
    std::optional<std::string> tableNamed(std::string_view name) {
        std::vector<std::string> names = tableNames();
        const auto found = std::ranges::find_if(
            names, [&](const std::string& table) { return text::equalIgnoringCase(table, name); });
        if (found == names.end()) return std::nullopt;
        return std::move(*found);
    }

    std::shared_ptr<Connection> connection_;
};

/// Of a file with one page. Shorter ones, SQLite takes for databases that are still empty.
constexpr std::uint64_t kLeastSize = 512;

class SqliteEngine final : public DatabaseEngine {
   public:
    explicit SqliteEngine(Files& files) : files_(files) {}

    std::unique_ptr<Database> openDatabase(const std::string& fileName,
                                           const std::string& password) override {
        requirePasswordSize(password);
        const Outcome<FileAttributes> found = files_.GetFileAttributesExA(fileName);
        if (found.error == SystemError::FileNotFound || found.value.folder) {
            throw RuntimeError(ErrorNumber::DatabaseFileNotFound);
        }
        if (!found) throw RuntimeError(ErrorNumber::NotAValidPath);
        if (found.value.size < kLeastSize) throw RuntimeError(ErrorNumber::UnrecognizedDatabase);
        return connect(fileName, Opening::Existing, password);
    }

    std::unique_ptr<Database> createDatabase(const std::string& fileName,
                                             const std::string& password) override {
        requirePasswordSize(password);
        const Outcome<FileAttributes> found = files_.GetFileAttributesExA(fileName);
        if (found) throw RuntimeError(ErrorNumber::DatabaseAlreadyExists);
        if (found.error != SystemError::FileNotFound) throw RuntimeError(ErrorNumber::NotAValidPath);
        return connect(fileName, Opening::New, password);
    }

   private:
    std::unique_ptr<Database> connect(const std::string& fileName, Opening opening,
                                      const std::string& password) {
        const Outcome<std::string> path = files_.nativePath(fileName);
        if (!path) throw RuntimeError(ErrorNumber::NotAValidPath);
        return std::make_unique<SqliteDatabase>(std::make_shared<Connection>(path.value, opening, password));
    }

    Files& files_;
};

}  // namespace
}  // namespace sqlite

std::unique_ptr<DatabaseEngine> sqliteEngine(Files& files) {
    return std::make_unique<sqlite::SqliteEngine>(files);
}

}  // namespace t_genproc
