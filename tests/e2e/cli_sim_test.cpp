// filo-cli against filo-sim over a real pseudo-terminal.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "bus/checksum.hpp"
#include "support/run_program.hpp"
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
        // clang-format off
        {"a module that is there", {}, "(30012EC05]", "0", "Modulo n° 0012 OK\n", 0, 1},
        {"a silent module: two attempts, then the failure", {"--silent", "00221F"}, "(30022EC05]",
         "0", "Modulo n° 0022 NO\nModulo n° 0022 NO / /\n", 3, 2},
        // The OK comes 0.3 s late: after the first window of 0.2 s, within the second.
        {"a late answer lands in the repeat", {"--late", "300"}, "(30012EC05]",
         "100", "Modulo n° 0012 NO\nModulo n° 0012 OK\n", 0, 2},
        // A frame typed with its checksum goes as it is, not with a second one.
        {"a frame typed with its checksum", {}, bus::with_checksum("(30012EC05]"),
         "0", "Modulo n° 0012 OK\n", 0, 1},
        {"split writes and noise", {"--split", "--noise", "1", "--seed", "5"}, "(30012EC05]",
         "0", "Modulo n° 0012 OK\n", 0, 1},
        // clang-format on
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
