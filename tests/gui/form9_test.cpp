// The link editor: its tool object without a screen, and its view.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QtTest/QtTest>

#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>

#include "app/demo.hpp"
#include "app/form3.hpp"
#include "app/form9.hpp"
#include "app/link_editor_window.hpp"
#include "app/mdi_form1.hpp"
#include "app/moduli.hpp"
#include "gui/gui_fixture.hpp"
#include "sim/sim_server.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

// The entry of the list that starts with the text.
int index_of(const std::vector<store::ListEntry>& list, const std::string& text) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].text.starts_with(text)) return static_cast<int>(i);
    ADD_FAILURE() << text;
    return -1;
}

class Form9Test : public SessionTest {
  protected:
    Form9Test() {
        open_new_project();
        add_module("002211");
        add_module("000315");
        set_column(session.project, "002211", 1, "nick", "Pulsante");
        set_column(session.project, "002211", 1, "modo", "P" + std::string(23, '0'));
        set_column(session.project, "000315", 9, "nick", "Lampada");
        session.LIVELLO = 3;
        host.open_module = [this](const std::string& code, int row) {
            opened.push_back(code + "/" + std::to_string(row));
        };
        host.show_hub = [this] { ++hub_shown; };
    }
    void choose(app::LinkEditorWindow& w, const std::string& command, const std::string& user) {
        w.Combo_COMANDI_Click(index_of(w.Combo_COMANDI, command));
        w.Combo_UTILIZZATORI_Click(index_of(w.Combo_UTILIZZATORI, user));
    }

    app::LinkEditorHost host;
    std::vector<std::string> opened;
    int hub_shown = 0;
};

TEST_F(Form9Test, ALinkMadeCheckedReplacedAndDeleted) {
    app::LinkEditorWindow w(session, host);
    w.load();
    choose(w, "Pulsante", "Lampada");
    EXPECT_EQ(w.Label9, "Seleziona come vuoi che Pulsante comandi Lampada");
    for (int i = 1; i <= 9; ++i) EXPECT_EQ(w.Option1[i].visible, i <= 6) << i;
    EXPECT_EQ(w.DA_CONFERMARE, "NO");
    w.Image4_1_Click();  // nothing until a mode is chosen
    EXPECT_EQ(rows("associazioni"), 0);

    w.Option1_Click(2);
    EXPECT_EQ(w.DA_CONFERMARE, "SI");
    EXPECT_EQ(w.Label22,
              "Pulsante comanda Lampada\nModalità :  Pulsante passo-passo (un colpo accende e uno "
              "spegne)");
    EXPECT_TRUE(w.boxes().time_on);
    w.time_box_change(app::LinkEditorWindow::Time::On, app::LinkEditorWindow::Part::Seconds, "75");
    EXPECT_EQ(w.editor().time_on.seconds, 59);
    messages.answers = {false};  // opening a list: keep the link waiting
    EXPECT_FALSE(w.leave_unconfirmed());
    EXPECT_EQ(w.DA_CONFERMARE, "SI");
    w.Image4_1_Click();
    EXPECT_EQ(rows("associazioni"), 2);
    // The lists refresh without losing the installer's place.
    EXPECT_EQ(w.Combo_COMANDI[static_cast<std::size_t>(w.command_index)].text, "Pulsante");
    ASSERT_EQ(w.LISTA_COMANDATI.size(), 1u);
    EXPECT_EQ(w.LISTA_COMANDATI[0].text, "Lampada");
    EXPECT_FALSE(w.Option1[2].visible);

    // The pair is linked: its mode shows green, and a new mode asks "Sovrascrivi".
    w.Combo_UTILIZZATORI_Click(w.user_index);
    EXPECT_TRUE(w.Option1[2].green);
    w.Option1_Click(1);
    messages.answers = {true};
    w.Image4_1_Click();
    ASSERT_EQ(messages.asked.size(), 2u);
    EXPECT_EQ(messages.asked[1].title, "Sovrascrivi");
    EXPECT_EQ(rows("associazioni"), 2);

    const std::int64_t id = w.LISTA_COMANDATI.at(0).item_data;
    w.list_double_click(id);
    EXPECT_TRUE(w.Frame6);
    EXPECT_EQ(w.Label21.substr(0, 29), "002211/1  --->   000315/1\nPul");
    messages.answers = {true};
    w.Label24_Click(0);
    EXPECT_EQ(rows("associazioni"), 0);
    EXPECT_FALSE(w.Frame6);
}

TEST_F(Form9Test, RefusedPairModulesAndOptions) {
    set_column(session.project, "000315", 9, "nick", "Pulsante");
    app::LinkEditorWindow w(session, host);
    w.load();
    choose(w, "Pulsante", "Pulsante");
    ASSERT_FALSE(messages.shown.empty());
    EXPECT_EQ(messages.shown.back(), (Shown{"", "OPERAZIONE NON CONSENTITA"}));
    EXPECT_EQ(w.command_index, -1);  // the side chosen first goes
    EXPECT_EQ(w.Label26_1, "000315/1");
    w.Label26_Click(1);
    w.Label26_Click(0);  // no command point: nothing
    EXPECT_EQ(opened, std::vector<std::string>{"000315/9"});
    w.Label29_Click();
    EXPECT_EQ(messages.shown.back().text.rfind("Non ancora disponibile", 0), 0u);
    w.Image4_2_Click();
    EXPECT_EQ(hub_shown, 1);
}

TEST_F(Form9Test, TheViewShowsTheToolsState) {
    app::Form9 form(session, host);
    form.load();
    app::LinkEditorWindow& w = form.tool();
    choose(w, "Pulsante", "Lampada");
    w.Option1_Click(3);
    form.refresh();
    EXPECT_FALSE(child<QPushButton>(&form, "Option1_2")->isHidden());
    EXPECT_TRUE(child<QPushButton>(&form, "Option1_7")->isHidden());
    EXPECT_FALSE(child<QGroupBox>(&form, "Frame9")->isHidden());
    EXPECT_TRUE(child<QGroupBox>(&form, "Frame10")->isHidden());  // "solo accende"
    EXPECT_TRUE(child<QGroupBox>(&form, "Frame12")->isHidden());
    EXPECT_EQ(child<QComboBox>(&form, "Combo_COMANDI")->currentText(), "Pulsante");
    QTest::mouseClick(child<QPushButton>(&form, "Image4_1"), Qt::LeftButton);
    EXPECT_EQ(rows("associazioni"), 2);
}

using LinkEditorEndToEnd = DemoInstallationTest;

TEST_F(LinkEditorEndToEnd, APressedButtonPicksTheCommandOfTheNewLink) {
    ASSERT_NO_FATAL_FAILURE(connect_installation());
    ASSERT_NO_FATAL_FAILURE(show_project_window());
    auto* stack = main->findChild<QStackedWidget*>();
    QTest::mouseClick(main->form3()->findChild<QToolButton*>("Image1_2"), Qt::LeftButton);
    auto* form = qobject_cast<app::Form9*>(stack->currentWidget());
    ASSERT_NE(form, nullptr);
    app::LinkEditorWindow& w = form->tool();

    ASSERT_TRUE(session.on_line()) << session.PORTA_COM;
    child<QCheckBox>(form, "Check3")->click();
    ASSERT_TRUE(w.Check3);
    ASSERT_EQ(server->control("press 003005 1"), "");
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.command_index >= 0; }, 10000));
    EXPECT_FALSE(w.Check3);
    EXPECT_EQ(w.Label_picked, "003005/1");
    EXPECT_EQ(child<QComboBox>(form, "Combo_COMANDI")->currentText(), "Pulsante soggiorno");

    w.Combo_UTILIZZATORI_Click(index_of(w.Combo_UTILIZZATORI, "Luce cucina"));
    w.Option1_Click(1);
    ASSERT_EQ(w.DA_CONFERMARE, "SI") << w.editor().offer.FAMIGLIA << " " << w.editor().UTILIZZATORE;
    w.Image4_1_Click();
    session.links.LEGGI_LINK();
    bool stored = false;
    for (int n = 1; n <= session.links.N_LINK(); ++n)
        stored |= session.links.link(n).identificativoTX == "003005/1";
    EXPECT_TRUE(stored);
}

TEST_F(LinkEditorEndToEnd, AButtonOfAModuleTheProjectLacksEntersIt) {
    ASSERT_NO_FATAL_FAILURE(connect_installation({app::kDemoSpareModule}));
    ASSERT_NO_FATAL_FAILURE(show_project_window());
    main->open_link_editor();
    auto* form = main->findChild<app::Form9*>();
    ASSERT_NE(form, nullptr);
    app::LinkEditorWindow& w = form->tool();
    w.Check3_Click(true);
    // The new module's window opens over the editor; the installer saves it
    // as it stands, and the editor takes the pressed point up again.
    std::string opened_on;
    QTimer installer;
    QObject::connect(&installer, &QTimer::timeout, [&] {
        if (QWidget* module = main->module_window()) {
            opened_on = session.modules.CODICE_MODULO;
            QTest::mouseClick(module->findChild<QPushButton*>("Image1_1"), Qt::LeftButton);
        }
    });
    installer.start(50);
    ASSERT_EQ(server->control(std::string("press ") + app::kDemoSpareModule + " 2"), "");
    const std::string expected = std::string("Codice  ") + app::kDemoSpareModule + "/2";
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.Label_picked == expected; }, 10000))
        << w.Label_picked;
    session.modules.VERIFICA_MODULO(app::kDemoSpareModule);
    EXPECT_EQ(session.modules.STATO_MODULO, store::kModuloEsistente);
    EXPECT_EQ(session.receiver.flags.ATTESA_TIPO, "");
    EXPECT_EQ(opened_on, app::kDemoSpareModule);
    EXPECT_EQ(w.command_index, -1);  // its points have no names yet
}

}  // namespace
}  // namespace filo::testing
