#pragma once
// The simulated programmer with its installation behind it. It is fed the
// bytes the PC writes and gives back the bytes the PC reads; time is told by
// the caller, so it runs on a pseudo-terminal in real time and in tests in
// virtual time. No I/O here.
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "sim/outbox.hpp"
#include "sim/programmer_input.hpp"
#include "sim/sim_module.hpp"

namespace filo::sim {

// Faults of the line and of the installation, reproducible from the seed.
struct Faults {
    double late = 0;     // seconds by which every "OK" and every answer comes late
    double drop_ok = 0;  // chance that an "OK" is lost
    double noise = 0;    // chance of garbage characters in front of a write
    bool split = false;  // writes leave in pieces of 1-4 characters, 1 ms apart
    std::uint32_t seed = 1;
};

class Simulator {
  public:
    Simulator(std::vector<SimModule> modules, Faults faults);
    // The input's handlers point back here.
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    // Bytes written by the PC, arriving at time now.
    void receive(std::string_view bytes, double now);
    // Bytes the PC gets at time now.
    std::string take_output(double now);
    // When there is next something to take, nothing when all is written.
    std::optional<double> next_output() const { return outbox_.next(); }

    // One control line (see docs/SIMULATOR.md): "press 00121F 3". Returns ""
    // when done, else what was wrong with it.
    std::string control(std::string_view line, double now);

    const std::vector<SimModule>& modules() const { return modules_; }
    SimModule* module(std::string_view code);
    // Every frame put on the bus, in order, checksum included.
    const std::vector<std::string>& bus() const { return bus_; }
    // Every link record taken by a module, each once, in order of arrival.
    const std::vector<std::string>& links() const { return links_; }
    // Frames dropped for a wrong checksum.
    unsigned long rejected() const { return rejected_; }
    int programming_opened() const { return opened_; }
    int programming_closed() const { return closed_; }

  private:
    void put_on_bus(const std::string& frame);
    void answer_asked();
    // A message for the PC, due at the given time, with noise and split applied.
    void send(std::string bytes, double at);
    bool chance(double rate);

    std::vector<SimModule> modules_;
    Faults faults_;
    std::mt19937 random_;
    ProgrammerInput input_;
    Outbox outbox_;
    double now_ = 0;        // the time of the byte being fed
    bool ok_owed_ = false;  // the last frame earns an "OK" if the PC asks for one
    std::vector<std::string> bus_;
    std::vector<std::string> links_;
    unsigned long rejected_ = 0;
    int opened_ = 0;
    int closed_ = 0;
};

}  // namespace filo::sim
