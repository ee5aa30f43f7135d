#include <gtest/gtest.h>

#include "exchange/report_rows.hpp"
#include "store/link_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::exchange {
namespace {

using testing::switching_link;

TEST(ReportRows, TimeForm) {
    EXPECT_EQ(time_form(0), "00h00'00\"");
    EXPECT_EQ(time_form(3600), "01h00'00\"");
    EXPECT_EQ(time_form(3725), "01h02'05\"");
    EXPECT_EQ(time_form(64799), "17h59'59\"");
}

TEST(ReportRows, FitCountsCharactersNotBytes) {
    EXPECT_EQ(fit("RELE", 6), "RELE  ");
    EXPECT_EQ(fit("VARIATORE", 3), "VAR");
    EXPECT_EQ(fit("2°p", 3), "2°p");
    EXPECT_EQ(fit("°°°°", 2), "°°");
}

// The row of one link, from the link editor's plain switching link changed
// as each case says.
TEST(ReportRows, LinkRowsAndTechnicalLines) {
    const std::string untimed = "--------- --------- --------- ---------  ";
    struct Case {
        const char* name;
        const char* changes;  // of the columns
        long long off_delay;
        ReportRow expected;
    };
    const Case cases[] = {
        {"plain",
         "",
         0,
         {"Pulsante", "001A11/2 ", "Luce", "002B15/3 ",
          "    001A11/2 -> 002B15/3  :P: 00000011 :251/8  : " + untimed, ""}},
        {"times over an hour (3725 s), off delay, condition",
         "tempo_on1=14|tempo_on2=141|tempo_off2=5|and=00000101|modo_=100000111",
         3600,
         {"Pulsante", "001A11/2 ", "Luce", "002B15/3 ",
          "    001A11/2 -> 002B15/3  :P: 10000011 :251/8  : 01h02'05\" 00h00'05\" 01h00'00\" "
          "00000101  ",
          ""}},
        {"timed row",
         "nick_trasmittente=ALLE_ORE|identificativoTX=0000",
         0,
         {"EVENTO ORARIO", "0000 ", "Luce", "002B15/3 ",
          "    ORARIO 0000 -> 002B15/3  :P: 00000011 :.../...: " + untimed, ""}},
        {"gateway channel, long codes, long thresholds",
         "nick_trasmittente=NET_GATE|identificativoTX=00FF2A/12|identificativoRX=002B15/"
         "10|opzione=E",
         0,
         {"NET_GATE", "00FF2A/12", "Luce", "002B15/10",
          "    00FF2A/12-> 002B15/10 :E: 00000011 :.../...: " + untimed, ""}},
        {"percent thresholds cut to three, names with degrees",
         "on_=/100|off_=|nick_trasmittente=Puls. 2° piano|nick_ricevente=Luce 1°",
         0,
         {"Puls. 2° piano", "001A11/2 ", "Luce 1°", "002B15/3 ",
          "    001A11/2 -> 002B15/3  :P: 00000011 :/10/   : " + untimed, ""}},
        {"channel row", "nick_trasmittente=SECONDA RIGA", 7, {}},
    };
    for (const Case& c : cases) {
        const store::LinkRow link = testing::with_columns(
            switching_link("002B15/3", "001A11/2", "Luce", "Pulsante"), c.changes);
        EXPECT_EQ(link_report_row(link, c.off_delay), c.expected) << c.name;
    }
}

class ReportRowsTest : public testing::StoreTest {
  protected:
    // Appends a link and, when dato13 is given, its second page with it.
    void add_link(const std::string& rx, const std::string& tx, const std::string& nick_rx,
                  const std::string& nick_tx, const std::string& dato13 = "") {
        store::LinkTable links(project);
        links.LINK_CORRENTE = switching_link(rx, tx, nick_rx, nick_tx);
        links.AGGIUNGI_LINK();
        if (dato13.empty()) return;
        links.LINK_CORRENTE = store::LinkRow{};
        links.LINK_CORRENTE.note = "SECONDA PAGINA";
        links.LINK_CORRENTE.dato13 = dato13;
        links.AGGIUNGI_LINK();
    }
    std::vector<std::string> column(LinkOrder order, std::string ReportRow::*field) {
        ReportRows report(project);
        report.LISTA_PER_STAMPA(order);
        std::vector<std::string> out;
        for (const ReportRow& r : report.rows) out.push_back(r.*field);
        return out;
    }
};

TEST_F(ReportRowsTest, LinksSortIgnoringCaseTiesInIdOrderSecondPagesOut) {
    add_link("000215/1", "000111/2", "luce b", "Pulsante", "014141");  // 3725 s
    add_link("000215/2", "000111/1", "LUCE A", "pulsante");
    add_link("000215/2", "000111/1", "Luce a", "PULSANTE");
    add_link("000215/4", "000111/3", "Allarme", "Sensore");
    EXPECT_EQ(column(LinkOrder::ByCommand, &ReportRow::STAMPA_NICK_RX),
              (std::vector<std::string>{"LUCE A", "Luce a", "luce b", "Allarme"}));
    EXPECT_EQ(column(LinkOrder::ByUser, &ReportRow::STAMPA_NICK_TX),
              (std::vector<std::string>{"Sensore", "pulsante", "PULSANTE", "Pulsante"}));
    // The third time comes from the row behind the link by number, though
    // the sort put other links between them.
    const auto lines = column(LinkOrder::ByUser, &ReportRow::STAMPA_RIGA);
    EXPECT_NE(lines[3].find(" 01h02'05\" "), std::string::npos) << lines[3];
    EXPECT_EQ(lines[1].find("01h02'05"), std::string::npos) << lines[1];
}

TEST_F(ReportRowsTest, ModuleReportRowsCodesAndOrder) {
    testing::add_module(table, "000211", 10, "Quadro", "RELE");
    testing::add_module(table, "000111", 10, "Cucina", "RELE");
    sql("UPDATE nick SET nick_numerico = 7");
    sql("UPDATE nick SET nick = 'Luce ' || campo WHERE campo IN ('9', '10')");
    sql("UPDATE nick SET nick = 'Tasto', tipologia = 'INPUT', modo = 'T' "
        "WHERE codice = '000111' AND campo = '2'");
    ReportRows report(project);
    report.LISTA_PER_STAMPA_NICK();
    std::vector<std::string> got;
    for (const ReportRow& r : report.rows)
        got.push_back(r.STAMPA_NICK_TX + "|" + r.STAMPA_CODICE + "|" + r.STAMPA_RIGA);
    EXPECT_EQ(got, (std::vector<std::string>{
                       "000111    Cucina|7 / 1|      INPUT           T         2         Tasto",
                       "000111    Cucina|7 / 8|      RELE            .         1         Luce 9",
                       "000111    Cucina|7 / 9|      RELE            .         2         Luce 10",
                       "000211    Quadro|7 / 8|      RELE            .         1         Luce 9",
                       "000211    Quadro|7 / 9|      RELE            .         2         Luce 10",
                   }));
}

}  // namespace
}  // namespace filo::exchange
