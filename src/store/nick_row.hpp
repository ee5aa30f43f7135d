#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace filo::store {

// One row of table nick: one point of a module. Fields are the columns.
struct NickRow {
    std::int64_t ID = 0;
    std::string codice;
    std::string campo;
    std::string numero_filo;
    std::string nick;
    std::string note;
    std::string modo;
    std::string tipologia;
    std::string connesso;
    std::string riserva;
    std::string riserva2;
    std::string riserva3;
    std::string riserva4;
    std::string dati_aggiuntivi1;

    bool operator==(const NickRow&) const = default;
};

// RIGHE_MODULO: the rows of the module being worked on, in ID order, which is
// also campo order. Row numbers count from 1 as the module's own do: row i
// (campo i) is riga(i); rows 1 to 8 are inputs, 9 up outputs.
struct ModuleRecord {
    std::vector<NickRow> rows;
    // The one nick_numerico of the module: that of the last row read.
    std::string M_NICK_NUMERICO;

    int N_RIGHE_MODULO() const { return static_cast<int>(rows.size()); }
    NickRow& riga(int i) { return rows.at(static_cast<std::size_t>(i - 1)); }
    const NickRow& riga(int i) const { return rows.at(static_cast<std::size_t>(i - 1)); }
};

}  // namespace filo::store
