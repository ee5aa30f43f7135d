#pragma once
#include <filesystem>
#include <string>

namespace filo::app {

class Session;

// Opens the project file as the open project (DATABASE_APERTO "SI"); false,
// after the message, when it is no project or can't be read. The project
// that was open before stays open then.
bool open_project_file(Session& session, const std::filesystem::path& file);

}  // namespace filo::app
