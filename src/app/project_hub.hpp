#pragma once
// Form3, the project window: the hub from which modules are entered or
// chosen, the line is reached and the installation scanned.
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/hub_host.hpp"
#include "store/module_table.hpp"
#include "texts/text_key.hpp"

namespace filo::commissioning {
class InstallationScan;
}

namespace filo::app {

class Session;

class ProjectHub {
  public:
    // The menu entries Image1(index).
    enum Entry {
        AddModule = 0,
        EditModule = 1,
        LinkModules = 2,
        Utility = 3,
        Program = 4,
        BackToStart = 5,
        PrintCommands = 6,
        PrintModules = 10,
        Connection = 11,
        Scan = 12,
        Export = 13,
        Wizard = 15,
    };
    // The caption and the help of each entry; Text::NONE-like gaps (14) have none.
    static std::optional<texts::Text> entry_caption(int index);
    static std::optional<texts::Text> entry_help(int index);

    ProjectHub(Session& session, HubHost host);
    ~ProjectHub();

    // Form_Load: opens the database once, then the lists. False (after the
    // message) when the project can't be opened: the main menu comes back.
    bool load();
    // CERCA_MODULI: the lists and the caption.
    void CERCA_MODULI();
    // Form_Unload.
    void unload();

    std::string caption;
    store::ModuleLists lists;  // Combo1: by_code, Combo2: by_name
    std::string Label10;       // help
    bool Frame2 = false;       // typing of a code
    bool Frame3 = false;       // choice from the lists
    bool Frame4 = false;       // the utility menu
    bool scan_frame = false;

    // Image1 click.
    void menu_click(int index);
    // Mouse over an entry: its help while the panel is on.
    void hover(int index);
    // Label17.
    void monitor_click();

    // Text3: the hexadecimal filter on a key typed after current_length
    // characters; nothing when the key is refused.
    static std::optional<char> filter_key(char key, std::size_t current_length);
    // Text3_Change. The text may be cleared by a wrong code.
    void Text3_Change(const std::string& text);
    std::string Text3;
    // Combo1_Click with the entry's text; Combo2_Click with its item data:
    // false when the entry is no module and the selection goes.
    void Combo1_Click(const std::string& text);
    bool Combo2_Click(std::int64_t item_data);
    // Timer2: the module chosen is opened after the event that chose it.
    bool Timer2 = false;
    void Timer2_Timer();
    // A module opened from another window (the link editor's Label26), by
    // the same path as a module chosen here.
    void open_module(const std::string& codice);

    // The gesture: five double clicks on Label25, each within 2 s of the one
    // before (Timer7), take typed codes without their check digits.
    static constexpr int kGestureMs = 2000;
    void Label25_DblClick();
    void Timer7_Timer();
    int CONTATORE_DOPPI_CLIC = 0;
    bool Timer7 = false;
    std::string Label25;

    // The scan.
    void scan_tick();
    bool scanning() const;
    std::string Label33;      // the scan entry's caption
    std::string scan_status;  // "SCANSIONE IN CORSO", "SCANSIONE TERMINATA"
    int scan_progress = 0;
    std::vector<std::string> List1;  // codes found
    std::vector<std::string> List2;  // found and not in the project
    // Combo1 doesn't react while the comparison fills it.
    bool combo1_held = false;

    const std::string& CODICE_MODULO() const;

  private:
    void not_yet_available(texts::Text what);
    bool ensure_line();
    void start_or_stop_scan();
    void compare();

    Session& session_;
    HubHost host_;
    std::unique_ptr<commissioning::InstallationScan> scan_;
};

}  // namespace filo::app
