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

}  // namespace

void Connection::Close::operator()(sqlite3* handle) const { ::sqlite3_close(handle); }

Connection::Connection(const std::string& path, Opening opening) {
    const int create = opening == Opening::New ? SQLITE_OPEN_CREATE : 0;
    sqlite3* handle = nullptr;
    const int code = ::sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | create, nullptr);
    handle_.reset(handle);  // there is one even where the opening failed
    raiseOnFailure(code);
    ::sqlite3_busy_timeout(handle, kPatience);
    ::sqlite3_extended_result_codes(handle, 1);
    // The file is not looked at, nor its header written, before it is needed.
    execute(opening == Opening::New ? "BEGIN IMMEDIATE; COMMIT" : "SELECT count(*) FROM sqlite_schema");
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

void Statement::Finalize::operator()(sqlite3_stmt* handle) const { ::sqlite3_finalize(handle); }

Statement::Statement(std::shared_ptr<Connection> connection, const std::string& sql)
    : connection_(std::move(connection)) {
    sqlite3_stmt* handle = nullptr;
    raiseOnFailure(::sqlite3_prepare_v3(connection_->handle_.get(), sql.c_str(), -1,
                                        SQLITE_PREPARE_PERSISTENT, &handle, nullptr));
    handle_.reset(handle);
    row_.resize(static_cast<std::size_t>(::sqlite3_column_count(handle)));
}

void Statement::run(std::span<const Cell> values, const std::function<void(Row)>& eachRow) {
    struct Reset {
        sqlite3_stmt* handle;
        ~Reset() {
            ::sqlite3_reset(handle);
            ::sqlite3_clear_bindings(handle);  // the texts are the caller's
        }
    } reset{handle_.get()};
    int parameter = 0;
    for (const Cell& value : values) bind(++parameter, value);
    int code = SQLITE_OK;
    while ((code = ::sqlite3_step(handle_.get())) == SQLITE_ROW) {
        for (std::size_t i = 0; i < row_.size(); ++i) row_[i] = cell(static_cast<int>(i));
        if (eachRow) eachRow(row_);
    }
    raiseOnFailure(code);
}

/// The caller keeps the texts until the statement has run.
void Statement::bind(int parameter, const Cell& value) {
    sqlite3_stmt* const handle = handle_.get();
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        code = ::sqlite3_bind_int64(handle, parameter, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
        code = ::sqlite3_bind_double(handle, parameter, *number);
    } else if (const auto* text = std::get_if<std::string_view>(&value)) {
        code =
            ::sqlite3_bind_text64(handle, parameter, text->data(), text->size(), SQLITE_STATIC, SQLITE_UTF8);
    } else {
        code = ::sqlite3_bind_null(handle, parameter);
    }
    raiseOnFailure(code);
}

Cell Statement::cell(int column) const {
    sqlite3_stmt* const handle = handle_.get();
    switch (::sqlite3_column_type(handle, column)) {
        case SQLITE_NULL: return Null{};
        case SQLITE_INTEGER: return ::sqlite3_column_int64(handle, column);
        case SQLITE_FLOAT: return ::sqlite3_column_double(handle, column);
        default: break;
    }
    const bool isText = ::sqlite3_column_type(handle, column) == SQLITE_TEXT;
    const void* const bytes =
        isText ? ::sqlite3_column_text(handle, column) : ::sqlite3_column_blob(handle, column);
    return std::string_view(static_cast<const char*>(bytes),
                            static_cast<std::size_t>(::sqlite3_column_bytes(handle, column)));
}

std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char character : name) text.append(character == '"' ? 2 : 1, character);
    return text += '"';
}

}  // namespace t_genproc::sqlite
