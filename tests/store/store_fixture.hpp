#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "store/link_row.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

// The columns of a link row that hold something, "name=value" each, blank
// between: a row compares whole in one line.
inline std::string filled_columns(const store::LinkRow& row) {
    std::string out;
    for (const store::LinkColumn& c : store::kLinkColumns)
        if (!(row.*c.field).empty())
            out += (out.empty() ? "" : " ") + std::string(c.name) + "=" + row.*c.field;
    return out;
}

// A link row with columns changed: "name=value" entries separated by "|",
// the names of table associazioni.
inline store::LinkRow with_columns(store::LinkRow row, std::string_view changes) {
    for (std::size_t at = 0; at < changes.size();) {
        const std::size_t end = std::min(changes.find('|', at), changes.size());
        const std::string_view entry = changes.substr(at, end - at);
        const std::size_t eq = entry.find('=');
        const auto* c =
            std::find_if(store::kLinkColumns.begin(), store::kLinkColumns.end(),
                         [&](const auto& column) { return column.name == entry.substr(0, eq); });
        if (c == store::kLinkColumns.end() || eq == std::string_view::npos)
            ADD_FAILURE() << "no column: " << entry;
        else
            row.*c->field = std::string(entry.substr(eq + 1));
        at = end + 1;
    }
    return row;
}

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

    // The IDs of table associazioni, in order.
    std::vector<std::int64_t> link_ids() {
        auto q = project.database().prepare("SELECT ID FROM associazioni ORDER BY ID");
        std::vector<std::int64_t> ids;
        while (q.step()) ids.push_back(q.integer(0));
        return ids;
    }

    TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
};

}  // namespace filo::testing
