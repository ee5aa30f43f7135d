#include "app/new_project.hpp"

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "store/project.hpp"

namespace filo::app {

using texts::Text;

void NewProject::load() {
    try {
        session_.files.ensure_empty_project();
    } catch (const std::filesystem::filesystem_error& e) {
        session_.message(Text::FILE_ERROR, Text::TITLE_WARNING, {}, e.what());
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
    }
}

bool NewProject::create(const std::string& name) {
    if (!store::is_valid_project_name(name)) {
        session_.message(Text::INVALID_PROJECT_NAME, Text::TITLE_PROJECT_CREATION);
        return false;
    }
    const std::filesystem::path target = session_.files.project_path(name);
    try {
        session_.files.ensure_empty_project();
        if (session_.files.create_project(target) == store::ProjectFiles::Creation::Exists) {
            session_.message(Text::PROJECT_EXISTS, Text::TITLE_PROJECT_CREATION, name + " ");
            return false;
        }
    } catch (const std::filesystem::filesystem_error& e) {
        // Characters the file system refuses make the copy fail.
        session_.message(Text::FILE_ERROR, Text::TITLE_PROJECT_CREATION, {}, e.what());
        return false;
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        return false;
    }
    const auto& t = session_.texts;
    session_.message_text(
        t.text(Text::PROJECT_WORD) + " " + name + " " + t.text(Text::CREATED_WORD),
        t.text(Text::TITLE_PROJECT_CREATION));
    return open_project_file(session_, target);
}

}  // namespace filo::app
