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

// The columns every walk reads.
struct PointRow {
    std::int64_t ID = 0;
    std::string codice, campo, numero_filo, nick, note, modo, riserva, riserva3;
    bool riserva3_null = false;
};

constexpr std::string_view kRowColumns =
    "SELECT ID, codice, campo, numero_filo, nick, note, modo, riserva, riserva3 FROM nick ";

std::vector<PointRow> read_points(sqlite::Connection& db, std::string_view where_and_order,
                                  std::string_view parameter = {}) {
    sqlite::Statement q = db.prepare(std::string(kRowColumns) + std::string(where_and_order));
    if (!parameter.empty()) q.bind(1, parameter);
    std::vector<PointRow> rows;
    while (q.step()) {
        PointRow& r = rows.emplace_back();
        r.ID = q.integer(0);
        r.codice = q.text(1);
        r.campo = q.text(2);
        r.numero_filo = q.text(3);
        r.nick = q.text(4);
        r.note = q.text(5);
        r.modo = q.text(6);
        r.riserva = q.text(7);
        r.riserva3 = q.text(8);
        r.riserva3_null = q.is_null(8);
    }
    return rows;
}

// A point without a name takes part in no list; "K" hides a row.
bool is_live_named(const PointRow& r) {
    return !r.nick.empty() && r.riserva != "K";
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

// The link rows that make an output generate events (modo_ character 5),
// counted by the receiver's name: the events a name offers.
std::unordered_map<std::string, int> event_links_by_receiver(sqlite::Connection& db) {
    sqlite::Statement q = db.prepare(
        "SELECT nick_ricevente, modo_ FROM associazioni WHERE identificativoRX <> '' ORDER BY ID");
    std::unordered_map<std::string, int> counts;
    while (q.step())
        if (mid(q.text(1), 5, 1) == "1") ++counts[ascii_folded(q.text(0))];
    return counts;
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
    auto family = [&](std::string_view pattern, std::int64_t offset) {
        for (const PointRow& r :
             read_points(db, "WHERE tipologia LIKE ?1" + std::string(kByNick), pattern)) {
            if (!is_live_named(r) || !passes_code_filter(r, code_filter) ||
                !passes_name_filter(r.nick, name_filter))
                continue;
            list.push_back({r.nick, r.ID + offset});
        }
    };
    // Relays: outputs from 9 up are told apart by their own block.
    for (const PointRow& r :
         read_points(db, "WHERE tipologia LIKE 'RELE%'" + std::string(kByNick))) {
        if (!is_live_named(r) || !passes_code_filter(r, code_filter) ||
            !passes_name_filter(r.nick, name_filter))
            continue;
        list.push_back({r.nick, r.ID + (val(r.numero_filo) < 9 ? 0 : 100000)});
    }
    family("VCITOF%", 0);
    family("SPIA%", 200000);

    // An RGB point is its three channels, rows 9, 10 and 11 of the module.
    std::string rgb_text, rgb_code;
    std::int64_t rgb_id = 0;
    bool rgb_open = false;
    for (const PointRow& r : read_points(db, "WHERE tipologia LIKE 'RGB%'" + std::string(kById))) {
        if (!is_live_named(r) || !passes_code_filter(r, code_filter)) continue;
        const double campo = val(r.campo);
        if (campo == 9) {
            rgb_text = "RGB --->  " + r.nick;
            rgb_code = r.codice;
            rgb_id = r.ID;
            rgb_open = true;
        } else if (rgb_open && r.codice == rgb_code && (campo == 10 || campo == 11)) {
            rgb_text += "  " + r.nick;
            if (campo == 11) {
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
    for (const PointRow& r : read_points(db,
                                         "WHERE tipologia LIKE 'OUT_SERIALE%' AND riserva2 <> '' "
                                         "ORDER BY codice COLLATE NOCASE, ID")) {
        if (!is_live_named(r) || r.codice == last_code) continue;
        last_code = r.codice;
        std::string note = r.note;
        if (note.starts_with('*')) note.erase(0, 1);
        // The leading "1" keeps the code's leading zeros in the number.
        list.push_back(
            {"MESSAGGIO del modulo " + note, static_cast<std::int64_t>(val("&H1" + r.codice))});
    }
    if (STATO_GRUPPO == "VUOTO") list.push_back({"CREA GRUPPO", 0});
}

void PointLists::CARICA_PUNTI_TRASMITTENTI() {
    sqlite::Connection& db = project_.database();
    Combo_COMANDI.clear();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    const std::vector<PointRow> inputs =
        read_points(db, "WHERE tipologia LIKE 'INPUT'" + std::string(kByNick));
    if (inputs.empty()) return;  // no inputs: not even the safety group

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
    for (const Group& g : groups) {
        list.group(g.title);
        const bool contacts = &g.title == &kContatti;
        for (const PointRow& r : inputs) {
            if (!is_live_named(r) || r.modo.empty()) continue;
            const char letter = r.modo[0];
            if (g.letters.find(letter) == std::string_view::npos) continue;
            if (g.code_filtered && !passes_code_filter(r, code_filter)) continue;
            const std::string type(right(r.codice, 2));
            // Input 8 of a power-line modulator is its own output's command.
            if (contacts && type == "1F" && r.campo == "8") continue;
            const std::int64_t data = contacts && type == "1A" ? r.ID + 1400000 : r.ID;
            if (list.add(r.nick, data) && letter == 'T')
                list.add(texts_.text(Text::INPUT_HELD_PUSHBUTTON) + "   " + r.nick, r.ID + 300000);
        }
    }

    // Presence warnings: the module parameter at characters 9 to 11 of row 1.
    {
        sqlite::Transaction t(db);
        db.exec("UPDATE nick SET riserva3 = '' WHERE campo LIKE '1' AND riserva3 IS NULL");
        t.commit();
    }
    list.group(kSicurezza);
    for (const PointRow& r : read_points(db, "WHERE campo LIKE '1'" + std::string(kById))) {
        if (!is_live_named(r) || val(mid(r.riserva3, 9, 3)) <= 0) continue;
        list.add(texts_.text(Text::PRESENCE_WARNING_MODULE) + r.codice, r.ID + 600000);
    }
}

void PointLists::CARICA_PUNTI_TRASMITTENTI_ESTESI() {
    sqlite::Connection& db = project_.database();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    // Each event link of an output lists the output once more: the names are
    // looked up in an index of the link table instead of walking it per row.
    const std::unordered_map<std::string, int> events = event_links_by_receiver(db);
    auto events_of = [&events](const std::string& name) {
        auto it = events.find(ascii_folded(name));
        return it == events.end() ? 0 : it->second;
    };
    const std::string evento = texts_.text(Text::EVENT_WORD);

    list.group(kEventiCambioStato);
    for (const PointRow& r :
         read_points(db, "WHERE tipologia LIKE 'RELE'" + std::string(kByNick))) {
        if (!is_live_named(r)) continue;
        for (int n = events_of(r.nick); n > 0; --n) list.add(evento + r.nick, r.ID + 100000);
    }

    // RGB masters: for each event link in table order, every RGB module whose
    // row 9 bears the link's receiver name, with the names of its three rows.
    list.group(kEventi);
    const std::vector<PointRow> rgb =
        read_points(db, "WHERE tipologia LIKE 'RGB'" + std::string(kById));
    struct Master {
        std::string text;
        std::int64_t item_data;
    };
    std::unordered_map<std::string, std::vector<Master>> masters;
    std::unordered_map<std::string, std::size_t> next_free;  // a master takes three rows
    const std::string master_rgb = texts_.text(Text::MASTER_RGB);
    for (std::size_t i = 0; i + 2 < rgb.size(); ++i) {
        const PointRow& r = rgb[i];
        if (val(r.campo) != 9 || !is_live_named(r)) continue;
        const std::string key = ascii_folded(r.nick);
        auto [it, fresh] = next_free.try_emplace(key, 0);
        if (!fresh && i < it->second) continue;
        it->second = i + 3;
        masters[key].push_back(
            {master_rgb + r.nick + "--" + rgb[i + 1].nick + "--" + rgb[i + 2].nick + "  ",
             rgb[i + 2].ID + 1300000});
    }
    if (!masters.empty()) {
        sqlite::Statement q = db.prepare(
            "SELECT nick_ricevente, modo_ FROM associazioni WHERE identificativoRX <> '' "
            "ORDER BY ID");
        while (q.step()) {
            if (mid(q.text(1), 5, 1) != "1") continue;
            auto it = masters.find(ascii_folded(q.text(0)));
            if (it == masters.end()) continue;
            for (const Master& m : it->second) list.add(m.text, m.item_data);
        }
    }

    list.group(kEventi);
    for (const PointRow& r :
         read_points(db, "WHERE tipologia LIKE 'DIMMER'" + std::string(kByNick))) {
        if (!is_live_named(r)) continue;
        for (int n = events_of(r.nick); n > 0; --n) list.add(evento + r.nick, r.ID + 100000);
    }
}

void PointLists::EVENTI_SPECIALI() {
    sqlite::Connection& db = project_.database();
    GroupedList list(Combo_COMANDI, filters.nome_comandi);
    list.group(kAggregazioni);
    const std::string almeno1 = texts_.text(Text::AGGREGATE_AT_LEAST_ONE);
    const std::string tutti = texts_.text(Text::AGGREGATE_ALL);
    std::int64_t module_id = 0;  // row 1 of the module whose flags are walked
    for (const PointRow& r :
         read_points(db, "WHERE campo = '1' OR campo = '2' OR campo = '4' OR campo = '6'" +
                             std::string(kById))) {
        if (r.riserva == "K" || r.riserva3_null) continue;
        const std::string type(right(r.codice, 2));
        if (type == "48") {
            if (r.campo != "1" || val(mid(r.riserva3, 1, 8)) <= 0) continue;
            const std::string label = r.note.empty() ? r.codice : r.note;
            list.add(label + almeno1, r.ID + 400000);
            list.add(label + tutti, r.ID + 500000);
        } else if (type == "11" || type == "15" || type == "12" || type == "25") {
            if (r.campo == "1") {
                module_id = r.ID;
                continue;
            }
            if (r.riserva.empty()) continue;
            // Each of rows 2, 4 and 6 names one aggregation of the module.
            const std::int64_t block = r.campo == "2" ? 700000 : r.campo == "4" ? 900000 : 1100000;
            list.add(r.riserva + almeno1, module_id + block);
            list.add(r.riserva + tutti, module_id + block + 100000);
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
