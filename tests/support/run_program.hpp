#pragma once
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace filo::testing {

struct ProgramResult {
    int exit_code = -1;
    std::string out;
    std::string err;
};

// Runs one of the project's programs (from FILO_BIN_DIR) with the arguments,
// extra environment variables and standard input given; waits for it.
ProgramResult run_program(const std::string& program, const std::vector<std::string>& arguments,
                          const std::map<std::string, std::string>& environment = {},
                          const std::string& input = {});

std::filesystem::path program_path(const std::string& program);

}  // namespace filo::testing
