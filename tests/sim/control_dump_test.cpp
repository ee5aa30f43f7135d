// Control lines, the dump, and which modules of a project stand on the bus.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "bus/frame_builder.hpp"
#include "sim/dump.hpp"
#include "sim/sim_fixture.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::sim {
namespace {

using testing::enveloped;
using testing::full;
using testing::installation;
using testing::talk;

TEST(ControlTest, LinesMakeTheFramesAModuleSendsOrSetWhatItShows) {
    struct Case {
        const char* line;
        std::string error_start;  // "" when the line is good
        std::string out;          // what the PC then reads
    } cases[] = {
        {"press 00121F 3", "", bus::input_event_frame(0x0012, 3, 251)},
        {"release 00121f 3", "", bus::input_event_frame(0x0012, 3, 9)},
        {"hold 00121F 2", "", bus::input_event_frame(0x0012, 10, 251)},
        {"event 00121F 17 128", "", bus::input_event_frame(0x0012, 17, 128)},
        {"  press   00121F   1  ", "", bus::input_event_frame(0x0012, 1, 251)},
        {"", "", ""},
        {"# a comment", "", ""},
        {"press 00121F 9", "usage", ""},
        {"press 00121F", "usage", ""},
        {"press 00121F x", "usage", ""},
        {"event 00121F 1 256", "usage", ""},
        {"press 00991F 1", "no module", ""},
        {"press", "missing", ""},
        {"press 00221F 1", "module 00221F is silent", ""},
        {"fly 00121F", "unknown", ""},
        {"analog 00121F 1 2 3 4 5 6 7 8 9", "usage", ""},
        {"analog 00121F 300", "not a value", ""},
        {"register 00121F 6 01", "usage", ""},
        {"silent 00121F maybe", "usage", ""},
    };
    for (const auto& c : cases) {
        Simulator s = installation({"00121F"}, {"00221F"});
        const std::string error = s.control(c.line, 0);
        EXPECT_EQ(error.substr(0, c.error_start.size()), c.error_start) << c.line;
        EXPECT_EQ(error.empty(), c.error_start.empty()) << c.line << ": " << error;
        EXPECT_EQ(testing::output_until(s, 0, 1), c.out) << c.line;
    }
}

TEST(ControlTest, WhatIsSetIsWhatTheQueriesRead) {
    Simulator s = installation({"00121F"});
    EXPECT_EQ(s.control("register 00121F 65 a5", 0), "");
    EXPECT_EQ(s.control("analog 00121F 16 255 0", 0), "");
    EXPECT_EQ(talk(s, full("(400126500]")), bus::register_answer_frame(0x0012, 0xA5) + "OK");
    EXPECT_EQ(talk(s, full("(400126100]")), bus::register_answer_frame(0x0012, 0) + "OK");
    bus::AnalogValues three{{16, 255, 0}, 3};
    const std::string answer = bus::analog_answer_frame(0x0012, three);
    EXPECT_EQ(talk(s, full("(B001200]")), answer + "OK");
    EXPECT_EQ(s.control("silent 00121F on", 0), "");
    EXPECT_EQ(talk(s, full("(B001200]")), "");
    EXPECT_EQ(s.control("silent 00121F off", 0), "");
    EXPECT_EQ(talk(s, full("(B001200]")), answer + "OK");
}

// What a programming run leaves is read from the dump by the end-to-end
// tests; here the rest of it: a module's type and silence, 8-bit texts by
// record (the last written wins), the bus in order (a wrong checksum kept
// off it, a frame to nobody on it), the counts.
TEST(DumpTest, TheDumpHoldsWhatEachModuleWasGiven) {
    Simulator s = installation({"00121F", "00201E", "00401A"}, {"00221F"});
    talk(s, enveloped(bus::Envelope::Tail, "(600000055]"));
    talk(s, full("(300126F68]"));
    talk(s, full(bus::card_frame({0x0040, "A1B2C3", 2}).erase(1, 2)));
    talk(s, bus::text_frame(0x0020, 1, "2Bar"));
    talk(s, bus::text_frame(0x0020, 2, "seconda riga (]"));
    talk(s, bus::text_frame(0x0020, 1, "1Caff\xE8"));
    talk(s, "00(00300012EC05]" + std::string("\0_", 2));
    talk(s, full("(30099EC05]"));
    talk(s, enveloped(bus::Envelope::Tail, "(6000000AA]"));
    const auto dump = nlohmann::json::parse(dump_json(s));
    const auto& m = dump["modules"]["00121F"];
    EXPECT_EQ(m["type"], "1F");
    EXPECT_EQ(m["resets"], 1);
    EXPECT_EQ(m["reset"], "68");
    EXPECT_EQ(m["silent"], false);
    EXPECT_EQ(m["frames"], 1);
    EXPECT_EQ(dump["modules"]["00221F"]["silent"], true);
    EXPECT_EQ(dump["modules"]["00201E"]["texts"],
              nlohmann::json({{"01", "1Caff\u00E8"}, {"02", "seconda riga (]"}}));
    EXPECT_EQ(dump["modules"]["00401A"]["cards"],
              nlohmann::json::parse(R"([{"list":2,"entry":"A1B2C3"}])"));
    EXPECT_EQ(dump["frames"], 8);
    EXPECT_EQ(dump["bus"][0], "(1E600000055]");
    EXPECT_EQ(dump["bus"][6], "(5030099EC05]");
    EXPECT_EQ(dump["rejected"], 1);
    EXPECT_EQ(dump["programming"], nlohmann::json({{"opened", 1}, {"closed", 1}}));
}

TEST(InstallationTest, OnlyModulesWithABusAddressStandOnTheBus) {
    struct Case {
        const char* code;
        bool on_bus;
    } cases[] = {{"00121F", true}, {"FFF023", true},  {"FFF123", false}, {"FFF323", false},
                 {"FFFEFF", true}, {"001234", false}, {"001235", false}, {"001228", false},
                 {"00124A", true}, {"0012", false}};
    for (const auto& c : cases) EXPECT_EQ(stands_on_bus(c.code), c.on_bus) << c.code;

    EXPECT_THROW(make_installation({"00121G"}, {}), std::invalid_argument);
    EXPECT_THROW(make_installation({"00121F"}, {"12"}), std::invalid_argument);
    const auto modules = make_installation({"00121f", "00121F", "0013AA"}, {"0013aa", "00141F"});
    ASSERT_EQ(modules.size(), 3u);
    EXPECT_EQ(modules[0].code, "00121F");
    EXPECT_FALSE(modules[0].silent);
    EXPECT_TRUE(modules[1].silent);
    EXPECT_EQ(modules[2].code, "00141F");
    EXPECT_TRUE(modules[2].silent);
}

TEST(InstallationTest, AProjectGivesItsLiveBusModules) {
    filo::testing::TempDir dir;
    const auto file = filo::testing::make_empty_project(dir.path());
    {
        store::Project project;
        project.open(file);
        store::ModuleTable table(project);
        filo::testing::add_module(table, "00211F", 16, "Quadro");
        filo::testing::add_module(table, "00124A", 16, "Radio");
        filo::testing::add_module(table, "A1B234", 8, "Telecomando");
        filo::testing::add_module(table, "FFF023", 16, "Pagina 1");
        filo::testing::add_module(table, "FFF123", 16, "Pagina 2");
    }
    EXPECT_EQ(bus_codes_of_project(file), (std::vector<std::string>{"00124A", "00211F", "FFF023"}));
}

}  // namespace
}  // namespace filo::sim
