// filo: the desktop application.
#include <QApplication>
#include <QCommandLineParser>
#include <QMenuBar>
#include <QMessageBox>
#include <filesystem>

#include "app/demo.hpp"
#include "app/demo_panel.hpp"
#include "app/mdi_form1.hpp"
#include "app/qt_messages.hpp"
#include "app/qt_port_host.hpp"
#include "app/session.hpp"
#include "app/single_instance.hpp"
#include "app/view_helpers.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/data_directory.hpp"
#include "platform/speech_engine.hpp"

int main(int argc, char** argv) {
    using filo::texts::Text;
    QCommandLineParser options;
    options.setApplicationDescription(
        "Filo: commissioning of home-automation installations on a serial field bus");
    options.addHelpOption();
    const QCommandLineOption demo_option(
        "demo", "Open the demo project, connected to a simulated installation");
    options.addOption(demo_option);
    {
        // The options are read before the toolkit starts, so that --help and
        // a wrong option are answered without a display.
        QCoreApplication parsing(argc, argv);
        QCoreApplication::setApplicationName("filo");
        options.process(parsing);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName("filo");

    filo::texts::LanguageTables startup_texts;
    startup_texts.ITALIANO();
    std::filesystem::path directory;
    try {
        directory = filo::platform::data_directory();
    } catch (const std::filesystem::filesystem_error& e) {
        QMessageBox::critical(
            nullptr, QString::fromStdString(startup_texts.text(Text::TITLE_FILO)),
            QString::fromStdString(startup_texts.text(Text::FILE_ERROR)) + e.what());
        return 1;
    }
    filo::app::SingleInstance instance(directory);
    if (!instance.acquired()) {
        QMessageBox::warning(nullptr, QString::fromStdString(startup_texts.text(Text::TITLE_FILO)),
                             QString::fromStdString(startup_texts.text(Text::SECOND_COPY_REFUSED)));
        return 1;
    }

    filo::platform::SteadyClock clock;
    filo::bus::ReceiveAssembler receiver;
    filo::app::QtPortHost port(receiver, clock);
    filo::app::QtMessages messages;
    filo::app::Session session(directory, port, receiver, messages);
    filo::app::MDIForm1 window(session, filo::app::system_services());
    messages.set_parent(&window);
    QObject::connect(&port, &filo::app::QtPortHost::lost, &window, &filo::app::MDIForm1::port_lost);
    window.show();

    std::string speech_error;
    session.speech = filo::platform::make_system_voice(
        filo::texts::speech_language(session.texts.language()), speech_error);
    if (!session.speech)
        session.message(Text::SPEECH_UNAVAILABLE, Text::TITLE_SPEECH, {}, speech_error);

    // The demo's installation lives as long as the window.
    std::unique_ptr<filo::app::Demo> demo;
    if (options.isSet(demo_option)) {
        demo = std::make_unique<filo::app::Demo>(session);
        if (demo->start()) window.show_project();
        // Buttons of the simulated installation, pressed from a small panel.
        auto* panel = new filo::app::DemoPanel(session, *demo, &window);
        window.menuBar()->addAction(filo::app::qs(session.texts.text(Text::DEMO_PRESS)), panel,
                                    &QWidget::show);
    }
    return application.exec();
}
