// Deleting, renumbering and renaming modules keeps every link true to table
// nick; the integrity check says where a project edited elsewhere is not.
#include <gtest/gtest.h>

#include "store/channels.hpp"
#include "store/integrity.hpp"
#include "store/link_repairs.hpp"
#include "store/point_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;

class LinkRepairsTest : public testing::PointTest {
  protected:
    LinkRepairs repairs{project, links};

    std::vector<std::int64_t> link_ids() {
        auto q = project.database().prepare("SELECT ID FROM associazioni ORDER BY ID");
        std::vector<std::int64_t> ids;
        while (q.step()) ids.push_back(q.integer(0));
        return ids;
    }
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

TEST_F(LinkRepairsTest, AfterRenameRenumberAndDeleteNoLinkPointsAtWhatIsGone) {
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

    // Rename output 3 and input 2 of the panel, as its window saves them.
    table.LEGGI_MODULO("000211");
    table.CODICE_MODULO = "000211";
    table.RIGHE_MODULO.riga(11).nick = "Spia nuova ";
    table.RIGHE_MODULO.riga(2).nick = "Tenuto nuovo";
    table.MODIFICA_MODULO();
    links.AGGIORNA_NICK_NEI_LINK_DA_FORM5("000211", table.RIGHE_MODULO);
    EXPECT_TRUE(check_integrity(project).empty());
    EXPECT_EQ(count("SELECT COUNT(*) FROM associazioni WHERE nick_trasmittente = 'Spia nuova '"),
              1);

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

// Renames, renumberings and deletions in random order on a project full of
// links: after each, every link still names points that are in table nick.
TEST_F(LinkRepairsTest, NoSequenceOfChangesLeavesALinkBehind) {
    std::uint32_t seed = 2024;
    auto next = [&seed](std::uint32_t n) {
        seed = seed * 1664525u + 1013904223u;
        return (seed >> 8) % n;
    };
    struct Module {
        std::string code;
        int rows;
    };
    std::vector<Module> modules;
    char code[8];
    for (int m = 1; m <= 12; ++m) {
        const bool flags = m % 3 == 0;  // 24 outputs on the flag modules
        std::snprintf(code, sizeof code, "%04X%s", m, flags ? "11" : "0B");
        modules.push_back({code, flags ? 32 : 16});
        add_module(table, code, modules.back().rows, "Modulo");
        for (int campo = 1; campo <= modules.back().rows; ++campo)
            name(code, campo, "P" + std::string(code) + "." + std::to_string(campo) + " ");
    }
    GatewayChannels(table).AGGIUNGI_KNG();
    auto nick_of = [this](const std::string& codice, int campo) {
        auto q =
            project.database().prepare("SELECT nick FROM nick WHERE codice = ?1 AND campo = ?2");
        q.bind(1, codice).bind(2, std::to_string(campo));
        return q.step() ? q.text(0) : std::string();
    };
    for (int k = 0; k < 80; ++k) {
        const Module& rx = modules[next(12)];
        const Module& tx = modules[next(12)];
        const int output = 1 + static_cast<int>(next(static_cast<std::uint32_t>(rx.rows - 8)));
        // An input, the same held, or an event of one of the first 8 outputs.
        const int kind = static_cast<int>(next(3));
        const int number = 1 + static_cast<int>(next(8)) + 8 * kind;
        const int campo = number <= 8 ? number : number - 8;
        if (next(4) == 0)  // a reference value set over a gateway channel
            link(rx.code + "/" + std::to_string(output), nick_of(rx.code, output + 8),
                 "FFFEFF/" + std::to_string(k + 1), "NET_GATE", "010000003", "a");
        else
            link(rx.code + "/" + std::to_string(output), nick_of(rx.code, output + 8),
                 tx.code + "/" + std::to_string(number), nick_of(tx.code, campo));
        if (next(2)) second_page();
    }
    ASSERT_TRUE(check_integrity(project).empty());

    int renamed = 0;
    for (int step = 0; step < 40 && modules.size() > 2; ++step) {
        const std::size_t m = next(static_cast<std::uint32_t>(modules.size()));
        table.LEGGI_MODULO(modules[m].code);
        table.CODICE_MODULO = modules[m].code;
        const std::uint32_t op = next(10);
        if (op < 6) {
            const int campo =
                1 + static_cast<int>(next(static_cast<std::uint32_t>(modules[m].rows)));
            table.RIGHE_MODULO.riga(campo).nick = "Nuovo " + std::to_string(++renamed) + " ";
            sqlite::Transaction t(project.database());
            table.MODIFICA_MODULO();
            links.AGGIORNA_NICK_NEI_LINK_DA_FORM5(modules[m].code, table.RIGHE_MODULO);
            t.commit();
        } else if (op < 8) {
            std::snprintf(code, sizeof code, "%04X", 0x100 + step);
            renumber_module_and_links(table, repairs, code);
            modules[m].code = table.CODICE_MODULO;
        } else {
            // Every link without an end in the module stays.
            const std::string others =
                "SELECT COUNT(*) FROM associazioni WHERE identificativoRX <> '' AND "
                "substr(identificativoRX, 1, 6) <> '" +
                modules[m].code + "' AND substr(identificativoTX, 1, 6) <> '" + modules[m].code +
                "'";
            const auto before = count(others);
            delete_module_and_links(table, repairs);
            ASSERT_EQ(count(others), before) << "step " << step;
            modules.erase(modules.begin() + static_cast<std::ptrdiff_t>(m));
        }
        const std::vector<IntegrityFinding> findings = check_integrity(project);
        ASSERT_TRUE(findings.empty()) << "step " << step << ": " << describe(findings[0], texts);
    }
    EXPECT_GT(count("SELECT COUNT(*) FROM associazioni"), 0);
}

}  // namespace
}  // namespace filo::store
