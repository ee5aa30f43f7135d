#include "app/module_entry.hpp"

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "modules/module_editor.hpp"
#include "modules/module_rows.hpp"
#include "modules/type_catalogue.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

namespace {

ModuleEntry enter(Session& session, const std::string& code, bool window) {
    store::ModuleTable& table = session.modules;
    // A module number is taken once, whatever the type; a deleted one is free.
    table.VERIFICA_MODULO(code);
    if (table.STATO_MODULO != store::kNuovoModulo) {
        const std::string stored = table.RIGHE_MODULO.riga(1).codice.substr(4, 2);
        if (stored == code.substr(4, 2) && window) {
            table.CODICE_MODULO = code;
            table.TIPO_MODULO = code.substr(4, 2);
            return ModuleEntry::OpenWindow;
        }
        if (stored == code.substr(4, 2)) {
            session.message(Text::MODULE_ALREADY_EXISTS, Text::TITLE_WARNING, {}, code);
            return ModuleEntry::Refused;
        }
        if (stored != "FF") {
            session.message(Text::CODE_IN_USE, Text::TITLE_WARNING);
            return ModuleEntry::Refused;
        }
    }
    table.ELENCO_MODULI();
    switch (modules::opening_of(code.substr(4, 2), table.ELENCO_CODICI)) {
        case modules::Opening::RadioModuleRequired:
            session.message(Text::RADIO_MODULE_REQUIRED, Text::TITLE_WARNING);
            return ModuleEntry::Refused;
        case modules::Opening::Unsupported:
            session.message(Text::MODULE_TYPE_UNSUPPORTED, Text::TITLE_WARNING);
            return ModuleEntry::Refused;
        case modules::Opening::VideoDoorPages:
            modules::CREA_VIDEOCITOFONO(table);
            if (!window) return ModuleEntry::Added;
            table.CODICE_MODULO = std::string(modules::kVideoDoorPages[0]);
            table.TIPO_MODULO = "23";
            table.STATO_MODULO = store::kModuloEsistente;
            return ModuleEntry::OpenWindow;
        case modules::Opening::PanelInterface:
            table.set_codice_modulo(code);
            table.STATO_MODULO = store::kNuovoModulo;
            if (window) return ModuleEntry::OpenWindow;  // Form11 prepares its rows
            table.LEGGI_N_PROGRESSIVO();
            modules::PREPARA_OUT_232(table);
            table.AGGIUNGI_MODULO();
            return ModuleEntry::Added;
        case modules::Opening::ModuleWindow:
            break;
    }
    if (window) {
        table.CODICE_MODULO = code;
        table.TIPO_MODULO = code.substr(4, 2);
        table.STATO_MODULO = store::kNuovoModulo;
        return ModuleEntry::OpenWindow;
    }
    modules::ModuleEditor editor(table, session.links);
    if (!editor.create(code)) {
        session.message(Text::MODULE_TYPE_UNSUPPORTED, Text::TITLE_WARNING);
        return ModuleEntry::Refused;
    }
    const modules::EditRefusal refusal = editor.save();
    if (refusal != modules::EditRefusal::None) {
        session.message_text(
            modules::refusal_text(refusal, session.texts, code, editor.linked_receiver()),
            session.texts.text(Text::TITLE_WARNING));
        return ModuleEntry::Refused;
    }
    return ModuleEntry::Added;
}

}  // namespace

ModuleEntry enter_new_module(Session& session, const std::string& code) {
    try {
        return enter(session, code, false);
    } catch (const store::ProjectError& e) {
        tell_project_fault(session, e);
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session, e);
    }
    return ModuleEntry::Refused;
}

ModuleEntry open_module_entry(Session& session, const std::string& code) {
    try {
        return enter(session, code, true);
    } catch (const store::ProjectError& e) {
        tell_project_fault(session, e);
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session, e);
    }
    return ModuleEntry::Refused;
}

}  // namespace filo::app
