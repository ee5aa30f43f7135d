#include "exchange/export_nick.hpp"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "store/sqlite.hpp"
#include "texts/language_tables.hpp"

namespace filo::exchange {
namespace fs = std::filesystem;
using texts::Text;

namespace {

std::string upper(std::string_view s) {
    std::string r(s);
    std::transform(r.begin(), r.end(), r.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return r;
}

struct Column {
    std::string name;
    std::string declared;
};

std::vector<Column> columns_of_nick(sqlite::Connection& project) {
    std::vector<Column> columns;
    sqlite::Statement q = project.prepare("PRAGMA table_info(nick)");
    while (q.step()) columns.push_back({q.text(1), q.text(2)});
    return columns;
}

// A file beside the target, removed unless it is put in place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const fs::path& target) : target_(target), path_(target) {
        path_ += ".new" + std::to_string(::getpid());
        std::error_code ec;
        fs::remove(path_, ec);
    }
    ~TemporaryFile() {
        std::error_code ec;
        if (!placed_) fs::remove(path_, ec);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const fs::path& path() const { return path_; }
    void put_in_place() {
        // SQLite makes its file at the first write: a copy without a table
        // is still a file.
        if (!fs::exists(path_)) std::ofstream(path_, std::ios::binary).close();
        fs::rename(path_, target_);
        placed_ = true;
    }

  private:
    fs::path target_;
    fs::path path_;
    bool placed_ = false;
};

}  // namespace

std::string describe(const ExportError& error, const texts::LanguageTables& texts) {
    switch (error.text()) {
        case Text::EXPORT_OPEN_ERROR:
            return texts.text(Text::EXPORT_OPEN_ERROR) + error.detail() +
                   texts.text(Text::EXPORT_OPEN_ERROR_END);
        case Text::EXPORT_CREATE_ERROR:
            return texts.text(Text::EXPORT_CREATE_ERROR) + "\n\n" +
                   texts.text(Text::EXPORT_ERROR_MESSAGE) + "\n" + error.detail() + "\n\n" +
                   texts.text(Text::EXPORT_SQL_COMMAND) + "\n" + error.statement();
        default:
            return texts.text(error.text()) + error.detail();
    }
}

fs::path sqlite_copy_path(const fs::path& project) {
    std::string s = project.string();
    s.resize(s.size() > 3 ? s.size() - 3 : 0);
    return s + "DB";
}

std::string copy_column_type(std::string_view declared) {
    const std::string d = upper(declared);
    for (std::string_view numeric :
         {"INT", "REAL", "FLOA", "DOUB", "NUM", "DEC", "BOOL", "BIT", "MEMO", "BLOB", "LONG"})
        if (d.find(numeric) != std::string::npos) return " INTEGER";
    std::string size = "255";
    const std::size_t open = d.find('(');
    const std::size_t close = d.find(')', open == std::string::npos ? 0 : open);
    if (open != std::string::npos && close != std::string::npos && close > open + 1)
        size = d.substr(open + 1, close - open - 1);
    return " VARCHAR(" + size + ")";
}

std::int64_t copy_nick_table(sqlite::Connection& project, const fs::path& target,
                             const std::function<void(std::int64_t, std::int64_t)>& progress) {
    sqlite::Statement count = project.prepare("SELECT count(*) AS X FROM nick");
    const std::int64_t total = count.step() ? count.integer(0) : 0;
    const std::vector<Column> columns = columns_of_nick(project);

    TemporaryFile file(target);
    sqlite::Connection copy;
    try {
        copy = sqlite::Connection(file.path(), sqlite::OpenMode::ReadWriteCreate);
    } catch (const sqlite::SqlError&) {
        throw ExportError(Text::EXPORT_OPEN_ERROR, target.string());
    }
    std::int64_t copied = 0;
    if (total > 0 && !columns.empty()) {
        std::string create = "create table nick (";
        std::string names;
        std::string values;
        for (const Column& c : columns) {
            const bool blank = c.name.find(' ') != std::string::npos;
            create += (blank ? "\"" + c.name + "\"" : c.name) + copy_column_type(c.declared) + ",";
            names += (names.empty() ? "" : ",") + c.name;
            values += values.empty() ? "?" : ",?";
        }
        create.back() = ')';
        try {
            copy.exec(create);
        } catch (const sqlite::SqlError& e) {
            throw ExportError(Text::EXPORT_CREATE_ERROR, e.what(), create);
        }
        // One transaction: the copy is written at once, and is put in place
        // only when whole.
        sqlite::Transaction t(copy);
        // Values are bound, so that a name holding an apostrophe lands in its
        // row. A statement SQLite refuses (a name with a blank isn't quoted
        // here) leaves the rows out, as the error of an insert isn't read.
        std::optional<sqlite::Statement> insert;
        try {
            insert.emplace(
                copy.prepare("insert into nick (" + names + ") values (" + values + ")"));
        } catch (const sqlite::SqlError&) {
        }
        sqlite::Statement rows = project.prepare("SELECT * FROM nick");
        const int n = rows.column_count();
        while (rows.step()) {
            ++copied;
            if (insert) {
                for (int c = 0; c < n; ++c) insert->bind(c + 1, rows.text(c));
                try {
                    insert->run();
                } catch (const sqlite::SqlError&) {
                }
                insert->reset();
            }
            if (progress) progress(copied, std::max(total, copied));
        }
        t.commit();
    }
    copy.close();
    try {
        file.put_in_place();
    } catch (const fs::filesystem_error& e) {
        throw ExportError(Text::EXPORT_FAILED, e.what());
    }
    return copied;
}

}  // namespace filo::exchange
