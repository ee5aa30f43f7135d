#include "store/programming_lists.hpp"

#include "common/basic_functions.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {

using basic::cint;
using basic::mid;
using basic::val;

void ProgrammingLists::LISTA_telecomandi() {
    TELECOMANDI.clear();
    N_TELECOMANDI = 0;
    MASCHERA_TELECOMANDI1 = MASCHERA_TELECOMANDI2 = MASCHERA_TELECOMANDI3 = std::string(32, '0');
    auto q = project_.database().prepare(
        "SELECT codice, numero_filo, riserva2, riserva4 FROM nick WHERE codice LIKE '____28' "
        "OR codice LIKE '____34' OR codice LIKE '____35' ORDER BY ID");
    int i = 0;
    while (q.step()) {
        ++i;
        const std::string codice = q.text(0);
        if (val(q.text(1)) == 1 && N_TELECOMANDI < kMaxTelecomandi) {
            ++N_TELECOMANDI;
            TELECOMANDI.push_back({std::string(mid(codice, 1, 2)), std::string(mid(codice, 3, 2)),
                                   std::string(mid(q.text(3), 1, 6))});
        }
        // The masks have room for 32 rows; a later row has no bit to set.
        if (mid(q.text(2), 18, 3) == "100" && i <= 32) {
            for (std::string* m :
                 {&MASCHERA_TELECOMANDI1, &MASCHERA_TELECOMANDI2, &MASCHERA_TELECOMANDI3})
                (*m)[static_cast<std::size_t>(i - 1)] = '1';
        }
    }
}

void ProgrammingLists::CERCA_TESTI() {
    TESTI.clear();
    auto q = project_.database().prepare(
        "SELECT codice, numero_filo, riserva2, riserva3 FROM nick "
        "WHERE tipologia = 'OUT_SERIALE' AND riserva2 <> '' ORDER BY ID");
    for (int indice = 1; indice <= kMaxTesti && q.step(); ++indice) {
        std::string codice = q.text(0);
        if (mid(codice, 5, 2) == "FF") continue;
        TESTI.push_back({indice, std::move(codice), q.text(1), q.text(2), q.text(3)});
    }
}

void ProgrammingLists::CERCA_CARD(std::string_view codice_modulo) {
    for (auto& row : CARD) row.fill(std::string());
    auto q = project_.database().prepare(
        "SELECT campo, dati_aggiuntivi1 FROM nick WHERE codice = ?1 ORDER BY CINT(campo), ID");
    q.bind(1, codice_modulo);
    bool first = true;
    while (q.step()) {
        if (q.is_null(1)) {
            if (first) break;
            continue;
        }
        first = false;
        const long long campo = cint(q.text(0));
        if (campo < 0 || campo > kCardRows) continue;
        const std::string dati = q.text(1);
        for (int k = 1; k <= kCardsPerRow && static_cast<std::size_t>(k - 1) * 6 < dati.size(); ++k)
            CARD[campo][k] = mid(dati, (k - 1) * 6 + 1, 6);
    }
}

}  // namespace filo::store
