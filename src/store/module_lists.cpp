// The module lists of the project window and the duplicate-name search.
#include <algorithm>
#include <cctype>

#include "common/basic_functions.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {
namespace {

std::string group_line(std::string_view tipologia, std::size_t blanks) {
    return "--------" + std::string(tipologia) + std::string(blanks, ' ') + "---------";
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

}  // namespace

ModuleLists ModuleTable::ELENCO_MODULI() {
    sqlite::Connection& db = project_.database();
    ModuleLists lists;
    PROGETTO_VUOTO = "SI";
    N_MODULI = 0;
    ELENCO_CODICI.clear();

    LEGGI_N_PROGRESSIVO();
    sqlite::Statement heads = db.prepare(
        "SELECT codice, note, riserva FROM nick WHERE campo = '1' "
        "ORDER BY codice COLLATE NOCASE, ID");
    bool any_head = false;
    while (heads.step()) {
        any_head = true;
        if (heads.text(2) == "K") continue;
        std::string codice = heads.text(0);
        lists.by_code.push_back(codice + "  " + heads.text(1));
        ELENCO_CODICI.push_back(std::move(codice));
        N_MODULI = static_cast<int>(ELENCO_CODICI.size());
        PROGETTO_VUOTO = "NO";
    }
    if (!any_head) return lists;

    // The list opens with the group of the very first row in this order,
    // named or not; later groups start where the tipologia changes.
    constexpr std::string_view kOrder =
        " ORDER BY tipologia COLLATE NOCASE, nick COLLATE NOCASE, ID";
    sqlite::Statement first =
        db.prepare("SELECT tipologia FROM nick" + std::string(kOrder) + " LIMIT 1");
    if (!first.step()) return lists;
    std::string group = first.text(0);
    lists.by_name.push_back({group_line(group, 42), 0});

    sqlite::Statement named_count = db.prepare("SELECT COUNT(*) FROM nick WHERE nick <> ''");
    named_count.step();
    lists.by_name.reserve(static_cast<std::size_t>(named_count.integer(0)) + 64);
    sqlite::Statement named = db.prepare(
        "SELECT tipologia, riserva, codice, numero_filo, nick FROM nick WHERE nick <> ''" +
        std::string(kOrder));
    while (named.step()) {
        std::string tipologia = named.text(0);
        if (tipologia != group) {
            group = tipologia;
            lists.by_name.push_back({group_line(group, 45), 0});
        }
        if (named.text(1) == "K") continue;
        std::string codice = named.text(2);
        // A leading "1" keeps the code's leading zeros in the number.
        auto item = static_cast<std::int64_t>(basic::val("&H1" + codice));
        lists.by_name.push_back({codice + "/" + named.text(3) + "   " + named.text(4), item});
    }
    return lists;
}

void ModuleTable::CERCA_UGUALE(std::string_view nome, std::string_view codice, PointSide side,
                               std::string_view numero_filo) {
    NOME_DOPPIO.clear();
    sqlite::Statement q = project_.database().prepare(
        "SELECT riserva, codice, numero_filo, campo FROM nick WHERE nick = ?1 COLLATE NOCASE");
    q.bind(1, nome);
    const double wanted_filo = basic::val(numero_filo);
    while (q.step()) {
        if (basic::left(q.text(0), 1) == "K") continue;
        if (equal_ignoring_case(q.text(1), codice) && basic::val(q.text(2)) == wanted_filo)
            continue;  // the point itself
        const double campo = basic::val(q.text(3));
        if (side == PointSide::Input && campo > 8) continue;
        if (side == PointSide::Output && campo < 9) continue;
        NOME_DOPPIO = "SI";
        return;
    }
}

}  // namespace filo::store
