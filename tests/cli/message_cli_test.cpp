// message: a panel's messages written from a script, refused as the panel
// window refuses them.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class MessageCliTest : public testing::CliFixture {
  protected:
    MessageCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {}
    std::string project;
};

TEST_F(MessageCliTest, MessagesAreStoredAsThePanelWindowStoresThem) {
    run_ok({"add-module", project, printed("00141E"), "--note", "Ingresso"});
    run_ok({"add-module", project, printed("00151F")});
    const auto written = cli({"message", project, "00141E", "--number", "2", "--text",
                              "\\bPorta aperta", "--name", "Porta", "--mode", "V"});
    EXPECT_EQ(written.out, "04V\\bPorta aperta\n") << written.err;
    EXPECT_EQ(cli({"message", project, "00141E", "--number", "98", "--text", "\\hBenvenuti",
                   "--persistence", "25"})
                  .out,
              "20B\\hBenvenuti\n");
    struct Refusal {
        std::vector<std::string> options;
        const char* message;
        const char* text = "\\bTesto";
    } refusals[] = {
        {{"00141E", "--number", "97"}, "Punto inesistente in questo modulo: 97\n"},
        {{"00141E", "--number", "1", "--name", "Città"}, "Carattere non ammesso nel nome: à"},
        {{"00141E", "--number", "1", "--mode", "X"}, "MODO B, K, L, V: X"},
        {{"00151F", "--number", "1"}, "Modulo non presente nel progetto: 00151F\n"},
        {{"00141E", "--number", "2"}, "Un messaggio vuole almeno 5 caratteri", "ciao"},
    };
    for (const Refusal& r : refusals) {
        std::vector<std::string> args = {"message", project};
        args.insert(args.end(), r.options.begin(), r.options.end());
        args.insert(args.end(), {"--text", r.text});
        const auto refused = cli(args);
        EXPECT_EQ(refused.exit_code, 1) << r.options[2];
        EXPECT_TRUE(refused.err.starts_with(r.message)) << refused.err;
    }
    store::Project p;
    p.open(project);
    store::ModuleTable table(p);
    table.LEGGI_MODULO("00141E");
    EXPECT_EQ(table.RIGHE_MODULO.riga(2).nick, "Porta");
    EXPECT_EQ(table.RIGHE_MODULO.riga(2).riserva2, "04V\\bPorta aperta");
    EXPECT_EQ(table.RIGHE_MODULO.riga(98).riserva2, "20B\\hBenvenuti");
}

}  // namespace
}  // namespace filo
