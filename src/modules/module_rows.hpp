#pragma once
// The rows of a new module, made in the shared record of the module table.
#include <string>
#include <string_view>

namespace filo::store {
class ModuleTable;
}

namespace filo::modules {

// Rows 1 to 8, the inputs, of CODICE_MODULO: kind letter (a letter longer
// than one character becomes "P"; the fourth video door page always gets
// "z") and the given tipologia. The record then holds 8 rows.
void CREA_RIGHE_INGRESSI(store::ModuleTable& table, std::string_view tipologia,
                         std::string& letter);
// Rows 9 up, the outputs (and the flags of the types that have them).
void CREA_RIGHE_USCITE(store::ModuleTable& table, std::string_view tipologia);
// The 99 rows of a panel interface.
void PREPARA_OUT_232(store::ModuleTable& table);
// Makes the four pages of the video door interface unless the first exists;
// leaves CODICE_MODULO on the first page.
void CREA_VIDEOCITOFONO(store::ModuleTable& table);

// The rows that a new module of CODICE_MODULO's type gets, numbered after
// the project's last module; false for a type without description.
bool prepare_new_module(store::ModuleTable& table);

// The fixed codes of the four video door pages.
inline constexpr std::string_view kVideoDoorPages[4] = {"FFF023", "FFF123", "FFF223", "FFF323"};

}  // namespace filo::modules
