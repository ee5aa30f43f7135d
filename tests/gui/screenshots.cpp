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
#include <iostream>

#include "app/clone_dialog.hpp"
#include "app/demo.hpp"
#include "app/export_dialog.hpp"
#include "app/form1.hpp"
#include "app/form3.hpp"
#include "app/main_menu.hpp"
#include "app/mdi_form1.hpp"
#include "app/project_hub.hpp"
#include "app/qt_port_host.hpp"
#include "app/seriale.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"

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

    filo::app::SERIALE connection(session, services.list_ports, services.open_port, &window);
    connection.show();
    ok &= save(&connection, out, "08-connection.png");
    connection.hide();

    // The export after "Start", and the clone window with the demo as its sample.
    filo::app::FrmMain exporting(session, &window);
    exporting.show();
    click(&exporting, "Command1");
    ok &= save(&exporting, out, "09-export.png");
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
    ok &= save(&cloning, out, "10-clone.png");
    cloning.hide();
    return ok ? 0 : 1;
}
