#include <gtest/gtest.h>

#include "store/link_queries.hpp"
#include "store/point_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;

class LinkQueriesTest : public testing::PointTest {
  protected:
    LinkQueries queries{project, links, texts};

    LinkRow& row(const std::string& rx, const std::string& tx, const std::string& nick_tx,
                 const std::string& opzione) {
        LinkRow& l = links.LINK_CORRENTE;
        l = LinkRow{};
        l.identificativoRX = rx;
        l.identificativoTX = tx;
        l.numero_ingresso = tx.substr(tx.find('/') + 1);
        l.nick_trasmittente = nick_tx;
        l.opzione = opzione;
        l.modo_ = "000000001";
        return l;
    }
};

TEST_F(LinkQueriesTest, CommandsOfAnOutputAsTheEditorListsThem) {
    const std::string out = "000111/1";
    struct Row {
        std::string tx, nick, opzione;
        std::string text;  // "" when the row is not listed
    } rows[] = {
        {"000211/1", "Pulsante", "P", "Pulsante"},
        {"000211/2", "Tenuto", "T", "Pulsante tenuto    Tenuto"},
        {"000211/5", "Sonda", "a", "Soglia  impostata  da Sonda  5"},
        {"000311/17", "Luce viva", "E", "Evento Luce viva"},
        {"000311/18", "Luce spenta", "E", "Evento Luce spenta       <<<< NON PIU' DISPONIBILE"},
        {"000448/26", "ALMENO1", "ES", "000448   SE ALMENO 1 é Vero"},
        {"000511/29", "TUTTIb", "ES", "000511 b   TUTTI Veri"},
        {"000611/252", "PRESENZA", "EP", "AVVISO PRESENZA modulo  000611"},
        {"000211/129", "SECONDA RIGA", "+", ""},
        {"00071F/8", "(COMANDO) Presa", "", ""},
        {"000211/3", "", "P", ""},
    };
    for (const Row& r : rows) {
        row(out, r.tx, r.nick, r.opzione);
        links.AGGIUNGI_LINK();
    }
    // Luce viva still gives its event: a link of its own makes it.
    link("000311/1", "Luce viva", "000211/1", "Pulsante", "000010001");

    links.LINK_CORRENTE.identificativoRX = out;
    std::vector<ListEntry> got = queries.LEGGI_ASSOCIATI_A_UTILIZZATORE();
    std::vector<ListEntry> expected;
    for (std::size_t i = 0; i < std::size(rows); ++i)
        if (!rows[i].text.empty())
            expected.push_back({rows[i].text, static_cast<std::int64_t>(i) + 1});
    EXPECT_EQ(got, expected);
    EXPECT_EQ(queries.threshold_text, "Sonda  5");
    EXPECT_EQ(queries.threshold_number, "5");
}

TEST_F(LinkQueriesTest, ALinkReadForEditingWithItsSecondSetOfValues) {
    links.LINK_CORRENTE = testing::with_columns(
        testing::switching_link("000125/1", "000211/1", "", "Pulsante"),
        "tempo_on1=007|tempo_on2=3|tempo_off1=|modo_=000110012|off_=9|and=10000000|"
        "settimana=10000000|dato13=");
    links.AGGIUNGI_LINK();
    LinkRow& c = row("000125/1", "000211/129", "SECONDA RIGA", "+");
    c = testing::with_columns(c,
                              "on_=200|off_=/50|tempo_on1=001|tempo_on2=4|tempo_off1=0|"
                              "tempo_off2=02|minuto=17|modo_=01000001");
    links.AGGIUNGI_LINK();

    links.LINK_CORRENTE = LinkRow{};
    links.LINK_CORRENTE.identificativoRX = "000125/1";
    links.LINK_CORRENTE.identificativoTX = "000999/1";
    queries.LEGGI_ASSOCIAZIONE(false);
    EXPECT_EQ(queries.ESITO_ASSOCIAZIONE, "NUOVO");
    // The fields are reset for a new link.
    EXPECT_EQ(links.LINK_CORRENTE.opzione, " ");
    EXPECT_EQ(links.LINK_CORRENTE.modo_, "000000000");
    EXPECT_EQ(links.LINK_CORRENTE.settimana, "00000000");
    EXPECT_EQ(links.LINK_CORRENTE.minuto, "00");

    links.LINK_CORRENTE.identificativoTX = "000211/1";
    queries.LEGGI_ASSOCIAZIONE(false);
    EXPECT_EQ(queries.ESITO_ASSOCIAZIONE, "ESISTE_GIA");
    EXPECT_EQ(links.ID_LINK, 1);
    EXPECT_EQ(links.LINK_CORRENTE.tempo_on1, "7");  // through Val
    EXPECT_EQ(links.LINK_CORRENTE.tempo_off1, "0");
    EXPECT_EQ(links.LINK_CORRENTE.modo_, "000110012");
    EXPECT_EQ(queries.LK_ON_PRECEDENTE, "251");
    EXPECT_EQ(queries.LK_SPEGNIMENTO1, "0");  // an empty dato13 reads as 0
    EXPECT_EQ(queries.LK_SPEGNIMENTO2, "0");
    // The key of the display, a byte of 8 bits at a time.
    std::string key;
    for (std::size_t i = 0; i < queries.display_key.size(); i += 8)
        key += queries.display_key.substr(i, 8) + (i + 8 < queries.display_key.size() ? " " : "");
    EXPECT_EQ(key,
              "00000001 00000111 00000011 00000000 00000000 10000000 11111011 00001001 00000000 "
              "00000000 00000000 10000000");
    EXPECT_EQ(queries.next_nick_trasmittente, "SECONDA RIGA");
    const std::string values[9] = {"200", "/50", "2", "0", "4", "1", "17", "SI", "SI"};
    for (int k = 0; k < 9; ++k) EXPECT_EQ(queries.VALORI_AVANZATI[k], values[k]) << k;
    EXPECT_EQ(queries.EVENTI_ROSSO, "EVENTI");
}

TEST_F(LinkQueriesTest, AnRgbLinkReadsThreeChannels) {
    const char* mode[] = {"000110061", "000000061", "000000061"};
    for (int colour = 0; colour < 3; ++colour) {
        LinkRow& main = row("000225/" + std::to_string(colour + 1),
                            "000211/" + std::to_string(colour + 17), "Master", "E");
        main.modo_ = mode[colour];
        if (colour == 0) main.identificativoRX = "000225/1";
        links.AGGIUNGI_LINK();
        LinkRow& c = row(main.identificativoRX, "000211/145", "SECONDA RIGA", "+");
        c.on_ = std::to_string(100 + colour);
        c.modo_ = colour == 2 ? "01000000" : "00000000";
        links.AGGIUNGI_LINK();
    }
    // Green and blue main rows are keyed by their own output.
    links.LINK_CORRENTE.identificativoRX = "000225/1";
    links.LINK_CORRENTE.identificativoTX = "000211/17";
    queries.LEGGI_ASSOCIAZIONE(true);
    EXPECT_EQ(queries.VALORI_AVANZATI[0], "100");
    EXPECT_EQ(queries.VALORI_AVANZATI[9], "101");
    EXPECT_EQ(queries.VALORI_AVANZATI[18], "102");
    EXPECT_EQ(queries.VALORI_AVANZATI[7], "NO");
    EXPECT_EQ(queries.VALORI_AVANZATI[25], "SI");
    EXPECT_EQ(queries.EVENTI_ROSSO, "EVENTI");
    EXPECT_EQ(queries.EVENTI_VERDE, "");
    EXPECT_EQ(queries.EVENTI_BLU, "");
}

TEST_F(LinkQueriesTest, AnOutputThatIsTheConditionOfALinkKeepsItsName) {
    auto conditioned = [this](const std::string& rx, const std::string& and_) {
        link(rx, "Luce", "000211/1", "Pulsante");
        sql("UPDATE associazioni SET \"and\" = '" + and_ +
            "' WHERE ID = " + std::to_string(links.PROSSIMO_ID_LINK - 1));
    };
    conditioned("000111/1", "00100000");  // needs output 3
    conditioned("000111/2", "01000000");
    conditioned("000311/1", "00100000");  // another module
    struct Case {
        int output;
        std::string result;
        std::size_t links;
    } cases[] = {{3, "SI", 1}, {2, "SI", 1}, {1, "N0", 0}, {0, "N0", 0}};
    for (const Case& c : cases) {
        auto found = queries.CERCA_SE_USATO_COME_AND("000111", c.output);
        EXPECT_EQ(queries.USATO_COME_AND, c.result) << c.output;
        EXPECT_EQ(found.size(), c.links) << c.output;
    }
    auto found = queries.CERCA_SE_USATO_COME_AND("000111", 3);
    EXPECT_EQ(and_condition_message(found.at(0), texts),
              "IL COMANDO -->  Pulsante\nPER  L'USCITA -->  Luce\n\n"
              "è ESEGUITO  SOLO SE QUESTA USCITA è ATTIVA \n"
              "ELIMINARE O MODIFICARE PRIMA IL COLLEGAMENTO");
}

TEST_F(LinkQueriesTest, EventsStillGivenAndNamesOfAModule) {
    link("000111/1", "Luce", "000211/1", "Pulsante", "000000001");
    queries.NOME_EVENTO = "luce";
    queries.TESTA_EVENTO();
    EXPECT_EQ(queries.EVENTO_SCOMPARSO, 1);
    link("000111/1", "Luce", "000211/2", "Altro", "000010001");
    queries.TESTA_EVENTO();
    EXPECT_EQ(queries.EVENTO_SCOMPARSO, 0);

    add_module(table, "000148", 9, "Scene");
    queries.TESTA_EVENTO_SPECIALE("000148");
    EXPECT_EQ(queries.EVENTO_SCOMPARSO, 1);
    set("000148", 2, "riserva", "Notte");
    queries.TESTA_EVENTO_SPECIALE("000148");
    EXPECT_EQ(queries.EVENTO_SCOMPARSO, 0);

    add_module(table, "00051F", 9, "Vecchio");
    sql("UPDATE nick SET codice = '0005FF', riserva = 'K' WHERE codice = '00051F'");
    add_module(table, "00050B", 9, "Nuovo");
    name("00050B", 9, "Dimmer");
    name("00050B", 2, "Tasto");
    set("00050B", 3, "riserva", "K");
    queries.CERCA_NOMI("0005");
    // The deleted module's rows are passed over; live rows count named or not.
    ASSERT_EQ(queries.NOMI_PRESENTI.size(), 8u);
    EXPECT_EQ(queries.NOMI_PRESENTI[1], "Tasto");
    EXPECT_EQ(queries.NOMI_PRESENTI[7], "Dimmer");
}

}  // namespace
}  // namespace filo::store
