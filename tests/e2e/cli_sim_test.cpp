// filo-cli against filo-sim over a real pseudo-terminal.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "bus/checksum.hpp"
#include "bus/frame_builder.hpp"
#include "platform/serial_port.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/run_program.hpp"
#include "support/sample_project.hpp"
#include "support/sim_process.hpp"
#include "support/temp_dir.hpp"

namespace filo {
namespace {

using testing::SimProcess;

class CliSimTest : public ::testing::Test {
  protected:
    testing::ProgramResult cli(const std::vector<std::string>& args) {
        return testing::run_program("filo-cli", args, {{"FILO_HOME", (dir / "home").string()}});
    }
    nlohmann::json dump() { return nlohmann::json::parse(testing::read_file(dir / "dump.json")); }
    testing::TempDir dir;
};

TEST_F(CliSimTest, ConnectFindsTheProgrammerOnThePort) {
    SimProcess sim({"--modules", "00121F"});
    const auto r = cli({"connect", "--port", sim.port()});
    EXPECT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.out, "ON_LINE  su comm   " + sim.port() + "\n");
    EXPECT_EQ(sim.stop(), 0);
}

TEST_F(CliSimTest, SendGetsTheAnswerTheInstallationGives) {
    struct Case {
        const char* what;
        std::vector<std::string> sim;
        std::string frame;
        std::string wait;
        std::string out;
        int exit_code;
        std::size_t on_bus;  // times the frame was put on the bus
    } cases[] = {
        {"a module that is there", {}, "(30012EC05]", "0", "Modulo n° 0012 OK\n", 0, 1},
        {"a silent module: two attempts, then the failure",
         {"--silent", "00221F"},
         "(30022EC05]",
         "0",
         "Modulo n° 0022 NO\nModulo n° 0022 NO / /\n",
         3,
         2},
        {"no module at the address",
         {},
         "(30099EC05]",
         "0",
         "Modulo n° 0099 NO\nModulo n° 0099 NO / /\n",
         3,
         2},
        // The OK comes 0.3 s late: after the first window of 0.2 s, within the second.
        {"a late answer lands in the repeat",
         {"--late", "300"},
         "(30012EC05]",
         "100",
         "Modulo n° 0012 NO\nModulo n° 0012 OK\n",
         0,
         2},
        {"split writes and noise",
         {"--split", "--noise", "1", "--seed", "5"},
         "(30012EC05]",
         "0",
         "Modulo n° 0012 OK\n",
         0,
         1},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args = {"--modules", "00121F", "--dump",
                                         (dir / "dump.json").string()};
        args.insert(args.end(), c.sim.begin(), c.sim.end());
        SimProcess sim(args);
        const auto r = cli({"send", "--port", sim.port(), "--wait", c.wait, c.frame});
        EXPECT_EQ(r.exit_code, c.exit_code) << c.what << ": " << r.err;
        EXPECT_EQ(r.out, c.out) << c.what;
        EXPECT_EQ(sim.stop(), 0) << c.what << ": " << sim.errors();
        EXPECT_EQ(dump()["bus"].size(), c.on_bus) << c.what;
    }
}

TEST_F(CliSimTest, TheDumpIsWrittenOnTerminationWithWhatWasProgrammed) {
    SimProcess sim({"--modules", "00121F,00304A", "--dump", (dir / "dump.json").string()});
    for (const char* frame : {"(300126F68]", "(3001267 0F]", "(3003010A1]", "(3003090B2]"}) {
        std::string f = frame;
        f.erase(std::remove(f.begin(), f.end(), ' '), f.end());
        EXPECT_EQ(cli({"send", "--port", sim.port(), f}).exit_code, 0) << f;
    }
    // A frame typed with its checksum goes as it is, not with a second one.
    EXPECT_EQ(cli({"send", "--port", sim.port(), bus::with_checksum("(300126810]")}).exit_code, 0);
    EXPECT_EQ(sim.stop(), 0);
    const auto d = dump();
    EXPECT_EQ(d["modules"]["00121F"]["registers"], nlohmann::json({{"67", "0F"}, {"68", "10"}}));
    EXPECT_EQ(d["modules"]["00121F"]["resets"], 1);
    EXPECT_EQ(d["modules"]["00304A"]["remotes"], nlohmann::json({{"1", "A1B2"}}));
    EXPECT_EQ(d["frames"], 5);
}

TEST_F(CliSimTest, AProjectsLiveModulesAreTheInstallation) {
    const auto file = testing::make_empty_project(dir.path());
    {
        store::Project project;
        project.open(file);
        store::ModuleTable table(project);
        testing::add_module(table, "00211F", 16, "Quadro");
        testing::add_module(table, "A1B234", 8, "Telecomando");  // radio: not on the bus
    }
    SimProcess sim({"--project", file.string(), "--dump", (dir / "dump.json").string()});
    EXPECT_EQ(cli({"send", "--port", sim.port(), "(30021EC05]"}).out, "Modulo n° 0021 OK\n");
    EXPECT_EQ(cli({"send", "--port", sim.port(), "--wait", "0", "(3A1B2EC05]"}).exit_code, 3);
    EXPECT_EQ(sim.stop(), 0);
    const auto d = dump();
    EXPECT_EQ(d["modules"].size(), 1u);
    EXPECT_EQ(d["modules"]["00211F"]["registers"]["EC"], "05");
}

TEST_F(CliSimTest, WrongOptionsStopTheSimulatorBeforeItServes) {
    for (const std::vector<std::string>& args : {std::vector<std::string>{"--modules", "00121G"},
                                                 {"--drop-ok", "2"},
                                                 {"--project", (dir / "missing.TRN").string()}}) {
        const auto r = testing::run_program("filo-sim", args);
        EXPECT_NE(r.exit_code, 0) << args[1];
        EXPECT_EQ(r.out, "") << args[1];
    }
}

}  // namespace
}  // namespace filo
