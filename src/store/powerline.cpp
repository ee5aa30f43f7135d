#include "store/powerline.hpp"

#include <string>
#include <vector>

#include "common/basic_functions.hpp"
#include "store/link_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {

void Powerline::POWERLINE() {
    sqlite::Connection& db = project_.database();
    struct Row {
        std::int64_t ID;
        std::string codice, campo, nick, nick_numerico;
    };
    std::vector<Row> rows;
    {
        // Descending: row 9 of a module comes just before its row 8.
        sqlite::Statement q = db.prepare(
            "SELECT ID, codice, campo, nick, nick_numerico FROM nick WHERE codice LIKE '____1F' "
            "ORDER BY ID DESC");
        while (q.step())
            rows.push_back({q.integer(0), q.text(1), q.text(2), q.text(3),
                            q.is_null(4) ? std::string() : q.text(4)});
    }
    if (rows.empty()) return;
    sqlite::Transaction t(db);
    sqlite::Statement name = db.prepare("UPDATE nick SET nick = ?1 WHERE ID = ?2");
    std::string output;  // the name of the last row 9 passed
    for (const Row& r : rows) {
        const double campo = basic::val(r.campo);
        if (campo == 9) {
            output = r.nick;
        } else if (campo == 8 && r.nick.empty()) {
            // An output without a name still gets its command row and link.
            name.bind(1, "(COMANDO) " + output).bind(2, r.ID);
            name.run();
            name.reset();
            GENERA_ASSOCIAZIONE_PWLINE(r.codice, r.nick_numerico, output);
        }
    }
    t.commit();
}

void Powerline::GENERA_ASSOCIAZIONE_PWLINE(std::string_view codice, std::string_view nick_numerico,
                                           std::string_view nome) {
    // The editor's copies of nick_numerico for both ends have no column in
    // the link table: both ends are this module.
    (void)nick_numerico;
    LinkRow& lk = links_.LINK_CORRENTE;
    lk = LinkRow{};
    lk.identificativoRX = std::string(codice) + "/1";
    lk.numero_uscita = "1";
    lk.nick_ricevente = nome;
    lk.identificativoTX = std::string(codice) + "/8";
    lk.numero_ingresso = "8";
    lk.nick_trasmittente = "(COMANDO) " + std::string(nome);
    lk.tempo_on1 = lk.tempo_on2 = lk.tempo_off1 = lk.tempo_off2 = "0";
    lk.modo_ = "000000001";
    lk.on_ = "251";
    lk.off_ = "9";
    lk.and_ = "00000000";
    lk.minuto = lk.ora = lk.giorno = "00";
    lk.settimana = "00000000";
    lk.dato13 = "000000";
    links_.CERCA_LINK_E();
    if (links_.ESITO_LINK != kEsitoNuovo) return;  // the link exists

    sqlite::Transaction t(project_.database());
    links_.AGGIUNGI_LINK();
    lk = second_page(lk);
    links_.AGGIUNGI_LINK();
    t.commit();
}

void AGGIORNA_LINK_EMERGENZA(Project& project, std::string_view identificativo,
                             std::string_view riserva2, std::string_view value) {
    sqlite::Connection& db = project.database();
    sqlite::Transaction t(db);
    sqlite::Statement q = db.prepare(
        "SELECT ID, modo_, settimana FROM associazioni WHERE identificativoRX = ?1 COLLATE NOCASE "
        "ORDER BY ID");
    q.bind(1, identificativo);
    sqlite::Statement update =
        db.prepare("UPDATE associazioni SET tempo_on1 = ?1, settimana = ?2 WHERE ID = ?3");
    const std::string tempo(basic::mid(riserva2, 7, 3));
    while (q.step()) {
        if (basic::mid(q.text(1), 9, 1) != "9") continue;  // not the emergency mode
        std::string settimana = q.text(2);
        basic::set_mid(settimana, 2, basic::left(value, 2));
        update.bind(1, tempo).bind(2, settimana).bind(3, q.integer(0));
        update.run();
        update.reset();
    }
    t.commit();
}

}  // namespace filo::store
