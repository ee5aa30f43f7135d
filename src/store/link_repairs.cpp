#include "store/link_repairs.hpp"

#include <vector>

#include "common/basic_functions.hpp"
#include "store/link_table.hpp"
#include "store/module_code_change.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "store/text_match.hpp"

namespace filo::store {

void LinkRepairs::ELIMINA_COLLEGAMENTI_DEL_MODULO(std::string_view codice) {
    links_.TABELLA_LINK.clear();
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    std::vector<std::int64_t> doomed;
    {
        sqlite::Statement q = db.prepare(
            "SELECT ID, identificativoRX, identificativoTX, note, nick_trasmittente "
            "FROM associazioni ORDER BY ID");
        // A link is a run of rows: the continuation rows that come after a
        // deleted link go with it.
        bool deleting = false;
        while (q.step()) {
            LinkRow r;
            r.ID = q.integer(0);
            r.identificativoRX = q.text(1);
            r.identificativoTX = q.text(2);
            r.note = q.text(3);
            r.nick_trasmittente = q.text(4);
            const bool in_module =
                equal_ignoring_ascii_case(basic::left(r.identificativoRX, 6), codice) ||
                equal_ignoring_ascii_case(basic::left(r.identificativoTX, 6), codice);
            // A reference row of the gateway names its own receiver: a link
            // with both ends elsewhere, which outlives the link before it.
            const bool own_link = r.nick_trasmittente == kNetGate && !r.identificativoRX.empty();
            if (in_module) {
                deleting = true;
            } else if (own_link || !is_continuation(r)) {
                deleting = false;
            }
            if (deleting) doomed.push_back(r.ID);
        }
    }
    sqlite::Statement del = db.prepare("DELETE FROM associazioni WHERE ID = ?1");
    for (std::int64_t id : doomed) {
        del.bind(1, id);
        del.run();
        del.reset();
    }
    t.commit();
}

void LinkRepairs::AGGIORNA_NUMEROMODULO_NEI_LINK(std::string_view codice_vecchio,
                                                 std::string_view nuovo_numero) {
    rewrite_link_codes(project_, codice_vecchio, nuovo_numero);
}

void delete_module_and_links(ModuleTable& table, LinkRepairs& repairs) {
    std::vector<std::string> codes = {table.CODICE_MODULO};
    const std::string page(basic::left(table.CODICE_MODULO, 3));
    if (equal_ignoring_ascii_case(page, "FFF") && basic::right(table.CODICE_MODULO, 2) == "23")
        codes = {"FFF023", "FFF123", "FFF223", "FFF323"};  // the video door panel's pages
    sqlite::Transaction t(table.project().database());
    for (const std::string& code : codes) {
        repairs.ELIMINA_COLLEGAMENTI_DEL_MODULO(code);
        table.LEGGI_MODULO(code);
        if (table.STATO_MODULO != kModuloEsistente) continue;
        table.set_codice_modulo(code);
        table.CANCELLA_MODULO();
    }
    t.commit();
}

void renumber_module_and_links(ModuleTable& table, LinkRepairs& repairs,
                               std::string_view nuovo_numero) {
    const std::string old_code = table.CODICE_MODULO;
    const std::string new_code =
        std::string(nuovo_numero) + std::string(basic::mid(old_code, 5, 2));
    sqlite::Transaction t(table.project().database());
    for (NickRow& r : table.RIGHE_MODULO.rows) r.codice = new_code;
    repairs.AGGIORNA_NUMEROMODULO_NEI_LINK(old_code, nuovo_numero);
    table.MODIFICA_MODULO();  // finds the rows by the old code
    table.set_codice_modulo(new_code);
    t.commit();
}

}  // namespace filo::store
