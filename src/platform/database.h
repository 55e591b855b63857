/// Databases of tables, each in a file of its own. The adapter stands in platform/sqlite; it is a library of
/// its own, which a host without databases leaves out.
///
///     auto database = engine->openDatabase("C:\\Programs\\Tavoru\\Transformations.db");
///     auto datums = database->openTable("Datums");
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/record_set.h"

namespace t_genproc {

/// Open as long as it, or a record set of it, exists. Any member raises 3043 where the file cannot be read or
/// written, 61 where the disk is full, 3027 where the file takes no changes, 3260 where another program holds
/// it, 3343 where it holds no database, 3022 for a second value of a field that has each but once, and 5 for
/// what the engine finds wrong with a definition, a value or the order of calls.
class Database {
   public:
    virtual ~Database() = default;

    /// In the order in which they were made, spelled as they were.
    virtual std::vector<std::string> tableNames() = 0;

    /// A cursor over the table; letter case does not count. Error 3078: no such table.
    virtual std::unique_ptr<t_gencvf::RecordSet> openTable(std::string_view name) = 0;

    /// Error 3010: there is such a table.
    virtual void createTable(const t_gencvf::TableDefinition& table) = 0;

    /// What is written in between is kept together, or, where the database is closed before, not at all.
    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;

    /// What is read from now on is of one moment, and comes quickly. Until the database is closed, this
    /// program writes nothing (error 3027; 5 for commitTransaction), and as a rule no other one does.
    virtual void beginReading() = 0;
};

class DatabaseEngine {
   public:
    virtual ~DatabaseEngine() = default;

    /// `fileName` is a backslash path. A file with a password is enciphered as a whole. The password is 32
    /// bytes that nobody can guess: it is the key itself, so that opening takes no time. Error 3024: no such
    /// file; 3343: it holds no database; 3031: none that this password opens; 3044: no such folder, or a name
    /// that none can have; 5: a password of another length.
    virtual std::unique_ptr<Database> openDatabase(const std::string& fileName,
                                                   const std::string& password = {}) = 0;
    /// Error 3204: there is such a file.
    virtual std::unique_ptr<Database> createDatabase(const std::string& fileName,
                                                     const std::string& password = {}) = 0;
};

/// For engines. Error 5: a password that is neither empty nor of 32 bytes.
void requirePasswordSize(const std::string& password);

}  // namespace t_genproc
