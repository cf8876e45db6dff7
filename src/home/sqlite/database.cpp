#include "home/sqlite/database.h"

#include <sqlite3.h>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

// The pump's thread must not stand still for a program that has the file open.
constexpr int kBusyMilliseconds = 50;

ErrorNumber number_of(int result) {
    switch (result & 0xFF) {  // the primary result code
        case SQLITE_FULL:
            return ErrorNumber::DiskFull;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            return ErrorNumber::PermissionDenied;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

RunTimeError failure(int result, sqlite3* database) {
    const char* file = database == nullptr ? nullptr : sqlite3_db_filename(database, nullptr);
    const std::string reason =
        database == nullptr ? sqlite3_errstr(result) : sqlite3_errmsg(database);
    return {number_of(result), automation::utf8_to_code_page(
                                   std::string(file == nullptr ? "" : file) + ": " + reason)};
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

void Statement::check(int result) const {
    if (result != SQLITE_OK) {
        throw failure(result, sqlite3_db_handle(statement_.get()));
    }
}

Statement& Statement::bind(int parameter, std::string_view text) {
    check(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(),
                              SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bind(int parameter, std::int64_t number) {
    check(sqlite3_bind_int64(statement_.get(), parameter, number));
    return *this;
}

Statement& Statement::bind(int parameter, std::optional<std::int64_t> number) {
    if (number) {
        return bind(parameter, *number);
    }
    check(sqlite3_bind_null(statement_.get(), parameter));
    return *this;
}

bool Statement::step() {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) {
        return true;
    }
    if (result == SQLITE_DONE) {
        sqlite3_reset(statement_.get());
        return false;
    }
    const RunTimeError error = failure(result, sqlite3_db_handle(statement_.get()));
    sqlite3_reset(statement_.get());
    throw error;
}

int Statement::columns() const noexcept {
    return sqlite3_column_count(statement_.get());
}

std::string Statement::text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes == nullptr ? std::string() : std::string(bytes, size);
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::optional<std::int64_t> Statement::optional_number(int column) const {
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_NULL) {
        return std::nullopt;
    }
    return number(column);
}

void Database::Close::operator()(sqlite3* database) const noexcept {
    sqlite3_close_v2(database);
}

Database::Database(const std::filesystem::path& file) {
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) {
        throw RunTimeError(number_of(result), "Cannot open " +
                                                  automation::utf8_to_code_page(file.string()) +
                                                  ": " + sqlite3_errstr(result));
    }
    sqlite3_busy_timeout(opened, kBusyMilliseconds);
    execute("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL");
}

void Database::execute(const std::string& sql) {
    const int result = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        throw failure(result, database_.get());
    }
}

Statement Database::prepare(std::string_view sql) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(database_.get(), sql.data(), static_cast<int>(sql.size()),
                                          &prepared, nullptr);
    if (result != SQLITE_OK) {
        throw failure(result, database_.get());
    }
    return Statement(prepared);
}

std::int64_t Database::last_row() const noexcept {
    return sqlite3_last_insert_rowid(database_.get());
}

}  // namespace home
