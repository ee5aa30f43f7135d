#include "app/project_errors.hpp"

#include "app/session.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

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
        session.message_text(describe(e, session.texts), session.texts.text(Text::TITLE_WARNING));
    } catch (const sqlite::SqlError& e) {
        p.NOME_PROGETTO = name;
        p.PERCORSO_PROGETTO = path;
        session.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, e.what());
    }
    return false;
}

}  // namespace filo::app
