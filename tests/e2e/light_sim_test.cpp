// The constant light set-up through filo-cli against a photo-sensor of
// filo-sim: the module regulates, the command reports what it did, and the
// working point lands in the project.
#include <gtest/gtest.h>

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/run_program.hpp"
#include "support/sample_project.hpp"
#include "support/sim_process.hpp"
#include "support/temp_dir.hpp"

namespace filo {
namespace {

TEST(LightSimTest, TheWorkingPointSettlesAndIsStored) {
    struct Case {
        const char* level;
        const char* daylight;
        std::string message;  // the state the regulation ends in
        std::string stored;   // characters 18-20 of the first row's riserva3
    } cases[] = {
        {"50", "60", "IMPOSTA LA LUMINOSITA' CHE DEVE MANTENERE", "127"},
    };
    for (const auto& c : cases) {
        testing::TempDir dir;
        const auto file = testing::make_empty_project(dir.path());
        {
            store::Project project;
            project.open(file);
            store::ModuleTable table(project);
            testing::add_module(table, "00A019", 8, "Sensore sala");
            // Lowest power 40, working point 125.
            testing::set_column(project, "00A019", 1, "riserva3", "00000000000000040125000000");
        }
        testing::SimProcess sim({"--project", file.string()});
        sim.control(std::string("daylight 00A019 ") + c.daylight);
        const auto r = testing::run_program("filo-cli",
                                            {"light", file.string(), "00a019", "--level", c.level,
                                             "--port", sim.port(), "--timeout", "20"},
                                            {{"FILO_HOME", (dir.path() / "home").string()}});
        EXPECT_EQ(r.exit_code, 0) << c.level << r.err;
        EXPECT_NE(r.out.find("sensor "), std::string::npos) << r.out;
        EXPECT_NE(r.out.find(c.message), std::string::npos) << c.level << r.out;
        EXPECT_NE(r.out.find("stored " + c.stored + "\n"), std::string::npos) << r.out;
        EXPECT_EQ(sim.stop(), 0);
        store::Project project;
        project.open(file);
        store::ModuleTable table(project);
        table.LEGGI_MODULO("00A019");
        EXPECT_EQ(table.RIGHE_MODULO.riga(1).riserva3.substr(14, 6), "040" + c.stored) << c.level;
    }
}

TEST(LightSimTest, ASensorThatNeverAnswersStoresNothing) {
    testing::TempDir dir;
    const auto file = testing::make_empty_project(dir.path());
    const std::string before = "00000000000000040125000000";
    {
        store::Project project;
        project.open(file);
        store::ModuleTable table(project);
        testing::add_module(table, "00A019", 8, "Sensore sala");
        testing::set_column(project, "00A019", 1, "riserva3", before);
    }
    testing::SimProcess sim({"--silent", "00A019"});
    const auto r = testing::run_program(
        "filo-cli",
        {"light", file.string(), "00A019", "--level", "80", "--port", sim.port(), "--timeout", "1"},
        {{"FILO_HOME", (dir.path() / "home").string()}});
    EXPECT_EQ(r.exit_code, 3) << r.out;
    EXPECT_EQ(r.out.find("stored"), std::string::npos) << r.out;
    EXPECT_EQ(sim.stop(), 0);
    store::Project project;
    project.open(file);
    store::ModuleTable table(project);
    table.LEGGI_MODULO("00A019");
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).riserva3, before);
}

}  // namespace
}  // namespace filo
