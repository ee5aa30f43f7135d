#pragma once
// A simulator in virtual time, and the frames and envelopes the PC writes.
#include <string>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/envelope.hpp"
#include "sim/installation.hpp"
#include "sim/simulator.hpp"

namespace filo::sim::testing {

// A frame written without checksum, checksum in, in an envelope.
inline std::string enveloped(bus::Envelope envelope, const std::string& frame) {
    return bus::wrap(envelope, bus::with_checksum(frame));
}
inline std::string full(const std::string& frame) {
    return enveloped(bus::Envelope::Full, frame);
}

// Everything the simulator writes from `from` up to `until`, taking its
// output at each time it falls due.
inline std::string output_until(Simulator& s, double from, double until) {
    std::string out = s.take_output(from);
    for (auto next = s.next_output(); next && *next <= until; next = s.next_output())
        out += s.take_output(*next);
    return out;
}

// Bytes in at time t, all that follows within a second out.
inline std::string talk(Simulator& s, const std::string& in, double t = 0) {
    s.receive(in, t);
    return output_until(s, t, t + 1);
}

inline Simulator installation(const std::vector<std::string>& codes,
                              const std::vector<std::string>& silent = {}, Faults faults = {}) {
    return Simulator(make_installation(codes, silent), faults);
}

}  // namespace filo::sim::testing
