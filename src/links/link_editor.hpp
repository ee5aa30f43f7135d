#pragma once
// The link being made between a command point and a user point: the
// selection of both, the pair check, the modes, the times and lamp, and the
// rows that "COLLEGA" writes. The link editor window shows it; filo-cli
// drives it the same way.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "links/command_point.hpp"
#include "links/link_codes.hpp"
#include "links/link_times.hpp"
#include "links/mode_catalogue.hpp"
#include "store/link_row.hpp"

namespace filo::store {
class ModuleTable;
class LinkTable;
class LinkQueries;
}  // namespace filo::store
namespace filo::texts {
class LanguageTables;
}

namespace filo::links {

// The lamp of an indicator output (Frame12).
struct LampSettings {
    enum class Kind { Composite, Simple, Steady } kind = Kind::Composite;
    std::string pattern = "1010101010101010";  // Image6(0..15), a step each
    int t_on = 1, t_off = 1;                   // Text22, Text23: 1 to 255
};

// Which boxes a selected mode shows.
struct TimeBoxes {
    bool frame9 = false;     // the times at all
    bool time_on = false;    // Frame1
    bool delay_on = false;   // Frame7
    bool delay_off = false;  // Frame10
    bool no_timer = false;   // Frame11: "I rele flag non dispongono di timer"
    bool lamp = false;       // Frame12
    bool tenths = false;     // user modules of types 25 and 26
    bool ricaricabile = false;
};

class LinkEditor {
  public:
    LinkEditor(store::ModuleTable& modules, store::LinkTable& links, store::LinkQueries& queries,
               const texts::LanguageTables& texts)
        : modules_(modules), links_(links), queries_(queries), texts_(texts) {}

    enum class Side { Command, User };
    enum class Check {
        NeedsUser,     // ISTRUZIONE: select a user point too
        NeedsCommand,  // ISTRUZIONE: select a command point too
        Refused,       // "OPERAZIONE NON CONSENTITA"; the side chosen earlier is cleared
        Silent,        // a video door command on a video door output: no modes
        Modes,         // the modes are offered
    };

    // Combo_COMANDI_Click / Combo_UTILIZZATORI_Click with the entry chosen;
    // each runs the pair check. False when the item data names nothing.
    bool select_command(std::int64_t item_data, const std::string& text);
    bool select_user(std::int64_t item_data, const std::string& text);
    void clear_command();
    void clear_user();
    Check check() const { return check_; }

    // What is selected.
    std::string COMANDO, UTILIZZATORE;
    std::int64_t ID_COMANDO = 0, ID_UTILIZZATORE = 0;
    CommandPoint command;
    UserPoint user;
    std::string MODO_UTILIZZATORE, CONSENSO_COMANDI;
    std::string message_module;  // RX_CODICE of a message module
    Side last_side = Side::Command;

    // The pair as stored, when it is (LEGGI_ASSOCIAZIONE).
    std::string ESITO_ASSOCIAZIONE;
    std::int64_t stored_id = 0;
    int stored_mode = 0;  // the digit of modo_ character 9; 0 none
    store::LinkRow stored;

    ModeOffer offer;
    ModePair pair;

    // Option1_Click: the mode's settings; the times reset to zero unless the
    // stored mode is clicked again, which fills them from the row. False when
    // the mode is not offered.
    bool select_mode(int index);
    ModeFields mode;
    std::string STESSO_MODO = "NO";
    TimeBoxes boxes() const;
    // The link waits only for "COLLEGA" (DA_CONFERMARE "SI"), unless the mode
    // needs the advanced options first.
    bool ready() const;
    bool needs_advanced_options() const;
    // The stored thresholds differ from those of the mode clicked again.
    bool thresholds_differ() const;
    void keep_previous_thresholds();

    // The settings of the middle of the window.
    TimeEntry time_on, delay_on, delay_off;
    bool ricaricabile = true;  // Check1
    LampSettings lamp;
    MessageBits messages;  // List1 selection
    std::vector<std::string> valori_avanzati = std::vector<std::string>(27);

    // The rows "COLLEGA" writes, in order; empty when nothing would be.
    std::vector<store::LinkRow> compose() const;

    enum class Save {
        Saved,
        NotReady,       // no complete link yet
        Exists,         // the pair is linked: ask "Sovrascrivi"
        SetsValue,      // the command sets a reference value of the output
        NoMessages,     // a message link without any message
        NeedsAdvanced,  // the advanced options must be given first
    };
    // COLLEGA: the rows in one transaction, the existing link replaced when
    // `replace`. The IDs written go to `ids`.
    Save COLLEGA(bool replace, std::vector<std::int64_t>* ids = nullptr);
    // The existing link a pair collides with (after Save::Exists).
    std::int64_t existing_id = 0;

    // Elimina: one link row and its continuation.
    void CANCELLA(std::int64_t id);

  private:
    static std::string bus_bits(int value);
    // Modes that are ready without the times: they take their values elsewhere.
    bool direct_ready() const;
    void run_check();
    void read_pair();
    std::string user_module_type() const;

    store::ModuleTable& modules_;
    store::LinkTable& links_;
    store::LinkQueries& queries_;
    const texts::LanguageTables& texts_;
    int user_valore7_ = 0;
    Check check_ = Check::NeedsUser;
    bool have_command_ = false, have_user_ = false;
};

}  // namespace filo::links
