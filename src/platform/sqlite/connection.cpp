#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "runtime/errors.h"

namespace t_genproc::sqlite {
namespace {

struct Failure {
    int code;
    ErrorNumber number;
};
constexpr std::array kFailures{
    Failure{SQLITE_BUSY, ErrorNumber::DatabaseLocked},
    Failure{SQLITE_LOCKED, ErrorNumber::DatabaseLocked},
    Failure{SQLITE_NOMEM, ErrorNumber::OutOfMemory},
    Failure{SQLITE_READONLY, ErrorNumber::DatabaseReadOnly},
    Failure{SQLITE_CORRUPT, ErrorNumber::UnrecognizedDatabase},
    Failure{SQLITE_NOTADB, ErrorNumber::UnrecognizedDatabase},
    Failure{SQLITE_FULL, ErrorNumber::DiskFull},
    Failure{SQLITE_CANTOPEN, ErrorNumber::NotAValidPath},
    Failure{SQLITE_CONSTRAINT_UNIQUE, ErrorNumber::DuplicateValue},
    Failure{SQLITE_CONSTRAINT_PRIMARYKEY, ErrorNumber::DuplicateValue},
    Failure{SQLITE_CONSTRAINT_ROWID, ErrorNumber::DuplicateValue},
    Failure{SQLITE_CONSTRAINT, ErrorNumber::InvalidProcedureCall},
    Failure{SQLITE_MISMATCH, ErrorNumber::InvalidProcedureCall},
    Failure{SQLITE_MISUSE, ErrorNumber::InvalidProcedureCall},
    Failure{SQLITE_ERROR, ErrorNumber::InvalidProcedureCall},
};

/// The row of the code itself, or else of the group that its lowest byte names.
void raiseOnFailure(int code) {
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    constexpr int kGroup = 0xFF;
    for (const int sought : {code, code & kGroup}) {
        const auto* const found = std::ranges::find(kFailures, sought, &Failure::code);
        if (found != kFailures.end()) throw RuntimeError(found->number);
    }
    throw RuntimeError(ErrorNumber::DiskOrNetwork);
}

/// A write of another program is over in much less; a program that takes longer holds the database, and the
/// user has waited enough.
constexpr int kPatience = 1000;  // milliseconds

/// Reads which tables there are, and with them whether the file is a database.
int readSchema(sqlite3* handle) {
    return ::sqlite3_table_column_metadata(handle, "main", "sqlite_schema", nullptr, nullptr, nullptr,
                                           nullptr, nullptr, nullptr);
}

/// What each page of an enciphered file ends in, in bytes: a number used once, and the seal, without which no
/// wrong password would be noticed.
constexpr int kSeal = 64;

}  // namespace

void Connection::Close::operator()(sqlite3* handle) const { ::sqlite3_close(handle); }

Connection::Connection(const std::string& path, Opening opening, const std::string& password) {
    const int create = opening == Opening::New ? SQLITE_OPEN_CREATE : 0;
    sqlite3* handle = nullptr;
    const int code = ::sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | create, nullptr);
    handle_.reset(handle);  // there is one even where the opening failed
    raiseOnFailure(code);
    ::sqlite3_busy_timeout(handle, kPatience);
    ::sqlite3_extended_result_codes(handle, 1);
    if (!password.empty()) encipher(password, opening);
    // The file is not looked at, nor its header written, before it is needed.
    const int used = opening == Opening::New ? runAll("BEGIN IMMEDIATE; COMMIT") : readSchema(handle);
    if (used == SQLITE_NOTADB && !password.empty()) throw RuntimeError(ErrorNumber::NotAValidPassword);
    raiseOnFailure(used);
}

void Connection::encipher(const std::string& password, Opening opening) {
    int reserved = -1;  // asks
    raiseOnFailure(::sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_RESERVE_BYTES, &reserved));
    if (opening == Opening::Existing && reserved != kSeal) {
        throw RuntimeError(ErrorNumber::NotAValidPassword);
    }
    const std::string key = "raw:" + password;
    raiseOnFailure(::sqlite3_key(handle_.get(), key.data(), static_cast<int>(key.size())));
}

int Connection::runAll(const std::string& statements) {
    return ::sqlite3_exec(handle_.get(), statements.c_str(), nullptr, nullptr, nullptr);
}

void Connection::execute(const std::string& statements) { raiseOnFailure(runAll(statements)); }

void Connection::executeTogether(const std::string& statements) {
    const int code = runAll("SAVEPOINT together; " + statements + "; RELEASE together");
    if (code != SQLITE_OK) runAll("ROLLBACK TO together; RELEASE together");
    raiseOnFailure(code);
}

void Connection::beginReading() {
    execute("BEGIN");
    // Any read takes the lock.
    const int code = runAll("PRAGMA user_version; PRAGMA query_only = TRUE");
    if (code != SQLITE_OK) runAll("ROLLBACK");
    raiseOnFailure(code);
    isReading_ = true;
}

void Statement::Finalize::operator()(sqlite3_stmt* handle) const { ::sqlite3_finalize(handle); }

void Statement::run(std::span<const Cell> values, const std::function<void(Row)>& eachRow) {
    struct End {
        Statement& statement;
        ~End() { statement.end(); }
    } end{*this};
    start(values);
    while (const std::optional<Row> row = next()) {
        if (eachRow) eachRow(*row);
    }
}

void Statement::prepare() {
    sqlite3_stmt* handle = nullptr;
    raiseOnFailure(::sqlite3_prepare_v3(connection_->handle_.get(), sql_.c_str(), -1,
                                        SQLITE_PREPARE_PERSISTENT, &handle, nullptr));
    handle_.reset(handle);
    row_.resize(static_cast<std::size_t>(::sqlite3_column_count(handle)));
}

void Statement::start(std::span<const Cell> values) {
    if (!handle_) prepare();
    end();
    int parameter = 0;
    for (const Cell& value : values) bind(++parameter, value);
}

std::optional<Statement::Row> Statement::next() {
    const int code = ::sqlite3_step(handle_.get());
    if (code != SQLITE_ROW) {
        end();
        raiseOnFailure(code);
        return std::nullopt;
    }
    for (std::size_t i = 0; i < row_.size(); ++i) row_[i] = cell(static_cast<int>(i));
    return row_;
}

void Statement::end() noexcept { ::sqlite3_reset(handle_.get()); }

void Statement::bind(int parameter, const Cell& value) {
    sqlite3_stmt* const handle = handle_.get();
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        code = ::sqlite3_bind_int64(handle, parameter, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
        code = ::sqlite3_bind_double(handle, parameter, *number);
    } else if (const auto* text = std::get_if<std::string_view>(&value)) {
        code = ::sqlite3_bind_text64(handle, parameter, text->data(), text->size(), SQLITE_TRANSIENT,
                                     SQLITE_UTF8);
    } else {
        code = ::sqlite3_bind_null(handle, parameter);
    }
    raiseOnFailure(code);
}

Cell Statement::cell(int column) const {
    sqlite3_stmt* const handle = handle_.get();
    const int type = ::sqlite3_column_type(handle, column);
    switch (type) {
        case SQLITE_NULL: return Null{};
        case SQLITE_INTEGER: return ::sqlite3_column_int64(handle, column);
        case SQLITE_FLOAT: return ::sqlite3_column_double(handle, column);
        default: break;
    }
    const void* const bytes =
        type == SQLITE_TEXT ? ::sqlite3_column_text(handle, column) : ::sqlite3_column_blob(handle, column);
    return std::string_view(static_cast<const char*>(bytes),
                            static_cast<std::size_t>(::sqlite3_column_bytes(handle, column)));
}

std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char character : name) text.append(character == '"' ? 2 : 1, character);
    return text += '"';
}

}  // namespace t_genproc::sqlite
