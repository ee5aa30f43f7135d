// The project window's tool object: codes typed and chosen, the gesture,
// the menu and the scan, without a screen.
#include "app/project_hub.hpp"

#include "app/module_window.hpp"

#include "bus/module_code.hpp"
#include "gui/gui_fixture.hpp"

namespace filo::testing {
namespace {

using texts::Text;

class HubTest : public SessionTest {
  protected:
    HubTest() {
        open_new_project();
        host.show_connection = [this] {
            ++connection_shown;
            if (!connect_to.empty()) session.use_port(connect_to);
        };
        host.show_programming = [this] { ++programming_shown; };
        host.show_monitor = [this] { ++monitor_shown; };
        host.show_main_menu = [this] { ++main_menu_shown; };
        host.show_report = [this](int n) { reports.push_back(n); };
        host.close_report = [this] { ++reports_closed; };
        host.schedule_scan_tick = [this](int ms) { next_tick.push_back(ms); };
        // The installer saves each module the window opens on.
        host.show_module = [this](bool) {
            app::ModuleWindow window(session);
            windows.push_back(session.modules.CODICE_MODULO);
            if (window.load()) window.Image1_Click(1);
        };
    }
    app::ProjectHub& hub() {
        if (!hub_) {
            hub_ = std::make_unique<app::ProjectHub>(session, host);
            EXPECT_TRUE(hub_->load());
        }
        return *hub_;
    }
    // Types the code and lets Timer2 run when it was armed.
    void type(const std::string& code) {
        hub().Text3_Change(code);
        if (hub().Timer2) hub().Timer2_Timer();
    }
    // Runs the scan to its end as the window's timer does.
    void run_scan() {
        while (!next_tick.empty() && hub().scanning()) {
            const int ms = next_tick.back();
            next_tick.clear();
            line.serve_until(line.clock().now() + ms / 1000.0, [] { return false; });
            hub().scan_tick();
        }
    }

    app::HubHost host;
    std::unique_ptr<app::ProjectHub> hub_;
    int connection_shown = 0, programming_shown = 0, main_menu_shown = 0, monitor_shown = 0;
    std::vector<int> reports;  // the report windows asked for
    int reports_closed = 0;
    std::string connect_to;
    std::vector<int> next_tick;
    std::vector<std::string> windows;  // the modules MODULI opened on
};

TEST_F(HubTest, ATypedCodeIsCheckedAndANewModuleEntered) {
    add_module("00121F");
    add_module("00AA15");
    session.modules.CODICE_MODULO = "00AA15";
    session.modules.LEGGI_MODULO("00AA15");
    session.modules.CANCELLA_MODULO();  // its number is free again
    const std::string wrong = "00131F00";
    const struct {
        std::string typed;
        std::vector<Shown> told;  // messages, in order
        std::string text_after;
    } cases[] = {
        {"001319", {}, "001319"},  // six characters: nothing yet
        {wrong, {{"Codice inserito non corretto", "ATTENZIONE"}}, ""},
        {bus::printed_code("001215"), {{"Codice già in uso in questo progetto", "ATTENZIONE"}}, ""},
        {bus::printed_code("00121F"), {}, ""},  // stored: opened for editing
        {bus::printed_code("002015"), {}, ""},  // new: prepared, saved in the window
        {bus::printed_code("00AA14"), {}, ""},
    };
    for (const auto& c : cases) {
        messages.shown.clear();
        type(c.typed);
        EXPECT_EQ(messages.shown, c.told) << c.typed;
        EXPECT_EQ(hub().Text3, c.text_after) << c.typed;
    }
    EXPECT_EQ(windows, (std::vector<std::string>{"00121F", "002015", "00AA14"}));
    EXPECT_EQ(session.modules.ELENCO_CODICI,
              (std::vector<std::string>{"00121F", "002015", "00AA14"}));
    EXPECT_EQ(hub().caption.substr(hub().caption.size() - 1), "3");
}

TEST_F(HubTest, FiveDoubleClicksEachWithinTwoSecondsTakeCodesWithoutCheckDigits) {
    // Four, then the timer runs out: the count starts again.
    for (int i = 0; i < 4; ++i) hub().Label25_DblClick();
    EXPECT_TRUE(hub().Timer7);
    hub().Timer7_Timer();
    EXPECT_EQ(hub().CONTATORE_DOPPI_CLIC, 0);
    for (int i = 0; i < 4; ++i) hub().Label25_DblClick();
    EXPECT_EQ(session.CONTROLLO_CODICE, "");
    EXPECT_EQ(hub().Label25, "");
    hub().Label25_DblClick();
    EXPECT_EQ(session.MODO_ESPERTO, "SI");
    EXPECT_EQ(session.CONTROLLO_CODICE, "NO");
    EXPECT_EQ(hub().Label25, "******************");
}

TEST_F(HubTest, ChoosingFromTheListsSetsTheModuleAndHeadingsAreNotTaken) {
    add_module("00121F");
    hub().Combo1_Click("00121F  cucina");
    EXPECT_TRUE(hub().Timer2);
    EXPECT_EQ(hub().CODICE_MODULO(), "00121F");
    hub().Timer2 = false;
    EXPECT_FALSE(hub().Combo2_Click(0));
    EXPECT_FALSE(hub().Timer2);
    EXPECT_TRUE(hub().Combo2_Click(0x1003015));
    EXPECT_EQ(hub().CODICE_MODULO(), "003015");
    EXPECT_EQ(session.modules.TIPO_MODULO, "15");
    // While the scan's comparison fills the list, a change there is no choice.
    hub().Timer2 = false;
    hub().combo1_held = true;
    hub().Combo1_Click("00121F");
    EXPECT_FALSE(hub().Timer2);
}

// The utility entries keep the report window; the main ones close it.
TEST_F(HubTest, TheMenuOpensFramesAndReportsAndSaysWhatIsNotYetThere) {
    const std::string not_yet = "Non ancora disponibile in questa versione: ";
    const struct {
        int index;
        bool frame2, frame3, frame4;
        int report;  // the report window asked for, if any
        std::vector<std::string> told;
    } empty_project[] = {
        {3, false, false, true, 0, {}},
        {6, false, false, true, 1, {}},
        {7, false, false, true, 2, {}},
        {10, false, false, true, 5, {}},
        {13, false, false, true, 0, {not_yet + "ESPORTA PROGETTO"}},
        {15, false, false, true, 0, {not_yet + "Wizard"}},
        {4, false, false, false, 0, {}},  // nothing to program: not even the connection
        {0, true, false, false, 0, {}},
        {1, false, false, false, 0, {}},  // nothing to choose in an empty project
        {2, false, false, false, 0, {not_yet + "Collega moduli"}},
    };
    for (const auto& c : empty_project) {
        messages.shown.clear();
        reports.clear();
        hub().menu_click(c.index);
        EXPECT_EQ(hub().Frame2, c.frame2) << c.index;
        EXPECT_EQ(hub().Frame3, c.frame3) << c.index;
        EXPECT_EQ(hub().Frame4, c.frame4) << c.index;
        EXPECT_EQ(reports, c.report ? std::vector<int>{c.report} : std::vector<int>{}) << c.index;
        EXPECT_EQ(shown_texts(), c.told) << c.index;
    }
    EXPECT_EQ(reports_closed, 4);
    EXPECT_EQ(connection_shown, 0);
    EXPECT_EQ(programming_shown, 0);
    hub().menu_click(app::ProjectHub::BackToStart);
    EXPECT_EQ(main_menu_shown, 1);
    EXPECT_EQ(session.PROGETTO_CHIUSO, "SI");
}

TEST_F(HubTest, ProgrammingNeedsTheLineAndAsksForItFirst) {
    add_module("00121F");
    hub().menu_click(app::ProjectHub::Program);
    EXPECT_EQ(connection_shown, 1);
    EXPECT_EQ(programming_shown, 0);  // no port chosen: the command ends
    connect_to = "/dev/ttyUSB0";
    hub().menu_click(app::ProjectHub::Program);
    EXPECT_EQ(connection_shown, 2);
    EXPECT_EQ(programming_shown, 1);
    hub().menu_click(app::ProjectHub::Program);  // on line: straight on
    EXPECT_EQ(connection_shown, 2);
    EXPECT_EQ(programming_shown, 2);
    messages.shown.clear();
    hub().monitor_click();
    EXPECT_EQ(monitor_shown, 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(HubTest, TheScanOffersTheModulesThatAnswerAndTheProjectLacks) {
    add_module("00121F");
    line.set_peer(installation({{0x12, 0x1F}, {0x30, 0x15}, {0x31, 0x14}, {0x12, 0x15}}));
    // What the window shows when the offer comes up.
    std::vector<std::string> shown_at_offer;
    host.changed = [&] {
        if (messages.asked.empty()) shown_at_offer = hub().List2;
    };
    // Off line the connection comes first; with no port chosen, no scan.
    hub().menu_click(app::ProjectHub::Scan);
    EXPECT_EQ(connection_shown, 1);
    EXPECT_FALSE(hub().scanning());
    connect_to = "/dev/ttyUSB0";
    messages.answers = {true, false};  // insert them; don't suspend after the first
    hub().menu_click(app::ProjectHub::Scan);
    ASSERT_TRUE(hub().scanning());
    EXPECT_EQ(hub().Label33, "SOSPENDI SCANSIONE");
    EXPECT_EQ(hub().scan_status, "SCANSIONE  IN  CORSO . . . . . . . ");
    // During the scan only its own entry answers.
    hub().menu_click(app::ProjectHub::AddModule);
    EXPECT_FALSE(hub().Frame2);
    run_scan();
    EXPECT_FALSE(hub().scanning());
    EXPECT_EQ(hub().List1, (std::vector<std::string>{"00121F", "001215", "003015", "003114"}));
    // 0012 is in the project by number and type 1F; 001215 is another type
    // on the same number: offered, and refused when entered.
    EXPECT_EQ(hub().List2, (std::vector<std::string>{"001215", "003015", "003114"}));
    EXPECT_EQ(shown_at_offer, hub().List2);
    ASSERT_EQ(messages.asked.size(), 3u);
    EXPECT_EQ(messages.asked[0].text,
              "RILEVATI MODULI NON INSERITI NEL PROGETTO\nVUOI INSERIRLI ?");
    EXPECT_EQ(messages.asked[1].text, "VUOI SOSPENDERE L'INSERIMENTO ?");
    // Each new module opened in turn; the one on a taken number refused.
    EXPECT_EQ(windows, (std::vector<std::string>{"003015", "003114"}));
    EXPECT_EQ(session.modules.ELENCO_CODICI,
              (std::vector<std::string>{"00121F", "003015", "003114"}));
    EXPECT_EQ(hub().Label33, "SCANSIONE IMPIANTO");
    EXPECT_EQ(hub().scan_status, "SCANSIONE  TERMINATA");
    EXPECT_FALSE(hub().scan_frame);  // the window was loaded again
    EXPECT_EQ(hub().caption.back(), '3');
}

}  // namespace
}  // namespace filo::testing
