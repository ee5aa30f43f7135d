#include "store/module_table.hpp"

#include <algorithm>
#include <cmath>

#include "common/basic_functions.hpp"
#include "store/powerline.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {
namespace {

using basic::mid;
using basic::val;

const std::string kFiftyZeros(50, '0');
const std::string kTwentySixZeros(26, '0');

constexpr std::string_view kSelectColumns =
    "SELECT ID, codice, campo, numero_filo, nick, note, nick_numerico, modo, tipologia, connesso, "
    "riserva, riserva2, riserva3, riserva4, dati_aggiuntivi1 FROM nick ";

enum Column {
    kId,
    kCodice,
    kCampo,
    kNumeroFilo,
    kNick,
    kNote,
    kNickNumerico,
    kModo,
    kTipologia,
    kConnesso,
    kRiserva,
    kRiserva2,
    kRiserva3,
    kRiserva4,
    kDatiAggiuntivi1
};

sqlite::Statement rows_of_module(sqlite::Connection& db, std::string_view codice) {
    sqlite::Statement q =
        db.prepare(std::string(kSelectColumns) + "WHERE codice = ?1 COLLATE NOCASE ORDER BY ID");
    q.bind(1, codice);
    return q;
}

std::vector<std::int64_t> ids_of_module(sqlite::Connection& db, std::string_view codice) {
    sqlite::Statement q =
        db.prepare("SELECT ID FROM nick WHERE codice = ?1 COLLATE NOCASE ORDER BY ID");
    q.bind(1, codice);
    std::vector<std::int64_t> ids;
    while (q.step()) ids.push_back(q.integer(0));
    return ids;
}

// A Number column read into a string, as the stored value prints.
std::string number_text(const sqlite::Statement& q, int column) {
    return q.is_null(column) ? std::string() : q.text(column);
}

// The numeric value of a text, written as a whole number when it is one.
std::string numeric_text(std::string_view text) {
    double v = val(text);
    if (v == std::floor(v) && std::fabs(v) < 1e15) return std::to_string(static_cast<long long>(v));
    return std::to_string(v);
}

// The row as stored, Null read as "".
NickRow row_from(const sqlite::Statement& q) {
    NickRow r;
    r.ID = q.integer(kId);
    r.codice = q.text(kCodice);
    r.campo = q.text(kCampo);
    r.numero_filo = q.text(kNumeroFilo);
    r.nick = q.text(kNick);
    r.note = q.text(kNote);
    r.modo = q.text(kModo);
    r.tipologia = q.text(kTipologia);
    r.connesso = q.text(kConnesso);
    r.riserva = q.text(kRiserva);
    r.riserva2 = q.text(kRiserva2);
    r.riserva3 = q.text(kRiserva3);
    r.riserva4 = q.text(kRiserva4);
    r.dati_aggiuntivi1 = q.text(kDatiAggiuntivi1);
    return r;
}

void bind_row_columns(sqlite::Statement& s, const NickRow& r) {
    s.bind(1, r.codice)
        .bind(2, r.campo)
        .bind(3, r.nick)
        .bind(4, r.note)
        .bind(5, r.modo)
        .bind(6, r.tipologia)
        .bind(7, r.connesso)
        .bind(8, r.riserva)
        .bind(9, r.riserva2)
        .bind(10, r.riserva3)
        .bind(11, r.riserva4)
        .bind(12, r.dati_aggiuntivi1);
}

}  // namespace

void ModuleTable::LEGGI_MODULO(std::string_view codice) {
    RISERVA3_RIGA1_USATA.clear();
    RISERVA3_RIGHE23_USATE.clear();
    sqlite::Statement q = rows_of_module(project_.database(), codice);
    std::vector<NickRow> rows;
    std::string nick_numerico;
    const bool panel_interface = mid(codice, 5, 2) == "1E";
    bool parameters_checked = false;
    while (q.step()) {
        NickRow& r = rows.emplace_back(row_from(q));
        nick_numerico = number_text(q, kNickNumerico);
        if (panel_interface && !q.is_null(kRiserva2)) {
            // The panel interface keeps texts in these columns, not fixed-width
            // fields: they are taken as stored.
            continue;
        }
        // A short field reads as all zeros.
        if (!q.is_null(kRiserva2) && r.riserva2.size() < 50) r.riserva2 = kFiftyZeros;
        if (r.riserva4.size() < 50) r.riserva4 = kFiftyZeros;
        parameters_checked = true;
    }
    if (rows.empty()) {
        STATO_MODULO = kNuovoModulo;  // the record keeps what it held
        return;
    }
    STATO_MODULO = kModuloEsistente;
    if (parameters_checked) {
        // Row 1 holds the module's parameters (26 digits); rows 2 and 3 of some
        // types hold bit strings. Any of them set opens the module's extra page.
        NickRow& first = rows[0];
        if (first.riserva3.size() < 16) first.riserva3 = kTwentySixZeros;
        if (val(first.riserva3) > 0) RISERVA3_RIGA1_USATA = "SI";
        if ((rows.size() > 1 && val(rows[1].riserva3) > 0) ||
            (rows.size() > 2 && val(rows[2].riserva3) > 0))
            RISERVA3_RIGHE23_USATE = "SI";
    }
    RIGHE_MODULO.rows = std::move(rows);
    RIGHE_MODULO.M_NICK_NUMERICO = nick_numerico;
}

std::vector<NickRow> ModuleTable::read_rows(std::string_view codice) {
    sqlite::Statement q = rows_of_module(project_.database(), codice);
    std::vector<NickRow> rows;
    while (q.step()) rows.push_back(row_from(q));
    return rows;
}

void ModuleTable::LEGGI_INFORMAZIONE(std::string_view numero, std::string_view campo) {
    sqlite::Statement q = project_.database().prepare(
        "SELECT nick, codice FROM nick WHERE \"LEFT\"(codice,4) LIKE ?1 AND \"RIGHT\"(codice,2) "
        "NOT LIKE "
        "'FF' AND campo = ?2 COLLATE NOCASE ORDER BY ID LIMIT 1");
    q.bind(1, numero).bind(2, campo);
    if (q.step()) {
        INFO_NICK = q.text(0);
        INFO_CODICE = q.text(1);
        STATO_MODULO = kModuloEsistente;
    } else {
        STATO_MODULO = kNuovoModulo;
    }
}

void ModuleTable::VERIFICA_MODULO(std::string_view codice) {
    sqlite::Statement q = project_.database().prepare(
        "SELECT codice FROM nick WHERE \"LEFT\"(codice,4) LIKE ?1 ORDER BY ID");
    q.bind(1, mid(codice, 1, 4));
    std::size_t count = 0;
    std::string first;
    bool live = false;
    while (q.step()) {
        std::string code = q.text(0);
        // A live module of the number is news before the deleted rows that
        // may share it.
        const bool deleted = basic::right(code, 2) == "FF";
        if (count++ == 0 || (!live && !deleted)) first = std::move(code);
        live = live || !deleted;
    }
    if (count == 0) {
        STATO_MODULO = kNuovoModulo;
        return;
    }
    // Only the count and the first code are news; a first code ending in FF
    // tells a number that is free again.
    STATO_MODULO = kModuloEsistente;
    RIGHE_MODULO.rows.resize(count);
    RIGHE_MODULO.rows[0].codice = first;
}

void ModuleTable::LEGGI_RIGA_ID(std::int64_t id) {
    sqlite::Statement q =
        project_.database().prepare(std::string(kSelectColumns) + "WHERE ID = ?1");
    q.bind(1, id);
    if (!q.step()) return;
    RIGA_CODICE = q.text(kCodice);
    RIGA_NUMERO_FILO = q.text(kNumeroFilo);
    RIGA_NICK = q.text(kNick);
    RIGA_NICK_NUMERICO = number_text(q, kNickNumerico);
    RIGA_MODO = q.text(kModo);
    RIGA_TIPOLOGIA = q.text(kTipologia);
    RIGA_CONNESSO = q.text(kConnesso);
    RIGA_RISERVA2 = q.text(kRiserva2);
    RIGA_VALORE7 = static_cast<int>(val(mid(RIGA_RISERVA2, 7, 3)));
}

void ModuleTable::LEGGI_N_PROGRESSIVO() {
    // The last row in nick_numerico order is the highest number.
    sqlite::Statement q = project_.database().prepare(
        "SELECT nick_numerico FROM nick WHERE campo = '1' ORDER BY nick_numerico DESC, ID DESC "
        "LIMIT 1");
    if (q.step()) N_PROGRESSIVO = static_cast<int>(q.integer(0));
}

void ModuleTable::MODIFICA_MODULO() {
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    std::vector<std::int64_t> ids = ids_of_module(db, CODICE_MODULO);
    if (ids.empty()) return;
    if (RIGHE_MODULO.rows.size() > ids.size())
        throw ProjectError(ProjectProblem::Unreadable,
                           "module " + CODICE_MODULO + " has " + std::to_string(ids.size()) +
                               " rows in the project, the record " +
                               std::to_string(RIGHE_MODULO.rows.size()));
    sqlite::Statement update = db.prepare(
        "UPDATE nick SET codice = ?1, campo = ?2, nick = ?3, note = ?4, modo = ?5, tipologia = ?6, "
        "connesso = ?7, riserva = ?8, riserva2 = ?9, riserva3 = ?10, riserva4 = ?11, "
        "dati_aggiuntivi1 = ?12, numero_filo = ?13 WHERE ID = ?14");
    for (std::size_t i = 0; i < RIGHE_MODULO.rows.size(); ++i) {
        NickRow& r = RIGHE_MODULO.rows[i];
        NickRow written = r;
        if (CANCELLA_IN_SALVATAGGIO == "SI") {
            basic::set_mid(r.codice, 5, "FF");
            written.codice = r.codice;
            written.riserva = "K";
            written.tipologia.clear();
            written.note.clear();
        }
        bind_row_columns(update, written);
        update.bind(13, written.numero_filo).bind(14, ids[i]);
        update.run();
        update.reset();
        // A point of a module with emergency handling carries its setting
        // into its emergency links.
        const std::string_view state = mid(written.connesso, 2, 1);
        if (state == "E" || state == "e")
            AGGIORNA_LINK_EMERGENZA(project_, written.codice + "/" + written.numero_filo,
                                    written.riserva2, state == "E" ? "10" : "11");
    }
    t.commit();
}

void ModuleTable::CANCELLA_MODULO() {
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    std::vector<std::int64_t> ids = ids_of_module(db, CODICE_MODULO);
    std::string deleted = CODICE_MODULO;
    basic::set_mid(deleted, 5, "FF");
    sqlite::Statement update = db.prepare(
        "UPDATE nick SET codice = ?1, riserva = 'K', tipologia = '', note = '' WHERE ID = ?2");
    const std::size_t n = std::min(ids.size(), RIGHE_MODULO.rows.size());
    for (std::size_t i = 0; i < n; ++i) {
        update.bind(1, deleted).bind(2, ids[i]);
        update.run();
        update.reset();
    }
    t.commit();
}

void ModuleTable::AGGIUNGI_MODULO() {
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    // Rows are never removed from nick, so the next ID is the row count + 1;
    // the highest ID + 1 is the same number and stays right in a table that
    // another tool has thinned out.
    sqlite::Statement last = db.prepare("SELECT COALESCE(MAX(ID), 0) FROM nick");
    last.step();
    std::int64_t id = last.integer(0);
    sqlite::Statement insert = db.prepare(
        "INSERT INTO nick (codice, campo, nick, note, modo, tipologia, connesso, riserva, "
        "riserva2, "
        "riserva3, riserva4, dati_aggiuntivi1, numero_filo, ID, nick_numerico) "
        "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15)");
    for (const NickRow& r : RIGHE_MODULO.rows) {
        bind_row_columns(insert, r);
        insert.bind(13, numeric_text(r.numero_filo)).bind(14, ++id);
        if (RIGHE_MODULO.M_NICK_NUMERICO.empty())
            insert.bind_null(15);
        else
            insert.bind(15, static_cast<std::int64_t>(val(RIGHE_MODULO.M_NICK_NUMERICO)));
        insert.run();
        insert.reset();
    }
    t.commit();
}

void ModuleTable::set_codice_modulo(std::string_view codice) {
    CODICE_MODULO = std::string(codice);
    TIPO_MODULO = std::string(basic::mid(codice, 5, 2));
}

}  // namespace filo::store
