// The outputs and the commands of the link editor.
#include "store/point_lists.hpp"

#include <algorithm>
#include <unordered_map>

#include "common/basic_functions.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "store/text_match.hpp"
#include "texts/language_tables.hpp"

namespace filo::store {
namespace {

using basic::left;
using basic::mid;
using basic::right;
using basic::val;
using texts::Text;

// Headers of the command groups, indented as the list shows them.
std::string header(std::size_t blanks, std::string_view title) {
    return std::string(blanks, ' ') + std::string(title);
}
const std::string kContatti = header(48, "-------CONTATTI-------");
const std::string kVideocitofono = header(44, "-------VIDEOCITOFONO-------");
const std::string kRemoti = header(48, "-------REMOTI--------");
const std::string kAnalogici = header(47, "-------ANALOGICI---------");
const std::string kSensori = header(47, "-------SENSORI-----------");
const std::string kTermostati = header(47, "-------TERMOSTATI---------");
const std::string kSicurezza = header(50, "------SICUREZZA------");
const std::string kEventiCambioStato = header(32, "-------EVENTI DI CAMBIO STATO---------");
const std::string kEventi = header(48, "-------EVENTI---------");
const std::string kAggregazioni = header(47, "-------AGGREGAZIONI---------");

// What a walk reads of a row: the columns every walk needs, and one or two
// more that the walk names (as SQL expressions, so that only the part of a
// long field that is used is read).
struct PointRow {
    std::int64_t ID = 0;
    std::string codice;
    int campo = 0;
    std::string nick;
    std::string extra, extra2;
};

// A named row not hidden by a riserva of exactly "K".
constexpr std::string_view kLive = "nick <> '' AND IFNULL(riserva, '') <> 'K' COLLATE BINARY";

std::vector<PointRow> read_points(sqlite::Connection& db, std::string_view extra,
                                  std::string_view extra2, std::string_view where_and_order,
                                  std::string_view parameter = {}) {
    sqlite::Statement q =
        db.prepare("SELECT ID, codice, campo, nick, " + std::string(extra) + ", " +
                   std::string(extra2) + " FROM nick WHERE " + std::string(where_and_order));
    if (!parameter.empty()) q.bind(1, parameter);
    std::vector<PointRow> rows;
    while (q.step())
        rows.push_back({q.integer(0), q.text(1), static_cast<int>(val(q.text(2))), q.text(3),
                        q.text(4), q.text(5)});
    return rows;
}

bool passes_code_filter(const PointRow& r, std::string_view filter) {
    return filter.empty() || equal_ignoring_ascii_case(left(r.codice, 6), filter);
}

constexpr std::string_view kByNick = " ORDER BY nick COLLATE NOCASE, ID";
constexpr std::string_view kById = " ORDER BY ID";

// A list in the making: a group's header goes in just before the first of
// its entries that passes the name filter, so an empty group leaves no trace.
class GroupedList {
  public:
    GroupedList(std::vector<ListEntry>& list, std::string_view name_filter)
        : list_(list), filter_(name_filter) {}

    void group(const std::string& title) {
        header_ = title;
        header_pending_ = true;
    }
    // False when the name filter drops the entry.
    bool add(std::string text, std::int64_t item_data) {
        if (!passes_name_filter(text, filter_)) return false;
        if (header_pending_) {
            list_.push_back({header_, kGroupHeaderItemData});
            header_pending_ = false;
        }
        list_.push_back({std::move(text), item_data});
        return true;
    }

  private:
    std::vector<ListEntry>& list_;
    std::string_view filter_;
    std::string header_;
    bool header_pending_ = false;
};

// The receivers' names of the link rows that make their output generate
// events (modo_ character 5), in link order.
std::vector<std::string> event_receivers(sqlite::Connection& db) {
    sqlite::Statement q = db.prepare(
        "SELECT nick_ricevente FROM associazioni WHERE identificativoRX <> '' AND "
        "substr(modo_, 5, 1) = '1' ORDER BY ID");
    std::vector<std::string> names;
    while (q.step()) names.push_back(ascii_folded(q.text(0)));
    return names;
}

std::string live(std::string_view condition, std::string_view order) {
    return std::string(condition) + " AND " + std::string(kLive) + std::string(order);
}

}  // namespace

void PointLists::CARICA_PUNTI_UTILIZZATORI() {
    sqlite::Connection& db = project_.database();
    std::vector<ListEntry>& list = Combo_UTILIZZATORI;
    list.clear();
    if (STATO_GRUPPO == "CREATO") {
        list.push_back({"USA GRUPPO", 0});
        list.push_back({"VISUALIZZA GRUPPO", 0});
    }
    const std::string& code_filter = filters.codice_utilizzatori;
    const std::string& name_filter = filters.nome_utilizzatori;
    // numero_filo decides the block of a relay: outputs from 9 up have their own.
    auto family = [&](std::string_view pattern, std::int64_t offset, bool relays = false) {
        for (const PointRow& r :
             read_points(db, "numero_filo", "''", live("tipologia LIKE ?1", kByNick), pattern)) {
            if (!passes_code_filter(r, code_filter) || !passes_name_filter(r.nick, name_filter))
                continue;
            const bool high = relays && val(r.extra) >= 9;
            list.push_back({r.nick, r.ID + offset + (high ? 100000 : 0)});
        }
    };
    family("RELE%", 0, true);
    family("VCITOF%", 0);
    family("SPIA%", 200000);

    // An RGB point is its three channels, rows 9, 10 and 11 of the module.
    std::string rgb_text, rgb_code;
    std::int64_t rgb_id = 0;
    bool rgb_open = false;
    for (const PointRow& r : read_points(db, "''", "''", live("tipologia LIKE 'RGB%'", kById))) {
        if (!passes_code_filter(r, code_filter)) continue;
        if (r.campo == 9) {
            rgb_text = "RGB --->  " + r.nick;
            rgb_code = r.codice;
            rgb_id = r.ID;
            rgb_open = true;
        } else if (rgb_open && r.codice == rgb_code && (r.campo == 10 || r.campo == 11)) {
            rgb_text += "  " + r.nick;
            if (r.campo == 11) {
                rgb_open = false;
                if (passes_name_filter(rgb_text, name_filter))
                    list.push_back({rgb_text, rgb_id + 500000});
            }
        }
    }
    family("DIMMER%", 300000);
    family("B_LUCE%", 400000);
    family("MODULATORE%", 600000);
    family("REGOLATORE%", 700000);

    // A message module is one entry, whatever the number of its messages.
    std::string last_code;
    for (const PointRow& r : read_points(db, "note", "''",
                                         live("tipologia LIKE 'OUT_SERIALE%' AND riserva2 <> ''",
                                              " ORDER BY codice COLLATE NOCASE, ID"))) {
        if (r.codice == last_code) continue;
        last_code = r.codice;
        std::string_view note = r.extra;
        if (note.starts_with('*')) note.remove_prefix(1);
        // The leading "1" keeps the code's leading zeros in the number.
        list.push_back({"MESSAGGIO del modulo " + std::string(note),
                        static_cast<std::int64_t>(val("&H1" + r.codice))});
    }
    if (STATO_GRUPPO == "VUOTO") list.push_back({"CREA GRUPPO", 0});
}

void PointLists::CARICA_PUNTI_TRASMITTENTI() {
    sqlite::Connection& db = project_.database();
    Combo_COMANDI.clear();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    {
        // No inputs at all: not even the safety group.
        sqlite::Statement any =
            db.prepare("SELECT 1 FROM nick WHERE tipologia = 'INPUT' COLLATE NOCASE LIMIT 1");
        if (!any.step()) return;
    }
    const std::vector<PointRow> inputs = read_points(
        db, "substr(modo, 1, 1)", "''", live("tipologia = 'INPUT' COLLATE NOCASE", kByNick));

    const std::string& code_filter = filters.codice_comandi;
    struct Group {
        const std::string& title;
        std::string_view letters;
        bool code_filtered;
    };
    const Group groups[] = {
        {kContatti, "PIipTN", true}, {kVideocitofono, "zv", false}, {kRemoti, "YR", false},
        {kAnalogici, "VA", true},    {kSensori, "GbLMK", true},     {kTermostati, "WJX", true},
    };
    const std::string held = texts_.text(Text::INPUT_HELD_PUSHBUTTON) + "   ";
    for (const Group& g : groups) {
        list.group(g.title);
        const bool contacts = &g.title == &kContatti;
        for (const PointRow& r : inputs) {
            if (r.extra.empty()) continue;
            const char letter = r.extra[0];
            if (g.letters.find(letter) == std::string_view::npos) continue;
            if (g.code_filtered && !passes_code_filter(r, code_filter)) continue;
            const std::string_view type = right(r.codice, 2);
            // Input 8 of a power-line modulator is its own output's command.
            if (contacts && type == "1F" && r.campo == 8) continue;
            const std::int64_t data = contacts && type == "1A" ? r.ID + 1400000 : r.ID;
            if (list.add(r.nick, data) && letter == 'T') list.add(held + r.nick, r.ID + 300000);
        }
    }

    // Presence warnings: the module parameter at characters 9 to 11 of row 1.
    // A row 1 that lacks its parameters gets an empty text first.
    sqlite::Statement unset = db.prepare(
        "SELECT 1 FROM nick WHERE campo = '1' COLLATE NOCASE AND riserva3 IS NULL LIMIT 1");
    if (unset.step()) {
        sqlite::Transaction t(db);
        db.exec(
            "UPDATE nick SET riserva3 = '' WHERE campo = '1' COLLATE NOCASE AND "
            "riserva3 IS NULL");
        t.commit();
    }
    list.group(kSicurezza);
    const std::string presence = texts_.text(Text::PRESENCE_WARNING_MODULE);
    for (const PointRow& r :
         read_points(db, "substr(riserva3, 9, 3)", "''", live("campo = '1' COLLATE NOCASE", kById)))
        if (val(r.extra) > 0) list.add(presence + r.codice, r.ID + 600000);
}

void PointLists::CARICA_PUNTI_TRASMITTENTI_ESTESI() {
    sqlite::Connection& db = project_.database();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    // Each event link of an output lists the output once more: the names are
    // looked up in an index of the link table instead of walking it per row.
    const std::vector<std::string> receivers = event_receivers(db);
    std::unordered_map<std::string, int> events;
    for (const std::string& name : receivers) ++events[name];
    const std::string evento = texts_.text(Text::EVENT_WORD);
    auto outputs = [&](std::string_view tipologia) {
        for (const PointRow& r : read_points(
                 db, "''", "''", live("tipologia = ?1 COLLATE NOCASE", kByNick), tipologia)) {
            auto it = events.find(ascii_folded(r.nick));
            for (int n = it == events.end() ? 0 : it->second; n > 0; --n)
                list.add(evento + r.nick, r.ID + 100000);
        }
    };
    list.group(kEventiCambioStato);
    outputs("RELE");

    // RGB masters: for each event link in table order, every RGB module whose
    // row 9 bears the link's receiver name, with the names of the two rows
    // after it. A master takes its three rows: a row 9 among them is passed.
    list.group(kEventi);
    const std::vector<PointRow> rgb = read_points(db, "IFNULL(riserva, '')", "''",
                                                  "tipologia = 'RGB' COLLATE NOCASE ORDER BY ID");
    struct Master {
        std::string text;
        std::int64_t item_data;
    };
    std::unordered_map<std::string, std::vector<Master>> masters;
    std::unordered_map<std::string, std::size_t> next_free;
    const std::string master_rgb = texts_.text(Text::MASTER_RGB);
    for (std::size_t i = 0; i + 2 < rgb.size(); ++i) {
        const PointRow& r = rgb[i];
        if (r.campo != 9 || r.nick.empty() || r.extra == "K") continue;
        const std::string key = ascii_folded(r.nick);
        if (!events.contains(key)) continue;
        auto [it, fresh] = next_free.try_emplace(key, 0);
        if (!fresh && i < it->second) continue;
        it->second = i + 3;
        masters[key].push_back(
            {master_rgb + r.nick + "--" + rgb[i + 1].nick + "--" + rgb[i + 2].nick + "  ",
             rgb[i + 2].ID + 1300000});
    }
    if (!masters.empty()) {
        for (const std::string& name : receivers) {
            auto it = masters.find(name);
            if (it == masters.end()) continue;
            for (const Master& m : it->second) list.add(m.text, m.item_data);
        }
    }

    list.group(kEventi);
    outputs("DIMMER");
}

void PointLists::EVENTI_SPECIALI() {
    sqlite::Connection& db = project_.database();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    list.group(kAggregazioni);
    const std::string almeno1 = texts_.text(Text::AGGREGATE_AT_LEAST_ONE);
    const std::string tutti = texts_.text(Text::AGGREGATE_ALL);
    std::int64_t module_id = 0;  // row 1 of the module whose flags are walked
    // Row 1 of a scene module holds its scene mask in riserva3.
    sqlite::Statement q = db.prepare(
        "SELECT ID, codice, campo, IFNULL(riserva, ''), note, substr(riserva3, 1, 8) FROM nick "
        "WHERE campo IN ('1', '2', '4', '6') AND riserva3 IS NOT NULL AND "
        "IFNULL(riserva, '') <> 'K' COLLATE BINARY ORDER BY ID");
    while (q.step()) {
        const std::string codice = q.text(1);
        const std::string_view type = right(codice, 2);
        const auto campo = static_cast<int>(val(q.text(2)));
        const std::int64_t id = q.integer(0);
        if (type == "48") {
            if (campo != 1 || val(q.text(5)) <= 0) continue;
            std::string label = q.text(4);
            if (label.empty()) label = codice;
            list.add(label + almeno1, id + 400000);
            list.add(label + tutti, id + 500000);
        } else if (type == "11" || type == "15" || type == "12" || type == "25") {
            if (campo == 1) {
                module_id = id;
                continue;
            }
            const std::string riserva = q.text(3);
            if (riserva.empty()) continue;
            // Each of rows 2, 4 and 6 names one aggregation of the module.
            const std::int64_t block = campo == 2 ? 700000 : campo == 4 ? 900000 : 1100000;
            list.add(riserva + almeno1, module_id + block);
            list.add(riserva + tutti, module_id + block + 100000);
        }
    }
}
void PointLists::CARICA_COMBO(int livello) {
    const PointFilters typed = filters;
    if (livello < 2) {
        // At level 1 the name filter boxes are hidden.
        filters.nome_utilizzatori.clear();
        filters.nome_comandi.clear();
    }
    CARICA_PUNTI_UTILIZZATORI();
    CARICA_PUNTI_TRASMITTENTI();
    if (livello >= 2) CARICA_PUNTI_TRASMITTENTI_ESTESI();
    if (livello >= 3) EVENTI_SPECIALI();
    filters = typed;
}

}  // namespace filo::store
