#include "store/project.hpp"

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

void Project::open(const std::filesystem::path& file) {
    NOME_PROGETTO = project_name_of(file);
    PERCORSO_PROGETTO = file.string();
    APRI_DATABASE_NICK();
}

void Project::open_read_only(const std::filesystem::path& file) {
    NOME_PROGETTO = project_name_of(file);
    PERCORSO_PROGETTO = file.string();
    connect(sqlite::OpenMode::ReadOnly);
}

void Project::APRI_DATABASE_NICK() {
    connect(sqlite::OpenMode::ReadWrite);
}

void Project::connect(sqlite::OpenMode mode) {
    const std::filesystem::path file = PERCORSO_PROGETTO;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        throw ProjectError(ProjectProblem::Missing, PERCORSO_PROGETTO);
    try {
        auto connection = std::make_unique<sqlite::Connection>(file, mode);
        SchemaCheck check = check_project_schema(*connection);
        if (!check.missing_tables.empty())
            throw ProjectError(ProjectProblem::MissingTables, joined(check.missing_tables));
        if (!check.missing_columns.empty())
            throw ProjectError(ProjectProblem::MissingColumns, joined(check.missing_columns));
        if (mode != sqlite::OpenMode::ReadOnly) {
            upgrade_project_schema(*connection, check);
            use_project_settings(*connection);
        }
        register_sql_functions(*connection);
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
