#include "app/project_errors.hpp"

#include "app/session.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

void tell_project_fault(Session& session, const store::ProjectError& error) {
    session.message_text(describe(error, session.texts), session.texts.text(Text::TITLE_WARNING));
}

void tell_project_fault(Session& session, const sqlite::SqlError& error) {
    session.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, error.what());
}

bool open_project_file(Session& session, const std::filesystem::path& file) {
    store::Project& p = session.project;
    const std::string name = p.NOME_PROGETTO, path = p.PERCORSO_PROGETTO;
    try {
        p.open(file);
        p.DATABASE_APERTO = "SI";
        return true;
    } catch (const store::ProjectError& e) {
        p.NOME_PROGETTO = name;
        p.PERCORSO_PROGETTO = path;
        tell_project_fault(session, e);
    } catch (const sqlite::SqlError& e) {
        p.NOME_PROGETTO = name;
        p.PERCORSO_PROGETTO = path;
        tell_project_fault(session, e);
    }
    return false;
}

}  // namespace filo::app
