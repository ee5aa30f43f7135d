#pragma once
// What the simulated installation holds, as JSON (format in docs/SIMULATOR.md).
#include <string>

namespace filo::sim {

class Simulator;

std::string dump_json(const Simulator& simulator);

}  // namespace filo::sim
