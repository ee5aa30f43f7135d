#pragma once
// The line in virtual time: a clock that moves only when the line waits, and
// a programmer simulated by a function that sees every write and schedules
// what comes back. A run of thousands of frames takes no real time.
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "bus/line_io.hpp"
#include "platform/clock.hpp"

namespace filo::bus {

class ReceiveAssembler;

class VirtualClock final : public platform::Clock {
  public:
    double now() const override { return now_; }
    void advance_to(double t) {
        if (t > now_) now_ = t;
    }

  private:
    double now_ = 0;
};

class VirtualLine final : public LineIo {
  public:
    // Sees each write; answers through reply().
    using Peer = std::function<void(VirtualLine& line, std::string_view written)>;

    explicit VirtualLine(ReceiveAssembler& receiver) : receiver_(receiver) {}
    void set_peer(Peer peer) { peer_ = std::move(peer); }

    // Bytes that reach the PC after the given delay from now.
    void reply(std::string bytes, double delay = 0);

    const platform::Clock& clock() const override { return clock_; }
    VirtualClock& virtual_clock() { return clock_; }
    void write(std::string_view bytes) override;
    bool serve_until(double deadline, const std::function<bool()>& done) override;
    void idle_until(double deadline) override { clock_.advance_to(deadline); }

    // Everything written so far, in order: one entry a write.
    const std::vector<std::string>& writes() const { return writes_; }
    // The time of each write.
    const std::vector<double>& write_times() const { return write_times_; }

  private:
    ReceiveAssembler& receiver_;
    VirtualClock clock_;
    Peer peer_;
    std::multimap<double, std::string> pending_;  // by arrival time
    std::vector<std::string> writes_;
    std::vector<double> write_times_;
};

// A programmer that answers "OK" at once to every frame in an envelope that
// asks for it ("_" behind the NUL), and nothing else.
VirtualLine::Peer answers_ok();

}  // namespace filo::bus
