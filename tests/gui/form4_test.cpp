// The programming window: its tool object against a programmer in virtual
// time, its view through clicks, and the whole application programming the
// simulated installation over a pseudo-terminal.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

#include "app/form4.hpp"
#include "app/programming_window.hpp"
#include "bus/conversions.hpp"
#include "gui/gui_fixture.hpp"
#include "store/link_table.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

using app::ProgrammingWindow;
using texts::Text;

// A programmer that answers every frame but those for the given addresses;
// a module there is as good as disconnected.
bus::VirtualLine::Peer answers_except(std::vector<std::string> silent) {
    return [silent, ok = bus::answers_ok()](bus::VirtualLine& l, std::string_view w) {
        const std::string f = frame_of(w);
        for (const std::string& a : silent)
            if (f.compare(2, a.size(), a) == 0) return;
        ok(l, w);
    };
}

class ProgrammingWindowTest : public SessionTest {
  protected:
    ProgrammingWindowTest() {
        open_new_project("casa");
        for (const char* code : {"001015", "002014", "004019"}) add_module(code);
        session.use_port("/dev/ttyUSB0");
        line.set_peer(bus::answers_ok());
    }
    void add_link(const std::string& rx, const std::string& tx, const std::string& nick_tx) {
        store::LinkTable links(session.project);
        links.LINK_CORRENTE = switching_link(rx, tx, "Luce", nick_tx);
        links.AGGIUNGI_LINK();
    }
    ProgrammingWindow& window() {
        if (!window_) {
            app::ProgrammingHost host;
            host.schedule_run = [this](int ms) { scheduled.push_back(ms); };
            host.changed = [this] { ++changes; };
            host.beep = [this] { ++beeps; };
            host.show_hub = [this] { ++hub_shown; };
            host.show_constant_light = [this](const std::string& code) {
                regulators_opened.push_back(code);
            };
            window_ = std::make_unique<ProgrammingWindow>(session, std::move(host));
            window_->Form_Load();
        }
        return *window_;
    }
    std::string text(Text key) const { return session.texts.text(key); }

    std::vector<int> scheduled;
    int changes = 0;
    int beeps = 0;
    int hub_shown = 0;
    std::vector<std::string> regulators_opened;  // AVANZATE2 asked for these

  private:
    std::unique_ptr<ProgrammingWindow> window_;
};

TEST_F(ProgrammingWindowTest, TheRunIsScheduledOnlyWithAPortInUse) {
    struct Case {
        bool on_line;
        std::vector<int> scheduled;
        std::string Label22;
    };
    for (const Case& c : {Case{true, {ProgrammingWindow::kStartDelayMs}, ""},
                          Case{false, {}, text(Text::PROGRAMMER_NOT_FOUND)}}) {
        SCOPED_TRACE(c.on_line);
        if (!c.on_line) session.close_port();
        session.receiver.flags.MONITOR_SOSPESO = "NO";
        scheduled.clear();
        app::ProgrammingHost host;
        host.schedule_run = [this](int ms) { scheduled.push_back(ms); };
        ProgrammingWindow w(session, host);
        w.Form_Load();
        EXPECT_EQ(scheduled, c.scheduled);
        EXPECT_EQ(w.Label22, c.Label22);
        EXPECT_EQ(session.receiver.flags.MONITOR_SOSPESO, "SI");
        // Without a port the timer and the program button send nothing.
        const auto before = line.writes().size();
        w.Timer1_Timer();
        w.Image1_Click(ProgrammingWindow::Program);
        EXPECT_EQ(line.writes().size() == before, !c.on_line);
    }
}

// One link: its bar is set up as well as that of many.
TEST_F(ProgrammingWindowTest, TheBarsTheReportAndTheEndFollowTheRun) {
    add_link("001015/9", "001015/1", "Pulsante cucina");
    struct Case {
        std::vector<std::string> silent;
        std::string Label22;
        ProgrammingWindow::Tone tone;
        int beeps;
    };
    const std::vector<Case> cases = {
        {{}, "PROGRAMMAZIONE TERMINATA", ProgrammingWindow::Tone::Green, 0},
        {{"0020"}, "UNO O PIU' MODULI NON HANNO RISPOSTO", ProgrammingWindow::Tone::Red, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Label22);
        line.set_peer(answers_except(c.silent));
        beeps = 0;
        changes = 0;
        window().Image1_Click(ProgrammingWindow::Program);
        const ProgrammingWindow& w = window();
        EXPECT_FALSE(w.in_progress());
        EXPECT_GT(changes, 10);  // the view was told as the run went
        EXPECT_EQ(w.Label22, c.Label22);
        EXPECT_EQ(w.Label22_tone, c.tone);
        EXPECT_EQ(beeps, c.beeps);
        EXPECT_TRUE(w.Command1);
        EXPECT_EQ(w.bar1_max, 3);
        EXPECT_EQ(w.bar1, 3);
        EXPECT_EQ(w.bar2_max, 1);
        EXPECT_EQ(w.bar2, 1);
        EXPECT_EQ(w.Label11, std::to_string(w.report().N_ERRORI));
        EXPECT_EQ(w.report().TEXT2.empty(), c.silent.empty());
    }
}

// Yes to the question, after ten failures or at the exit button, stops the
// run after the phase in hand: no link goes out. No goes on to the end.
TEST_F(ProgrammingWindowTest, TheQuestionStopsTheRunOnYesAndTheWindowStays) {
    add_link("001015/9", "001015/1", "Pulsante cucina");
    for (int i = 0x30; i < 0x3C; ++i) add_module("00" + bus::hex_byte(i) + "14");
    for (bool exit_button : {false, true}) {
        for (bool yes : {true, false}) {
            SCOPED_TRACE(std::string(exit_button ? "exit " : "ten failures ") +
                         (yes ? "yes" : "no"));
            messages.asked.clear();
            messages.answers = {yes, yes};
            hub_shown = 0;
            int clicks = 0;
            // Twelve silent modules; or the exit clicked twice while the
            // run waits for the first answer, asked once.
            line.set_peer([&, ok = bus::answers_ok()](bus::VirtualLine& l, std::string_view w) {
                if (!exit_button && frame_of(w).compare(2, 3, "003") == 0) return;
                if (exit_button && clicks < 2 && frame_of(w).find("6F68") != std::string::npos) {
                    ++clicks;
                    window().Image1_Click(ProgrammingWindow::Program);  // no second run
                    window().Image1_Click(ProgrammingWindow::Exit);
                }
                ok(l, w);
            });
            const auto before = line.writes().size();
            window().Image1_Click(ProgrammingWindow::Program);
            const ProgrammingWindow& w = window();
            EXPECT_EQ(hub_shown, 0);
            ASSERT_EQ(messages.asked.size(), exit_button && !yes ? 2u : 1u);
            EXPECT_EQ(messages.asked[0].text, "   VUOI   SOSPENDERE   LA   PROGRAMMAZIONE  ? ");
            if (!exit_button) {
                EXPECT_EQ(messages.asked[0].title, "    RILEVATI  ERRORI   NELLA   PROGRAMMAZIONE");
            }
            EXPECT_EQ(w.report().SOSPENDI_PROGRAMMAZIONE, yes ? "SI" : "");
            EXPECT_EQ(w.Label2, yes ? text(Text::RUN_STOPPED) : "");
            EXPECT_EQ(w.Label22, exit_button ? "PROGRAMMAZIONE TERMINATA"
                                             : "UNO O PIU' MODULI NON HANNO RISPOSTO");
            EXPECT_EQ(w.Label11, std::to_string(w.report().N_ERRORI));
            long links = 0, closings = 0;
            for (auto i = before; i < line.writes().size(); ++i) {
                links += frame_of(line.writes()[i]).rfind("(1", 0) == 0;
                closings += frame_of(line.writes()[i]) == "(6000000AA]";
            }
            EXPECT_EQ(links, yes ? 0 : 1);
            EXPECT_EQ(closings, 3);  // programming mode is left after a stop as after a full run
            // With the run over, the same button leaves the window.
            window().Image1_Click(ProgrammingWindow::Exit);
            EXPECT_EQ(hub_shown, 1);
        }
    }
}

TEST_F(ProgrammingWindowTest, TheSavedReportIsNamedToTheInstaller) {
    line.set_peer(answers_except({"0020"}));
    window().Image1_Click(ProgrammingWindow::Program);
    messages.shown.clear();
    window().Command1_Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    const std::string prefix = "Report salvato nel file: ";
    ASSERT_EQ(messages.shown[0].text.rfind(prefix, 0), 0u) << messages.shown[0].text;
    const std::filesystem::path file = messages.shown[0].text.substr(prefix.size());
    EXPECT_EQ(file.parent_path(), dir.path());
    EXPECT_EQ(file.filename().string().rfind("casa ", 0), 0u);
    EXPECT_TRUE(file.filename().string().ends_with(" REPORT.txt"));
    const std::string content = read_file(file);
    EXPECT_EQ(content, window().report().file_text());
    EXPECT_NE(content.find("Modulo n° 002014 reset NO / /"), std::string::npos);
}

TEST_F(ProgrammingWindowTest, APortLostMidRunEndsItAndTheWindowStaysUsable) {
    int writes = 0;
    line.set_peer([&, ok = bus::answers_ok()](bus::VirtualLine& l, std::string_view w) {
        if (++writes == 6) throw platform::PortError("/dev/ttyUSB0", "Input/output error");
        ok(l, w);
    });
    window().Image1_Click(ProgrammingWindow::Program);
    const ProgrammingWindow& w = window();
    EXPECT_FALSE(w.in_progress());
    EXPECT_EQ(session.PORTA_COM, "");
    EXPECT_EQ(w.Label22_tone, ProgrammingWindow::Tone::Red);
    EXPECT_EQ(w.Label22.rfind(text(Text::PORT_LOST), 0), 0u);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, text(Text::PORT_LOST) + "/dev/ttyUSB0: Input/output error");
    EXPECT_TRUE(w.Command1);
    window().Image1_Click(ProgrammingWindow::Exit);
    EXPECT_EQ(hub_shown, 1);
}

TEST_F(ProgrammingWindowTest, RegulatorsNamedByTheLinksAreOfferedAfterTheRun) {
    add_link("001015/9", "004019/1", "Sensore giardino");
    add_link("001015/10", "004019/1", "Sensore giardino");  // named once
    add_link("001015/11", "001015/1", "Pulsante cucina");   // no photosensor
    ProgrammingWindow& w = window();
    EXPECT_FALSE(w.regolatori_visible);
    w.Image1_Click(ProgrammingWindow::Program);
    ASSERT_EQ(w.Combo_REGOLATORI.size(), 1u);
    EXPECT_EQ(w.Combo_REGOLATORI[0].nick, "Sensore giardino");
    EXPECT_EQ(w.Combo_REGOLATORI[0].item_data, 0x1004019);
    EXPECT_TRUE(w.regolatori_visible);
    messages.shown.clear();
    w.Combo_REGOLATORI_Click(0);
    EXPECT_TRUE(messages.shown.empty());
    w.Combo_REGOLATORI_Click(w.Combo_REGOLATORI[0].item_data);
    EXPECT_EQ(regulators_opened, std::vector<std::string>{"004019"});
    // A new start clears the list first; without a port it stays empty.
    session.close_port();
    w.Image1_Click(ProgrammingWindow::Program);
    EXPECT_TRUE(w.Combo_REGOLATORI.empty());
    EXPECT_FALSE(w.regolatori_visible);
}

// The report and the bars swap, and so does the caption; the help follows
// the mouse only while it is on.
TEST_F(ProgrammingWindowTest, ReportOrBarsAndHelp) {
    ProgrammingWindow& w = window();
    w.Image1_Click(ProgrammingWindow::Report);
    EXPECT_TRUE(w.Frame1 && !w.Frame2);
    EXPECT_EQ(w.Label4[1], "Visualizza BARRE ");
    w.Image1_Click(ProgrammingWindow::Report);
    EXPECT_EQ(w.Label4[1], "Visualizza REPORT ");
    session.AIUTO = false;
    w.hover(ProgrammingWindow::Exit);
    EXPECT_EQ(w.Label15, "");
    session.AIUTO = true;
    w.hover(ProgrammingWindow::Exit);
    EXPECT_EQ(w.Label15, "Torna al menu principale ");
}

TEST_F(ProgrammingWindowTest, TheViewShowsTheRunAndForwardsClicks) {
    app::Form4 form(session);
    form.resize(1000, 640);
    form.show();
    form.load();
    auto* timer = child<QTimer>(&form, "Timer1");
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), ProgrammingWindow::kStartDelayMs);
    timer->stop();

    line.set_peer(answers_except({"0020"}));
    QTest::mouseClick(child<QToolButton>(&form, "Image1_0"), Qt::LeftButton);
    EXPECT_EQ(child<QLabel>(&form, "Label22")->text(), "UNO O PIU' MODULI NON HANNO RISPOSTO");
    auto* bar = child<QProgressBar>(&form, "ProgressBar1_1");
    EXPECT_EQ(bar->maximum(), 3);
    EXPECT_EQ(bar->value(), 3);
    // A project without links has none to write, not one still to come.
    EXPECT_EQ(child<QProgressBar>(&form, "ProgressBar1_2")->text(), "0 / 0");
    // The report's boxes hold its lines, one a line, as the run gave them.
    const auto lines = [](const std::string& text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    };
    auto* text1 = child<QPlainTextEdit>(&form, "Text1");
    auto* text2 = child<QPlainTextEdit>(&form, "Text2");
    EXPECT_EQ(text1->blockCount(), lines(form.tool().report().TEXT1));
    QString failed = QString::fromStdString(form.tool().report().TEXT2);
    failed.replace("\r\n", "\n").remove(0, 1);
    EXPECT_EQ(text2->toPlainText(), failed);
    EXPECT_FALSE(child<QGroupBox>(&form, "Frame1")->isVisible());

    // A second run replaces the report rather than adding to it.
    line.set_peer(bus::answers_ok());
    QTest::mouseClick(child<QToolButton>(&form, "Image1_0"), Qt::LeftButton);
    EXPECT_EQ(text1->blockCount(), lines(form.tool().report().TEXT1));
    EXPECT_TRUE(text2->toPlainText().isEmpty());
    EXPECT_EQ(child<QLabel>(&form, "Label22")->text(), "PROGRAMMAZIONE TERMINATA");

    QTest::mouseClick(child<QToolButton>(&form, "Image1_1"), Qt::LeftButton);
    EXPECT_TRUE(child<QGroupBox>(&form, "Frame1")->isVisible());
    QTest::mouseClick(child<QCheckBox>(&form, "Check1"), Qt::LeftButton);
    EXPECT_EQ(form.tool().run().MESSAGGIO_BREVE, 0);
    QSignalSpy closed(&form, &app::Form4::closed);
    QTest::mouseClick(child<QToolButton>(&form, "Image1_2"), Qt::LeftButton);
    EXPECT_EQ(closed.count(), 1);
}

}  // namespace
}  // namespace filo::testing
