#include "store/project.hpp"

#include <sqlite3.h>
#include <unistd.h>

#include <system_error>

#include "store/schema.hpp"
#include "store/sql_functions.hpp"
#include "store/sqlite.hpp"
#include "texts/language_tables.hpp"

namespace filo::store {

std::string describe(const ProjectError& error, const texts::LanguageTables& texts) {
    using texts::Text;
    switch (error.problem()) {
        case ProjectProblem::Missing:
            return texts.text(Text::PROJECT_MISSING) + ": " + error.detail();
        case ProjectProblem::NotADatabase:
            return texts.text(Text::PROJECT_NOT_A_DATABASE) + error.detail();
        case ProjectProblem::MissingTables:
            return texts.text(Text::PROJECT_TABLES_MISSING) + error.detail();
        case ProjectProblem::MissingColumns:
            return texts.text(Text::PROJECT_COLUMNS_MISSING) + error.detail();
        case ProjectProblem::NotWritable:
            return texts.text(Text::PROJECT_NOT_WRITABLE) + error.detail();
        case ProjectProblem::ForeignCode:
            return texts.text(Text::PROJECT_FOREIGN_CODE) + error.detail();
        case ProjectProblem::DataDirectoryNotWritable:
            return texts.text(Text::DATA_DIRECTORY_NOT_WRITABLE) + error.detail();
        case ProjectProblem::Unreadable:
            break;
    }
    return texts.text(Text::PROJECT_UNREADABLE) + error.detail();
}
namespace {

std::string joined(const std::vector<std::string>& names) {
    std::string s;
    for (const std::string& n : names) s += (s.empty() ? "" : ", ") + n;
    return s;
}

bool writable(const std::filesystem::path& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

bool refused_for_lack_of_writing(const sqlite::SqlError& e) {
    const int primary = e.code() & 0xFF;
    return primary == SQLITE_READONLY || primary == SQLITE_CANTOPEN;
}

std::vector<std::string> triggers_and_views(sqlite::Connection& connection) {
    sqlite::Statement q = connection.prepare(
        "SELECT type, name FROM sqlite_master WHERE type IN ('trigger', 'view') ORDER BY type, "
        "name");
    std::vector<std::string> found;
    while (q.step()) found.push_back(q.text(0) + " " + q.text(1));
    return found;
}

}  // namespace

void use_project_settings(sqlite::Connection& connection) {
    // A large installation is a few megabytes: keep it all in memory once read.
    connection.exec("PRAGMA cache_size = -65536");
    // Write-ahead logging: a commit is atomic and survives the program being
    // killed at any moment, and costs no flush to disk, so that saving a
    // module stays instant. A power cut may lose the last commits, never
    // leave the file damaged. The log is folded into the file on closing.
    connection.exec("PRAGMA journal_mode = WAL");
    connection.exec("PRAGMA synchronous = NORMAL");
}

std::string project_name_of(const std::filesystem::path& file) {
    std::string title = file.filename().string();
    return title.size() > 4 ? title.substr(0, title.size() - 4) : std::string();
}

Project::Project() = default;
Project::~Project() = default;

void Project::open(const std::filesystem::path& file, Access access) {
    NOME_PROGETTO = project_name_of(file);
    PERCORSO_PROGETTO = file.string();
    APRI_DATABASE_NICK(access);
}

void Project::APRI_DATABASE_NICK(Access access) {
    const std::filesystem::path file = PERCORSO_PROGETTO;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        throw ProjectError(ProjectProblem::Missing, PERCORSO_PROGETTO);
    const bool read_only = access != Access::ReadWrite;
    const std::filesystem::path folder = std::filesystem::absolute(file).parent_path();
    if (!read_only) {
        // The write-ahead log lives beside the file: both must be writable.
        if (!writable(file)) throw ProjectError(ProjectProblem::NotWritable, PERCORSO_PROGETTO);
        if (!writable(folder)) throw ProjectError(ProjectProblem::NotWritable, folder.string());
    }
    try {
        std::unique_ptr<sqlite::Connection> connection;
        SchemaCheck check;
        // A file or folder that nobody may write is read as it stands: no
        // log beside it can be made, and none can be pending.
        const bool locked_away = read_only && (!writable(file) || !writable(folder));
        auto open = [&](sqlite::OpenMode mode) {
            connection = std::make_unique<sqlite::Connection>(file, mode);
            check = check_project_schema(*connection);
        };
        if (!read_only) {
            open(sqlite::OpenMode::ReadWrite);
            if (connection->read_only())
                throw ProjectError(ProjectProblem::NotWritable, PERCORSO_PROGETTO);
        } else if (locked_away) {
            open(sqlite::OpenMode::ReadOnlyImmutable);
        } else {
            try {
                open(sqlite::OpenMode::ReadOnly);
            } catch (const sqlite::SqlError& e) {
                if (!refused_for_lack_of_writing(e)) throw;
                open(sqlite::OpenMode::ReadOnlyImmutable);
            }
        }
        if (!check.missing_tables.empty())
            throw ProjectError(ProjectProblem::MissingTables, joined(check.missing_tables));
        if (!check.missing_columns.empty())
            throw ProjectError(ProjectProblem::MissingColumns, joined(check.missing_columns));
        // Projects travel between installers: what a file carries never runs.
        std::vector<std::string> foreign = triggers_and_views(*connection);
        if (!foreign.empty() && access != Access::Inspect)
            throw ProjectError(ProjectProblem::ForeignCode, joined(foreign));
        if (read_only) {
            // An older project is read as the upgrade would make it, in memory.
            if (check.lacks_dati_aggiuntivi1)
                connection->exec(
                    "CREATE TEMP VIEW nick AS SELECT *, NULL AS dati_aggiuntivi1 FROM main.nick");
            connection->exec("PRAGMA cache_size = -65536");
        } else {
            upgrade_project_schema(*connection, check);
            use_project_settings(*connection);
        }
        register_sql_functions(*connection);
        foreign_code_ = std::move(foreign);
        connection_ = std::move(connection);
    } catch (const sqlite::SqlError& e) {
        throw ProjectError(
            e.not_a_database() ? ProjectProblem::NotADatabase : ProjectProblem::Unreadable,
            PERCORSO_PROGETTO + ": " + e.what());
    }
}

bool Project::is_open() const {
    return connection_ && connection_->is_open();
}

sqlite::Connection& Project::database() {
    if (!is_open()) throw ProjectError(ProjectProblem::Unreadable, "no project is open");
    return *connection_;
}

void Project::close() {
    connection_.reset();
}

}  // namespace filo::store
