#include "store/channels.hpp"

#include <cstdio>
#include <string>

#include "common/basic_functions.hpp"
#include "store/link_row.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {

void GatewayChannels::CONTROLLA_PRESENZA_KNG() {
    sqlite::Statement q = table_.project().database().prepare(
        "SELECT 1 FROM nick WHERE codice = ?1 COLLATE NOCASE LIMIT 1");
    q.bind(1, kCodiceCanali);
    if (q.step()) {
        table_.STATO_MODULO = kModuloEsistente;
        return;
    }
    table_.STATO_MODULO = kNuovoModulo;
    AGGIUNGI_KNG();
}

void GatewayChannels::AGGIUNGI_KNG() {
    sqlite::Connection& db = table_.project().database();
    sqlite::Transaction t(db);
    table_.LEGGI_N_PROGRESSIVO();
    sqlite::Statement last = db.prepare("SELECT COALESCE(MAX(ID), 0) FROM nick");
    last.step();
    std::int64_t id = last.integer(0);
    sqlite::Statement insert = db.prepare(
        "INSERT INTO nick (ID, codice, campo, numero_filo, nick, note, nick_numerico, modo, "
        "tipologia, connesso, riserva, riserva2, riserva3, riserva4, dati_aggiuntivi1) "
        "VALUES (?1, ?2, ?3, ?4, '', '', ?5, '', 'SPECIALE', '0', '', '', '', '', '')");
    for (int i = 1; i <= kCanali; ++i) {
        // campo is the channel in hexadecimal, the one row number of the
        // table that is not decimal.
        char campo[4];
        std::snprintf(campo, sizeof campo, "%X", i);
        insert.bind(1, ++id)
            .bind(2, kCodiceCanali)
            .bind(3, campo)
            .bind(4, std::to_string(i))
            .bind(5, table_.N_PROGRESSIVO + 1);
        insert.run();
        insert.reset();
    }
    t.commit();
}

void GatewayChannels::MODIFICA_KNG(int n) {
    sqlite::Connection& db = table_.project().database();
    sqlite::Transaction t(db);
    // The number's text form keeps a blank for its sign: "CANALE  12".
    const std::string name = "CANALE " + (n < 0 ? std::to_string(n) : " " + std::to_string(n));
    sqlite::Statement s = db.prepare(
        "UPDATE nick SET nick = ?1 WHERE ID = (SELECT ID FROM nick WHERE codice = ?2 COLLATE "
        "NOCASE AND numero_filo = ?3 ORDER BY ID LIMIT 1)");
    s.bind(1, name).bind(2, kCodiceCanali).bind(3, std::to_string(n));
    s.run();
    t.commit();
}

bool GatewayChannels::CERCA_CANALE() {
    sqlite::Statement q = table_.project().database().prepare(
        "SELECT numero_ingresso FROM associazioni WHERE nick_trasmittente = ?1 COLLATE NOCASE "
        "ORDER BY CINT(numero_ingresso) DESC, ID DESC LIMIT 1");
    q.bind(1, kNetGate);
    // A gap below the highest channel is not handed out again.
    CANALE_FORZATO = q.step() ? static_cast<int>(basic::cint(q.text(0))) + 1 : 1;
    if (CANALE_FORZATO == 250) {
        CANALE_FORZATO = 0;
        return true;
    }
    return false;
}

}  // namespace filo::store
