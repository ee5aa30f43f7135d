#pragma once
// ASSOCIA without a screen: the sets of points whose state raises the events
// TUTTI and ALMENO1 of an output module, edited in the shared record
// RIGHE_MODULO of the module window. Nothing reaches the table before the
// module window's Salva.
//
// The full page (types 11, 12, 15, 25) has three sets, a, b and c, each in
// two rows of the module: the first (rows 2, 4, 6) holds the participants in
// riserva3, 24 "when on" then 24 "when off", and the event's name in
// riserva; the second (rows 3, 5, 7) the relays switched on (characters
// 1-8) and off (9-16) and the logic (character 17, "1" OR). The simple page
// (types 48, 49) has one set: characters 1-8 of riserva3 of row 1.
#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace filo::store {
class ModuleTable;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::modules {

// Does this type have the full page of three sets (else the simple one)?
bool has_three_aggregates(std::string_view type);

class AggregateEditor {
  public:
    // Form_Load on the module of the table's shared record.
    AggregateEditor(store::ModuleTable& table, const texts::LanguageTables& texts);

    struct Box {
        std::string caption;
        bool shown = true;
        bool enabled = true;
        bool ticked = false;
    };

    const bool full;  // Frame6, else Frame11

    // The full page. Check2(1..24) "Quando  accesi" (no caption),
    // Check2(25..48) "Quando  spenti"; Check3(1..8) switch relay k on,
    // Check3(9..16) off. Option3(0) OR when `or_logic`, Option3(1) AND.
    std::array<Box, 49> Check2{};
    std::array<Box, 17> Check3{};
    bool or_logic = false;
    std::string Text5;
    int ASSOCIAZIONE_CORRENTE = 0;  // 1 a, 2 b, 3 c; 0 before the first is shown

    // The simple page: Check1(k) relay k takes part.
    std::array<Box, 9> Check1{};

    // Asked before a set loses its name while links start from its events,
    // with how many; false keeps the name. Unset: nothing is asked.
    std::function<bool(int links)> confirm_name_removal;

    // The installer's actions; a click on a box that is disabled or hidden
    // changes nothing. Returns whether the box ends ticked as asked.
    void Option5_Click(int index);
    bool Check2_Click(int index, bool ticked);
    bool Check3_Click(int index, bool ticked);
    void Option3_Click(int index);
    // The name as typed: name characters only, at most 8.
    void Text5_Change(std::string_view text);
    bool Check1_Click(int index, bool ticked);
    // CONFERMA of either page. False when the simple page kept the window
    // open because the installer chose to keep the events.
    bool Label35_Click();
    bool Label37_Click();

  private:
    void fill_full();
    void fill_simple();
    void set_check2(int index, bool ticked, bool by_installer);
    bool any_participant() const;
    void store_current();
    // Asks before the set's name goes while links start from its events.
    bool agree_removal(char set);
    std::string& stored_name();
    std::string name_of_output(int k) const;

    store::ModuleTable& table_;
    const texts::LanguageTables& texts_;
    bool removal_agreed_ = false;  // asked and answered Yes for the set shown
};

}  // namespace filo::modules
