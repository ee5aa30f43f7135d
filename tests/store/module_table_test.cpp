#include <gtest/gtest.h>

#include "store/module_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;
using ModuleTableTest = testing::StoreTest;

TEST_F(ModuleTableTest, ShortAndNullFieldsReadAsTheirDefaults) {
    add_module(table, "00011F", 16, "Relè");
    add_module(table, "00021E", 16, "Pannello");
    sql("UPDATE nick SET riserva2 = '0123456789', riserva4 = '12', riserva3 = '1' WHERE campo = "
        "'1'");
    sql("UPDATE nick SET riserva2 = NULL, riserva4 = NULL, dati_aggiuntivi1 = NULL WHERE campo = "
        "'2' AND "
        "codice = '00011F'");
    sql("UPDATE nick SET riserva3 = '5' WHERE campo = '3' AND codice = '00011F'");

    table.LEGGI_MODULO("00011F");
    const ModuleRecord& m = table.RIGHE_MODULO;
    EXPECT_EQ(m.riga(1).riserva2, std::string(50, '0'));
    EXPECT_EQ(m.riga(1).riserva4, std::string(50, '0'));
    EXPECT_EQ(m.riga(1).riserva3, std::string(26, '0'));  // shorter than 16
    EXPECT_EQ(m.riga(2).riserva2, "");
    EXPECT_EQ(m.riga(2).riserva4, std::string(50, '0'));
    EXPECT_EQ(m.riga(2).dati_aggiuntivi1, "");
    EXPECT_EQ(table.RISERVA3_RIGA1_USATA, "");
    EXPECT_EQ(table.RISERVA3_RIGHE23_USATE, "SI");

    // The panel interface keeps its texts as stored.
    table.LEGGI_MODULO("00021E");
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).riserva2, "0123456789");
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).riserva3, "1");
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).riserva4, "12");
}

TEST_F(ModuleTableTest, AddingNumbersRowsOnFromOneAndKeepsTheModuleNumber) {
    add_module(table, "00011F", 16, "a");
    add_module(table, "00021F", 32, "b");
    EXPECT_EQ(count("SELECT MAX(ID) FROM nick"), 48);
    EXPECT_EQ(count("SELECT COUNT(DISTINCT ID) FROM nick"), 48);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '00021F' AND nick_numerico = 2"), 32);
    // numero_filo is written as its numeric value.
    table.RIGHE_MODULO = testing::new_module_rows("00031F", 16, "c");
    table.RIGHE_MODULO.riga(1).numero_filo = "01";
    table.RIGHE_MODULO.riga(2).numero_filo = "";
    table.RIGHE_MODULO.M_NICK_NUMERICO = "3";
    table.AGGIUNGI_MODULO();
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '00031F' AND campo = '1' AND "
                    "numero_filo = '1'"),
              1);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '00031F' AND campo = '2' AND "
                    "numero_filo = '0'"),
              1);
}

TEST_F(ModuleTableTest, ChangesAreWrittenBackRowByRow) {
    add_module(table, "00011F", 16, "Quadro");
    table.LEGGI_MODULO("00011F");
    table.CODICE_MODULO = "00011F";
    table.RIGHE_MODULO.riga(9).nick = "Luce dell'orologio ";
    table.RIGHE_MODULO.riga(9).modo = "000000000000000000000001";
    table.RIGHE_MODULO.riga(1).note = "Quadro d'ingresso";
    table.MODIFICA_MODULO();
    ModuleRecord written = table.RIGHE_MODULO;
    table.LEGGI_MODULO("00011F");
    EXPECT_EQ(table.RIGHE_MODULO.rows, written.rows);
    EXPECT_EQ(table.RIGHE_MODULO.M_NICK_NUMERICO, "1");
    EXPECT_EQ(table.RIGHE_MODULO.riga(16).ID, 16);  // in ID order
}

TEST_F(ModuleTableTest, DeletionMarksTheRowsAndFreesTheNumber) {
    add_module(table, "00011F", 16, "Quadro");
    sql("UPDATE nick SET nick = 'Luce ' WHERE campo = '9'");
    table.LEGGI_MODULO("00011F");
    table.CODICE_MODULO = "00011F";
    table.CANCELLA_MODULO();
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '0001FF' AND riserva = 'K' AND "
                    "tipologia = '' AND note = ''"),
              16);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE nick = 'Luce '"), 1);  // names stay

    // The same number with another type: a second set of rows; the search by
    // number finds the live module, not the deleted rows before it.
    add_module(table, "00010B", 16, "Nuovo");
    table.VERIFICA_MODULO("00010B");
    EXPECT_EQ(table.STATO_MODULO, kModuloEsistente);
    EXPECT_EQ(table.RIGHE_MODULO.N_RIGHE_MODULO(), 32);
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).codice, "00010B");
    table.VERIFICA_MODULO("0002AA");
    EXPECT_EQ(table.STATO_MODULO, kNuovoModulo);

    // So does the information of a point, by number and row.
    sql("UPDATE nick SET nick = 'Campanello ' WHERE codice = '00010B' AND campo = '9'");
    table.LEGGI_INFORMAZIONE("0001", "9");
    EXPECT_EQ(table.STATO_MODULO, kModuloEsistente);
    EXPECT_EQ(table.INFO_NICK, "Campanello ");
    EXPECT_EQ(table.INFO_CODICE, "00010B");
    table.LEGGI_INFORMAZIONE("0009", "9");
    EXPECT_EQ(table.STATO_MODULO, kNuovoModulo);
    EXPECT_EQ(table.INFO_NICK, "Campanello ");  // left as it was
}

}  // namespace
}  // namespace filo::store
