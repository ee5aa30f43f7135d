// The demo over a real pseudo-terminal: its project, and the simulated
// installation answering on the port the application reads through Qt.
#include "app/demo.hpp"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "app/demo_panel.hpp"
#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "commissioning/scan.hpp"
#include "gui/gui_fixture.hpp"

namespace filo::testing {
namespace {

using Demo = QtLineTest;

// The demo's own installation answers on the port through the event loop:
// every module the sweep's probe, and the button panel's presses.
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
    std::vector<std::string> expected = app::demo_project_modules();
    expected.push_back(app::kDemoSpareModule);
    for (const std::string& code : expected) {
        const std::size_t before = frames.size();
        port.write(bus::with_checksum("[A00" + code.substr(2, 2) + "0000]") + '\0');
        port.serve_until(clock.now() + 2.0, [&] { return frames.size() > before; });
    }
    std::vector<std::string> found;
    for (const std::string& f : frames)
        if (auto code = commissioning::answered_code(f)) found.push_back(*code);
    EXPECT_EQ(found, expected);

    app::DemoPanel panel(session, demo);
    auto* modules = child<QComboBox>(&panel, "modules");
    ASSERT_GT(modules->count(), 0);
    const std::string code = modules->itemText(0).toStdString();
    child<QSpinBox>(&panel, "input")->setValue(3);
    frames.clear();
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
