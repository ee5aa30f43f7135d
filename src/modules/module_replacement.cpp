#include "modules/module_replacement.hpp"

#include <string>

#include "bus/module_code.hpp"
#include "store/link_table.hpp"
#include "store/module_code_change.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::modules {

using texts::Text;

ReplacementMessage replacement_message(ReplacementRefusal refusal) {
    switch (refusal) {
        case ReplacementRefusal::TypeNotCompatible:
            return {Text::MODULE_TYPE_NOT_COMPATIBLE, std::nullopt, true};
        case ReplacementRefusal::CodeNotCorrect:
            return {Text::CODE_NOT_CORRECT, Text::TITLE_WARNING, true};
        case ReplacementRefusal::ModuleExists:
        case ReplacementRefusal::None:
            break;
    }
    return {Text::MODULE_ALREADY_EXISTS, std::nullopt, false};
}

bool replacement_type_allowed(std::string_view old_type, std::string_view new_type) {
    return old_type == new_type || (old_type == "47" && new_type == "14");
}

ReplacementRefusal replace_module(store::ModuleTable& table, store::LinkTable& links,
                                  std::string_view typed, bool check_digits) {
    const std::string old_code = table.CODICE_MODULO;
    const std::string new_code(typed.substr(0, 6));
    if (old_code.size() != 6 || typed.size() != 8 ||
        !replacement_type_allowed(old_code.substr(4, 2), new_code.substr(4, 2)))
        return ReplacementRefusal::TypeNotCompatible;
    if (check_digits && bus::CODICE_CONTROLLO(new_code) != typed.substr(6, 2))
        return ReplacementRefusal::CodeNotCorrect;
    // Deleted rows carry FF as type, so a deleted module's number is free.
    if (!table.read_rows(new_code).empty()) return ReplacementRefusal::ModuleExists;

    store::Project& project = table.project();
    const store::ModuleRecord before = table.RIGHE_MODULO;
    try {
        sqlite::Transaction t(project.database());
        // The links first: MODIFICA_MODULO carries the emergency setting of
        // a point into the links of its new code.
        store::rewrite_link_codes(project, old_code, new_code);
        store::move_paired_remotes(project, old_code, new_code);
        for (store::NickRow& r : table.RIGHE_MODULO.rows) r.codice = new_code;
        table.MODIFICA_MODULO();  // finds the rows by the old code
        // Names typed in the window and not yet saved go in with the rows:
        // the links keep the names of their points.
        links.AGGIORNA_NICK_NEI_LINK_DA_FORM5(new_code, table.RIGHE_MODULO);
        t.commit();
    } catch (...) {
        table.RIGHE_MODULO = before;  // the project is as it was, and so is the record
        throw;
    }
    table.set_codice_modulo(new_code);
    return ReplacementRefusal::None;
}

}  // namespace filo::modules
