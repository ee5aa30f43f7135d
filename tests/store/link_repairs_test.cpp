// Deleting, renumbering and renaming modules keeps every link true to table
// nick; the integrity check says where a project edited elsewhere is not.
#include <gtest/gtest.h>

#include "store/integrity.hpp"
#include "store/link_repairs.hpp"
#include "store/point_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;

class LinkRepairsTest : public testing::PointTest {
  protected:
    LinkRepairs repairs{project, links};

    // Two modules with named points.
    void house() {
        add_module(table, "000211", 32, "Quadro");
        add_module(table, "00030B", 9, "Dimmer", "DIMMER");
        name("000211", 1, "Pulsante");
        name("000211", 2, "Tenuto");
        name("000211", 9, "Luce ");
        name("000211", 11, "Spia ");
        name("00030B", 1, "Tasto");
        name("00030B", 9, "Dimmer ");
    }
};

TEST_F(LinkRepairsTest, DeletingAModuleTakesEveryLinkWithAnEndInIt) {
    house();
    link("000211/1", "Luce ", "00030B/1", "Tasto");       // 1: from the module
    second_page();                                        // 2
    link("000211/3", "Spia ", "00030B/1", "Tasto");       // 3: right behind, without a page
    link("00030B/1", "Dimmer ", "000211/1", "Pulsante");  // 4: to the module
    second_page();                                        // 5
    link("000211/1", "Luce ", "00030B/1", "Tasto");       // 6: with a reference value
    second_page();                                        // 7
    link("000211/1", "Luce ", "FFFEFF/3", "NET_GATE", "010000003", "a");  // 8: stays, a link
    second_page();                                                        // 9    of its own
    link("000211/1", "Luce ", "000211/1", "Pulsante");                    // 10: stays
    second_page();                                                        // 11
    link("000211/1", "Luce ", "00030B/1", "Tasto");                       // 12
    second_page();                                                        // 13
    second_page();                                                        // 14
    sql("DELETE FROM associazioni WHERE ID = 13");    // a page behind a gap goes too
    link("000211/1", "Luce ", "000211/2", "Tenuto");  // 15: stays

    links.LEGGI_LINK();
    repairs.ELIMINA_COLLEGAMENTI_DEL_MODULO("00030b");
    EXPECT_EQ(links.N_LINK(), 0);
    EXPECT_EQ(link_ids(), (std::vector<std::int64_t>{8, 9, 10, 11, 15}));
}

TEST_F(LinkRepairsTest, AfterRenumberAndDeleteNoLinkPointsAtWhatIsGone) {
    house();
    add_module(table, "00011F", 9, "Presa");
    name("00011F", 9, "Presa ");
    name("00011F", 8, "(COMANDO) Presa ");
    link("000211/1", "Luce ", "000211/1", "Pulsante");
    second_page();
    link("000211/3", "Spia ", "000211/10", "Tenuto", "000000002", "T");   // held
    link("00030B/1", "Dimmer ", "000211/19", "Spia ", "000000001", "E");  // event of output 3
    link("00011F/1", "Presa ", "00011F/8", "(COMANDO) Presa ");
    second_page();
    link("000211/1", "Luce ", "00030B/1", "Tasto");
    ASSERT_TRUE(check_integrity(project).empty());

    table.LEGGI_MODULO("000211");
    table.CODICE_MODULO = "000211";
    renumber_module_and_links(table, repairs, "0B00");
    EXPECT_TRUE(check_integrity(project).empty());

    table.LEGGI_MODULO("00030B");
    table.CODICE_MODULO = "00030B";
    delete_module_and_links(table, repairs);
    EXPECT_TRUE(check_integrity(project).empty());
    EXPECT_EQ(count("SELECT COUNT(*) FROM associazioni WHERE identificativoRX LIKE '0003%' OR "
                    "identificativoTX LIKE '0003%'"),
              0);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '0003FF' AND riserva = 'K'"), 9);
}

TEST_F(LinkRepairsTest, TheVideoDoorPanelGoesWithItsFourPages) {
    for (const char* page : {"FFF023", "FFF123", "FFF223", "FFF323"})
        add_module(table, page, 9, "PAGINA", "VCITOF");
    add_module(table, "000211", 9, "Quadro");
    link("FFF223/1", "Apri", "000211/1", "Pulsante");
    link("000211/1", "Luce", "FFF023/1", "Chiamata");
    table.LEGGI_MODULO("FFF123");
    table.CODICE_MODULO = "FFF123";
    delete_module_and_links(table, repairs);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice LIKE 'FFF_23'"), 0);
    EXPECT_EQ(count("SELECT COUNT(*) FROM associazioni"), 0);
}

TEST_F(LinkRepairsTest, IntegrityOfAProjectEditedElsewhere) {
    house();
    link("000211/1", "Luce ", "000211/1", "Pulsante");        // 1: sound
    link("000211/1", "Luce vecchia ", "000211/2", "Tenuto");  // 2: an old receiver name
    link("000211/3", "Spia ", "000211/17", "Luce");           // 3: event of output 1
    link("009911/1", "Altro", "000211/1", "Pulsante");        // 4: a module gone
    link("000211/1", "Luce ", "000211/7", "Nessuno");         // 5: an input without a name
    link("00030B/5", "X", "000211/1", "Pulsante");            // 6: no output 5
    link("000211/3", "Spia ", "000211/1", "Pulsante");        // 7
    second_page();                                            // 8
    sql("DELETE FROM associazioni WHERE ID = 7");
    link("00030B/1", "Dimmer ", "FFFEFF/4", "NET_GATE", "010000003", "a");  // 9
    link("000211/1", "Luce ", "FFFEFF/4", "NET_GATE", "010000003", "a");    // 10: channel 4 again
    link("000211/1", "Luce ", "000211/26", "ALMENO1", "000000001", "ES");   // 11: a marker
    name("00030B", 2, "pulsante");                  // a second input of that name, in other case
    name("000211", 10, "LUCE ");                    // a second output
    add_module(table, "00041F", 9, "Presa nuova");  // never completed
    name("00041F", 9, "Presa due ");

    const std::vector<IntegrityFinding> expected = {
        {Finding::ReceiverNameDiffers, 2, "000211/1 \"Luce vecchia \" / \"Luce \""},
        {Finding::CommandNameDiffers, 3, "000211/17 \"Luce\" / \"Luce \""},
        {Finding::ReceiverModuleMissing, 4, "009911/1"},
        {Finding::CommandNameDiffers, 5, "000211/7 \"Nessuno\" / \"\""},
        {Finding::ReceiverPointMissing, 6, "00030B/5"},
        {Finding::OrphanRow, 8, ""},
        {Finding::CommandModuleMissing, 9, "FFFEFF/4"},
        {Finding::CommandModuleMissing, 10, "FFFEFF/4"},
        {Finding::ChannelRepeated, 0, "4 (9, 10)"},
        {Finding::InputNameRepeated, 0, "\"Pulsante\" (000211/1, 00030B/2)"},
        {Finding::OutputNameRepeated, 0, "\"Luce \" (000211/9, 000211/10)"},
        {Finding::PowerlineIncomplete, 0, "00041F"},
    };
    EXPECT_EQ(check_integrity(project), expected);
    EXPECT_EQ(describe(expected[0], texts),
              "Collegamento 2: il nome dell'utilizzatore non è quello del progetto: 000211/1 "
              "\"Luce vecchia \" / \"Luce \"");
    EXPECT_EQ(describe(expected.back(), texts),
              "Modulo power-line non completato: 00041F (l'ingresso 8 va chiamato \"(COMANDO) \" e "
              "il nome dell'uscita 1, e collegato all'uscita 1: salvando il modulo o aprendo il "
              "progetto in Filo si completa)");
}

}  // namespace
}  // namespace filo::store
