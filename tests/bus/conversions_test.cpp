#include "bus/conversions.hpp"

#include <gtest/gtest.h>

#include "bus/module_code.hpp"

namespace filo::bus {
namespace {

struct TextCase {
    const char* in;
    const char* out;
};

TEST(DecAHex, GivesTwoDigitsAndZeroOutsideAByte) {
    const TextCase cases[] = {
        {"0", "00"},     {"9", "09"},     {"10", "0A"},    {"255", "FF"},  {"256", "00"},
        {"-1", "00"},    {"", "00"},      {"abc", "00"},   {"251", "FB"},  {"009", "09"},
        {" 12", "0C"},   {"12x", "0C"},   {"&HFF", "FF"},  {"2.5", "02"},  {"3.5", "04"},
        {"254.6", "FF"}, {"255.4", "00"}, {"1e999", "00"}, {"-0.4", "00"}, {"1E2", "64"},
    };
    for (const auto& c : cases) EXPECT_EQ(DEC_A_HEX(c.in), c.out) << '"' << c.in << '"';
}

TEST(BitStrings, ReadFromTheLeftWithMissingOrOddCharactersClear) {
    struct Case {
        const char* bits;
        const char* dec;
        const char* hex;
        const char* hex_inv;
    } cases[] = {
        {"00000000", "00", "00", "00"},  {"10000000", "128", "80", "01"},
        {"00000001", "1", "01", "80"},   {"11111111", "255", "FF", "FF"},
        {"11000001", "193", "C1", "83"}, {"00001010", "10", "0A", "50"},
        {"101", "160", "A0", "05"},      {"", "00", "00", "00"},
        {"1x1 0001", "161", "A1", "85"}, {"0000000111", "1", "01", "80"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BIN_A_DEC(c.bits), c.dec) << '"' << c.bits << '"';
        EXPECT_EQ(BIN_A_HEX(c.bits), c.hex) << '"' << c.bits << '"';
        EXPECT_EQ(BIN_A_HEX_INV(c.bits), c.hex_inv) << '"' << c.bits << '"';
    }
}

TEST(BitStrings, RoundTripThroughDecABinForEveryByte) {
    for (int v = 0; v <= 255; ++v) {
        const std::string bits = DEC_A_BIN(std::to_string(v));
        EXPECT_EQ(bits_byte(bits), v);
        EXPECT_EQ(BIN_A_HEX(bits), DEC_A_HEX(std::to_string(v)));
        if (v > 0) {
            EXPECT_EQ(BIN_A_DEC(bits), std::to_string(v));
        }
    }
}

TEST(SommaHex, AddsWithoutCuttingToTwoDigits) {
    struct Case {
        long long n;
        const char* hex;
        const char* out;
    } cases[] = {
        {0, "10", "10"},  {5, "10", "15"},  {200, "90", "158"}, {7, "90", "97"},
        {1, "FF", "100"}, {0, "0", "00"},   {15, "", "0F"},     {256, "10", "10"},
        {-1, "10", "10"}, {1, "ff", "100"}, {1, "1G", "02"},    {255, "FFFF", "100FE"},
        {0, "a", "0A"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SOMMA_HEX(c.n, c.hex), c.out) << c.n << " + \"" << c.hex << '"';
}

TEST(NumACifra, CountsPastNineInCapitals) {
    const TextCase cases[] = {
        {"0", "0"},  {"9", "9"},  {"10", "A"}, {"16", "G"}, {"34", "Y"},
        {"35", "0"}, {"-1", "0"}, {"", "0"},   {"z", "0"},  {"08", "8"},
    };
    for (const auto& c : cases) EXPECT_EQ(NUM_A_CIFRA(c.in), c.out) << '"' << c.in << '"';
    for (int n = 0; n <= 34; ++n) EXPECT_EQ(number_of_digit(digit_of(n)), n);
    EXPECT_FALSE(number_of_digit('Z'));
    EXPECT_FALSE(number_of_digit('a'));
}

TEST(HexFields, AreReadOnlyAsUpperCaseDigitsOfTheirWidth) {
    EXPECT_EQ(read_hex_byte("7F"), 0x7F);
    EXPECT_EQ(read_hex_address("FFF0"), 0xFFF0);
    EXPECT_EQ(hex_address(0x00AB), "00AB");
    EXPECT_EQ(hex_byte(0x0A), "0A");
    for (const char* bad : {"7f", "G0", "", "1", "123", " 1"})
        EXPECT_FALSE(read_hex_byte(bad)) << bad;
    for (const char* bad : {"fff0", "FFF", "FFF0 ", "0x12"})
        EXPECT_FALSE(read_hex_address(bad)) << bad;
}

TEST(CodiceControllo, WeighsCharacterIByTwoToThePowerI) {
    const TextCase cases[] = {
        {"00121F", "68"}, {"FFFEFF", "64"}, {"FFF023", "D4"}, {"000000", "A0"}, {"0001A1", "10"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CODICE_CONTROLLO(c.in), c.out) << c.in;
        EXPECT_EQ(printed_code(c.in), std::string(c.in) + c.out);
        EXPECT_TRUE(check_digits_match(std::string(c.in) + c.out)) << c.in;
    }
    EXPECT_EQ(CODICE_CONTROLLO("00121F99"), "68");
    EXPECT_FALSE(check_digits_match("00121F69"));
    EXPECT_FALSE(check_digits_match("00121F"));
    EXPECT_FALSE(check_digits_match("00121F680"));
    EXPECT_NE(CODICE_CONTROLLO("ab121F"), CODICE_CONTROLLO("AB121F"));  // callers upper-case first
}

}  // namespace
}  // namespace filo::bus
