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
        const double left = deadline - clock_.now();
        if (left <= 0) return false;
        received.clear();
        port_.read(received, left);  // sleeps until bytes arrive or the time is up
        receiver_.feed(received);
    }
}

void PortLine::idle_until(double deadline) {
    const double left = deadline - clock_.now();
    if (left > 0) std::this_thread::sleep_for(std::chrono::duration<double>(left));
}

}  // namespace filo::bus
