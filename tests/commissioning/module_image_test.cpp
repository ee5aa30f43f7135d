// The image of a module's inputs and parameters, read from its rows.
#include <gtest/gtest.h>

#include <array>

#include "commissioning/module_image_fixture.hpp"

namespace filo::commissioning {
namespace {

using ModuleImageTest = testing::ModuleImageTest;

// "M" sets no bit, so every case starts from inputs that count nowhere.
const std::string kNoKinds = "MMMMMMMM";

TEST_F(ModuleImageTest, AModuleNotInTheProjectGivesTheStartImage) {
    add("11");
    ModuleImageReading r = reader.LEGGI_INGRESSI_MODULO("0099AA");
    EXPECT_EQ(r.STATO_MODULO, store::kNuovoModulo);
    EXPECT_EQ(r.N_RIGHE_MODULO, 0);
    EXPECT_EQ(r.IMMAGINE_MODULO, ModuleImage{});
    EXPECT_EQ(r.IMMAGINE_MODULO.TIPOLOGIE, "FF0000000000");

    ModuleImageReading found = reader.LEGGI_INGRESSI_MODULO(add("11", 32));
    EXPECT_EQ(found.STATO_MODULO, store::kModuloEsistente);
    EXPECT_EQ(found.N_RIGHE_MODULO, 32);
}

TEST_F(ModuleImageTest, EachKindLetterLandsInItsMask) {
    struct Case {
        char letter;
        int ingressi, v, a, f, t, n, sicurezze;
        const char* tipologie;  // INGRESSI, V, A, F, N, T
    };
    // Every case puts its letter on wire 3 (bit value 4).
    const Case cases[] = {
        {'I', 4, 0, 0, 0, 0, 0, 0, "040000000000"}, {'P', 4, 0, 0, 0, 0, 0, 0, "040000000000"},
        {'J', 4, 0, 0, 0, 0, 0, 0, "040000000000"}, {'i', 4, 0, 0, 0, 0, 0, 4, "040000000000"},
        {'p', 4, 0, 0, 0, 0, 0, 4, "040000000000"}, {'V', 0, 4, 0, 0, 0, 0, 0, "000400000000"},
        {'X', 0, 4, 0, 0, 0, 0, 0, "000400000000"}, {'A', 0, 0, 4, 0, 0, 0, 0, "000004000000"},
        {'G', 0, 0, 4, 0, 0, 0, 0, "000004000000"}, {'U', 0, 0, 4, 0, 0, 0, 0, "000004000000"},
        {'S', 0, 0, 4, 0, 0, 0, 0, "000004000000"}, {'B', 0, 0, 4, 0, 0, 0, 0, "000004000000"},
        {'D', 0, 0, 4, 0, 0, 0, 0, "000004000000"}, {'b', 0, 0, 4, 0, 0, 0, 0, "000004000000"},
        {'F', 0, 0, 0, 4, 0, 0, 0, "000000040000"}, {'N', 0, 0, 0, 0, 0, 4, 0, "000000000400"},
        {'W', 0, 0, 0, 0, 0, 4, 0, "000000000400"}, {'T', 0, 0, 0, 0, 4, 0, 0, "000000000004"},
        {'L', 0, 0, 0, 0, 0, 0, 0, "FF0000000000"}, {'K', 0, 0, 0, 0, 0, 0, 0, "FF0000000000"},
        {'Y', 0, 0, 0, 0, 0, 0, 0, "FF0000000000"}, {'v', 0, 0, 0, 0, 0, 0, 0, "FF0000000000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("letter ") + c.letter);
        const std::string codice = add("14");
        std::string letters = kNoKinds;
        letters[2] = c.letter;
        set_letters(codice, letters);
        const ModuleImage m = image(codice);
        EXPECT_EQ(m.MASCHERA_INGRESSI, c.ingressi);
        EXPECT_EQ(m.MASCHERA_V, c.v);
        EXPECT_EQ(m.MASCHERA_A, c.a);
        EXPECT_EQ(m.MASCHERA_F, c.f);
        EXPECT_EQ(m.MASCHERA_T, c.t);
        EXPECT_EQ(m.MASCHERA_N, c.n);
        EXPECT_EQ(m.MASCHERA_SICUREZZE, c.sicurezze);
        EXPECT_EQ(m.HEX_SICUREZZE, c.sicurezze ? "04" : "00");
        EXPECT_EQ(m.TIPOLOGIE, c.tipologie);
    }
}

TEST_F(ModuleImageTest, WiresAddUpInEachMask) {
    const std::string codice = add("14");
    set_letters(codice, "PpVTTNiW");
    const ModuleImage m = image(codice);
    EXPECT_EQ(m.MASCHERA_INGRESSI, 1 + 2 + 64);
    EXPECT_EQ(m.MASCHERA_SICUREZZE, 2 + 64);
    EXPECT_EQ(m.HEX_SICUREZZE, "42");
    EXPECT_EQ(m.MASCHERA_T, 8 + 16);
    EXPECT_EQ(m.MASCHERA_N, 32 + 128);
    EXPECT_EQ(m.TIPOLOGIE, "43040000A018");
}

TEST_F(ModuleImageTest, RemotePointsMarkTheInputMaskWith500) {
    struct Case {
        const char* letters;
        int ingressi, sicurezze;
        const char* tipologie;
    };
    const Case cases[] = {
        {"RRRRRRRR", 500, 0, "FF0000000000"},
        // R overwrites the wires before it; those after it add to 500.
        {"PPRMMMMM", 500, 0, "FF0000000000"},
        {"PPRPMMMM", 508, 0, "FF0000000000"},
        {"RMiMMMMM", 504, 4, "FF0000000000"},
        // Other masks keep their bytes; 500 and more is no byte and goes as 00.
        {"RVMMMMMM", 500, 0, "000200000000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.letters);
        const std::string codice = add("34");
        set_letters(codice, c.letters);
        const ModuleImage m = image(codice);
        EXPECT_EQ(m.MASCHERA_INGRESSI, c.ingressi);
        EXPECT_EQ(m.MASCHERA_SICUREZZE, c.sicurezze);
        EXPECT_EQ(m.TIPOLOGIE, c.tipologie);
    }
}

TEST_F(ModuleImageTest, InputParametersEqualToTheirDefaultAreNotSent) {
    struct Case {
        char letter;
        const char* riserva2;  // characters 1 to 9
        std::array<const char*, 3> sent;
    };
    const Case cases[] = {
        {'V', "010002060", {"000", "000", "000"}}, {'V', "011003061", {"011", "003", "061"}},
        {'T', "010002060", {"010", "002", "060"}}, {'T', "000010000", {"000", "000", "000"}},
        {'L', "100100100", {"100", "000", "100"}}, {'N', "004030060", {"000", "000", "060"}},
        {'A', "005005005", {"000", "005", "005"}}, {'J', "040040040", {"040", "000", "040"}},
        {'W', "040040040", {"040", "000", "040"}}, {'X', "040040040", {"040", "000", "040"}},
        {'P', "010002060", {"010", "002", "060"}}, {'M', "100030004", {"100", "030", "004"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(1, c.letter) + " " + c.riserva2);
        const std::string codice = add("14");
        std::string letters = kNoKinds;
        letters[4] = c.letter;
        set_letters(codice, letters);
        set(codice, 5, "riserva2", c.riserva2 + std::string(41, '0'));
        const ModuleImage m = image(codice);
        EXPECT_EQ(m.PARAMETRO_1(5), c.sent[0]);
        EXPECT_EQ(m.PARAMETRO_2(5), c.sent[1]);
        EXPECT_EQ(m.PARAMETRO_3(5), c.sent[2]);
        EXPECT_EQ(m.PARAMETRO_1(4), "000");
        EXPECT_EQ(m.PARAMETRO_1(6), "000");
    }
}

TEST_F(ModuleImageTest, ShortParameterColumnsReadAsZeros) {
    struct Case {
        const char* column;
        std::size_t length;
        const char* p1;
    };
    // riserva3 of row 1 needs 26 characters, riserva2 of an input 49.
    const Case cases[] = {
        {"riserva3", 25, "000"},
        {"riserva3", 26, "077"},
        {"riserva2", 48, "000"},
        {"riserva2", 49, "077"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.column) + " of " + std::to_string(c.length));
        const std::string codice = add("11");
        const std::string riserva3 = module_row("077") + std::string(15, '0');
        const std::string riserva2 = "077" + std::string(47, '0');
        const bool module_column = std::string(c.column) == "riserva3";
        set(codice, 1, c.column, (module_column ? riserva3 : riserva2).substr(0, c.length));
        const ModuleImage m = image(codice);
        EXPECT_EQ(module_column ? m.PERSONALIZZATO_1 : m.PARAMETRO_1(1), c.p1);
    }
}

TEST_F(ModuleImageTest, ModuleParametersByType) {
    struct Case {
        const char* type;
        const char* fields;               // P1 to P6: characters 9 to 26 of riserva3
        std::array<const char*, 8> sent;  // PERSONALIZZATO_1 to _8
    };
    const Case cases[] = {
        {"11", "000000000000000000", {"000", "000", "000", "000", "000", "000", "000", "000"}},
        // P2 goes with 128 added, held at 255; so it never equals its default.
        {"11", "000200000000000000", {"000", "255", "000", "000", "000", "000", "000", "000"}},
        {"11", "000005000000000000", {"000", "133", "000", "000", "000", "000", "000", "000"}},
        {"11", "000030000000000000", {"000", "158", "000", "000", "000", "000", "000", "000"}},
        {"11", "007000020010010030", {"007", "000", "000", "000", "000", "000", "000", "000"}},
        {"15", "000000021011012099", {"000", "000", "021", "011", "012", "000", "000", "000"}},
        {"25", "000000000033044000", {"000", "000", "000", "033", "044", "000", "000", "000"}},
        {"12", "000000000033044000", {"000", "000", "000", "033", "044", "000", "000", "000"}},
        {"1F", "001002003004005006", {"001", "130", "003", "000", "000", "000", "000", "000"}},
        {"0B", "000000000033044000", {"000", "000", "000", "000", "000", "000", "033", "044"}},
        {"0B", "000000000010010000", {"000", "000", "000", "000", "000", "000", "010", "010"}},
        {"4A", "000000000000000030", {"000", "000", "000", "000", "000", "000", "000", "000"}},
        {"4A", "000000000033044031", {"000", "000", "000", "000", "000", "031", "000", "000"}},
        // The temperature probe takes P2 without the addition.
        {"50", "000030000000000000", {"000", "000", "000", "000", "000", "000", "000", "000"}},
        {"50", "000040000000000000", {"000", "040", "000", "000", "000", "000", "000", "000"}},
        // The photosensor has defaults of its own and no addition.
        {"19", "009005040125200001", {"009", "000", "000", "000", "000", "000", "000", "000"}},
        {"19", "009006020010010030", {"009", "006", "020", "010", "010", "030", "000", "000"}},
        // The lamp sends every value it has, defaults included.
        {"24", "000030020010010030", {"000", "158", "020", "010", "010", "000", "000", "000"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " " + c.fields);
        const std::string codice = add(c.type);
        set(codice, 1, "riserva3", module_row(c.fields));
        const ModuleImage m = image(codice);
        const std::array<std::string, 8> got = {
            m.PERSONALIZZATO_1, m.PERSONALIZZATO_2, m.PERSONALIZZATO_3, m.PERSONALIZZATO_4,
            m.PERSONALIZZATO_5, m.PERSONALIZZATO_6, m.PERSONALIZZATO_7, m.PERSONALIZZATO_8};
        for (std::size_t i = 0; i < got.size(); ++i)
            EXPECT_EQ(got[i], c.sent[i]) << "PERSONALIZZATO_" << i + 1;
    }
}

TEST_F(ModuleImageTest, RelaysOfTheSimplePageFormTheGroupMaskOfType48) {
    struct Case {
        const char* type;
        const char* relays;  // characters 1 to 8 of riserva3, first is bit 0
        const char* maschera_gruppi;
    };
    const Case cases[] = {
        {"48", "00000000", "000"}, {"48", "10100001", "133"}, {"48", "11111111", "255"},
        {"49", "11111111", "000"}, {"11", "11111111", "000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " " + c.relays);
        const std::string codice = add(c.type);
        set(codice, 1, "riserva3", c.relays + std::string(18, '0'));
        EXPECT_EQ(image(codice).MASCHERA_GRUPPI, c.maschera_gruppi);
    }
}

TEST_F(ModuleImageTest, ThePhotosensorKindOfRowOneGivesItsTypesText) {
    struct Case {
        const char* type;
        char row1_letter;
        const char* tipologie;
    };
    const Case cases[] = {
        {"19", 'L', "000000000000"},
        {"19", 'M', "000000000200"},
        {"19", 'K', "000000000100"},
        // Another letter leaves the bytes of the masks.
        {"19", 'T', "000000000001"},
        {"14", 'M', "FF0000000000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " " + c.row1_letter);
        const std::string codice = add(c.type);
        set_letters(codice, std::string(1, c.row1_letter) + "MMMMMMM");
        EXPECT_EQ(image(codice).TIPOLOGIE, c.tipologie);
    }
}

TEST_F(ModuleImageTest, NothingOfTheImageGoesToPanelInterfaces) {
    for (const char* type : {"11", "18", "1E"}) {
        SCOPED_TRACE(type);
        const std::string codice = add(type);
        set_letters(codice, "PiVTRNAF");
        set(codice, 1, "riserva3", module_row("005005005005005005"));
        set(codice, 2, "riserva2", "123456789" + std::string(41, '0'));
        set(codice, 10, "modo", modo("II000000", "10000000", "01000000"));
        set(codice, 10, "riserva2", "100200300" + std::string(41, '0'));
        const ModuleImage m = image(codice);
        if (std::string(type) == "11") {
            EXPECT_NE(m, ModuleImage{});  // the same rows do count elsewhere
        } else {
            EXPECT_EQ(m, ModuleImage{});
        }
    }
}

TEST_F(ModuleImageTest, AStarredNoteShowsTheNumberOfActiveMessages) {
    struct Case {
        const char* type;
        int campo;  // the one row whose note is starred, 0 none
        const char* note;
        const char* messaggi_attivi;
    };
    const Case cases[] = {
        {"11", 0, "", ""},
        {"11", 9, "*Pannello", "SI"},
        {"11", 16, "*Pannello", "SI"},
        // A later input row clears it; the row itself is read before its note.
        {"11", 1, "*Pannello", ""},
        {"11", 8, "*Pannello", "SI"},
        {"11", 9, " *Pannello", ""},
        // The panel interface keeps the mark although the rest is cleared.
        {"1E", 9, "*Pannello", "SI"},
        {"1E", 0, "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " " + std::to_string(c.campo) + " " + c.note);
        const std::string codice = add(c.type);
        if (c.campo != 0) set(codice, c.campo, "note", c.note);
        EXPECT_EQ(image(codice).MESSAGGI_ATTIVI, c.messaggi_attivi);
    }
}

TEST(ByteHex, MasksAndValuesBecomeOneByteOfAFrame) {
    const std::pair<long long, const char*> cases[] = {
        {0, "00"}, {9, "09"}, {171, "AB"}, {255, "FF"}, {256, "00"}, {500, "00"}, {-1, "00"},
    };
    for (const auto& [value, hex] : cases) EXPECT_EQ(byte_hex(value), hex) << value;
}

}  // namespace
}  // namespace filo::commissioning
