#pragma once
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace filo::sqlite {
class Connection;
enum class OpenMode;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::store {

enum class ProjectProblem {
    Missing,         // no file at the path
    NotADatabase,    // the file is something else
    MissingTables,   // a database without nick and associazioni
    MissingColumns,  // the tables lack columns a project has
    Unreadable,      // the file can't be read or written (permissions, I/O)
};

// Why a project could not be opened or used. The file was left as it was.
class ProjectError : public std::runtime_error {
  public:
    ProjectError(ProjectProblem problem, std::string detail)
        : std::runtime_error(detail), problem_(problem), detail_(std::move(detail)) {}
    ProjectProblem problem() const { return problem_; }
    // The path, the missing names, or the database's own message.
    const std::string& detail() const { return detail_; }

  private:
    ProjectProblem problem_;
    std::string detail_;
};

// What the installer reads about it, in the chosen language.
std::string describe(const ProjectError& error, const texts::LanguageTables& texts);

// The journal and cache settings of every connection to a project file.
void use_project_settings(sqlite::Connection& connection);

// The project file name without its 4-character extension, as the name
// of the project is shown everywhere.
std::string project_name_of(const std::filesystem::path& file);

// The open project: its name, its file and the one connection to it.
class Project {
  public:
    Project();
    ~Project();
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    std::string NOME_PROGETTO;
    std::string PERCORSO_PROGETTO;
    // "SI" once the project window has opened the database.
    std::string DATABASE_APERTO;

    // Opens PERCORSO_PROGETTO, checks that it is a project and upgrades an
    // older one. A new connection replaces the previous one only on success.
    // Throws ProjectError.
    void APRI_DATABASE_NICK();

    // Sets the name and path from a file, then opens it.
    void open(const std::filesystem::path& file);
    // The same for a command that only reads: the file is never written, not
    // even upgraded, so it may lie where the user cannot write.
    void open_read_only(const std::filesystem::path& file);

    bool is_open() const;
    // The connection of the open project; throws ProjectError when none is.
    sqlite::Connection& database();
    void close();

  private:
    void connect(sqlite::OpenMode mode);
    std::unique_ptr<sqlite::Connection> connection_;
};

}  // namespace filo::store
