#pragma once
#include <filesystem>
#include <string>

namespace filo::store {
class ProjectError;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::app {

class Session;

// The message for a project that could not be opened or used.
std::string describe(const store::ProjectError& error, const texts::LanguageTables& texts);

// Opens the project file as the open project (DATABASE_APERTO "SI"); false,
// after the message, when it is no project or can't be read. The project
// that was open before stays open then.
bool open_project_file(Session& session, const std::filesystem::path& file);

}  // namespace filo::app
