// MODULI: the tool object on a session with a scripted installer, and the
// view on the demo installation over a pseudo-terminal.
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>
#include <algorithm>

#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/mdi_form1.hpp"
#include "app/module_window.hpp"
#include "app/moduli.hpp"
#include "app/programming_window.hpp"
#include "app/project_hub.hpp"
#include "gui/gui_fixture.hpp"
#include "sim/simulator.hpp"
#include "store/sqlite.hpp"

namespace filo::testing {
namespace {

class ModuleWindowTest : public SessionTest {
  protected:
    ModuleWindowTest() { open_new_project(); }
    // MODULI on a stored module (or a new one when `stored` is false).
    app::ModuleWindow& open(const std::string& code, bool stored = true, int point = 0) {
        session.modules.CODICE_MODULO = code;
        session.modules.TIPO_MODULO = code.substr(4, 2);
        session.modules.STATO_MODULO = stored ? "MODULO_ESISTENTE" : "NUOVO_MODULO";
        window = std::make_unique<app::ModuleWindow>(session);
        EXPECT_TRUE(window->load(point));
        return *window;
    }
    std::unique_ptr<app::ModuleWindow> window;
};

TEST_F(ModuleWindowTest, ANewModuleReachesTheTableAtSalvaAndExitAsks) {
    app::ModuleWindow& w = open("000215", false);
    EXPECT_TRUE(w.new_module);  // ELIMINA MODULO does nothing yet
    EXPECT_EQ(w.Label7.substr(0, 6), "000215");
    EXPECT_TRUE(w.inputs[4].visible);
    EXPECT_FALSE(w.inputs[5].visible);  // four inputs on a four relay module
    w.Image1_Click(2);
    EXPECT_FALSE(w.closed());
    EXPECT_EQ(rows("nick", "000215"), 0);
    messages.answers = {false};
    w.Image1_Click(8);  // ESCI, then No: stays
    EXPECT_FALSE(w.closed());
    EXPECT_EQ(messages.asked.back().text, "Vuoi veramente uscire senza salvare  ?");
    ASSERT_TRUE(w.Text1_Change(1, "Luce sala"));
    w.Image1_Click(1);
    EXPECT_TRUE(w.closed());
    EXPECT_EQ(rows("nick", "000215"), 32);
}

TEST_F(ModuleWindowTest, PagesRefuseOnTheSpotAndSalvaMarksNamesInUse) {
    add_module("000115");
    add_module("000315");
    open("000115").Text1_Change(1, "Luce sala");
    window->Image1_Click(1);
    app::ModuleWindow& w = open("000315", true, 10);
    EXPECT_EQ(w.highlighted, 10);
    ASSERT_TRUE(w.Text1_Change(1, "Uno"));
    ASSERT_TRUE(w.Text1_Change(2, "Due"));
    ASSERT_TRUE(w.Combo2_Click(2, 'I'));
    w.Image8_Click(1);
    ASSERT_EQ(w.page, app::ModuleWindow::Page::Output);
    EXPECT_EQ(w.output_page.Check4_caption[3], ".......");
    const struct {
        int box;
        bool stays;
        const char* told;
    } clicks[] = {
        {3, false, nullptr},  // an unnamed relay
        {1, false, nullptr},  // the output itself
        {10, false, "Non è possibile assegnare RECIPROCO se si usa contatto normalmente chiuso"},
        {2, true, nullptr},
    };
    for (const auto& c : clicks) {
        messages.shown.clear();
        w.Check4_Click(c.box, true);
        EXPECT_EQ(w.output_page.Check4[c.box], c.stays) << c.box;
        EXPECT_EQ(shown_texts(),
                  c.told ? std::vector<std::string>{c.told} : std::vector<std::string>{})
            << c.box;
    }
    w.Text6_Change("300");
    EXPECT_EQ(w.output_page.Text6, "251");  // the box holds 251
    w.Label36_Click();
    EXPECT_EQ(w.page, app::ModuleWindow::Page::None);
    EXPECT_TRUE(w.outputs[1].marked);
    // Output 2 is the AND of output 1: its name comes back.
    EXPECT_FALSE(w.Text1_Change(2, ""));
    EXPECT_EQ(w.outputs[2].Text1, "Due ");

    ASSERT_TRUE(w.Text1_Change(3, "luce SALA"));  // taken by 000115: red at Salva
    ASSERT_TRUE(w.Text2_Change(1, "Porta"));
    ASSERT_TRUE(w.Text2_Change(2, "Porta"));
    messages.shown.clear();
    w.Image1_Click(1);
    EXPECT_FALSE(w.closed());
    EXPECT_TRUE(w.outputs[3].red && w.inputs[1].red && w.inputs[2].red);
    EXPECT_FALSE(w.outputs[1].red);
    EXPECT_EQ(shown_texts(), std::vector<std::string>{
                                 "Uno o piu' nomi esistono già in questo o in altri moduli del "
                                 "progetto corrente "});
}

TEST_F(ModuleWindowTest, ARemoteElementOffersEveryReceiverAndStoresTheChosenOne) {
    for (int n = 1; n <= 8; ++n) add_module("00" + std::to_string(n) + "04A");
    add_module("000934");
    app::ModuleWindow& w = open("000934");
    ASSERT_EQ(w.Option3.size(), 8u);  // more than six: none left out
    EXPECT_TRUE(w.receiver_choice);
    w.Option3_Click(7);
    w.Image1_Click(1);
    ASSERT_TRUE(w.closed());
    EXPECT_EQ(open("000934").receiver, 7);
}

TEST_F(ModuleWindowTest, DeletingTakesTheLinksAndTestsNeedTheLine) {
    add_module("000215");
    session.project.database().exec(
        "INSERT INTO associazioni (identificativoRX, identificativoTX) VALUES ('000215/1', "
        "'000215/2')");
    app::ModuleWindow& w = open("000215");
    w.Text1_DblClick(1);
    EXPECT_EQ(shown_texts(), std::vector<std::string>{
                                 "Per eseguire test sull' impianto occorre essere ''ON-LINE''"});
    ASSERT_TRUE(session.use_port("/dev/ttyUSB0"));
    w.Text1_DblClick(2);
    EXPECT_TRUE(line.writes().back().ends_with("300026702]")) << line.writes().back();
    messages.answers = {true};
    w.Image1_Click(2);
    EXPECT_TRUE(w.closed());
    EXPECT_TRUE(line.writes().back().ends_with("300026700]"));  // the test ends with the window
    EXPECT_EQ(rows("nick", "000215") + rows("associazioni"), 0);
}

using ModuleWindowEndToEnd = DemoInstallationTest;

TEST_F(ModuleWindowEndToEnd, PointsNamedTestedSavedAndProgrammed) {
    ASSERT_NO_FATAL_FAILURE(connect_installation());
    ASSERT_NO_FATAL_FAILURE(show_project_window());
    app::ProjectHub& hub = main->form3()->tool();
    hub.Combo1_Click("001015  Quadro cucina");
    hub.Timer2_Timer();
    app::MODULI* window = main->module_window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(child<QLineEdit>(window, "Text1_1")->text(), "Luce cucina ");

    QTest::keyClicks(child<QLineEdit>(window, "Text1_4"), "Luce bagno");
    EXPECT_EQ(child<QLineEdit>(window, "Text1_4")->text(), "Luce bagno");  // blanks typed stay
    auto* contact = child<QComboBox>(window, "Combo2_2");
    const int closed = contact->findData(static_cast<int>('I'));
    ASSERT_GE(closed, 0);
    contact->setCurrentIndex(closed);
    emit contact->activated(closed);
    // A double click tests output 1: the module gets the test mask.
    const auto test_mask = [&] {
        const sim::SimModule m = module_on_bus("001015");
        return m.registers.count(0x67) ? m.registers.at(0x67) : -1;
    };
    QTest::mouseDClick(child<QLineEdit>(window, "Text1_1"), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return test_mask() == 0x01; }, 5000)) << test_mask();
    // The debounce time on the module's page.
    child<QPushButton>(window, "Image1_4")->click();
    QLineEdit* debounce = child<QLineEdit>(window, "Text4_2");
    ASSERT_TRUE(debounce->isVisible());
    debounce->selectAll();
    QTest::keyClicks(debounce, "77");
    child<QPushButton>(window, "Label9")->click();
    child<QPushButton>(window, "Image1_1")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return main->module_window() == nullptr; }, 5000));
    // The test ended with the window.
    EXPECT_TRUE(QTest::qWaitFor([&] { return test_mask() == 0; }, 5000)) << test_mask();

    // The programming window opens over the project window, alone, and the
    // run starts by itself; its exit gives the project window back.
    EXPECT_EQ(program_from_project_window().report().N_ERRORI, 0);
    EXPECT_FALSE(main->menuBar()->isEnabled());
    main->open_programming();
    EXPECT_EQ(main->findChildren<app::Form4*>().size(), 1);
    QTest::mouseClick(child<QToolButton>(main->findChild<app::Form4*>(), "Image1_2"),
                      Qt::LeftButton);
    EXPECT_EQ(main->findChild<QStackedWidget*>()->currentWidget(), main->form3());
    EXPECT_TRUE(main->menuBar()->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return main->findChildren<app::Form4*>().empty(); }, 1000));
    EXPECT_EQ(session.PROGETTO_CHIUSO, "NO");
    EXPECT_EQ(test_mask(), 0x02);  // relay 2 normally closed: inverted
    const auto& written = module_on_bus("001015").registers;
    EXPECT_TRUE(
        std::any_of(written.begin(), written.end(), [](const auto& r) { return r.second == 77; }));
}

}  // namespace
}  // namespace filo::testing
