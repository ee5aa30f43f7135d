// The programming run: in virtual time on a large project (the cost of the
// run's own work), and in real time against the simulator on a pseudo-
// terminal (how close the run keeps to the time the protocol needs).
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <memory>

#include "bus/line.hpp"
#include "bus/port_line.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "commissioning/programming_run.hpp"
#include "commissioning/run_report.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"
#include "sim/installation.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace {

using namespace filo;

constexpr double kSecondsPerCharacter = 10.0 / 19200;  // 8N1 at 19200 bit/s

struct GeneratedProject {
    GeneratedProject(int modules, int links)
        : file(testing::make_empty_project(dir.path(), "bench")) {
        project.open(file);
        store::ModuleTable table(project);
        testing::add_generated_modules(table, modules);
        table.ELENCO_MODULI();
        codes = table.ELENCO_CODICI;
        testing::add_generated_links(project, codes, links);
    }
    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    std::vector<std::string> codes;
};

// The run against a programmer that answers each frame once the frame and
// its "OK" have crossed the line at 19200 bit/s: the protocol's own time.
double protocol_seconds(store::Project& project, bool with_line_time) {
    bus::ReceiveAssembler receiver;
    bus::VirtualLine io(receiver);
    io.set_peer([&](bus::VirtualLine& l, std::string_view written) {
        const bool asks = written.size() >= 2 && written[written.size() - 1] == '_';
        if (asks) l.reply("OK", with_line_time ? (written.size() + 2) * kSecondsPerCharacter : 0);
    });
    bus::Line line(io, receiver);
    commissioning::RunReport report;
    commissioning::ProgrammingRun run(project, line, report);
    run.PROGRAMMA_IMPIANTO();
    // Text frames and the closing frames await nothing but still cross the line.
    return io.clock().now();
}

double thread_cpu_seconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void BM_RunInVirtualTime(benchmark::State& state) {
    GeneratedProject generated(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    double virtual_seconds = 0;
    for (auto _ : state) {
        bus::ReceiveAssembler receiver;
        bus::VirtualLine io(receiver);
        io.set_peer(bus::answers_ok());
        bus::Line line(io, receiver);
        commissioning::RunReport report;
        commissioning::ProgrammingRun run(generated.project, line, report);
        run.PROGRAMMA_IMPIANTO();
        virtual_seconds = io.clock().now();
        benchmark::DoNotOptimize(report.TEXT1.size());
    }
    state.counters["protocol_s"] = virtual_seconds;
}
BENCHMARK(BM_RunInVirtualTime)->Args({250, 3000})->Unit(benchmark::kMillisecond);

void BM_RunAgainstSimulator(benchmark::State& state) {
    GeneratedProject generated(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const double protocol = protocol_seconds(generated.project, true);
    const double without_line_time = protocol_seconds(generated.project, false);

    // The simulator carries the characters at the given speed (0: at once).
    sim::Faults line;
    line.baud = static_cast<int>(state.range(2));
    sim::Simulator simulator(sim::make_installation(sim::bus_codes_of_project(generated.file), {}),
                             line);
    sim::SimServer server(simulator);
    server.start();
    double wall = 0, cpu = 0;
    int errors = 0;
    for (auto _ : state) {
        auto port = platform::open_serial_port(server.path());
        platform::SteadyClock clock;
        bus::ReceiveAssembler receiver;
        bus::PortLine io(*port, receiver, clock);
        bus::Line line(io, receiver);
        commissioning::RunReport report;
        commissioning::ProgrammingRun run(generated.project, line, report);
        const double cpu_start = thread_cpu_seconds();
        const auto start = std::chrono::steady_clock::now();
        run.PROGRAMMA_IMPIANTO();
        wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        cpu = thread_cpu_seconds() - cpu_start;
        errors = report.N_ERRORI;
    }
    server.stop();
    state.counters["wall_s"] = wall;
    state.counters["protocol_s"] = protocol;
    state.counters["wall_per_protocol"] = wall / protocol;
    state.counters["wall_per_pauses_and_windows"] = wall / without_line_time;
    state.counters["cpu_per_wall"] = cpu / wall;
    state.counters["errors"] = errors;
}
BENCHMARK(BM_RunAgainstSimulator)
    ->Args({30, 300, 19200})
    ->Args({30, 300, 0})
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);

}  // namespace

BENCHMARK_MAIN();
