// The main menu, the new project and the connection, without a screen.
#include <fstream>
#include <functional>

#include "app/connection.hpp"
#include "app/main_menu.hpp"
#include "app/new_project.hpp"
#include "app/project_hub.hpp"
#include "app/single_instance.hpp"
#include "bus/module_code.hpp"
#include "gui/gui_fixture.hpp"
#include "support/fake_serial_port.hpp"

namespace filo::testing {
namespace {

using texts::Text;

class MainMenuTest : public SessionTest {
  protected:
    MainMenuTest() { session.LIVELLO = 0; }
    app::MainMenu menu{session};
};

TEST_F(MainMenuTest, FirstLoadTakesItalianTheAdvancedLevelAndTheHelpPanel) {
    session.MODO_ESPERTO = "SI";
    session.project.DATABASE_APERTO = "SI";
    menu.load();
    EXPECT_EQ(session.texts.SIGLA_LINGUA, "ITA");
    EXPECT_EQ(session.LIVELLO, 3);
    EXPECT_TRUE(session.AIUTO);
    EXPECT_EQ(menu.Label10, session.texts.text(Text::HELP_PANEL));
    EXPECT_EQ(session.MODO_ESPERTO, "");
    EXPECT_EQ(session.project.DATABASE_APERTO, "");
    EXPECT_EQ(session.STATO_LINEA, "OFF_LINE ");
    EXPECT_TRUE(messages.shown.empty());
    // A level chosen stays when the menu is shown again.
    menu.choose_level(0);
    menu.load();
    EXPECT_EQ(session.LIVELLO, 1);
}

TEST_F(MainMenuTest, AFailedPortSearchIsToldAtEachStartUntilTheNextSearch) {
    const struct {
        const char* line;
        bool told;
    } cases[] = {{"ERRORE1", true}, {"ERRORE1\r", true}, {"ALTRO", false}, {nullptr, false}};
    for (const auto& c : cases) {
        const auto marker = dir.path() / "CONFIGURAZIONI.TTN";
        std::filesystem::remove(marker);
        if (c.line) std::ofstream(marker) << c.line << "\n";
        messages.shown.clear();
        menu.load();
        ASSERT_EQ(messages.shown.size(), c.told ? 1u : 0u) << (c.line ? c.line : "no marker");
        if (c.told) {
            EXPECT_EQ(messages.shown[0].title, "           F i l o ");
            EXPECT_EQ(messages.shown[0].text, session.texts.text(Text::PORT_SEARCH_CONFLICT));
            // Telling it leaves the marker for the next search to remove.
            EXPECT_TRUE(std::filesystem::exists(marker));
        }
    }
}

TEST_F(MainMenuTest, OpeningNamesTheProjectAfterItsFileAndRefusesAMissingOne) {
    menu.load();
    EXPECT_FALSE(menu.open_project(dir.path() / "nessuno.TRN"));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0], (Shown{" Questo progetto non esiste", ""}));

    // Any folder, and the title loses exactly its 4-character extension.
    const auto other = dir.path() / "altrove";
    std::filesystem::create_directories(other);
    std::ofstream(other / "Villa Rossi.mdb") << "";
    session.project.DATABASE_APERTO = "SI";
    EXPECT_TRUE(menu.open_project(other / "Villa Rossi.mdb"));
    EXPECT_EQ(session.project.NOME_PROGETTO, "Villa Rossi");
    EXPECT_EQ(session.project.PERCORSO_PROGETTO, (other / "Villa Rossi.mdb").string());
    EXPECT_EQ(session.project.DATABASE_APERTO, "");
}

TEST_F(MainMenuTest, ConnectClosesAPortInUseAndOtherwiseAsksForTheConnectionWindow) {
    menu.load();
    EXPECT_EQ(menu.connect_caption(), "Connetti all'impianto ");
    EXPECT_TRUE(menu.connect_clicked());
    ASSERT_TRUE(session.use_port("/dev/ttyUSB0"));
    EXPECT_EQ(menu.connect_caption(), "Disconnetti ");
    EXPECT_EQ(session.STATO_LINEA, "ON_LINE  su comm   /dev/ttyUSB0");
    EXPECT_FALSE(menu.connect_clicked());
    EXPECT_EQ(port.is_open, "");
    EXPECT_EQ(session.PORTA_COM, "");
    EXPECT_EQ(session.STATO_LINEA, "OFF_LINE ");
}

TEST_F(SessionTest, ANewProjectIsCopiedFromTheEmptyOneUnderAValidName) {
    app::NewProject form{session};
    form.load();
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "DATIBASE.BAW"));
    const struct {
        std::string name;
        bool made;
        Shown message;
    } cases[] = {
        {"", false, {"Inserire un nome progetto valido", "     Creazione progetto"}},
        {" casa", false, {"Inserire un nome progetto valido", "     Creazione progetto"}},
        {"Casa Bianchi", true, {"Progetto Casa Bianchi Creato", "     Creazione progetto"}},
        {"Casa Bianchi",
         false,
         {"Casa Bianchi  Questo progetto esiste già", "     Creazione progetto"}},
    };
    for (const auto& c : cases) {
        messages.shown.clear();
        EXPECT_EQ(form.create(c.name), c.made) << c.name;
        ASSERT_EQ(messages.shown.size(), 1u) << c.name;
        EXPECT_EQ(messages.shown[0], c.message);
    }
    EXPECT_EQ(session.project.NOME_PROGETTO, "Casa Bianchi");
    EXPECT_EQ(session.project.DATABASE_APERTO, "SI");
    EXPECT_TRUE(session.project.is_open());
}

class ConnectionTest : public SessionTest {
  protected:
    ConnectionTest() { port.openable.insert("/dev/ttyACM1"); }
    app::Connection connection{
        session,
        [] {
            return std::vector<platform::PortInfo>{{"/dev/ttyUSB0", "FT232R (ttyUSB0)"},
                                                   {"/dev/ttyACM1", "cdc_acm (ttyACM1)"}};
        },
        [this](const std::string& path) -> std::unique_ptr<platform::SerialPort> {
            tried.push_back(path);
            if (path == "/dev/missing") throw platform::PortError(path, "no such device");
            return std::make_unique<FakeSerialPort>(
                path, echoing.count(path) ? Device::Programmer : Device::Silent);
        }};
    std::set<std::string> echoing;
    std::vector<std::string> tried;
};

TEST_F(ConnectionTest, AManualChoiceOpensThePortOrReportsTheFailure) {
    connection.ELENCO_COM();
    ASSERT_EQ(connection.ComboCOM.size(), 2u);
    EXPECT_TRUE(connection.choose("/dev/pts/7"));  // a path typed, such as a pty
    EXPECT_EQ(session.PORTA_COM, "/dev/pts/7");
    EXPECT_EQ(connection.Label1, "ON_LINE  su comm   /dev/pts/7");
    EXPECT_TRUE(messages.shown.empty());

    EXPECT_FALSE(connection.choose("/dev/ttyS9"));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0],
              (Shown{"Controlla il sistema", "Errore di assegnazione porta seriale"}));
    EXPECT_EQ(session.PORTA_COM, "");
    EXPECT_EQ(port.is_open, "");
}

TEST_F(ConnectionTest, TheSearchTriesEveryPortAndTakesTheFirstThatEchoes) {
    const struct {
        std::set<std::string> echoing;
        std::vector<std::string> extra;
        std::string found;
    } cases[] = {
        {{"/dev/ttyUSB0", "/dev/ttyACM1"}, {}, "/dev/ttyUSB0"},
        {{"/dev/ttyACM1"}, {"/dev/missing"}, "/dev/ttyACM1"},
        {{"/dev/pts/7"}, {"/dev/pts/7"}, "/dev/pts/7"},
        {{}, {}, ""},
    };
    for (const auto& c : cases) {
        echoing = c.echoing;
        tried.clear();
        EXPECT_EQ(connection.CONNETTI(c.extra), !c.found.empty());
        EXPECT_EQ(session.PORTA_COM, c.found);
        EXPECT_EQ(port.is_open, c.found);
        std::vector<std::string> all = {"/dev/ttyUSB0", "/dev/ttyACM1"};
        all.insert(all.end(), c.extra.begin(), c.extra.end());
        EXPECT_EQ(tried, all);
        EXPECT_FALSE(std::filesystem::exists(dir.path() / "CONFIGURAZIONI.TTN"));
        EXPECT_EQ(connection.Label1,
                  c.found.empty() ? "OFF_LINE " : "ON_LINE  su comm   " + c.found);
    }
}

// The messages of start-up, the project window and the connection, blanks
// and line breaks as the installer reads them.
TEST_F(ConnectionTest, MessagesReadExactlyAsWritten) {
    app::MainMenu menu{session};
    app::NewProject form{session};
    app::HubHost host{.show_connection = [] {},
                      .show_programming = [] {},
                      .show_main_menu = [] {},
                      .schedule_scan_tick = [](int) {}};
    std::unique_ptr<app::ProjectHub> hub;
    auto type = [&](const std::string& code) {
        if (!hub) hub = std::make_unique<app::ProjectHub>(session, host);
        hub->load();
        hub->Text3_Change(code);
        if (hub->Timer2) hub->Timer2_Timer();
    };
    const std::string creation = "     Creazione progetto";
    const struct {
        std::function<void()> action;
        Shown told;
    } cases[] = {
        {[&] {
             std::ofstream(dir.path() / "CONFIGURAZIONI.TTN") << "ERRORE1\n";
             menu.load();
         },
         {"Altre periferiche installate su questo PC non consentono\n"
          "il rilevamento automatico della porta seriale di comunicazione. \n\n"
          "Per risolvere il problema puoi : \n"
          "SELEZIONARE MANUALMENTE  DA UN ELENCO   \n"
          "la porta seriale a cui hai connesso il programmatore \n\n"
          "OPPURE ELIMINARE IL CONFLITTO e riprovare la CONNESSIONE AUTOMATICA ",
          "           F i l o "}},
        {[&] { menu.open_project(dir.path() / "nessuno.TRN"); },
         {" Questo progetto non esiste", ""}},
        {[&] { form.create(" Villa"); }, {"Inserire un nome progetto valido", creation}},
        {[&] { form.create("Villa"); }, {"Progetto Villa Creato", creation}},
        {[&] { form.create("Villa"); }, {"Villa  Questo progetto esiste già", creation}},
        {[&] { connection.choose("/dev/ttyS9"); },
         {"Controlla il sistema", "Errore di assegnazione porta seriale"}},
        {[&] { type("00131F00"); }, {"Codice inserito non corretto", "ATTENZIONE"}},
        {[&] {
             add_module("00121F");
             type(bus::printed_code("001215"));
         },
         {"Codice già in uso in questo progetto", "ATTENZIONE"}},
    };
    for (const auto& c : cases) {
        messages.shown.clear();
        c.action();
        ASSERT_FALSE(messages.shown.empty()) << c.told.text;
        EXPECT_EQ(messages.shown[0], c.told);
    }
}

TEST(SingleInstance, ASecondCopyOnTheSameDirectoryIsRefusedUntilTheFirstEnds) {
    TempDir dir;
    auto first = std::make_unique<app::SingleInstance>(dir.path());
    EXPECT_TRUE(first->acquired());
    EXPECT_FALSE(app::SingleInstance(dir.path()).acquired());
    TempDir other;
    EXPECT_TRUE(app::SingleInstance(other.path()).acquired());
    first.reset();
    EXPECT_TRUE(app::SingleInstance(dir.path()).acquired());
}

}  // namespace
}  // namespace filo::testing
