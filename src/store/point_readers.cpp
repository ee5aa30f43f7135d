// The smaller readers of table nick that windows and the export use: the
// messages of a message module, the radio receivers, the card reader groups.
#include "common/basic_functions.hpp"
#include "store/channels.hpp"
#include "store/link_queries.hpp"
#include "store/link_row.hpp"
#include "store/point_lists.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "texts/language_tables.hpp"

namespace filo::store {

MessageList PointLists::ELENCO_MESSAGGI(std::string_view codice_modulo, std::string_view bits) {
    sqlite::Statement q = project_.database().prepare(
        "SELECT nick, numero_filo, riserva FROM nick WHERE codice = ?1 COLLATE NOCASE "
        "ORDER BY nick COLLATE NOCASE, ID");
    q.bind(1, codice_modulo);
    MessageList list;
    while (q.step()) {
        std::string nick = q.text(0);
        if (nick.empty() || q.text(2) == "K") continue;
        const auto number = static_cast<std::int64_t>(basic::val(q.text(1)));
        const bool sent = number >= 1 && number <= 96 &&
                          basic::mid(bits, static_cast<std::size_t>(97 - number), 1) == "1";
        list.entries.push_back({std::move(nick), number});
        list.selected.push_back(sent);
    }
    return list;
}

std::vector<ListEntry> PointLists::ELENCO_ANALOGICI(GatewayChannels& channels, LinkQueries& queries,
                                                    std::string_view STESSO_MODO,
                                                    std::int64_t ID_COMANDO) {
    std::vector<ListEntry> list;
    all_channels_used = channels.CERCA_CANALE();
    if (STESSO_MODO == "SI") {
        // The link being edited keeps its channel.
        queries.LEGGI_ASSOCIATI_A_UTILIZZATORE();
        if (queries.threshold_source == kNetGate)
            channels.CANALE_FORZATO = static_cast<int>(basic::cint(queries.threshold_number));
    }
    list.push_back({"Net Gate  canale " + std::to_string(channels.CANALE_FORZATO),
                    channels.CANALE_FORZATO + kCanaleItemData});

    sqlite::Statement q = project_.database().prepare(
        "SELECT ID, nick, riserva, modo, note FROM nick WHERE tipologia LIKE 'INPUT' "
        "ORDER BY nick COLLATE NOCASE, ID");
    while (q.step()) {
        const std::int64_t id = q.integer(0);
        const std::string nick = q.text(1);
        if (nick.empty() || id == ID_COMANDO || q.text(2) == "K") continue;
        const std::string letter(basic::left(q.text(3), 1));
        texts::Text prefix;
        if (letter == "A")
            prefix = texts::Text::INPUT_ANALOG;
        else if (letter == "B")
            prefix = texts::Text::INPUT_TEMPERATURE_REFERENCE;
        else if (letter == "z" && q.text(4).starts_with("CRONO"))
            prefix = texts::Text::INPUT_EXTERNAL_THERMOSTAT;
        else
            continue;
        list.push_back({texts_.text(prefix) + nick, id});
    }
    return list;
}

std::optional<int> PointLists::LEGGI_TIPO_radio() {
    sqlite::Statement q =
        project_.database().prepare("SELECT COUNT(*) FROM nick WHERE codice LIKE '____4A'");
    q.step();
    const auto rows = static_cast<int>(q.integer(0));
    if (rows == 0) return std::nullopt;
    return rows;
}

std::vector<TransponderRow> PointLists::LEGGI_TIPO_1A() {
    sqlite::Statement q = project_.database().prepare(
        "SELECT riserva, nick, codice FROM nick WHERE codice LIKE '____1A' AND campo = '1' "
        "ORDER BY riserva COLLATE NOCASE, ID");
    struct Reader {
        std::string riserva, nick, codice;
    };
    std::vector<Reader> readers;
    while (q.step()) readers.push_back({q.text(0), q.text(1), q.text(2)});

    // Readers of one group (the same riserva) go four to a row; a fifth
    // starts a further row of the same group.
    std::vector<TransponderRow> rows;
    for (std::size_t i = 0; i < readers.size();) {
        TransponderRow row;
        row.A = readers[i].riserva;
        row.B = readers[i].nick;
        row.C = readers[i].codice;
        ++i;
        for (std::string* field : {&row.D, &row.E, &row.F}) {
            if (i == readers.size() || readers[i].riserva != row.A) break;
            *field = readers[i++].codice;
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace filo::store
