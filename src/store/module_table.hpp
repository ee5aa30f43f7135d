#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/nick_row.hpp"

namespace filo::store {

class Project;

inline constexpr std::string_view kNuovoModulo = "NUOVO_MODULO";
inline constexpr std::string_view kModuloEsistente = "MODULO_ESISTENTE";

enum class PointSide { Input, Output };

// An entry of a selection list: the text shown and the number behind it.
struct ListEntry {
    std::string text;
    std::int64_t item_data = 0;
    bool operator==(const ListEntry&) const = default;
};

// The two module lists of the project window.
struct ModuleLists {
    std::vector<std::string> by_code;  // live modules: "<codice>  <note>"
    std::vector<ListEntry> by_name;    // named points grouped by tipologia
};

// The operations on table nick, and the shared variables they fill. Each
// operation asks the project for its connection, so reopening the project
// never leaves a stale one behind. Database faults throw ProjectError or
// sqlite::SqlError; a write that fails changes nothing.
class ModuleTable {
  public:
    explicit ModuleTable(Project& project) : project_(project) {}

    // The module being worked on.
    ModuleRecord RIGHE_MODULO;
    std::string STATO_MODULO;
    std::string CODICE_MODULO;
    std::string TIPO_MODULO;
    // The module to work on: CODICE_MODULO, and TIPO_MODULO from its
    // characters 5 and 6.
    void set_codice_modulo(std::string_view codice);
    std::string RISERVA3_RIGA1_USATA;
    std::string RISERVA3_RIGHE23_USATE;
    // "SI" makes MODIFICA_MODULO mark the rows deleted as it writes them.
    std::string CANCELLA_IN_SALVATAGGIO;

    // LEGGI_INFORMAZIONE
    std::string INFO_NICK;
    std::string INFO_CODICE;

    // LEGGI_RIGA_ID
    std::string RIGA_CODICE;
    std::string RIGA_NUMERO_FILO;
    std::string RIGA_NICK;
    std::string RIGA_NICK_NUMERICO;
    std::string RIGA_MODO;
    std::string RIGA_TIPOLOGIA;
    std::string RIGA_CONNESSO;
    std::string RIGA_RISERVA2;
    int RIGA_VALORE7 = 0;

    // LEGGI_N_PROGRESSIVO, ELENCO_MODULI
    int N_PROGRESSIVO = 0;
    int N_MODULI = 0;
    std::vector<std::string> ELENCO_CODICI;  // live module codes in code order
    std::string PROGETTO_VUOTO;

    // CERCA_UGUALE
    std::string NOME_DOPPIO;

    void LEGGI_MODULO(std::string_view codice);
    // The rows of a module exactly as stored (Null as ""), in ID order,
    // without touching the shared record: for readers that apply their own
    // rules, such as the programming image.
    std::vector<NickRow> read_rows(std::string_view codice);
    void LEGGI_INFORMAZIONE(std::string_view numero, std::string_view campo);
    void VERIFICA_MODULO(std::string_view codice);
    void LEGGI_RIGA_ID(std::int64_t id);
    void LEGGI_N_PROGRESSIVO();
    ModuleLists ELENCO_MODULI();
    void CERCA_UGUALE(std::string_view nome, std::string_view codice, PointSide side,
                      std::string_view numero_filo);
    void MODIFICA_MODULO();
    void CANCELLA_MODULO();
    void AGGIUNGI_MODULO();

    Project& project() { return project_; }

  private:
    Project& project_;
};

}  // namespace filo::store
