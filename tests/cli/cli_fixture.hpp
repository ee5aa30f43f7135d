#pragma once
// filo-cli run as a user runs it: a separate process with a data directory
// of its own, its output and exit code.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/run_program.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

class CliFixture : public ::testing::Test {
  protected:
    ProgramResult cli(const std::vector<std::string>& args) {
        return run_program("filo-cli", args, {{"FILO_HOME", (dir / "home").string()}});
    }
    void run_ok(const std::vector<std::string>& args) {
        const auto r = cli(args);
        ASSERT_EQ(r.exit_code, 0) << args.at(0) << ": " << r.err;
    }
    // Runs statements on a project, for rows that filo-cli would never write.
    static void sql(const std::string& project, const std::string& statements) {
        store::Project p;
        p.open(project);
        p.database().exec(statements);
    }
    // The first column of the first row of a query on a project.
    static std::string one(const std::string& project, const std::string& query) {
        store::Project p;
        p.open(project);
        auto q = p.database().prepare(query);
        return q.step() ? q.text(0) : "?";
    }
    // The printed code (with its check digits) of a 6-digit code.
    std::string printed(const std::string& code) { return cli({"code", code}).out.substr(0, 8); }
    TempDir dir;
};

}  // namespace filo::testing
