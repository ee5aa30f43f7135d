#pragma once
// A small RAII layer over the SQLite C API: a connection, prepared statements
// with bound parameters, and transactions. Errors become SqlError.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace filo::sqlite {

class SqlError : public std::runtime_error {
  public:
    SqlError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
    // The SQLite result code (primary code in the low byte).
    int code() const { return code_; }
    bool not_a_database() const;

  private:
    int code_;
};

// ReadOnlyImmutable reads a file that nothing can change, such as one in a
// folder nobody may write: no lock is taken and no journal is looked for.
enum class OpenMode { ReadWrite, ReadWriteCreate, ReadOnly, ReadOnlyImmutable };

class Statement;

class Connection {
  public:
    Connection() = default;
    Connection(const std::filesystem::path& file, OpenMode mode);
    ~Connection();
    Connection(Connection&& other) noexcept;
    Connection& operator=(Connection&& other) noexcept;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool is_open() const { return db_ != nullptr; }
    // True when writes are refused: opened read-only, or the file is.
    bool read_only() const;
    void close();

    // Runs statements that bind nothing and return no rows.
    void exec(std::string_view sql);
    Statement prepare(std::string_view sql);

    std::int64_t changes() const;
    sqlite3* handle() const { return db_; }

  private:
    sqlite3* db_ = nullptr;
};

// A prepared statement. Parameters are numbered from 1, columns from 0.
class Statement {
  public:
    Statement(sqlite3* db, std::string_view sql);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int index, std::string_view text);
    Statement& bind(int index, std::int64_t value);
    Statement& bind(int index, int value) { return bind(index, static_cast<std::int64_t>(value)); }
    Statement& bind(int index, double value);
    Statement& bind_null(int index);

    // Advances to the next row; false when there is none.
    bool step();
    // Runs a statement that returns no rows.
    void run();
    void reset();

    bool is_null(int column) const;
    // Null reads as "" and 0.
    std::string text(int column) const;
    std::int64_t integer(int column) const;
    int column_count() const;
    std::string column_name(int column) const;

  private:
    sqlite3* db_;
    sqlite3_stmt* stmt_ = nullptr;
};

// Everything between construction and commit() is one transaction; leaving
// the scope without commit() rolls it back. Transactions nest: an inner one
// commits into the outer, which alone reaches the disk.
class Transaction {
  public:
    explicit Transaction(Connection& c);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

  private:
    Connection& connection_;
    bool nested_;
    bool done_ = false;
};

}  // namespace filo::sqlite
