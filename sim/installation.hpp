#pragma once
// The modules that stand on the bus of a simulated installation.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "sim/sim_module.hpp"

namespace filo::sim {

// Whether a module with this code answers on the bus. The gateway "FFFEFF"
// does; a deleted module (type "FF") does not, nor a radio remote (types
// "28", "34", "35"), which has no bus address, nor pages 2-4 of the video
// door module ("FFF1" to "FFF3"), which the module at "FFF0" answers for.
bool stands_on_bus(std::string_view code);

// The live modules of a project that stand on the bus, in code order.
// Throws store::ProjectError or sqlite::SqlError when the project can't be read.
std::vector<std::string> bus_codes_of_project(const std::filesystem::path& project);

// Modules made from codes (6 hex digits, either case), each code once; those
// in `silent` never answer (a silent code not among the others is added).
// Throws std::invalid_argument for a bad code.
std::vector<SimModule> make_installation(const std::vector<std::string>& codes,
                                         const std::vector<std::string>& silent);

}  // namespace filo::sim
