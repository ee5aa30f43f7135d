// add-module, set-point and links: a project built from a script, and the
// frames that would program its links.
#include <gtest/gtest.h>

#include "bus/checksum.hpp"
#include "cli/cli_fixture.hpp"
#include "store/link_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class ModuleCliTest : public testing::CliFixture {
  protected:
    ModuleCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {}
    std::string project;
};

TEST_F(ModuleCliTest, ModulesEnteredByTheirPrintedCode) {
    auto added = cli({"add-module", project, printed("00121F"), "--note", "Quadro cucina"});
    ASSERT_EQ(added.exit_code, 0) << added.err;
    EXPECT_EQ(added.out, "Modulo inserito: 00121F  Quadro cucina\n");
    EXPECT_EQ(cli({"add-module", project, printed("000315")}).exit_code, 0);

    struct Refusal {
        std::string code;
        const char* message;
    } refusals[] = {
        {"00131F00", "Codice inserito non corretto\n"},
        {"00121G68", "Codice inserito non corretto\n"},
        {printed("001215"),
         "Codice già in uso in questo progetto\n"},  // the number, whatever the type
        {printed("00121F"), "Questo modulo esiste già 00121F\n"},
        {printed("000734"),
         "Per poter inserire questo elemento occorre\naver registrato prima un modulo radio\n"},
        {printed("000818"),
         "Tipo di modulo non supportato da questa versione\n"
         "Scaricare una versione aggiornata del software Filo\n"},
    };
    for (const Refusal& r : refusals) {
        auto result = cli({"add-module", project, r.code});
        EXPECT_EQ(result.exit_code, 1) << r.code;
        EXPECT_EQ(result.err, r.message) << r.code;
    }

    // A radio element once a receiver is there; its receiver kept on row 1.
    ASSERT_EQ(cli({"add-module", project, printed("00094A"), "--note", "Radio"}).exit_code, 0);
    auto remote = cli({"add-module", project, printed("000A34"), "--receiver", "00094a"});
    ASSERT_EQ(remote.exit_code, 0) << remote.err;
    // A deleted module's number is free again.
    sql(project, "UPDATE nick SET codice = '0012FF', riserva = 'K' WHERE codice = '00121F'");
    EXPECT_EQ(cli({"add-module", project, printed("001215")}).exit_code, 0);

    auto list = cli({"modules", project});
    EXPECT_EQ(list.out.substr(0, list.out.find("--------")),
              "000315  \n00094A  Radio\n000A34  \n001215  \n");
}

TEST_F(ModuleCliTest, PointsChangedAsTheModuleWindowChangesThem) {
    ASSERT_EQ(cli({"add-module", project, printed("000315"), "--note", "Sala"}).exit_code, 0);
    auto named =
        cli({"set-point", project, "000315/9", "--name", "Luce sala", "--contact", "N.C."});
    ASSERT_EQ(named.exit_code, 0) << named.err;
    EXPECT_EQ(named.out, "000315/9  Luce sala   N.C.\n");
    auto input = cli({"set-point", project, "000315/2", "--name", "Pulsante", "--kind", "N",
                      "--param", "V2=40"});
    EXPECT_EQ(input.out, "000315/2  Pulsante  Impulsi \n");
    // What set-point refuses: tests/cli/module_options_cli_test.cpp.
    EXPECT_NE(cli({"modules", project}).out.find("000315/1   Luce sala "), std::string::npos);
}

// aggregate: ASSOCIA's rules from a script; what it stores is what the list
// of commands offers.
TEST_F(ModuleCliTest, AggregateSetsChangedAsAssociaChangesThem) {
    ASSERT_EQ(cli({"add-module", project, printed("000115")}).exit_code, 0);
    for (const char* row : {"9", "10", "17"})
        ASSERT_EQ(
            cli({"set-point", project, std::string("000115/") + row, "--name", row}).exit_code, 0);
    const struct {
        std::vector<std::string> args;
        int exit_code;
        std::string out_or_err;
    } cases[] = {
        {{"--on", "1", "--off", "9", "--switch-on", "2", "--logic", "or", "--name", "Sera"},
         0,
         "000115 a  Sera  OR  on 1  off 9  switch-on 2  switch-off -\n"},
        {{"--set", "b", "--on", "3"}, 1, "Assegnare prima un nick-name: --on=3\n"},
        {{"--switch-off", "1"},
         1,
         "Valore non ammesso (solo cifre, entro i limiti del campo): --switch-off=1\n"},
        {{"--on", ""}, 0, "000115 a  -  OR  on -  off -  switch-on -  switch-off -\n"},
        {{"--set", "d"}, 1, "Valore non ammesso (solo cifre, entro i limiti del campo): --set=d\n"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args = {"aggregate", project, "000115"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const auto r = cli(args);
        EXPECT_EQ(r.exit_code, c.exit_code) << r.err;
        EXPECT_EQ(c.exit_code == 0 ? r.out : r.err, c.out_or_err);
    }
}

TEST_F(ModuleCliTest, LinksListsEachRowWithItsFrame) {
    {
        store::Project p;
        p.open(project);
        store::LinkTable links(p);
        links.LINK_CORRENTE = testing::switching_link("002B15/3", "001A11/2", "", "");
        links.AGGIUNGI_LINK();
        links.LINK_CORRENTE = store::LinkRow{};
        links.LINK_CORRENTE.note = "SECONDA PAGINA";
        links.AGGIUNGI_LINK();
    }
    auto r = cli({"links", project});
    ASSERT_EQ(r.exit_code, 0) << r.err;
    ASSERT_EQ(r.out.substr(0, 2), "1 ");
    const std::string printed_frame = r.out.substr(2, r.out.size() - 3);
    EXPECT_TRUE(bus::checksum_ok(printed_frame)) << printed_frame;
    EXPECT_EQ(printed_frame.substr(3),
              "1002B023001A0000000003"
              "00FB0800000000]");
    EXPECT_EQ(r.out.find('\n'), r.out.size() - 1);  // the second page has no receiver: no line
}

}  // namespace
}  // namespace filo
