#pragma once
// What tests read from the writes to a virtual line, and installations that
// answer the sweep's probes.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bus/frame_builder.hpp"
#include "bus/virtual_line.hpp"

namespace filo::testing {

// What a write carried: its frame without the two checksum digits
// ("(" kind address fields "]"), a text frame as it went out, or "?" and the
// write when it holds no frame.
inline std::string frame_of(std::string_view written) {
    if (!written.empty() && written[0] == '\x16') return std::string(written);
    const auto open = written.find('(');
    const auto close = written.find(']', open);
    if (open == std::string_view::npos || close == std::string_view::npos)
        return "?" + std::string(written);
    const std::string frame(written.substr(open, close - open + 1));
    return frame.substr(0, 1) + frame.substr(3);
}

// A programmer's installation: every module (address, type) answers the
// sweep's probe ("[", checksum, "A", address, "0000]", NUL) after the delay.
inline bus::VirtualLine::Peer installation(std::vector<std::pair<int, int>> modules,
                                           double delay = 0.02) {
    return [modules = std::move(modules), delay](bus::VirtualLine& l, std::string_view written) {
        if (written.size() != 14 || written[0] != '[' || written[3] != 'A') return;
        const int address = std::stoi(std::string(written.substr(4, 4)), nullptr, 16);
        for (const auto& [at, type] : modules)
            if (at == address)
                l.reply(bus::identification_answer_frame(static_cast<std::uint16_t>(at),
                                                         static_cast<std::uint8_t>(type)),
                        delay);
    };
}

}  // namespace filo::testing
