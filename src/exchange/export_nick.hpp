#pragma once
// The SQLite copy of table nick that FrmMain writes next to the project.
#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "texts/text_key.hpp"

namespace filo::sqlite {
class Connection;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::exchange {

// Why an export stopped. Whatever it was writing is not in place.
class ExportError : public std::runtime_error {
  public:
    ExportError(texts::Text what, std::string detail, std::string statement = {})
        : std::runtime_error(detail),
          what_(what),
          detail_(std::move(detail)),
          statement_(std::move(statement)) {}
    texts::Text text() const { return what_; }
    const std::string& detail() const { return detail_; }
    const std::string& statement() const { return statement_; }

  private:
    texts::Text what_;
    std::string detail_;
    std::string statement_;
};

// The message of the window's box for this error.
std::string describe(const ExportError& error, const texts::LanguageTables& texts);

// The project path with its last 3 characters replaced by "DB":
// "a.TRN" gives "a.DB", "a.mdb" "a.DB".
std::filesystem::path sqlite_copy_path(const std::filesystem::path& project);

// The column type of the copy for a column declared so in the project:
// " INTEGER" for the numeric, boolean and long types, else
// " VARCHAR(<size>)", 255 when the declaration gives none.
std::string copy_column_type(std::string_view declared);

// Copies table nick of the project into a new SQLite file at `target`,
// replacing an old one; a project without rows gives a file without a
// table. Progress is told after each row (row from 1, total). Returns the
// rows copied. Throws ExportError; then the old target is still there.
std::int64_t copy_nick_table(
    sqlite::Connection& project, const std::filesystem::path& target,
    const std::function<void(std::int64_t row, std::int64_t total)>& progress = {});

}  // namespace filo::exchange
