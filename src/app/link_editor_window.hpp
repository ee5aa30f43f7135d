#pragma once
// Form9, the link editor: the command point and its links on the left, the
// user point and its links on the right, the modes, times and lamp in the
// middle, "COLLEGA" to store the link, the details of one link with
// "Elimina". The state and actions, without a screen; Form9 draws them.
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "links/link_editor.hpp"
#include "store/module_table.hpp"

namespace filo::store {
class PointLists;
class LinkQueries;
}  // namespace filo::store

namespace filo::app {

class Session;

// What the link editor asks of the windows around it.
struct LinkEditorHost {
    // Label26_Click: the module of a point opens, the editor waits for it
    // (PUNTO_EVIDENZIATO is the row to show); module_closed() brings it back.
    std::function<void(const std::string& codice, int row)> open_module;
    // "Esci": the project window comes back.
    std::function<void()> show_hub;
    // The line changed what the window shows (a button pressed on the bus).
    std::function<void()> changed;
};

class LinkEditorWindow {
  public:
    LinkEditorWindow(Session& session, LinkEditorHost host);
    ~LinkEditorWindow();

    // Form_Load and CARICA_COMBO.
    void load();
    void CARICA_COMBO();

    std::string caption;
    std::vector<store::ListEntry> Combo_COMANDI, Combo_UTILIZZATORI;
    int command_index = -1, user_index = -1;
    // Filters: Text18, Text8 (commands), Text17, Text16 (outputs).
    void Text18_Change(const std::string& text);
    void Text8_Change(const std::string& text);
    void Text17_Change(const std::string& text);
    void Text16_Change(const std::string& text);
    bool name_filters_shown() const;

    void Combo_COMANDI_Click(int index);
    void Combo_UTILIZZATORI_Click(int index);
    // Opening a combo's list while a link waits for "COLLEGA": false keeps it.
    bool leave_unconfirmed();

    std::string Label26_0, Label26_1;  // the keys of the two points
    std::string Label6, Label5, Label9, Label22, Label19;
    std::string ISTRUZIONE;  // Label15
    std::vector<store::ListEntry> LISTA_COMANDATI, LISTA_COMANDANTI;
    // The decoded text of a link, as the details show it.
    std::string link_text(std::int64_t id);

    // The modes: Option1(1..9).
    struct ModeButton {
        bool visible = false;
        bool green = false;  // selected, or the stored mode
        std::string caption;
    };
    std::array<ModeButton, links::kModeCount + 1> Option1;
    void Option1_Click(int index);
    links::TimeBoxes boxes() const;
    links::LinkEditor& editor() { return *editor_; }
    const links::LinkEditor& editor() const { return *editor_; }

    // A time box typed (Text1..3, Text3bis; 4..6, 6bis; 11..13, 13bis): the
    // text as it stands after the rules of the boxes.
    enum class Time { On, DelayOn, DelayOff };
    enum class Part { Hours, Minutes, Seconds, Tenths };
    std::string time_box_change(Time time, Part part, const std::string& text);
    bool tenths_shown(Time time) const;

    bool List1_shown() const;
    std::vector<store::ListEntry> List1;  // the messages of a message module
    void List1_select(int index, bool selected);

    // "COLLEGA" (Image4(1)) and its blinking.
    std::string DA_CONFERMARE = "NO";
    void Image4_1_Click();
    // "Esci" (Image4(2)).
    void Image4_2_Click();

    // The details of one link (Frame6) and Label24: "Elimina", "Chiudi".
    bool Frame6 = false;
    std::string Label21, Label23;
    void list_double_click(std::int64_t id);
    void LISTA_COMANDANTI_Click(int index);
    void LISTA_COMANDATI_Click(int index);
    void Label24_Click(int index);

    void Label29_Click();           // "OPZIONI"
    void Label26_Click(int index);  // opens a point's module
    void module_closed();           // back from it
    bool Check3 = false;            // "AUTOSELECT"
    void Check3_Click(bool ticked);
    // The point-picking consumer of the line: a frame while
    // ACQUISIZIONE_PUNTO is "SI". A button of a known module selects its
    // command point; Label_picked shows code "/" input.
    void point_picked(const std::string& RX_TRAMA);
    std::string Label_picked;
    // The type answer consumer: the module the project lacked answers its
    // type, is entered and, once its point has a name, selected.
    void type_answer(const std::string& RX_TRAMA);
    std::string Label25;  // the line's state

  private:
    void after_selection();
    void reset_mode_area();
    void RICARICO_OGGETTI();
    void fill_commanded();
    int find_entry(const std::vector<store::ListEntry>& list, const std::string& text) const;
    // Selects the command point of a picked input; `may_open` lets an unnamed
    // point's module open first.
    void select_picked(const std::string& address, int input, bool may_open);

    Session& session_;
    LinkEditorHost host_;
    std::unique_ptr<store::PointLists> lists_;
    std::unique_ptr<store::LinkQueries> queries_;
    std::unique_ptr<links::LinkEditor> editor_;
    std::string awaited_address_;  // of the type answer
    int picked_input_ = 0;
};

}  // namespace filo::app
