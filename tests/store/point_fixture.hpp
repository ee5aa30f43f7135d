#pragma once
// A project scripted point by point for the tests of the link editor's lists
// and of the link repairs.
#include <string>

#include "store/link_table.hpp"
#include "store/store_fixture.hpp"
#include "texts/language_tables.hpp"

namespace filo::testing {

class PointTest : public StoreTest {
  protected:
    PointTest() { texts.ITALIANO(); }

    // Names a point; row numbers are the module's own (inputs 1-8).
    void name(const std::string& codice, int campo, const std::string& nick) {
        auto s = project.database().prepare(
            "UPDATE nick SET nick = ?1 WHERE codice = ?2 AND campo = ?3");
        s.bind(1, nick).bind(2, codice).bind(3, std::to_string(campo));
        s.run();
    }
    // Sets a column of one point.
    void set(const std::string& codice, int campo, const std::string& column,
             const std::string& value) {
        set_column(project, codice, campo, column, value);
    }
    // The kind letter of an input.
    void kind(const std::string& codice, int campo, char letter) {
        set(codice, campo, "modo", std::string(1, letter) + std::string(23, '0'));
    }
    std::int64_t id(const std::string& codice, int campo) {
        auto q = project.database().prepare("SELECT ID FROM nick WHERE codice = ?1 AND campo = ?2");
        q.bind(1, codice).bind(2, std::to_string(campo));
        return q.step() ? q.integer(0) : -1;
    }
    // Appends one link row; `modo` is the 9-character mode.
    std::int64_t link(const std::string& rx, const std::string& nick_rx, const std::string& tx,
                      const std::string& nick_tx, const std::string& modo = "000000001",
                      const std::string& opzione = "P") {
        store::LinkRow& l = links.LINK_CORRENTE;
        l = store::LinkRow{};
        l.identificativoRX = rx;
        l.numero_uscita = rx.substr(rx.find('/') + 1);
        l.nick_ricevente = nick_rx;
        l.identificativoTX = tx;
        l.numero_ingresso = tx.empty() ? "" : tx.substr(tx.find('/') + 1);
        l.nick_trasmittente = nick_tx;
        l.opzione = opzione;
        l.modo_ = modo;
        l.and_ = "00000000";
        l.settimana = "00000000";
        l.dato13 = "000000";
        links.AGGIUNGI_LINK();
        return links.PROSSIMO_ID_LINK - 1;
    }
    // The second page of the link just written.
    void second_page() {
        links.LINK_CORRENTE = store::LinkRow{};
        links.LINK_CORRENTE.note = "SECONDA PAGINA";
        links.LINK_CORRENTE.dato13 = "000000";
        links.AGGIUNGI_LINK();
    }

    // Every row of table associazioni, in ID order.
    std::vector<store::LinkRow> saved_links() {
        std::vector<store::LinkRow> rows;
        for (std::int64_t id : link_ids()) links.read_row(id, rows.emplace_back());
        return rows;
    }

    texts::LanguageTables texts;
    store::LinkTable links{project};
};

}  // namespace filo::testing
