// replace: a module takes the serial of its new hardware; the project stays
// whole, and a refusal leaves the file as it was.
#include <gtest/gtest.h>

#include "bus/module_code.hpp"
#include "cli/cli_fixture.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

using ReplaceCliTest = testing::CliFixture;

TEST_F(ReplaceCliTest, TheProjectChecksCleanAfterwardsAndARefusalChangesNothing) {
    const std::string file = testing::make_empty_project(dir.path(), "casa").string();
    {
        store::Project p;
        p.open(file);
        store::ModuleTable table(p);
        testing::add_module(table, "000315", 32, "Luci");
        testing::add_module(table, "002211", 32, "Ingressi");
        testing::set_column(p, "000315", 9, "nick", "Lampada ");
        testing::set_column(p, "002211", 1, "nick", "Pulsante");
        store::LinkTable links(p);
        links.LINK_CORRENTE =
            testing::switching_link("000315/1", "002211/1", "Lampada ", "Pulsante");
        links.AGGIUNGI_LINK();
    }
    auto r = cli({"replace", file, "000315", bus::printed_code("00aa15")});
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.out, "Sostituzione avvenuta con successo  000315 -> 00AA15\n");
    r = cli({"check", file});
    EXPECT_EQ(r.exit_code, 0) << r.out;

    const std::string before = testing::read_file(file);
    r = cli({"replace", file, "00AA15", bus::printed_code("00AB1F")});
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_EQ(r.err, "Tipo di modulo non compatibile \n");
    EXPECT_EQ(testing::read_file(file), before);
}

}  // namespace
}  // namespace filo
