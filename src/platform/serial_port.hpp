#pragma once
// The serial port to the programmer: 19200 bit/s, 8 data bits, no parity, one
// stop bit, raw bytes. Any path the user gives opens, a pseudo-terminal
// included.
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace filo::platform {

// The port could not be opened, or went away (an adapter pulled out).
class PortError : public std::runtime_error {
  public:
    PortError(const std::string& port, const std::string& what)
        : std::runtime_error(port + ": " + what), port_(port) {}
    const std::string& port() const { return port_; }

  private:
    std::string port_;
};

// The port is held by another program (another copy of Filo, a terminal).
class PortBusy : public PortError {
  public:
    explicit PortBusy(const std::string& port) : PortError(port, "in use by another program") {}
};

class SerialPort {
  public:
    virtual ~SerialPort() = default;
    virtual const std::string& name() const = 0;
    // Writes all the bytes; throws PortError when the port is gone.
    virtual void write(std::string_view bytes) = 0;
    // Waits up to timeout seconds for bytes and appends all that have arrived.
    // False when the time passed with none; throws PortError when the port is gone.
    virtual bool read(std::string& into, double timeout) = 0;
    // The descriptor to watch for input, for event loops.
    virtual int descriptor() const = 0;
};

// Opens a port at the settings above, for this program alone: no other
// process may open it meanwhile (TIOCEXCL) and a program that honours locks
// on the device is refused too. Throws PortBusy when another one holds it,
// PortError otherwise.
std::unique_ptr<SerialPort> open_serial_port(const std::string& path);

struct PortInfo {
    std::string path;     // /dev/ttyUSB0
    std::string caption;  // what the system says of the device, or the path
};
// The serial ports of the system that have a device behind them.
std::vector<PortInfo> list_serial_ports();

}  // namespace filo::platform
