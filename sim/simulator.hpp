#pragma once
// The simulated programmer with its installation behind it. It is fed the
// bytes the PC writes and gives back the bytes the PC reads; time is told by
// the caller, so it runs on a pseudo-terminal in real time and in tests in
// virtual time. No I/O here.
#include <cstdint>
#include <map>
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
    // Not a fault but the line itself: bit/s, 10 bits a character; 0 carries
    // every character at once.
    int baud = 0;
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
    // When there is next something to take or something happens in the
    // installation (a timed link, a regulation step, traffic); nothing when
    // all is written and all is still.
    std::optional<double> next_output() const;

    // Random presses and releases, so many a second, over the inputs that
    // have links; 0 stops them. They start at now.
    void set_traffic(double per_second, double now);

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
    // What happens at a time: a link's delayed or timed switching, a
    // regulation step, the next random press.
    struct Pending {
        enum class What { SwitchOn, SwitchOff, Regulate, Traffic } what;
        std::size_t module = 0;
        int output = 0;
        double timed = 0;  // SwitchOn: seconds it stays on, 0 for ever
        bool retrig = false;
        unsigned generation = 0;  // stale when the output was switched since
    };

    void put_on_bus(const std::string& frame);
    // Runs what is due up to now.
    void advance(double now);
    void run(const Pending& p, double at);
    // An input event of the module at address: the inputs it shows, the
    // links that follow it in every module, and, when to_pc, the frame.
    void input_event(std::uint16_t address, int input, int value, bool to_pc, int depth);
    void follow_link(std::size_t module, const bus::LinkRecord& link, int value, int depth);
    void switch_on(std::size_t module, int output, double timed, bool retrig, int depth);
    void switch_off(std::size_t module, int output, int depth);
    void set_output(std::size_t module, int output, bool on, int depth);
    void schedule(double at, Pending p);
    unsigned& generation(std::size_t module, int output);
    void regulate(std::size_t module);
    void start_regulating(std::size_t module);
    void random_press();
    void answer_asked();
    // A message for the PC, due at the given time, with noise and split applied.
    void send(std::string bytes, double at);
    bool chance(double rate);

    std::vector<SimModule> modules_;
    Faults faults_;
    std::mt19937 random_;
    ProgrammerInput input_;
    Outbox outbox_;
    double now_ = 0;             // the time of the byte being fed, or of what happens
    double character_time_ = 0;  // seconds a character takes on the line
    double in_free_ = 0;         // when the line from the PC has carried all written
    double out_free_ = 0;        // when the line to the PC has carried all sent
    std::multimap<double, Pending> pending_;
    std::map<std::pair<std::size_t, int>, unsigned> generations_;
    std::map<std::pair<std::size_t, int>, double> off_due_;  // timed outputs: when they go off
    double traffic_period_ = 0;
    bool ok_owed_ = false;  // the last frame earns an "OK" if the PC asks for one
    std::vector<std::string> bus_;
    std::vector<std::string> links_;
    unsigned long rejected_ = 0;
    int opened_ = 0;
    int closed_ = 0;
};

}  // namespace filo::sim
