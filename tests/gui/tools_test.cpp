// The main menu, the new project and the connection, without a screen.
#include <fstream>

#include "app/connection.hpp"
#include "app/main_menu.hpp"
#include "app/new_project.hpp"
#include "app/single_instance.hpp"
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
            EXPECT_EQ(messages.shown[0].text,
                      "Altre periferiche installate su questo PC non consentono\n"
                      "il rilevamento automatico della porta seriale di comunicazione. \n\n"
                      "Per risolvere il problema puoi : \n"
                      "SELEZIONARE MANUALMENTE  DA UN ELENCO   \n"
                      "la porta seriale a cui hai connesso il programmatore \n\n"
                      "OPPURE ELIMINARE IL CONFLITTO e riprovare la CONNESSIONE AUTOMATICA ");
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

TEST_F(SessionTest, ANewProjectIsCopiedFromTheEmptyOneUnderAValidName) {
    app::NewProject form{session};
    form.load();
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "DATIBASE.BAW"));
    const struct {
        std::string name;
        bool made;
        std::string told;  // under the title "     Creazione progetto"
    } cases[] = {
        {"", false, "Inserire un nome progetto valido"},
        {" casa", false, "Inserire un nome progetto valido"},
        {"Casa Bianchi", true, "Progetto Casa Bianchi Creato"},
        {"Casa Bianchi", false, "Casa Bianchi  Questo progetto esiste già"},
    };
    for (const auto& c : cases) {
        messages.shown.clear();
        EXPECT_EQ(form.create(c.name), c.made) << c.name;
        ASSERT_EQ(messages.shown.size(), 1u) << c.name;
        EXPECT_EQ(messages.shown[0], (Shown{c.told, "     Creazione progetto"}));
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

TEST_F(ConnectionTest, APortThatWillNotOpenIsReportedAndLeavesTheLineOff) {
    ASSERT_TRUE(connection.choose("/dev/pts/7"));
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
