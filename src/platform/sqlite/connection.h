/// A connection to a database file, and statements that run on it: the only file that knows the engine's own
/// interface is connection.cpp.
///
///     Statement byName(connection, "SELECT rowid FROM Datums WHERE Name = ?1");
///     byName.run({"AGD66"}, [&](Statement::Row row) { found.push_back(std::get<std::int64_t>(row[0])); });
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "runtime/variant.h"

struct sqlite3;
struct sqlite3_stmt;

namespace t_genproc::sqlite {

/// What stands in one field of one record.
using Cell = std::variant<Null, std::int64_t, double, std::string_view>;

enum class Opening { Existing, New };

/// Failures of the engine become run-time errors: 5, 7, 61, 3022, 3027, 3044, 3260, 3343, and 3043 for any
/// other.
class Connection {
   public:
    /// `path` in UTF-8, as the system has it. A file that holds no database fails here, and one that the
    /// password does not open (error 3031).
    Connection(const std::string& path, Opening opening, const std::string& password = {});

    /// Runs statements separated by ";".
    void execute(const std::string& statements);
    /// The same, all of them or none.
    void executeTogether(const std::string& statements);

    /// One transaction, from now until the connection ends, that reads only.
    void beginReading();
    bool isReading() const { return isReading_; }

   private:
    friend class Statement;
    int runAll(const std::string& statements);
    void encipher(const std::string& password, Opening opening);

    struct Close {
        void operator()(sqlite3* handle) const;
    };
    std::unique_ptr<sqlite3, Close> handle_;
    bool isReading_ = false;
};

/// Prepared when it first runs, run many times. It holds the file only while it runs.
class Statement {
   public:
    Statement(std::shared_ptr<Connection> connection, std::string sql)
        : connection_(std::move(connection)), sql_(std::move(sql)) {}

    using Row = std::span<const Cell>;

    /// With these values for ?1, ?2, ... The texts of a row last until `eachRow` returns.
    void run(std::span<const Cell> values, const std::function<void(Row)>& eachRow = {});
    void run(std::initializer_list<Cell> values, const std::function<void(Row)>& eachRow = {}) {
        run(std::span(values.begin(), values.size()), eachRow);
    }

    /// The same row by row: it runs until `next` gives none or fails, or it is ended. The texts of a row last
    /// until then, or until the next row.
    void start(std::span<const Cell> values);
    std::optional<Row> next();
    void end() noexcept;

   private:
    void prepare();
    void bind(int parameter, const Cell& value);
    Cell cell(int column) const;

    struct Finalize {
        void operator()(sqlite3_stmt* handle) const;
    };
    std::shared_ptr<Connection> connection_;
    std::string sql_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    std::vector<Cell> row_;
};

/// A name as SQL has it, whatever it contains.
std::string quoted(std::string_view name);

}  // namespace t_genproc::sqlite
