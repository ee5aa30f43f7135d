// filo-cli monitor on filo-sim's pseudo-terminal: presses on the simulated
// bus come out named, and a recording replays to the same lines. filo-cli
// analyse on a project file.
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/run_program.hpp"
#include "support/sample_project.hpp"
#include "support/sim_process.hpp"
#include "support/temp_dir.hpp"

namespace filo {
namespace {

// A new project with module 00121F, "Cucina", its row `campo` named `nick`.
std::filesystem::path kitchen(const testing::TempDir& dir, int campo, const std::string& nick) {
    const auto file = testing::make_empty_project(dir.path());
    store::Project project;
    project.open(file);
    store::ModuleTable modules(project);
    testing::add_module(modules, "00121F", 12, "Cucina");
    testing::set_column(project, "00121F", campo, "nick", nick);
    return file;
}

// Reads from fd until `lines` complete lines came or the time is up.
std::string read_lines(int fd, std::size_t lines, int timeout_ms) {
    std::string text;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) < lines &&
           std::chrono::steady_clock::now() < end) {
        pollfd p{fd, POLLIN, 0};
        if (::poll(&p, 1, 100) <= 0) continue;
        char buffer[512];
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n <= 0) break;
        text.append(buffer, static_cast<std::size_t>(n));
    }
    return text;
}

TEST(MonitorSim, PressesOnTheBusAreShownWithTheirNamesAndReplayTheSame) {
    testing::TempDir dir;
    const auto file = kitchen(dir, 3, "Tasto dispensa");
    testing::SimProcess sim({"--modules", "00121F,00221F"});
    const std::string record = (dir / "line.rec").string();
    testing::ChildProcess cli = testing::start_program(
        "filo-cli",
        {"monitor", "--port", sim.port(), "--project", file.string(), "--record", record});
    ::close(cli.in);
    // The press is repeated until the monitor, which may still be opening
    // the port, has seen one.
    std::string out;
    for (int attempt = 0; attempt < 20 && out.empty(); ++attempt) {
        sim.control("press 00121F 3");
        out = read_lines(cli.out, 1, 300);
    }
    sim.control("press 00221F 5");
    out += read_lines(cli.out, 1, 3000);
    ::kill(cli.pid, SIGINT);
    out += read_lines(cli.out, 100, 1000);
    EXPECT_EQ(testing::wait_for_exit(cli.pid), 0);
    ::close(cli.out);
    ::close(cli.err);
    EXPECT_EQ(sim.stop(), 0);

    const std::vector<std::string> lines = testing::lines_of(out);
    ASSERT_GE(lines.size(), 2U) << out;
    const std::string& named = lines[lines.size() - 2];
    ASSERT_GT(named.size(), 12U);
    EXPECT_EQ(named.substr(12),
              "\t8\t0012\t3\t251\tCucina. \tTasto dispensa. PULSANTE \tMITTENTE, 0 0 1 2, Cucina. "
              "INGRESSO, 3, Tasto dispensa. PULSANTE , PREMUTO");
    EXPECT_EQ(lines.back().substr(12),
              "\t8\t0022\t5\t251\t\t\tMITTENTE, 0 0 2 2, INGRESSO, 5, , PREMUTO");

    const auto replay = testing::run_program(
        "filo-cli", {"monitor", "--replay", record, "--project", file.string()});
    EXPECT_EQ(replay.exit_code, 0) << replay.err;
    EXPECT_EQ(replay.out, out);
}

TEST(AnalyseCli, TheDiagramOfANamedOutputIsPrintedOrDrawn) {
    testing::TempDir dir;
    const auto file = kitchen(dir, 9, "Luce tavolo ");
    {
        store::Project project;
        project.open(file);
        store::LinkTable links(project);
        links.LINK_CORRENTE =
            testing::switching_link("00121F/1", "00121F/2", "Luce tavolo ", "Tasto");
        links.LINK_CORRENTE.tempo_on2 = "30";
        links.AGGIUNGI_LINK();
    }
    const auto text = testing::run_program("filo-cli", {"analyse", file.string(), "luce tavolo"});
    EXPECT_EQ(text.exit_code, 0) << text.err;
    EXPECT_EQ(text.out,
              "Luce tavolo \t Modulo n°  00121F\nTasto\t SOLO ACCENDE *\t\tPER 30 Sec\t\t\n");

    const std::string svg = (dir / "d.svg").string();
    const auto drawn =
        testing::run_program("filo-cli", {"analyse", file.string(), "Luce tavolo", "--svg", svg});
    EXPECT_EQ(drawn.exit_code, 0) << drawn.err;
    const std::string picture = testing::read_file(svg);
    EXPECT_TRUE(picture.starts_with("<?xml")) << picture.substr(0, 100);
    EXPECT_NE(picture.find("Tasto"), std::string::npos);

    const auto missing = testing::run_program("filo-cli", {"analyse", file.string(), "Tasto"});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_EQ(missing.err, "Nessuna uscita con questo nome: Tasto\n");
}

}  // namespace
}  // namespace filo
