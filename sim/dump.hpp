#pragma once
// What the simulated installation holds, as JSON (format in docs/SIMULATOR.md).
#include <string>

namespace filo::sim {

class Simulator;

std::string dump_json(const Simulator& simulator);

// 8-bit text as the wire carries it, each byte read as Latin-1, in UTF-8.
std::string latin1_to_utf8(const std::string& bytes);

}  // namespace filo::sim
