// The image of a module's outputs: groups, relays and radio sockets.
#include <gtest/gtest.h>

#include <vector>

#include "commissioning/module_image_fixture.hpp"

namespace filo::commissioning {
namespace {

using ModuleImageTest = testing::ModuleImageTest;

const std::string kZeros50(50, '0');

// The array as one text, so that a value in the wrong place shows.
template <typename T, std::size_t N>
std::string joined(const OneBasedArray<T, N>& values) {
    std::string out;
    for (int i = 1; i <= values.size(); ++i) out += (i > 1 ? "," : "") + values(i);
    return out;
}

std::string ones_at(const std::vector<int>& positions) {
    std::string bits = kZeros50;
    for (int p : positions) bits[static_cast<std::size_t>(p - 1)] = '1';
    return bits;
}

TEST_F(ModuleImageTest, GroupsArePackedOverRowsTwoToNine) {
    struct Case {
        const char* type;
        int campo;
        std::vector<int> ones;  // characters of riserva3 set to "1"
        const char* riserva;
        int gruppo;  // the one byte expected, 0 none
        const char* value;
        const char* righe_gruppo;
    };
    // Even rows give six bytes and are marked by a name in riserva; odd rows
    // give two and are marked by character 17. Character 1 of a byte is bit 0.
    const Case cases[] = {
        {"11", 2, {1}, "", 1, "001", "000"},
        {"11", 2, {1, 2, 3, 4, 5, 6, 7, 8}, "", 1, "255", "000"},
        {"11", 2, {16}, "", 2, "128", "000"},
        {"11", 2, {41, 48}, "ALMENO1 luci", 6, "129", "001"},
        {"11", 2, {17}, "", 3, "001", "000"},
        {"11", 3, {9}, "", 8, "001", "000"},
        {"11", 3, {17}, "", 0, "", "002"},
        {"11", 3, {}, "TUTTI luci", 0, "", "000"},
        {"12", 4, {1}, "ALMENO1 scale", 9, "001", "004"},
        {"15", 5, {16}, "", 16, "128", "000"},
        {"25", 6, {48}, "x", 22, "128", "016"},
        {"25", 8, {1}, "x", 25, "001", "064"},
        {"11", 9, {16, 17}, "", 32, "128", "128"},
        // Other types and other rows carry no groups.
        {"1F", 2, {1}, "x", 0, "", "000"},
        {"48", 3, {1, 17}, "", 0, "", "000"},
        {"11", 10, {1}, "x", 0, "", "000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " row " + std::to_string(c.campo));
        const std::string codice = add(c.type, 32);
        set(codice, c.campo, "riserva3", ones_at(c.ones));
        set(codice, c.campo, "riserva", c.riserva);
        OneBasedArray<std::string, 32> expected{"000"};
        if (c.gruppo != 0) expected(c.gruppo) = c.value;
        const ModuleImage m = image(codice);
        EXPECT_EQ(joined(m.GRUPPO), joined(expected));
        EXPECT_EQ(m.RIGHE_GRUPPO, c.righe_gruppo);
    }
}

TEST_F(ModuleImageTest, RelayRowsGiveInversionAndTheirMasks) {
    struct Case {
        int campo;
        const char* tipologia;
        std::string modo;
        std::string riserva2;
        int invertiti;
        const char* hex_invertiti;
        int wire;  // the AND and RECIPROCO place expected set, 0 none
        const char* and_uscita;
        const char* reciproci_uscita;
        const char* evento_1;
        const char* evento_2;
    };
    const std::string plain = "I00000000000000000000000";
    const std::string events = "251009" + std::string(44, '0');
    const Case cases[] = {
        {9, "RELE", plain, kZeros50, 0, "00", 0, "", "", "000", "000"},
        {10, "RELE", modo("0I000000", "10000001", "01000000"), events, 2, "02", 2, "10000001",
         "01000000", "251", "009"},
        {16, "RELE", modo("II000000", "00000000", "00000011"), kZeros50, 128, "80", 8, "00000000",
         "00000011", "000", "000"},
        // A short modo leaves the masks at their start, so does a short riserva2.
        {12, "RELE", "II", "", 8, "08", 0, "", "", "000", "000"},
        // Only relays below row 17, and only RELE itself.
        {17, "RELE", modo("0I000000", "11111111", "11111111"), events, 0, "00", 0, "", "", "", ""},
        {11, "DIMMER", modo("0I000000", "11111111", "11111111"), events, 0, "00", 0, "", "", "000",
         "000"},
        {13, "RELE_RADIO0102", modo("0I000000", "11111111", "11111111"), events, 0, "00", 0, "", "",
         "000", "000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.tipologia) + " row " + std::to_string(c.campo));
        const std::string codice = add("11", 32);
        set(codice, c.campo, "tipologia", c.tipologia);
        set(codice, c.campo, "modo", c.modo);
        set(codice, c.campo, "riserva2", c.riserva2);
        OneBasedArray<std::string, 8> and_uscita{"00000000"};
        OneBasedArray<std::string, 8> reciproci{"00000000"};
        if (c.wire != 0) {
            and_uscita(c.wire) = c.and_uscita;
            reciproci(c.wire) = c.reciproci_uscita;
        }
        const ModuleImage m = image(codice);
        EXPECT_EQ(m.MASCHERA_INVERTITI, c.invertiti);
        EXPECT_EQ(m.HEX_INVERTITI, c.hex_invertiti);
        EXPECT_EQ(joined(m.AND_USCITA), joined(and_uscita));
        EXPECT_EQ(joined(m.RECIPROCI_USCITA), joined(reciproci));
        if (m.EVENTO_1.holds(c.campo)) {
            EXPECT_EQ(m.EVENTO_1(c.campo), c.evento_1);
            EXPECT_EQ(m.EVENTO_2(c.campo), c.evento_2);
        }
        EXPECT_EQ(m.EVENTO_1(c.campo == 9 ? 10 : 9), "000");
    }
}

TEST_F(ModuleImageTest, RadioRelaysGiveTheirSocketEntries) {
    struct Case {
        int campo;
        const char* tipologia;
        int wire;  // 0 none
        const char* ciabatta;
    };
    const Case cases[] = {
        {11, "RELE_RADIOA1B2", 3, "A1B2"},
        {16, "RELE_RADIO00FF", 8, "00FF"},
        {9, "RELE_RADIO", 0, ""},
        {10, "RELE", 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tipologia);
        const std::string codice = add("4A");
        set(codice, c.campo, "tipologia", c.tipologia);
        OneBasedArray<std::string, 8> expected{"0000"};
        if (c.wire != 0) expected(c.wire) = c.ciabatta;
        EXPECT_EQ(joined(image(codice).CIABATTA), joined(expected));
    }
}

}  // namespace
}  // namespace filo::commissioning
