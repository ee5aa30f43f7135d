#include "bus/port_line.hpp"

#include <chrono>
#include <string>
#include <thread>

#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"

namespace filo::bus {

void PortLine::write(std::string_view bytes) {
    port_.write(bytes);
}

bool PortLine::serve_until(double deadline, const std::function<bool()>& done) {
    std::string received;
    for (;;) {
        if (done()) return true;
        // Once the time is up, what has already arrived is still served.
        const double left = deadline - clock_.now();
        received.clear();
        port_.read(received, left > 0 ? left : 0);  // sleeps until bytes arrive or the time is up
        receiver_.feed(received);
        if (left <= 0) return done();
    }
}

void PortLine::idle_until(double deadline) {
    const double left = deadline - clock_.now();
    if (left > 0) std::this_thread::sleep_for(std::chrono::duration<double>(left));
}

}  // namespace filo::bus
