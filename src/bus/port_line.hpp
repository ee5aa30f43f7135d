#pragma once
// The line on a real serial port (or a pseudo-terminal): received bytes are
// fed to the assembler one by one, on the caller's thread.
#include "bus/line_io.hpp"

namespace filo::platform {
class SerialPort;
}

namespace filo::bus {

class ReceiveAssembler;

class PortLine final : public LineIo {
  public:
    PortLine(platform::SerialPort& port, ReceiveAssembler& receiver, const platform::Clock& clock)
        : port_(port), receiver_(receiver), clock_(clock) {}

    const platform::Clock& clock() const override { return clock_; }
    void write(std::string_view bytes) override;
    bool serve_until(double deadline, const std::function<bool()>& done) override;
    void idle_until(double deadline) override;

  private:
    platform::SerialPort& port_;
    ReceiveAssembler& receiver_;
    const platform::Clock& clock_;
};

}  // namespace filo::bus
