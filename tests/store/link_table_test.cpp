#include "store/link_table.hpp"

#include <gtest/gtest.h>

#include "store/store_fixture.hpp"

namespace filo::store {
namespace {

class LinkTableTest : public testing::StoreTest {
  protected:
    // Appends a link row as the editor writes one; returns its ID.
    std::int64_t add(const std::string& rx, const std::string& tx,
                     const std::string& nick_tx = "Pulsante ", const std::string& note = "") {
        links.LINK_CORRENTE = testing::switching_link(rx, tx, rx.empty() ? "" : "Luce ", nick_tx);
        links.LINK_CORRENTE.note = note;
        links.AGGIUNGI_LINK();
        return links.PROSSIMO_ID_LINK - 1;
    }
    // A second page: every column empty but note and dato13.
    std::int64_t add_second_page(const std::string& dato13 = "000000") {
        links.LINK_CORRENTE = LinkRow{};
        links.LINK_CORRENTE.note = std::string(kSecondaPagina);
        links.LINK_CORRENTE.dato13 = dato13;
        links.AGGIUNGI_LINK();
        return links.PROSSIMO_ID_LINK - 1;
    }
    LinkTable links{project};
};

TEST_F(LinkTableTest, RowsAreNumberedOnFromTheHighest) {
    EXPECT_EQ(add("002B15/3", "001A11/2"), 1);
    EXPECT_EQ(add_second_page(), 2);
    EXPECT_EQ(links.PROSSIMO_ID_LINK, 3);
    sql("DELETE FROM associazioni WHERE ID = 1");
    EXPECT_EQ(add("002B15/4", "001A11/2"), 3);  // no renumbering, no reuse below the top
    LinkRow row;
    ASSERT_TRUE(links.read_row(3, row));
    EXPECT_EQ(row.dato14, "");
    EXPECT_EQ(row.modo_, "000000112");
}

TEST_F(LinkTableTest, DeletingALinkTakesItsContinuationAndNothingElse) {
    add("002B15/3", "001A11/2");      // 1
    add_second_page();                // 2
    add("002B15/4", "001A11/3");      // 3: a link of its own
    add("002B15/5", "001A11/4");      // 4
    add("", "", "SECONDA RIGA");      // 5: a channel row, held by its marker
    add("002B15/6", "001A11/5");      // 6
    add("FFFEFF/1", "", "NET_GATE");  // 7: a gateway channel's own row

    links.ID_LINK = 1;
    links.CANCELLA_LINK();
    EXPECT_EQ(link_ids(), (std::vector<std::int64_t>{3, 4, 5, 6, 7}));
    links.ID_LINK = 3;  // the next row belongs to another link
    links.CANCELLA_LINK();
    EXPECT_EQ(link_ids(), (std::vector<std::int64_t>{4, 5, 6, 7}));
    links.ID_LINK = 4;
    links.CANCELLA_LINK();
    EXPECT_EQ(link_ids(), (std::vector<std::int64_t>{6, 7}));
    links.ID_LINK = 6;  // a NET_GATE row behind counts as a continuation
    links.CANCELLA_LINK();
    EXPECT_EQ(link_ids(), (std::vector<std::int64_t>{}));
}

TEST_F(LinkTableTest, FindsALinkByItsPairOfPoints) {
    add("002B15/3", "001A11/2");
    add("002B15/3", "001A11/7", "Sensore ", std::string(kImpostaValoreRiferimento));
    links.LINK_CORRENTE.identificativoRX = "002B15/3";
    links.LINK_CORRENTE.identificativoTX = "001A11/2";
    links.CERCA_LINK_E();
    EXPECT_EQ(links.ESITO_LINK, kEsitoEsisteGia);
    EXPECT_EQ(links.ID_LINK, 1);
    links.LINK_CORRENTE.identificativoTX = "001A11/7";
    links.CERCA_LINK_E();
    EXPECT_EQ(links.ESITO_LINK, kEsitoImposta);
    EXPECT_EQ(links.ID_LINK, 2);
    links.LINK_CORRENTE.identificativoTX = "001A11/1";
    links.CERCA_LINK_E();
    EXPECT_EQ(links.ESITO_LINK, kEsitoNuovo);
    EXPECT_EQ(links.ID_LINK, 0);
    links.CERCA_LINK_SUCESSIVO(2);
    EXPECT_EQ(links.ESITO_LINK, kEsitoEsisteGia);
    links.CERCA_LINK_SUCESSIVO(3);
    EXPECT_EQ(links.ESITO_LINK, kEsitoNuovo);
}

TEST_F(LinkTableTest, TheTableInMemoryHoldsTheBusValues) {
    add("002B15/3", "1/2");
    sql("UPDATE associazioni SET on_ = '/100', minuto = '/100', settimana = '10000001'");
    add_second_page();
    add("00031E/1", "001A11/2");
    sql("UPDATE associazioni SET settimana = '10000001', on_ = '/050' WHERE ID = 3");
    links.LEGGI_LINK();
    ASSERT_EQ(links.N_LINK(), 2);  // the second page has no receiver
    const LinkRow& a = links.link(1);
    EXPECT_EQ(a.ID, 1);
    EXPECT_EQ(a.identificativoTX, "01/2");  // padded to 4
    EXPECT_EQ(a.on_, "251");
    EXPECT_EQ(a.minuto, "240");  // 255 capped
    EXPECT_EQ(a.settimana, "129");
    EXPECT_EQ(links.link(2).settimana, "10000001");  // message bits stay as stored
    EXPECT_EQ(links.link(2).on_, "130");
    EXPECT_FALSE(links.exceeds_row_limit());
}

TEST_F(LinkTableTest, DescribesALinkForTheEditor) {
    add("002B15/3", "001A11/2");
    sql("UPDATE associazioni SET tempo_on1 = '1', tempo_on2 = '0', tempo_off2 = '123D', "
        "modo_ = '010110012', settimana = '10000000' WHERE ID = 1");
    add_second_page("001044");
    links.CERCA_LINK_PER_ID(1, 2);
    EXPECT_EQ(links.ESITO_LINK, kEsitoEsisteGia);
    EXPECT_EQ(links.TESTO_LINK,
              "001A11/2  --->   002B15/3\n"
              "Pulsante    --->   Luce \n"
              "T.ON=256      T.RIT.ACCENSIONE=123       T.RIT.SPEGNIMENTO=300\n"
              "Modo=01011001\n"
              "USA VALORE COMPARATO  EVENTO SI  EVENTO SI  PASSO PASSO  \n"
              "Valore on=251 Valore off=8\n"
              "Lampeggio ON");

    // At the first level the look-up is all.
    links.TESTO_LINK.clear();
    links.CERCA_LINK_PER_ID(1, 1);
    EXPECT_EQ(links.ESITO_LINK, kEsitoEsisteGia);
    EXPECT_EQ(links.TESTO_LINK, "");
    links.CERCA_LINK_PER_ID(99, 3);
    EXPECT_EQ(links.ESITO_LINK, kEsitoNuovo);
}

TEST_F(LinkTableTest, DetailsForTheAnalysisOfAnOutput) {
    add("002B15/3", "001A11/2");
    sql("UPDATE associazioni SET tempo_on1 = '1', tempo_on2 = '0', \"and\" = '10100000' "
        "WHERE ID = 1");
    add_second_page("002001");
    links.DATI_DEL_LINK(1);
    EXPECT_EQ(links.DATI_LINK.tempo_on, 256);
    EXPECT_EQ(links.DATI_LINK.and_, "10100000");
    EXPECT_EQ(links.DATI_LINK.modo, "00000011");
    EXPECT_EQ(links.DATI_LINK.tempo_spegnimento, 513);
    EXPECT_EQ(links.DATI_LINK.lampeggio, "");
    links.ESITO_LINK.clear();
    links.DATI_DEL_LINK(42);
    EXPECT_EQ(links.ESITO_LINK, kEsitoNuovo);
}

TEST_F(LinkTableTest, RenamedPointsFollowIntoTheirLinks) {
    testing::add_module(table, "002B15", 32, "Quadro");
    add("002B15/3", "001A11/2");              // output 3 as receiver
    add("00991F/1", "002B15/2");              // input 2 as command
    add("00991F/2", "002B15/10");             // input 2 held
    add("00991F/3", "002B15/19");             // event of output 3
    add("00991F/4", "002B15/26", "ALMENO1");  // an aggregate keeps its marker
    add("00991F/5", "00AAAA/2");              // another module
    table.LEGGI_MODULO("002B15");
    table.RIGHE_MODULO.riga(11).nick = "Luce dell'ingresso ";
    table.RIGHE_MODULO.riga(2).nick = "Pulsante porta";
    links.AGGIORNA_NICK_NEI_LINK_DA_FORM5("002B15", table.RIGHE_MODULO);
    const std::vector<std::string> expected = {
        "Luce dell'ingresso  / Pulsante ", "Luce  / Pulsante porta", "Luce  / Pulsante porta",
        "Luce  / Luce dell'ingresso ",     "Luce  / ALMENO1",        "Luce  / Pulsante "};
    for (int id = 1; id <= 6; ++id) {
        LinkRow r;
        ASSERT_TRUE(links.read_row(id, r));
        EXPECT_EQ(r.nick_ricevente + " / " + r.nick_trasmittente, expected[id - 1]) << id;
    }
}

TEST(LinkValues, PercentagesAndTimes) {
    // on and off: 9 + percent x 2.42; minuto: percent x 2.55, held at 240.
    const std::tuple<const char*, const char*, const char*> percentages[] = {
        {"/100", "251", "240"}, {"/000", "9", "0"},     {"/0", "9", "0"},      {"/033", "88", "84"},
        {"/094", "236", "239"}, {"/095", "238", "240"}, {"252", "252", "252"}, {"00", "00", "00"}};
    for (const auto& [stored, on, minuto] : percentages) {
        EXPECT_EQ(on_off_bus_value(stored), on) << stored;
        EXPECT_EQ(minuto_bus_value(stored), minuto) << stored;
    }
    EXPECT_EQ(time_value("1", "0"), 256);
    EXPECT_EQ(time_value("1", "123D"), 379);  // the tenths mark is no part of the value
    EXPECT_EQ(time_value("", ""), 0);
    EXPECT_EQ(dato13_value("001044"), 300);
    EXPECT_EQ(dato13_value("001044D"), 300);
    EXPECT_EQ(dato13_value(""), 0);
}

}  // namespace
}  // namespace filo::store
