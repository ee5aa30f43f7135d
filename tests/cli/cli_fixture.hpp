#pragma once
// filo-cli run as a user runs it: a separate process with a data directory
// of its own, its output and exit code.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/run_program.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

class CliFixture : public ::testing::Test {
  protected:
    ProgramResult cli(const std::vector<std::string>& args) {
        return run_program("filo-cli", args, {{"FILO_HOME", (dir / "home").string()}});
    }
    TempDir dir;
};

}  // namespace filo::testing
