// program --dry-run: the run against a programmer that answers at once, and
// the trace of every write, whose format outside tools read.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class ProgramCliTest : public testing::CliFixture {
  protected:
    ProgramCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {}

    std::vector<std::string> trace_lines() {
        auto r = cli({"program", project, "--dry-run", "--trace"});
        EXPECT_EQ(r.exit_code, 0) << r.err;
        return testing::lines_of(r.out);
    }
    std::string project;
};

TEST_F(ProgramCliTest, TheTraceShowsEveryWriteByteForByte) {
    {
        store::Project p;
        p.open(project);
        store::ModuleTable table(p);
        testing::add_module(table, "00121E", 12, "Pannello", "OUT_SERIALE");
        p.database().exec("UPDATE nick SET riserva2 = '', riserva3 = ''");
        p.database().exec("UPDATE nick SET riserva2 = '00C:\\è', riserva3 = '' WHERE campo = '9'");
    }
    const std::vector<std::string> lines = trace_lines();
    const std::string open = "(1E600000055]\\x00_";
    const std::string close = "(366000000AA]\\x00_";
    ASSERT_GE(lines.size(), 8u);
    EXPECT_EQ(lines[0], open);
    EXPECT_EQ(lines[1], open);
    EXPECT_EQ(lines[2], open);  // the reset phase renews programming mode at each module
    EXPECT_EQ(lines[3], "00(3E300126F68]\\x00_");
    // The panel text: Chr(22), checksum, record 01, the text in the panel's
    // character set with its count "00" turned to "0", Chr(23), NUL.
    const std::string& text = lines[lines.size() - 4];
    EXPECT_EQ(text.substr(0, 4), "\\x16");
    EXPECT_EQ(text.substr(6),
              "1001201"
              "0C:\\x5C\\xE8\\x17\\x00");
    EXPECT_EQ(lines[lines.size() - 3], close);
    EXPECT_EQ(lines.back(), close);
}

TEST_F(ProgramCliTest, OptionsThatCannotGoTogetherAreRefused) {
    struct Case {
        std::vector<std::string> args;
        int exit_code;
    };
    const Case cases[] = {
        {{"program", project, "--trace"}, 2},
        {{"program", project, "--dry-run", "--port", "/dev/null"}, 2},
        {{"program", project, "--dry-run", "--on-errors", "maybe"}, 2},
        {{"program", project, "--port", (dir / "no-such-port").string()}, 1},
        {{"program", (dir / "missing.TRN").string(), "--dry-run"}, 1},
        {{"program", project, "--dry-run", "--on-errors", "stop", "--no-short-message"}, 0},
    };
    for (const Case& c : cases) {
        auto r = cli(c.args);
        EXPECT_EQ(r.exit_code, c.exit_code) << c.args.back() << "\n" << r.err;
    }
}

}  // namespace
}  // namespace filo
