// filo-screenshots <directory>: every window of the application on the demo
// project, saved as PNG files. Run offscreen (QT_QPA_PLATFORM=offscreen); the
// data directory is a temporary one.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <iostream>

#include "app/analisi.hpp"
#include "app/associa.hpp"
#include "app/clone_dialog.hpp"
#include "app/demo.hpp"
#include "app/export_dialog.hpp"
#include "app/form1.hpp"
#include "app/form11.hpp"
#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/form9.hpp"
#include "app/form8.hpp"
#include "app/main_menu.hpp"
#include "app/mdi_form1.hpp"
#include "app/moduli.hpp"
#include "app/programming_window.hpp"
#include "app/project_hub.hpp"
#include "app/qt_port_host.hpp"
#include "app/seriale.hpp"
#include "app/session.hpp"
#include "bus/checksum.hpp"
#include "bus/module_code.hpp"
#include "bus/receive_assembler.hpp"
#include "diagnostics/output_diagram.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"
#include "support/sample_project.hpp"

// The report window and the first page of each report (report_screenshots.cpp).
bool save_report_pictures(filo::app::Session& session, const QDir& out);

namespace {

// Message boxes would wait for a click: answered No, and told on stdout.
class SilentMessages final : public filo::app::Messages {
  public:
    void show(const std::string& text, const std::string&) override {
        std::cout << "message: " << text << '\n';
    }
    bool ask(const std::string& text, const std::string&) override {
        std::cout << "question: " << text << '\n';
        return false;
    }
};

void settle(int ms = 50) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) QApplication::processEvents(QEventLoop::AllEvents, 20);
}

bool save(QWidget* widget, const QDir& dir, const char* name) {
    settle();
    const QString file = dir.filePath(name);
    const bool ok = widget->grab().save(file);
    std::cout << (ok ? "saved " : "FAILED ") << file.toStdString() << '\n';
    return ok;
}

void click(QWidget* form, const char* name) {
    if (auto* b = form->findChild<QAbstractButton*>(name)) QTest::mouseClick(b, Qt::LeftButton);
    settle();
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: filo-screenshots <directory>\n";
        return 2;
    }
    QDir out(argv[1]);
    out.mkpath(".");
    QTemporaryDir home;
    filo::platform::SteadyClock clock;
    filo::bus::ReceiveAssembler receiver;
    filo::app::QtPortHost port(receiver, clock);
    SilentMessages messages;
    filo::app::Session session(home.path().toStdString(), port, receiver, messages);
    filo::app::AppServices services = filo::app::system_services();
    services.list_ports = [] {
        return std::vector<filo::platform::PortInfo>{{"/dev/ttyUSB0", "FT232R USB UART (ttyUSB0)"},
                                                     {"/dev/ttyS0", "serial8250 (ttyS0)"}};
    };
    filo::app::MDIForm1 window(session, services);
    window.resize(1180, 760);
    window.show();
    bool ok = true;

    // The main menu, with the help of its first entry.
    auto* menu = window.form1();
    menu->tool().hover_entry(filo::app::MainMenu::OpenProject);
    menu->refresh();
    ok &= save(&window, out, "01-main-menu.png");

    window.show_new_project();
    settle(400);
    QTest::keyClicks(window.current_form()->findChild<QLineEdit*>("Text1"), "Villa Rossi");
    ok &= save(&window, out, "02-new-project.png");

    // The project window on the demo, on line with its simulated installation.
    filo::app::Demo demo(session);
    if (!demo.start() || !window.show_project()) return 1;
    auto* form = window.form3();
    session.AIUTO = true;
    form->tool().hover(filo::app::ProjectHub::AddModule);
    form->refresh();
    ok &= save(&window, out, "03-project-window.png");

    click(form, "Image1_0");
    QTest::keyClicks(form->findChild<QLineEdit*>("Text3"), "00701");
    ok &= save(&window, out, "04-add-module.png");

    click(form, "Image1_1");
    auto* names = form->findChild<QComboBox*>("Combo2");
    for (int i = 0; i < names->count(); ++i)
        if (names->itemData(i).toLongLong() != 0) {
            names->setCurrentIndex(i);
            break;
        }
    ok &= save(&window, out, "05-choose-module.png");

    click(form, "Image1_3");
    form->tool().hover(filo::app::ProjectHub::Scan);
    form->refresh();
    ok &= save(&window, out, "06-utility-menu.png");

    // The scan, run until it has passed the demo's last module.
    click(form, "Image1_12");
    QElapsedTimer t;
    t.start();
    while (form->tool().scan_progress < 0x62 && t.elapsed() < 60000) settle(100);
    ok &= save(&window, out, "07-scan.png");
    click(form, "Image1_12");  // stop: compared, and the offer answered No

    // The line monitor, extended: presses, a release, a held press, an event
    // and a temperature of the demo's modules as they come off the line.
    window.show_monitor();
    filo::app::Form8* monitor = window.monitor();
    for (const char* frame : {"(8002001FB]", "(800200109]", "(8002002FB]", "(800200AFB]",
                              "(8003001FB]", "(80030110A]", "(800500188]", "(800300109]"})
        receiver.feed(filo::bus::with_checksum(frame));
    monitor->refresh();
    ok &= save(monitor, out, "17-line-monitor.png");

    // The analysis of one module, asked of the simulated installation.
    click(monitor, "Option1_1");
    QTest::keyClicks(monitor->findChild<QLineEdit*>("Text3"), "0030");
    click(monitor, "Command3");
    settle(2500);
    monitor->refresh();
    ok &= save(monitor, out, "18-module-analysis.png");
    monitor->close();

    // The diagram of one output with a plain, a timed and conditioned, and
    // an inverted link.
    auto link = [&session](const char* tx, const char* command, auto&& change) {
        session.links.LINK_CORRENTE =
            filo::testing::switching_link("003005/1", tx, "Lampada soggiorno", command);
        change(session.links.LINK_CORRENTE);
        session.links.AGGIUNGI_LINK();
    };
    link("003005/1", "Pulsante soggiorno", [](filo::store::LinkRow& r) { r.off_ = "9"; });
    link("002014/1", "Pulsante porta", [](filo::store::LinkRow& r) {
        r.tempo_on1 = "1";
        r.tempo_on2 = "44";
        r.tempo_off2 = "3";
        r.and_ = "10000000";
        r.modo_ = "100000012";
    });
    link("002014/2", "Interruttore scale", [](filo::store::LinkRow& r) { r.modo_ = "000001012"; });
    filo::app::ANALISI diagram(
        session, filo::diagnostics::find_output(session.project, "Lampada soggiorno"));
    diagram.show();
    diagram.picture()->Image1_Click(1);
    ok &= save(&diagram, out, "19-output-diagram.png");
    diagram.close();

    filo::app::SERIALE connection(session, services.list_ports, services.open_port, &window);
    connection.show();
    ok &= save(&connection, out, "08-connection.png");
    connection.hide();

    // The programming window, its run over the demo installation to the end.
    window.open_programming();
    auto* programming = window.findChild<filo::app::Form4*>();
    QElapsedTimer run;
    run.start();
    while (programming && (programming->tool().runs == 0 || programming->tool().in_progress()) &&
           run.elapsed() < 120000)
        settle(100);
    ok &= save(&window, out, "09-programming.png");
    // The module window: a relay module, an input module, a dimmer, and the
    // pages of options of the relay module; each left with Salva.
    const auto module_shot = [&](const char* code, const char* button, const char* file) {
        window.open_module(code);
        settle(300);
        QWidget* module = window.module_window();
        if (!module) return false;
        if (button) click(module, button);
        const bool saved = save(&window, out, file);
        if (button) click(module, std::string(button) == "Image1_4" ? "Label9" : "Label36");
        click(module, "Image1_1");
        return saved;
    };
    ok &= module_shot("001015", nullptr, "10-module-relays.png");
    ok &= module_shot("002014", nullptr, "11-module-inputs.png");
    ok &= module_shot("003005", nullptr, "12-module-dimmer.png");
    ok &= module_shot("001015", "Image1_4", "13-module-options.png");
    ok &= module_shot("001015", "Image8_1", "14-output-options.png");
    // The replacement page of the relay module, the new serial all but typed:
    // its eighth character would replace the module.
    window.open_module("001015");
    settle(300);
    if (QWidget* module = window.module_window()) {
        click(module, "Image1_3");
        const std::string serial = filo::bus::printed_code("00A015").substr(0, 7);
        QTest::keyClicks(module->findChild<QLineEdit*>("Text3"), QString::fromStdString(serial));
        ok &= save(&window, out, "23-replace-module.png");
        click(module, "Label15");
        click(module, "Image1_1");
    }
    // The link editor: a link ready to confirm, then the details of a link.
    window.open_link_editor();
    settle(200);
    if (auto* editor = window.findChild<filo::app::Form9*>()) {
        filo::app::LinkEditorWindow& links = editor->tool();
        auto pick = [](const std::vector<filo::store::ListEntry>& list, const std::string& text) {
            for (std::size_t i = 0; i < list.size(); ++i)
                if (list[i].text.starts_with(text)) return static_cast<int>(i);
            return -1;
        };
        links.Combo_COMANDI_Click(pick(links.Combo_COMANDI, "Pulsante sala"));
        links.Combo_UTILIZZATORI_Click(pick(links.Combo_UTILIZZATORI, "Luce sala"));
        links.Option1_Click(2);
        links.time_box_change(filo::app::LinkEditorWindow::Time::On,
                              filo::app::LinkEditorWindow::Part::Minutes, "5");
        editor->refresh();
        ok &= save(&window, out, "15-link-editor.png");
        links.Image4_1_Click();
        if (!links.LISTA_COMANDATI.empty())
            links.list_double_click(links.LISTA_COMANDATI.front().item_data);
        editor->refresh();
        ok &= save(&window, out, "16-link-details.png");
    }
    ok &= save_report_pictures(session, out);
    // The export after "Start", and the clone window with the demo as its sample.
    filo::app::FrmMain exporting(session, &window);
    exporting.show();
    click(&exporting, "Command1");
    ok &= save(&exporting, out, "21-export.png");
    exporting.hide();
    filo::app::MACRO cloning(session, &window);
    cloning.show();
    cloning.choose_sample(session.project.PERCORSO_PROGETTO);
    QTest::keyClicks(cloning.findChild<QLineEdit*>("Text2"), "Villa");
    click(&cloning, "Label15");
    QTest::keyClicks(cloning.findChild<QLineEdit*>("Text3"), "1");
    auto* code = cloning.findChild<QLineEdit*>("Text1_0");
    QTest::mouseClick(code, Qt::LeftButton);
    QTest::keyClicks(code, "00A01588");
    ok &= save(&cloning, out, "22-clone.png");
    cloning.hide();
    // The panel interface's window with a message typed, left with Salva.
    window.open_module("00701E");
    settle(300);
    if (filo::app::Form11* panel = window.panel_window()) {
        auto* name = panel->findChild<QLineEdit*>("Text1");
        name->selectAll();
        QTest::keyClicks(name, "Porta aperta");
        auto* text = panel->findChild<QTextEdit*>("RichTextBox1");
        text->moveCursor(QTextCursor::End);
        QTest::keyClicks(text, "PORTA ");
        auto* colour = panel->findChild<QComboBox*>("Combo3");
        colour->setCurrentIndex(2);
        emit colour->activated(2);
        QTest::keyClicks(text, "APERTA ");
        colour->setCurrentIndex(4);
        emit colour->activated(4);
        QTest::keyClicks(text, "CHIUDERE");
        auto* mode = panel->findChild<QComboBox*>("Combo4");
        mode->setCurrentIndex(3);
        emit mode->activated(3);
        ok &= save(&window, out, "24-panel-messages.png");
        click(panel, "Image1_0");
    } else {
        ok = false;
    }
    // ASSOCIA on the kitchen's relay module, last, since it leaves the demo
    // project with a set: lights of kitchen or living room on, the hood on.
    window.open_module("001015");
    settle(300);
    if (QWidget* module = window.module_window()) {
        click(module, "Image1_5");
        settle(100);
        if (auto* associa = module->findChild<filo::app::ASSOCIA*>("ASSOCIA")) {
            associa->resize(associa->sizeHint().width() + 40, associa->sizeHint().height());
            for (const char* box : {"Check2_1", "Check2_2", "Check3_3", "Option3_0"}) click(associa, box);
            QTest::keyClicks(associa->findChild<QLineEdit*>("Text5"), "Cena");
            ok &= save(associa, out, "25-aggregate-events.png");
            click(associa, "Label35");
        } else {
            ok = false;
        }
        click(module, "Image1_1");
    }
    return ok ? 0 : 1;
}
