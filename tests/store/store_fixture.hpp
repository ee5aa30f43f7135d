#pragma once
#include <gtest/gtest.h>

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

// An empty project, open, with its module table.
class StoreTest : public ::testing::Test {
  protected:
    StoreTest() : file(make_empty_project(dir.path())) { project.open(file); }

    // Runs a statement on the open project, for rows that the operations
    // under test would never write themselves.
    void sql(const std::string& statement) { project.database().exec(statement); }
    std::int64_t count(const std::string& query) {
        auto q = project.database().prepare(query);
        q.step();
        return q.integer(0);
    }

    TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
};

}  // namespace filo::testing
