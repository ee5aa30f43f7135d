// The windows, offscreen: what an installer clicks and types.
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <cstdlib>
#include <filesystem>

#include "app/form1.hpp"
#include "app/form3.hpp"
#include "app/mdi_form1.hpp"
#include "app/moduli.hpp"
#include "app/project_hub.hpp"
#include "bus/module_code.hpp"
#include "gui/gui_fixture.hpp"
#include "support/run_program.hpp"

namespace filo::testing {
namespace {

class WindowsTest : public SessionTest {
  protected:
    WindowsTest() {
        services.list_ports = [] {
            return std::vector<platform::PortInfo>{{"/dev/ttyUSB0", "FT232R (ttyUSB0)"}};
        };
        services.open_port = [](const std::string& path) -> std::unique_ptr<platform::SerialPort> {
            throw platform::PortError(path, "not in this test");
        };
        services.choose_project_file = [this](QWidget*, const QString&, const QString&) {
            return chosen_file;
        };
        services.exec_dialog = [this](QDialog& dialog) {
            dialogs.push_back(dialog.objectName().toStdString());
            if (on_dialog) on_dialog(dialog);
            return dialog.result();
        };
    }
    app::MDIForm1& window() {
        if (!window_) {
            window_ = std::make_unique<app::MDIForm1>(session, services);
            window_->show();
        }
        return *window_;
    }
    QWidget* form() { return window().current_form(); }
    void click(const char* name) {
        auto* button = child<QAbstractButton>(form(), name);
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void create_project(const std::string& name) {
        click("Image4_1");
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return child<QToolButton>(form(), "Image4_0")->isEnabled(); }));
        QTest::keyClicks(child<QLineEdit>(form(), "Text1"), QString::fromStdString(name));
        click("Image4_0");
    }

    app::AppServices services;
    QString chosen_file;
    std::vector<std::string> dialogs;
    std::function<void(QDialog&)> on_dialog;
    std::unique_ptr<app::MDIForm1> window_;
};

TEST_F(WindowsTest, TheMainMenuFollowsTheLevelTheLanguageAndTheHelp) {
    ASSERT_EQ(form()->objectName(), "Form1");
    EXPECT_EQ(child<QLabel>(form(), "Label4")->text(), "3");
    click("Label6_0");
    EXPECT_EQ(child<QLabel>(form(), "Label4")->text(), "1");
    EXPECT_EQ(session.LIVELLO, 1);
    // The toolkit's question buttons follow the language too.
    const struct {
        const char* flag;
        const char* open;
        const char* exit;
        const char* yes;
    } cases[] = {{"Image3_2", "Ouvrir un projet ", "Quitter le programme ", "&Oui"},
                 {"Image3_3", "Öffnen ", "Programm beenden ", "&Ja"},
                 {"Image3_4", "Apri progetto ", "Esci dal programma ", "&Sì"}};
    for (const auto& c : cases) {
        click(c.flag);
        EXPECT_EQ(child<QLabel>(form(), "Label1")->text(), QString::fromUtf8(c.open));
        EXPECT_EQ(child<QLabel>(form(), "Label3")->text(), QString::fromUtf8(c.exit));
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "&Yes"), QString::fromUtf8(c.yes));
    }
    // The help panel goes and comes back with the "i".
    EXPECT_TRUE(child<QGroupBox>(form(), "Frame1")->isVisible());
    click("Label5");
    EXPECT_FALSE(child<QGroupBox>(form(), "Frame1")->isVisible());
    click("Label5");
    EXPECT_TRUE(child<QGroupBox>(form(), "Frame1")->isVisible());
}

TEST_F(WindowsTest, ProjectsOpenedOrMadeLeadToTheProjectWindowAndBack) {
    open_new_project("Studio");
    session.project.close();
    click("Image4_0");  // no file chosen: nothing happens
    EXPECT_EQ(form()->objectName(), "Form1");
    chosen_file = QString::fromStdString(session.files.project_path("Studio").string());
    click("Image4_0");
    ASSERT_EQ(form()->objectName(), "Form3");
    EXPECT_EQ(session.project.NOME_PROGETTO, "Studio");
    // The main window stays while the project window is there.
    window().close();
    EXPECT_TRUE(window().isVisible());
    click("Image1_5");
    ASSERT_TRUE(QTest::qWaitFor([&] { return form()->objectName() == "Form1"; }));
    EXPECT_EQ(session.PROGETTO_CHIUSO, "SI");
    // Nor may the main menu be closed but by its own exit.
    window().close();
    EXPECT_TRUE(window().isVisible());

    messages.shown.clear();
    create_project("Villa");
    ASSERT_EQ(form()->objectName(), "Form3");
    EXPECT_EQ(shown_texts(), std::vector<std::string>{"Progetto Villa Creato"});
    EXPECT_EQ(window().windowTitle(), "WINDOW 3  Progetto : Villa    moduli presenti  0");
    EXPECT_EQ(child<QLabel>(form(), "Label1")->text(), "Villa");
}

TEST_F(WindowsTest, TypedOrListedCodesOpenTheModuleWindowAndTheGestureSkipsTheCheck) {
    create_project("Casa");
    messages.shown.clear();
    click("Image1_0");
    auto* text3 = child<QLineEdit>(form(), "Text3");
    ASSERT_TRUE(child<QGroupBox>(form(), "Frame2")->isVisible());
    // Lower case becomes capitals, other characters are dropped.
    QTest::keyClicks(text3, "00x13-1f0");
    EXPECT_EQ(text3->text(), "00131F0");
    QTest::keyClicks(text3, "0");  // the eighth: wrong check digits
    EXPECT_EQ(messages.shown, (std::vector<Shown>{{"Codice inserito non corretto", "ATTENZIONE"}}));
    EXPECT_EQ(text3->text(), "");
    // A right code opens the new module in the module window, saved there.
    const auto save_in_module_window = [&](const char* code) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return window().module_window() != nullptr; }));
        EXPECT_EQ(session.modules.CODICE_MODULO, code);
        QTest::mouseClick(window().module_window()->findChild<QPushButton*>("Image1_1"),
                          Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window().module_window() == nullptr; }));
    };
    QTest::keyClicks(text3, QString::fromStdString(bus::printed_code("00131f")));
    save_in_module_window("00131F");
    EXPECT_EQ(child<QComboBox>(form(), "Combo1")->count(), 1);
    EXPECT_TRUE(window().windowTitle().endsWith("moduli presenti  1"));

    auto* label25 = child<QLabel>(form(), "Label25");
    for (int i = 0; i < 5; ++i) QTest::mouseDClick(label25, Qt::LeftButton);
    EXPECT_EQ(label25->text(), "******************");
    click("Image1_0");
    QTest::keyClicks(text3, "00401500");
    save_in_module_window("004015");
    // A module chosen from the list opens in the module window too.
    click("Image1_1");
    auto* combo1 = child<QComboBox>(form(), "Combo1");
    ASSERT_EQ(combo1->count(), 2);
    combo1->setCurrentIndex(1);
    emit combo1->activated(1);
    save_in_module_window("004015");
    // The main menu clears the gesture again.
    click("Image1_5");
    ASSERT_TRUE(QTest::qWaitFor([&] { return form()->objectName() == "Form1"; }));
    click("Image4_1");
    EXPECT_EQ(session.CONTROLLO_CODICE, "");
}

TEST_F(WindowsTest, TheConnectionWindowTakesATypedPathAndTheWindowsShowTheLine) {
    on_dialog = [](QDialog& d) {
        EXPECT_EQ(d.windowTitle(), " GESTIONE CONNESSIONE PROGRAMMATORE");
        auto* combo = d.findChild<QComboBox*>("ComboCOM");
        ASSERT_NE(combo, nullptr);
        EXPECT_EQ(combo->count(), 1);
        d.findChild<QLineEdit*>("Text1")->setText("/dev/pts/7");
        QTest::mouseClick(d.findChild<QPushButton*>("Command2"), Qt::LeftButton);
    };
    click("Image4_2");
    EXPECT_EQ(dialogs, std::vector<std::string>{"SERIALE"});
    EXPECT_EQ(session.PORTA_COM, "/dev/pts/7");
    EXPECT_EQ(child<QLabel>(form(), "Label9")->text(), "Disconnetti ");
    EXPECT_EQ(child<QLabel>(form(), "label22")->text(), "ON_LINE  su comm   /dev/pts/7");
    // Again: the port closes, and no window is shown.
    click("Image4_2");
    EXPECT_EQ(dialogs.size(), 1u);
    EXPECT_EQ(session.PORTA_COM, "");
    EXPECT_EQ(child<QLabel>(form(), "Label9")->text(), "Connetti all'impianto ");
    EXPECT_EQ(child<QLabel>(form(), "label22")->text(), "OFF_LINE ");
}

// Options are answered before the toolkit looks for a display.
TEST(FiloProgram, AnswersItsOptionsWithoutADisplay) {
    // The programs are built beside this one.
    if (!std::getenv("FILO_BIN_DIR"))
        ::setenv("FILO_BIN_DIR",
                 std::filesystem::read_symlink("/proc/self/exe").parent_path().c_str(), 1);
    const std::map<std::string, std::string> no_display = {
        {"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}};
    const auto help = run_program("filo", {"--help"}, no_display);
    EXPECT_EQ(help.exit_code, 0) << help.err;
    EXPECT_NE(help.out.find("--demo"), std::string::npos) << help.out;
    EXPECT_EQ(run_program("filo", {"--no-such-option"}, no_display).exit_code, 1);
}

}  // namespace
}  // namespace filo::testing
