// points and check: the link editor's lists as outside tools read them, and
// the integrity report of a project that others have edited.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class PointCliTest : public testing::CliFixture {
  protected:
    PointCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {}

    // A power-line modulator with its output and two inputs, one held.
    void scripted_project() {
        run_ok({"add-module", project, printed("00121F"), "--note", "Quadro"});
        run_ok({"set-point", project, "00121F/9", "--name", "Luce sala"});
        run_ok({"set-point", project, "00121F/1", "--name", "Pulsante"});
        run_ok({"set-point", project, "00121F/2", "--name", "Tenuto", "--kind", "T"});
    }
    std::string project;
};

const std::string kContatti = std::string(48, ' ') + "-------CONTATTI-------";

TEST_F(PointCliTest, PointsPrintsItemDataTabText) {
    scripted_project();
    struct Case {
        std::vector<std::string> args;
        std::string out;
        std::string language = "ITA";
    } cases[] = {
        {{"--outputs"}, "600009\tLuce sala \n0\tCREA GRUPPO\n"},
        {{"--outputs", "--group", "CREATO"},
         "0\tUSA GRUPPO\n0\tVISUALIZZA GRUPPO\n600009\tLuce sala \n"},
        {{"--commands", "--level", "1"},
         "99999\t" + kContatti + "\n1\tPulsante\n2\tTenuto\n300002\tPulsante tenuto    Tenuto\n"},
        {{"--commands", "--name", "ten"},
         "99999\t" + kContatti + "\n2\tTenuto\n300002\tPulsador mantenido    Tenuto\n",
         "SPA"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> args = {"--lang", c.language, "points", project};
        args.insert(args.end(), c.args.begin(), c.args.end());
        auto r = cli(args);
        EXPECT_EQ(r.exit_code, 0) << r.err;
        EXPECT_EQ(r.out, c.out) << c.args[0] << " " << c.args.back();
    }
}

TEST_F(PointCliTest, PointsRefusesWhatTheEditorCannotHold) {
    scripted_project();
    const std::vector<std::vector<std::string>> refused = {
        {"points", project},                                               // which list?
        {"points", project, "--commands", "--outputs"},                    // one list at a time
        {"points", project, "--commands", "--level", "4"},                 // three levels
        {"points", project, "--commands", "--level", "1", "--name", "x"},  // no name box
        {"points", project, "--outputs", "--group", "PIENO"},
    };
    for (const auto& args : refused) EXPECT_EQ(cli(args).exit_code, 2) << args.back();
}

TEST_F(PointCliTest, AnalogsOfferTheNextChannelUntilNoneIsFree) {
    auto first = cli({"points", project, "--analogs"});
    EXPECT_EQ(first.exit_code, 0) << first.err;
    EXPECT_EQ(first.out, "1000001\tNet Gate  canale 1\n");
    sql(project,
        "INSERT INTO associazioni (ID, identificativoRX, identificativoTX, numero_uscita, "
        "nick_ricevente, numero_ingresso, nick_trasmittente, opzione, modo_) VALUES "
        "(1, '000315/1', 'FFFEFF/249', '1', 'Luce', '249', 'NET_GATE', 'a', '010000003')");
    auto full = cli({"points", project, "--analogs"});
    EXPECT_EQ(full.exit_code, 1);
    EXPECT_EQ(full.err, "TUTTI I CANALI DISPONIBILI SONO USATI\n");
    EXPECT_EQ(full.out, "");
}

TEST_F(PointCliTest, CheckReportsWhatOthersLeftBehind) {
    scripted_project();
    auto clean = cli({"check", project});  // saving the modulator made its command link
    EXPECT_EQ(clean.exit_code, 0) << clean.err;
    EXPECT_EQ(clean.out, "Nessuna anomalia nel progetto\n");

    // A modulator whose command link another tool deleted; a link written by
    // another tool to a module that is not there.
    sql(project, "DELETE FROM associazioni");
    sql(project,
        "INSERT INTO associazioni (ID, identificativoRX, identificativoTX, numero_uscita, "
        "nick_ricevente, numero_ingresso, nick_trasmittente, opzione, modo_) VALUES "
        "(1, '009911/1', '00121F/1', '1', 'Altro', '1', 'Pulsante', 'P', '000000001')");
    auto found = cli({"check", project});
    EXPECT_EQ(found.exit_code, 1);
    EXPECT_EQ(found.out.substr(0, found.out.find('\n')),
              "Collegamento 1: l'utilizzatore è in un modulo che non è nel progetto: 009911/1");
    EXPECT_NE(found.out.find("\nModulo power-line non completato: 00121F ("), std::string::npos);
    auto french = cli({"--lang", "FRA", "check", project});
    EXPECT_EQ(french.out.substr(0, french.out.find('\n')),
              "Liaison 1: le récepteur est dans un module absent du projet : 009911/1");
}

}  // namespace
}  // namespace filo
