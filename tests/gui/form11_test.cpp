// Form11, the panel interface's window, opened from the project window on
// the demo installation: messages typed, saved and programmed into the panel.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTextEdit>

#include "app/form11.hpp"
#include "app/form3.hpp"
#include "app/mdi_form1.hpp"
#include "app/programming_window.hpp"
#include "app/project_hub.hpp"
#include "bus/module_code.hpp"
#include "gui/gui_fixture.hpp"
#include "sim/simulator.hpp"

namespace filo::testing {
namespace {

using PanelWindow = DemoInstallationTest;

// The list dropped and closed by the installer, then entry `index` chosen.
void choose_message(QComboBox* list, int index) {
    list->showPopup();
    list->hidePopup();
    list->setCurrentIndex(index);
    emit list->activated(index);
}

TEST_F(PanelWindow, ANewPanelLeavesNothingWithoutSalvaAndTheDemoPanelIsProgrammed) {
    ASSERT_NO_FATAL_FAILURE(connect_installation());
    ASSERT_NO_FATAL_FAILURE(show_project_window());
    app::ProjectHub& hub = main->form3()->tool();
    hub.Text3_Change(bus::printed_code("00091E"));
    hub.Timer2_Timer();
    app::Form11* window = main->panel_window();
    ASSERT_NE(window, nullptr);

    child<QPushButton>(window, "Image1_0")->click();  // Salva without a name: refused
    ASSERT_FALSE(messages.shown.empty());
    EXPECT_EQ(messages.shown.back().text, "E necessario assegnare un nome ak modulo");
    EXPECT_EQ(main->panel_window(), window);
    messages.answers = {true};
    child<QPushButton>(window, "Image1_5")->click();  // Esci, yes
    ASSERT_TRUE(QTest::qWaitFor([&] { return main->panel_window() == nullptr; }, 5000));
    EXPECT_EQ(main->findChild<QStackedWidget*>()->currentWidget(), main->form3());
    session.modules.VERIFICA_MODULO("00091E");
    EXPECT_EQ(session.modules.STATO_MODULO, store::kNuovoModulo);

    // The demo's panel gets two messages, and the run writes them into it.
    hub.Combo1_Click("00701E  Pannello ingresso");
    hub.Timer2_Timer();
    window = main->panel_window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(child<QLineEdit>(window, "Text4")->text(), "Pannello ingresso");
    auto* list = child<QComboBox>(window, "Combo1");
    auto* text = child<QTextEdit>(window, "RichTextBox1");
    auto* name = child<QLineEdit>(window, "Text1");
    auto* colour = child<QComboBox>(window, "Combo3");
    auto* mode = child<QComboBox>(window, "Combo4");

    // Message 1, blinking red; message 2 in green, chosen behind red's code.
    name->selectAll();
    QTest::keyClicks(name, "Porta aperta");
    text->moveCursor(QTextCursor::End);
    QTest::keyClicks(text, "Porta aperta");
    EXPECT_EQ(child<QLineEdit>(window, "Text5")->text(), "04");
    mode->setCurrentIndex(3);
    emit mode->activated(3);
    choose_message(list, 1);
    EXPECT_EQ(text->toPlainText(), "\\b");
    emit colour->activated(2);
    EXPECT_EQ(text->toPlainText(), "\\h");
    name->selectAll();
    QTest::keyClicks(name, "Benvenuti");
    QTest::keyClicks(text, "Benvenuti");
    mode->setCurrentIndex(0);
    emit mode->activated(0);
    child<QCheckBox>(window, "Check1")->click();
    child<QPushButton>(window, "Image1_0")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return main->panel_window() == nullptr; }, 5000));

    EXPECT_EQ(program_from_project_window().report().N_ERRORI, 0);
    // Two records a message; the persistence is packed into one character.
    const sim::SimModule panel = module_on_bus("00701E");
    EXPECT_EQ(panel.texts, (std::map<std::uint8_t, std::string>{{0x01, "4V\\bPorta aperta"},
                                                                {0x03, "2B\\hBenvenuti"}}));
    EXPECT_EQ(panel.registers.count(0x01) ? panel.registers.at(0x01) : -1, 0x01);  // the count
}

}  // namespace
}  // namespace filo::testing
