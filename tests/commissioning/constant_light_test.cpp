// AVANZATE2's tool: what the markers and the message make of the module's
// frames, the frames the slider sends, and the point stored at confirmation.
#include "commissioning/constant_light.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "bus/checksum.hpp"
#include "bus/envelope.hpp"
#include "bus/line.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::commissioning {
namespace {

using texts::Text;

class ConstantLightTest : public ::testing::Test {
  protected:
    ConstantLightTest() : file(testing::make_empty_project(dir.path())) {
        project.open(file);
        testing::add_module(modules, "00A019", 8, "Sensore");
    }
    std::string stored() {
        modules.LEGGI_MODULO("00A019");
        return modules.RIGHE_MODULO.riga(1).riserva3.substr(17, 3);
    }

    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable modules{project};
    bus::ReceiveAssembler receiver;
    bus::VirtualLine io{receiver};
    bus::Line line{io, receiver};
};

TEST_F(ConstantLightTest, TheModulesFramesMoveTheMarkersAndTheMessage) {
    using enum Text;
    struct Case {
        const char* what;
        const char* minimum;  // POTENZA_MINIMA
        const char* frames;   // without checksum, separated by blanks
        int reading, command;
        bool red, band;
        Text message;
    } cases[] = {
        {"a reading moves the sensor marker only", "040", "(C00A096000000]", 0x96, -1, false, false,
         LIGHT_SET_LEVEL},
        {"a command in range", "040", "(800A01180]", -1, 0x80, false, false, LIGHT_SET_LEVEL},
        {"above 250: full power", "040", "(800A011FB]", -1, 251, true, false, LIGHT_FULL_POWER},
        {"exactly 250 leaves colour and message", "040", "(800A011FB] (800A011FA]", -1, 250, true,
         false, LIGHT_FULL_POWER},
        {"251 under a higher minimum: red, the minimum's message", "255", "(800A011FB]", -1, 251,
         true, true, LIGHT_MINIMUM_POWER},
        {"at the minimum", "040", "(800A01128]", -1, 40, false, true, LIGHT_MINIMUM_POWER},
        {"back in range after full power", "040", "(800A011FF] (800A01180]", -1, 0x80, false, false,
         LIGHT_SET_LEVEL},
        {"frames of other addresses change nothing", "040", "(C00B096] (800B011FF]", -1, -1, false,
         false, LIGHT_SET_LEVEL},
    };
    for (const auto& c : cases) {
        ConstantLight light(modules, line);
        light.MODULO_REGOLATORE = "00A019";
        light.Form_Load();
        light.POTENZA_MINIMA = c.minimum;
        std::istringstream frames(c.frames);
        for (std::string f; frames >> f;) receiver.feed(bus::with_checksum(f));
        EXPECT_EQ(light.Label6, c.reading) << c.what;
        EXPECT_EQ(light.comando, c.command) << c.what;
        EXPECT_EQ(light.Shape6_red, c.red) << c.what;
        EXPECT_EQ(light.Shape6B_visible, c.band) << c.what;
        EXPECT_EQ(light.Label4, c.message) << c.what;
        EXPECT_EQ(light.Timer3, c.command >= 0) << c.what;  // a query just after an event
    }
    // Closed, it takes no more frames.
    EXPECT_FALSE(receiver.flags.LUCE_COSTANTE_ATTIVA);
}

TEST_F(ConstantLightTest, TheSliderSendsTheLevelAndConfirmationStoresIt) {
    struct Case {
        int slider;
        std::string level_frame;  // the set point, without checksum
        std::string stored;
    } cases[] = {
        {100, "(300A013FF]", "255"},
        {0, "(300A01300]", "000"},
        {50, "(300A0137F]", "127"},  // 127.5 as text: its first three characters
    };
    for (const auto& c : cases) {
        testing::set_column(project, "00A019", 1, "riserva3", "00000000000000040128000000");
        ConstantLight light(modules, line);
        light.MODULO_REGOLATORE = "00A019";
        light.Form_Load();
        EXPECT_EQ(light.Slider1, 50);  // "128" / 2.55, rounded
        EXPECT_EQ(light.POTENZA_MINIMA, "040");
        light.Slider1_Change(c.slider);
        const std::size_t before = io.writes().size();
        const double start = io.clock().now();
        light.send_set_point();
        ASSERT_EQ(io.writes().size(), before + 2);
        EXPECT_EQ(io.writes()[before],
                  bus::wrap(bus::Envelope::Full, bus::with_checksum("(300A06501]")));
        EXPECT_EQ(io.writes()[before + 1],
                  bus::wrap(bus::Envelope::Tail, bus::with_checksum(c.level_frame)));
        EXPECT_NEAR(io.write_times()[before + 1] - start, 0.4, 1e-9);
        EXPECT_TRUE(light.Timer2);
        light.Timer2_Timer();
        EXPECT_EQ(io.writes().back(),
                  bus::wrap(bus::Envelope::Tail, bus::with_checksum("(B00A000]")));
        light.Label1_Click(true);
        EXPECT_FALSE(light.Timer2);
        EXPECT_EQ(io.writes().back(),
                  bus::wrap(bus::Envelope::Full, bus::with_checksum("(300A06581]")));
        EXPECT_EQ(stored(), c.stored) << c.slider;
        EXPECT_EQ(modules.RIGHE_MODULO.riga(1).riserva3.substr(14, 3), "040");
    }
}

TEST(ConstantLightItemTest, TheListsItemDataNamesTheRegulator) {
    EXPECT_EQ(ConstantLight::regulator_of_item(0x100A019), "00A019");
    EXPECT_EQ(ConstantLight::regulator_of_item(0), "");
}

}  // namespace
}  // namespace filo::commissioning
