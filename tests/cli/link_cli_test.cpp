// modes, add-link and delete-link as outside tools run them.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class LinkCliTest : public testing::CliFixture {
  protected:
    LinkCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {
        run_ok({"add-module", project, printed("002211"), "--note", "Ingressi"});
        run_ok({"add-module", project, printed("000315"), "--note", "Luci"});
        run_ok({"set-point", project, "002211/1", "--name", "Pulsante"});
        run_ok({"set-point", project, "002211/2", "--name", "Interruttore", "--kind", "I"});
        run_ok({"set-point", project, "000315/9", "--name", "Lampada"});
        lampada = item("--outputs", "Lampada");
        pulsante = item("--commands", "Pulsante");
    }
    // The item data of the entry whose text begins with `name`.
    std::string item(const char* list, const std::string& name) {
        const std::string out = cli({"points", project, list}).out;
        const std::size_t at = out.find('\t' + name);
        return out.substr(out.rfind('\n', at) + 1, at - out.rfind('\n', at) - 1);
    }
    std::vector<std::string> add(std::vector<std::string> extra) {
        std::vector<std::string> args = {"add-link", project,    "--command",
                                         pulsante,   "--output", lampada};
        args.insert(args.end(), extra.begin(), extra.end());
        return args;
    }
    int rows() { return std::stoi(one(project, "SELECT COUNT(*) FROM associazioni")); }
    std::string project, lampada, pulsante;
};

TEST_F(LinkCliTest, ModesPrintNumberTabCaption) {
    auto r = cli(
        {"modes", project, "--command", item("--commands", "Interruttore"), "--output", lampada});
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.out,
              "1\tInterruttore acceso - spento\n2\tInterruttore con funzione deviatore\n"
              "3\tInterruttore solo accende alla chiusura \n4\tInterruttore solo spegne "
              "all'apertura \n5\tInterruttore acceso - spento INVERTITO\n6\tInterruttore solo "
              "accende all'apertura \n7\tInterruttore solo spegne alla chiusura \n");
    r = cli({"--lang", "SPA", "modes", project, "--command", pulsante, "--output", lampada});
    EXPECT_EQ(r.out.substr(0, 24), "1\tPulsador tipo timbre\n2");
}

TEST_F(LinkCliTest, AddLinkPrintsItsRowsAndTheirIds) {
    auto r = cli(add({"--mode", "2", "--time-on", "1:02:03", "--delay-off", "5"}));
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.out,
              "identificativoRX=000315/1\tidentificativoTX=002211/1\tnumero_uscita=1\t"
              "nick_ricevente=Lampada \tnumero_ingresso=1\tnick_trasmittente=Pulsante\topzione=P\t"
              "tempo_on1=14\ttempo_on2=139\tmodo_=000000112\ton_=251\toff_=8\tnote=\t"
              "tempo_off1=0\ttempo_off2=0\tand=00000000\tminuto=00\tora=00\tgiorno=00\t"
              "settimana=00000000\tdato13=000005\tdato14=\n"
              "identificativoRX=\tidentificativoTX=\tnumero_uscita=\tnick_ricevente=\t"
              "numero_ingresso=\tnick_trasmittente=\topzione=\ttempo_on1=\ttempo_on2=\tmodo_=\t"
              "on_=\toff_=\tnote=SECONDA PAGINA\ttempo_off1=\ttempo_off2=\tand=\tminuto=\tora=\t"
              "giorno=\tsettimana=\tdato13=000005\tdato14=\n");
    EXPECT_EQ(r.err, "1\n2\n");
}

TEST_F(LinkCliTest, RefusalsWriteNothing) {
    ASSERT_EQ(cli(add({"--mode", "1"})).exit_code, 0);
    struct Case {
        std::vector<std::string> args;
        int exit_code;
        const char* message;  // the start of stderr
    } cases[] = {
        {add({"--mode", "2"}), 1, "Questo collegamento esiste già: ID 1"},
        {add({"--mode", "2", "--replace", "--dry-run"}), 0, ""},
        {add({"--mode", "2", "--replace", "--time-on", "3.5"}), 1,
         "Impostazione non offerta per questo collegamento: --time-on"},
        {add({"--mode", "2", "--replace", "--time-on", "18:00:00"}), 1, "Tempo non valido"},
        {add({"--mode", "2", "--replace", "--steady"}), 1,
         "Impostazione non offerta per questo collegamento: --steady"},
        {add({"--mode", "2", "--replace", "--messages", "3"}), 1,
         "Impostazione non offerta per questo collegamento: --messages"},
        {add({"--mode", "2", "--replace", "--blink-pattern", "0101"}), 2, ""},
        {{"add-link", project, "--command", pulsante, "--output", "424242", "--mode", "1"},
         1,
         "Voce non presente nell'elenco: 424242"},
        {{"delete-link", project, "2"}, 1, "Nessun collegamento con ID 2"},
    };
    for (const Case& c : cases) {
        const auto r = cli(c.args);
        EXPECT_EQ(r.exit_code, c.exit_code) << c.message << r.err;
        EXPECT_EQ(r.err.substr(0, std::string(c.message).size()), c.message);
        EXPECT_EQ(rows(), 2);
    }
    ASSERT_EQ(cli(add({"--mode", "2", "--replace"})).exit_code, 0);
    EXPECT_EQ(rows(), 2);
    ASSERT_EQ(cli({"delete-link", project, "1"}).exit_code, 0);
    EXPECT_EQ(rows(), 0);
}

TEST_F(LinkCliTest, ValuesAreEscaped) {
    sql(project, "UPDATE nick SET nick = 'Luce\\' || char(9) || 'a' WHERE nick LIKE 'Lampada%'");
    auto r = cli(add({"--mode", "1", "--dry-run"}));
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_NE(r.out.find("nick_ricevente=Luce\\\\\\ta\t"), std::string::npos) << r.out;
    EXPECT_EQ(rows(), 0);
}

}  // namespace
}  // namespace filo
