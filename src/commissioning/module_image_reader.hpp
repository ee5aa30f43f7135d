#pragma once
// LEGGI_INGRESSI_MODULO: which columns of a module's rows mean what to the
// module, and which values are defaults that are not sent. Read-only.
#include <string>
#include <string_view>
#include <vector>

#include "commissioning/module_image.hpp"
#include "store/nick_row.hpp"

namespace filo::store {
class ModuleTable;
}

namespace filo::commissioning {

struct ModuleImageReading {
    std::string STATO_MODULO;  // "MODULO_ESISTENTE" or "NUOVO_MODULO"
    int N_RIGHE_MODULO = 0;
    ModuleImage IMMAGINE_MODULO;
};

// The image of a module from its rows as stored, in ID order (row r is
// rows[r - 1]). The type is characters 5 and 6 of the code.
ModuleImage build_module_image(std::string_view CODICE_MODULO,
                               const std::vector<store::NickRow>& rows);

class ModuleImageReader {
  public:
    explicit ModuleImageReader(store::ModuleTable& table) : table_(table) {}

    // A code with no rows gives "NUOVO_MODULO", no rows and the start image,
    // which sends nothing.
    ModuleImageReading LEGGI_INGRESSI_MODULO(std::string_view CODICE_MODULO);

  private:
    store::ModuleTable& table_;
};

}  // namespace filo::commissioning
