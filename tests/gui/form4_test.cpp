// The programming window: its tool object against a programmer in virtual
// time, its view through clicks, and the whole application programming the
// simulated installation over a pseudo-terminal.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>

#include "app/demo.hpp"
#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/mdi_form1.hpp"
#include "app/programming_window.hpp"
#include "gui/gui_fixture.hpp"
#include "links/link_record.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"
#include "store/link_table.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

using app::ProgrammingWindow;
using texts::Text;

// The frame in a write, checksum left out: "(" kind address fields "]".
std::string frame_of(std::string_view written) {
    const auto open = written.find('(');
    const auto close = written.find(']', open);
    if (open == std::string_view::npos || close == std::string_view::npos) return {};
    const std::string frame(written.substr(open, close - open + 1));
    return frame.substr(0, 1) + frame.substr(3);
}

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
    long count_frames(const std::string& start) const {
        return std::count_if(line.writes().begin(), line.writes().end(), [&](const std::string& w) {
            return frame_of(w).rfind(start, 0) == 0;
        });
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
        EXPECT_EQ(w.Label4[0], "Programma");
        EXPECT_EQ(w.Label4[1], "Visualizza REPORT ");
        EXPECT_EQ(w.Label4[2], "Esci ");
        // Without a port the timer and the program button send nothing.
        const auto before = line.writes().size();
        w.Timer1_Timer();
        w.Image1_Click(ProgrammingWindow::Program);
        EXPECT_EQ(line.writes().size() == before, !c.on_line);
    }
}

TEST_F(ProgrammingWindowTest, TheBarsTheReportAndTheEndFollowTheRun) {
    add_link("001015/9", "001015/1", "Pulsante cucina");
    add_link("001015/10", "002014/2", "Interruttore scale");
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
        EXPECT_EQ(w.bar2_max, 2);
        EXPECT_EQ(w.bar2, 2);
        EXPECT_EQ(w.Label11, std::to_string(w.report().N_ERRORI));
        EXPECT_EQ(w.report().N_ERRORI > 0, !c.silent.empty());
        // The report of this run only: the silent module failed both
        // attempts of its reset, the others answered theirs.
        const std::string& all = w.report().TEXT1;
        EXPECT_NE(all.find("\r\nModulo n° 001015 reset OK"), std::string::npos);
        EXPECT_EQ(all.find("\r\nModulo n° 002014 reset OK") == std::string::npos,
                  !c.silent.empty());
        EXPECT_EQ(w.report().TEXT2.find("\r\nModulo n° 002014 reset NO") == std::string::npos,
                  c.silent.empty());
        EXPECT_EQ(w.report().TEXT2.empty(), c.silent.empty());
    }
}

TEST_F(ProgrammingWindowTest, TheQuestionAfterTenFailuresStopsTheRunOnYes) {
    // Twelve silent modules: ten failed resets, then the question.
    for (int i = 0x30; i < 0x3C; ++i) {
        char code[8];
        std::snprintf(code, sizeof code, "00%02X14", i);
        add_module(code);
    }
    add_link("001015/9", "001015/1", "Pulsante cucina");
    for (bool yes : {true, false}) {
        SCOPED_TRACE(yes);
        messages.asked.clear();
        messages.answers = {yes};
        line.set_peer(answers_except({"003"}));
        const auto writes_before = line.writes().size();
        window().Image1_Click(ProgrammingWindow::Program);
        const ProgrammingWindow& w = window();
        ASSERT_EQ(messages.asked.size(), 1u);
        EXPECT_EQ(messages.asked[0].text, "   VUOI   SOSPENDERE   LA   PROGRAMMAZIONE  ? ");
        EXPECT_EQ(messages.asked[0].title, "    RILEVATI  ERRORI   NELLA   PROGRAMMAZIONE");
        EXPECT_EQ(w.report().SOSPENDI_PROGRAMMAZIONE, yes ? "SI" : "");
        EXPECT_EQ(w.Label2, yes ? text(Text::RUN_STOPPED) : "");
        EXPECT_EQ(w.Label22, "UNO O PIU' MODULI NON HANNO RISPOSTO");
        // Yes stops after the reset phase: no link goes out. No goes on to
        // the end, the count past eleven.
        long links = 0;
        for (auto i = writes_before; i < line.writes().size(); ++i)
            links += frame_of(line.writes()[i]).rfind("(1", 0) == 0;
        EXPECT_EQ(links, yes ? 0 : 1);
        if (yes)
            EXPECT_EQ(w.report().N_ERRORI, 12);
        else
            EXPECT_GT(w.report().N_ERRORI, 12);
        EXPECT_EQ(w.Label11, std::to_string(w.report().N_ERRORI));
    }
}

TEST_F(ProgrammingWindowTest, ExitDuringARunIsTheStopAndTheWindowStays) {
    add_link("001015/9", "001015/1", "Pulsante cucina");
    for (bool yes : {true, false}) {
        SCOPED_TRACE(yes);
        messages.asked.clear();
        messages.answers = {yes, yes};
        hub_shown = 0;
        // The click comes in while the run waits for the first answer; a
        // second click is not asked again.
        int clicks = 0;
        auto ok = bus::answers_ok();
        line.set_peer([&](bus::VirtualLine& l, std::string_view w) {
            if (clicks < 2 && frame_of(w).find("6F68") != std::string::npos) {
                ++clicks;
                window().Image1_Click(ProgrammingWindow::Program);  // no second run
                window().Image1_Click(ProgrammingWindow::Exit);
            }
            ok(l, w);
        });
        const auto writes_before = line.writes().size();
        window().Image1_Click(ProgrammingWindow::Program);
        const ProgrammingWindow& w = window();
        EXPECT_EQ(hub_shown, 0);
        EXPECT_EQ(messages.asked.size(), yes ? 1u : 2u);
        EXPECT_EQ(messages.asked[0].text, "   VUOI   SOSPENDERE   LA   PROGRAMMAZIONE  ? ");
        EXPECT_EQ(w.report().SOSPENDI_PROGRAMMAZIONE, yes ? "SI" : "");
        EXPECT_EQ(w.Label2, yes ? text(Text::RUN_STOPPED) : "");
        EXPECT_EQ(w.Label22, "PROGRAMMAZIONE TERMINATA");
        long links = 0;
        long closings = 0;
        for (auto i = writes_before; i < line.writes().size(); ++i) {
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

TEST_F(ProgrammingWindowTest, TheSavedReportIsNamedToTheInstaller) {
    line.set_peer(answers_except({"0020"}));
    window().Image1_Click(ProgrammingWindow::Program);
    const auto before = std::filesystem::directory_iterator(dir.path());
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
    // Again, without a port: the window says so and sends nothing.
    const auto sent = line.writes().size();
    window().Image1_Click(ProgrammingWindow::Program);
    EXPECT_EQ(line.writes().size(), sent);
    EXPECT_EQ(w.Label22, text(Text::PROGRAMMER_NOT_FOUND));
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

TEST_F(ProgrammingWindowTest, ShortMessageFramesAndHelp) {
    ProgrammingWindow& w = window();
    // The short message of the reset, on and off.
    for (bool off : {false, true}) {
        w.Check1_Click(off);
        w.Image1_Click(ProgrammingWindow::Program);
        EXPECT_EQ(count_frames(off ? "(300106FFF]" : "(300106F68]"), 1) << off;
    }
    // The report and the bars swap, and so does the caption.
    EXPECT_TRUE(w.Frame2);
    w.Image1_Click(ProgrammingWindow::Report);
    EXPECT_TRUE(w.Frame1);
    EXPECT_FALSE(w.Frame2);
    EXPECT_EQ(w.Label4[1], "Visualizza BARRE ");
    w.Image1_Click(ProgrammingWindow::Report);
    EXPECT_FALSE(w.Frame1);
    EXPECT_EQ(w.Label4[1], "Visualizza REPORT ");
    // The help follows the mouse only while it is on.
    session.AIUTO = false;
    w.hover(ProgrammingWindow::Exit);
    EXPECT_EQ(w.Label15, "");
    session.AIUTO = true;
    w.hover(ProgrammingWindow::Exit);
    EXPECT_EQ(w.Label15, "Torna al menu principale ");
    w.hover(ProgrammingWindow::Program);
    EXPECT_EQ(w.Label15,
              "Premendo questo pulsante il programma ricerca automaticamente una porta di "
              "comunicazione libera , controlla che il programmatore sia collegato\n"
              "Quindi programma il tuo impianto");
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
    EXPECT_EQ(child<QLabel>(&form, "Label11")->text(),
              QString::number(form.tool().report().N_ERRORI));
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
    EXPECT_FALSE(child<QGroupBox>(&form, "Frame2")->isVisible());
    EXPECT_EQ(child<QLabel>(&form, "Label4_1")->text(), "Visualizza BARRE ");

    QTest::mouseClick(child<QCheckBox>(&form, "Check1"), Qt::LeftButton);
    EXPECT_EQ(form.tool().run().MESSAGGIO_BREVE, 0);

    messages.shown.clear();
    QTest::mouseClick(child<QPushButton>(&form, "Command1"), Qt::LeftButton);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text.rfind("Report salvato nel file: ", 0), 0u);

    QSignalSpy closed(&form, &app::Form4::closed);
    QTest::mouseClick(child<QToolButton>(&form, "Image1_2"), Qt::LeftButton);
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(ProgrammingWindowTest, OpensOverTheProjectWindowAndGivesItBack) {
    app::MDIForm1 main(session, services_without_dialogs());
    main.show();
    ASSERT_TRUE(main.show_project());
    auto* stack = main.findChild<QStackedWidget*>();
    QTest::mouseClick(child<QToolButton>(main.form3(), "Image1_4"), Qt::LeftButton);
    auto* form = qobject_cast<app::Form4*>(stack->currentWidget());
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(main.form3()->isVisible());
    EXPECT_FALSE(main.menuBar()->isEnabled());
    // A second request while it is up opens nothing more.
    main.open_programming();
    EXPECT_EQ(main.findChildren<app::Form4*>().size(), 1);
    // The run starts by itself.
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->tool().runs == 1; }, 3000));
    EXPECT_EQ(form->tool().Label22, "PROGRAMMAZIONE TERMINATA");
    QTest::mouseClick(child<QToolButton>(form, "Image1_2"), Qt::LeftButton);
    EXPECT_EQ(stack->currentWidget(), main.form3());
    EXPECT_TRUE(main.menuBar()->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return main.findChildren<app::Form4*>().empty(); }, 1000));
    EXPECT_EQ(session.PROGETTO_CHIUSO, "NO");
}

// The application over a real pseudo-terminal: the demo project, with two
// links, programmed into its simulated installation from the project window.
using ProgrammingWindowEndToEnd = DemoInstallationTest;

TEST_F(ProgrammingWindowEndToEnd, TheSimulatedModulesHoldWhatTheProjectSays) {
    {
        store::Project project;
        project.open(demo_file);
        store::LinkTable links(project);
        links.LINK_CORRENTE =
            switching_link("001015/9", "001015/1", "Luce cucina", "Pulsante cucina");
        links.AGGIUNGI_LINK();
        links.LINK_CORRENTE =
            switching_link("003005/9", "004019/1", "Lampada soggiorno", "Sensore luce giardino");
        links.AGGIUNGI_LINK();
    }
    ASSERT_NO_FATAL_FAILURE(connect_installation());
    ASSERT_NO_FATAL_FAILURE(show_project_window(QSize(1180, 760)));
    QTest::mouseClick(child<QToolButton>(main->form3(), "Image1_4"), Qt::LeftButton);
    auto* form = qobject_cast<app::Form4*>(main->findChild<QStackedWidget*>()->currentWidget());
    ASSERT_NE(form, nullptr);
    const ProgrammingWindow& w = form->tool();
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.runs == 1 && !w.in_progress(); }, 60000));
    EXPECT_EQ(w.Label22, "PROGRAMMAZIONE TERMINATA");
    EXPECT_EQ(w.report().N_ERRORI, 0);
    EXPECT_TRUE(messages.shown.empty());
    ASSERT_EQ(w.Combo_REGOLATORI.size(), 1u);
    EXPECT_EQ(w.Combo_REGOLATORI[0].nick, "Sensore luce giardino");

    // The records the project gives its links, in the order of the table.
    std::vector<std::string> records;
    store::LinkTable links(session.project);
    links.LEGGI_LINK();
    for (int n = 1; n <= links.N_LINK(); ++n) {
        links::LinkImage image;
        ASSERT_TRUE(links::LEGGIprossimoLINK(links, n, image));
        if (!image.RECORD_LINK.empty()) records.push_back(image.RECORD_LINK);
    }
    ASSERT_EQ(records.size(), 2u);
    server->inspect([&](const sim::Simulator& s) {
        EXPECT_EQ(s.links(), records);
        EXPECT_GT(s.programming_opened(), 0);
        EXPECT_GT(s.programming_closed(), 0);
        for (const sim::SimModule& m : s.modules()) {
            if (m.code == app::kDemoSpareModule) continue;  // on the bus, not in the project
            SCOPED_TRACE(m.code);
            EXPECT_EQ(m.resets, 1);
            EXPECT_EQ(m.reset_value, 0x68);
        }
        // Each link went to the module of its output.
        for (const sim::SimModule& m : s.modules()) {
            if (m.code == "001015" || m.code == "003005") {
                EXPECT_EQ(m.links.size(), 1u);
            }
        }
    });

    // The picture of the window for the user guide, when asked for.
    if (const char* picture = std::getenv("FILO_FORM4_SCREENSHOT")) {
        QTest::mouseClick(child<QToolButton>(form, "Image1_1"), Qt::LeftButton);
        QTest::qWait(100);
        EXPECT_TRUE(main->grab().save(picture));
    }
    QTest::mouseClick(child<QToolButton>(form, "Image1_2"), Qt::LeftButton);
    EXPECT_EQ(main->findChild<QStackedWidget*>()->currentWidget(), main->form3());
}

}  // namespace
}  // namespace filo::testing
