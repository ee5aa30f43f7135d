#include <gtest/gtest.h>

#include "store/programming_lists.hpp"
#include "store/store_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;

class ProgrammingListsTest : public testing::StoreTest {
  protected:
    ProgrammingLists lists{project};
};

TEST_F(ProgrammingListsTest, RemotesAreNumberedOverTheWholeProject) {
    add_module(table, "00104A", 9, "Ricevitore 1");
    add_module(table, "00204A", 9, "Ricevitore 2");
    add_module(table, "A1B228", 2, "Telecomando 1");
    add_module(table, "C3D434", 2, "Telecomando 2");
    add_module(table, "E5F635", 2, "Telecomando 3");
    add_module(table, "00300B", 9, "Relè");
    sql("UPDATE nick SET riserva4 = '00104A' WHERE codice = 'A1B228'");
    sql("UPDATE nick SET riserva4 = '00204AXX' WHERE codice = 'C3D434'");
    sql("UPDATE nick SET riserva4 = '' WHERE codice = 'E5F635'");
    // Only the first row of a remote counts, and only remote types are read.
    sql("UPDATE nick SET numero_filo = 2 WHERE codice = 'A1B228' AND campo = '2'");
    sql("UPDATE nick SET riserva2 = '00000000000000000100' WHERE codice = 'C3D434'");

    lists.LISTA_telecomandi();
    ASSERT_EQ(lists.N_TELECOMANDI, 3);
    EXPECT_EQ(lists.TELECOMANDI[0].A, "A1");
    EXPECT_EQ(lists.TELECOMANDI[0].B, "B2");
    EXPECT_EQ(lists.TELECOMANDI[0].C, "00104A");
    EXPECT_EQ(lists.TELECOMANDI[1].C, "00204A");
    EXPECT_EQ(lists.TELECOMANDI[2].C, "");
    // Rows 3 and 4 of the query (both rows of the second remote) carry the flag.
    EXPECT_EQ(lists.MASCHERA_TELECOMANDI1, "0011" + std::string(28, '0'));
    EXPECT_EQ(lists.MASCHERA_TELECOMANDI3, lists.MASCHERA_TELECOMANDI1);
}

TEST_F(ProgrammingListsTest, TextsKeepTheirPlaceWhenAModuleOfTypeFfIsSkipped) {
    add_module(table, "00101E", 12, "Pannello", "OUT_SERIALE");
    add_module(table, "0020FF", 12, "Canale", "OUT_SERIALE");
    add_module(table, "00301E", 12, "Pannello 2", "OUT_SERIALE");
    sql("UPDATE nick SET riserva2 = '', riserva3 = '' WHERE tipologia = 'OUT_SERIALE'");
    sql("UPDATE nick SET riserva2 = NULL WHERE codice = '00301E' AND campo = '10'");
    sql("UPDATE nick SET riserva2 = '05Ciao', riserva3 = 'mondo' WHERE campo = '9'");

    lists.CERCA_TESTI();
    ASSERT_EQ(lists.TESTI.size(), 2u);
    EXPECT_EQ(lists.TESTI[0].indice, 1);
    EXPECT_EQ(lists.TESTI[0].codice, "00101E");
    EXPECT_EQ(lists.TESTI[0].riserva2, "05Ciao");
    EXPECT_EQ(lists.TESTI[0].riserva3, "mondo");
    EXPECT_EQ(lists.TESTI[1].indice, 3);
    EXPECT_EQ(lists.TESTI[1].codice, "00301E");
    EXPECT_EQ(lists.TESTI[1].numero_filo, "1");
}

TEST_F(ProgrammingListsTest, CardsAreCutIntoEntriesOfSixByCampo) {
    add_module(table, "00101A", 9, "Lettore");
    sql("UPDATE nick SET dati_aggiuntivi1 = '' WHERE codice = '00101A'");
    sql("UPDATE nick SET dati_aggiuntivi1 = 'AAAAAABBBBBBCCC' WHERE campo = '2'");
    sql("UPDATE nick SET dati_aggiuntivi1 = NULL WHERE campo = '3'");
    sql("UPDATE nick SET dati_aggiuntivi1 = '123456' WHERE campo = '8'");

    lists.CERCA_CARD("00101A");
    EXPECT_EQ(lists.CARD[2][1], "AAAAAA");
    EXPECT_EQ(lists.CARD[2][2], "BBBBBB");
    EXPECT_EQ(lists.CARD[2][3], "CCC");
    EXPECT_EQ(lists.CARD[2][4], "");
    EXPECT_EQ(lists.CARD[8][1], "123456");
    EXPECT_EQ(lists.CARD[1][1], "");

    // A Null on the first row stops the reading; what an earlier call found is gone.
    sql("UPDATE nick SET dati_aggiuntivi1 = NULL WHERE campo = '1'");
    lists.CERCA_CARD("00101A");
    EXPECT_EQ(lists.CARD[2][1], "");
    EXPECT_EQ(lists.CARD[8][1], "");
}

}  // namespace
}  // namespace filo::store
