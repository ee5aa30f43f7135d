#include "store/sqlite.hpp"

#include <sqlite3.h>

#include <utility>

namespace filo::sqlite {
namespace {

[[noreturn]] void raise(sqlite3* db, int rc) {
    std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    throw SqlError(db ? sqlite3_extended_errcode(db) : rc, message);
}

// file:<path>?immutable=1, with the characters that a URI reserves escaped.
std::string immutable_uri(const std::filesystem::path& file) {
    std::string uri = "file:";
    for (char c : std::filesystem::absolute(file).string()) {
        if (c == '%' || c == '?' || c == '#') {
            static constexpr char kHex[] = "0123456789ABCDEF";
            const auto b = static_cast<unsigned char>(c);
            uri += '%';
            uri += kHex[b >> 4];
            uri += kHex[b & 0xF];
        } else {
            uri += c;
        }
    }
    return uri + "?immutable=1";
}

}  // namespace

bool SqlError::not_a_database() const {
    return (code_ & 0xFF) == SQLITE_NOTADB;
}

Connection::Connection(const std::filesystem::path& file, OpenMode mode) {
    int flags = SQLITE_OPEN_NOMUTEX;
    switch (mode) {
        case OpenMode::ReadWrite:
            flags |= SQLITE_OPEN_READWRITE;
            break;
        case OpenMode::ReadWriteCreate:
            flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
            break;
        case OpenMode::ReadOnly:
            flags |= SQLITE_OPEN_READONLY;
            break;
        case OpenMode::ReadOnlyImmutable:
            flags |= SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
            break;
    }
    const std::string name =
        mode == OpenMode::ReadOnlyImmutable ? immutable_uri(file) : file.string();
    int rc = sqlite3_open_v2(name.c_str(), &db_, flags, nullptr);
    if (rc != SQLITE_OK) {
        std::string message = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
        sqlite3_close(db_);
        db_ = nullptr;
        throw SqlError(rc, message);
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, 2000);
    // A file from elsewhere runs no code of its own: no triggers or views
    // that call our functions, no writes to the schema behind our back.
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

bool Connection::read_only() const {
    return db_ && sqlite3_db_readonly(db_, "main") == 1;
}

Connection::~Connection() {
    close();
}

Connection::Connection(Connection&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}

Connection& Connection::operator=(Connection&& other) noexcept {
    if (this != &other) {
        close();
        db_ = std::exchange(other.db_, nullptr);
    }
    return *this;
}

void Connection::close() {
    if (db_) sqlite3_close_v2(db_);
    db_ = nullptr;
}

void Connection::exec(std::string_view sql) {
    std::string s(sql);
    char* error = nullptr;
    int rc = sqlite3_exec(db_, s.c_str(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK) {
        std::string message = error ? error : sqlite3_errstr(rc);
        sqlite3_free(error);
        throw SqlError(sqlite3_extended_errcode(db_), message);
    }
}

Statement Connection::prepare(std::string_view sql) {
    return Statement(db_, sql);
}

std::int64_t Connection::changes() const {
    return sqlite3_changes64(db_);
}

Statement::Statement(sqlite3* db, std::string_view sql) : db_(db) {
    int rc = sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr);
    if (rc != SQLITE_OK) raise(db_, rc);
}

Statement::~Statement() {
    sqlite3_finalize(stmt_);
}

Statement::Statement(Statement&& other) noexcept
    : db_(other.db_), stmt_(std::exchange(other.stmt_, nullptr)) {}

Statement& Statement::bind(int index, std::string_view text) {
    int rc = sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()),
                               SQLITE_TRANSIENT);
    if (rc != SQLITE_OK) raise(db_, rc);
    return *this;
}

Statement& Statement::bind(int index, std::int64_t value) {
    int rc = sqlite3_bind_int64(stmt_, index, value);
    if (rc != SQLITE_OK) raise(db_, rc);
    return *this;
}

Statement& Statement::bind(int index, double value) {
    int rc = sqlite3_bind_double(stmt_, index, value);
    if (rc != SQLITE_OK) raise(db_, rc);
    return *this;
}

Statement& Statement::bind_null(int index) {
    int rc = sqlite3_bind_null(stmt_, index);
    if (rc != SQLITE_OK) raise(db_, rc);
    return *this;
}

bool Statement::step() {
    int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    raise(db_, rc);
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() {
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
}

bool Statement::is_null(int column) const {
    return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}

std::string Statement::text(int column) const {
    const unsigned char* t = sqlite3_column_text(stmt_, column);
    if (!t) return {};
    return std::string(reinterpret_cast<const char*>(t),
                       static_cast<std::size_t>(sqlite3_column_bytes(stmt_, column)));
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(stmt_, column);
}

int Statement::column_count() const {
    return sqlite3_column_count(stmt_);
}

std::string Statement::column_name(int column) const {
    const char* n = sqlite3_column_name(stmt_, column);
    return n ? n : "";
}

// At the outermost level a transaction takes the write lock at once; inside
// another one it is a savepoint, so that a caller can group several writes
// that each protect themselves.
Transaction::Transaction(Connection& c)
    : connection_(c), nested_(sqlite3_get_autocommit(c.handle()) == 0) {
    connection_.exec(nested_ ? "SAVEPOINT filo_nested" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (done_) return;
    try {
        connection_.exec(nested_ ? "ROLLBACK TO filo_nested; RELEASE filo_nested" : "ROLLBACK");
    } catch (...) {
        // The connection may already have rolled back after an I/O error.
    }
}

void Transaction::commit() {
    connection_.exec(nested_ ? "RELEASE filo_nested" : "COMMIT");
    done_ = true;
}

}  // namespace filo::sqlite
