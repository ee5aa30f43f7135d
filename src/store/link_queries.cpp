#include "store/link_queries.hpp"

#include <cmath>

#include "bus/conversions.hpp"
#include "common/basic_functions.hpp"
#include "store/link_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "texts/language_tables.hpp"

namespace filo::store {
namespace {

using basic::left;
using basic::mid;
using basic::val;
using texts::Text;

// A text through Val, written back as the number it reads as.
std::string val_text(std::string_view text) {
    const double v = val(text);
    if (v == std::floor(v) && std::fabs(v) < 1e15) return std::to_string(static_cast<long long>(v));
    return std::to_string(v);
}

std::string flag_text(std::string_view modo, std::size_t position) {
    return mid(modo, position, 1) == "1" ? "SI" : "NO";
}

}  // namespace

std::string and_condition_message(const AndCondition& condition,
                                  const texts::LanguageTables& texts) {
    return texts.text(Text::AND_CONDITION_COMMAND) + condition.nick_trasmittente + "\n" +
           texts.text(Text::AND_CONDITION_OUTPUT) + condition.nick_ricevente + "\n\n" +
           texts.text(Text::AND_CONDITION_REMOVE_FIRST);
}

RepeatedNames CERCA_DOPPI(const std::vector<std::string>& outputs,
                          const std::vector<std::string>& inputs) {
    RepeatedNames result;
    auto mark = [&result](const std::vector<std::string>& names, std::vector<int>& red) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            for (std::size_t j = 0; j < names.size(); ++j) {
                if (i == j || names[i].empty() || names[i] != names[j]) continue;
                result.NOME_DOPPIO_TROVATO = "SI";
                red.push_back(static_cast<int>(i) + 1);
                break;
            }
        }
    };
    mark(outputs, result.red_outputs);
    mark(inputs, result.red_inputs);
    return result;
}

std::vector<ListEntry> LinkQueries::LEGGI_ASSOCIATI_A_UTILIZZATORE() {
    threshold_text.clear();
    threshold_source.clear();
    threshold_number.clear();
    std::vector<ListEntry> commands;
    for (const LinkRow& r : links_.rows_of_receiver(links_.LINK_CORRENTE.identificativoRX)) {
        const std::string& o = r.opzione;
        std::string text = r.nick_trasmittente;
        const std::string module(left(r.identificativoTX, 6));
        if (o == "a") {
            threshold_source = r.nick_trasmittente;
            threshold_number = r.numero_ingresso;
            threshold_text = threshold_source + "  " + threshold_number;
            text = texts_.text(Text::INPUT_THRESHOLD_SET_BY) + threshold_text;
        } else if (o == "T") {
            text = texts_.text(Text::INPUT_HELD_PUSHBUTTON) + "   " + r.nick_trasmittente;
        } else if (o == "E") {
            text = texts_.text(Text::EVENT_WORD) + r.nick_trasmittente;
            NOME_EVENTO = r.nick_trasmittente;
            TESTA_EVENTO();
            if (EVENTO_SCOMPARSO == 1) text += "       <<<< NON PIU' DISPONIBILE";
        } else if (o == "ES") {
            const std::string& m = r.nick_trasmittente;
            const std::string letter =
                m.size() > 1 && (m.back() == 'a' || m.back() == 'b' || m.back() == 'c')
                    ? std::string(" ") + m.back()
                    : "";
            text = module;
            if (m.starts_with("ALMENO1"))
                text += letter + texts_.text(Text::AGGREGATE_AT_LEAST_ONE);
            else if (m.starts_with("TUTTI"))
                text += letter + texts_.text(Text::AGGREGATE_ALL);
        } else if (o == "EP") {
            text = texts_.text(Text::PRESENCE_WARNING_MODULE) + module;
        }
        // The power-line command is the system's own link, and a channel row
        // no link of its own.
        if (text.empty() || o == "+" || text.starts_with("(COMANDO)")) continue;
        commands.push_back({std::move(text), r.ID});
    }
    return commands;
}

void LinkQueries::LEGGI_ASSOCIAZIONE(bool rgb) {
    LinkRow& lk = links_.LINK_CORRENTE;
    lk.opzione = " ";
    lk.tempo_on1 = lk.tempo_on2 = lk.tempo_off1 = lk.tempo_off2 = "0";
    lk.modo_ = "000000000";
    lk.on_ = lk.off_ = "0";
    LK_SPEGNIMENTO1 = LK_SPEGNIMENTO2 = "000";
    lk.and_ = "00000000";
    lk.minuto = lk.ora = lk.giorno = "00";
    lk.settimana = "00000000";

    sqlite::Statement q = project_.database().prepare(
        "SELECT ID FROM associazioni WHERE identificativoRX = ?1 COLLATE NOCASE AND "
        "identificativoTX = ?2 COLLATE NOCASE ORDER BY ID LIMIT 1");
    q.bind(1, lk.identificativoRX).bind(2, lk.identificativoTX);
    LinkRow row;
    if (!q.step() || !links_.read_row(q.integer(0), row)) {
        ESITO_ASSOCIAZIONE = kEsitoNuovo;
        return;
    }
    ESITO_ASSOCIAZIONE = kEsitoEsisteGia;
    links_.ID_LINK = row.ID;
    lk = row;
    lk.tempo_on1 = val_text(row.tempo_on1);
    lk.tempo_off1 = val_text(row.tempo_off1);
    LK_ON_PRECEDENTE = row.on_;
    LK_OFF_PRECEDENTE = row.off_;
    const std::string_view high = mid(row.dato13, 1, 3), low = mid(row.dato13, 4, 3);
    LK_SPEGNIMENTO1 = high.empty() ? "0" : std::string(high);
    LK_SPEGNIMENTO2 = low.empty() ? "0" : std::string(low);

    display_key.clear();
    for (const std::string* field :
         {&lk.numero_uscita, &lk.tempo_on1, &lk.tempo_on2, &lk.tempo_off1, &lk.tempo_off2})
        display_key += bus::DEC_A_BIN(*field);
    display_key += lk.and_;
    for (const std::string* field : {&lk.on_, &lk.off_, &lk.minuto, &lk.ora, &lk.giorno})
        display_key += bus::DEC_A_BIN(*field);
    display_key += lk.settimana;

    // The second set of values of each channel sits on the row after its
    // main row; a colour's event is marked on its main row.
    auto channel = [this](std::int64_t id, std::size_t first) {
        LinkRow next;
        if (!links_.read_row(id, next)) return;
        if (first == 0) {
            next_nick_trasmittente = next.nick_trasmittente;
            next_identificativoTX = next.identificativoTX;
        }
        const std::string values[9] = {next.on_,
                                       next.off_,
                                       val_text(next.tempo_off2),
                                       val_text(next.tempo_off1),
                                       val_text(next.tempo_on2),
                                       val_text(next.tempo_on1),
                                       next.minuto,
                                       flag_text(next.modo_, 2),
                                       flag_text(next.modo_, 8)};
        std::copy(std::begin(values), std::end(values), VALORI_AVANZATI.begin() + first);
    };
    auto events_of = [](std::string_view modo) {
        return mid(modo, 4, 2) == "11" ? std::string("EVENTI") : std::string();
    };
    const std::int64_t id = row.ID;
    channel(id + 1, 0);
    EVENTI_ROSSO = events_of(row.modo_);
    if (!rgb) return;
    channel(id + 3, 9);
    channel(id + 5, 18);
    LinkRow green, blue;
    EVENTI_VERDE = links_.read_row(id + 2, green) ? events_of(green.modo_) : "";
    EVENTI_BLU = links_.read_row(id + 4, blue) ? events_of(blue.modo_) : "";
}

std::vector<AndCondition> LinkQueries::CERCA_SE_USATO_COME_AND(std::string_view codice,
                                                               int numero_uscita) {
    std::vector<AndCondition> found = and_conditions_on(project_, codice, numero_uscita);
    USATO_COME_AND = found.empty() ? "N0" : "SI";
    return found;
}

std::vector<AndCondition> and_conditions_on(Project& project, std::string_view codice,
                                            int numero_uscita) {
    sqlite::Statement q = project.database().prepare(
        "SELECT ID, \"and\", nick_trasmittente, nick_ricevente FROM associazioni "
        "WHERE identificativoRX LIKE ?1 || '%' ORDER BY ID");
    q.bind(1, codice);
    std::vector<AndCondition> found;
    while (q.step()) {
        if (numero_uscita < 1 || mid(q.text(1), static_cast<std::size_t>(numero_uscita), 1) != "1")
            continue;
        found.push_back({q.integer(0), q.text(2), q.text(3)});
    }
    return found;
}

int links_from_aggregate(Project& project, std::string_view codice, char set) {
    // A link names the event by its marker, not by the set's name: renaming
    // a set keeps its links, taking the name away silences them.
    const std::string letter = set == ' ' ? std::string() : std::string(1, set);
    sqlite::Statement q = project.database().prepare(
        "SELECT COUNT(*) FROM associazioni WHERE substr(identificativoTX, 1, 7) = ?1 COLLATE "
        "NOCASE AND "
        "nick_trasmittente COLLATE BINARY IN (?2, ?3)");
    q.bind(1, std::string(codice) + "/");
    q.bind(2, "ALMENO1" + letter);
    q.bind(3, "TUTTI" + letter);
    q.step();
    return static_cast<int>(q.integer(0));
}

void LinkQueries::TESTA_EVENTO() {
    EVENTO_SCOMPARSO = 1;
    sqlite::Statement q = project_.database().prepare(
        "SELECT modo_ FROM associazioni WHERE nick_ricevente = ?1 COLLATE NOCASE");
    q.bind(1, NOME_EVENTO);
    while (q.step())
        if (val(mid(q.text(0), 5, 1)) == 1) EVENTO_SCOMPARSO = 0;
}

void LinkQueries::TESTA_EVENTO_SPECIALE(std::string_view codice) {
    EVENTO_SCOMPARSO = 1;
    sqlite::Statement q = project_.database().prepare(
        "SELECT riserva FROM nick WHERE codice = ?1 COLLATE NOCASE ORDER BY ID LIMIT 1 OFFSET 1");
    q.bind(1, codice);
    if (q.step() && !q.text(0).empty()) EVENTO_SCOMPARSO = 0;
}

void LinkQueries::CERCA_NOMI(std::string_view numero) {
    NOMI_PRESENTI.clear();
    sqlite::Statement q = project_.database().prepare(
        "SELECT nick, riserva FROM nick WHERE \"LEFT\"(codice,4) LIKE ?1 ORDER BY ID");
    q.bind(1, numero);
    while (q.step() && NOMI_PRESENTI.size() < 100)
        if (q.text(1) != "K") NOMI_PRESENTI.push_back(q.text(0));
}

}  // namespace filo::store
