#pragma once
// The two selection lists of the link editor, built from table nick: the
// outputs (Combo_UTILIZZATORI) and everything that can command them
// (Combo_COMANDI). An entry's item data is the nick row's ID plus a block of
// hundred thousands that says which event or family the entry stands for;
// 99999 marks a group header, and values above 16777215 are a message
// module's code with a leading "1".
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/module_table.hpp"

namespace filo::texts {
class LanguageTables;
}

namespace filo::store {

class Project;
class GatewayChannels;
class LinkQueries;

inline constexpr std::int64_t kGroupHeaderItemData = 99999;

// What the installer typed in the filter boxes of the link editor. A code
// filter keeps the rows whose first 6 characters of codice equal it; a name
// filter keeps the entries whose text holds it, without regard to case.
struct PointFilters {
    std::string codice_utilizzatori;  // Text17
    std::string nome_utilizzatori;    // Text16
    std::string codice_comandi;       // Text18
    std::string nome_comandi;         // Text8
};

// One card reader group of the export (columns A to F of dati_transponder):
// the group's name, the first reader's name and code, then up to three more
// readers' codes.
struct TransponderRow {
    std::string A, B, C, D, E, F;
    bool operator==(const TransponderRow&) const = default;
};

// The messages of a message module, with those that the current link
// sends already selected.
struct MessageList {
    std::vector<ListEntry> entries;  // nick, item data numero_filo
    std::vector<bool> selected;      // one per entry
};

class PointLists {
  public:
    PointLists(Project& project, const texts::LanguageTables& texts)
        : project_(project), texts_(texts) {}

    PointFilters filters;
    // Group state of the output groups: "CREATO", "VUOTO" or "".
    std::string STATO_GRUPPO;

    std::vector<ListEntry> Combo_UTILIZZATORI;
    std::vector<ListEntry> Combo_COMANDI;

    // Rebuilds the outputs list.
    void CARICA_PUNTI_UTILIZZATORI();
    // Clears and rebuilds the commands list: contacts to safety.
    void CARICA_PUNTI_TRASMITTENTI();
    // Appends the events of outputs (level 2 up).
    void CARICA_PUNTI_TRASMITTENTI_ESTESI();
    // Appends the aggregations (level 3).
    void EVENTI_SPECIALI();
    // Both lists as the link editor loads them at the given level (1 to 3).
    // At level 1 the name filter boxes are hidden, so they filter nothing.
    void CARICA_COMBO(int livello);

    // LISTA_COMANDATI: the named messages of a message module by name, item
    // data the message number. `bits` is the 96-character message string of
    // the link being edited, in which message n is character 97 - n.
    MessageList ELENCO_MESSAGGI(std::string_view codice_modulo, std::string_view bits);

    // AVANZATE.Combo2, the points that can set an output's reference value:
    // first the gateway channel (item data channel + 1000000), the next free
    // one or, when the stored mode is being edited (STESSO_MODO "SI"), the one
    // of the link of LINK_CORRENTE's output; then the analogue inputs, the
    // temperature references and the external thermostats by name, but the
    // command point ID_COMANDO. CANALE_FORZATO is left at the channel.
    // True after ELENCO_ANALOGICI when no channel was free: the caller shows
    // ALL_CHANNELS_USED, titled ATTENZIONE.
    bool all_channels_used = false;
    std::vector<ListEntry> ELENCO_ANALOGICI(GatewayChannels& channels, LinkQueries& queries,
                                            std::string_view STESSO_MODO, std::int64_t ID_COMANDO);

    // The rows of radio receivers (type 4A) in the project; nothing when
    // there is none, in which case N_RIGHE_MODULO stays as it was.
    std::optional<int> LEGGI_TIPO_radio();

    // The card readers grouped by the group name in riserva, four readers to
    // a row, as the export writes them.
    std::vector<TransponderRow> LEGGI_TIPO_1A();

  private:
    Project& project_;
    const texts::LanguageTables& texts_;
};

}  // namespace filo::store
