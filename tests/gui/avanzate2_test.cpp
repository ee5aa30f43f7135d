// AVANZATE2 over the application's own line, against a photo-sensor of the
// simulated installation on a real pseudo-terminal.
#include "app/avanzate2.hpp"

#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "app/project_errors.hpp"
#include "commissioning/constant_light.hpp"
#include "gui_fixture.hpp"
#include "sim/simulator.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

using testing::child;
using ConstantLightEndToEnd = testing::DemoInstallationTest;

TEST_F(ConstantLightEndToEnd, TheSliderDrivesTheSensorAndTheWindowShowsWhatItDoes) {
    ASSERT_TRUE(app::open_project_file(session, demo_file));
    testing::add_module(session.modules, "00A019", 8, "Sensore sala");
    testing::set_column(session.project, "00A019", 1, "riserva3", "00000000000000040125000000");
    connect_installation();

    app::AVANZATE2 dialog(session, "00A019", nullptr);
    ASSERT_TRUE(dialog.load());
    const commissioning::ConstantLight& w = dialog.tool();
    EXPECT_EQ(child<QSlider>(&dialog, "Slider1")->value(), 49);  // 125 / 2.55
    // Full brightness: more than the lamps can give.
    child<QSlider>(&dialog, "Slider1")->setValue(100);
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.comando == 255 && w.Label6 >= 0; }, 5000));
    EXPECT_TRUE(w.Shape6_red);
    EXPECT_EQ(child<QLabel>(&dialog, "Label4")->text().left(26), "POTENZA LAMPADE AL MASSIMO");
    EXPECT_EQ(child<QLabel>(&dialog, "Label7")->text(), "255");
    // Confirmation stores the point and takes the module out of set-up mode.
    QTest::mouseClick(child<QPushButton>(&dialog, "Label1"), Qt::LeftButton);
    session.modules.LEGGI_MODULO("00A019");
    EXPECT_EQ(session.modules.RIGHE_MODULO.riga(1).riserva3.substr(17, 3), "255");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !module_on_bus("00A019").room.setup; }, 2000));
    EXPECT_FALSE(session.receiver.flags.LUCE_COSTANTE_ATTIVA);
}

}  // namespace
}  // namespace filo
