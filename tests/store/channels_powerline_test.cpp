#include <gtest/gtest.h>

#include "store/channels.hpp"
#include "store/integrity.hpp"
#include "store/point_fixture.hpp"
#include "store/powerline.hpp"

namespace filo::store {
namespace {

using testing::add_module;

class ChannelsTest : public testing::PointTest {
  protected:
    GatewayChannels channels{table};

    void channel_link(const std::string& number) {
        link("000125/1", "Luce ", "FFFEFF/" + number, "NET_GATE", "010000003", "a");
    }
};

TEST_F(ChannelsTest, TheNextChannelIsOneAboveTheHighest) {
    struct Case {
        std::vector<std::string> used;
        int proposed;
        bool all_used;
    } cases[] = {
        {{}, 1, false},           {{"1", "2", "7"}, 8, false},  // the gap is not handed out
        {{"10", "9"}, 11, false},                               // numbers, not texts
        {{"249"}, 0, true},                                     // the search offers 249 at most
        {{"250"}, 251, false},                                  // a number typed beyond it goes on
    };
    for (const Case& c : cases) {
        sql("DELETE FROM associazioni");
        for (const std::string& n : c.used) channel_link(n);
        EXPECT_EQ(channels.CERCA_CANALE(), c.all_used) << c.proposed;
        EXPECT_EQ(channels.CANALE_FORZATO, c.proposed);
    }
}

TEST_F(ChannelsTest, TheChannelRowsAreMadeOnceAndNamedWhenUsed) {
    add_module(table, "000111", 9, "Quadro");
    channels.CONTROLLA_PRESENZA_KNG();
    EXPECT_EQ(table.STATO_MODULO, "NUOVO_MODULO");
    channels.CONTROLLA_PRESENZA_KNG();
    EXPECT_EQ(table.STATO_MODULO, "MODULO_ESISTENTE");
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = 'FFFEFF'"), 255);
    EXPECT_EQ(count("SELECT MIN(ID) FROM nick WHERE codice = 'FFFEFF'"), 10);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = 'FFFEFF' AND nick_numerico = 2 AND "
                    "tipologia = 'SPECIALE' AND nick = ''"),
              255);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = 'FFFEFF' AND ((numero_filo = '1' "
                    "AND campo = '1') OR (numero_filo = '10' AND campo = 'A') OR (numero_filo = "
                    "'16' AND campo = '10') OR (numero_filo = '255' AND campo = 'FF'))"),
              4);  // the row of a channel is its number in hex
    channels.MODIFICA_KNG(12);
    channels.MODIFICA_KNG(300);  // no such row: nothing
    auto named = project.database().prepare(
        "SELECT numero_filo, nick FROM nick WHERE codice = 'FFFEFF' AND nick <> ''");
    ASSERT_TRUE(named.step());
    EXPECT_EQ(named.text(0), "12");
    EXPECT_EQ(named.text(1), "CANALE  12");
    EXPECT_FALSE(named.step());
}

class PowerlineTest : public testing::PointTest {
  protected:
    Powerline powerline{project, links};
};

TEST_F(PowerlineTest, EachModulatorGetsItsCommandOnceInOneWalk) {
    add_module(table, "00011F", 9, "Presa 1");
    add_module(table, "00021F", 9, "Presa 2");
    add_module(table, "00031F", 9, "Senza nome");
    add_module(table, "00041F", 9, "Cancellata");
    name("00011F", 9, "Presa cucina ");
    name("00021F", 9, "Presa sala ");
    name("00041F", 9, "Vecchia ");
    sql("UPDATE nick SET codice = '0004FF', riserva = 'K' WHERE codice = '00041F'");

    powerline.POWERLINE();
    struct Expected {
        const char* code;
        const char* command;
    } expected[] = {{"00011F", "(COMANDO) Presa cucina "},
                    {"00021F", "(COMANDO) Presa sala "},
                    {"00031F", "(COMANDO) "}};
    for (const Expected& e : expected) {
        auto q =
            project.database().prepare("SELECT nick FROM nick WHERE codice = ?1 AND campo = '8'");
        q.bind(1, e.code);
        ASSERT_TRUE(q.step());
        EXPECT_EQ(q.text(0), e.command);
    }
    EXPECT_EQ(count("SELECT nick = '' FROM nick WHERE codice = '0004FF' AND campo = '8'"), 1);

    // Walked from the last module back: each link with its second page.
    std::vector<LinkRow> all = saved_links();
    ASSERT_EQ(all.size(), 6u);
    EXPECT_EQ(all[0].identificativoRX, "00031F/1");
    EXPECT_EQ(all[0].nick_ricevente, "");
    EXPECT_EQ(testing::filled_columns(all[2]),
              "identificativoRX=00021F/1 identificativoTX=00021F/8 numero_uscita=1 "
              "nick_ricevente=Presa sala  numero_ingresso=8 nick_trasmittente=(COMANDO) Presa "
              "sala  tempo_on1=0 tempo_on2=0 modo_=000000001 on_=251 off_=9 tempo_off1=0 "
              "tempo_off2=0 and=00000000 minuto=00 ora=00 giorno=00 settimana=00000000 "
              "dato13=000000");
    EXPECT_EQ(testing::filled_columns(all[3]), "note=SECONDA PAGINA dato13=000000");
    EXPECT_TRUE(check_integrity(project).empty());

    // Opening the project again adds nothing; a name cleared by hand comes
    // back, and the link found for the pair is not written twice.
    powerline.POWERLINE();
    name("00011F", 8, "");
    powerline.POWERLINE();
    EXPECT_EQ(saved_links().size(), 6u);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE nick = '(COMANDO) Presa cucina '"), 1);
}

TEST_F(PowerlineTest, SavingAModuleCarriesItsEmergencySettingIntoItsLinks) {
    add_module(table, "000125", 32, "Canali");
    add_module(table, "000211", 9, "Quadro");
    link("000125/1", "Luce ", "000211/1", "Pulsante", "000000009");  // emergency mode
    link("000125/1", "Luce ", "000211/2", "Altro", "000000001");
    link("000125/2", "Luce 2", "000211/1", "Pulsante", "000000009");
    link("000125/3", "Luce 3", "000211/1", "Pulsante", "000000009");
    table.LEGGI_MODULO("000125");
    table.CODICE_MODULO = "000125";
    table.RIGHE_MODULO.riga(9).connesso = ".E......";
    table.RIGHE_MODULO.riga(9).riserva2 = "000000045" + std::string(41, '0');
    table.RIGHE_MODULO.riga(10).connesso = ".e......";
    table.RIGHE_MODULO.riga(10).riserva2 = "000000120" + std::string(41, '0');
    table.RIGHE_MODULO.riga(11).connesso = "........";
    table.MODIFICA_MODULO();
    struct Expected {
        std::int64_t id;
        const char* tempo_on1;
        const char* settimana;
    } expected[] = {
        {1, "045", "01000000"},
        {2, "", "00000000"},  // another mode
        {3, "120", "01100000"},
        {4, "", "00000000"},  // no emergency on that point
    };
    for (const Expected& e : expected) {
        LinkRow r;
        ASSERT_TRUE(links.read_row(e.id, r));
        EXPECT_EQ(r.tempo_on1, e.tempo_on1) << e.id;
        EXPECT_EQ(r.settimana, e.settimana) << e.id;
    }
}

}  // namespace
}  // namespace filo::store
