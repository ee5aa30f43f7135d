// The line monitor's window on a busy line: the demo installation, simulated
// on a pseudo-terminal in this process, presses its buttons RATE times a
// second for SECONDS; Form8 decodes every frame in its extended view. Reports
// the processor time of the window's thread (the simulator and the feeder run
// on threads of their own), the frames shown, and how late a 10 ms timer of
// the window ran: the window's responsiveness.
//   xvfb-run -a build/bin/monitor_load [SECONDS] [RATE]
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>
#include <vector>

#include "app/demo.hpp"
#include "app/form8.hpp"
#include "app/line_monitor_window.hpp"
#include "app/port_host.hpp"
#include "app/project_errors.hpp"
#include "app/qt_port_host.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "sim/installation.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"

namespace {

class NoMessages final : public filo::app::Messages {
  public:
    void show(const std::string& text, const std::string&) override {
        std::fprintf(stderr, "message: %s\n", text.c_str());
    }
    bool ask(const std::string&, const std::string&) override { return false; }
};

double thread_cpu_seconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
    const int rate = argc > 2 ? std::atoi(argv[2]) : 200;

    QTemporaryDir home;
    filo::platform::SteadyClock clock;
    filo::bus::ReceiveAssembler receiver;
    filo::app::QtPortHost port(receiver, clock);
    NoMessages messages;
    filo::app::Session session(home.path().toStdString(), port, receiver, messages);
    filo::app::make_demo_project(session);
    const auto file = session.files.project_path(filo::app::kDemoProject);
    if (!filo::app::open_project_file(session, file)) return 1;
    filo::sim::Simulator simulator(
        filo::sim::make_installation(filo::sim::bus_codes_of_project(file), {}), {});
    filo::sim::SimServer server(simulator);
    server.start();
    if (!session.use_port(server.path())) return 1;

    filo::app::Form8 form(session);
    form.resize(1200, 800);
    form.load();

    // The feeder: presses and releases of the demo's named inputs, evenly spaced.
    std::atomic<bool> feeding{true};
    std::atomic<long> sent{0};
    std::thread feeder([&] {
        const char* lines[] = {"press 002014 1",   "release 002014 1", "press 003005 1",
                               "release 003005 1", "hold 002014 2",    "event 005050 1 138"};
        auto next = std::chrono::steady_clock::now();
        const auto gap = std::chrono::microseconds(1000000 / rate);
        for (long i = 0; feeding; ++i) {
            server.control(lines[i % 6]);
            ++sent;
            next += gap;
            std::this_thread::sleep_until(next);
        }
    });

    std::vector<qint64> late;
    QElapsedTimer since;
    since.start();
    qint64 expected = 10;
    QTimer probe;
    probe.setTimerType(Qt::PreciseTimer);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        late.push_back(std::max<qint64>(0, since.elapsed() - expected));
        expected = since.elapsed() + 10;
    });
    probe.start(10);

    const double cpu_before = thread_cpu_seconds();
    QElapsedTimer wall;
    wall.start();
    QTimer::singleShot(seconds * 1000, &application, &QApplication::quit);
    application.exec();
    const double cpu = thread_cpu_seconds() - cpu_before;
    const double elapsed = static_cast<double>(wall.elapsed()) / 1000.0;
    feeding = false;
    feeder.join();

    std::sort(late.begin(), late.end());
    const auto& t = form.tool();
    std::printf("frames sent %ld, frames in the history %zu (decoded %lu)\n", sent.load(),
                t.history.size(), t.monitor().shown());
    std::printf("window thread: cpu %.2f s in %.1f s = %.2f %% of one core\n", cpu, elapsed,
                100.0 * cpu / elapsed);
    std::printf("10 ms timer lateness: median %lld ms, 99th %lld ms, max %lld ms\n",
                static_cast<long long>(late[late.size() / 2]),
                static_cast<long long>(late[late.size() * 99 / 100]),
                static_cast<long long>(late.back()));
    server.stop();
    return 0;
}
