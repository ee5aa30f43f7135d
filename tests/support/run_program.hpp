#pragma once
#include <sys/types.h>

#include <filesystem>
#include <map>
#include <sstream>
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

// A program started with its standard streams on pipes: write to `in`, read
// from `out` and `err`; the descriptors are the caller's to close.
struct ChildProcess {
    pid_t pid = -1;
    int in = -1;
    int out = -1;
    int err = -1;
};

// Starts one of the project's programs (from FILO_BIN_DIR) with the arguments
// and extra environment variables given; throws std::runtime_error.
ChildProcess start_program(const std::string& program, const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment = {});

// Waits for the child to end: its exit code, 128 + the signal when killed.
int wait_for_exit(pid_t pid);

// The lines of a program's output, without their line breaks.
inline std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

}  // namespace filo::testing
