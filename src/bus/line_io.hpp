#pragma once
// What the line needs of the world: a way to write, a clock, and a pump that
// serves received characters while a wait lasts. The program's one thread
// waits through these, so the same code runs on a serial port, inside the
// desktop's event loop, and in virtual time.
#include <functional>
#include <string_view>

namespace filo::platform {
class Clock;
}

namespace filo::bus {

class LineIo {
  public:
    virtual ~LineIo() = default;
    virtual const platform::Clock& clock() const = 0;
    // Output: the bytes go to the programmer in order.
    virtual void write(std::string_view bytes) = 0;
    // Serves received characters until the clock reaches deadline or done()
    // holds; true when done() held. Must not spin: it sleeps on the port.
    virtual bool serve_until(double deadline, const std::function<bool()>& done) = 0;
    // Lets time pass to deadline without reading anything: what arrives
    // meanwhile waits for the next serve.
    virtual void idle_until(double deadline) = 0;
};

}  // namespace filo::bus
