#include "modules/module_rows.hpp"

#include <gtest/gtest.h>

#include "store/store_fixture.hpp"

namespace filo::modules {
namespace {

using ModuleRowsTest = testing::StoreTest;

TEST_F(ModuleRowsTest, NewModuleRowsOfEachType) {
    struct Case {
        const char* code;
        int rows;
        const char* input_modo;
        const char* output_tipologia;  // of row 9, when there is one
    } cases[] = {
        {"00011F", 16, "P00000000000000000000000", "MODULATORE"},
        {"000211", 32, "P00000000000000000000000", "RELE"},
        {"000349", 16, "P00000000000000000000000", "RELE"},
        {"000414", 8, "P00000000000000000000000", nullptr},
        {"000550", 8, "J00000000000000000000000", nullptr},
        {"000619", 16, "K00000000000000000000000", "REGOLATORE"},
        {"000734", 8, "R00000000000000000000000", nullptr},
        {"000835", 8, "R00000000000000000000000", nullptr},
        {"00094A", 16, "P00000000000000000000000", "RELE_RADIO"},
    };
    for (const Case& c : cases) {
        table.CODICE_MODULO = c.code;
        ASSERT_TRUE(prepare_new_module(table)) << c.code;
        const store::ModuleRecord& m = table.RIGHE_MODULO;
        ASSERT_EQ(m.N_RIGHE_MODULO(), c.rows) << c.code;
        for (int r = 1; r <= c.rows; ++r) {
            const store::NickRow& row = m.riga(r);
            EXPECT_EQ(row.codice, c.code);
            EXPECT_EQ(row.campo, std::to_string(r));
            EXPECT_EQ(row.numero_filo, std::to_string(r <= 8 ? r : r - 8));
            EXPECT_EQ(row.riserva3.size(), r == 1 ? 26u : 50u) << c.code << " row " << r;
            EXPECT_EQ(row.riserva2, std::string(50, '0'));
            const bool interlocked = (r == 9 || r == 10) && (std::string(c.code).ends_with("11") ||
                                                             std::string(c.code).ends_with("49"));
            if (!interlocked) {
                EXPECT_EQ(row.modo, r <= 8 ? c.input_modo : "I00000000000000000000000")
                    << c.code << " " << r;
            }
            EXPECT_EQ(row.tipologia, r <= 8 ? "INPUT" : c.output_tipologia);
        }
        table.AGGIUNGI_MODULO();
    }
    // Numbered one after the other.
    EXPECT_EQ(count("SELECT COUNT(DISTINCT nick_numerico) FROM nick"), 9);
    EXPECT_EQ(count("SELECT MAX(nick_numerico) FROM nick"), 9);
    table.CODICE_MODULO = "000A1E";  // the panel interface has no description
    EXPECT_FALSE(prepare_new_module(table));
}

TEST_F(ModuleRowsTest, TypeDependentMarks) {
    struct Case {
        const char* code;
        int row;
        std::string store::NickRow::*column;
        std::string value;
    } cases[] = {
        // Each relay of the 2-relay module has the other's RECIPROCO bit.
        {"000112", 9, &store::NickRow::modo, "I0000000" + std::string(8, '0') + "01000000"},
        {"000112", 10, &store::NickRow::modo, "I0000000" + std::string(8, '0') + "10000000"},
        {"000112", 11, &store::NickRow::modo, "I00000000000000000000000"},
        {"000215", 9, &store::NickRow::modo, "I00000000000000000000000"},
        {"000215", 9, &store::NickRow::connesso, "........"},
        {"000325", 1, &store::NickRow::connesso, "........"},
        {"000325", 32, &store::NickRow::connesso, ".E......"},
        {"000426", 3, &store::NickRow::connesso, ".E......"},
        {"000426", 16, &store::NickRow::connesso, ".E......"},
        {"00051A", 1, &store::NickRow::connesso, ".G......"},  // generic reader
        {"00051A", 2, &store::NickRow::connesso, "........"},
    };
    for (const Case& c : cases) {
        table.CODICE_MODULO = c.code;
        ASSERT_TRUE(prepare_new_module(table));
        EXPECT_EQ(table.RIGHE_MODULO.riga(c.row).*c.column, c.value) << c.code << " " << c.row;
    }
    std::string letter = "PX";
    table.CODICE_MODULO = "00061F";
    CREA_RIGHE_INGRESSI(table, "INPUT", letter);
    EXPECT_EQ(letter, "P");
}

TEST_F(ModuleRowsTest, VideoDoorPagesAreMadeTogetherOnce) {
    CREA_VIDEOCITOFONO(table);
    EXPECT_EQ(table.CODICE_MODULO, "FFF023");
    const std::pair<const char*, int> counts[] = {
        {"1", 64},
        {"codice = 'FFF323' AND modo LIKE 'z%' AND campo+0 <= 8", 8},
        {"codice = 'FFF123' AND modo LIKE 'v%' AND campo+0 <= 8", 8},
        {"codice = 'FFF223' AND tipologia = 'VCITOF'", 8},
        {"note = 'PAGINA 2 VIDEOCITOFONO'", 16},
        {"codice = 'FFF323' AND note = 'TIMER  VIDEOCITOFONO'", 3},
        {"codice = 'FFF323' AND note = 'LIBERO  VIDEOCITOFONO'", 6},
    };
    for (const auto& [where, n] : counts)
        EXPECT_EQ(count(std::string("SELECT COUNT(*) FROM nick WHERE ") + where), n) << where;
    // The first page standing for all: a missing fourth page is not made again.
    sql("UPDATE nick SET codice = 'FFF3FF' WHERE codice = 'FFF323'");
    CREA_VIDEOCITOFONO(table);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick"), 64);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = 'FFF323'"), 0);
}

}  // namespace
}  // namespace filo::modules
