// The constant light set-up through filo-cli against a photo-sensor of
// filo-sim: the module regulates, the command reports what it did, and the
// working point lands in the project; a sensor that never answers leaves the
// project as it was.
#include <gtest/gtest.h>

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/run_program.hpp"
#include "support/sample_project.hpp"
#include "support/sim_process.hpp"
#include "support/temp_dir.hpp"

namespace filo {
namespace {

TEST(LightSimTest, TheWorkingPointSettlesAndIsStoredWhenTheSensorAnswers) {
    const std::string before = "00000000000000040125000000";  // lowest power 40, point 125
    struct Case {
        std::vector<std::string> sim;
        const char* level;
        const char* timeout;
        int exit_code;
        std::vector<std::string> told;  // in the output
    } cases[] = {
        // clang-format off
        {{"--project"}, "50", "20", 0,
         {"sensor ", "IMPOSTA LA LUMINOSITA' CHE DEVE MANTENERE", "stored 127\n"}},
        {{"--silent", "00A019"}, "80", "1", 3, {}},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.level);
        testing::TempDir dir;
        const auto file = testing::make_empty_project(dir.path());
        {
            store::Project project;
            project.open(file);
            store::ModuleTable table(project);
            testing::add_module(table, "00A019", 8, "Sensore sala");
            testing::set_column(project, "00A019", 1, "riserva3", before);
        }
        std::vector<std::string> args = c.sim;
        if (args[0] == "--project") args.push_back(file.string());
        testing::SimProcess sim(args);
        if (c.exit_code == 0) sim.control("daylight 00A019 60");
        const auto r = testing::run_program("filo-cli",
                                            {"light", file.string(), "00a019", "--level", c.level,
                                             "--port", sim.port(), "--timeout", c.timeout},
                                            {{"FILO_HOME", (dir.path() / "home").string()}});
        EXPECT_EQ(r.exit_code, c.exit_code) << r.err;
        for (const std::string& t : c.told) EXPECT_NE(r.out.find(t), std::string::npos) << r.out;
        if (c.told.empty()) EXPECT_EQ(r.out.find("stored"), std::string::npos) << r.out;
        EXPECT_EQ(sim.stop(), 0);
        store::Project project;
        project.open(file);
        store::ModuleTable table(project);
        table.LEGGI_MODULO("00A019");
        const std::string& riserva3 = table.RIGHE_MODULO.riga(1).riserva3;
        if (c.exit_code == 0)
            EXPECT_EQ(riserva3.substr(14, 6), "040127");
        else
            EXPECT_EQ(riserva3, before);
    }
}

}  // namespace
}  // namespace filo
