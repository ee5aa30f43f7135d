// set-point with the names, kinds and options of the module window's pages, and
// delete-module: what the pages refuse is refused here, with the window's
// message, and the project stays as it was.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

class ModuleOptionsCliTest : public testing::CliFixture {
  protected:
    ModuleOptionsCliTest() : project(testing::make_empty_project(dir.path(), "casa").string()) {}
    void add(const std::string& code) { run_ok({"add-module", project, printed(code)}); }
    void set(std::vector<std::string> args) {
        args.insert(args.begin(), {"set-point", project});
        const auto r = cli(args);
        ASSERT_EQ(r.exit_code, 0) << args[2] << ": " << r.err;
    }
    // Table nick and the links, as one text.
    std::string contents() {
        return one(project,
                   "SELECT group_concat(ifnull(codice, '') || ifnull(nick, '') || ifnull(modo, '') "
                   "|| ifnull(riserva2, '') || ifnull(riserva3, '') || ifnull(connesso, ''), '|') "
                   "|| (SELECT COUNT(*) FROM associazioni) FROM nick");
    }
    std::string field(const std::string& column, const std::string& code, int campo) {
        return one(project, "SELECT ifnull(" + column + ", '') FROM nick WHERE codice = '" + code +
                                "' AND campo = '" + std::to_string(campo) + "'");
    }
    std::string project;
};

TEST_F(ModuleOptionsCliTest, SetPointRefusesWhatThePagesRefuse) {
    add("000511");
    add("000305");
    add("000625");
    add("000715");
    set({"000715/9", "--name", "Luce sala"});
    set({"000511/9", "--name", "Rele uno"});
    set({"000511/10", "--name", "Rele due"});
    set({"000625/9", "--name", "Scala"});
    struct Refusal {
        std::vector<std::string> args;
        const char* message;
    } refusals[] = {
        {{"000511/1", "--param", "P3=abc"},
         "Valore non ammesso (solo cifre, entro i limiti del campo): P3=abc\n"},
        {{"000511/11", "--name", "Virtuale", "--contact", "I"},
         "Contatto non previsto su questa uscita: I\n"},
        {{"000305/1", "--param", "P4=7"},
         "Parametro non previsto su questo punto: P4=7\nCampi di questo modulo: P1 P2 P3\n"},
        {{"000305/5", "--name", "Quinto"}, "Punto inesistente in questo modulo: 000305/5\n"},
        {{"000305/9", "--param", "EMERGENCY=50"}, "Assegnare prima un nick-name\n"},
        {{"000511/9", "--and", "2", "--reciprocal", "2"},
         "Non è possibile assegnare AND e RECIPROCO insieme\n"},
        {{"000511/9", "--and", "3"}, "Il relè non ha un nome: 3\n"},
        {{"000511/9", "--and", "9"},
         "Valore non ammesso (solo cifre, entro i limiti del campo): --and=9\n"},
        {{"000625/9", "--commands-in-emergency", "maybe"},
         "Valore non ammesso (solo cifre, entro i limiti del campo): "
         "--commands-in-emergency=maybe\n"},
        {{"000511/1", "--rgb", "yes"}, "Parametro non previsto su questo punto: --rgb\n"},
        {{"000511/1", "--receiver", "000625"}, "Parametro non previsto su questo punto: 000625\n"},
        {{"000715/10", "--name", "luce SALA"},
         "Uno o piu' nomi esistono già in questo o in altri moduli del progetto corrente \n"},
        {{"000715/10", "--name", "Luce d'angolo"}, "Carattere non ammesso nel nome: '\n"},
        {{"000715/11", "--contact", "I"}, "Assegnare prima un nick-name\n"},
        {{"000715/1", "--kind", "p"},
         "Uno o più ingressi sono stati selezionati  come ingressi di sicurezza\n"
         "occorre selezionare un tempo di analisi (pulsante OPZIONI) \n"
         "questa modalità sarà applicata ancne agli ingressi analogici\n"},
        // Nothing of a refused change is saved, not even the part that was right.
        {{"000715/3", "--name", "Nuovo", "--kind", "K"},
         "Tipo di ingresso non previsto su questo modulo: K\n"},
        {{"000715/40", "--name", "x"}, "Punto inesistente in questo modulo: 000715/40\n"},
        {{"009915/1", "--name", "x"}, "Modulo non presente nel progetto: 009915\n"},
        {{"0003/1", "--name", "x"}, "Punto inesistente in questo modulo: 0003/1\n"},
    };
    const std::string before = contents();
    for (const Refusal& r : refusals) {
        std::vector<std::string> args = {"set-point", project};
        args.insert(args.end(), r.args.begin(), r.args.end());
        const auto result = cli(args);
        EXPECT_EQ(result.exit_code, 1) << r.args[0] << " " << r.args[1];
        EXPECT_EQ(result.err, r.message) << r.args[0] << " " << r.args[1];
    }
    EXPECT_EQ(contents(), before);

    // What the pages offer is kept.
    set({"000511/10", "--and", "", "--reciprocal", ""});
    set({"000511/9", "--and", "2", "--reciprocal", "", "--param", "ON=200"});
    set({"000625/9", "--param", "EMERGENCY=70", "--commands-in-emergency", "yes"});
    EXPECT_EQ(field("modo", "000511", 9).substr(8, 16), "0100000000000000");
    EXPECT_EQ(field("riserva2", "000511", 9).substr(0, 3), "200");
    EXPECT_EQ(field("riserva2", "000625", 9).substr(6, 3), "255");  // 70 % on a relay: all
    EXPECT_EQ(field("connesso", "000625", 9).substr(1, 1), "e");
}

TEST_F(ModuleOptionsCliTest, DeleteModuleTakesItsLinksOnce) {
    add("000215");
    add("000315");
    sql(project,
        "INSERT INTO associazioni (identificativoRX, identificativoTX) VALUES "
        "('000215/1', '000315/1'), ('000315/1', '000315/2')");
    const auto deleted = cli({"delete-module", project, "000215"});
    ASSERT_EQ(deleted.exit_code, 0) << deleted.err;
    EXPECT_EQ(deleted.out, "Modulo eliminato con i suoi collegamenti: 000215\n");
    EXPECT_EQ(contents().back(), '1');
    EXPECT_EQ(cli({"delete-module", project, "000215"}).exit_code, 1);
}

}  // namespace
}  // namespace filo
