#include "store/link_table.hpp"

#include <algorithm>
#include <map>

#include "bus/conversions.hpp"
#include "common/basic_functions.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {
namespace {

using basic::mid;
using basic::val;

constexpr std::string_view kColumns =
    "SELECT ID, identificativoRX, identificativoTX, numero_uscita, nick_ricevente, "
    "numero_ingresso, nick_trasmittente, opzione, tempo_on1, tempo_on2, modo_, on_, off_, note, "
    "tempo_off1, tempo_off2, \"and\", minuto, ora, giorno, settimana, dato13, dato14 "
    "FROM associazioni ";

LinkRow row_from(const sqlite::Statement& q) {
    LinkRow r;
    int c = 0;
    r.ID = q.integer(c++);
    for (std::string* field : {&r.identificativoRX,
                               &r.identificativoTX,
                               &r.numero_uscita,
                               &r.nick_ricevente,
                               &r.numero_ingresso,
                               &r.nick_trasmittente,
                               &r.opzione,
                               &r.tempo_on1,
                               &r.tempo_on2,
                               &r.modo_,
                               &r.on_,
                               &r.off_,
                               &r.note,
                               &r.tempo_off1,
                               &r.tempo_off2,
                               &r.and_,
                               &r.minuto,
                               &r.ora,
                               &r.giorno,
                               &r.settimana,
                               &r.dato13,
                               &r.dato14})
        *field = q.text(c++);
    return r;
}

const char* flag_if(const std::string& modo, std::size_t position, const char* text) {
    return mid(modo, position, 1) == "1" ? text : "";
}

}  // namespace

bool LinkTable::read_row(std::int64_t id, LinkRow& row) {
    sqlite::Statement q = project_.database().prepare(std::string(kColumns) + "WHERE ID = ?1");
    q.bind(1, id);
    if (!q.step()) return false;
    row = row_from(q);
    return true;
}

std::vector<LinkRow> LinkTable::rows_of_receiver(std::string_view identificativoRX) {
    sqlite::Statement q = project_.database().prepare(
        std::string(kColumns) + "WHERE identificativoRX = ?1 COLLATE NOCASE ORDER BY ID");
    q.bind(1, identificativoRX);
    std::vector<LinkRow> rows;
    while (q.step()) rows.push_back(row_from(q));
    return rows;
}

void LinkTable::LEGGI_LINK() {
    TABELLA_LINK.clear();
    // Rows without a receiver are second pages: nothing reads them from here.
    sqlite::Statement q = project_.database().prepare(std::string(kColumns) +
                                                      "WHERE identificativoRX <> '' ORDER BY ID");
    while (q.step()) {
        LinkRow r = row_from(q);
        if (r.identificativoTX.size() < 4)
            r.identificativoTX.insert(0, 4 - r.identificativoTX.size(), '0');
        r.on_ = on_off_bus_value(r.on_);
        r.off_ = on_off_bus_value(r.off_);
        r.minuto = minuto_bus_value(r.minuto);
        // The message module keeps message bits here, not days of the week.
        if (mid(r.identificativoRX, 5, 2) != "1E")
            r.settimana = std::to_string(bus::bits_byte(r.settimana));
        TABELLA_LINK.push_back(std::move(r));
    }
}

void LinkTable::AGGIUNGI_LINK() {
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    sqlite::Statement last = db.prepare("SELECT COALESCE(MAX(ID), 0) FROM associazioni");
    last.step();
    const std::int64_t id = last.integer(0) + 1;
    sqlite::Statement insert = db.prepare(
        "INSERT INTO associazioni (ID, identificativoRX, identificativoTX, numero_uscita, "
        "nick_ricevente, numero_ingresso, nick_trasmittente, opzione, tempo_on1, tempo_on2, modo_, "
        "on_, off_, note, tempo_off1, tempo_off2, \"and\", minuto, ora, giorno, settimana, dato13, "
        "dato14) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, "
        "?17, ?18, ?19, ?20, ?21, ?22, '')");
    const LinkRow& l = LINK_CORRENTE;
    int p = 1;
    insert.bind(p++, id);
    // dato14 is written empty.
    for (std::size_t c = 0; c + 1 < kLinkColumns.size(); ++c)
        insert.bind(p++, l.*kLinkColumns[c].field);
    insert.run();
    t.commit();
    PROSSIMO_ID_LINK = id + 1;
}

void LinkTable::CANCELLA_LINK() {
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    sqlite::Statement del = db.prepare("DELETE FROM associazioni WHERE ID = ?1");
    del.bind(1, ID_LINK);
    del.run();
    CANCELLA_LINK_SUCESSIVO();
    t.commit();
}

void LinkTable::CANCELLA_LINK_SUCESSIVO() {
    LinkRow next;
    if (!read_row(ID_LINK + 1, next)) return;
    if (!is_continuation(next)) return;  // the next link's own first row
    sqlite::Statement del = project_.database().prepare("DELETE FROM associazioni WHERE ID = ?1");
    del.bind(1, ID_LINK + 1);
    del.run();
}

void LinkTable::CERCA_IN_SE_COLLEGATO(const std::string& nome) {
    COLLEGATO.clear();
    if (nome.empty()) return;
    sqlite::Statement q = project_.database().prepare(
        "SELECT nick_ricevente FROM associazioni WHERE nick_trasmittente = ?1 COLLATE NOCASE "
        "ORDER BY ID LIMIT 1");
    q.bind(1, nome);
    if (!q.step()) return;
    RICEVENTE_COLLEGATO = q.text(0);
    COLLEGATO = "SI";
}

void LinkTable::CERCA_OUT_SE_COLLEGATO(const std::string& nome) {
    COLLEGATO.clear();
    if (nome.empty()) return;
    sqlite::Statement q = project_.database().prepare(
        "SELECT 1 FROM associazioni WHERE nick_ricevente = ?1 COLLATE NOCASE LIMIT 1");
    q.bind(1, nome);
    if (q.step()) COLLEGATO = "SI";
}

void LinkTable::AGGIORNA_NICK_NEI_LINK_DA_FORM5(const std::string& codice,
                                                const ModuleRecord& module) {
    // The name each point number gives: outputs as receivers, inputs (and
    // their held commands, and the events of the outputs) as commands.
    std::map<std::string, std::string> receiver_names, command_names;
    const std::string type(mid(codice, 5, 2));
    const bool flags = type == "11" || type == "12" || type == "15" || type == "25";
    const int last_output = std::min(module.N_RIGHE_MODULO(), flags ? 32 : 16);
    const auto number = [](const NickRow& r) { return static_cast<long long>(val(r.numero_filo)); };
    for (int i = 9; i <= last_output; ++i)
        receiver_names[std::to_string(number(module.riga(i)))] = module.riga(i).nick;
    for (int i = 1; i <= 8 && i <= module.N_RIGHE_MODULO(); ++i) {
        command_names[std::to_string(number(module.riga(i)))] = module.riga(i).nick;
        command_names[std::to_string(number(module.riga(i)) + 8)] = module.riga(i).nick;  // held
    }
    // Events of outputs 1 to 8 are the command numbers 17 to 24.
    for (int n = 17; n <= 24 && n - 8 <= module.N_RIGHE_MODULO(); ++n)
        command_names[std::to_string(n)] = module.riga(n - 8).nick;

    // One pass over the links of the module, then the rows that change.
    sqlite::Connection& db = project_.database();
    sqlite::Transaction t(db);
    sqlite::Statement q = db.prepare(
        "SELECT ID, \"LEFT\"(identificativoRX,6) = ?1 COLLATE NOCASE, numero_uscita, "
        "\"LEFT\"(identificativoTX,6) = ?1 COLLATE NOCASE, numero_ingresso FROM associazioni "
        "WHERE \"LEFT\"(identificativoRX,6) = ?1 COLLATE NOCASE OR "
        "\"LEFT\"(identificativoTX,6) = ?1 COLLATE NOCASE");
    q.bind(1, codice);
    struct Change {
        std::int64_t id;
        const std::string* receiver;
        const std::string* command;
    };
    std::vector<Change> changes;
    while (q.step()) {
        Change c{q.integer(0), nullptr, nullptr};
        if (q.integer(1) != 0)
            if (auto it = receiver_names.find(q.text(2)); it != receiver_names.end())
                c.receiver = &it->second;
        if (q.integer(3) != 0)
            if (auto it = command_names.find(q.text(4)); it != command_names.end())
                c.command = &it->second;
        if (c.receiver || c.command) changes.push_back(c);
    }
    sqlite::Statement receiver =
        db.prepare("UPDATE associazioni SET nick_ricevente = ?1 WHERE ID = ?2");
    sqlite::Statement command =
        db.prepare("UPDATE associazioni SET nick_trasmittente = ?1 WHERE ID = ?2");
    for (const Change& c : changes) {
        if (c.receiver) {
            receiver.bind(1, *c.receiver).bind(2, c.id);
            receiver.run();
            receiver.reset();
        }
        if (c.command) {
            command.bind(1, *c.command).bind(2, c.id);
            command.run();
            command.reset();
        }
    }
    t.commit();
}

void LinkTable::CERCA_LINK_E() {
    ESITO_LINK.clear();
    ID_LINK = 0;
    sqlite::Statement q = project_.database().prepare(
        "SELECT ID, note FROM associazioni WHERE identificativoRX = ?1 COLLATE NOCASE AND "
        "identificativoTX = ?2 COLLATE NOCASE ORDER BY ID LIMIT 1");
    q.bind(1, LINK_CORRENTE.identificativoRX).bind(2, LINK_CORRENTE.identificativoTX);
    if (!q.step()) {
        ESITO_LINK = kEsitoNuovo;
        return;
    }
    ESITO_LINK = q.text(1) == kImpostaValoreRiferimento ? kEsitoImposta : kEsitoEsisteGia;
    ID_LINK = q.integer(0);
}

void LinkTable::CERCA_LINK_SUCESSIVO(std::int64_t id) {
    LinkRow row;
    ESITO_LINK = read_row(id, row) ? kEsitoEsisteGia : kEsitoNuovo;
}

void LinkTable::CERCA_LINK_PER_ID(std::int64_t id, int livello) {
    ESITO_LINK.clear();
    LinkRow r;
    if (!read_row(id, r)) {
        ESITO_LINK = kEsitoNuovo;
        return;
    }
    ESITO_LINK = kEsitoEsisteGia;
    if (livello < 2) return;

    const std::string on = std::to_string(time_value(r.tempo_on1, r.tempo_on2));
    const std::string off = std::to_string(time_value(r.tempo_off1, r.tempo_off2));
    LinkRow next;
    const std::string spe = std::to_string(read_row(id + 1, next) ? dato13_value(next.dato13) : 0);
    const std::string lampeggio = mid(r.settimana, 1, 1) == "1" ? "Lampeggio ON" : "";
    const std::string modo(mid(r.modo_, 1, 8));
    const std::string title = r.identificativoTX + "  --->   " + r.identificativoRX + "\n" +
                              r.nick_trasmittente + "   --->   " + r.nick_ricevente;
    const std::string values = "Valore on=" + r.on_ + " Valore off=" + r.off_;

    if (r.nick_ricevente.starts_with("MESSAGGIO")) {
        TESTO_LINK = title + "\n\nModo=" + modo;
    } else if (val(r.numero_uscita) < 9) {
        std::string flags = flag_if(r.modo_, 2, "USA VALORE COMPARATO  ");
        flags += flag_if(r.modo_, 4, "EVENTO SI  ");
        flags += flag_if(r.modo_, 5, "EVENTO SI  ");
        flags += flag_if(r.modo_, 6, "CONSIDERA INGRESSO INVERTITO  ");
        flags += flag_if(r.modo_, 8, "PASSO PASSO  ");
        flags += flag_if(r.modo_, 7, "TEMPO RETRIG. ");
        TESTO_LINK = title + "\nT.ON=" + on + "      T.RIT.ACCENSIONE=" + off +
                     "       T.RIT.SPEGNIMENTO=" + spe + "\nModo=" + modo + "\n" + flags + "\n" +
                     values + "\n" + lampeggio;
    } else {
        std::string flags = flag_if(r.modo_, 2, "USA VALORE COMPARATO  ");
        flags += flag_if(r.modo_, 6, "CONSIDERA INGRESSO INVERTITO  ");
        TESTO_LINK = title + "\n\nModo=" + modo + "\n" + flags + "\n" + values + "\n" + lampeggio;
    }
}

void LinkTable::DATI_DEL_LINK(std::int64_t id) {
    LinkRow r;
    if (!read_row(id, r)) {
        ESITO_LINK = kEsitoNuovo;
        return;
    }
    LinkDetails d;
    d.identificativoRX = r.identificativoRX;
    d.tempo_on = time_value(r.tempo_on1, r.tempo_on2);
    d.tempo_off = time_value(r.tempo_off1, r.tempo_off2);
    d.lampeggio = mid(r.settimana, 1, 1) == "1" ? "Lampeggio ON" : "";
    d.modo = std::string(mid(r.modo_, 1, 8));
    d.and_ = r.and_;
    d.numero_uscita = r.numero_uscita;
    d.nick_ricevente = r.nick_ricevente;
    d.on_ = r.on_;
    d.off_ = r.off_;
    LinkRow next;
    if (read_row(id + 1, next)) d.tempo_spegnimento = dato13_value(next.dato13);
    DATI_LINK = d;
}

}  // namespace filo::store
