#pragma once
#include <filesystem>
#include <string>

namespace filo::store {
class ProjectError;
}
namespace filo::sqlite {
class SqlError;
}

namespace filo::app {

class Session;

// The message for a project that can't be read: what is wrong with it as
// the store names it, or the database's own words.
void tell_project_fault(Session& session, const store::ProjectError& error);
void tell_project_fault(Session& session, const sqlite::SqlError& error);

// Opens the project file as the open project (DATABASE_APERTO "SI"); false,
// after the message, when it is no project or can't be read. The project
// that was open before stays open then.
bool open_project_file(Session& session, const std::filesystem::path& file);

}  // namespace filo::app
