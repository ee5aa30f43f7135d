// Form8 on a virtual line: frames come in, are decoded, kept and held back;
// the controls keep their rules; the analysis asks the module on the line.
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "app/form8.hpp"
#include "app/line_monitor_window.hpp"
#include "bus/checksum.hpp"
#include "gui_fixture.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class Form8Test : public testing::SessionTest {
  protected:
    Form8Test() {
        open_new_project();
        add_module("00121F");
        testing::set_column(session.project, "00121F", 2, "nick", "Campanello");
        session.PORTA_COM = "/dev/ttyUSB0";
        form.load();
    }
    void receive(const std::string& frame) { receiver.feed(bus::with_checksum(frame)); }

    app::Form8 form{session};
    app::LineMonitorWindow& tool = form.tool();
};

TEST_F(Form8Test, FramesAreDecodedKeptAndHeldBackWhilePaused) {
    receive("(8001203FB]");
    receive("(4001265]");  // too short to decode: kept raw, not in the panel
    receive("(8001202FB]");
    form.refresh();
    EXPECT_EQ(testing::child<QLabel>(&form, "Label1_4")->text(), "Campanello. PULSANTE ");
    EXPECT_EQ(testing::child<QLabel>(&form, "Label10_0")->text(), "8  0012  02  FB");
    EXPECT_EQ(testing::child<QLabel>(&form, "Label10_1")->text(), "8  0012  03  FB");
    auto* table = testing::child<QTableView>(&form, "HistoryTable");
    ASSERT_EQ(table->model()->rowCount(), 3);
    EXPECT_EQ(table->model()->index(1, 1).data().toString(), "4");
    EXPECT_TRUE(table->model()->index(1, 6).data().toString().startsWith("("));

    tool.pause(true);
    receive("(8001204FB]");
    form.refresh();
    EXPECT_EQ(table->model()->rowCount(), 3);
    EXPECT_EQ(tool.held_back.size(), 1U);
    tool.pause(false);
    form.refresh();
    EXPECT_EQ(table->model()->rowCount(), 4);

    // RESET keeps the newest line of the panel.
    tool.Command1_Click();
    EXPECT_EQ(tool.Label10[0], "8  0012  04  FB");
    EXPECT_EQ(tool.Label10[1], "");
    EXPECT_EQ(table->model()->rowCount(), 0);

    // Held: events wait, programming frames still show.
    tool.Command2_Click();
    EXPECT_EQ(tool.Command2, "START");
    receive("(8001205FB]");
    receive("(1001201050000000000000000000000000]");
    ASSERT_EQ(tool.history.size(), 2U);
    EXPECT_FALSE(tool.history[0].decoded);
    EXPECT_TRUE(tool.history[1].decoded);

    // A closed window decodes nothing.
    form.close();
    receive("(8001206FB]");
    EXPECT_EQ(tool.history.size(), 2U);
}

TEST_F(Form8Test, FilterBoxesKeepTheirRules) {
    struct Case {
        std::string (app::LineMonitorWindow::*change)(const std::string&);
        const char* typed;
        const char* kept;
    } cases[] = {
        {&app::LineMonitorWindow::Text2_Change, "0012", "0012"},
        {&app::LineMonitorWindow::Text2_Change, "00123", ""},
        {&app::LineMonitorWindow::Text4_Change, "255", "255"},
        {&app::LineMonitorWindow::Text4_Change, "256", ""},
        {&app::LineMonitorWindow::Text4_Change, "0001", ""},
    };
    for (const Case& c : cases) EXPECT_EQ((tool.*c.change)(c.typed), c.kept) << c.typed;
    auto* text2 = testing::child<QLineEdit>(&form, "Text2");
    text2->show();
    QTest::keyClicks(text2, "0a-g1");
    EXPECT_EQ(text2->text(), "0A1");
    EXPECT_FALSE(tool.Timer1);
    tool.Check3_Click(0, true);
    EXPECT_TRUE(tool.Timer1);
    tool.Check3_Click(0, false);
    EXPECT_FALSE(tool.Timer1);
}

TEST_F(Form8Test, TheAnalysisAsksTheModuleOneStepATick) {
    line.set_peer([](bus::VirtualLine& l, std::string_view written) {
        if (written.find("(") == std::string_view::npos) return;
        if (written.find("A00120000") != std::string_view::npos)
            l.reply(bus::with_checksum("(80012FF1F]"));
        if (written.find("4001265") != std::string_view::npos)
            l.reply(bus::with_checksum("(80012FE05]"));
    });
    tool.Text3 = "0012";
    tool.Command3_Click();
    for (int tick = 0; tick < 20 && tool.Timer2; ++tick) {
        tool.Timer2_Timer();
        line.serve_until(line.clock().now() + 0.1, [] { return false; });
    }
    EXPECT_FALSE(tool.Timer2);
    EXPECT_EQ(line.writes().size(), 7U);  // no group registers for type 1F
    EXPECT_EQ(tool.analysis().ANALISI_TIPO, "1F");
    EXPECT_TRUE(tool.analysis().relays[1]);
    EXPECT_TRUE(tool.analysis().relays[3]);
    EXPECT_FALSE(tool.analysis().relays[2]);
    EXPECT_EQ(tool.shape_name(app::ShapeKind::Input, 2), "Campanello");
    EXPECT_EQ(tool.shape_name(app::ShapeKind::Input, 5), "Nessun Nickname assegnato");
}

}  // namespace
}  // namespace filo
