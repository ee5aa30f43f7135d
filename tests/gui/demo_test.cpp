// The demo over a real pseudo-terminal: its project, and the simulated
// installation answering on the port the application reads through Qt.
#include "app/demo.hpp"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "app/demo_panel.hpp"
#include "gui/gui_fixture.hpp"

namespace filo::testing {
namespace {

using Demo = QtLineTest;

// The demo's own installation answers on the port through the event loop:
// the button panel's presses (the programming and the link editor's tests
// find its modules answering).
TEST_F(Demo, OpensItsProjectOnLineAndItsInstallationAnswers) {
    app::Demo demo(session);
    ASSERT_TRUE(demo.start());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(session.project.NOME_PROGETTO, "DEMO");
    EXPECT_FALSE(demo.port_path().empty());
    EXPECT_EQ(session.PORTA_COM, demo.port_path());
    session.modules.ELENCO_MODULI();
    EXPECT_EQ(session.modules.ELENCO_CODICI, app::demo_project_modules());

    std::vector<std::string> frames;
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::Sweep,
                          [&](const bus::ReceiveAssembler& rx) { frames.push_back(rx.RX_TRAMA); });
    app::DemoPanel panel(session, demo);
    auto* modules = child<QComboBox>(&panel, "modules");
    ASSERT_GT(modules->count(), 0);
    const std::string code = modules->itemText(0).toStdString();
    child<QSpinBox>(&panel, "input")->setValue(3);
    QTest::mouseClick(child<QPushButton>(&panel, "press"), Qt::LeftButton);
    port.serve_until(clock.now() + 2.0, [&] { return !frames.empty(); });
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::Sweep, {});
    ASSERT_FALSE(frames.empty());
    // The event of input 3 pressed, from the module chosen.
    EXPECT_EQ(frames.front().substr(3), "8" + code.substr(0, 4) + "03FB]");

    // A second start finds the project made and leaves it as it is.
    const auto file = session.files.project_path("DEMO");
    const auto size = std::filesystem::file_size(file);
    app::make_demo_project(session);
    EXPECT_EQ(std::filesystem::file_size(file), size);
}

}  // namespace
}  // namespace filo::testing
