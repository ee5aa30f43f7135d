// The line on a pseudo-terminal: from a frame's last byte written on the
// master side to its consumer on our side.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "bus/port_line.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/pty.hpp"
#include "platform/serial_port.hpp"

namespace {

using namespace filo;

void BM_FrameLatencyOverPty(benchmark::State& state) {
    platform::PseudoTerminal pty;
    auto port = platform::open_serial_port(pty.slave_path());
    platform::SteadyClock clock;
    bus::ReceiveAssembler receiver;
    bus::PortLine line(*port, receiver, clock);
    std::atomic<double> written_at{0};
    double seen_at = 0;
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::Monitor,
                          [&](const bus::ReceiveAssembler&) { seen_at = clock.now(); });
    std::vector<double> latencies;
    for (auto _ : state) {
        const unsigned long before = receiver.frames();
        std::thread writer([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            written_at = clock.now();
            const char frame[] = "(42800120101]";
            if (::write(pty.master(), frame, sizeof frame - 1) < 0) return;
        });
        line.serve_until(clock.now() + 1.0, [&] { return receiver.frames() > before; });
        writer.join();
        latencies.push_back(seen_at - written_at);
        state.SetIterationTime(seen_at - written_at);
    }
    std::sort(latencies.begin(), latencies.end());
    state.counters["median_ms"] = latencies[latencies.size() / 2] * 1000;
    state.counters["p99_ms"] = latencies[latencies.size() * 99 / 100] * 1000;
}
BENCHMARK(BM_FrameLatencyOverPty)->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
